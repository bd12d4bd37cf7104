#include "panorel/PanorelMessageHandler.h"
#include "panorel/PanorelProxy.h"
#include "panorel/PanorelQueueBrocker.h"
#include "panorel/PrinterStatus.h"
#include "panorel/handlers/GetSettingHandler.h"
#include "panorel/handlers/KeyboardControlHandler.h"
#include "panorel/handlers/LanguageHandler.h"
#include "panorel/handlers/PrintHandler.h"
#include "tests/support/PictureFile.h"
#include "tests/support/TestCase.h"
#include "tests/support/TestPlugin.h"
#include "tests/support/Topics.h"

#include <QFile>
#include <QJSEngine>
#include <QJsonArray>
#include <QJsonDocument>
#include <QWebChannel>
#include <QWebChannelAbstractTransport>

using panorel::Message;
using panorel::PanorelMessageHandler;
using panorel::PanorelProxy;
using panorel::PanorelQueueBrocker;

/// Carries web channel messages between C++ and a script, as text, the way a page gets them.
class ScriptTransport : public QWebChannelAbstractTransport
{
    Q_OBJECT

public:
    explicit ScriptTransport(QJSEngine *engine)
        : m_engine(engine)
    { }

    void sendMessage(const QJsonObject &message) override
    {
        sent.append(message);
        const QString data = QString::fromUtf8(QJsonDocument(message).toJson());
        QJSValue transport = m_engine->globalObject().property(QStringLiteral("transport"));
        QJSValue event = m_engine->newObject();
        event.setProperty(QStringLiteral("data"), data);
        const QJSValue result = transport.property(QStringLiteral("onmessage")).call({event});
        if (result.isError())
            QFAIL(qPrintable(result.toString()));
    }

    Q_INVOKABLE void send(const QString &data)
    {
        Q_EMIT messageReceived(QJsonDocument::fromJson(data.toUtf8()).object(), this);
    }

    QList<QJsonObject> sent;

private:
    QJSEngine *m_engine;
};

class BridgeTest : public TestCase
{
    Q_OBJECT

private:
    void setUp() override
    {
        m_brocker = std::make_unique<PanorelQueueBrocker>();
        m_proxy = std::make_unique<PanorelProxy>(m_brocker.get());
        new PanorelMessageHandler(m_proxy.get());
        m_channel = std::make_unique<QWebChannel>();
        m_channel->registerObject(QStringLiteral("_karvel_internal"), m_proxy.get());

        m_engine = std::make_unique<QJSEngine>();
        m_engine->installExtensions(QJSEngine::ConsoleExtension);
        auto *transport = new ScriptTransport(m_engine.get());
        transport->setParent(m_engine.get());
        m_transport = transport;
        m_engine->globalObject().setProperty(QStringLiteral("transport"),
                                             m_engine->newQObject(transport));
        QFile client(QStringLiteral(":/qtwebchannel/qwebchannel.js"));
        QVERIFY(client.open(QIODevice::ReadOnly));
        run(QString::fromUtf8(client.readAll()));
        m_channel->connectTo(transport);
        run(QStringLiteral(
            "var wire = {send: function(data) { transport.send(data); }};"
            "Object.defineProperty(wire, 'onmessage', {"
            "  set: function(f) { transport.onmessage = f; }, get: function() { return null; }});"
            "var robot = null; var received = []; var answers = [];"
            "new QWebChannel(wire, function(channel) {"
            "  robot = channel.objects._karvel_internal;"
            "  robot.message.connect(function(message) { received.push(message); });"
            "});"));
        QCOMPARE(run(QStringLiteral("robot !== null")).toBool(), true);
        log().skipDebug();
    }

    void tearDown() override
    {
        m_channel.reset();
        m_engine.reset();
        m_brocker.reset();
        m_proxy.reset();
        m_plugin.reset();
        m_picture.reset();
    }

    /// Handlers of the library, and a robot whose printer has little paper.
    void createHandlers()
    {
        m_picture = std::make_unique<PictureFile>();
        m_plugin = std::make_unique<TestPlugin>();
        m_plugin->printerDevice = QSharedPointer<TestPrinter>::create(&m_plugin->calls);
        m_plugin->keyboardDevice = QSharedPointer<TestKeyboard>::create(&m_plugin->calls);
        const auto subscribe = [this](auto *handler) {
            m_brocker->subscribe(handler->topic(), handler);
        };
        subscribe(new panorel::PrintHandler(m_plugin.get(), m_brocker.get()));
        subscribe(new panorel::GetSettingHandler(m_plugin.get(), m_brocker.get()));
        subscribe(new panorel::KeyboardControlHandler(m_plugin.get(), m_brocker.get()));
        subscribe(new panorel::LanguageHandler(m_plugin.get()));
        Q_EMIT m_plugin->printerDevice->signalError(panorel::PrinterStatus::LowPaper, QString());
        Q_EMIT m_plugin->printerDevice->signalState(PrinterState::Error);
    }

    QJSValue run(const QString &script)
    {
        QJSValue result = m_engine->evaluate(script);
        if (result.isError())
            QTest::qFail(qPrintable(result.toString()), __FILE__, __LINE__);
        return result;
    }
    QJsonDocument json(const QString &expression)
    {
        return QJsonDocument::fromJson(
            run(QStringLiteral("JSON.stringify(%1)").arg(expression)).toString().toUtf8());
    }

    std::unique_ptr<PanorelQueueBrocker> m_brocker;
    std::unique_ptr<PanorelProxy> m_proxy;
    std::unique_ptr<QWebChannel> m_channel;
    std::unique_ptr<QJSEngine> m_engine;
    ScriptTransport *m_transport = nullptr;
    std::unique_ptr<TestPlugin> m_plugin;
    std::unique_ptr<PictureFile> m_picture;

private Q_SLOTS:
    void offersSignalAndSlots();
    void handlesARequestBeforeItReturns();
    void returnsFalse();
    void deliversRepliesBeforeTheReturn_data();
    void deliversRepliesBeforeTheReturn();
    void answersQuickRequestsOneAfterTheOther();
    void deliversEachForwardedTopicOnce();
    void keepsOtherTopicsInside();
    void deliversTheWholeEnvelope();
    void logsForThePage();
    void survivesArgumentsOfTheWrongKind_data();
    void survivesArgumentsOfTheWrongKind();
    void keepsUnusualTexts_data();
    void keepsUnusualTexts();
};

void BridgeTest::offersSignalAndSlots()
{
    QCOMPARE(run(QStringLiteral("typeof robot.message.connect")).toString(),
             QStringLiteral("function"));
    for (const char *slot : {"sendMessage", "log_json", "log_string"}) {
        QCOMPARE(run(QStringLiteral("typeof robot.") + QLatin1String(slot)).toString(),
                 QStringLiteral("function"));
    }
}

void BridgeTest::handlesARequestBeforeItReturns()
{
    QVariantMap attributes;
    m_brocker->subscribe(QStringLiteral("system.language.set"),
                         [&attributes](const Message &m) { attributes = m.attributes(); });
    run(QStringLiteral("robot.sendMessage({type: 'system.language.set', language: 'en'})"));
    QCOMPARE(attributes.value(QStringLiteral("language")).toString(), QStringLiteral("en"));
    QVERIFY(!attributes.contains(QStringLiteral("type")));
}

void BridgeTest::returnsFalse()
{
    run(QStringLiteral("robot.sendMessage({type: 'x.y'}, function(r) { answers.push(r); });"
                       "robot.sendMessage({}, function(r) { answers.push(r); });"));
    QCOMPARE(json(QStringLiteral("answers")).array(), QJsonArray({false, false}));
}

void BridgeTest::deliversRepliesBeforeTheReturn_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QStringList>("replies");
    const auto row = [](const char *name, const char *request, const QStringList &replies) {
        QTest::newRow(name) << QString::fromUtf8(request) << replies;
    };
    row("two topics", "{type: 'printer.print'}",
        {QStringLiteral("printer.paper.low"), QStringLiteral("printer.success")});
    row("one topic", "{type: 'system.settings.get', settings_type: 'application'}",
        {QStringLiteral("system.settings.load")});
    row("one topic twice", "{type: 'keyboard.control.request', get_locale: 1, is_visible: 1}",
        {QStringLiteral("keyboard.control.response"), QStringLiteral("keyboard.control.response")});
    row("no topic", "{type: 'system.language.set', language: 'en'}", {});
    row("nobody listens", "{type: 'x.y'}", {});
}

void BridgeTest::deliversRepliesBeforeTheReturn()
{
    QFETCH(QString, request);
    QFETCH(QStringList, replies);
    createHandlers();
    run(QStringLiteral("robot.message.connect(function(m) { answers.push(m.type); });"
                       "robot.sendMessage(%1, function(r) { answers.push(r); });")
            .arg(request));
    QJsonArray expected = QJsonArray::fromStringList(replies);
    expected.append(false);
    QCOMPARE(json(QStringLiteral("answers")).array(), expected);
}

void BridgeTest::answersQuickRequestsOneAfterTheOther()
{
    createHandlers();
    run(QStringLiteral(
        "robot.message.connect(function(m) { answers.push(m.type); });"
        "['printer.print', 'system.language.set', 'system.settings.get', 'x.y', 'printer.print']"
        "  .forEach(function(topic, index) {"
        "    robot.sendMessage({type: topic}, function() { answers.push(index); });"
        "  });"));
    QCOMPARE(
        json(QStringLiteral("answers")).array(),
        QJsonArray({QStringLiteral("printer.paper.low"), QStringLiteral("printer.success"), 0, 1,
                    QStringLiteral("system.settings.load"), 2, 3,
                    QStringLiteral("printer.paper.low"), QStringLiteral("printer.success"), 4}));
}

void BridgeTest::deliversEachForwardedTopicOnce()
{
    makesUpMessages(); // without attributes
    const QStringList topics = forwardedTopics();
    for (const QString &topic : topics)
        m_brocker->publish(Message(topic));
    QCOMPARE(json(QStringLiteral("received.map(function(m) { return m.type; })")).array(),
             QJsonArray::fromStringList(topics));
}

void BridgeTest::keepsOtherTopicsInside()
{
    const QStringList topics = topicsKeptInside();
    for (const QString &topic : topics)
        m_brocker->publish(Message(topic));
    QCOMPARE(json(QStringLiteral("received")).array(), QJsonArray());
}

void BridgeTest::deliversTheWholeEnvelope()
{
    makesUpMessages({"printer.success"});
    const Message message(QStringLiteral("printer.success"),
                          {{QStringLiteral("list"), QVariantList({1, QStringLiteral("b")})},
                           {QStringLiteral("map"), QVariantMap({{QStringLiteral("k"), true}})},
                           {QStringLiteral("uuid"), QUuid()}});
    m_brocker->publish(message);
    QCOMPARE(json(QStringLiteral("received")).array(), QJsonArray({message.toJson()}));
}

void BridgeTest::logsForThePage()
{
    log().take();
    run(QStringLiteral("robot.log_string('x'); robot.log_json('state', {a: 1});"));
    const QVector<LogLine> expected{
        {QtDebugMsg, QStringLiteral("default"), QStringLiteral("\"x\"")},
        {QtDebugMsg, QStringLiteral("default"),
         QStringLiteral("\"state\" QJsonObject({\"a\":1})")}};
    QCOMPARE(log().take(), expected);
}

void BridgeTest::survivesArgumentsOfTheWrongKind_data()
{
    QTest::addColumn<QString>("argument");
    for (const char *argument :
         {"'text'", "7", "true", "null", "[]", "[{type: 'system.log'}]", "undefined"})
        QTest::newRow(argument) << QString::fromLatin1(argument);
}

void BridgeTest::survivesArgumentsOfTheWrongKind()
{
    QFETCH(QString, argument);
    run(QStringLiteral("robot.sendMessage(%1, function(r) { answers.push(r); })").arg(argument));
    QCOMPARE(json(QStringLiteral("answers")).array(), QJsonArray({false}));
    // The web channel itself warns about the argument.
    log().drop(QStringLiteral("non-object argument"));
}

void BridgeTest::keepsUnusualTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("umlauts") << QStringLiteral("Grüße, Привет, 你好");
    QTest::newRow("beyond the base plane") << QString::fromUcs4(U"\U0001F916");
    QTest::newRow("NUL") << (QStringLiteral("a") + QChar(QChar::Null) + QStringLiteral("b"));
    QTest::newRow("line separators") << QStringLiteral("a\u2028b\u2029c\r\n");
    QTest::newRow("markup") << QStringLiteral("</script><b>\"'\\");
    QTest::newRow("long") << QString(1000000, QLatin1Char('x'));
}

void BridgeTest::keepsUnusualTexts()
{
    QFETCH(QString, text);
    m_brocker->subscribe(QStringLiteral("dialog.say"), [this](const Message &message) {
        m_brocker->publish(
            Message(QStringLiteral("dialog.user.said"),
                    {{QStringLiteral("text"), message.attributes().value(QStringLiteral("text"))},
                     {QStringLiteral("is_finish"), true}}));
    });
    m_engine->globalObject().setProperty(QStringLiteral("sample"), text);
    run(QStringLiteral("robot.sendMessage({type: 'dialog.say', text: sample})"));
    QCOMPARE(run(QStringLiteral("received.length")).toInt(), 1);
    QVERIFY(run(QStringLiteral("received[0].text === sample")).toBool());
}

QTEST_GUILESS_MAIN(BridgeTest)
#include "tst_bridge.moc"
