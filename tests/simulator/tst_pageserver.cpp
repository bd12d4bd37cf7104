#include "simulator/server/PageServer.h"

#include "simulator/server/BrowserConnections.h"
#include "simulator/server/BrowserTransport.h"
#include "simulator/server/ConnectionSorter.h"
#include "simulator/server/HttpService.h"
#include "tests/support/TestCase.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QUrlQuery>
#include <QWebSocket>
#include <QWebSocketServer>

using simulator::PageServer;

/// What a page reaches.
class Speaker : public QObject
{
    Q_OBJECT

public:
    QStringList heard;
    int listeners() const { return receivers(SIGNAL(spoke(QString))); }

Q_SIGNALS:
    // NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): moc has names of its own
    void spoke(const QString &text);

public Q_SLOTS:
    void hear(const QString &text) { heard.append(text); }
};

/// The server over real sockets. What a browser makes of it is tested elsewhere.
class PageServerTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void answers_data();
    void answers();
    void sendsAPageToWhoeverHasTheToken();
    void sendsALargeFile();
    void sendsNoBodyForHead();
    void answersSeveralRequestsOfAConnection();
    void answersARequestThatComesInPieces();
    void refusesALargeBody();
    void survivesGarbage_data();
    void survivesGarbage();
    void closesWhoKeepsSilent();
    void isNotLockedUpBySilence();
    void sendsRefusedOnesAway();
    void servesManyAtOnce();
    void opensAChannel();
    void refusesAChannel_data();
    void refusesAChannel();
    void refusesForeignPages();
    void letsAllowedOriginsIn();
    void endsAChannelThatSpeaksNoJson();
    void givesEachBrowserItsOwnEvents();
    void letsOneBrowserInAtATime();
    void countsBrowsersThatBreakOff();
    void letsGoOfABrowserThatTakesNothingIn();
    void letsGoOfABrowserThatVanished();
    void endsAHandshakeThatStopsHalfWay();
    void namesItsAddress_data();
    void namesItsAddress();
    void saysWhenThePortIsTaken();
    void endsWithConnectionsOpen();

protected:
    void setUp() override
    {
        m_folder.reset(new QTemporaryDir);
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("sub")));
        write(QStringLiteral("index.html"), "<h1>page</h1>");
        write(QStringLiteral("style.css"), "h1 {}");
        write(QStringLiteral("sub/index.html"), "sub");
        m_settings = {};
        m_settings.folder = m_folder->path();
        m_settings.token = QStringLiteral("secret");
        start();
    }
    void tearDown() override
    {
        m_server.reset();
        m_folder.reset();
    }

private:
    struct Answer
    {
        int status = 0;
        QByteArray head;
        QByteArray body;
    };

    template <typename Condition>
    static void waitFor(const Condition &condition)
    {
        if (!QTest::qWaitFor(condition))
            QTest::qFail("waited in vain", __FILE__, __LINE__);
    }
    void write(const QString &name, const QByteArray &text)
    {
        QFile file(m_folder->filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    void start()
    {
        m_server.reset(new PageServer(m_settings, {{QStringLiteral("speaker"), &m_speaker}}));
        QVERIFY2(m_server->listen(), qPrintable(m_server->problem()));
        m_port = static_cast<quint16>(m_server->address().port());
    }
    QByteArray host() const { return "Host: 127.0.0.1:" + QByteArray::number(m_port) + "\r\n"; }
    /// Sends @p request as it is and reads until the server closes or as much as it announced.
    Answer send(const QByteArray &request)
    {
        QTcpSocket socket;
        socket.connectToHost(QHostAddress::LocalHost, m_port);
        if (!QTest::qWaitFor([&] { return socket.state() == QTcpSocket::ConnectedState; }))
            return {};
        socket.write(request);
        return read(socket);
    }
    static Answer read(QTcpSocket &socket)
    {
        QEventLoop loop;
        connect(&socket, &QTcpSocket::readyRead, &loop, &QEventLoop::quit);
        connect(&socket, &QTcpSocket::disconnected, &loop, &QEventLoop::quit);
        QTimer limit;
        connect(&limit, &QTimer::timeout, &loop, &QEventLoop::quit);
        limit.start(10000);

        Answer answer;
        int length = -1;
        while (limit.isActive() && (length < 0 || answer.body.size() < length)) {
            answer.body += socket.readAll();
            const int end = length < 0 ? answer.body.indexOf("\r\n\r\n") : -1;
            if (end >= 0) {
                answer.head = answer.body.left(end);
                answer.body.remove(0, end + 4);
                answer.status = answer.head.mid(9, 3).toInt();
                const int at = answer.head.indexOf("Content-Length: ");
                length = at < 0 ? 0 : answer.head.mid(at + 16).split('\r').first().toInt();
            } else if (socket.bytesAvailable() == 0) {
                if (socket.state() == QTcpSocket::UnconnectedState)
                    break;
                loop.exec();
            }
        }
        return answer;
    }
    Answer get(const QByteArray &path, const QByteArray &headers = {})
    {
        return send("GET " + path + " HTTP/1.1\r\n" + host() + headers
                    + "Connection: close\r\n\r\n");
    }
    static QByteArray cookieOf(const Answer &answer)
    {
        const int start = answer.head.indexOf("Set-Cookie: ");
        return start < 0 ? QByteArray() : answer.head.mid(start + 12).split(';').first();
    }

    QUrl channelAddress(const QString &token = QStringLiteral("secret")) const
    {
        QUrl url(QStringLiteral("ws://127.0.0.1:%1/channel").arg(m_port));
        QUrlQuery query;
        query.addQueryItem(QStringLiteral("token"), token);
        url.setQuery(query);
        return url;
    }
    /// A browser with the channel's first answer; it hears what the speaker says.
    std::unique_ptr<QWebSocket> browser(const QString &origin = {})
    {
        auto socket = std::make_unique<QWebSocket>(origin);
        QSignalSpy texts(socket.get(), &QWebSocket::textMessageReceived);
        const int before = m_server->browsers();
        socket->open(channelAddress());
        waitFor([&] {
            return m_server->browsers() > before
                && socket->state() == QAbstractSocket::ConnectedState;
        });
        socket->sendTextMessage(QStringLiteral(R"({"type": 3, "id": 1})"));
        waitFor([&] { return !texts.isEmpty(); });
        const QJsonObject objects =
            QJsonDocument::fromJson(texts.value(0).value(0).toString().toUtf8())
                .object()
                .value(QStringLiteral("data"))
                .toObject();
        const QJsonArray signalList = objects.value(QStringLiteral("speaker"))
                                          .toObject()
                                          .value(QStringLiteral("signals"))
                                          .toArray();
        for (const QJsonValue &one : signalList) {
            if (one.toArray().at(0).toString() == QLatin1String("spoke"))
                m_spoke = one.toArray().at(1).toInt();
        }
        socket->sendTextMessage(
            QStringLiteral(R"({"type": 7, "object": "speaker", "signal": %1})").arg(m_spoke));
        // Once this is answered, the server has read all of it.
        socket->sendTextMessage(QStringLiteral(
            R"({"type": 6, "object": "speaker", "method": "hear", "args": [""], "id": 2})"));
        waitFor([&] { return texts.size() == 2; });
        m_speaker.heard.clear();
        return socket;
    }

    Speaker m_speaker;
    int m_spoke = -1;
    quint16 m_port = 0;
    PageServer::Settings m_settings;
    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<PageServer> m_server;
};

void PageServerTest::answers_data()
{
    QTest::addColumn<QByteArray>("request"); // what stands before the host
    QTest::addColumn<QByteArray>("headers");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("head");
    const auto row = [](const char *name, const char *request, const char *headers, int status,
                        const char *head) {
        QTest::newRow(name) << QByteArray(request) << QByteArray(headers) << status
                            << QByteArray(head);
    };
    row("page", "GET /?token=secret", "", 200, "Content-Type: text/html; charset=utf-8");
    row("file", "GET /style.css?token=secret", "", 200, "Content-Type: text/css");
    row("not to be kept", "GET /?token=secret", "", 200, "Cache-Control: no-store");
    row("token stays here", "GET /?token=secret", "", 200, "Referrer-Policy: no-referrer");
    row("type is meant", "GET /?token=secret", "", 200, "X-Content-Type-Options: nosniff");
    row("folder", "GET /sub?token=secret", "", 308, "Location: /sub/");
    row("no token", "GET /", "", 403, "text/plain");
    row("wrong token", "GET /?token=Secret", "", 403, "text/plain");
    row("no token, no file", "GET /none", "", 403, "text/plain");
    row("no file", "GET /none?token=secret", "", 404, "text/plain");
    row("outside", "GET /../../etc/passwd?token=secret", "", 404, "text/plain");
    row("outside, encoded", "GET /%2e%2e/%2e%2e/etc/passwd?token=secret", "", 404, "text/plain");
    row("NUL", "GET /style.css%00.html?token=secret", "", 200, "Content-Type: text/css");
    row("icon", "GET /favicon.ico?token=secret", "", 204, "204");
    row("web channel", "GET /qwebchannel.js", "", 200, "Content-Type: text/javascript");
    row("post", "POST /?token=secret", "Content-Length: 2\r\n", 405, "Allow: GET, HEAD");
    row("no channel", "GET /channels?token=secret", "", 404, "text/plain");
    row("no controls", "GET /robot/state?token=secret", "", 404, "text/plain");
}

void PageServerTest::answers()
{
    QFETCH(QByteArray, request);
    QFETCH(QByteArray, headers);
    QFETCH(QByteArray, head);
    const Answer answer =
        send(request + " HTTP/1.1\r\n" + host() + headers + "Connection: close\r\n\r\nxx");
    QTEST(answer.status, "status");
    QVERIFY2(answer.head.contains(head), answer.head.constData());
    QVERIFY(answer.status != 403 || cookieOf(answer).isEmpty());

    // The same from a page whose name was made to lead here.
    const Answer elsewhere = send(request + " HTTP/1.1\r\nHost: evil.example\r\n" + headers
                                  + "Connection: close\r\n\r\nxx");
    QCOMPARE(elsewhere.status, 421);
}

void PageServerTest::sendsAPageToWhoeverHasTheToken()
{
    const Answer page = get("/?token=secret");
    QCOMPARE(page.body, QByteArray("<h1>page</h1>"));
    QVERIFY(!cookieOf(page).isEmpty());
    QCOMPARE(get("/style.css", "Cookie: " + cookieOf(page) + "\r\n").body, QByteArray("h1 {}"));
    QCOMPARE(get("/style.css", "Cookie: " + cookieOf(page) + "x\r\n").status, 403);
    QVERIFY(get("/qwebchannel.js").body.contains("QWebChannel"));
}

void PageServerTest::sendsALargeFile()
{
    const QByteArray large(20 * 1024 * 1024, 'x');
    write(QStringLiteral("large.bin"), large);
    QVERIFY(get("/large.bin?token=secret").body == large);
}

void PageServerTest::sendsNoBodyForHead()
{
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, m_port);
    socket.write("HEAD /?token=secret HTTP/1.1\r\n" + host() + "Connection: close\r\n\r\n");
    QSignalSpy closed(&socket, &QTcpSocket::disconnected);
    QTRY_COMPARE(closed.size(), 1);
    const QByteArray text = socket.readAll();
    QVERIFY(text.startsWith("HTTP/1.1 200"));
    QVERIFY(text.contains("Content-Length: 13"));
    QVERIFY(text.endsWith("\r\n\r\n"));
}

void PageServerTest::answersSeveralRequestsOfAConnection()
{
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, m_port);
    for (int i = 0; i < 3; ++i) {
        socket.write("GET /style.css?token=secret HTTP/1.1\r\n" + host() + "\r\n");
        QCOMPARE(read(socket).body, QByteArray("h1 {}"));
    }
    QCOMPARE(socket.state(), QTcpSocket::ConnectedState);
}

void PageServerTest::answersARequestThatComesInPieces()
{
    QTcpSocket socket;
    socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    socket.connectToHost(QHostAddress::LocalHost, m_port);
    const QByteArray request = "GET /style.css?token=secret HTTP/1.1\r\n" + host() + "\r\n";
    for (const char &letter : request) {
        socket.write(&letter, 1);
        QTest::qWait(1);
    }
    QCOMPARE(read(socket).body, QByteArray("h1 {}"));
}

void PageServerTest::refusesALargeBody()
{
    const QByteArray large(simulator::HttpService::MaximumBody + 1, 'x');
    QCOMPARE(send("POST /robot/enter?token=secret HTTP/1.1\r\n" + host()
                  + "Content-Length: " + QByteArray::number(large.size()) + "\r\n\r\n" + large)
                 .status,
             413);
}

void PageServerTest::survivesGarbage_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("zeros") << QByteArray(1000, '\0');
    QTest::newRow("no end") << QByteArray(100000, 'A');
    QTest::newRow("TLS") << QByteArray::fromHex("16030100f8010000f403030000000000000000000000");
    QTest::newRow("header without end") << "GET / HTTP/1.1\r\nX: " + QByteArray(100000, 'A');
    QTest::newRow("many headers") << "GET / HTTP/1.1\r\n" + QByteArray("X: y\r\n").repeated(10000);
    QTest::newRow("channel without upgrade")
        << QByteArray("GET /channel?token=secret HTTP/1.1\r\n\r\n");
    QTest::newRow("channel and no more") << QByteArray("GET /channel?");
    QTest::newRow("channel, garbage") << "GET /channel " + QByteArray(100000, '\xff');
    QTest::newRow("negative length") << QByteArray("POST / HTTP/1.1\r\nContent-Length: -5\r\n\r\n");
}

void PageServerTest::survivesGarbage()
{
    QFETCH(QByteArray, bytes);
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, m_port);
    socket.write(bytes);
    QTRY_VERIFY(socket.bytesToWrite() == 0 || socket.state() != QTcpSocket::ConnectedState);
    QTest::qWait(20);
    socket.abort();
    QCOMPARE(get("/?token=secret").status, 200);
    QCOMPARE(m_server->browsers(), 0);
}

void PageServerTest::closesWhoKeepsSilent()
{
    simulator::ConnectionSorter sorter;
    sorter.setPatience(50);
    QVERIFY(sorter.listen(QHostAddress::LocalHost));
    int pages = 0;
    connect(&sorter, &simulator::ConnectionSorter::pageAsked, this, [&pages] { ++pages; });
    for (const char *word : {"", "GET /"}) {
        QTcpSocket socket;
        socket.connectToHost(QHostAddress::LocalHost, sorter.serverPort());
        socket.write(word);
        QSignalSpy closed(&socket, &QTcpSocket::disconnected);
        QTRY_COMPARE(closed.size(), 1);
    }
    QCOMPARE(pages, 0);
}

void PageServerTest::isNotLockedUpBySilence()
{
    std::vector<std::unique_ptr<QTcpSocket>> silent;
    for (int i = 0; i < 100; ++i) {
        silent.push_back(std::make_unique<QTcpSocket>());
        silent.back()->connectToHost(QHostAddress::LocalHost, m_port);
    }
    QTRY_VERIFY(silent.back()->state() == QTcpSocket::ConnectedState);
    QCOMPARE(get("/?token=secret").status, 200);
    QTRY_COMPARE(silent.front()->state(), QTcpSocket::UnconnectedState);
    QCOMPARE(silent.back()->state(), QTcpSocket::ConnectedState);
}

void PageServerTest::sendsRefusedOnesAway()
{
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, m_port);
    socket.write("GET / HTTP/1.1\r\n" + host() + "\r\n");
    QCOMPARE(read(socket).status, 403);
    QTRY_COMPARE(socket.state(), QTcpSocket::UnconnectedState);
}

void PageServerTest::servesManyAtOnce()
{
    std::vector<std::unique_ptr<QTcpSocket>> sockets;
    for (int i = 0; i < 50; ++i) {
        sockets.push_back(std::make_unique<QTcpSocket>());
        sockets.back()->connectToHost(QHostAddress::LocalHost, m_port);
        sockets.back()->write("GET /style.css?token=secret HTTP/1.1\r\n" + host() + "\r\n");
    }
    for (const auto &socket : sockets)
        QCOMPARE(read(*socket).body, QByteArray("h1 {}"));
}

void PageServerTest::opensAChannel()
{
    QSignalSpy counts(m_server.data(), &PageServer::browsersChanged);
    const auto socket = browser();
    QCOMPARE(counts.value(0).value(0).toInt(), 1);
    QVERIFY(m_spoke >= 0);

    QSignalSpy texts(socket.get(), &QWebSocket::textMessageReceived);
    socket->sendTextMessage(QStringLiteral(
        R"({"type": 6, "object": "speaker", "method": "hear", "args": ["hi"], "id": 2})"));
    QTRY_COMPARE(m_speaker.heard, QStringList{QStringLiteral("hi")});
    m_speaker.heard.clear();
    Q_EMIT m_speaker.spoke(QString::fromUtf8("hallo, 世界"));
    QTRY_VERIFY(texts.size() >= 2);
    QVERIFY(texts.last().at(0).toString().contains(QString::fromUtf8("hallo, 世界")));
}

void PageServerTest::refusesAChannel_data()
{
    QTest::addColumn<QString>("token");
    QTest::newRow("none") << QString();
    QTest::newRow("wrong") << QStringLiteral("Secret");
    QTest::newRow("encoded otherwise") << QStringLiteral("%2573ecret");
}

void PageServerTest::refusesAChannel()
{
    QFETCH(QString, token);
    QSignalSpy refused(m_server.data(), &PageServer::refused);
    QWebSocket socket;
    QSignalSpy ended(&socket, &QWebSocket::disconnected);
    QSignalSpy texts(&socket, &QWebSocket::textMessageReceived);
    socket.open(channelAddress(token));
    QTRY_COMPARE(ended.size(), 1);
    QCOMPARE(socket.closeCode(), QWebSocketProtocol::CloseCodePolicyViolated);
    QVERIFY(socket.closeReason().contains(QStringLiteral("token")));
    QCOMPARE(refused.size(), 1);
    QCOMPARE(texts.size(), 0);
    QCOMPARE(m_server->browsers(), 0);
}

void PageServerTest::refusesForeignPages()
{
    QSignalSpy refused(m_server.data(), &PageServer::refused);
    QWebSocket socket(QStringLiteral("http://evil.example"));
    QSignalSpy connected(&socket, &QWebSocket::connected);
    socket.open(channelAddress());
    QTRY_COMPARE(refused.size(), 1);
    QTRY_COMPARE(socket.state(), QAbstractSocket::UnconnectedState);
    QVERIFY(refused.at(0).at(0).toString().contains(
        QStringLiteral("--allow-origin http://evil.example")));
    QCOMPARE(connected.size(), 0);
}

void PageServerTest::letsAllowedOriginsIn()
{
    m_settings.origins = QStringList{QStringLiteral("http://localhost:5173")};
    start();
    const auto bundler = browser(QStringLiteral("http://localhost:5173"));
    const auto own = browser(QStringLiteral("http://localhost:%1").arg(m_port));
    QCOMPARE(m_server->browsers(), 2);
}

void PageServerTest::endsAChannelThatSpeaksNoJson()
{
    for (const char *text : {"", "hello", "[]", "{\"type\": 3", "3"}) {
        const auto socket = browser();
        QSignalSpy ended(socket.get(), &QWebSocket::disconnected);
        socket->sendTextMessage(QString::fromLatin1(text));
        QTRY_COMPARE(ended.size(), 1);
        QCOMPARE(socket->closeCode(), QWebSocketProtocol::CloseCodeWrongDatatype);
    }
    QTRY_COMPARE(m_server->browsers(), 0);
}

void PageServerTest::givesEachBrowserItsOwnEvents()
{
    const auto one = browser();
    const auto two = browser();
    QCOMPARE(m_server->browsers(), 2);
    QSignalSpy heardByOne(one.get(), &QWebSocket::textMessageReceived);
    QSignalSpy heardByTwo(two.get(), &QWebSocket::textMessageReceived);
    Q_EMIT m_speaker.spoke(QStringLiteral("both"));
    QTRY_COMPARE(heardByOne.size(), 1);
    QTRY_COMPARE(heardByTwo.size(), 1);

    one->abort();
    QTRY_COMPARE(m_server->browsers(), 1);
    Q_EMIT m_speaker.spoke(QStringLiteral("one"));
    QTRY_COMPARE(heardByTwo.size(), 2);
}

void PageServerTest::letsOneBrowserInAtATime()
{
    m_settings.singleBrowser = true;
    start();
    auto first = browser();
    QWebSocket second;
    QSignalSpy ended(&second, &QWebSocket::disconnected);
    second.open(channelAddress());
    QTRY_COMPARE(ended.size(), 1);
    QCOMPARE(second.closeCode(), QWebSocketProtocol::CloseCodePolicyViolated);
    QVERIFY(second.closeReason().contains(QStringLiteral("Another browser")));
    QCOMPARE(m_server->browsers(), 1);

    first.reset();
    QTRY_COMPARE(m_server->browsers(), 0);
    const auto third = browser();
    QCOMPARE(m_server->browsers(), 1);
}

void PageServerTest::countsBrowsersThatBreakOff()
{
    for (int i = 0; i < 20; ++i) {
        const auto socket = browser();
        QCOMPARE(m_server->browsers(), 1);
        if (i % 2)
            socket->abort();
        else
            socket->close();
        QTRY_COMPARE(m_server->browsers(), 0);
    }
    QCOMPARE(m_speaker.listeners(), 0);
}

void PageServerTest::letsGoOfABrowserThatTakesNothingIn()
{
    QWebSocketServer server(QStringLiteral("test"), QWebSocketServer::NonSecureMode);
    QVERIFY(server.listen(QHostAddress::LocalHost));
    QTcpSocket browser; // reads nothing after the handshake, so that the kernel's buffers fill
    browser.setReadBufferSize(1);
    browser.connectToHost(QHostAddress::LocalHost, server.serverPort());
    browser.write("GET / HTTP/1.1\r\nHost: localhost\r\nUpgrade: websocket\r\n"
                  "Connection: Upgrade\r\nSec-WebSocket-Version: 13\r\n"
                  "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n\r\n");
    QTRY_VERIFY(server.hasPendingConnections());
    const std::unique_ptr<QWebSocket> socket(server.nextPendingConnection());
    QSignalSpy ended(socket.get(), &QWebSocket::disconnected);
    simulator::BrowserTransport transport(socket.get());
    transport.setMaximumBacklog(qint64{1024} * 1024);

    const QJsonObject message{{QStringLiteral("text"), QString(100000, QLatin1Char('x'))}};
    for (int i = 0; i < 1000 && ended.isEmpty(); ++i) {
        transport.sendMessage(message);
        QCoreApplication::processEvents();
        QVERIFY(socket->bytesToWrite() < qint64{2} * 1024 * 1024);
    }
    QCOMPARE(ended.size(), 1);
    transport.sendMessage(message); // of no effect
}

void PageServerTest::letsGoOfABrowserThatVanished()
{
    const simulator::AccessRules rules(QHostAddress(QHostAddress::LocalHost), 1, {});
    simulator::BrowserConnections browsers({}, &rules);
    browsers.setPingTime(100);
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    const auto connectTo = [&](QTcpSocket &browser) {
        browser.connectToHost(QHostAddress::LocalHost, server.serverPort());
        browser.write("GET /channel?token= HTTP/1.1\r\nHost: localhost\r\nUpgrade: websocket\r\n"
                      "Connection: Upgrade\r\nSec-WebSocket-Version: 13\r\n"
                      "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n\r\n");
        if (QTest::qWaitFor([&] { return server.hasPendingConnections(); }))
            browsers.take(server.nextPendingConnection());
    };
    QTcpSocket mute; // answers no ping
    connectTo(mute);
    QTRY_COMPARE(browsers.count(), 1);
    QTRY_COMPARE(browsers.count(), 0);
    QTRY_COMPARE(mute.state(), QTcpSocket::UnconnectedState);

    QWebSocket alive;
    alive.open(QUrl(QStringLiteral("ws://127.0.0.1:%1/channel?token=").arg(server.serverPort())));
    QTRY_VERIFY(server.hasPendingConnections());
    browsers.take(server.nextPendingConnection());
    QTRY_COMPARE(browsers.count(), 1);
    QTest::qWait(500);
    QCOMPARE(browsers.count(), 1);
}

void PageServerTest::endsAHandshakeThatStopsHalfWay()
{
    const simulator::AccessRules rules(QHostAddress(QHostAddress::LocalHost), 1, {});
    simulator::BrowserConnections browsers({}, &rules);
    browsers.setHandshakeTime(100);
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    QTcpSocket half;
    half.connectToHost(QHostAddress::LocalHost, server.serverPort());
    half.write("GET /channel?token= HTTP/1.1\r\n");
    QTRY_VERIFY(server.hasPendingConnections());
    browsers.take(server.nextPendingConnection());
    QTRY_COMPARE(half.state(), QTcpSocket::UnconnectedState);

    // A whole one has no such limit.
    QWebSocket whole;
    whole.open(QUrl(QStringLiteral("ws://127.0.0.1:%1/channel?token=").arg(server.serverPort())));
    QTRY_VERIFY(server.hasPendingConnections());
    browsers.take(server.nextPendingConnection());
    QTRY_COMPARE(browsers.count(), 1);
    QTest::qWait(300);
    QCOMPARE(browsers.count(), 1);
}

void PageServerTest::namesItsAddress_data()
{
    QTest::addColumn<QString>("listen");
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("address");
    QTest::newRow("loopback") << QStringLiteral("127.0.0.1") << QString()
                              << QStringLiteral("http://127.0.0.1:PORT/?token=secret");
    QTest::newRow("file") << QStringLiteral("127.0.0.1") << QStringLiteral("a b.html")
                          << QStringLiteral("http://127.0.0.1:PORT/a%20b.html?token=secret");
    QTest::newRow("IPv6") << QStringLiteral("::1") << QString()
                          << QStringLiteral("http://[::1]:PORT/?token=secret");
    QTest::newRow("everywhere") << QStringLiteral("0.0.0.0") << QString()
                                << QStringLiteral("http://127.0.0.1:PORT/?token=secret");
}

void PageServerTest::namesItsAddress()
{
    QFETCH(QString, listen);
    QFETCH(QString, address);
    QFETCH(QString, page);
    QTcpServer trial;
    if (!trial.listen(QHostAddress(listen)))
        QSKIP("This machine has no IPv6, so nothing can listen at ::1.");
    m_settings.address = QHostAddress(listen);
    m_settings.page = page;
    start();
    QCOMPARE(m_server->address().toString(QUrl::FullyEncoded),
             address.replace(QStringLiteral("PORT"), QString::number(m_port)));
}

void PageServerTest::saysWhenThePortIsTaken()
{
    m_settings.port = m_port;
    PageServer second(m_settings, {});
    QVERIFY(!second.listen());
    QVERIFY2(second.problem().contains(QString::number(m_port)), qPrintable(second.problem()));
    QVERIFY(second.problem().contains(QStringLiteral("--port")));
}

void PageServerTest::endsWithConnectionsOpen()
{
    const auto channel = browser();
    QTcpSocket idle;
    idle.connectToHost(QHostAddress::LocalHost, m_port);
    QTcpSocket page;
    page.connectToHost(QHostAddress::LocalHost, m_port);
    page.write("GET /style.css?token=secret HTTP/1.1\r\n" + host() + "\r\n");
    QCOMPARE(read(page).status, 200);
    QSignalSpy ended(channel.get(), &QWebSocket::disconnected);
    m_server.reset();
    QTRY_COMPARE(ended.size(), 1);
    QTRY_COMPARE(idle.state(), QTcpSocket::UnconnectedState);
    QTRY_COMPARE(page.state(), QTcpSocket::UnconnectedState);
}

QTEST_GUILESS_MAIN(PageServerTest)
#include "tst_pageserver.moc"
