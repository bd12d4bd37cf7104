#include "panorel/handlers/KeyboardControlHandler.h"

#include "tests/handlers/DeviceTestCase.h"

using panorel::KeyboardControlHandler;

class KeyboardControlHandlerTest : public DeviceTestCase
{
    Q_OBJECT

private:
    void setUp() override
    {
        DeviceTestCase::setUp();
        plugin()->keyboardDevice = newKeyboard();
    }

    void create(PluginInterface *host)
    {
        watch(m_response);
        install(new KeyboardControlHandler(host, brocker()),
                QStringLiteral("keyboard.control.request"),
                QStringLiteral("KeyboardControlHandler"));
    }
    void renew()
    {
        brocker()->clear();
        create(plugin());
    }

    QSharedPointer<TestKeyboard> newKeyboard()
    {
        return QSharedPointer<TestKeyboard>::create(&plugin()->calls);
    }

    TestKeyboard &keyboard() { return *plugin()->keyboardDevice; }

    QStringList locale(const QString &value) const
    {
        return {text(m_response, {{QStringLiteral("locale"), value}})};
    }
    QStringList visible(bool value) const
    {
        return {text(m_response, {{QStringLiteral("is_visible"), value}})};
    }
    static QString setLocale(const QString &locale)
    {
        return QStringLiteral("keyboard.setLocale(%1)").arg(locale);
    }

    const QString m_response = QStringLiteral("keyboard.control.response");
    const QString m_english = QStringLiteral("en_GB");
    const QString m_german = QStringLiteral("de_DE");
    const QString m_locale = QStringLiteral("keyboard.locale()");
    const QString m_isVisible = QStringLiteral("keyboard.isVisible()");
    const QString m_show = QStringLiteral("keyboard.setVisible(true)");
    const QString m_hide = QStringLiteral("keyboard.setVisible(false)");
    const QByteArray m_all = R"({"hide": 1, "show": 1, "set_locale": "de_DE", "is_visible": 1,
        "get_locale": 1})";

private Q_SLOTS:
    void doesWhatIsPresent_data();
    void doesWhatIsPresent();
    void countsOnlyThePresence_data();
    void countsOnlyThePresence();
    void tellsTheLocale_data();
    void tellsTheLocale();
    void tellsWhetherItIsVisible_data();
    void tellsWhetherItIsVisible();
    void setsTheLocale_data();
    void setsTheLocale();
    void answersBeforeItActs();
    void takesTheKeyboardAnewForEachKey();
    void holdsTheKeyboardDuringACall();
    void seesAKeyboardThatComesLater();
    void doesNothingWithoutAKeyboard();
    void doesNothingWithoutAHost();
    void survivesClearingInAReply_data();
    void survivesClearingInAReply();
    void survivesClearingInACall();
    void toldByEachHandler();
};

void KeyboardControlHandlerTest::doesWhatIsPresent_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QStringList>("answers");
    QTest::addColumn<QStringList>("calls");
    const auto row = [](const char *json, const QStringList &answers, const QStringList &calls) {
        QTest::newRow(json) << QByteArray(json) << answers << calls;
    };
    row("{}", {}, {});
    row(R"({"get_locale": true})", locale(m_english), {m_locale});
    row(R"({"is_visible": true})", visible(false), {m_isVisible});
    row(R"({"set_locale": "de_DE"})", {}, {setLocale(m_german)});
    row(R"({"show": true})", {}, {m_show});
    row(R"({"hide": true})", {}, {m_hide});
    row(R"({"hide": true, "show": true})", {}, {m_show, m_hide});
    row(R"({"is_visible": true, "get_locale": true})", locale(m_english) + visible(false),
        {m_locale, m_isVisible});
    row(R"({"show": 1, "set_locale": "de_DE"})", {}, {setLocale(m_german), m_show});
    row(m_all.constData(), locale(m_english) + visible(false),
        {m_locale, m_isVisible, setLocale(m_german), m_show, m_hide});
    row(R"({"locale": "de_DE", "Show": true, "visible": true, "setLocale": "de_DE"})", {}, {});
}

void KeyboardControlHandlerTest::doesWhatIsPresent()
{
    QFETCH(QByteArray, json);
    QFETCH(QStringList, answers);
    QFETCH(QStringList, calls);
    makesUpAttributes({"Show", "locale", "setLocale", "visible"});
    create(plugin());
    QCOMPARE(ask(json), answers);
    QCOMPARE(done(), calls);
}

void KeyboardControlHandlerTest::countsOnlyThePresence_data()
{
    QTest::addColumn<QByteArray>("value");
    for (const char *value : {"true", "false", "null", "0", "\"\"", "\"x\"", "[]", "{}"})
        QTest::newRow(value) << QByteArray(value);
}

void KeyboardControlHandlerTest::countsOnlyThePresence()
{
    QFETCH(QByteArray, value);
    create(plugin());
    QCOMPARE(ask("{\"get_locale\": " + value + ", \"is_visible\": " + value + ", \"show\": " + value
                 + ", \"hide\": " + value + '}'),
             locale(m_english) + visible(false));
    QCOMPARE(done(), QStringList({m_locale, m_isVisible, m_show, m_hide}));
    QVERIFY(!keyboard().visible);
}

void KeyboardControlHandlerTest::tellsTheLocale_data()
{
    QTest::addColumn<QString>("current");
    for (const char *current : {"ru_RU", "C", "", "\xC3\xA9"})
        QTest::newRow(current) << QString::fromUtf8(current);
}

void KeyboardControlHandlerTest::tellsTheLocale()
{
    QFETCH(QString, current);
    create(plugin());
    keyboard().currentLocale = current;
    QCOMPARE(ask(R"({"get_locale": null})"), locale(current));
    done();
}

void KeyboardControlHandlerTest::tellsWhetherItIsVisible_data()
{
    QTest::addColumn<bool>("value");
    QTest::newRow("visible") << true;
    QTest::newRow("hidden") << false;
}

void KeyboardControlHandlerTest::tellsWhetherItIsVisible()
{
    QFETCH(bool, value);
    create(plugin());
    keyboard().visible = value;
    QCOMPARE(ask(R"({"is_visible": null})"), visible(value));
    done();
}

void KeyboardControlHandlerTest::setsTheLocale_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("read");
    const auto row = [](const char *value, const char *read) {
        QTest::newRow(value) << QByteArray(value) << QString::fromUtf8(read);
    };
    row("\"ru_RU\"", "ru_RU");
    row("\"\"", "");
    row("\"\xC3\xA9 %1\"", "\xC3\xA9 %1");
    row("5", "5");
    row("2.5", "2.5");
    row("true", "true");
    row("null", "");
    row("[\"ru_RU\"]", "");
    row("{\"a\": \"ru_RU\"}", "");
}

void KeyboardControlHandlerTest::setsTheLocale()
{
    QFETCH(QByteArray, value);
    QFETCH(QString, read);
    create(plugin());
    QCOMPARE(ask("{\"set_locale\": " + value + '}'), QStringList());
    QCOMPARE(done(), QStringList{setLocale(read)});
    QCOMPARE(keyboard().currentLocale, read);
}

void KeyboardControlHandlerTest::answersBeforeItActs()
{
    create(plugin());
    QCOMPARE(
        ask(R"({"set_locale": "de_DE", "get_locale": true, "show": true, "is_visible": true})"),
        locale(m_english) + visible(false));
    QCOMPARE(ask(R"({"get_locale": true, "is_visible": true})"), locale(m_german) + visible(true));
    done();
}

void KeyboardControlHandlerTest::takesTheKeyboardAnewForEachKey()
{
    create(plugin());
    const auto second = newKeyboard();
    second->currentLocale = m_german;
    second->visible = true;
    keyboard().duringCall = [this, second] { plugin()->keyboardDevice = second; };
    second->duringCall = [this] { plugin()->keyboardDevice.reset(); };
    send(m_all);
    QCOMPARE(heard(), locale(m_english) + visible(true));
    QCOMPARE(done(), QStringList({m_locale, m_isVisible}));
}

void KeyboardControlHandlerTest::holdsTheKeyboardDuringACall()
{
    create(plugin());
    const QWeakPointer<TestKeyboard> weak = plugin()->keyboardDevice;
    bool alive = false;
    keyboard().duringCall = [this, weak, &alive] {
        plugin()->keyboardDevice.reset();
        alive = !weak.isNull();
    };
    send(m_all);
    QVERIFY(alive);
    QVERIFY(weak.isNull());
    QCOMPARE(heard(), locale(m_english));
    QCOMPARE(done(), QStringList{m_locale});
}

void KeyboardControlHandlerTest::seesAKeyboardThatComesLater()
{
    plugin()->keyboardDevice.reset();
    create(plugin());
    QCOMPARE(ask(m_all), QStringList());
    plugin()->keyboardDevice = newKeyboard();
    QCOMPARE(ask(R"({"get_locale": true})"), locale(m_english));
    QCOMPARE(done(), QStringList{m_locale});
}

void KeyboardControlHandlerTest::doesNothingWithoutAKeyboard()
{
    plugin()->keyboardDevice.reset();
    create(plugin());
    for (const char *json :
         {R"({"get_locale": 1})", R"({"is_visible": 1})", R"({"set_locale": "de_DE"})",
          R"({"show": 1})", R"({"hide": 1})", m_all.constData()})
        QCOMPARE(ask(json), QStringList());
}

void KeyboardControlHandlerTest::doesNothingWithoutAHost()
{
    create(nullptr);
    QCOMPARE(ask(m_all), QStringList());
}

void KeyboardControlHandlerTest::survivesClearingInAReply_data()
{
    QTest::addColumn<bool>("renewed");
    QTest::newRow("cleared") << false;
    QTest::newRow("renewed") << true;
}

void KeyboardControlHandlerTest::survivesClearingInAReply()
{
    QFETCH(bool, renewed);
    create(plugin());
    during(m_response, [this, renewed] {
        brocker()->clear();
        if (renewed)
            create(plugin());
    });
    send(m_all);
    // The second answer reaches whom it still concerns.
    QCOMPARE(heard(), renewed ? locale(m_english) + visible(false) : locale(m_english));
    QCOMPARE(done(), QStringList({m_locale, m_isVisible, setLocale(m_german), m_show, m_hide}));
}

void KeyboardControlHandlerTest::survivesClearingInACall()
{
    create(plugin());
    keyboard().duringCall = [this] { renew(); };
    send(m_all);
    QCOMPARE(heard(), locale(m_english) + visible(false));
    QCOMPARE(done(), QStringList({m_locale, m_isVisible, setLocale(m_german), m_show, m_hide}));
}

void KeyboardControlHandlerTest::toldByEachHandler()
{
    create(plugin());
    brocker()->subscribe(QStringLiteral("keyboard.control.request"),
                         new KeyboardControlHandler(plugin(), brocker()));
    send(R"({"get_locale": 1})");
    QCOMPARE(heard(), locale(m_english) + locale(m_english));
    done();
}

QTEST_GUILESS_MAIN(KeyboardControlHandlerTest)
#include "tst_keyboardcontrolhandler.moc"
