#include "simulator/app/DevicesPanel.h"

#include "simulator/core/RobotCore.h"
#include "tests/simulator/PanelControls.h"
#include "tests/support/TestCase.h"

#include <QListWidget>
#include <QStackedWidget>

using namespace simulator;

class DevicesPanelTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void showsTheChosenDevice_data();
    void showsTheChosenDevice();
    void saysWhatTheRobotLacks_data();
    void saysWhatTheRobotLacks();
    void staysSmall();

private:
    static void choose(const DevicesPanel &panel, const QString &name)
    {
        auto *list = controls::find<QListWidget>(&panel, "devices");
        const QList<QListWidgetItem *> found = list->findItems(name, Qt::MatchExactly);
        QCOMPARE(found.size(), 1);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                          list->visualItemRect(found.constFirst()).center());
    }
    static const QWidget *shown(const DevicesPanel &panel)
    {
        return panel.findChild<QStackedWidget *>()->currentWidget();
    }
};

void DevicesPanelTest::showsTheChosenDevice_data()
{
    QTest::addColumn<QString>("panel");
    QTest::newRow("Printer") << "simulator::PrinterPanel";
    QTest::newRow("Dispenser") << "simulator::DispenserPanel";
    QTest::newRow("Passports") << "simulator::ScannerPanel";
    QTest::newRow("Documents") << "simulator::ScannerPanel";
    QTest::newRow("Keyboard") << "simulator::KeyboardPanel";
    QTest::newRow("Telephone") << "simulator::TelephonePanel";
    QTest::newRow("Mail") << "simulator::MailPanel";
    QTest::newRow("Sound") << "simulator::SoundPanel";
}

void DevicesPanelTest::showsTheChosenDevice()
{
    const RobotCore core;
    DevicesPanel panel(core.devices());
    panel.resize(440, 170);
    panel.grab(); // lays it out
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    choose(panel, name);
    QTEST(QString::fromLatin1(shown(panel)->metaObject()->className()), "panel");
    // Only the document scanner has options that the page asks for.
    if (const auto *options = shown(panel)->findChild<QLabel *>(QStringLiteral("options")))
        QCOMPARE(options->isVisibleTo(shown(panel)), name == QStringLiteral("Documents"));
}

void DevicesPanelTest::saysWhatTheRobotLacks_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("Printer") << "This robot has no printer.";
    QTest::newRow("Dispenser") << "This robot has no card dispenser.";
    QTest::newRow("Passports") << "This robot has no passport scanner.";
    QTest::newRow("Documents") << "This robot has no document scanner.";
    QTest::newRow("Keyboard") << "This robot has no keyboard.";
}

void DevicesPanelTest::saysWhatTheRobotLacks()
{
    const RobotCore core(RobotCore::Equipment{false, false, false, false, false, false});
    DevicesPanel panel(core.devices());
    panel.resize(440, 170);
    panel.grab(); // lays it out
    choose(panel, QString::fromLatin1(QTest::currentDataTag()));
    const auto *label = qobject_cast<const QLabel *>(shown(panel));
    QVERIFY(label);
    QTEST(label->text(), "text");
}

void DevicesPanelTest::staysSmall()
{
    const RobotCore core;
    const DevicesPanel panel(core.devices());
    QVERIFY2(panel.sizeHint().height() <= 200,
             qPrintable(QString::number(panel.sizeHint().height())));
}

QTEST_MAIN(DevicesPanelTest)

#include "tst_devicespanel.moc"
