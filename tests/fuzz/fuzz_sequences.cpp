// Requests, signals and rebuilds of the handlers in any order, also from inside each other.

#include "panorel/Constants.h"
#include "panorel/PanorelMessageHandler.h"
#include "tests/fuzz/Check.h"
#include "tests/fuzz/HandlerSet.h"
#include "tests/fuzz/JsonSource.h"
#include "tests/fuzz/Robot.h"
#include "tests/fuzz/Signals.h"
#include "tests/fuzz/Target.h"
#include "tests/support/CountedHandler.h"
#include "tests/support/TestMailServer.h"

using panorel::Message;

namespace {

constexpr int mostSteps = 48;
constexpr int mostArmed = 8;
constexpr int deepest = 4;

/// One input: a robot, and what happens to it step by step.
class Sequence
{
public:
    explicit Sequence(ByteReader *reader)
        : m_reader(reader)
        , m_source(reader)
        , m_robot(Robot::Everything)
    {
        m_robot.duringCall = [this] { interrupt(); };
        m_robot.onPublish = [this](const Message &message) { see(message); };
    }

    ~Sequence()
    {
        m_armed = 0;
        m_robot.onPublish = nullptr;
    }

    void run()
    {
        m_robot.makeHandlers();
        for (int i = 0; i < mostSteps && !m_reader->isEmpty(); ++i) {
            step();
            m_armed = qMin(m_armed, mostArmed);
        }
    }

private:
    /// In a host call, a message to the page, a subscriber or its destructor: what was armed happens.
    void interrupt()
    {
        if (m_armed == 0 || m_depth == deepest)
            return;
        --m_armed;
        ++m_depth;
        step();
        --m_depth;
    }

    void step()
    {
        switch (m_reader->below(16)) {
        case 0:
        case 1:
        case 2:
        case 3:
            return request();
        case 4:
        case 5:
        case 6: {
            const Signal signal = drawSignal(&m_robot, m_reader, &m_source);
            return expect(signal.most, signal.topics, signal.emitSignal);
        }
        case 7:
        case 8:
            m_armed += 1 + m_reader->below(3);
            return;
        case 9:
        case 10:
            return turn();
        case 11:
            return m_robot.clearHandlers();
        case 12:
            return m_robot.makeHandlers();
        case 13:
            return changeDevices();
        case 14:
            return mail();
        default:
            return subscribe();
        }
    }

    void request()
    {
        const Request &request = m_reader->oneOf(requests());
        const QJsonObject json = m_source.request(request);
        // A touch on many faces is answered by each of them.
        expect(32, request.answers + QStringList(request.topic), [&] { m_robot.send(json); });
    }

    /// Does @p action, during which, when nothing else happens, at most so many messages come.
    void expect(int most, const QStringList &topics, const std::function<void()> &action)
    {
        if (m_depth > 0 || m_armed > 0)
            return action();
        const int before = m_robot.published();
        m_topics = &topics;
        action();
        m_topics = nullptr;
        require(m_robot.published() - before <= most, "more messages than there was cause for");
    }

    void see(const Message &message)
    {
        // What the page sends has the page's id.
        const bool isPages = panorel::PanorelMessageHandler::topics().contains(message.type());
        if (isPages)
            requirePublishable(message);
        if (m_topics)
            require(m_topics->contains(message.type()), "published on a topic without a cause");
    }

    void turn()
    {
        m_robot.turn();
        if (m_depth == 0)
            require(liveHandlers() == (m_robot.hasHandlers() ? handlersOfASet : 0),
                    "handlers of a set before are left over");
    }

    void changeDevices()
    {
        TestPlugin *const plugin = m_robot.plugin();
        switch (m_reader->below(4)) {
        case 0:
            return m_robot.addDevices();
        case 1:
            return m_robot.removeDevices();
        case 2:
            plugin->replica = m_reader->flag() ? QSharedPointer<Replica>::create() : nullptr;
            return;
        default:
            if (!plugin->printerDevice)
                return;
            plugin->printerDevice->connected = m_reader->flag();
            plugin->dispenser->connected = m_reader->flag();
            plugin->documentScanner->connected = m_reader->flag();
        }
    }

    void mail()
    {
        TestMailServer &server = TestMailServer::instance();
        const QString to = QStringLiteral("ann@example.com");
        switch (m_reader->below(4)) {
        case 0:
            return server.setOpen(false);
        case 1:
            return server.setOpen(true);
        case 2:
            return server.letPass(to);
        default:
            return server.setOutcome(to, {m_reader->below(3), m_source.text(), m_reader->flag()});
        }
    }

    void subscribe()
    {
        const QStringList &forwarded = panorel::PanorelMessageHandler::topics();
        const QString topic =
            m_reader->flag() ? m_reader->oneOf(forwarded) : m_reader->oneOf(requests()).topic;
        panorel::PanorelQueueBrocker *const bus = m_robot.bus();
        auto *const handler =
            new CountedHandler([this](const Message &) { interrupt(); }, [this] { interrupt(); });
        switch (m_reader->below(3)) {
        case 0:
            return bus->subscribe(topic, handler);
        case 1:
            bus->subscribe(topic, handler);
            bus->subscribe(panorel::constants::SETTINGS_GET, handler);
            bus->subscribe(topic, handler);
            return bus->unSubscribe(topic, handler);
        default:
            bus->subscribe(topic, handler);
            return bus->subscribe(topic, [this](const Message &) { interrupt(); });
        }
    }

    ByteReader *const m_reader;
    JsonSource m_source;
    int m_armed = 0;
    int m_depth = 0;
    const QStringList *m_topics = nullptr; // while nothing else may be published
    Robot m_robot;
};

} // namespace

void fuzzInitialize() { prepareRobots(); }

void fuzzOne(ByteReader *reader)
{
    setVerbose(reader->below(4) == 0);
    Sequence(reader).run();
}
