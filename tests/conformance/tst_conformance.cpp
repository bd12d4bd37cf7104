#include "panorel/MessageQueueBrocker.h"
#include "simulator/app/MessageReporter.h"
#include "simulator/app/RobotScreen.h"
#include "simulator/app/SimulatorWindow.h"
#include "simulator/core/Outbox.h"
#include "simulator/core/RobotCore.h"
#include "simulator/server/PageServer.h"
#include "simulator/server/RobotControl.h"
#include "tests/support/TestCase.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <QWebEngineView>

#include <algorithm>

using simulator::PageServer;
using simulator::RobotControl;
using simulator::RobotCore;
using simulator::SimulatorWindow;

/// One page, several roads to the robot: in the robot's screen over Qt's transport, in the same engine
/// over a WebSocket, and in an ordinary browser. What the page hears has to be the same, in the same
/// order.
class ConformanceTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void screenHearsWhatIsExpected();
    void webSocketHearsTheSame();
    void browserHearsTheSame();

protected:
    void setUp() override
    {
        makesUpMessages(); // the page sends what no page should, and its cues
        m_core.reset(new RobotCore(RobotCore::Equipment{}));
        m_core->pace().setSpeed(200); // clazy:exclude=writing-to-temporary
        m_core->dialog()->setExtraInterval(24 * 3600 * 1000); // comes by the clock
        m_window.reset(new SimulatorWindow(m_core.data()));
        panorel::MessageQueueBrocker *bus = m_window->screen()->brocker();
        m_control.reset(new RobotControl(m_core.data(), bus));
        bus->subscribe(QStringLiteral("test.cue"), [this](const panorel::Message &cue) {
            const QVariantMap given = cue.attributes();
            const QJsonObject values =
                QJsonObject::fromVariantMap(given.value(QStringLiteral("values")).toMap());
            const RobotControl::Reply reply =
                m_control->answer("POST", given.value(QStringLiteral("action")).toString(), {},
                                  QJsonDocument(values).toJson());
            if (reply.status != 200)
                QTest::qFail(reply.body.constData(), __FILE__, __LINE__);
        });
        bus->subscribe(QStringLiteral("test.transcript"), [this](const panorel::Message &message) {
            m_transcript = message.attributes().value(QStringLiteral("text")).toString();
        });
        m_window->show();
    }
    void tearDown() override
    {
        m_server.reset();
        m_control.reset();
        m_window.reset();
        m_core.reset();
        simulator::Outbox::instance().clear();
    }
    bool isForeign(const QString &) const override { return true; } // the page provokes them

private:
    QUrl serve()
    {
        PageServer::Settings settings;
        settings.folder = QStringLiteral(PANOREL_CONFORMANCE);
        m_server.reset(new PageServer(settings, m_window->screen()->pageObjects()));
        if (!m_server->listen())
            QTest::qFail(qPrintable(m_server->problem()), __FILE__, __LINE__);
        return m_server->address();
    }
    /// Waits for the page's end and returns what it sent and heard.
    QStringList transcript()
    {
        m_transcript.clear();
        if (!QTest::qWaitFor([this] { return !m_transcript.isEmpty(); }, 90000))
            QTest::qFail("the page did not come to its end", __FILE__, __LINE__);
        return m_transcript.split(QLatin1Char('\n'));
    }
    /// Fails at the first line that differs, and shows both.
    void compare(const QStringList &heard) const
    {
        for (int i = 0; i < qMin(heard.size(), m_expected.size()); ++i)
            QCOMPARE(heard.at(i).left(400), m_expected.at(i).left(400));
        QCOMPARE(heard.size(), m_expected.size());
        QVERIFY(heard == m_expected);
    }

    QString m_transcript;
    QStringList m_expected; // what the robot's screen heard
    QScopedPointer<RobotCore> m_core;
    QScopedPointer<SimulatorWindow> m_window;
    QScopedPointer<RobotControl> m_control;
    QScopedPointer<PageServer> m_server;
};

void ConformanceTest::screenHearsWhatIsExpected()
{
    m_window->load(QUrl::fromLocalFile(QStringLiteral(PANOREL_CONFORMANCE "/index.html")));
    m_expected = transcript();
    const QString all = m_expected.join(QLatin1Char('\n'));

    // Whether the page did all of it: each request, and most of what a robot tells.
    QVERIFY2(!all.contains(QLatin1String("\n! ")), qPrintable(all.left(20000)));
    QFile contract(QStringLiteral(PANOREL_CONTRACT));
    QVERIFY(contract.open(QIODevice::ReadOnly));
    QSet<QString> told;
    const QJsonArray topics = QJsonDocument::fromJson(contract.readAll())
                                  .object()
                                  .value(QStringLiteral("topics"))
                                  .toArray();
    for (const QJsonValue &value : topics) {
        const QString topic = value.toObject().value(QStringLiteral("topic")).toString();
        const QString direction = value.toObject().value(QStringLiteral("direction")).toString();
        const QString type = QStringLiteral("\"type\":\"%1\"").arg(topic);
        const auto has = [this, &type](const char *mark) {
            return std::any_of(m_expected.cbegin(), m_expected.cend(), [&](const QString &line) {
                return line.startsWith(QLatin1String(mark)) && line.contains(type);
            });
        };
        if (direction.startsWith(QLatin1String("from page")))
            QVERIFY2(has("> "), qPrintable(topic));
        if (has("< "))
            told.insert(topic);
    }
    QVERIFY2(told.size() >= 45, qPrintable(QString::number(told.size())));

    const int sent = static_cast<int>(
        std::count_if(m_expected.cbegin(), m_expected.cend(),
                      [](const QString &line) { return line.startsWith(QLatin1String("> ")); }));
    QCOMPARE(m_expected.filter(QStringLiteral("= false")).size(), sent);
}

void ConformanceTest::webSocketHearsTheSame()
{
    QWebEngineView view; // without a web channel of its own
    view.show(); // an engine lets the timers of a page that nobody sees run slowly
    view.load(serve());
    compare(transcript());
}

void ConformanceTest::browserHearsTheSame()
{
    QTemporaryDir profile;
    QStringList arguments{QStringLiteral("--headless"), QStringLiteral("--disable-gpu"),
                          QStringLiteral("--user-data-dir=") + profile.path(),
                          QStringLiteral("--remote-debugging-port=0"),
                          serve().toString(QUrl::FullyEncoded)};
    if (qEnvironmentVariableIsSet("QTWEBENGINE_DISABLE_SANDBOX"))
        arguments.prepend(QStringLiteral("--no-sandbox"));
    QProcess browser;
    browser.setStandardErrorFile(QProcess::nullDevice());
    browser.start(QStringLiteral("chromium"), arguments);
    QVERIFY2(browser.waitForStarted(), "chromium is not installed (Debian package: chromium)");
    const QStringList heard = transcript();
    browser.terminate();
    if (!browser.waitForFinished(10000))
        browser.kill();
    browser.waitForFinished();
    compare(heard);
}

QTEST_MAIN(ConformanceTest)
#include "tst_conformance.moc"
