#include "panorel/handlers/UserDatabaseHandler.h"

#include "tests/support/HandlerTestCase.h"
#include "tests/support/PageRequest.h"

#include <QDateTime>
#include <QJsonObject>

using panorel::Message;
using panorel::UserDatabaseHandler;

class UserDatabaseHandlerTest : public HandlerTestCase
{
    Q_OBJECT

private:
    void create(PluginInterface *host)
    {
        watch(m_responseTopic);
        subscribe(new UserDatabaseHandler(host, brocker()),
                  QStringLiteral("database.user.request"));
    }
    void createWithUsers()
    {
        plugin()->users = newDatabase();
        create(plugin());
    }
    QSharedPointer<TestUsersDatabase> newDatabase()
    {
        return QSharedPointer<TestUsersDatabase>::create(&plugin()->calls);
    }

    /// Publishes the page's request; gives the "response" of the one reply.
    QVariantMap ask(const QByteArray &json)
    {
        request(fromPage(json), m_name);
        if (replies().count() != 1) {
            QTest::qFail("there is not one reply", __FILE__, __LINE__);
            return {};
        }
        const Message reply = replies().take();
        const QVector<LogLine> lines = log().take();
        const QVector<LogLine> expected{
            {QtDebugMsg, QStringLiteral("panorel"), debugText(reply.toJson())}};
        if (lines != expected || reply.type() != m_responseTopic
            || reply.attributes().keys() != QStringList({QStringLiteral("response")}))
            QTest::qFail(qPrintable(debugText(reply.toJson())), __FILE__, __LINE__);
        const QVariant response = reply.attributes().value(QStringLiteral("response"));
        if (response.userType() != QMetaType::QVariantMap)
            QTest::qFail("the response is no map", __FILE__, __LINE__);
        return response.toMap();
    }

    /// The one person that was added.
    UserData added()
    {
        const QVector<UserData> people = plugin()->users->added;
        if (people.size() != 1) {
            QTest::qFail("there is not one person", __FILE__, __LINE__);
            return {};
        }
        return people.first();
    }

    static HostCall looked(long long id) { return {QStringLiteral("user"), {id}}; }
    static HostCall stored(const QString &name) { return {QStringLiteral("addUser"), {name}}; }
    static HostCall deleted(long long id) { return {QStringLiteral("deleteUser"), {id, 2}}; }

    static QVariantMap all(bool get, bool add, bool remove)
    {
        return {{QStringLiteral("get_user"), get},
                {QStringLiteral("add_user"), add},
                {QStringLiteral("del_user"), remove}};
    }

    const QString m_responseTopic = QStringLiteral("database.user.response");
    const QString m_name = QStringLiteral("UserDatabaseHandler");

private Q_SLOTS:
    void answersAnEmptyRequest_data();
    void answersAnEmptyRequest();
    void givesAPerson();
    void knowsNotEverybody();
    void readsIds_data();
    void readsIds();
    void addsAPerson_data();
    void addsAPerson();
    void addsAPersonWithOnlyAName();
    void addsAnEmptyPerson_data();
    void addsAnEmptyPerson();
    void readsAddedValues_data();
    void readsAddedValues();
    void storesExtraDataAsItIs_data();
    void storesExtraDataAsItIs();
    void deletesAPerson_data();
    void deletesAPerson();
    void doesAllInOrder();
    void looksBeforeItAdds();
    void ignoresTheSettingsType_data();
    void ignoresTheSettingsType();
    void takesTheDatabaseAnewForEachOperation();
    void answersFalseWithoutADatabase();
    void answersFalseWithoutAHost();
};

void UserDatabaseHandlerTest::answersAnEmptyRequest_data()
{
    QTest::addColumn<QByteArray>("json");
    for (const char *json : {"{}", R"({"get": 1})", R"({"settings_type": "x"})"})
        QTest::newRow(json) << QByteArray(json);
}

void UserDatabaseHandlerTest::answersAnEmptyRequest()
{
    QFETCH(QByteArray, json);
    makesUpAttributes({"get", "settings_type"});
    createWithUsers();
    QCOMPARE(ask(json), QVariantMap());
}

void UserDatabaseHandlerTest::givesAPerson()
{
    createWithUsers();
    FaceInfo face;
    face.setId(9007199254740991);
    face.setAge(41.5);
    face.setGender(GenderFemale);
    UserData ann;
    ann.setInfo(face);
    ann.setName(QStringLiteral("Ann"));
    ann.setExtraData(QVariantMap{{QStringLiteral("badge"), QVariantList{1.5, true}}});
    ann.setLastVisit(QDateTime(QDate(2024, 2, 29), QTime(12, 30)));
    plugin()->users->people.insert(face.id(), ann);
    const QVariantMap response = ask(R"({"get_user": 9007199254740991})");
    QCOMPARE(takeCalls(), QVector<HostCall>({looked(9007199254740991)}));
    QCOMPARE(response.keys(), QStringList({QStringLiteral("get_user")}));
    const QVariant person = response.value(QStringLiteral("get_user"));
    QCOMPARE(person.userType(), int(QMetaType::QVariantMap));
    QCOMPARE(QJsonObject::fromVariantMap(person.toMap()), ann.toJson());
}

void UserDatabaseHandlerTest::knowsNotEverybody()
{
    createWithUsers();
    const QVariantMap response = ask(R"({"get_user": 7})");
    QCOMPARE(takeCalls(), QVector<HostCall>({looked(7)}));
    QCOMPARE(response, QVariantMap({{QStringLiteral("get_user"), false}}));
    QCOMPARE(response.first().userType(), int(QMetaType::Bool));
}

void UserDatabaseHandlerTest::readsIds_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<long long>("id");
    const auto row = [](const char *value, long long id) {
        QTest::newRow(value) << QByteArray(value) << id;
    };
    row("7", 7);
    row("\"7\"", 7);
    row("-7", -7);
    row("4294967296", 4294967296);
    row("4503599627370497", 4503599627370497); // 2^52 + 1, which rounds to an even number
    row("9007199254740991", 9007199254740991);
    row("9007199254740992", 9007199254740992);
    row("\"9007199254740993\"", 9007199254740993);
    row("2.6", 3);
    row("true", 1);
    row("null", 0);
    row("\"seven\"", 0);
    row("\"\"", 0);
    row("[7]", 0);
    row("{\"id\": 7}", 0);
    row("1e300", 0);
    row("-1e300", 0);
}

void UserDatabaseHandlerTest::readsIds()
{
    QFETCH(QByteArray, value);
    QFETCH(long long, id);
    createWithUsers();
    ask("{\"get_user\": " + value + ", \"del_user\": " + value + ", \"add_user\": {\"id\": " + value
        + "}}");
    QCOMPARE(takeCalls(), QVector<HostCall>({looked(id), stored(QString()), deleted(id)}));
    QCOMPARE(added().info().id(), id);
}

void UserDatabaseHandlerTest::addsAPerson_data()
{
    QTest::addColumn<bool>("accepted");
    QTest::newRow("accepted") << true;
    QTest::newRow("refused") << false;
}

void UserDatabaseHandlerTest::addsAPerson()
{
    QFETCH(bool, accepted);
    createWithUsers();
    plugin()->users->result = accepted;
    const QDateTime before = QDateTime::currentDateTime();
    const QVariantMap response = ask(R"({"add_user": {"id": 12, "age": 41.5, "gender": 2,
        "name": "Ann", "extra_data": {"badge": 5}, "type": 1, "emotion": "joy"}})");
    const QDateTime after = QDateTime::currentDateTime();
    QCOMPARE(takeCalls(), QVector<HostCall>({stored(QStringLiteral("Ann"))}));
    QCOMPARE(response, QVariantMap({{QStringLiteral("add_user"), accepted}}));
    QCOMPARE(response.first().userType(), int(QMetaType::Bool));

    const UserData user = added();
    QCOMPARE(user.info().id(), 12LL);
    QCOMPARE(user.info().age(), 41.5);
    QCOMPARE(user.info().gender(), GenderFemale);
    QCOMPARE(static_cast<int>(user.info().type()), 2); // whatever the page says
    QCOMPARE(user.info().emotion(), QString());
    QCOMPARE(user.name(), QStringLiteral("Ann"));
    QCOMPARE(user.extraData(), QVariant(QVariantMap{{QStringLiteral("badge"), 5.0}}));
    QVERIFY(before <= user.acquaintanceDate());
    QVERIFY(user.acquaintanceDate() <= user.lastVisit());
    QVERIFY(user.lastVisit() <= after);
    QCOMPARE(user.acquaintanceDate().timeSpec(), Qt::LocalTime);
    QCOMPARE(user.lastVisit().timeSpec(), Qt::LocalTime);
}

void UserDatabaseHandlerTest::addsAPersonWithOnlyAName()
{
    createWithUsers();
    const QDateTime before = QDateTime::currentDateTime();
    ask(R"({"add_user": {"name": "Ann"}})");
    QCOMPARE(takeCalls(), QVector<HostCall>({stored(QStringLiteral("Ann"))}));
    const UserData user = added();
    QCOMPARE(user.info().id(), 0LL);
    QCOMPARE(user.info().age(), 0.0);
    QCOMPARE(user.info().gender(), GenderUnknown);
    QCOMPARE(user.info().type(), FaceInfo::User);
    QVERIFY(!user.extraData().isValid());
    QVERIFY(user.acquaintanceDate() >= before);
    QVERIFY(user.lastVisit() >= before);
}

void UserDatabaseHandlerTest::addsAnEmptyPerson_data()
{
    QTest::addColumn<QByteArray>("json");
    for (const char *json :
         {R"({"add_user": null})", R"({"add_user": {}})", R"({"add_user": "Ann"})",
          R"({"add_user": ["Ann"]})", R"({"add_user": 5})", R"({"add_user": false})"})
        QTest::newRow(json) << QByteArray(json);
}

void UserDatabaseHandlerTest::addsAnEmptyPerson()
{
    QFETCH(QByteArray, json);
    createWithUsers();
    QCOMPARE(ask(json), QVariantMap({{QStringLiteral("add_user"), true}}));
    QCOMPARE(takeCalls(), QVector<HostCall>({stored(QString())}));
    QCOMPARE(added().info().id(), 0LL);
    QVERIFY(added().acquaintanceDate().isValid());
}

void UserDatabaseHandlerTest::readsAddedValues_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("age");
    QTest::addColumn<int>("gender");
    QTest::newRow("texts of numbers")
        << QByteArray(R"({"name": "Ann", "age": "41.5", "gender": "1"})") << QStringLiteral("Ann")
        << 41.5 << 1;
    QTest::newRow("other kinds") << QByteArray(R"({"name": 5, "age": "old", "gender": "x"})")
                                 << QStringLiteral("5") << 0.0 << 0;
    QTest::newRow("null") << QByteArray(R"({"name": null, "age": null, "gender": null})")
                          << QString() << 0.0 << 0;
    QTest::newRow("containers") << QByteArray(R"({"name": {}, "age": [1], "gender": {}})")
                                << QString() << 0.0 << 0;
    QTest::newRow("any gender") << QByteArray(R"({"gender": -17, "age": -1.25})") << QString()
                                << -1.25 << -17;
}

void UserDatabaseHandlerTest::readsAddedValues()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, name);
    QFETCH(double, age);
    QFETCH(int, gender);
    createWithUsers();
    ask("{\"add_user\": " + json + '}');
    takeCalls();
    QCOMPARE(added().name(), name);
    QCOMPARE(added().info().age(), age);
    QCOMPARE(static_cast<int>(added().info().gender()), gender);
}

void UserDatabaseHandlerTest::storesExtraDataAsItIs_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("object")
        << QByteArray(R"({"a": {"b": [1, null]}})")
        << QVariant(QVariantMap{{QStringLiteral("a"),
                                 QVariantMap{{QStringLiteral("b"),
                                              QVariantList{1.0, QVariant::fromValue(nullptr)}}}}});
    QTest::newRow("list") << QByteArray(R"(["a", 2])")
                          << QVariant(QVariantList{QStringLiteral("a"), 2.0});
    QTest::newRow("text") << QByteArray(R"("a")") << QVariant(QStringLiteral("a"));
    QTest::newRow("number") << QByteArray("2.5") << QVariant(2.5);
    QTest::newRow("bool") << QByteArray("false") << QVariant(false);
    QTest::newRow("null") << QByteArray("null") << QVariant::fromValue(nullptr);
}

void UserDatabaseHandlerTest::storesExtraDataAsItIs()
{
    QFETCH(QByteArray, json);
    QFETCH(QVariant, value);
    createWithUsers();
    ask("{\"add_user\": {\"extra_data\": " + json + "}}");
    takeCalls();
    QCOMPARE(added().extraData().userType(), value.userType());
    QCOMPARE(added().extraData(), value);
}

void UserDatabaseHandlerTest::deletesAPerson_data()
{
    QTest::addColumn<bool>("done");
    QTest::newRow("done") << true;
    QTest::newRow("refused") << false;
}

void UserDatabaseHandlerTest::deletesAPerson()
{
    QFETCH(bool, done);
    createWithUsers();
    plugin()->users->result = done;
    const QVariantMap response = ask(R"({"del_user": 7})");
    QCOMPARE(takeCalls(), QVector<HostCall>({deleted(7)}));
    QCOMPARE(response, QVariantMap({{QStringLiteral("del_user"), done}}));
    QCOMPARE(response.first().userType(), int(QMetaType::Bool));
}

void UserDatabaseHandlerTest::doesAllInOrder()
{
    createWithUsers();
    QCOMPARE(ask(R"({"add_user": {"name": "Ann"}, "del_user": 8, "get_user": 7})"),
             all(false, true, true));
    QCOMPARE(takeCalls(),
             QVector<HostCall>({looked(7), stored(QStringLiteral("Ann")), deleted(8)}));
}

void UserDatabaseHandlerTest::looksBeforeItAdds()
{
    createWithUsers();
    TestUsersDatabase *users = plugin()->users.data();
    users->afterEachCall = [users] {
        for (const UserData &user : qAsConst(users->added))
            users->people.insert(user.info().id(), user);
    };
    const QByteArray json = R"({"add_user": {"id": 7, "name": "Ann"}, "get_user": 7})";
    const QString get = QStringLiteral("get_user");
    QCOMPARE(ask(json).value(get), QVariant(false));
    const QVariantMap found = ask(json).value(get).toMap();
    QCOMPARE(found.value(QStringLiteral("name")), QVariant(QStringLiteral("Ann")));
    takeCalls();
}

void UserDatabaseHandlerTest::ignoresTheSettingsType_data()
{
    QTest::addColumn<QByteArray>("value");
    for (const char *value : {"\"app\"", "5", "null", "{}"})
        QTest::newRow(value) << QByteArray(value);
}

void UserDatabaseHandlerTest::ignoresTheSettingsType()
{
    QFETCH(QByteArray, value);
    makesUpAttributes({"settings_type"});
    createWithUsers();
    QCOMPARE(ask("{\"del_user\": 7, \"settings_type\": " + value + '}'),
             QVariantMap({{QStringLiteral("del_user"), true}}));
    QCOMPARE(takeCalls(), QVector<HostCall>({deleted(7)}));
}

void UserDatabaseHandlerTest::takesTheDatabaseAnewForEachOperation()
{
    createWithUsers();
    const QSharedPointer<TestUsersDatabase> first = plugin()->users;
    const QSharedPointer<TestUsersDatabase> second = newDatabase();
    first->result = false;
    first->afterEachCall = [this, second] { plugin()->users = second; };
    second->afterEachCall = [this] { plugin()->users.reset(); };
    QCOMPARE(ask(R"({"get_user": 7, "add_user": {"name": "Ann"}, "del_user": 7})"),
             all(false, true, false));
    QCOMPARE(takeCalls(), QVector<HostCall>({looked(7), stored(QStringLiteral("Ann"))}));
    QCOMPARE(first->added.size(), 0);
    QCOMPARE(second->added.size(), 1);
}

void UserDatabaseHandlerTest::answersFalseWithoutADatabase()
{
    create(plugin());
    QCOMPARE(ask(R"({"get_user": 7, "add_user": {"name": "Ann"}, "del_user": 7})"),
             all(false, false, false));
    QCOMPARE(ask(R"({"get_user": 7})"), QVariantMap({{QStringLiteral("get_user"), false}}));
    QCOMPARE(ask("{}"), QVariantMap());
}

void UserDatabaseHandlerTest::answersFalseWithoutAHost()
{
    create(nullptr);
    QCOMPARE(ask(R"({"get_user": 7, "add_user": {"name": "Ann"}, "del_user": 7})"),
             all(false, false, false));
}

QTEST_GUILESS_MAIN(UserDatabaseHandlerTest)
#include "tst_userdatabasehandler.moc"
