#include "panorel/PrinterStatus.h"
#include "tests/page/PageTestCase.h"
#include "tests/page/StatisticFiles.h"
#include "tests/protocol/Contract.h"
#include "tests/support/PictureFile.h"
#include "tests/support/TestMailServer.h"
#include "tests/support/TestPlatform.h"
#include "tests/support/TestTelephone.h"
#include "tests/support/Topics.h"

#include "host/UserData.h"

#include <QImage>
#include <QThreadPool>

#include <algorithm>

namespace {

const QString statisticTopic = QStringLiteral("panorel-test-requests");

QString describe(const HostCall &call)
{
    QStringList arguments;
    for (const QVariant &argument : call.arguments)
        arguments.append(argument.canConvert<ID>() && argument.userType() == qMetaTypeId<ID>()
                             ? QString::number(argument.value<ID>().id())
                             : argument.toString());
    return QStringLiteral("%1(%2)").arg(call.name, arguments.join(QStringLiteral(", ")));
}

/// What is random is left out: ids of messages, and keys and lists that stand for a set.
QJsonObject comparable(QJsonObject message)
{
    message.remove(QStringLiteral("id"));
    const QString settings = QStringLiteral("settings");
    if (message.contains(settings)) {
        const QJsonObject object = message.value(settings).toObject();
        QJsonArray values;
        for (const QJsonValue &value : object)
            values.append(value);
        message.insert(settings, values);
    }
    const QString description = QStringLiteral("error_description");
    if (!message.value(description).toString().isEmpty())
        message.insert(description, QStringLiteral("a text"));
    return message;
}

/// One request, what the robot is asked for, and what the page receives.
struct Row
{
    const char *topic;
    QByteArray request; ///< as the page's script writes it
    QStringList calls;
    QByteArray messages; ///< the members of a JSON list
};

QVector<Row> table()
{
    QVector<Row> rows;
    const auto row = [&rows](const char *topic, const char *request, const QStringList &calls,
                             const char *messages) {
        rows.append({topic, request, calls, messages});
    };
    const auto call = [](const char *text) { return QString::fromUtf8(text); };

    row("dialog.say", "{text: 'Hello'}", {call("ttsStart(Hello, true, true, 0, 0)")}, "");
    row("dialog.replica.get", "{step: 'welcome', category: 'c'}",
        {call("getAppReplica(welcome, c, true, true, 0)")},
        R"({"type": "dialog.replica.load", "replica": {
            "id": {"id": 0, "uuid": "{00000000-0000-0000-0000-000000000000}"},
            "anchor": {"id": 0, "uuid": "{00000000-0000-0000-0000-000000000000}"},
            "category": {"id": 0, "uuid": "{00000000-0000-0000-0000-000000000000}"},
            "text": "Hi", "screen_text": "", "url": "", "actions": "", "animation": 0, "type": 0}})");
    row("dialog.robot.replic.abort", "{}", {call("ttsCancel()")}, "");
    row("dialog.question.answer", "{text: 'Tea'}", {call("hasAnswer(Tea)")}, "");
    row("printer.print", "{data: 'data:image/png;base64,AAAA'}",
        {call("printer.isConnected()"),
         QStringLiteral("printer.print(%1)").arg(panorel::paths::printPicture())},
        R"({"type": "printer.success"})");
    row("printer.state", "{}", {call("printer.isConnected()")},
        R"({"type": "printer.state.info", "state": "IDLE"})");
    row("dispenser.dispense", "{ignore_not_connected: true}", {call("dispenser.issueCard(4)")}, "");
    row("system.log", "{level: 'info', message: 'x'}", {}, "");
    row("system.statistic", "{topic: 'panorel-test-requests', data: ['a;1']}", {}, "");
    row("system.interaction.control", "{state: 'Start'}", {call("start")}, "");
    row("system.environment.get", "{}", {call("exec(uname -n)")},
        R"({"type": "system.environment.load", "environment": {
            "uuid_robot": "{1b9d6bcd-bbfd-4b2d-9b5d-ab8dfbbd4bed}",
            "uuid_owner": "{9f1c2a34-5d6e-4f70-8a9b-0c1d2e3f4a5b}",
            "name": "Robin", "id": "robin\n", "date_of_creation": "2019-04-01T10:15:00"}})");
    row("system.settings.get", "{settings_type: 'application', group: 'screen', name: 'title'}",
        {call("appParameter(/screen/title, )")},
        R"({"type": "system.settings.load", "settings": [{
            "settings_type": "application", "group": "screen", "name": "title",
            "value": "Welcome"}]})");
    row("system.sound.properties", "{get_volume: true, set_volume: 30}",
        {call("getSoundVolume()"), call("setSoundVolume(30)")},
        R"({"type": "system.sound.load", "sound": {"volume": 50}})");
    row("system.language.set", "{language: 'de'}", {call("language(de)")}, "");
    row("system.play.external", "{url: 'file:///nowhere/missing.wav'}", {},
        R"({"type": "system.play.status", "status": "error", "error": 1,
            "error_description": "a text"})");
    row("system.drive.control", "{drive_point: 65537, drive_charger: true}",
        {call("drivePoint(1)"), call("driveCharger(true)")}, "");
    row("system.scripts.control", "{start: 'welcome'}", {call("scriptStart(welcome)")},
        R"({"type": "system.scripts.start.result", "result": ["started"]})");
    row("face.recognize.control", "{tracking_face: 12}", {call("faceTracking(12)")}, "");
    row("system.general.touch", "{x: 1, y: 1}", {}, ""); // nobody stands there
    row("database.user.request", "{get_user: 7}", {call("user(7)")},
        R"({"type": "database.user.response", "response": {"get_user": false}})");
    row("sip.control", "{call_start: {number: '100'}, call_stop: true}",
        {call("callToNumber(100)"), call("stopCall()")},
        R"({"type": "sip.call.response", "result": true})");
    row("scanner.passport.request", "{timeout: 5}",
        {call("scanner.isConnected()"), call("scanner.scan(5)")},
        R"({"type": "scanner.passport.response", "success": true})");
    row("scanner.document.request", "{mode: 1, brightness: 2, resolution: 300}",
        {call("scanner.setMode(1)"), call("scanner.setBrightness(2)"),
         call("scanner.setResolution(300)"), call("scanner.isConnected()"),
         call("scanner.scan(30)")},
        R"({"type": "scanner.document.response", "success": true})");
    row("record.audio.request", "{stop: true}", {},
        R"({"type": "record.audio.response", "file": ""})");
    row("mail.sender.request", "{email: 'ann@example.com'}",
        {call("send(robot@example.com, ann@example.com)")},
        R"({"type": "mail.sender.response", "status": "success"})");
    row("operator.call.request", "{call: true}", {call("operatorCall(true)")}, "");
    row("keyboard.control.request", "{get_locale: 1, is_visible: 1, show: 1}",
        {call("keyboard.locale()"), call("keyboard.isVisible()"),
         call("keyboard.setVisible(true)")},
        R"({"type": "keyboard.control.response", "locale": "en_GB"},
           {"type": "keyboard.control.response", "is_visible": false})");
    return rows;
}

/// How many of @p messages come before the request returns.
int repliesAtOnce(const QString &request, const QJsonArray &messages)
{
    QStringList atOnce;
    const QJsonArray topics = contractTopics();
    for (const QJsonValue &topic : topics) {
        if (topicOf(topic) != request)
            continue;
        const QJsonArray replies = topic.toObject().value(QStringLiteral("replies")).toArray();
        for (const QJsonValue &reply : replies)
            if (member(reply, QStringLiteral("how")) == QLatin1String("synchronous"))
                atOnce.append(topicOf(reply));
    }
    return static_cast<int>(
        std::count_if(messages.begin(), messages.end(), [&atOnce](const QJsonValue &message) {
            return atOnce.contains(member(message, QStringLiteral("type")));
        }));
}

} // namespace

/// Each topic that a page may send, from a real page to the robot and back: what the robot was asked
/// for, and what the page received.
class RequestsTest : public PageTestCase
{
    Q_OBJECT

private:
    void setUp() override
    {
        PageTestCase::setUp();
        m_picture = std::make_unique<PictureFile>();
        TestTelephone::instance() = TestTelephone();
        TestMailServer::instance().reset();
        fillPlatform();
        fillRobot();
        defaultHandlers();
        connect(dialog->questionHandler.data(), &QuestionHandler::hasAnswer, this,
                [this](const QUuid &, const QString &text) {
                    plugin->calls.append({QStringLiteral("hasAnswer"), {text}});
                });
    }
    void tearDown() override
    {
        PageTestCase::tearDown();
        QThreadPool::globalInstance()->waitForDone();
        m_picture.reset();
    }

    static void fillPlatform()
    {
        TestPlatform &platform = TestPlatform::instance();
        platform = TestPlatform();
        platform.robot = QUuid(QStringLiteral("{1b9d6bcd-bbfd-4b2d-9b5d-ab8dfbbd4bed}"));
        platform.owner = QUuid(QStringLiteral("{9f1c2a34-5d6e-4f70-8a9b-0c1d2e3f4a5b}"));
        platform.name = QStringLiteral("Robin");
        platform.output = QStringLiteral("robin\n");
        platform.dateOfCreation = QDateTime(QDate(2019, 4, 1), QTime(10, 15));
        platform.soundVolume = 50;
    }

    /// A robot that has everything, and whose devices answer at once.
    void fillRobot()
    {
        QVector<HostCall> *const calls = &plugin->calls;
        plugin->printerDevice = QSharedPointer<TestPrinter>::create(calls);
        plugin->dispenser = QSharedPointer<TestDispenser>::create(calls);
        plugin->passportScanner = QSharedPointer<TestScanner>::create(calls);
        plugin->documentScanner = QSharedPointer<TestScanner>::create(calls);
        plugin->keyboardDevice = QSharedPointer<TestKeyboard>::create(calls);
        plugin->users = QSharedPointer<TestUsersDatabase>::create(calls);
        plugin->replica = QSharedPointer<Replica>::create();
        plugin->replica->setText(QStringLiteral("Hi"));
        plugin->scriptResult = QStringList({QStringLiteral("started")});
        plugin->appSettings.insert(QStringLiteral("/screen/title"), QStringLiteral("Welcome"));
        plugin->email.insert(QStringLiteral("sender"), QStringLiteral("robot@example.com"));
    }

    /// What the robot was asked for, wherever a double keeps it.
    QStringList takeCalls()
    {
        QVector<HostCall> calls =
            plugin->calls + TestTelephone::instance().calls + TestPlatform::instance().calls;
        plugin->calls.clear();
        TestTelephone::instance().calls.clear();
        TestPlatform::instance().calls.clear();
        QStringList texts = plugin->interaction->calls;
        plugin->interaction->calls.clear();
        for (const HostCall &call : qAsConst(calls))
            texts.append(describe(call));
        const auto sendings = TestMailServer::instance().sendings();
        for (const TestMailServer::Sending &sending : sendings)
            texts.append(QStringLiteral("send(%1, %2)").arg(sending.from, sending.to));
        return texts;
    }

    QJsonArray comparableMessages()
    {
        QJsonArray messages;
        const QJsonArray raw = received();
        for (const QJsonValue &message : raw)
            messages.append(comparable(message.toObject()));
        return messages;
    }

    std::unique_ptr<PictureFile> m_picture;

private Q_SLOTS:
    void answersThePage_data();
    void answersThePage();
    void answersQuickRequestsOneAfterTheOther();
    void knowsEachTopicOfThePage();
    void writesWhatThePageLogs();
    void writesWhatThePagePrints();
    void tellsThePageWhatDevicesSignal();
};

void RequestsTest::answersThePage_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QStringList>("calls");
    QTest::addColumn<QByteArray>("messages");
    const auto rows = table();
    for (const Row &row : rows)
        QTest::newRow(row.topic) << row.request << row.calls << row.messages;
}

void RequestsTest::answersThePage()
{
    QFETCH(QByteArray, request);
    QFETCH(QStringList, calls);
    QFETCH(QByteArray, messages);
    const QString topic = QString::fromUtf8(QTest::currentDataTag());
    const QJsonArray expected = QJsonDocument::fromJson('[' + messages + ']').array();
    QVERIFY(messages.isEmpty() != !expected.isEmpty()); // the row is JSON
    const StatisticFiles files(statisticTopic);

    loadRecorder();
    evaluate(QStringLiteral("done = false; robot.sendMessage(Object.assign({type: '%1'}, %2),"
                            " () => { done = true; before = received.length; }); null")
                 .arg(topic, QString::fromUtf8(request)));
    QTRY_COMPARE_WITH_TIMEOUT(evaluate(QStringLiteral("done")).toBool(), true, timeoutMs);
    QTRY_VERIFY_WITH_TIMEOUT(received().size() >= expected.size(), timeoutMs);
    settle(); // nothing else comes
    QCOMPARE(comparableMessages(), expected);
    // What comes later may have come already.
    QVERIFY(evaluate(QStringLiteral("before")).toInt() >= repliesAtOnce(topic, expected));
    QCOMPARE(takeCalls(), calls);
    if (files.isWritable())
        QCOMPARE(files.paths().size(), topic == QLatin1String("system.statistic") ? 1 : 0);
}

void RequestsTest::answersQuickRequestsOneAfterTheOther()
{
    Q_EMIT plugin->printerDevice->signalError(panorel::PrinterStatus::LowPaper, QString());
    Q_EMIT plugin->printerDevice->signalState(PrinterState::Error);
    loadRecorder();
    // The last one is sent while the first one's replies arrive.
    evaluate(QStringLiteral(
        "order = [];"
        "send = (name, type, more) => robot.sendMessage(Object.assign({type}, more),"
        "  () => order.push(name));"
        "robot.message.connect(m => {"
        "  if (m.type === 'printer.paper.low' && !order.length) send('f', 'printer.print');"
        "  order.push(m.type);"
        "});"
        "send('a', 'printer.print');"
        "send('b', 'system.language.set', {language: 'de'});"
        "send('c', 'system.settings.get', {settings_type: 'application', group: 'screen'});"
        "send('d', 'x.y');"
        "send('e', 'keyboard.control.request', {get_locale: 1, is_visible: 1}); null"));
    QTRY_VERIFY_WITH_TIMEOUT(evaluate(QStringLiteral("order.includes('f')")).toBool(), timeoutMs);
    settle(); // nothing else comes
    QCOMPARE(
        evaluate(QStringLiteral("order.filter(name => !/custom/.test(name)).join(' ')")).toString(),
        QStringLiteral("printer.paper.low printer.success a b system.settings.load c d"
                       " keyboard.control.response keyboard.control.response e"
                       " printer.paper.low printer.success f"));
}

void RequestsTest::knowsEachTopicOfThePage()
{
    QStringList topics;
    const auto rows = table();
    for (const Row &row : rows)
        topics.append(QString::fromUtf8(row.topic));
    // Nobody inside listens to these.
    for (const char *free :
         {"cookie.set", "cookie.set.done", "parameters.get", "system.custom.event.js"})
        topics.append(QString::fromUtf8(free));
    topics.sort();
    QStringList expected = topicsKeptInside();
    expected.sort();
    QCOMPARE(topics, expected);
}

void RequestsTest::writesWhatThePageLogs()
{
    loadRecorder();
    log().skipDebug();
    evaluate(QStringLiteral("robot.sendMessage({type: 'system.log', level: 'info',"
                            " message: 'Page ready'}); null"));
    settle();
    const QVector<LogLine> lines = log().take();
    QVERIFY(
        lines.contains({QtInfoMsg, QStringLiteral("panorel"), QStringLiteral("\"Page ready\"")}));
}

void RequestsTest::writesWhatThePagePrints()
{
    if (!m_picture->isWritable())
        QSKIP("The robot's home belongs to somebody else; build with a preset for a desk.");
    loadRecorder();
    // A picture as a page makes it.
    evaluate(QStringLiteral(
        "canvas = document.createElement('canvas'); canvas.width = 40; canvas.height = 30;"
        "canvas.getContext('2d').fillRect(5, 5, 10, 10);"
        "robot.sendMessage({type: 'printer.print', data: canvas.toDataURL('image/png')}); null"));
    settle();
    QCOMPARE(receivedTopics(), QStringList({QStringLiteral("printer.success")}));
    const QImage printed(m_picture->path());
    QCOMPARE(printed.size(), QSize(40, 30));
    QCOMPARE(qAlpha(printed.pixel(1, 1)), 0);
    QCOMPARE(printed.pixel(8, 8), qRgba(0, 0, 0, 255));
}

void RequestsTest::tellsThePageWhatDevicesSignal()
{
    loadRecorder();
    Q_EMIT plugin->dispenser->statusChanged(0x0805);
    Q_EMIT plugin->documentScanner->signalProgress(1.0 / 3);
    Q_EMIT plugin->passportScanner->signalProgress(50); // not told
    Q_EMIT plugin->passportScanner->signalFinish(
        {{QStringLiteral("name"), QStringLiteral("ERIKA")}});
    Q_EMIT plugin->documentScanner->signalError(5, QStringLiteral("jam"));
    settle();
    QCOMPARE(comparableMessages(),
             QJsonDocument::fromJson(R"([
        {"type": "dispenser.card.dispensing"},
        {"type": "dispenser.sensor", "sensor": "DispSensor"},
        {"type": "dispenser.sensor", "sensor": "CaptSensor1"},
        {"type": "scanner.document.progress", "progress": "0.333333"},
        {"type": "scanner.passport.finish", "data": {"name": "ERIKA"}},
        {"type": "scanner.document.error", "code": "5", "text": "jam"}])")
                 .array());
}

QTEST_MAIN(RequestsTest)
#include "tst_requests.moc"
