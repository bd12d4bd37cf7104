#include "panorel/handlers/SIPControlHandler.h"

#include "tests/support/HandlerTestCase.h"
#include "tests/support/PageRequest.h"
#include "tests/support/TestTelephone.h"

#include "host/SIPMaster.h"

#include <QJsonObject>

using panorel::Message;
using panorel::SIPControlHandler;

namespace {

constexpr QUuid someCall(0x4d2f8a90, 0x1b3c, 0x4d5e, 0x8f, 0x60, 0x71, 0x82, 0x93, 0xa4, 0xb5,
                         0xc6);
const QString callResponse = QStringLiteral("sip.call.response");
const QString fileResponse = QStringLiteral("sip.file.response");
const QString textResponse = QStringLiteral("sip.text.response");
const QString events = QStringLiteral("sip.events");

HostCall called(const QString &number) { return {QStringLiteral("callToNumber"), {number}}; }
HostCall played(const QString &file, const QString &number, int count)
{
    return {QStringLiteral("playFileToNumber"), {file, number, count}};
}
HostCall spoken(const QString &text, const QString &number, int count)
{
    return {QStringLiteral("playTextToNumber"), {text, number, count}};
}
const HostCall clearedQueue{QStringLiteral("clearQueue"), {}};
const HostCall hungUp{QStringLiteral("stopCall"), {}};

} // namespace

class SIPControlHandlerTest : public HandlerTestCase
{
    Q_OBJECT

private:
    TestTelephone &telephone() { return TestTelephone::instance(); }

    void setUp() override
    {
        HandlerTestCase::setUp();
        telephone() = TestTelephone();
        telephone().queued = someCall;
        create();
    }
    void tearDown() override
    {
        HandlerTestCase::tearDown();
        QCOMPARE(telephone().calls, QVector<HostCall>());
        QCOMPARE(telephone().clients, 0);
    }

    void create()
    {
        for (const QString &topic : {callResponse, fileResponse, textResponse, events})
            watch(topic);
        subscribe(new SIPControlHandler(brocker()), QStringLiteral("sip.control"));
    }

    void ask(const QByteArray &json)
    {
        request(fromPage(json), QStringLiteral("SIPControlHandler"));
    }
    QVector<HostCall> takeTelephoneCalls()
    {
        QVector<HostCall> calls;
        calls.swap(telephone().calls);
        return calls;
    }
    void compareReply(const QString &topic, const QVariantMap &attributes)
    {
        const Message reply = replies().take();
        QCOMPARE(reply.type(), topic);
        QCOMPARE(reply.attributes(), attributes);
        for (auto it = attributes.constBegin(); it != attributes.constEnd(); ++it)
            QCOMPARE(reply.attributes().value(it.key()).userType(), it->userType());
    }
    static QVariantMap result(bool started) { return {{QStringLiteral("result"), started}}; }
    static QVariantMap uuid(const QUuid &id) { return {{QStringLiteral("uuid"), id}}; }

private Q_SLOTS:
    void ownsItsClient();
    void startsACall_data();
    void startsACall();
    void refusesACallWithoutANumber_data();
    void refusesACallWithoutANumber();
    void playsAFile();
    void refusesAFile_data();
    void refusesAFile();
    void speaksAText();
    void refusesAText_data();
    void refusesAText();
    void readsTheRecallCount_data();
    void readsTheRecallCount();
    void handsOnEmptyTexts();
    void clearsTheQueueAndHangsUp();
    void doesAllInOrder();
    void doesNothingWithoutACommand();
    void writesTheParameters();
    void writesTheParametersBeforeTheCall();
    void tellsEvents_data();
    void tellsEvents();
    void registersTheCallState();
    void staysSilentOnceCleared();
    void mayBeClearedFromItsOwnSignal();
    void mayBeClearedDuringACall();
};

void SIPControlHandlerTest::ownsItsClient()
{
    QCOMPARE(telephone().clients, 1);
    QVERIFY(telephone().client->parent());
    QVERIFY(qobject_cast<SIPControlHandler *>(telephone().client->parent()));
    brocker()->clear();
    QCOMPARE(telephone().clients, 0);
}

void SIPControlHandlerTest::startsACall_data()
{
    QTest::addColumn<bool>("started");
    QTest::newRow("started") << true;
    QTest::newRow("not started") << false;
}

void SIPControlHandlerTest::startsACall()
{
    QFETCH(bool, started);
    telephone().started = started;
    ask(R"({"call_start": {"number": "100"}})");
    QCOMPARE(takeTelephoneCalls(), QVector<HostCall>({called(QStringLiteral("100"))}));
    compareReply(callResponse, result(started));
}

void SIPControlHandlerTest::refusesACallWithoutANumber_data()
{
    QTest::addColumn<QByteArray>("parameters");
    for (const char *parameters :
         {"{}", R"({"number": 100})", R"({"number": null})", R"({"number": ["100"]})",
          R"({"number": true})", R"({"Number": "100"})", "null", "true", "100", "\"100\"",
          "[\"100\"]"})
        QTest::newRow(parameters) << QByteArray(parameters);
}

void SIPControlHandlerTest::refusesACallWithoutANumber()
{
    QFETCH(QByteArray, parameters);
    ask("{\"call_start\": " + parameters + "}");
    compareReply(callResponse, result(false));
}

void SIPControlHandlerTest::playsAFile()
{
    ask(R"({"play_file": {"number": "100", "file": "/a.wav", "recall_count": 3}})");
    QCOMPARE(takeTelephoneCalls(),
             QVector<HostCall>({played(QStringLiteral("/a.wav"), QStringLiteral("100"), 3)}));
    compareReply(fileResponse, uuid(someCall));
}

void SIPControlHandlerTest::refusesAFile_data()
{
    QTest::addColumn<QByteArray>("parameters");
    for (const char *parameters :
         {"{}", R"({"number": "100"})", R"({"file": "/a.wav"})",
          R"({"number": 100, "file": "/a.wav"})", R"({"number": "100", "file": 1})",
          R"({"number": "100", "file": null})", R"({"number": "100", "text": "/a.wav"})", "null",
          "\"100\"", "[]"})
        QTest::newRow(parameters) << QByteArray(parameters);
}

void SIPControlHandlerTest::refusesAFile()
{
    QFETCH(QByteArray, parameters);
    ask("{\"play_file\": " + parameters + "}");
    compareReply(fileResponse, uuid(QUuid()));
}

void SIPControlHandlerTest::speaksAText()
{
    ask(R"({"play_text": {"number": "100", "text": "Hello", "recall_count": 3}})");
    QCOMPARE(takeTelephoneCalls(),
             QVector<HostCall>({spoken(QStringLiteral("Hello"), QStringLiteral("100"), 3)}));
    compareReply(textResponse, uuid(someCall));
}

void SIPControlHandlerTest::refusesAText_data()
{
    QTest::addColumn<QByteArray>("parameters");
    for (const char *parameters :
         {"{}", R"({"number": "100"})", R"({"text": "Hello"})",
          R"({"number": 100, "text": "Hello"})", R"({"number": "100", "text": 1})",
          R"({"number": "100", "text": {}})", R"({"number": "100", "file": "Hello"})", "null",
          "\"100\"", "[]"})
        QTest::newRow(parameters) << QByteArray(parameters);
}

void SIPControlHandlerTest::refusesAText()
{
    QFETCH(QByteArray, parameters);
    ask("{\"play_text\": " + parameters + "}");
    compareReply(textResponse, uuid(QUuid()));
}

void SIPControlHandlerTest::readsTheRecallCount_data()
{
    QTest::addColumn<QByteArray>("value"); // empty when absent
    QTest::addColumn<int>("count");
    QTest::newRow("absent") << QByteArray() << 1;
    QTest::newRow("number") << QByteArray("3") << 3;
    QTest::newRow("zero") << QByteArray("0") << 0;
    QTest::newRow("negative") << QByteArray("-2") << -2;
    QTest::newRow("fraction") << QByteArray("2.5") << 0;
    QTest::newRow("beyond 32 bits") << QByteArray("1e10") << 0;
    QTest::newRow("text") << QByteArray("\"3\"") << 1;
    QTest::newRow("null") << QByteArray("null") << 1;
    QTest::newRow("bool") << QByteArray("true") << 1;
    QTest::newRow("list") << QByteArray("[3]") << 1;
}

void SIPControlHandlerTest::readsTheRecallCount()
{
    QFETCH(QByteArray, value);
    QFETCH(int, count);
    const QByteArray member = value.isEmpty() ? QByteArray() : ", \"recall_count\": " + value;
    ask("{\"play_text\": {\"number\": \"1\", \"text\": \"a\"" + member
        + "}, \"play_file\": {\"number\": \"2\", \"file\": \"b\"" + member + "}}");
    QCOMPARE(takeTelephoneCalls(),
             QVector<HostCall>({played(QStringLiteral("b"), QStringLiteral("2"), count),
                                spoken(QStringLiteral("a"), QStringLiteral("1"), count)}));
    replies().clear();
}

void SIPControlHandlerTest::handsOnEmptyTexts()
{
    ask(R"({"call_start": {"number": ""}, "play_text": {"number": "", "text": ""}})");
    QCOMPARE(takeTelephoneCalls(),
             QVector<HostCall>({called(QString()), spoken(QString(), QString(), 1)}));
    replies().clear();
}

void SIPControlHandlerTest::clearsTheQueueAndHangsUp()
{
    ask(R"({"call_stop": true, "clear_queue": null})");
    QCOMPARE(takeTelephoneCalls(), QVector<HostCall>({clearedQueue, hungUp}));
    ask(R"({"call_stop": false})"); // presence counts
    QCOMPARE(takeTelephoneCalls(), QVector<HostCall>({hungUp}));
    ask(R"({"clear_queue": {}})");
    QCOMPARE(takeTelephoneCalls(), QVector<HostCall>({clearedQueue}));
}

void SIPControlHandlerTest::doesAllInOrder()
{
    // Each answer comes before the next command: the calls are counted at the answers.
    QVector<int> callsAtReplies;
    for (const QString &topic : {callResponse, fileResponse, textResponse})
        brocker()->subscribe(topic, [this, &callsAtReplies](const Message &) {
            callsAtReplies.append(telephone().calls.size());
        });
    log().skipDebug();
    ask(R"({"call_stop": 1, "clear_queue": 1, "play_text": {"number": "3", "text": "c"},
            "play_file": {"number": "2", "file": "b"}, "call_start": {"number": "1"}})");
    QCOMPARE(takeTelephoneCalls(),
             QVector<HostCall>(
                 {called(QStringLiteral("1")), played(QStringLiteral("b"), QStringLiteral("2"), 1),
                  spoken(QStringLiteral("c"), QStringLiteral("3"), 1), clearedQueue, hungUp}));
    QCOMPARE(callsAtReplies, QVector<int>({1, 2, 3}));
    QCOMPARE(replies().topics(), QStringList({callResponse, fileResponse, textResponse}));
    replies().clear();
}

void SIPControlHandlerTest::doesNothingWithoutACommand()
{
    makesUpAttributes({"call_start_map", "play_file_map", "play_text_map"});
    ask("{}");
    // Labels of the log, no commands.
    ask(R"({"call_start_map": {"number": "1"}, "play_file_map": {}, "play_text_map": {}})");
}

void SIPControlHandlerTest::writesTheParametersBeforeTheCall()
{
    QStringList linesAtCall;
    telephone().duringCall = [this, &linesAtCall] {
        linesAtCall.append(log().takeTexts(QStringLiteral("default")).join(QLatin1Char('\n')));
    };
    ask(R"({"call_start": {"number": "1"}, "play_file": {"number": "2", "file": "b"},
            "play_text": {"number": "3", "text": "c"}, "call_stop": 1})");
    QCOMPARE(linesAtCall.size(), 4);
    QVERIFY(linesAtCall.at(0).startsWith(QLatin1String("call_start_map ")));
    QVERIFY(linesAtCall.at(1).startsWith(QLatin1String("play_file_map ")));
    QVERIFY(linesAtCall.at(2).startsWith(QLatin1String("play_text_map ")));
    QCOMPARE(linesAtCall.at(3), QString());
    takeTelephoneCalls();
    replies().clear();
}

void SIPControlHandlerTest::writesTheParameters()
{
    ask(R"({"call_start": {"number": "1"}, "play_file": {"file": "b"}, "play_text": 7})");
    QCOMPARE(log().takeTexts(QStringLiteral("default")),
             QStringList({QStringLiteral("call_start_map QJsonObject({\"number\":\"1\"})"),
                          QStringLiteral("play_file_map QJsonObject({\"file\":\"b\"})"),
                          QStringLiteral("play_text_map QJsonObject()")}));
    takeTelephoneCalls();
    replies().clear();
}

using Signal = std::function<void(SIPMaster *)>;
Q_DECLARE_METATYPE(Signal)

void SIPControlHandlerTest::tellsEvents_data()
{
    QTest::addColumn<Signal>("emitSignal");
    QTest::addColumn<QVariantMap>("attributes");
    const QString event = QStringLiteral("event");
    for (const bool success : {true, false})
        QTest::newRow(success ? "queued call, success" : "queued call, failure")
            << Signal([success](SIPMaster *sip) {
                   Q_EMIT sip->signalHiddenCallResult(someCall, success);
               })
            << QVariantMap{{event, QStringLiteral("hidden_call")},
                           {QStringLiteral("uuid"), someCall},
                           {QStringLiteral("success"), success}};
    for (const int state : {0, 3, 6, 77, -1})
        QTest::newRow(qPrintable(QStringLiteral("state %1").arg(state)))
            << Signal([state](SIPMaster *sip) {
                   Q_EMIT sip->signalPublicCallState(static_cast<CallState>(state));
               })
            << QVariantMap{{event, QStringLiteral("public_call")},
                           {QStringLiteral("state"), state}};
    for (const int tone : {0, 11, -1})
        QTest::newRow(qPrintable(QStringLiteral("tone %1").arg(tone)))
            << Signal([tone](SIPMaster *sip) { Q_EMIT sip->signalTone(tone); })
            << QVariantMap{{event, QStringLiteral("tone")}, {QStringLiteral("tone"), tone}};
}

void SIPControlHandlerTest::tellsEvents()
{
    QFETCH(Signal, emitSignal);
    QFETCH(QVariantMap, attributes);
    emitSignal(telephone().client);
    QCOMPARE(replies().count(), 1);
    compareReply(events, attributes);
}

void SIPControlHandlerTest::registersTheCallState()
{
    QVERIFY(QMetaType::type("CallState") != QMetaType::UnknownType);
}

void SIPControlHandlerTest::staysSilentOnceCleared()
{
    const QPointer<SIPMaster> former = telephone().client;
    const QString host = QStringLiteral("cookie.set");
    brocker()->subscribe(host, [this, &former](const Message &) {
        brocker()->clear();
        create();
        QVERIFY(former); // in a delivery it lives on, beside its successor
        Q_EMIT former->signalTone(1);
        Q_EMIT former->signalPublicCallState(CallStateEnded);
        Q_EMIT former->signalHiddenCallResult(someCall, true);
    });
    brocker()->publish(Message(host));
    turnEventLoop();
    QVERIFY(!former);
    QCOMPARE(telephone().clients, 1);
}

void SIPControlHandlerTest::mayBeClearedFromItsOwnSignal()
{
    const QPointer<SIPMaster> client = telephone().client;
    int tones = 0;
    brocker()->subscribe(events, [this, &tones](const Message &) {
        ++tones;
        brocker()->clear();
    });
    Q_EMIT client->signalTone(5);
    QVERIFY(client); // it still has to return from its signal
    QCOMPARE(tones, 1);
    turnEventLoop();
    QVERIFY(!client);
    replies().clear();
}

void SIPControlHandlerTest::mayBeClearedDuringACall()
{
    const QPointer<SIPMaster> client = telephone().client;
    telephone().duringCall = [this] {
        telephone().duringCall = nullptr;
        brocker()->clear();
    };
    ask(R"({"call_start": {"number": "1"}, "call_stop": true})");
    QVERIFY(client);
    QCOMPARE(takeTelephoneCalls(), QVector<HostCall>({called(QStringLiteral("1")), hungUp}));
    turnEventLoop();
    QVERIFY(!client);
}

QTEST_GUILESS_MAIN(SIPControlHandlerTest)
#include "tst_sipcontrolhandler.moc"
