#include "simulator/app/SettingsPanel.h"

#include "simulator/core/SettingsStore.h"
#include "simulator/core/SimulatedPlugin.h"
#include "tests/support/TestCase.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>

using namespace simulator;

class SettingsPanelTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void showsEachStore();
    void changesAValue();
    void addsAndRemoves();
    void takesNoKeyWithoutAGroup();
    void showsWhatOthersChange();

protected:
    void setUp() override
    {
        m_plugin.reset(new SimulatedPlugin({}));
        m_plugin->applicationSettings().setValue(QStringLiteral("/screen/title"),
                                                 QStringLiteral("Hello"));
        m_plugin->systemSettings().setValue(QStringLiteral("/sound/volume"), 50);
        m_plugin->setEmailParameters({{QStringLiteral("port"), 587}});
        m_panel.reset(new SettingsPanel(m_plugin.data()));
    }
    void tearDown() override
    {
        m_panel.reset();
        m_plugin.reset();
    }

private:
    QTableWidget *table() const { return m_panel->findChild<QTableWidget *>(); }
    QString cell(int row, int column) const { return table()->item(row, column)->text(); }
    void choose(int store) const { m_panel->findChild<QComboBox *>()->setCurrentIndex(store); }
    void write(const char *field, const QString &text) const
    {
        m_panel->findChild<QLineEdit *>(QLatin1String(field))->setText(text);
    }
    void press(const QString &text) const
    {
        const QList<QPushButton *> buttons = m_panel->findChildren<QPushButton *>();
        for (QPushButton *button : buttons) {
            if (button->text() == text)
                button->click();
        }
    }

    QScopedPointer<SimulatedPlugin> m_plugin;
    QScopedPointer<SettingsPanel> m_panel;
};

void SettingsPanelTest::showsEachStore()
{
    QCOMPARE(cell(0, 0), QStringLiteral("/screen/title"));
    QCOMPARE(cell(0, 1), QStringLiteral("Hello"));
    choose(1);
    QCOMPARE(cell(0, 1), QStringLiteral("50"));
    choose(2);
    QCOMPARE(cell(0, 0), QStringLiteral("/account/port"));
}

void SettingsPanelTest::changesAValue()
{
    choose(1);
    table()->item(0, 1)->setText(QStringLiteral("40"));
    QCOMPARE(m_plugin->sysParameter(QStringLiteral("/sound/volume"), {}), QVariant(40));
    QTRY_COMPARE(cell(0, 1), QStringLiteral("40"));
    choose(0);
    table()->item(0, 1)->setText(QStringLiteral("\"42\""));
    QCOMPARE(m_plugin->appParameter(QStringLiteral("/screen/title"), {}),
             QVariant(QStringLiteral("42")));
}

void SettingsPanelTest::addsAndRemoves()
{
    write("key", QStringLiteral("badge/enabled"));
    write("value", QStringLiteral("true"));
    press(QStringLiteral("Set"));
    QCOMPARE(m_plugin->appParameter(QStringLiteral("/badge/enabled"), {}), QVariant(true));
    QTRY_COMPARE(table()->rowCount(), 2);
    table()->setCurrentCell(0, 0);
    press(QStringLiteral("Remove"));
    QVERIFY(!m_plugin->appParameter(QStringLiteral("/badge/enabled"), {}).isValid());
    QTRY_COMPARE(table()->rowCount(), 1);
}

void SettingsPanelTest::takesNoKeyWithoutAGroup()
{
    for (const char *key : {"", "/", "title", "/title"}) {
        write("key", QLatin1String(key));
        press(QStringLiteral("Set"));
    }
    table()->setCurrentCell(-1, -1);
    press(QStringLiteral("Remove"));
    QCOMPARE(m_plugin->applicationSettings().keys(), QStringList{QStringLiteral("/screen/title")});
}

void SettingsPanelTest::showsWhatOthersChange()
{
    m_plugin->applicationSettings().setValue(QStringLiteral("/screen/title"),
                                             QStringLiteral("Bye"));
    QTRY_COMPARE(cell(0, 1), QStringLiteral("Bye"));
}

QTEST_MAIN(SettingsPanelTest)
#include "tst_settingspanel.moc"
