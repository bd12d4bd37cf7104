#include "simulator/app/SimulatorWindow.h"

#include "panorel/Constants.h"
#include "simulator/app/DemoVisit.h"
#include "simulator/app/MessageLog.h"
#include "simulator/app/MessageReporter.h"
#include "simulator/app/RobotScreen.h"
#include "simulator/core/OperatorDesk.h"
#include "simulator/core/RobotCore.h"
#include "simulator/core/SimulatedDialogModule.h"
#include "simulator/core/SimulatedDrive.h"
#include "simulator/core/SimulatedFaces.h"
#include "simulator/core/SimulatedScripts.h"
#include "simulator/core/SimulatedSpeech.h"
#include "tests/support/TestCase.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

#include <memory>

using panorel::Message;
using namespace simulator;
namespace topics = panorel::constants;

/// The window without a page: what the robot's parts and the panel's buttons put on the bus.
class SimulatorWindowTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void partsReportToThePage();
    void everyButtonOfThePanelWorks_data();
    void everyButtonOfThePanelWorks();
    void sendsNoBrokenCustomEvent();
    void fitsTheDesk();
    void demoVisitReachesThePage();

protected:
    void setUp() override
    {
        m_core = std::make_unique<RobotCore>();
        m_window = std::make_unique<SimulatorWindow>(m_core.get());
        m_topics.clear();
        connect(m_window->screen()->reporter(), &MessageReporter::published, this,
                [this](const Message &message) { m_topics.append(message.type()); });
    }
    void tearDown() override
    {
        m_window.reset();
        m_core.reset();
    }

private:
    QWidget *tab(const QString &title) const;
    QList<QPushButton *> buttons(const QWidget *page, const QString &text) const;

    std::unique_ptr<RobotCore> m_core;
    std::unique_ptr<SimulatorWindow> m_window;
    QStringList m_topics;
};

QWidget *SimulatorWindowTest::tab(const QString &title) const
{
    auto *tabs = m_window->findChild<QTabWidget *>();
    for (int i = 0; i < tabs->count(); ++i) {
        if (tabs->tabText(i) == title)
            return tabs->widget(i);
    }
    qFatal("no tab %s", qPrintable(title));
}

QList<QPushButton *> SimulatorWindowTest::buttons(const QWidget *page, const QString &text) const
{
    QList<QPushButton *> found;
    const auto all = page->findChildren<QPushButton *>();
    for (QPushButton *button : all) {
        if (button->text() == text)
            found.append(button);
    }
    return found;
}

void SimulatorWindowTest::partsReportToThePage()
{
    m_core->speech()->say(QStringLiteral("Hello"));
    m_core->speech()->cancel();
    m_core->drive()->setMode(DriveModeFollow);
    m_core->drive()->driveTo(1);
    m_core->drive()->setCharger(false);
    m_core->scripts()->start(QStringLiteral("tour"));
    m_core->scripts()->cancel();
    m_core->operatorDesk()->respond(2);
    m_core->operatorDesk()->setControl(true);
    m_core->faces()->addFace(1);
    m_core->faces()->deleteFace(1);
    const QStringList expected{
        topics::ROBOT_REPLIC_START,
        topics::ROBOT_REPLIC_FINISH,
        topics::DRIVE_MODE,
        topics::DRIVE_STATUS,
        topics::SCRIPTS_END,
        topics::OPERATOR_CALL_RESPONSE,
        topics::OPERATOR_CONTROL_STATUS,
        topics::FACE_ADD_STATUS,
    };
    QCOMPARE(m_topics, expected);
}

void SimulatorWindowTest::everyButtonOfThePanelWorks_data()
{
    QTest::addColumn<QString>("tabTitle");
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("which"); // of several with this text
    QTest::addColumn<QString>("topic");
    const auto row = [](const char *page, const char *button, int which, const QString &topic) {
        QTest::newRow(qPrintable(topic)) << page << button << which << topic;
    };
    row("Person", "Comes", 0, topics::USER_HAS);
    row("Person", "Leaves", 0, topics::USER_LOST);
    row("Person", "Says", 0, topics::USER_SAID);
    row("Person", "Acts", 0, topics::USER_ACTION);
    row("Person", "Report", 0, topics::FACE_RECOGNIZE_GENERAL);
    row("Person", "Report", 1, topics::FACE_ADD_STATUS);
    row("Robot", "Starts", 0, topics::ROBOT_REPLIC_START);
    row("Robot", "Ends", 0, topics::ROBOT_REPLIC_FINISH);
    row("Robot", "Switch", 0, topics::DRIVE_MODE);
    row("Robot", "Report", 0, topics::DRIVE_STATUS);
    row("Robot", "Report", 1, topics::DRIVE_CHARGE);
    row("Robot", "Ends", 1, topics::SCRIPTS_END);
    row("Dialog", "Ask", 0, topics::QUESTION_NEW);
    row("Dialog", "Answers", 0, topics::OPERATOR_CALL_RESPONSE);
    row("Dialog", "In control", 0, topics::OPERATOR_CONTROL_STATUS);
    row("Dialog", "Starts", 0, topics::INTERACTION_STATE);
    row("Application", "Send", 0, topics::CUSTOM_EVENT_CORE);
    row("Application", "Ends", 0, topics::APPLICATION_FINISH);
    row("Application", "Page hidden", 0, topics::SYSTEM_PAGE_HIDDEN);
    row("Application", "Settings changed", 0, topics::SETTINGS_UPDATE);
}

void SimulatorWindowTest::everyButtonOfThePanelWorks()
{
    QFETCH(QString, tabTitle);
    QFETCH(QString, button);
    QFETCH(int, which);
    QFETCH(QString, topic);
    const QList<QPushButton *> found = buttons(tab(tabTitle), button);
    QVERIFY2(which < found.size(), qPrintable(button));
    found.at(which)->click();
    QCOMPARE(m_topics, QStringList{topic});
    QCOMPARE(m_window->log()->rowCount(), 1);
}

void SimulatorWindowTest::sendsNoBrokenCustomEvent()
{
    QWidget *page = tab(QStringLiteral("Application"));
    QLineEdit *json = nullptr;
    for (QLineEdit *edit : page->findChildren<QLineEdit *>()) {
        if (edit->text().contains(QStringLiteral("offer")))
            json = edit;
    }
    QVERIFY(json);
    for (const QString &text : {QStringLiteral("{"), QStringLiteral("[1]"), QString()}) {
        json->setText(text);
        buttons(page, QStringLiteral("Send")).constFirst()->click();
    }
    QVERIFY(m_topics.isEmpty());
}

void SimulatorWindowTest::fitsTheDesk()
{
    const QSize least = m_window->minimumSizeHint();
    QVERIFY2(least.width() <= 1280 && least.height() <= 800,
             qPrintable(QStringLiteral("%1 x %2").arg(least.width()).arg(least.height())));
}

void SimulatorWindowTest::demoVisitReachesThePage()
{
    m_core->pace().setSpeed(500);
    DemoVisit visit(m_core.get(), m_window->screen());
    QSignalSpy finished(&visit, &DemoVisit::finished);
    visit.start();
    visit.start(); // goes on instead
    QTRY_COMPARE(finished.count(), 1);
    for (const QString &topic :
         {topics::USER_HAS, topics::INTERACTION_STATE, topics::ROBOT_REPLIC_START,
          topics::ROBOT_REPLIC_FINISH, topics::USER_SAID, topics::QUESTION_NEW,
          topics::CUSTOM_EVENT_CORE})
        QVERIFY2(m_topics.contains(topic), qPrintable(topic));
    QCOMPARE(m_topics.count(topics::USER_HAS), 1);
    QVERIFY(!m_core->dialog()->openQuestion().isEmpty());
}

QTEST_MAIN(SimulatorWindowTest)

#include "tst_simulatorwindow.moc"
