#include "panorel/Panorel_p.h"

#include "panorel/Panorel.h"
#include "panorel/PanorelProxy.h"
#include "panorel/PanorelQuestionHandler.h"
#include "panorel/PanorelQueueBrocker.h"
#include "panorel/ReplicContext.h"

#include <QGridLayout>
#include <QTimer>
#include <QWebChannel>
#include <QWebEnginePage>
#include <QWebEngineView>

namespace panorel {

namespace {

// Ten times what was enough on a busy machine with two cores.
constexpr int cacheClearingMs = 200;

} // namespace

PanorelPrivate::~PanorelPrivate()
{
    // Both outlive the bus, as children of the widget.
    if (proxy)
        proxy->detach();
    if (questionHandler)
        questionHandler->detach();
    delete loadTimer;
    delete brocker;
    delete context;
}

void PanorelPrivate::init()
{
    view = new QWebEngineView(q);
    channel = new QWebChannel(view->page());
    view->page()->setWebChannel(channel);
    brocker = createBrocker();
    proxy = new PanorelProxy(brocker, q);
    channel->registerObject(QStringLiteral("_karvel_internal"), proxy);

    auto *layout = new QGridLayout(q);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view, 0, 0, 1, 1);
    q->setLayout(layout);
}

void PanorelPrivate::loadAfterClearing(const QUrl &url)
{
    // The engine clears its cache in the background and does not tell when it is done. A load over
    // HTTP that begins meanwhile may never end, unless it is the first, which finds the cache
    // still closed.
    const bool isFirst = !loadTimer;
    if (isFirst) {
        loadTimer = new QTimer(q);
        loadTimer->setSingleShot(true);
        loadTimer->setInterval(cacheClearingMs);
        QObject::connect(loadTimer, &QTimer::timeout, view, [this] { view->load(nextUrl); });
        view->load(url);
        return;
    }
    nextUrl = url;
    loadTimer->start();
}

MessageQueueBrocker *PanorelPrivate::createBrocker() { return new PanorelQueueBrocker; }

} // namespace panorel
