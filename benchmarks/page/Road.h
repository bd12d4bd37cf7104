#pragma once

#include <QJsonObject>
#include <QString>

class QWebEngineView;

/// A way between a host and its page, with page.html at the far end. A page that asks with
/// "bench.echo" gets its text back; "bench.done" tells the host that the page has finished its work.
class Road
{
public:
    virtual ~Road();

    /// Loads the page. False when it is not ready in time.
    bool open();

    /// Says what send() sends from now on.
    virtual void prepare(const QString &text) = 0;
    /// One event from the host to the page.
    virtual void send() = 0;

    /// Runs a script in the page and waits until it has run.
    bool run(const QString &script);
    /// Turns the event loop until the page says that it is done. False when that takes too long.
    bool waitUntilDone();

protected:
    explicit Road(const QString &query);

    /// Loads @p url and keeps the view.
    virtual QWebEngineView *load(const QUrl &url) = 0;

    void setDone();

private:
    Q_DISABLE_COPY(Road)

    const QString m_query;
    QWebEngineView *m_view = nullptr; // not owned
    bool m_isDone = false;
};

/// The envelope of an event, finished: what a road could at best have at hand.
QJsonObject eventEnvelope(const QString &text);

/// What every echo does with the request's envelope, when nothing but JSON is in between.
QJsonObject echoEnvelope(QJsonObject request);
