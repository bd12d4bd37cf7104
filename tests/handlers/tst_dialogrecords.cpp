#include "panorel/handlers/ReplicEventHandler.h"

#include "tests/support/DialogTestCase.h"
#include "tests/support/PageRequest.h"
#include "tests/support/RecordFields.h"

#include <limits>

using panorel::ReplicEventHandler;

/// How the replicas and answers of a page are read.
class DialogRecordsTest : public DialogTestCase
{
    Q_OBJECT

private:
    void send(const QByteArray &key, const QByteArray &json)
    {
        if (!m_created) {
            subscribe(new ReplicEventHandler(context(), plugin(), dialog()),
                      QStringLiteral("dialog.say"));
            m_created = true;
        }
        request(fromPage("{\"" + key + "\": " + json + '}'), QStringLiteral("ReplicEventHandler"));
        takeCalls();
        log().skipDebug();
    }

    Replica readReplica(const QByteArray &json)
    {
        send("replica", json);
        return dialog()->replicas.isEmpty() ? Replica() : *dialog()->replicas.last();
    }
    Answer readAnswer(const QByteArray &json)
    {
        send("answer", json);
        return dialog()->answers.isEmpty() ? Answer() : *dialog()->answers.last();
    }

    void setUp() override
    {
        DialogTestCase::setUp();
        m_created = false;
    }

    bool m_created = false;

private Q_SLOTS:
    void readsAReplica();
    void readsEachKeyOfAReplicaAlone_data();
    void readsEachKeyOfAReplicaAlone();
    void passesOverOtherKindsInAReplica_data();
    void passesOverOtherKindsInAReplica();
    void readsIds_data();
    void readsIds();
    void readsIntegers_data();
    void readsIntegers();
    void readsAnAnswer();
    void passesOverOtherKindsInAnAnswer_data();
    void passesOverOtherKindsInAnAnswer();
    void leavesOutTheReplicaOfAnAnswer_data();
    void leavesOutTheReplicaOfAnAnswer();
};

namespace {

constexpr char fullReplica[] = R"({
    "id": {"id": 1, "uuid": "{00000000-0000-0000-0000-000000000001}"},
    "anchor": {"id": 2, "uuid": "{00000000-0000-0000-0000-000000000002}"},
    "category": {"id": 3, "uuid": "{00000000-0000-0000-0000-000000000003}"},
    "text": "Welcome", "screen_text": "WELCOME", "url": "https://example.org/a%20b?c=d#e",
    "actions": "wave,nod", "animation": 3, "type": 2, "more": 5})";

QUuid uuidOf(int last)
{
    return QUuid(QStringLiteral("{00000000-0000-0000-0000-00000000000%1}").arg(last));
}

Replica fullRecord()
{
    Replica replica;
    replica.setId(ID(1, uuidOf(1)));
    replica.setAnchor(ID(2, uuidOf(2)));
    replica.setCategory(ID(3, uuidOf(3)));
    replica.setText(QStringLiteral("Welcome"));
    replica.setScreenText(QStringLiteral("WELCOME"));
    replica.setUrl(QStringLiteral("https://example.org/a%20b?c=d#e"));
    replica.setActions(QStringLiteral("wave,nod"));
    replica.setAnimation(AnimationPoint);
    replica.setType(Replica::Farewell);
    return replica;
}

} // namespace

void DialogRecordsTest::readsAReplica()
{
    QCOMPARE(fields(readReplica(fullReplica)), fields(fullRecord()));
}

void DialogRecordsTest::readsEachKeyOfAReplicaAlone_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QVariant>("value");
    const auto row = [](const char *field, const char *value, const QVariant &expected) {
        QTest::newRow(field) << "{\"" + QByteArray(field) + "\": " + value + '}'
                             << QString::fromLatin1(field) << expected;
    };
    row("id", R"({"id": 4294967295})", fields(ID(4294967295U, QUuid())));
    row("anchor", R"({"id": 5})", fields(ID(5, QUuid())));
    row("category", R"({"id": 6})", fields(ID(6, QUuid())));
    row("text", R"("a")", QStringLiteral("a"));
    row("screen_text", R"("b")", QStringLiteral("b"));
    row("url", R"("file:///c")", QUrl(QStringLiteral("file:///c")));
    row("actions", R"("d")", QStringList({QStringLiteral("d")}));
    row("animation", "7", 7);
    row("type", "8", 8);
}

void DialogRecordsTest::readsEachKeyOfAReplicaAlone()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, field);
    QFETCH(QVariant, value);
    QVariantMap expected = fields(Replica());
    expected.insert(field, value);
    QCOMPARE(fields(readReplica(json)), expected);
}

void DialogRecordsTest::passesOverOtherKindsInAReplica_data()
{
    QTest::addColumn<QByteArray>("json");
    const auto rows = [](std::initializer_list<const char *> keys,
                         std::initializer_list<const char *> values) {
        for (const char *key : keys) {
            for (const char *value : values) {
                QTest::addRow("%s %s", key, value)
                    << "{\"" + QByteArray(key) + "\": " + value + '}';
            }
        }
    };
    rows({"id", "anchor", "category"}, {"5", "\"5\"", "null", "[{\"id\": 5}]", "true"});
    rows({"text", "screen_text", "url", "actions"}, {"5", "null", "[\"a\"]", "{}", "true"});
    rows({"animation", "type"}, {"\"5\"", "null", "[5]", "{\"id\": 5}", "true"});
}

void DialogRecordsTest::passesOverOtherKindsInAReplica()
{
    QFETCH(QByteArray, json);
    QCOMPARE(fields(readReplica(json)), fields(Replica()));
    const Answer answer = readAnswer("{\"replica\": " + json + '}');
    QCOMPARE(fields(answer), fields(Answer()));
}

void DialogRecordsTest::readsIds_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<ID>("id");
    const auto row = [](const char *json, const ID &id) {
        QTest::newRow(json) << QByteArray(json) << id;
    };
    row(R"({"id": 4294967295})", ID(4294967295U, QUuid()));
    row(R"({"id": -2147483648})", ID(2147483648U, QUuid()));
    row(R"({"id": 4294967296})", ID());
    row(R"({"id": -2147483649})", ID());
    row(R"({"id": 1.5})", ID());
    row(R"({"id": 1e300})", ID());
    row(R"({"id": "1"})", ID());
    row(R"({"uuid": "00000000-0000-0000-0000-000000000001"})", ID(0, uuidOf(1)));
    row(R"({"id": "1", "uuid": "{00000000-0000-0000-0000-000000000001}"})", ID(0, uuidOf(1)));
    row(R"({"id": 1, "uuid": 1})", ID(1, QUuid()));
}

void DialogRecordsTest::readsIds()
{
    QFETCH(QByteArray, json);
    QFETCH(ID, id);
    const Replica replica =
        readReplica("{\"id\": " + json + ", \"anchor\": " + json + ", \"category\": " + json + '}');
    QCOMPARE(fields(replica.id()), fields(id));
    QCOMPARE(fields(replica.anchor()), fields(id));
    QCOMPARE(fields(replica.category()), fields(id));
    const Answer answer = readAnswer("{\"id\": " + json + ", \"id_pattern\": " + json + '}');
    QCOMPARE(fields(answer.id()), fields(id));
    QCOMPARE(fields(answer.idPattern()), fields(id));
}

void DialogRecordsTest::readsIntegers_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<int>("number");
    const auto row = [](const char *json, int number) {
        QTest::newRow(json) << QByteArray(json) << number;
    };
    row("3", 3);
    row("-17", -17); // a value that the host does not name
    row("2147483647", std::numeric_limits<int>::max());
    row("-2147483648", std::numeric_limits<int>::min());
    row("2147483648", 0);
    row("4294967299", 0);
    row("3.5", 0);
    row("1e300", 0);
}

void DialogRecordsTest::readsIntegers()
{
    QFETCH(QByteArray, json);
    QFETCH(int, number);
    const Replica replica = readReplica("{\"animation\": " + json + ", \"type\": " + json + '}');
    QCOMPARE(static_cast<int>(replica.animation()), number);
    QCOMPARE(static_cast<int>(replica.type()), number);
    QCOMPARE(static_cast<int>(readAnswer("{\"source\": " + json + '}').source()), number);
}

void DialogRecordsTest::readsAnAnswer()
{
    Answer expected;
    expected.setId(ID(4, uuidOf(4)));
    expected.setSource(Answer::Page);
    expected.setIdPattern(ID(5, uuidOf(5)));
    expected.setPattern(QStringLiteral("* tea *"));
    expected.setQuestion(QStringLiteral("Is there tea?"));
    expected.setReplica(fullRecord());
    const Answer answer = readAnswer(R"({
        "id": {"id": 4, "uuid": "{00000000-0000-0000-0000-000000000004}"}, "source": 3,
        "id_pattern": {"id": 5, "uuid": "{00000000-0000-0000-0000-000000000005}"},
        "pattern": "* tea *", "question": "Is there tea?", "replica": )"
                                     + QByteArray(fullReplica) + '}');
    QCOMPARE(fields(answer), fields(expected));
}

void DialogRecordsTest::passesOverOtherKindsInAnAnswer_data()
{
    QTest::addColumn<QByteArray>("json");
    const auto rows = [](std::initializer_list<const char *> keys,
                         std::initializer_list<const char *> values) {
        for (const char *key : keys) {
            for (const char *value : values) {
                QTest::addRow("%s %s", key, value)
                    << "{\"" + QByteArray(key) + "\": " + value + '}';
            }
        }
    };
    rows({"id", "id_pattern"}, {"5", "\"5\"", "null", "[{\"id\": 5}]", "true"});
    rows({"pattern", "question"}, {"5", "null", "[\"a\"]", "{}", "true"});
    rows({"source"}, {"\"5\"", "null", "[5]", "{}", "true"});
}

void DialogRecordsTest::passesOverOtherKindsInAnAnswer()
{
    QFETCH(QByteArray, json);
    QCOMPARE(fields(readAnswer(json)), fields(Answer()));
}

void DialogRecordsTest::leavesOutTheReplicaOfAnAnswer_data()
{
    QTest::addColumn<QByteArray>("json");
    for (const char *json : {R"({"question": "Tea?"})", R"({"question": "Tea?", "replica": null})",
                             R"({"question": "Tea?", "replica": "Hi"})",
                             R"({"question": "Tea?", "replica": [{"text": "Hi"}]})"})
        QTest::newRow(json) << QByteArray(json);
}

void DialogRecordsTest::leavesOutTheReplicaOfAnAnswer()
{
    QFETCH(QByteArray, json);
    Answer expected;
    expected.setQuestion(QStringLiteral("Tea?"));
    QCOMPARE(fields(readAnswer(json)), fields(expected));
}

QTEST_GUILESS_MAIN(DialogRecordsTest)
#include "tst_dialogrecords.moc"
