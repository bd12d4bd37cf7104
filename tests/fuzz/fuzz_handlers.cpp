// Requests of a hostile page to every handler, one set of handlers for each input.

#include "tests/fuzz/Check.h"
#include "tests/fuzz/JsonSource.h"
#include "tests/fuzz/Robot.h"
#include "tests/fuzz/Target.h"
#include "tests/support/TestPlatform.h"
#include "tests/support/TestTelephone.h"

#include "host/FaceInfo.h"
#include "host/FaceRect.h"

#include <algorithm>

namespace {

constexpr int mostRequests = 6;

/// What the robot has and how it answers.
std::unique_ptr<Robot> makeRobot(JsonSource *source, ByteReader *reader)
{
    // Mostly a whole robot.
    auto robot = std::make_unique<Robot>(
        reader->below(4) == 3 ? reader->below(Robot::Everything + 1) : Robot::Everything);
    TestTelephone::instance().started = reader->flag();
    TestPlugin *const plugin = robot->plugin();
    if (!plugin)
        return robot;
    if (reader->flag())
        plugin->replica = QSharedPointer<Replica>::create();
    plugin->appGroups = {{QStringLiteral("sound"), source->object(2).toVariantMap()}};
    plugin->sysSettings = source->object(2).toVariantMap();
    plugin->email = source->object(1).toVariantMap();
    plugin->scriptResult = QStringList(source->text());
    TestPlatform::instance().output = source->text();
    if (plugin->users)
        plugin->users->people.insert(reader->signedByte(), UserData());
    if (plugin->printerDevice) {
        plugin->printerDevice->connected = reader->flag();
        plugin->printerDevice->result = reader->flag();
        plugin->dispenser->connected = reader->flag();
        plugin->documentScanner->connected = reader->flag();
        plugin->passportScanner->result = reader->flag();
    }
    return robot;
}

void showFaces(Robot *robot)
{
    QVector<FaceInfoPtr> faces(3);
    QVector<FaceRectPtr> rects(3);
    for (int i = 0; i < 2; ++i) { // the last of each is null
        faces[i] = FaceInfoPtr::create();
        faces[i]->setId(i);
        faces[i]->setIdTrack(i);
        rects[i] = FaceRectPtr::create(QRectF(-2000.0 * i, 0.0, 4000.0, 4000.0), i);
    }
    robot->reportFaces(faces);
    robot->reportRects(rects);
}

/// Watches one input's messages: while a request is handled only its answers may be published.
class Watch
{
public:
    explicit Watch(Robot *robot)
        : m_robot(robot)
    {
        robot->onPublish = [this](const panorel::Message &message) { see(message); };
    }

    void send(const QJsonObject &json)
    {
        m_request = nullptr;
        const QString topic = json.value(QStringLiteral("type")).toString();
        for (const Request &request : requests())
            if (request.topic == topic)
                m_request = &request;
        m_answers = 0;
        m_isRequestSeen = false;
        m_isSending = true;
        m_robot->send(json);
        m_isSending = false;
        if (m_request && m_request->answered == Request::Once)
            require(m_answers == 1, "not answered once");
    }

private:
    void see(const panorel::Message &message)
    {
        if (m_isSending && !m_isRequestSeen) {
            m_isRequestSeen = true; // the page's own: its id may be any
            return;
        }
        requirePublishable(message);
        if (m_isSending && m_request && m_request->answers.contains(message.type())) {
            ++m_answers;
            return;
        }
        require(!m_isSending && lateAnswers().contains(message.type()),
                "published on a topic that is no answer to the request");
    }

    Robot *m_robot;
    const Request *m_request = nullptr;
    int m_answers = 0;
    bool m_isSending = false;
    bool m_isRequestSeen = false;
};

} // namespace

void fuzzInitialize() { prepareRobots(); }

void fuzzOne(ByteReader *reader)
{
    setVerbose(reader->below(4) == 0);
    JsonSource source(reader);
    const auto robot = makeRobot(&source, reader);
    robot->makeHandlers();
    if (reader->flag())
        showFaces(robot.get());

    Watch watch(robot.get());
    for (int i = 0; i < mostRequests && !reader->isEmpty(); ++i) {
        const bool asText = reader->flag();
        const QJsonObject request = source.request();
        watch.send(asText ? throughText(request) : request);
        robot->turn();
    }
    robot->onPublish = nullptr;
}
