#include "tests/fuzz/HandlerSet.h"

#include "panorel/MessageQueueBrocker.h"
#include "panorel/PanorelMessageHandler.h"
#include "panorel/handlers/AbortRobotReplicHandler.h"
#include "panorel/handlers/DispenserHandler.h"
#include "panorel/handlers/DocumentScannerHandler.h"
#include "panorel/handlers/DriveControlHandler.h"
#include "panorel/handlers/FaceRecognizeControlHandler.h"
#include "panorel/handlers/GeneralTouchHandler.h"
#include "panorel/handlers/GetEnvironmentHandler.h"
#include "panorel/handlers/GetReplicHandler.h"
#include "panorel/handlers/GetSettingHandler.h"
#include "panorel/handlers/InteractionHandler.h"
#include "panorel/handlers/KeyboardControlHandler.h"
#include "panorel/handlers/LanguageHandler.h"
#include "panorel/handlers/LogEventHandler.h"
#include "panorel/handlers/MailSenderHandler.h"
#include "panorel/handlers/OperatorCallHandler.h"
#include "panorel/handlers/PassportScannerHandler.h"
#include "panorel/handlers/PlayExternalHandler.h"
#include "panorel/handlers/PrintHandler.h"
#include "panorel/handlers/PrintStateHandler.h"
#include "panorel/handlers/RecordAudioHandler.h"
#include "panorel/handlers/ReplicEventHandler.h"
#include "panorel/handlers/SIPControlHandler.h"
#include "panorel/handlers/ScriptControlHandler.h"
#include "panorel/handlers/SoundEventHandler.h"
#include "panorel/handlers/StatisticEventHandler.h"
#include "panorel/handlers/UserDatabaseHandler.h"
#include "tests/fuzz/Check.h"

#include <QDir>
#include <QTemporaryDir>

using namespace panorel;

namespace {

int live = 0;

/// A handler of the library that is counted.
template <typename Handler>
class Counted : public Handler
{
public:
    template <typename... Arguments>
    explicit Counted(Arguments... arguments)
        : Handler(arguments...)
    {
        ++live;
    }
    ~Counted() override { --live; }
};

template <typename Handler, typename... Arguments>
Handler *add(MessageQueueBrocker *bus, Arguments... arguments)
{
    auto *handler = new Counted<Handler>(arguments...);
    bus->subscribe(handler->topic(), handler);
    return handler;
}

/// Emptied now and then: a page may name any number of files.
QString statisticFolder()
{
    constexpr int mostUses = 2000;
    static const QTemporaryDir folder;
    static int uses = 0;
    QString path = folder.path() + QStringLiteral("/statistic/");
    if (++uses % mostUses == 0)
        QDir(path).removeRecursively();
    return path;
}

} // namespace

HandlerSet subscribeHandlers(const HandlerParts &parts)
{
    PluginInterface *const plugin = parts.plugin;
    MessageQueueBrocker *const bus = parts.bus;
    ReplicContext *const context = parts.context;
    const int before = live;

    add<ReplicEventHandler>(bus, context, plugin, parts.dialog);
    add<GetReplicHandler>(bus, context, bus);
    add<PrintStateHandler>(bus, plugin, bus);
    add<PrintHandler>(bus, plugin, bus);
    add<LogEventHandler>(bus);
    add<StatisticEventHandler>(bus, statisticFolder());
    add<AbortRobotReplicHandler>(bus, context, plugin);
    add<InteractionHandler>(bus, plugin, bus);
    add<GetEnvironmentHandler>(bus, bus);
    add<GetSettingHandler>(bus, plugin, bus);
    add<DriveControlHandler>(bus, plugin);
    add<ScriptControlHandler>(bus, plugin, bus);
    add<SoundEventHandler>(bus, bus);
    add<LanguageHandler>(bus, plugin);
    QObject *const play = add<PlayExternalHandler>(bus, bus);
    add<FaceRecognizeControlHandler>(bus, plugin);
    add<GeneralTouchHandler>(bus, plugin, bus);
    add<UserDatabaseHandler>(bus, plugin, bus);
    add<DispenserHandler>(bus, plugin, bus);
    add<SIPControlHandler>(bus, bus);
    add<PassportScannerHandler>(bus, plugin, bus);
    add<DocumentScannerHandler>(bus, plugin, bus);
    QObject *const record = add<RecordAudioHandler>(bus, bus);
    add<MailSenderHandler>(bus, plugin, bus);
    add<OperatorCallHandler>(bus, plugin);
    add<KeyboardControlHandler>(bus, plugin, bus);
    new Counted<PanorelMessageHandler>(parts.proxy); // subscribes itself

    require(live - before == handlersOfASet, "a set is not complete");
    return {play, record};
}

int liveHandlers() { return live; }
