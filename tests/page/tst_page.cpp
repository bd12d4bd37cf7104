#include "panorel/MessageQueueBrocker.h"
#include "tests/page/PageTestCase.h"
#include "tests/page/StatisticFiles.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/Topics.h"

#include "host/UserData.h"

#include <QJsonArray>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>

using panorel::Message;

/// A server on this machine whose page and script may be kept for an hour.
class CachedSite
{
public:
    CachedSite()
    {
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
            while (QTcpSocket *socket = m_server.nextPendingConnection()) {
                QObject::connect(socket, &QTcpSocket::readyRead, socket,
                                 [this, socket] { answer(socket); });
                QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            }
        });
        if (!m_server.listen(QHostAddress::LocalHost))
            qFatal("no port to listen on");
    }

    QString address() const
    {
        return QStringLiteral("http://127.0.0.1:%1/").arg(m_server.serverPort());
    }

    QList<QByteArray> requests; ///< the paths that were asked for

private:
    void answer(QTcpSocket *socket)
    {
        if (!socket->peek(65536).contains("\r\n\r\n"))
            return;
        const QByteArray path = socket->readAll().split(' ').value(1);
        requests.append(path);
        const bool isScript = path.endsWith(".js");
        const QByteArray body = isScript
            ? QByteArray("document.title = 'scripted';")
            : QByteArray("<!doctype html><script src=\"/kept.js\"></script>");
        socket->write("HTTP/1.1 200 OK\r\nCache-Control: public, max-age=3600\r\n"
                      "Connection: close\r\nContent-Type: "
                      + QByteArray(isScript ? "text/javascript" : "text/html")
                      + "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n"
                      + body);
        socket->disconnectFromHost();
    }

    QTcpServer m_server;
};

/// The real road: a page in the web view, its script, and the robot's side.
class PageTest : public PageTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void showsTheReplyToARequest();
    void returnsFalseToThePage();
    void logsForThePage();
    void receivesEachForwardedTopicOnce();
    void receivesNoOtherTopic();
    void reachesNobodyBeforeDefaultHandlers();
    void receivesOnceAfterASecondDefaultHandlers();
    void matchesTopicsByLetterCase();
    void seesRobotEvents();
    void answersAQuestion();
    void writesAStatistic();
    void loadForgetsTheCache();
    void loadsOneAfterTheOther();
    void theLatestLoadCounts();
    void loadIgnoresItsLaterArguments_data();
    void loadIgnoresItsLaterArguments();
    void worksAgainAfterAReload();
    void survivesAnUnreachableAddress();
    void survivesOddRequests();
    void carriesLargeTexts();
    void mayBeDeletedWhileThePageTalks();
};

void PageTest::showsTheReplyToARequest()
{
    defaultHandlers();
    loadRecorder();
    plugin->scriptResult = QStringList({QStringLiteral("started")});
    evaluate(QStringLiteral(
        "robot.sendMessage({type: 'system.scripts.control', start: 'welcome'}); null"));
    QTRY_COMPARE_WITH_TIMEOUT(
        evaluate(QStringLiteral("document.getElementById('last').textContent")).toString(),
        QStringLiteral("system.scripts.start.result"), timeoutMs);
    const QJsonObject reply = received().first().toObject();
    QCOMPARE(reply.value(QStringLiteral("result")).toArray(),
             QJsonArray({QStringLiteral("started")}));
    QCOMPARE(plugin->calls,
             QVector<HostCall>({{QStringLiteral("scriptStart"), {QStringLiteral("welcome")}}}));
}

void PageTest::returnsFalseToThePage()
{
    defaultHandlers();
    loadRecorder();
    evaluate(QStringLiteral(
        "answer = null; robot.sendMessage({type: 'system.log'}, r => answer = r); null"));
    QTRY_COMPARE_WITH_TIMEOUT(evaluate(QStringLiteral("String(answer)")).toString(),
                              QStringLiteral("false"), timeoutMs);
}

void PageTest::logsForThePage()
{
    defaultHandlers();
    loadRecorder();
    log().take();
    evaluate(QStringLiteral("robot.log_string('x'); robot.log_json('y', {z: 1}); null"));
    settle();
    QCOMPARE(
        log().takeTexts(QStringLiteral("default")),
        QStringList({QStringLiteral("\"x\""), QStringLiteral("\"y\" QJsonObject({\"z\":1})")}));
}

void PageTest::receivesEachForwardedTopicOnce()
{
    makesUpMessages(); // with an attribute of no topic
    defaultHandlers();
    loadRecorder();
    const QStringList topics = forwardedTopics();
    for (const QString &topic : topics)
        screen->brocker()->publish(Message(topic, {{QStringLiteral("n"), 1}}));
    settle();
    QCOMPARE(receivedTopics(), topics);
}

void PageTest::receivesNoOtherTopic()
{
    defaultHandlers();
    loadRecorder();
    const QStringList keptInside = topicsKeptInside();
    for (const QString &topic : keptInside)
        screen->brocker()->publish(Message(topic));
    screen->faceRect({});
    settle();
    // Handlers may have answered, but nothing comes back as it was.
    const QStringList topics = receivedTopics();
    for (const QString &topic : topics)
        QVERIFY2(!keptInside.contains(topic), qPrintable(topic));
}

void PageTest::reachesNobodyBeforeDefaultHandlers()
{
    loadRecorder();
    log().take();
    evaluate(QStringLiteral("answered = false;"
                            "robot.sendMessage({type: 'operator.call.request', call: true},"
                            "                  () => answered = true); null"));
    QTRY_COMPARE_WITH_TIMEOUT(evaluate(QStringLiteral("answered")).toBool(), true, timeoutMs);
    QCOMPARE(log().takeTexts(QStringLiteral("panorel")),
             QStringList({QStringLiteral("QJsonObject({\"call\":true,"
                                         "\"id\":\"{00000000-0000-0000-0000-000000000000}\","
                                         "\"type\":\"operator.call.request\"})")}));
    QVERIFY(plugin->calls.isEmpty());
}

void PageTest::receivesOnceAfterASecondDefaultHandlers()
{
    defaultHandlers();
    loadRecorder();
    defaultHandlers();
    screen->lostUser();
    settle();
    QCOMPARE(receivedTopics(), QStringList({QStringLiteral("user.lost.user")}));
}

void PageTest::matchesTopicsByLetterCase()
{
    defaultHandlers();
    loadRecorder();
    evaluate(QStringLiteral("robot.sendMessage({type: 'system.language.Set', language: 'de'});"
                            "robot.sendMessage({type: 'system.language.set', language: 'en'});"
                            "null"));
    QTRY_COMPARE_WITH_TIMEOUT(plugin->calls.size(), 1, timeoutMs);
    QCOMPARE(plugin->calls,
             QVector<HostCall>({{QStringLiteral("language"), {QStringLiteral("en")}}}));
}

void PageTest::seesRobotEvents()
{
    defaultHandlers();
    loadRecorder();
    FaceInfo face;
    face.setId(7);
    UserData user;
    user.setInfo(face);
    screen->hasUser(user);
    screen->customEvent({{QStringLiteral("type"), QStringLiteral("mine")},
                         {QStringLiteral("id"), 5},
                         {QStringLiteral("extra"), QStringLiteral("e")}});
    screen->operatorResponse(2);
    screen->userSaid(QString(), false);
    screen->userAction({QStringLiteral("a"), QStringLiteral("b")});
    settle();

    const QJsonArray messages = received();
    QCOMPARE(messages.size(), 5);
    const QRegularExpression braced(QStringLiteral("^\\{[0-9a-f-]{36}\\}$"));
    for (const QJsonValue &message : messages) {
        const QString id = message.toObject().value(QStringLiteral("id")).toString();
        QVERIFY2(braced.match(id).hasMatch(), qPrintable(id));
    }
    QCOMPARE(messages.at(0).toObject().value(QStringLiteral("user_id")).toInt(), 7);
    const QJsonObject custom = messages.at(1).toObject();
    QCOMPARE(custom.value(QStringLiteral("type")).toString(),
             QStringLiteral("system.custom.event.core"));
    QCOMPARE(custom.value(QStringLiteral("extra")).toString(), QStringLiteral("e"));
    QCOMPARE(messages.at(2).toObject().value(QStringLiteral("response")),
             QJsonValue(QStringLiteral("2")));
    QCOMPARE(messages.at(3).toObject().value(QStringLiteral("text")), QJsonValue(QString()));
    QCOMPARE(messages.at(3).toObject().value(QStringLiteral("is_finish")), QJsonValue(false));
    QCOMPARE(messages.at(4).toObject().value(QStringLiteral("meta")).toArray(),
             QJsonArray({QStringLiteral("a"), QStringLiteral("b")}));
}

void PageTest::answersAQuestion()
{
    defaultHandlers();
    loadRecorder();
    QString question = QStringLiteral("Tea?");
    QStringList answers{QStringLiteral("Yes"), QStringLiteral("No")};
    QSignalSpy answered(dialog->questionHandler.data(), &QuestionHandler::hasAnswer);
    evaluate(QStringLiteral(
        "robot.message.connect(m => { if (m.type === 'dialog.question.new')"
        "  robot.sendMessage({type: 'dialog.question.answer', text: m.answers[1]}); }); null"));
    dialog->questionHandler->setQuestion(question, answers, false);
    QVERIFY(answered.count() == 1 || answered.wait(timeoutMs));
    QCOMPARE(answered.first().at(1).toString(), QStringLiteral("No"));
}

void PageTest::writesAStatistic()
{
    const StatisticFiles files(QStringLiteral("panorel-test-page"));
    if (!files.isWritable())
        QSKIP("The robot's home belongs to somebody else; build with a preset for a desk.");
    defaultHandlers();
    loadRecorder();
    evaluate(QStringLiteral("robot.sendMessage({type: 'system.statistic',"
                            " topic: 'panorel-test-page', data: ['a;1\\n', 'b;2\\n']}); null"));
    QTRY_COMPARE_WITH_TIMEOUT(files.paths().size(), 1, timeoutMs);
    QFile file(files.paths().constFirst());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("a;1\nb;2\n"));
}

void PageTest::loadForgetsTheCache()
{
    // A page whose script may be kept for an hour, until load() clears the cache.
    CachedSite site;
    const QString address = site.address();
    // How often the script is asked for when a page that wants it is shown; the blank page in
    // between makes sure that only the cache could answer.
    const auto scriptRequests = [&] {
        for (const QString &url : {recorderPage(), address}) {
            QSignalSpy loaded(page(), &QWebEnginePage::loadFinished);
            site.requests.clear();
            page()->load(QUrl(url));
            if (!loaded.wait(timeoutMs))
                QTest::qFail(qPrintable(url), __FILE__, __LINE__);
        }
        return site.requests.count(QByteArray("/kept.js"));
    };
    QCOMPARE(scriptRequests(), 1);
    QCOMPARE(scriptRequests(), 0);
    loadRecorder();
    // The engine clears in the background.
    bool askedAnew = false;
    QTRY_VERIFY_WITH_TIMEOUT(askedAnew = askedAnew || scriptRequests() == 1, timeoutMs);
}

void PageTest::loadsOneAfterTheOther()
{
    // A load that began while the cache was being cleared never ended.
    CachedSite site;
    for (int i = 0; i < 12; ++i) {
        QSignalSpy loaded(page(), &QWebEnginePage::loadFinished);
        screen->load(site.address() + QString::number(i));
        QVERIFY2(loaded.wait(timeoutMs), qPrintable(QString::number(i)));
        QVERIFY(loaded.first().first().toBool());
        QCOMPARE(page()->title(), QStringLiteral("scripted"));
    }
}

void PageTest::theLatestLoadCounts()
{
    loadRecorder();
    CachedSite site;
    QSignalSpy loaded(page(), &QWebEnginePage::loadFinished);
    screen->load(site.address() + QStringLiteral("one"));
    screen->load(site.address() + QStringLiteral("two"));
    QVERIFY(loaded.wait(timeoutMs));
    QCOMPARE(page()->url(), QUrl(site.address() + QStringLiteral("two")));
    QVERIFY(!site.requests.contains("/one"));
}

void PageTest::loadIgnoresItsLaterArguments_data()
{
    QTest::addColumn<QString>("second");
    QTest::addColumn<bool>("third");
    QTest::newRow("empty, false") << QString() << false;
    QTest::newRow("empty, true") << QString() << true;
    QTest::newRow("text, false") << QStringLiteral("http://elsewhere/") << false;
    QTest::newRow("text, true") << QStringLiteral("x") << true;
}

void PageTest::loadIgnoresItsLaterArguments()
{
    QFETCH(QString, second);
    QFETCH(bool, third);
    QSignalSpy loaded(page(), &QWebEnginePage::loadFinished);
    screen->load(recorderPage(), second, third);
    QVERIFY(loaded.wait(timeoutMs));
    QCOMPARE(page()->url(), QUrl(recorderPage()));
    QCOMPARE(page()->title(), QStringLiteral("recorder"));
}

void PageTest::worksAgainAfterAReload()
{
    defaultHandlers();
    loadRecorder();
    screen->lostUser();
    settle();
    loadRecorder();
    QCOMPARE(receivedTopics(), QStringList());
    screen->scriptEnd();
    settle();
    QCOMPARE(receivedTopics(), QStringList({QStringLiteral("system.scripts.end")}));
    evaluate(
        QStringLiteral("robot.sendMessage({type: 'operator.call.request', call: true}); null"));
    QTRY_COMPARE_WITH_TIMEOUT(plugin->calls.size(), 1, timeoutMs);
}

void PageTest::survivesAnUnreachableAddress()
{
    defaultHandlers();
    // A port that nobody listens on: taken and given back.
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    const QString address = QStringLiteral("http://127.0.0.1:%1/").arg(server.serverPort());
    server.close();
    QSignalSpy loaded(page(), &QWebEnginePage::loadFinished);
    screen->load(address);
    QVERIFY(loaded.wait(timeoutMs));
    QVERIFY(!loaded.first().first().toBool());
    screen->lostUser();
    loadRecorder();
}

void PageTest::survivesOddRequests()
{
    defaultHandlers();
    loadRecorder();
    for (const char *argument :
         {"{}", "{type: null}", "{type: {}}", "{type: 5}", "{type: 'x'.repeat(100000)}",
          "{type: 'system.log', level: 'info', message: '\\uD800'}",
          "{type: 'system.log', level: 'info', message: {a: [1]}}",
          "{type: 'system.statistic', topic: '../x', data: ['y']}",
          "{type: 'system.statistic', topic: {}, data: 7}",
          "JSON.parse('{\"__proto__\": {\"a\": 1}}')",
          "{type: 'system.language.set', language: [[[[]]]]}", "'text'", "7", "null", "[]"}) {
        evaluate(QStringLiteral("robot.sendMessage(%1); null").arg(QLatin1String(argument)));
    }
    evaluate(
        QStringLiteral("robot.sendMessage({type: 'operator.call.request', call: true}); null"));
    QTRY_COMPARE_WITH_TIMEOUT(plugin->calls.isEmpty() ? QString() : plugin->calls.last().name,
                              QStringLiteral("operatorCall"), timeoutMs);
    log().drop(QStringLiteral("non-object argument")); // by the web channel
}

void PageTest::carriesLargeTexts()
{
    defaultHandlers();
    loadRecorder();
    const QString text(1000000, QChar(0x00E4));
    QString arrived;
    screen->registerEventHandler(
        QStringLiteral("system.custom.event.js"), [&arrived](const Message &message) {
            arrived = message.attributes().value(QStringLiteral("text")).toString();
        });
    evaluate(QStringLiteral(
        "robot.message.connect(m => { if (m.type === 'dialog.user.said')"
        "  robot.sendMessage({type: 'system.custom.event.js', text: m.text}); }); null"));
    screen->userSaid(text, true);
    QTRY_VERIFY_WITH_TIMEOUT(!arrived.isEmpty(), timeoutMs);
    QVERIFY(arrived == text);
}

void PageTest::mayBeDeletedWhileThePageTalks()
{
    defaultHandlers();
    loadRecorder();
    evaluate(QStringLiteral(
        "talk = () => robot.sendMessage({type: 'operator.call.request', call: true}, talk);"
        "talk(); talk(); null"));
    QTRY_VERIFY_WITH_TIMEOUT(plugin->calls.size() > 20, timeoutMs);
    screen.reset();
    const int calls = plugin->calls.size();
    turnEventLoop();
    QCOMPARE(plugin->calls.size(), calls);
}

QTEST_MAIN(PageTest)
#include "tst_page.moc"
