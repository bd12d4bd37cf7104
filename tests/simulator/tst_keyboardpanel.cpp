#include "simulator/app/KeyboardPanel.h"

#include "simulator/core/SimulatedKeyboard.h"
#include "tests/simulator/PanelControls.h"
#include "tests/support/TestCase.h"

#include <memory>

using namespace simulator;

class KeyboardPanelTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void showsTheState();
    void showsAndHides();
    void choosesALocale();
    void takesATypedLocale_data();
    void takesATypedLocale();

protected:
    void setUp() override
    {
        m_keyboard = std::make_unique<SimulatedKeyboard>();
        m_panel = std::make_unique<KeyboardPanel>(m_keyboard.get());
        m_panel->resize(400, 160);
        m_panel->grab(); // lays it out
    }
    void tearDown() override
    {
        m_panel.reset();
        m_keyboard.reset();
    }

private:
    std::unique_ptr<SimulatedKeyboard> m_keyboard;
    std::unique_ptr<KeyboardPanel> m_panel;
};

void KeyboardPanelTest::showsTheState()
{
    QCOMPARE(controls::text(m_panel.get(), "state"), QStringLiteral("hidden, en_GB"));
    m_keyboard->setVisible(true);
    QCOMPARE(controls::text(m_panel.get(), "state"), QStringLiteral("shown, en_GB"));
    QVERIFY(controls::find<QCheckBox>(m_panel.get(), "Shown")->isChecked());
    m_keyboard->setLocale(QStringLiteral("de_DE"));
    QCOMPARE(controls::text(m_panel.get(), "state"), QStringLiteral("shown, de_DE"));
    QCOMPARE(controls::find<QComboBox>(m_panel.get(), "locale")->currentText(),
             QStringLiteral("de_DE"));
}

void KeyboardPanelTest::showsAndHides()
{
    controls::check(m_panel.get(), "Shown");
    QVERIFY(m_keyboard->isVisible());
    controls::check(m_panel.get(), "Shown");
    QVERIFY(!m_keyboard->isVisible());
}

void KeyboardPanelTest::choosesALocale()
{
    auto *locale = controls::find<QComboBox>(m_panel.get(), "locale");
    QTest::keyClick(locale, Qt::Key_Down);
    QCOMPARE(m_keyboard->locale(), QStringLiteral("de_DE"));
}

void KeyboardPanelTest::takesATypedLocale_data()
{
    QTest::addColumn<bool>("withButton");
    QTest::newRow("button") << true;
    QTest::newRow("return key") << false;
}

void KeyboardPanelTest::takesATypedLocale()
{
    QFETCH(bool, withButton);
    QLineEdit *edit = controls::find<QComboBox>(m_panel.get(), "locale")->lineEdit();
    edit->selectAll();
    QTest::keyClicks(edit, QStringLiteral("de_de"));
    QCOMPARE(m_keyboard->locale(), QStringLiteral("en_GB"));
    if (withButton)
        controls::click(m_panel.get(), "Set");
    else
        QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(m_keyboard->locale(), QStringLiteral("de_de")); // no other that looks like it
}

QTEST_MAIN(KeyboardPanelTest)

#include "tst_keyboardpanel.moc"
