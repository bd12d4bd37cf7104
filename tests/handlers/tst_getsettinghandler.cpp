#include "panorel/handlers/GetSettingHandler.h"

#include "tests/support/HandlerTestCase.h"
#include "tests/support/PageRequest.h"

#include <QJsonObject>
#include <QRegularExpression>
#include <QUuid>

using panorel::GetSettingHandler;
using panorel::Message;

class GetSettingHandlerTest : public HandlerTestCase
{
    Q_OBJECT

private:
    void create(PluginInterface *host)
    {
        watch(QStringLiteral("system.settings.load"));
        subscribe(new GetSettingHandler(host, brocker()), QStringLiteral("system.settings.get"));
    }

    /// Publishes the page's request; gives the "settings" of the one reply.
    QVariantMap ask(const QByteArray &json)
    {
        request(fromPage(json), QStringLiteral("GetSettingHandler"));
        if (replies().count() != 1) {
            QTest::qFail("there is not one reply", __FILE__, __LINE__);
            return {};
        }
        log().skipDebug(); // the broker's line of the reply
        const Message reply = replies().take();
        if (reply.attributes().keys() != QStringList({QStringLiteral("settings")}))
            QTest::qFail(qPrintable(debugText(reply.toJson())), __FILE__, __LINE__);
        const QVariant settings = reply.attributes().value(QStringLiteral("settings"));
        if (settings.userType() != QMetaType::QVariantMap)
            QTest::qFail("the settings are no map", __FILE__, __LINE__);
        return settings.toMap();
    }

    static QVariantMap entry(const char *type, const QString &group, const QString &name,
                             const QVariant &value)
    {
        return {{QStringLiteral("settings_type"), QString::fromLatin1(type)},
                {QStringLiteral("group"), group},
                {QStringLiteral("name"), name},
                {QStringLiteral("value"), value}};
    }

    static HostCall asked(const char *function, const QString &key)
    {
        const QString name = QString::fromLatin1(function);
        if (name.endsWith(QLatin1String("Group")))
            return {name, {key}};
        return {name, {key, QVariant()}};
    }

private Q_SLOTS:
    void givesOneSetting_data();
    void givesOneSetting();
    void asksWithAnInvalidDefault();
    void givesNoEntryForAnAbsentSetting_data();
    void givesNoEntryForAnAbsentSetting();
    void givesAnEntryForAnEmptyValue();
    void givesAGroup_data();
    void givesAGroup();
    void givesAnEmptyGroup();
    void refuses_data();
    void refuses();
    void keysAreFreshUuids();
    void readsTextsByConversion();
    void survivesPlaceholdersInNames_data();
    void survivesPlaceholdersInNames();
    void carriesEachKindOfValue_data();
    void carriesEachKindOfValue();
    void answersWithoutAHost();
};

void GetSettingHandlerTest::givesOneSetting_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QString>("function");
    QTest::newRow("application") << QByteArray("application") << QStringLiteral("appParameter");
    QTest::newRow("system") << QByteArray("system") << QStringLiteral("sysParameter");
}

void GetSettingHandlerTest::givesOneSetting()
{
    QFETCH(QByteArray, type);
    QFETCH(QString, function);
    create(plugin());
    const QString key = QStringLiteral("/sound/volume");
    plugin()->appSettings.insert(key, 1);
    plugin()->sysSettings.insert(key, 2);
    const QVariantMap settings =
        ask("{\"settings_type\": \"" + type + "\", \"group\": \"sound\", \"name\": \"volume\"}");
    QCOMPARE(takeCalls(), QVector<HostCall>({asked(qPrintable(function), key)}));
    QCOMPARE(settings.values(),
             QVariantList({entry(type.constData(), QStringLiteral("sound"),
                                 QStringLiteral("volume"), type == "system" ? 2 : 1)}));
}

void GetSettingHandlerTest::asksWithAnInvalidDefault()
{
    create(plugin());
    ask(R"({"settings_type": "system", "group": "g", "name": "n"})");
    const QVector<HostCall> calls = takeCalls();
    QCOMPARE(calls.size(), 1);
    QVERIFY(!calls.first().arguments.at(1).isValid());
}

void GetSettingHandlerTest::givesNoEntryForAnAbsentSetting_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::newRow("application") << QByteArray("application");
    QTest::newRow("system") << QByteArray("system");
}

void GetSettingHandlerTest::givesNoEntryForAnAbsentSetting()
{
    QFETCH(QByteArray, type);
    create(plugin());
    QCOMPARE(ask("{\"settings_type\": \"" + type + "\", \"group\": \"g\", \"name\": \"n\"}"),
             QVariantMap());
    takeCalls();
}

void GetSettingHandlerTest::givesAnEntryForAnEmptyValue()
{
    create(plugin());
    plugin()->appSettings.insert(QStringLiteral("/g/n"), QString());
    QCOMPARE(
        ask(R"({"settings_type": "application", "group": "g", "name": "n"})").values(),
        QVariantList({entry("application", QStringLiteral("g"), QStringLiteral("n"), QString())}));
    takeCalls();
}

void GetSettingHandlerTest::givesAGroup_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QString>("function");
    QTest::addColumn<QByteArray>("name");
    const QString app = QStringLiteral("appParameterGroup");
    const QString sys = QStringLiteral("sysParameterGroup");
    QTest::newRow("application") << QByteArray("application") << app << QByteArray();
    QTest::newRow("system") << QByteArray("system") << sys << QByteArray();
    QTest::newRow("empty name") << QByteArray("application") << app
                                << QByteArray(", \"name\": \"\"");
    QTest::newRow("null name") << QByteArray("system") << sys << QByteArray(", \"name\": null");
    QTest::newRow("a name that is a list")
        << QByteArray("system") << sys << QByteArray(", \"name\": [1]");
}

void GetSettingHandlerTest::givesAGroup()
{
    QFETCH(QByteArray, type);
    QFETCH(QString, function);
    QFETCH(QByteArray, name);
    create(plugin());
    const QString group = QStringLiteral("g");
    const QVariantMap three{{QStringLiteral("a"), 1},
                            {QStringLiteral("b"), QStringLiteral("two")},
                            {QStringLiteral("c"), QVariant()}}; // there, if without a value
    (type == "system" ? plugin()->sysGroups : plugin()->appGroups).insert(group, three);

    const QVariantMap settings =
        ask("{\"settings_type\": \"" + type + "\", \"group\": \"g\"" + name + "}");
    QCOMPARE(takeCalls(), QVector<HostCall>({asked(qPrintable(function), group)}));
    QCOMPARE(settings.size(), 3);
    const QVariantList entries = settings.values();
    for (auto setting = three.constBegin(); setting != three.constEnd(); ++setting)
        QCOMPARE(entries.count(entry(type.constData(), group, setting.key(), *setting)), 1);
}

void GetSettingHandlerTest::givesAnEmptyGroup()
{
    create(plugin());
    QCOMPARE(ask(R"({"settings_type": "system", "group": "nowhere"})"), QVariantMap());
    takeCalls();
}

void GetSettingHandlerTest::refuses_data()
{
    QTest::addColumn<QByteArray>("json");
    for (const char *json :
         {"{}", R"({"settings_type": "system"})", R"({"settings_type": "system", "group": ""})",
          R"({"settings_type": "system", "group": "", "name": "n"})", R"({"group": "g"})",
          R"({"settings_type": "", "group": "g"})", R"({"settings_type": "System", "group": "g"})",
          R"({"settings_type": "APPLICATION", "group": "g", "name": "n"})",
          R"({"settings_type": "systems", "group": "g"})", R"({"settings_type": 1, "group": "g"})",
          R"({"settings_type": null, "group": "g"})",
          R"({"settings_type": "system", "group": null})",
          R"({"settings_type": "system", "group": ["g"]})",
          R"({"settings_type": {"system": 1}, "group": "g"})"})
        QTest::newRow(json) << QByteArray(json);
}

void GetSettingHandlerTest::refuses()
{
    QFETCH(QByteArray, json);
    create(plugin());
    QCOMPARE(ask(json), QVariantMap()); // and the host is not asked
}

void GetSettingHandlerTest::keysAreFreshUuids()
{
    create(plugin());
    plugin()->appGroups.insert(QStringLiteral("g"),
                               {{QStringLiteral("a"), 1}, {QStringLiteral("b"), 2}});
    const QByteArray json = R"({"settings_type": "application", "group": "g"})";
    QStringList keys = ask(json).keys() + ask(json).keys();
    takeCalls();
    QCOMPARE(keys.size(), 4);
    QCOMPARE(keys.removeDuplicates(), 0);
    const QRegularExpression braced(QStringLiteral(
        "^\\{[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}\\}$"));
    for (const QString &key : qAsConst(keys))
        QVERIFY2(braced.match(key).hasMatch(), qPrintable(key));
}

void GetSettingHandlerTest::readsTextsByConversion()
{
    create(plugin());
    plugin()->sysSettings.insert(QStringLiteral("/7/true"), 9);
    QCOMPARE(ask(R"({"settings_type": "system", "group": 7, "name": true})").values(),
             QVariantList({entry("system", QStringLiteral("7"), QStringLiteral("true"), 9)}));
    takeCalls();
}

void GetSettingHandlerTest::survivesPlaceholdersInNames_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("name");
    QTest::newRow("group") << QStringLiteral("g%2") << QStringLiteral("n");
    QTest::newRow("name") << QStringLiteral("g") << QStringLiteral("%1");
    QTest::newRow("both") << QStringLiteral("%2%1") << QStringLiteral("%L1%3");
    QTest::newRow("slashes") << QStringLiteral("a/b") << QStringLiteral("/c/");
}

void GetSettingHandlerTest::survivesPlaceholdersInNames()
{
    QFETCH(QString, group);
    QFETCH(QString, name);
    create(plugin());
    const QString key = QLatin1Char('/') + group + QLatin1Char('/') + name;
    plugin()->appSettings.insert(key, 5);
    const QByteArray json = "{\"settings_type\": \"application\", \"group\": \"" + group.toUtf8()
        + "\", \"name\": \"" + name.toUtf8() + "\"}";
    QCOMPARE(ask(json).values(), QVariantList({entry("application", group, name, 5)}));
    QCOMPARE(takeCalls(), QVector<HostCall>({asked("appParameter", key)}));
}

void GetSettingHandlerTest::carriesEachKindOfValue_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("bool") << QVariant(true);
    QTest::newRow("integer") << QVariant(-3);
    QTest::newRow("fraction") << QVariant(0.6);
    QTest::newRow("text") << QVariant(QStringLiteral("ä€"));
    QTest::newRow("texts") << QVariant(QStringList({QStringLiteral("a"), QStringLiteral("b")}));
    QTest::newRow("map") << QVariant(QVariantMap({{QStringLiteral("k"), 1}}));
    QTest::newRow("uuid") << QVariant(QUuid::createUuid());
}

void GetSettingHandlerTest::carriesEachKindOfValue()
{
    QFETCH(QVariant, value);
    create(plugin());
    plugin()->sysSettings.insert(QStringLiteral("/g/n"), value);
    const QVariantMap settings = ask(R"({"settings_type": "system", "group": "g", "name": "n"})");
    takeCalls();
    const QVariant arrived = settings.first().toMap().value(QStringLiteral("value"));
    QCOMPARE(arrived, value);
    QCOMPARE(arrived.userType(), value.userType());
}

void GetSettingHandlerTest::answersWithoutAHost()
{
    create(nullptr);
    QCOMPARE(ask(R"({"settings_type": "system", "group": "g"})"), QVariantMap());
    QCOMPARE(ask(R"({"settings_type": "application", "group": "g", "name": "n"})"), QVariantMap());
}

QTEST_GUILESS_MAIN(GetSettingHandlerTest)
#include "tst_getsettinghandler.moc"
