#include "panorel/handlers/ReplicEventHandler.h"

#include "tests/support/DialogTestCase.h"
#include "tests/support/PageRequest.h"
#include "tests/support/RecordFields.h"

#include "host/DatabaseDefaults.h"

#include <QJsonObject>

using panorel::ReplicContext;
using panorel::ReplicEventHandler;

namespace {

const QString panorelCategory = QStringLiteral("panorel");
const QString defaultCategory = QStringLiteral("default");

LogLine dump(const QString &name, const QVariant &value)
{
    return {QtDebugMsg, defaultCategory,
            name + QLatin1Char(' ') + debugText(QJsonObject::fromVariantMap(value.toMap()))};
}

LogLine rawDump(const QVariant &value)
{
    return {QtDebugMsg, defaultCategory,
            QStringLiteral("attributes[\"replica\"] ") + debugText(value)};
}

LogLine line(const QString &text) { return {QtDebugMsg, panorelCategory, text}; }

QSharedPointer<Replica> replicaOf(const QString &text, const ID &anchor)
{
    auto replica = QSharedPointer<Replica>::create();
    replica->setText(text);
    replica->setAnchor(anchor);
    return replica;
}

} // namespace

class ReplicEventHandlerTest : public DialogTestCase
{
    Q_OBJECT

private:
    void create()
    {
        subscribe(new ReplicEventHandler(context(), plugin(), dialog()),
                  QStringLiteral("dialog.say"));
    }

    void say(const QByteArray &json)
    {
        log().skipDebug();
        request(fromPage(json), m_name);
    }

    HostCall asked(const QString &step) const
    {
        return {QStringLiteral("getAppReplica"),
                {step, QVariant::fromValue(DatabaseDefaults::defaultCategory()), true, true, 0LL}};
    }

    const QString m_name = QStringLiteral("ReplicEventHandler");

private Q_SLOTS:
    void onlyLogsAnEmptyRequest();
    void speaks_data();
    void speaks();
    void doesNotSpeak_data();
    void doesNotSpeak();
    void lendsMacrosInTheOrderOfTheirNames();
    void lendsNothing_data();
    void lendsNothing();
    void lendsMacrosBeforeItSpeaks();
    void keepsMacrosLent();
    void asksForAStepWithDefaults();
    void takesAnyStep_data();
    void takesAnyStep();
    void playsTheReplicaOfAStep_data();
    void playsTheReplicaOfAStep();
    void playsThePagesReplica_data();
    void playsThePagesReplica();
    void playsAnEmptyReplica_data();
    void playsAnEmptyReplica();
    void reportsAnAnswer();
    void reportsAnEmptyAnswer_data();
    void reportsAnEmptyAnswer();
    void playsTheReplicaBeforeItReportsTheAnswer();
    void goesOnAfterAStepWithoutAReplica();
    void doesAllSixStepsInOrder();
    void makesANewRecordEachTime();
    void livesWithoutAHost();
    void livesWithoutADialogModule();
    void livesWithoutBoth();
};

void ReplicEventHandlerTest::onlyLogsAnEmptyRequest()
{
    create();
    request({}, m_name);
    QCOMPARE(log().take(), QVector<LogLine>());
}

void ReplicEventHandlerTest::speaks_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("terminate");
    const QString hello = QStringLiteral("Hello");
    const auto row = [](const char *json, const QString &text, bool terminate) {
        QTest::newRow(json) << QByteArray(json) << text << terminate;
    };
    row(R"({"text": "Hello"})", hello, true);
    row(R"({"text": "Hello", "terminate": true})", hello, true);
    row(R"({"text": "Hello", "terminate": false})", hello, false);
    row(R"({"text": "Hello", "terminate": null})", hello, false);
    row(R"({"text": "Hello", "terminate": 0})", hello, false);
    row(R"({"text": "Hello", "terminate": 1})", hello, true);
    row(R"({"text": "Hello", "terminate": "false"})", hello, false);
    row(R"({"text": "Hello", "terminate": "no"})", hello, true);
    row(R"({"text": "Hello", "terminate": {}})", hello, false);
    row(R"({"text": " "})", QStringLiteral(" "), true);
    row(R"({"text": 5})", QStringLiteral("5"), true);
    row(R"({"text": true})", QStringLiteral("true"), true);
}

void ReplicEventHandlerTest::speaks()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, text);
    QFETCH(bool, terminate);
    create();
    say(json);
    QCOMPARE(takeCalls(), QVector<HostCall>({spoken(text, terminate)}));
    QCOMPARE(log().take(), QVector<LogLine>());
}

void ReplicEventHandlerTest::doesNotSpeak_data()
{
    QTest::addColumn<QByteArray>("json");
    for (const char *json :
         {R"({"text": ""})", R"({"text": null})", R"({"text": []})", R"({"text": {"a": "b"}})",
          R"({"terminate": true})", R"({"Text": "Hello"})"})
        QTest::newRow(json) << QByteArray(json);
}

void ReplicEventHandlerTest::doesNotSpeak()
{
    QFETCH(QByteArray, json);
    makesUpAttributes({"Text"});
    create();
    say(json);
    QCOMPARE(log().take(), QVector<LogLine>());
}

void ReplicEventHandlerTest::lendsMacrosInTheOrderOfTheirNames()
{
    create();
    say(R"({"macroses": {"name": "Ann", "b": 3.5, "a": true, "c": null, "e": {"x": "y"}, "": "z"}})");
    QCOMPARE(takeCalls(),
             QVector<HostCall>({lent(QString(), QStringLiteral("z")),
                                lent(QStringLiteral("a"), QStringLiteral("true")),
                                lent(QStringLiteral("b"), QStringLiteral("3.5")),
                                lent(QStringLiteral("c"), QString()),
                                lent(QStringLiteral("e"), QString()),
                                lent(QStringLiteral("name"), QStringLiteral("Ann"))}));
    const QStringList lines = log().takeTexts(panorelCategory);
    QCOMPARE(lines.size(), 6);
    QCOMPARE(lines.last(), QStringLiteral("ReplicContext putMacrosValue  \"name\" \"Ann\""));
    QCOMPARE(log().take(), QVector<LogLine>());
}

void ReplicEventHandlerTest::lendsNothing_data()
{
    QTest::addColumn<QByteArray>("json");
    for (const char *json : {R"({"macroses": {}})", R"({"macroses": null})", R"({"macroses": "a"})",
                             R"({"macroses": ["a", "b"]})", R"({"macroses": 1})",
                             R"({"macros": {"a": "b"}})", R"({"macroses ": {"a": "b"}})"})
        QTest::newRow(json) << QByteArray(json);
}

void ReplicEventHandlerTest::lendsNothing()
{
    QFETCH(QByteArray, json);
    makesUpAttributes({"macros", "macroses "});
    create();
    say(json);
    QCOMPARE(log().take(), QVector<LogLine>());
}

void ReplicEventHandlerTest::lendsMacrosBeforeItSpeaks()
{
    create();
    say(R"({"text": "Hello %name%", "macroses": {"name": "Ann", "zone": "A"}})");
    QCOMPARE(takeCalls(),
             QVector<HostCall>({lent(QStringLiteral("name"), QStringLiteral("Ann")),
                                lent(QStringLiteral("zone"), QStringLiteral("A")),
                                spoken(QStringLiteral("Hello %name%"), true)}));
}

void ReplicEventHandlerTest::keepsMacrosLent()
{
    create();
    say(R"({"text": "Hello", "macroses": {"name": "Ann"}})");
    say(R"({"text": "Bye"})");
    takeCalls();
    QCOMPARE(plugin()->replacer->calls, QStringList({QStringLiteral("set name=Ann")}));
    context()->clear(); // by the turn's end, not by the handler
    QCOMPARE(takeCalls(),
             QVector<HostCall>({{QStringLiteral("removeMacros"), {QStringLiteral("name")}}}));
}

void ReplicEventHandlerTest::asksForAStepWithDefaults()
{
    create();
    say(R"({"step": "intro"})");
    const QVector<HostCall> calls = takeCalls();
    QCOMPARE(calls, QVector<HostCall>({asked(QStringLiteral("intro"))}));
    QCOMPARE(calls.first().arguments.at(1).typeName(), "ID");
    QCOMPARE(plugin()->faces.size(), 1);
    QCOMPARE(fields(plugin()->faces.first()), fields(FaceInfo()));
    const QVector<LogLine> expected{line(QStringLiteral("ReplicContext getAppReplic \"intro\"")),
                                    line(QStringLiteral("Replic \"intro\" is empty"))};
    QCOMPARE(log().take(), expected);
}

void ReplicEventHandlerTest::takesAnyStep_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("step");
    // Presence counts.
    QTest::newRow("empty") << QByteArray(R"({"step": ""})") << QString();
    QTest::newRow("null") << QByteArray(R"({"step": null})") << QString();
    QTest::newRow("object") << QByteArray(R"({"step": {}})") << QString();
    QTest::newRow("number") << QByteArray(R"({"step": 7})") << QStringLiteral("7");
}

void ReplicEventHandlerTest::takesAnyStep()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, step);
    create();
    say(json);
    QCOMPARE(takeCalls(), QVector<HostCall>({asked(step)}));
    QCOMPARE(log().takeTexts(panorelCategory).last(),
             QStringLiteral("Replic \"%1\" is empty").arg(step));
}

void ReplicEventHandlerTest::playsTheReplicaOfAStep_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<bool>("terminate");
    QTest::newRow("default") << QByteArray(R"({"step": "intro"})") << true;
    QTest::newRow("true") << QByteArray(R"({"step": "intro", "terminate": true})") << true;
    QTest::newRow("false") << QByteArray(R"({"step": "intro", "terminate": false})") << false;
}

void ReplicEventHandlerTest::playsTheReplicaOfAStep()
{
    QFETCH(QByteArray, json);
    QFETCH(bool, terminate);
    create();
    const ID anchor(9, QUuid::createUuid());
    plugin()->replica = replicaOf(QStringLiteral("Welcome"), anchor);
    say(json);
    QCOMPARE(takeCalls(),
             QVector<HostCall>({asked(QStringLiteral("intro")),
                                played(QStringLiteral("Welcome"), terminate), anchored(anchor)}));
    QCOMPARE(dialog()->replicas, QVector<QSharedPointer<Replica>>({plugin()->replica}));
    const QVector<LogLine> expected{line(QStringLiteral("ReplicContext getAppReplic \"intro\""))};
    QCOMPARE(log().take(), expected);
}

void ReplicEventHandlerTest::playsThePagesReplica_data()
{
    QTest::addColumn<QByteArray>("terminateJson");
    QTest::addColumn<bool>("terminate");
    QTest::newRow("default") << QByteArray() << true;
    QTest::newRow("true") << QByteArray(R"("terminate": true, )") << true;
    QTest::newRow("false") << QByteArray(R"("terminate": false, )") << false;
}

void ReplicEventHandlerTest::playsThePagesReplica()
{
    QFETCH(QByteArray, terminateJson);
    QFETCH(bool, terminate);
    create();
    const QVariantMap attributes =
        fromPage("{" + terminateJson + R"("replica": {"text": "Hi", "anchor": {"id": 4}}})");
    request(attributes, m_name);
    QCOMPARE(
        takeCalls(),
        QVector<HostCall>({played(QStringLiteral("Hi"), terminate), anchored(ID(4, QUuid()))}));
    const QVariant raw = attributes.value(QStringLiteral("replica"));
    const QVector<LogLine> expected{rawDump(raw), dump(QStringLiteral("replic_map"), raw)};
    QCOMPARE(log().take(), expected);
}

void ReplicEventHandlerTest::playsAnEmptyReplica_data()
{
    QTest::addColumn<QByteArray>("json");
    for (const char *json : {R"({"replica": null})", R"({"replica": {}})", R"({"replica": "Hi"})",
                             R"({"replica": [{"text": "Hi"}]})", R"({"replica": false})"})
        QTest::newRow(json) << QByteArray(json);
}

void ReplicEventHandlerTest::playsAnEmptyReplica()
{
    QFETCH(QByteArray, json);
    create();
    const QVariantMap attributes = fromPage(json);
    request(attributes, m_name);
    QCOMPARE(takeCalls(), QVector<HostCall>({played(QString(), true), anchored(ID())}));
    QCOMPARE(fields(*dialog()->replicas.first()), fields(Replica()));
    const QVector<LogLine> expected{rawDump(attributes.value(QStringLiteral("replica"))),
                                    dump(QStringLiteral("replic_map"), QVariant())};
    QCOMPARE(log().take(), expected);
}

void ReplicEventHandlerTest::reportsAnAnswer()
{
    create();
    const QVariantMap attributes =
        fromPage(R"({"answer": {"question": "Tea?"}, "terminate": false})");
    request(attributes, m_name);
    // Always true, whatever "terminate" says.
    QCOMPARE(
        takeCalls(),
        QVector<HostCall>({{QStringLiteral("setAnswerResult"), {QStringLiteral("Tea?"), true}}}));
    const QVector<LogLine> expected{
        dump(QStringLiteral("answer_map"), attributes.value(QStringLiteral("answer")))};
    QCOMPARE(log().take(), expected);
}

void ReplicEventHandlerTest::reportsAnEmptyAnswer_data()
{
    QTest::addColumn<QByteArray>("json");
    for (const char *json : {R"({"answer": null})", R"({"answer": {}})", R"({"answer": "Tea"})",
                             R"({"answer": [{"question": "Tea?"}]})", R"({"answer": 1})"})
        QTest::newRow(json) << QByteArray(json);
}

void ReplicEventHandlerTest::reportsAnEmptyAnswer()
{
    QFETCH(QByteArray, json);
    create();
    say(json);
    QCOMPARE(takeCalls(),
             QVector<HostCall>({{QStringLiteral("setAnswerResult"), {QString(), true}}}));
    QCOMPARE(fields(*dialog()->answers.first()), fields(Answer()));
    const QVector<LogLine> expected{dump(QStringLiteral("answer_map"), QVariant())};
    QCOMPARE(log().take(), expected);
}

void ReplicEventHandlerTest::playsTheReplicaBeforeItReportsTheAnswer()
{
    create();
    say(R"({"answer": {"question": "Tea?"}, "replica": {"text": "Hi"}})");
    QCOMPARE(
        takeCalls(),
        QVector<HostCall>({played(QStringLiteral("Hi"), true),
                           anchored(ID()),
                           {QStringLiteral("setAnswerResult"), {QStringLiteral("Tea?"), true}}}));
}

void ReplicEventHandlerTest::goesOnAfterAStepWithoutAReplica()
{
    create();
    say(R"({"step": "intro", "replica": {"text": "Hi"}, "answer": {"question": "Tea?"}})");
    QCOMPARE(
        takeCalls(),
        QVector<HostCall>({asked(QStringLiteral("intro")),
                           played(QStringLiteral("Hi"), true),
                           anchored(ID()),
                           {QStringLiteral("setAnswerResult"), {QStringLiteral("Tea?"), true}}}));
}

void ReplicEventHandlerTest::doesAllSixStepsInOrder()
{
    create();
    plugin()->replica = replicaOf(QStringLiteral("Welcome"), ID(9, QUuid()));
    const QVariantMap attributes = fromPage(R"({
        "answer": {"question": "Tea?"}, "face": {"id": 12}, "macroses": {"a": "1"},
        "replica": {"text": "Hi", "anchor": {"id": 4}}, "step": "intro", "terminate": false,
        "text": "Hello"})");
    request(attributes, m_name);
    QVector<HostCall> calls = takeCalls();
    const QVector<HostCall> expectedCalls{
        lent(QStringLiteral("a"), QStringLiteral("1")),
        spoken(QStringLiteral("Hello"), false),
        {QStringLiteral("getAppReplica"),
         {QStringLiteral("intro"), QVariant::fromValue(DatabaseDefaults::defaultCategory()), true,
          true, 12LL}},
        played(QStringLiteral("Welcome"), false),
        anchored(ID(9, QUuid())),
        played(QStringLiteral("Hi"), false),
        anchored(ID(4, QUuid())),
        {QStringLiteral("setAnswerResult"), {QStringLiteral("Tea?"), true}},
    };
    QCOMPARE(calls, expectedCalls);
    const auto dumped = [&attributes](const char *name, const char *key) {
        return dump(QString::fromLatin1(name), attributes.value(QString::fromLatin1(key)));
    };
    // Were there a reply, the broker's line would stand among these.
    const QVector<LogLine> expectedLines{
        line(QStringLiteral("ReplicContext putMacrosValue  \"a\" \"1\"")),
        dumped("face_map", "face"),
        line(QStringLiteral("ReplicContext getAppReplic \"intro\"")),
        rawDump(attributes.value(QStringLiteral("replica"))),
        dumped("replic_map", "replica"),
        dumped("answer_map", "answer"),
    };
    QCOMPARE(log().take(), expectedLines);
}

void ReplicEventHandlerTest::makesANewRecordEachTime()
{
    create();
    for (int i = 0; i < 2; ++i)
        say(R"({"replica": {"text": "Hi"}, "answer": {"question": "Tea?"}})");
    takeCalls();
    QVERIFY(dialog()->replicas.at(0) != dialog()->replicas.at(1));
    QVERIFY(dialog()->answers.at(0) != dialog()->answers.at(1));
}

namespace {

constexpr char everything[] = R"({"macroses": {"a": "1"}, "text": "Hello", "step": "intro",
    "replica": {"text": "Hi"}, "answer": {"question": "Tea?"}})";

} // namespace

void ReplicEventHandlerTest::livesWithoutAHost()
{
    ReplicContext hostless(nullptr);
    subscribe(new ReplicEventHandler(&hostless, nullptr, dialog()), QStringLiteral("dialog.say"));
    say(everything);
    QCOMPARE(
        takeCalls(),
        QVector<HostCall>({played(QStringLiteral("Hi"), true),
                           {QStringLiteral("setAnswerResult"), {QStringLiteral("Tea?"), true}}}));
    QVERIFY(log().takeTexts(panorelCategory).contains(QStringLiteral("Replic \"intro\" is empty")));
}

void ReplicEventHandlerTest::livesWithoutADialogModule()
{
    subscribe(new ReplicEventHandler(context(), plugin(), nullptr), QStringLiteral("dialog.say"));
    plugin()->replica = replicaOf(QStringLiteral("Welcome"), ID(9, QUuid()));
    say(everything);
    QCOMPARE(
        takeCalls(),
        QVector<HostCall>({lent(QStringLiteral("a"), QStringLiteral("1")),
                           spoken(QStringLiteral("Hello"), true), asked(QStringLiteral("intro")),
                           anchored(ID(9, QUuid())), anchored(ID())}));
    // What was dropped still shows in the log.
    const QStringList dumps = log().takeTexts(defaultCategory);
    QCOMPARE(dumps.size(), 3);
    QVERIFY(dumps.last().startsWith(QStringLiteral("answer_map ")));
}

void ReplicEventHandlerTest::livesWithoutBoth()
{
    ReplicContext hostless(nullptr);
    subscribe(new ReplicEventHandler(&hostless, nullptr, nullptr), QStringLiteral("dialog.say"));
    say(everything);
}

QTEST_GUILESS_MAIN(ReplicEventHandlerTest)
#include "tst_repliceventhandler.moc"
