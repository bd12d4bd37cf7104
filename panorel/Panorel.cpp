#include "panorel/Panorel.h"

#include "panorel/MessageQueueBrocker.h"
#include "panorel/PanorelMessageHandler.h"
#include "panorel/PanorelQuestionHandler.h"
#include "panorel/Panorel_p.h"
#include "panorel/ReplicContext.h"
#include "panorel/RobotPaths.h"
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

#include "host/KarvelDialogModule.h"

#include <QScopedValueRollback>
#include <QUrl>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineView>

#include <utility>

namespace panorel {

namespace {

StatisticEventHandler *createStatisticEventHandler(const QString &periodicity)
{
    auto *handler = new StatisticEventHandler(paths::statisticDirectory());
    handler->setPeriodicity(periodicity);
    return handler;
}

} // namespace

Panorel::Panorel(QWidget *parent)
    : Panorel(*new PanorelPrivate, parent)
{ }

Panorel::Panorel(PanorelPrivate &dd, QWidget *parent)
    : QWidget(parent)
    , d(&dd)
{
    d->q = this;
    d->init();
}

Panorel::~Panorel() { delete d; }

MessageQueueBrocker *Panorel::brocker() const { return d->brocker; }

void Panorel::defaultHandlers(PluginInterface *plugin, KarvelDialogModule *dialog)
{
    // A host that is called in between, by a handler's destructor or for the question handler, may
    // call this again: the set is being built already.
    if (d->buildingHandlers)
        return;
    const QScopedValueRollback<bool> building(d->buildingHandlers, true);

    if (!d->context)
        d->context = new ReplicContext(plugin);
    d->brocker->clear();
    d->context->clear();

    // The former question handler may be emitting right now, so it goes later.
    PanorelQuestionHandler *const formerQuestionHandler = d->questionHandler;
    d->questionHandler = new PanorelQuestionHandler(d->brocker, this);
    if (dialog)
        dialog->setQuestionHandler(d->questionHandler);
    if (formerQuestionHandler)
        formerQuestionHandler->deleteLater();

    // The registry: one line for each handler, in the order in which they are subscribed.
    const auto add = [this](auto *handler) { registerEventHandler(handler->topic(), handler); };
    add(new ReplicEventHandler(d->context, plugin, dialog));
    add(new GetReplicHandler(d->context, d->brocker));
    add(new PrintStateHandler(plugin, d->brocker));
    add(new PrintHandler(plugin, d->brocker));
    add(new LogEventHandler);
    add(createStatisticEventHandler(d->statisticPeriodicity));
    add(new AbortRobotReplicHandler(d->context, plugin));
    add(new InteractionHandler(plugin, d->brocker));
    add(new GetEnvironmentHandler(d->brocker));
    add(new GetSettingHandler(plugin, d->brocker));
    add(new DriveControlHandler(plugin));
    add(new ScriptControlHandler(plugin, d->brocker));
    add(new SoundEventHandler(d->brocker));
    add(new LanguageHandler(plugin));
    add(new PlayExternalHandler(d->brocker));
    add(new FaceRecognizeControlHandler(plugin));
    add(new GeneralTouchHandler(plugin, d->brocker));
    add(new UserDatabaseHandler(plugin, d->brocker));
    add(new DispenserHandler(plugin, d->brocker));
    add(new SIPControlHandler(d->brocker));
    add(new PassportScannerHandler(plugin, d->brocker));
    add(new DocumentScannerHandler(plugin, d->brocker));
    add(new RecordAudioHandler(d->brocker));
    add(new MailSenderHandler(plugin, d->brocker));
    add(new OperatorCallHandler(plugin));
    add(new KeyboardControlHandler(plugin, d->brocker));

    // Last and subscribed by itself: on each topic of the page it runs after every other handler.
    new PanorelMessageHandler(d->proxy);
}

void Panorel::registerEventHandler(const QString &topic, MessageHandler *handler)
{
    d->brocker->subscribe(topic, handler);
}

void Panorel::registerEventHandler(const QString &topic, std::function<void(Message)> function)
{
    d->brocker->subscribe(topic, std::move(function));
}

void Panorel::setStatisticPeriodicity(const QString &periodicity)
{
    d->statisticPeriodicity = periodicity;
}

void Panorel::load(const QString &url, const QString &, bool)
{
    QWebEngineProfile *const profile = d->view->page()->profile();
    profile->clearAllVisitedLinks();
    profile->clearHttpCache();
    d->loadAfterClearing(QUrl(url));
}

} // namespace panorel
