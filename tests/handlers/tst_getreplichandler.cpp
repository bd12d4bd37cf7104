#include "panorel/handlers/GetReplicHandler.h"

#include "tests/support/DialogTestCase.h"
#include "tests/support/PageRequest.h"
#include "tests/support/RecordFields.h"

#include "host/DatabaseDefaults.h"

#include <QJsonObject>

#include <limits>

using panorel::GetReplicHandler;
using panorel::Message;
using panorel::ReplicContext;

class GetReplicHandlerTest : public DialogTestCase
{
    Q_OBJECT

private:
    void create()
    {
        watch(QStringLiteral("dialog.replica.load"));
        subscribe(new GetReplicHandler(context(), brocker()), QStringLiteral("dialog.replica.get"));
    }

    void get(const QByteArray &json) { request(fromPage(json), m_name); }

    static QVariantList withDefaults(const QVariant &what)
    {
        return {what, QVariant::fromValue(DatabaseDefaults::defaultCategory()), true, true, 0LL};
    }
    static HostCall askedForStep(const QString &step)
    {
        return {QStringLiteral("getAppReplica"), withDefaults(step)};
    }
    static HostCall askedForType(int type)
    {
        return {QStringLiteral("getReplica"), withDefaults(type)};
    }

    const QString m_name = QStringLiteral("GetReplicHandler");
    const QString m_category = QStringLiteral("panorel");

private Q_SLOTS:
    void asksByStep();
    void asksByType_data();
    void asksByType();
    void asksByStepWhenBothAreThere_data();
    void asksByStepWhenBothAreThere();
    void asksForNothing_data();
    void asksForNothing();
    void staysSilentWithoutAReplica_data();
    void staysSilentWithoutAReplica();
    void answersWithTheReplica_data();
    void answersWithTheReplica();
    void answersWithTheFullForm();
    void logsTheReplyOnly();
    void answersEachRequest();
    void livesWithoutAHost();
};

void GetReplicHandlerTest::asksByStep()
{
    create();
    get(R"({"step": "intro"})");
    const QVector<HostCall> calls = takeCalls();
    QCOMPARE(calls, QVector<HostCall>({askedForStep(QStringLiteral("intro"))}));
    QCOMPARE(calls.first().arguments.at(1).typeName(), "ID");
    QCOMPARE(fields(plugin()->faces.first()), fields(FaceInfo()));
}

void GetReplicHandlerTest::asksByType_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<int>("type");
    const auto row = [](const char *json, int type) {
        QTest::newRow(json) << QByteArray(json) << type;
    };
    row(R"({"replica_type": 3})", 3);
    row(R"({"replica_type": 0})", 0);
    row(R"({"replica_type": -1})", -1);
    row(R"({"replica_type": 2147483647})", std::numeric_limits<int>::max());
    row(R"({"replica_type": -2147483648})", std::numeric_limits<int>::min());
    row(R"({"replica_type": "3"})", 3);
    row(R"({"replica_type": 2.4})", 2);
    row(R"({"replica_type": 2.6})", 3);
    row(R"({"replica_type": true})", 1);
    row(R"({"replica_type": "three"})", 0);
    row(R"({"replica_type": {}})", 0);
    row(R"({"replica_type": null})", 0); // presence counts
}

void GetReplicHandlerTest::asksByType()
{
    QFETCH(QByteArray, json);
    QFETCH(int, type);
    create();
    get(json);
    QCOMPARE(takeCalls(), QVector<HostCall>({askedForType(type)}));
    QCOMPARE(fields(plugin()->faces.first()), fields(FaceInfo()));
}

void GetReplicHandlerTest::asksByStepWhenBothAreThere_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("step");
    QTest::newRow("text") << QByteArray(R"({"step": "intro", "replica_type": 3})")
                          << QStringLiteral("intro");
    QTest::newRow("empty") << QByteArray(R"({"step": "", "replica_type": 3})") << QString();
    QTest::newRow("null") << QByteArray(R"({"step": null, "replica_type": 3})") << QString();
    QTest::newRow("number") << QByteArray(R"({"step": 4, "replica_type": 3})")
                            << QStringLiteral("4");
}

void GetReplicHandlerTest::asksByStepWhenBothAreThere()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, step);
    create();
    get(json);
    QCOMPARE(takeCalls(), QVector<HostCall>({askedForStep(step)}));
}

void GetReplicHandlerTest::asksForNothing_data()
{
    QTest::addColumn<QByteArray>("json");
    for (const char *json :
         {"{}", R"({"category": "news"})", R"({"use_general": true, "use_biometry": false})",
          R"({"type": 3})", R"({"text": "Hello"})"})
        QTest::newRow(json) << QByteArray(json);
}

void GetReplicHandlerTest::asksForNothing()
{
    QFETCH(QByteArray, json);
    makesUpAttributes({"text"});
    create();
    plugin()->replica = QSharedPointer<Replica>::create();
    get(json);
    const QVector<LogLine> expected{{QtDebugMsg, m_category, QStringLiteral("NO REPLIC")}};
    QCOMPARE(log().take(), expected);
}

void GetReplicHandlerTest::staysSilentWithoutAReplica_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QStringList>("lines");
    const QString none = QStringLiteral("NO REPLIC");
    QTest::newRow("step") << QByteArray(R"({"step": "intro"})")
                          << QStringList(
                                 {QStringLiteral("ReplicContext getAppReplic \"intro\""), none});
    QTest::newRow("type") << QByteArray(R"({"replica_type": 3})")
                          << QStringList({QStringLiteral("ReplicContext getReplic 3"), none});
    // A face alone is read, and asks for nothing.
    QTest::newRow("face") << QByteArray(R"({"face": {"id": 1}})") << QStringList({none});
}

void GetReplicHandlerTest::staysSilentWithoutAReplica()
{
    QFETCH(QByteArray, json);
    QFETCH(QStringList, lines);
    create();
    get(json);
    takeCalls();
    QCOMPARE(log().takeTexts(m_category), lines);
    QVERIFY(replies().isEmpty());
}

void GetReplicHandlerTest::answersWithTheReplica_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("step") << QByteArray(R"({"step": "intro"})");
    QTest::newRow("type") << QByteArray(R"({"replica_type": 3})");
    QTest::newRow("more keys") << QByteArray(
        R"({"id": "{6ba7b810-9dad-11d1-80b4-00c04fd430c8}", "step": "intro", "mine": 5,
            "replica": "x", "text": "y"})");
}

void GetReplicHandlerTest::answersWithTheReplica()
{
    QFETCH(QByteArray, json);
    makesUpAttributes({"mine", "replica", "text"});
    create();
    plugin()->replica = QSharedPointer<Replica>::create();
    plugin()->replica->setText(QStringLiteral("Welcome"));
    get(json);
    QCOMPARE(takeCalls().size(), 1); // and nothing was spoken or played
    QCOMPARE(replies().count(), 1);
    const Message reply = replies().take();
    QCOMPARE(reply.type(), QStringLiteral("dialog.replica.load"));
    QVERIFY(!reply.id().isNull());
    QVERIFY(reply.id() != QUuid(QStringLiteral("{6ba7b810-9dad-11d1-80b4-00c04fd430c8}")));
    QCOMPARE(reply.attributes().keys(), QStringList({QStringLiteral("replica")}));
    const QVariantMap map = reply.attributes().value(QStringLiteral("replica")).toMap();
    QCOMPARE(map.value(QStringLiteral("text")), QVariant(QStringLiteral("Welcome")));
    // Also when it is empty.
    QCOMPARE(map.value(QStringLiteral("screen_text")), QVariant(QString()));
    QCOMPARE(map.size(), 9);
}

void GetReplicHandlerTest::answersWithTheFullForm()
{
    create();
    const QUuid uuid(QStringLiteral("{6ba7b810-9dad-11d1-80b4-00c04fd430c8}"));
    auto replica = QSharedPointer<Replica>::create();
    replica->setId(ID(4294967295U, uuid));
    replica->setAnchor(ID(2, QUuid()));
    replica->setCategory(ID(3, QUuid()));
    replica->setText(QStringLiteral("Welcome"));
    replica->setScreenText(QStringLiteral("WELCOME"));
    replica->setUrl(QStringLiteral("https://example.org/a b"));
    replica->setActions(QStringLiteral("wave,nod"));
    replica->setAnimation(AnimationPoint);
    replica->setType(Replica::Extra);
    plugin()->replica = replica;
    get(R"({"step": "intro"})");
    takeCalls();

    const QString none = QStringLiteral("{00000000-0000-0000-0000-000000000000}");
    const auto id = [](double number, const QString &text) {
        return QJsonObject{{QStringLiteral("id"), number}, {QStringLiteral("uuid"), text}};
    };
    const QJsonObject expected{
        {QStringLiteral("id"), id(4294967295.0, uuid.toString())},
        {QStringLiteral("anchor"), id(2, none)},
        {QStringLiteral("category"), id(3, none)},
        {QStringLiteral("text"), QStringLiteral("Welcome")},
        {QStringLiteral("screen_text"), QStringLiteral("WELCOME")},
        {QStringLiteral("url"), QStringLiteral("https://example.org/a%20b")},
        {QStringLiteral("actions"), QStringLiteral("wave,nod")},
        {QStringLiteral("animation"), 3},
        {QStringLiteral("type"), 3},
    };
    QCOMPARE(replies().take().toJson().value(QStringLiteral("replica")).toObject(), expected);
}

void GetReplicHandlerTest::logsTheReplyOnly()
{
    create();
    plugin()->replica = QSharedPointer<Replica>::create();
    const QVariantMap attributes = fromPage(R"({"step": "intro", "face": {"id": 1}})");
    request(attributes, m_name);
    takeCalls();
    const QVector<LogLine> expected{
        {QtDebugMsg, QStringLiteral("default"),
         QStringLiteral("face_map ") + debugText(QJsonObject{{QStringLiteral("id"), 1}})},
        {QtDebugMsg, m_category, QStringLiteral("ReplicContext getAppReplic \"intro\"")},
        {QtDebugMsg, m_category, debugText(replies().take().toJson())},
    };
    QCOMPARE(log().take(), expected);
}

void GetReplicHandlerTest::answersEachRequest()
{
    create();
    plugin()->replica = QSharedPointer<Replica>::create();
    get(R"({"step": "intro"})");
    log().skipDebug();
    get(R"({"step": "intro"})");
    takeCalls();
    QCOMPARE(replies().count(), 2);
    const QUuid first = replies().take().id();
    QVERIFY(first != replies().take().id());
}

void GetReplicHandlerTest::livesWithoutAHost()
{
    watch(QStringLiteral("dialog.replica.load"));
    ReplicContext hostless(nullptr);
    subscribe(new GetReplicHandler(&hostless, brocker()), QStringLiteral("dialog.replica.get"));
    for (const char *json : {R"({"step": "intro"})", R"({"replica_type": 3})"}) {
        get(json);
        QCOMPARE(log().takeTexts(m_category).last(), QStringLiteral("NO REPLIC"));
    }
}

QTEST_GUILESS_MAIN(GetReplicHandlerTest)
#include "tst_getreplichandler.moc"
