#pragma once

#include "panorel/Export.h"

#include <QPointer>
#include <QString>
#include <QUrl>

class QTimer;
class QWebChannel;
class QWebEngineView;

namespace panorel {

class MessageQueueBrocker;
class Panorel;
class PanorelProxy;
class PanorelQuestionHandler;
class ReplicContext;

/// The widget's private part. A subclass of the widget may bring one that extends it.
class PANOREL_EXPORT PanorelPrivate
{
public:
    PanorelPrivate() = default;

    /// Deletes the bus, with it every handler, and then the replica context. The proxy stays, cut
    /// off from the bus, until the widget deletes its children.
    virtual ~PanorelPrivate();

    /// Builds view, channel, bus, proxy and layout. Called once, when the back pointer is set.
    void init();

    /// Loads @p url, once the web engine has done what load() asked of it before.
    void loadAfterClearing(const QUrl &url);

    QWebChannel *channel = nullptr; // child of the view's page
    QWebEngineView *view = nullptr; // child of the widget
    Panorel *q = nullptr;
    QString statisticPeriodicity;
    MessageQueueBrocker *brocker = nullptr; // owned
    PanorelProxy *proxy = nullptr; // child of the widget
    ReplicContext *context = nullptr; // owned; made by the first defaultHandlers()
    QPointer<PanorelQuestionHandler> questionHandler; // child of the widget
    bool buildingHandlers = false; // defaultHandlers() is running
    QTimer *loadTimer = nullptr; // child of the widget; null until the first load
    QUrl nextUrl; // what loadTimer waits for

protected:
    /// Makes the bus. Override to bring one that does more, for example records what it delivers.
    virtual MessageQueueBrocker *createBrocker();

private:
    Q_DISABLE_COPY(PanorelPrivate)
};

} // namespace panorel
