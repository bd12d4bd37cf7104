#include "simulator/server/HttpService.h"

#include <QFile>
#include <QSocketNotifier>

#include <microhttpd.h>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace simulator {

const int HttpService::MaximumBody = 1024 * 1024;

namespace {

const unsigned IdleSeconds = 30;
const unsigned MaximumConnections = 64;

struct ReceivedRequest
{
    HttpRequest request;
    bool isTooLarge = false;
};

MHD_Result addHeader(void *headers, MHD_ValueKind, const char *key, const char *value)
{
    static_cast<QMap<QByteArray, QByteArray> *>(headers)->insert(QByteArray(key).toLower(), value);
    return MHD_YES;
}

MHD_Result addQueryItem(void *query, MHD_ValueKind, const char *key, const char *value)
{
    static_cast<QMap<QString, QString> *>(query)->insert(QString::fromUtf8(key),
                                                         QString::fromUtf8(value));
    return MHD_YES;
}

// Null when the file has gone.
MHD_Response *fileResponse(const QString &path)
{
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    struct stat status = {};
    if (file < 0)
        return nullptr;
    if (::fstat(file, &status) != 0 || !S_ISREG(status.st_mode)) {
        ::close(file);
        return nullptr;
    }
    return MHD_create_response_from_fd64(static_cast<uint64_t>(status.st_size), file);
}

MHD_Response *bodyResponse(const QByteArray &body)
{
    // The library copies and does not write.
    return MHD_create_response_from_buffer(static_cast<size_t>(body.size()),
                                           const_cast<char *>(body.constData()),
                                           MHD_RESPMEM_MUST_COPY);
}

MHD_Result send(MHD_Connection *connection, const HttpResponse &answer)
{
    HttpResponse response = answer;
    MHD_Response *made = nullptr;
    if (!response.file.isEmpty()) {
        made = fileResponse(response.file);
        if (!made)
            response = {404, "text/plain; charset=utf-8", "This file cannot be read any more.\n"};
    }
    if (!made)
        made = bodyResponse(response.body);
    if (!made)
        return MHD_NO;
    MHD_add_response_header(made, MHD_HTTP_HEADER_CONTENT_TYPE, response.type.constData());
    for (const auto &header : qAsConst(response.headers))
        MHD_add_response_header(made, header.first.constData(), header.second.constData());
    const MHD_Result result =
        MHD_queue_response(connection, static_cast<unsigned>(response.status), made);
    MHD_destroy_response(made);
    return result;
}

} // namespace

/// What the library calls.
struct HttpCallbacks
{
    // First without a body, then for each piece of it, then once more at its end.
    static MHD_Result handle(void *service, MHD_Connection *connection, const char *url,
                             const char *method, const char *, const char *data, size_t *size,
                             void **context)
    {
        auto *received = static_cast<ReceivedRequest *>(*context);
        if (!received) {
            received = new ReceivedRequest;
            *context = received;
            HttpRequest &request = received->request;
            request.method = method;
            request.path = QString::fromUtf8(url);
            MHD_get_connection_values(connection, MHD_HEADER_KIND, &addHeader, &request.headers);
            MHD_get_connection_values(connection, MHD_GET_ARGUMENT_KIND, &addQueryItem,
                                      &request.query);
            return MHD_YES;
        }
        if (*size > 0) {
            QByteArray &body = received->request.body;
            received->isTooLarge = received->isTooLarge
                || *size > static_cast<size_t>(HttpService::MaximumBody - body.size());
            if (received->isTooLarge)
                body.clear(); // what is left is read, so that the sender hears the answer
            else
                body.append(data, static_cast<int>(*size));
            *size = 0;
            return MHD_YES;
        }
        if (received->isTooLarge)
            return send(connection, {413, "text/plain; charset=utf-8", "Too large.\n"});
        return send(connection, static_cast<HttpService *>(service)->m_answer(received->request));
    }

    static void finish(void *, MHD_Connection *, void **context, MHD_RequestTerminationCode)
    {
        delete static_cast<ReceivedRequest *>(*context);
        *context = nullptr;
    }
};

void HttpService::Stop::operator()(MHD_Daemon *daemon) const { MHD_stop_daemon(daemon); }

HttpService::HttpService(const Answer &answer, QObject *parent)
    : QObject(parent)
    , m_answer(answer)
    , m_daemon(MHD_start_daemon(MHD_USE_EPOLL | MHD_USE_NO_LISTEN_SOCKET, 0, nullptr, nullptr,
                                &HttpCallbacks::handle, this, MHD_OPTION_NOTIFY_COMPLETED,
                                &HttpCallbacks::finish, nullptr, MHD_OPTION_CONNECTION_TIMEOUT,
                                IdleSeconds, MHD_OPTION_CONNECTION_LIMIT, MaximumConnections,
                                MHD_OPTION_END))
{
    if (!m_daemon)
        return;
    const MHD_DaemonInfo *info = MHD_get_daemon_info(m_daemon.get(), MHD_DAEMON_INFO_EPOLL_FD);
    m_notifier = new QSocketNotifier(info->epoll_fd, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &HttpService::run);
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &HttpService::run);
}

HttpService::~HttpService() = default;

bool HttpService::isRunning() const { return m_daemon != nullptr; }

void HttpService::take(qintptr descriptor)
{
    const int socket = static_cast<int>(descriptor);
    sockaddr_storage address = {};
    socklen_t size = sizeof address;
    if (!m_daemon || ::getpeername(socket, reinterpret_cast<sockaddr *>(&address), &size) != 0) {
        ::close(socket);
        return;
    }
    // Takes the descriptor, also when it fails.
    MHD_add_connection(m_daemon.get(), socket, reinterpret_cast<sockaddr *>(&address), size);
    run();
}

void HttpService::run()
{
    MHD_run(m_daemon.get());
    MHD_UNSIGNED_LONG_LONG milliseconds = 0;
    if (MHD_get_timeout(m_daemon.get(), &milliseconds) == MHD_YES)
        m_timer.start(static_cast<int>(qMin<MHD_UNSIGNED_LONG_LONG>(milliseconds, 60000)));
    else
        m_timer.stop();
}

} // namespace simulator
