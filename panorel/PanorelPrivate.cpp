#include "panorel/Panorel_p.h"

#include "panorel/Panorel.h"
#include "panorel/PanorelProxy.h"
#include "panorel/PanorelQuestionHandler.h"
#include "panorel/PanorelQueueBrocker.h"
#include "panorel/ReplicContext.h"

#include <QGridLayout>
#include <QWebChannel>
#include <QWebEnginePage>
#include <QWebEngineView>

namespace panorel {

PanorelPrivate::~PanorelPrivate()
{
    // Both outlive the bus, as children of the widget.
    if (proxy)
        proxy->detach();
    if (questionHandler)
        questionHandler->detach();
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

MessageQueueBrocker *PanorelPrivate::createBrocker() { return new PanorelQueueBrocker; }

} // namespace panorel
