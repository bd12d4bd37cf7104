#include "panorel/handlers/GetReplicHandler.h"
#include "panorel/handlers/ReplicEventHandler.h"

#include "tests/support/DialogTestCase.h"
#include "tests/support/PageRequest.h"
#include "tests/support/RecordFields.h"

#include "host/DatabaseDefaults.h"

#include <QJsonObject>

#include <limits>

using panorel::GetReplicHandler;
using panorel::ReplicEventHandler;

/// What narrows a request for a replica, which two topics read alike.
class ReplicaRequestsTest : public DialogTestCase
{
    Q_OBJECT

private:
    /// Adds a row for each topic that asks for a replica.
    template <typename Value>
    static void addRows(const char *json, const Value &value)
    {
        const QByteArray name = QByteArray(json).simplified();
        for (const char *topic : {"dialog.say", "dialog.replica.get"})
            QTest::addRow("%s: %s", topic, name.constData())
                << QString::fromLatin1(topic) << QByteArray(json) << value;
    }

    static void addColumns()
    {
        QTest::addColumn<QString>("topic");
        QTest::addColumn<QByteArray>("json");
    }

    /// Asks for the replica of a step; gives the arguments of the one request to the host.
    QVariantList ask(const QString &topic, const QString &key, const QByteArray &value)
    {
        const bool says = topic == QStringLiteral("dialog.say");
        if (says)
            subscribe(new ReplicEventHandler(context(), plugin(), dialog()), topic);
        else
            subscribe(new GetReplicHandler(context(), brocker()), topic);
        QVariantMap attributes{{QStringLiteral("step"), QStringLiteral("intro")}};
        if (!value.isEmpty()) {
            attributes.insert(
                key, fromPage("{\"value\": " + value + '}').value(QStringLiteral("value")));
        }
        request(attributes,
                says ? QStringLiteral("ReplicEventHandler") : QStringLiteral("GetReplicHandler"));
        const QVector<HostCall> calls = takeCalls();
        if (calls.size() != 1 || calls.first().name != QStringLiteral("getAppReplica")) {
            QTest::qFail("there is not one request", __FILE__, __LINE__);
            return {QString(), QVariant(), false, false, 0};
        }
        return calls.first().arguments;
    }

    FaceInfo askWithFace(const QString &topic, const QByteArray &json)
    {
        ask(topic, QStringLiteral("face"), json);
        return plugin()->faces.isEmpty() ? FaceInfo() : plugin()->faces.first();
    }

    const QString m_uuid = QStringLiteral("{6ba7b810-9dad-11d1-80b4-00c04fd430c8}");

private Q_SLOTS:
    void takesACategorysName_data();
    void takesACategorysName();
    void takesACategorysId_data();
    void takesACategorysId();
    void takesTheDefaultCategory_data();
    void takesTheDefaultCategory();
    void readsTheFlags_data();
    void readsTheFlags();
    void readsAFace_data();
    void readsAFace();
    void readsAnEmptyFace_data();
    void readsAnEmptyFace();
    void passesOverOtherKinds_data();
    void passesOverOtherKinds();
    void readsWideNumbers_data();
    void readsWideNumbers();
    void readsNarrowNumbers_data();
    void readsNarrowNumbers();
    void readsMatchesInTheOrderOfTheirNames_data();
    void readsMatchesInTheOrderOfTheirNames();
    void readsNoMatches_data();
    void readsNoMatches();
    void passesOverOtherKindsInAMatch_data();
    void passesOverOtherKindsInAMatch();
    void logsTheFace_data();
    void logsTheFace();
};

void ReplicaRequestsTest::takesACategorysName_data()
{
    addColumns();
    QTest::addColumn<QString>("name");
    addRows(R"("news")", QStringLiteral("news"));
    addRows(R"("")", QString());
    addRows(R"("5")", QStringLiteral("5"));
    addRows(R"("{6ba7b810-9dad-11d1-80b4-00c04fd430c8}")", m_uuid);
}

void ReplicaRequestsTest::takesACategorysName()
{
    QFETCH(QString, topic);
    QFETCH(QByteArray, json);
    QFETCH(QString, name);
    const QVariant category = ask(topic, QStringLiteral("category"), json).at(1);
    QCOMPARE(category.userType(), int(QMetaType::QString));
    QCOMPARE(category.toString(), name);
}

void ReplicaRequestsTest::takesACategorysId_data()
{
    addColumns();
    QTest::addColumn<ID>("id");
    const QUuid uuid(m_uuid);
    addRows(R"({"id": 5, "uuid": "{6ba7b810-9dad-11d1-80b4-00c04fd430c8}"})", ID(5, uuid));
    addRows(R"({"id": 5})", ID(5, QUuid()));
    addRows(R"({"uuid": "6ba7b810-9dad-11d1-80b4-00c04fd430c8"})", ID(0, uuid));
    addRows(R"({"uuid": "{6BA7B810-9DAD-11D1-80B4-00C04FD430C8}"})", ID(0, uuid));
    addRows(R"({"id": 4294967295})", ID(4294967295U, QUuid()));
    addRows(R"({"id": 4294967296})", ID());
    addRows(R"({"id": 4294967295.5})", ID());
    addRows(R"({"id": 2147483648})", ID(2147483648U, QUuid()));
    addRows(R"({"id": -1})", ID(4294967295U, QUuid()));
    addRows(R"({"id": -2147483648})", ID(2147483648U, QUuid()));
    addRows(R"({"id": -2147483649})", ID());
    addRows(R"({"id": -2147483648.5})", ID());
    addRows(R"({"id": 0.5})", ID());
    addRows(R"({"id": 5.0})", ID(5, QUuid()));
    addRows(R"({"id": 1e300})", ID());
    addRows(R"({"id": -1e300})", ID());
    addRows(R"({"id": 9007199254740992})", ID());
    for (const char *json :
         {"{}", R"({"id": "5"})", R"({"id": true})", R"({"id": null})", R"({"id": [5]})",
          R"({"id": {"id": 5}})", R"({"uuid": "none"})", R"({"uuid": 5})", R"({"uuid": null})",
          R"({"uuid": {"uuid": "6ba7b810-9dad-11d1-80b4-00c04fd430c8"}})", "null", "5", "true",
          "[]", R"([{"id": 5}])"})
        addRows(json, ID());
}

void ReplicaRequestsTest::takesACategorysId()
{
    QFETCH(QString, topic);
    QFETCH(QByteArray, json);
    QFETCH(ID, id);
    const QVariant category = ask(topic, QStringLiteral("category"), json).at(1);
    QCOMPARE(category.typeName(), "ID");
    QCOMPARE(fields(category.value<ID>()), fields(id));
}

void ReplicaRequestsTest::takesTheDefaultCategory_data()
{
    addColumns();
    QTest::addColumn<bool>("absent");
    addRows("", true);
}

void ReplicaRequestsTest::takesTheDefaultCategory()
{
    QFETCH(QString, topic);
    const QVariant category = ask(topic, QStringLiteral("category"), QByteArray()).at(1);
    QVERIFY(!DatabaseDefaults::defaultCategory().uuid().isNull());
    QCOMPARE(fields(category.value<ID>()), fields(DatabaseDefaults::defaultCategory()));
}

void ReplicaRequestsTest::readsTheFlags_data()
{
    addColumns();
    QTest::addColumn<bool>("flag");
    addRows("", true);
    addRows("true", true);
    addRows("false", false);
    addRows("null", false);
    addRows("0", false);
    addRows("1", true);
    addRows("\"false\"", false);
    addRows("\"true\"", true);
    addRows("{}", false);
}

void ReplicaRequestsTest::readsTheFlags()
{
    QFETCH(QString, topic);
    QFETCH(QByteArray, json);
    QFETCH(bool, flag);
    QCOMPARE(ask(topic, QStringLiteral("use_general"), json).mid(2, 2), QVariantList({flag, true}));
    brocker()->clear();
    QCOMPARE(ask(topic, QStringLiteral("use_biometry"), json).mid(2, 2),
             QVariantList({true, flag}));
}

void ReplicaRequestsTest::readsAFace_data()
{
    addColumns();
    QTest::addColumn<int>("unused");
    addRows(R"({"id": 12, "type": 2, "is_tracking": true, "id_track": -3, "gender": 1, "age": 41.5,
                "emotion": "joy", "matches": {"a": {"id": 7, "score": 0.75, "type": 1}}})",
            0);
}

void ReplicaRequestsTest::readsAFace()
{
    QFETCH(QString, topic);
    QFETCH(QByteArray, json);
    FaceInfo expected;
    expected.setId(12);
    expected.setType(FaceInfo::User);
    expected.setTracking(true);
    expected.setIdTrack(-3);
    expected.setGender(GenderMale);
    expected.setAge(41.5);
    expected.setEmotion(QStringLiteral("joy"));
    expected.setMatches({FaceInfo::FaceScore{1, 7, 0.75}});
    QCOMPARE(fields(askWithFace(topic, json)), fields(expected));
}

void ReplicaRequestsTest::readsAnEmptyFace_data()
{
    addColumns();
    QTest::addColumn<int>("unused");
    for (const char *json : {"", "{}", "null", "[]", "\"x\"", "5", R"([{"id": 5}])"})
        addRows(json, 0);
}

void ReplicaRequestsTest::readsAnEmptyFace()
{
    QFETCH(QString, topic);
    QFETCH(QByteArray, json);
    QCOMPARE(fields(askWithFace(topic, json)), fields(FaceInfo()));
}

void ReplicaRequestsTest::passesOverOtherKinds_data()
{
    addColumns();
    QTest::addColumn<int>("unused");
    for (const char *key : {"id", "type", "id_track", "gender", "age"}) {
        for (const char *value : {"\"7\"", "true", "null", "[7]", "{\"id\": 7}"})
            addRows(("{\"" + QByteArray(key) + "\": " + value + '}').constData(), 0);
    }
    for (const char *value : {"\"true\"", "1", "null", "[true]", "{}"})
        addRows(("{\"is_tracking\": " + QByteArray(value) + '}').constData(), 0);
    for (const char *value : {"7", "true", "null", "[\"joy\"]", "{}"})
        addRows(("{\"emotion\": " + QByteArray(value) + '}').constData(), 0);
}

void ReplicaRequestsTest::passesOverOtherKinds()
{
    QFETCH(QString, topic);
    QFETCH(QByteArray, json);
    QCOMPARE(fields(askWithFace(topic, json)), fields(FaceInfo()));
}

void ReplicaRequestsTest::readsWideNumbers_data()
{
    addColumns();
    QTest::addColumn<long long>("number");
    addRows("7", 7LL);
    addRows("-7", -7LL);
    addRows("4294967296", 4294967296LL);
    addRows("4503599627370497", 4503599627370497LL);
    addRows("-4503599627370497", -4503599627370497LL);
    addRows("9007199254740991", 9007199254740991LL);
    addRows("9007199254740992", 9007199254740992LL);
    addRows("2.5", 0LL);
    addRows("-0.5", 0LL);
    addRows("1e300", 0LL);
    addRows("-1e300", 0LL);
    addRows("9223372036854775808", 0LL);
    addRows("\"7\"", 0LL);
}

void ReplicaRequestsTest::readsWideNumbers()
{
    QFETCH(QString, topic);
    QFETCH(QByteArray, json);
    QFETCH(long long, number);
    const FaceInfo face =
        askWithFace(topic, "{\"id\": " + json + ", \"matches\": {\"a\": {\"id\": " + json + "}}}");
    QCOMPARE(face.id(), number);
    QCOMPARE(face.matches().size(), 1);
    QCOMPARE(face.matches().constFirst().id, number);
}

void ReplicaRequestsTest::readsNarrowNumbers_data()
{
    addColumns();
    QTest::addColumn<int>("number");
    addRows("2", 2);
    addRows("-17", -17); // a value that the host does not name
    addRows("2147483647", std::numeric_limits<int>::max());
    addRows("-2147483648", std::numeric_limits<int>::min());
    addRows("2147483648", 0);
    addRows("4294967297", 0);
    addRows("1.5", 0);
    addRows("1e300", 0);
}

void ReplicaRequestsTest::readsNarrowNumbers()
{
    QFETCH(QString, topic);
    QFETCH(QByteArray, json);
    QFETCH(int, number);
    const FaceInfo face =
        askWithFace(topic,
                    "{\"type\": " + json + ", \"id_track\": " + json + ", \"gender\": " + json
                        + ", \"matches\": {\"a\": {\"type\": " + json + "}}}");
    QCOMPARE(static_cast<int>(face.type()), number);
    QCOMPARE(face.idTrack(), number);
    QCOMPARE(static_cast<int>(face.gender()), number);
    QCOMPARE(face.matches().size(), 1);
    QCOMPARE(face.matches().constFirst().type, number);
}

void ReplicaRequestsTest::readsMatchesInTheOrderOfTheirNames_data()
{
    addColumns();
    QTest::addColumn<int>("unused");
    addRows(R"({"matches": {
        "{c}": {"id": 3, "score": 0.25, "type": 2}, "{a}": {"id": 1, "score": 0.75, "type": 2},
        "{b}": {"id": 2, "score": 1, "type": 1}}})",
            0);
}

void ReplicaRequestsTest::readsMatchesInTheOrderOfTheirNames()
{
    QFETCH(QString, topic);
    QFETCH(QByteArray, json);
    FaceInfo expected;
    expected.setMatches({{2, 1, 0.75}, {1, 2, 1.0}, {2, 3, 0.25}});
    QCOMPARE(fields(askWithFace(topic, json)), fields(expected));
}

void ReplicaRequestsTest::readsNoMatches_data()
{
    addColumns();
    QTest::addColumn<int>("unused");
    for (const char *json :
         {R"({"matches": [{"id": 1, "score": 0.5, "type": 2}]})", R"({"matches": {}})",
          R"({"matches": null})", R"({"matches": "x"})", R"({"matches": {"a": 5, "b": null}})",
          R"({"matches": {"a": [{"id": 1}], "b": "x", "c": true}})"})
        addRows(json, 0);
}

void ReplicaRequestsTest::readsNoMatches()
{
    QFETCH(QString, topic);
    QFETCH(QByteArray, json);
    QCOMPARE(fields(askWithFace(topic, json)), fields(FaceInfo()));
}

void ReplicaRequestsTest::passesOverOtherKindsInAMatch_data()
{
    addColumns();
    QTest::addColumn<int>("unused");
    addRows(R"({"matches": {"a": {}, "b": {"id": "7", "score": "0.5", "type": "2"}, "c": 7,
                            "d": {"id": true, "score": null, "type": [2]}}})",
            0);
}

void ReplicaRequestsTest::passesOverOtherKindsInAMatch()
{
    QFETCH(QString, topic);
    QFETCH(QByteArray, json);
    FaceInfo expected;
    expected.setMatches({{}, {}, {}}); // each object is a match, all with defaults
    QCOMPARE(fields(askWithFace(topic, json)), fields(expected));
}

void ReplicaRequestsTest::logsTheFace_data()
{
    addColumns();
    QTest::addColumn<QString>("line");
    addRows(R"({"id": 1})",
            QStringLiteral("face_map ") + debugText(QJsonObject{{QStringLiteral("id"), 1}}));
    addRows("null", QStringLiteral("face_map ") + debugText(QJsonObject()));
    addRows("", QString());
}

void ReplicaRequestsTest::logsTheFace()
{
    QFETCH(QString, topic);
    QFETCH(QByteArray, json);
    QFETCH(QString, line);
    askWithFace(topic, json);
    QVector<LogLine> lines = log().take();
    if (!line.isEmpty()) {
        QCOMPARE(lines.takeFirst(), (LogLine{QtDebugMsg, QStringLiteral("default"), line}));
    }
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines.first().text, QStringLiteral("ReplicContext getAppReplic \"intro\""));
    QCOMPARE(lines.first().category, QStringLiteral("panorel"));
}

QTEST_GUILESS_MAIN(ReplicaRequestsTest)
#include "tst_replicarequests.moc"
