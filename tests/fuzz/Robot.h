#pragma once

#include "panorel/PanorelProxy.h"
#include "panorel/PanorelQuestionHandler.h"
#include "panorel/PanorelQueueBrocker.h"
#include "panorel/ReplicContext.h"
#include "tests/support/TestPlugin.h"

#include "host/FaceRect.h"

#include <QPointer>

#include <functional>
#include <memory>

class QAudioRecorder;
class QMediaPlayer;

/// A dialog module that says when it is called.
class CallingDialogModule : public TestDialogModule
{
public:
    void processReplica(const QSharedPointer<Replica> &replica, const bool &terminate) override
    {
        TestDialogModule::processReplica(replica, terminate);
        duringCall();
    }
    void setAnswerResult(const QSharedPointer<Answer> &answer, bool result) override
    {
        TestDialogModule::setAnswerResult(answer, result);
        duringCall();
    }
    void setQuestionHandler(QuestionHandler *handler) override
    {
        TestDialogModule::setQuestionHandler(handler);
        duringCall();
    }

    std::function<void()> duringCall;
};

/// The real bus, which says what is published.
class WatchedBus : public panorel::PanorelQueueBrocker
{
public:
    explicit WatchedBus(std::function<void(const panorel::Message &)> onPublish)
        : m_onPublish(std::move(onPublish))
    { }

    void publish(const panorel::Message &message) override
    {
        m_onPublish(message);
        PanorelQueueBrocker::publish(message);
    }

private:
    std::function<void(const panorel::Message &)> m_onPublish;
};

/// The widget's inside without its window, in front of doubles: bus, proxy, replica context, question
/// handler and all handlers. Player and recorder have no multimedia system; statistics go to a
/// temporary folder.
class Robot
{
public:
    /// What the robot has.
    enum Part {
        Plugin = 1, ///< without it no other part counts but the dialog
        Dialog = 2,
        Devices = 4,
        People = 8,
        Everything = 15,
    };

    explicit Robot(int parts);
    /// Requires that nothing is left over, and that nothing is published without a bus.
    ~Robot();

    /// As the widget's defaultHandlers() does.
    void makeHandlers();
    void clearHandlers();
    bool hasHandlers() const { return m_hasHandlers; }

    /// The page's call.
    void send(const QJsonObject &message);
    /// Robot events of the widget that reach handlers.
    void reportFaces(const QVector<FaceInfoPtr> &faces);
    void reportRects(const QVector<FaceRectPtr> &rects);

    /// Turns the event loop when mails that may go have gone.
    void turn();

    /// Connects or removes devices, as a host may at any time.
    void addDevices();
    void removeDevices();

    /// Those of the handlers that stand now; null without them.
    QMediaPlayer *player() const;
    QAudioRecorder *recorder() const;
    panorel::PanorelQuestionHandler *questionHandler() const { return m_questionHandler; }

    panorel::PanorelQueueBrocker *bus() const { return m_bus.get(); }
    TestPlugin *plugin() const { return m_plugin.get(); }
    CallingDialogModule *dialog() { return &m_dialog; }

    /// Called for each message that is published, before its delivery.
    std::function<void(const panorel::Message &)> onPublish;
    /// Called in each host call, device call, and message to the page.
    std::function<void()> duringCall;

    int published() const { return m_published; }

private:
    void call();
    void followPlugin();
    void checkNothingPublishedWithoutBus();

    const int m_parts;
    std::unique_ptr<TestPlugin> m_plugin;
    CallingDialogModule m_dialog;
    std::unique_ptr<WatchedBus> m_bus;
    std::unique_ptr<panorel::ReplicContext> m_context;
    std::unique_ptr<panorel::PanorelProxy> m_proxy;
    QPointer<panorel::PanorelQuestionHandler> m_questionHandler;
    QPointer<QObject> m_playHandler;
    QPointer<QObject> m_recordHandler;
    bool m_hasHandlers = false;
    bool m_buildingHandlers = false;
    int m_published = 0;
    int m_toPage = 0;
};

/// Makes the application and what the process needs once.
void prepareRobots();
