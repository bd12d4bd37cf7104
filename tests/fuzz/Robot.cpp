#include "tests/fuzz/Robot.h"

#include "panorel/Constants.h"
#include "panorel/PanorelMessageHandler.h"
#include "panorel/RobotPaths.h"
#include "tests/fuzz/Check.h"
#include "tests/fuzz/HandlerSet.h"
#include "tests/fuzz/Target.h"
#include "tests/support/CountedHandler.h"
#include "tests/support/EventLoop.h"
#include "tests/support/TestMailServer.h"
#include "tests/support/TestPlatform.h"
#include "tests/support/TestTelephone.h"

#include <QAudioRecorder>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QMediaPlayer>
#include <QScopedValueRollback>
#include <QThread>
#include <QThreadPool>

using namespace panorel;

Robot::Robot(int parts)
    : m_parts(parts)
    , m_plugin((parts & Plugin) != 0 ? std::make_unique<TestPlugin>() : nullptr)
    , m_bus(std::make_unique<WatchedBus>([this](const Message &message) {
        ++m_published;
        if (onPublish)
            onPublish(message);
    }))
    , m_proxy(std::make_unique<PanorelProxy>(m_bus.get()))
{
    TestMailServer::instance().reset();
    TestTelephone::instance().calls.clear();
    TestTelephone::instance().duringCall = [this] { call(); };
    TestPlatform::instance().calls.clear();
    m_dialog.duringCall = [this] { call(); };
    QObject::connect(m_proxy.get(), &PanorelProxy::message, m_proxy.get(), [this] {
        ++m_toPage;
        call();
    });
    if (m_plugin) {
        if ((parts & Devices) != 0)
            addDevices();
        if ((parts & People) != 0) {
            m_plugin->users = QSharedPointer<TestUsersDatabase>::create(&m_plugin->calls);
            m_plugin->users->afterEachCall = [this] { call(); };
        }
        followPlugin();
    }
}

Robot::~Robot()
{
    duringCall = nullptr;
    TestMailServer::instance().setOpen(true);
    turn();
    // In the widget's order.
    m_proxy->detach();
    if (m_questionHandler)
        m_questionHandler->detach();
    m_bus.reset();
    m_context.reset();
    checkNothingPublishedWithoutBus();
    delete m_questionHandler;
    m_proxy.reset();
    removeDevices();
    m_plugin.reset();
    turn();
    require(liveHandlers() == 0, "a handler is left over");
    require(CountedHandler::count() == 0, "a subscriber is left over");
    require(TestTelephone::instance().clients == 0, "a telephone client is left over");
    require(TestMailServer::instance().livingSenders() == 0, "a mail sender is left over");
    const auto threads = TestMailServer::instance().deletions();
    for (const QThread *thread : threads)
        require(thread == QThread::currentThread(), "a mail sender went on another thread");
    TestTelephone::instance().duringCall = nullptr;
}

void Robot::checkNothingPublishedWithoutBus()
{
    const int published = m_published;
    const int toPage = m_toPage;
    m_proxy->sendMessage({{QStringLiteral("type"), constants::SETTINGS_GET}});
    if (m_questionHandler) {
        QString question;
        QStringList answers;
        m_questionHandler->setQuestion(question, answers, false);
        m_questionHandler->cancel();
    }
    if (m_plugin) {
        Q_EMIT m_plugin->interaction->finished();
        if (m_plugin->printerDevice)
            Q_EMIT m_plugin->printerDevice->signalState(PrinterState::Error);
        if (m_plugin->dispenser)
            Q_EMIT m_plugin->dispenser->statusChanged(0xffff);
        for (const auto &scanner : {m_plugin->passportScanner, m_plugin->documentScanner})
            if (scanner)
                Q_EMIT scanner->signalProgress(1);
    }
    turn();
    require(published == m_published && toPage == m_toPage, "published without a bus");
}

void Robot::makeHandlers()
{
    if (m_buildingHandlers)
        return;
    const QScopedValueRollback<bool> building(m_buildingHandlers, true);
    if (!m_context)
        m_context = std::make_unique<ReplicContext>(m_plugin.get());
    clearHandlers();
    m_context->clear();

    KarvelDialogModule *const dialog = (m_parts & Dialog) != 0 ? &m_dialog : nullptr;
    PanorelQuestionHandler *const former = m_questionHandler;
    m_questionHandler = new PanorelQuestionHandler(m_bus.get());
    QObject::connect(m_questionHandler, &QuestionHandler::hasAnswer, m_questionHandler,
                     [this] { call(); });
    if (dialog)
        dialog->setQuestionHandler(m_questionHandler);
    if (former)
        former->deleteLater();

    const HandlerSet set =
        subscribeHandlers({m_plugin.get(), dialog, m_bus.get(), m_context.get(), m_proxy.get()});
    m_playHandler = set.play;
    m_recordHandler = set.record;
    m_hasHandlers = true;
}

void Robot::clearHandlers()
{
    m_hasHandlers = false;
    m_bus->clear();
}

void Robot::send(const QJsonObject &message) { m_proxy->sendMessage(message); }

void Robot::reportFaces(const QVector<FaceInfoPtr> &faces)
{
    m_bus->publish(
        Message(constants::GENERAL_TOUCH, {{QStringLiteral("info"), QVariant::fromValue(faces)}}));
}

void Robot::reportRects(const QVector<FaceRectPtr> &rects)
{
    m_bus->publish(
        Message(constants::GENERAL_TOUCH, {{QStringLiteral("rect"), QVariant::fromValue(rects)}}));
}

void Robot::turn()
{
    // A mail's end comes from another thread; waiting for it makes an input repeatable.
    if (TestMailServer::instance().isOpen())
        QThreadPool::globalInstance()->waitForDone();
    turnEventLoop();
}

void Robot::addDevices()
{
    const auto make = [this](auto &device) {
        using Double = typename std::decay_t<decltype(device)>::value_type;
        device = QSharedPointer<Double>::create(&m_plugin->calls);
        device->duringCall = [this] { call(); };
    };
    make(m_plugin->printerDevice);
    make(m_plugin->dispenser);
    make(m_plugin->passportScanner);
    make(m_plugin->documentScanner);
    make(m_plugin->keyboardDevice);
    // The host's own slots are called before the library's.
    const auto follow = [this](auto *device, auto signal) {
        QObject::connect(device, signal, device, [this] { call(); });
    };
    follow(m_plugin->printerDevice.data(), &IPrinter::signalState);
    follow(m_plugin->dispenser.data(), &IDispenser::statusChanged);
    follow(m_plugin->documentScanner.data(), &IScanner::signalState);
}

void Robot::removeDevices()
{
    if (!m_plugin)
        return;
    m_plugin->printerDevice.reset();
    m_plugin->dispenser.reset();
    m_plugin->passportScanner.reset();
    m_plugin->documentScanner.reset();
    m_plugin->keyboardDevice.reset();
}

QMediaPlayer *Robot::player() const
{
    return m_playHandler ? m_playHandler->findChild<QMediaPlayer *>() : nullptr;
}

QAudioRecorder *Robot::recorder() const
{
    return m_recordHandler ? m_recordHandler->findChild<QAudioRecorder *>() : nullptr;
}

void Robot::call()
{
    if (duringCall)
        duringCall();
}

void Robot::followPlugin()
{
    QObject::connect(m_plugin->interaction.data(), &IInteractionService::started, m_plugin.get(),
                     [this] { call(); });
    const auto follow = [this](auto signal) {
        QObject::connect(m_plugin.get(), signal, m_plugin.get(), [this] { call(); });
    };
    follow(&PluginInterface::signalTTSStart);
    follow(&PluginInterface::signalTTSCancel);
    follow(&PluginInterface::signalAnswersAnchor);
    follow(&PluginInterface::signalScriptCancel);
    follow(&PluginInterface::signalLanguage);
    follow(&PluginInterface::signalOperatorCall);
    follow(&PluginInterface::signalFaceTrackingAuto);
    follow(&PluginInterface::signalFaceTracking);
    follow(&PluginInterface::signalFaceAdd);
    follow(&PluginInterface::signalFaceDelete);
    follow(&PluginInterface::signalHeadEnable);
    follow(&PluginInterface::signalDrivePoint);
    follow(&PluginInterface::signalDrivePause);
    follow(&PluginInterface::signalDriveMode);
    follow(&PluginInterface::signalDriveCharger);
}

void prepareRobots()
{
    static int argc = 1;
    static char name[] = "fuzz";
    static char *argv[] = {name, nullptr};
    static QCoreApplication application(argc, argv);
    // No multimedia system: it would play and record, take time, and ask the network.
    QCoreApplication::setLibraryPaths({});
    dropLog();
    QDir().mkpath(QFileInfo(paths::printPicture()).path());
}
