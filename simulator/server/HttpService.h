#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QObject>
#include <QPair>
#include <QString>
#include <QTimer>

#include <functional>
#include <memory>

struct MHD_Daemon;
class QSocketNotifier;

namespace simulator {

struct HttpRequest
{
    QByteArray method;
    /// Decoded, without the query.
    QString path;
    /// Decoded; of a name that comes twice, the last.
    QMap<QString, QString> query;
    /// By their names in lower case.
    QMap<QByteArray, QByteArray> headers;
    QByteArray body;
};

struct HttpResponse
{
    int status = 200;
    QByteArray type = "text/plain; charset=utf-8";
    QByteArray body = {};
    /// Sent in place of the body when it is not empty.
    QString file = {};
    QList<QPair<QByteArray, QByteArray>> headers = {};
};

/// Answers HTTP requests on connections that somebody else accepted, by libmicrohttpd, without a
/// thread: the event loop drives it. GUI thread.
class HttpService : public QObject
{
    Q_OBJECT

public:
    using Answer = std::function<HttpResponse(const HttpRequest &request)>;

    /// Requests with a larger body are answered with 413.
    static const int MaximumBody;

    explicit HttpService(const Answer &answer, QObject *parent = nullptr);
    ~HttpService() override;

    bool isRunning() const;

    /// Takes the connection over, and closes it.
    void take(qintptr descriptor);

private:
    friend struct HttpCallbacks;

    struct Stop
    {
        void operator()(MHD_Daemon *daemon) const;
    };

    void run();

    Answer m_answer;
    std::unique_ptr<MHD_Daemon, Stop> m_daemon;
    QSocketNotifier *m_notifier = nullptr;
    QTimer m_timer;
};

} // namespace simulator
