#include "simulator/server/PageServer.h"

#include "simulator/server/BrowserConnections.h"
#include "simulator/server/ConnectionSorter.h"
#include "simulator/server/HttpService.h"
#include "simulator/server/RobotControl.h"

#include <QFile>
#include <QTcpSocket>
#include <QUrlQuery>

namespace simulator {

namespace {

HttpResponse message(int status, const char *text)
{
    return {status, "text/plain; charset=utf-8", QByteArray(text) + '\n'};
}

// Qt's own client of web channels, out of Qt's library.
HttpResponse webChannelClient()
{
    QFile file(QStringLiteral(":/qtwebchannel/qwebchannel.js"));
    file.open(QIODevice::ReadOnly);
    return {200, "text/javascript; charset=utf-8", file.readAll()};
}

} // namespace

PageServer::PageServer(const Settings &settings, const QHash<QString, QObject *> &objects,
                       RobotControl *control, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_control(control)
    , m_files(settings.folder)
    , m_rules(settings.address, settings.port, settings.token, settings.origins)
    , m_browsers(std::make_unique<BrowserConnections>(objects, &m_rules))
    , m_http(std::make_unique<HttpService>(
          [this](const HttpRequest &request) { return answer(request); }))
    , m_sorter(std::make_unique<ConnectionSorter>())
{
    m_browsers->setSingle(settings.singleBrowser);
    connect(m_browsers.get(), &BrowserConnections::countChanged, this,
            &PageServer::browsersChanged);
    connect(m_browsers.get(), &BrowserConnections::refused, this, &PageServer::refused);
    connect(m_sorter.get(), &ConnectionSorter::channelAsked, m_browsers.get(),
            &BrowserConnections::take);
    connect(m_sorter.get(), &ConnectionSorter::pageAsked, m_http.get(), &HttpService::take);
}

PageServer::~PageServer() = default;

bool PageServer::listen()
{
    if (!m_http->isRunning()) {
        m_problem = tr("Pages cannot be served: the HTTP library does not start.");
        return false;
    }
    if (!m_sorter->listen(m_settings.address, m_settings.port)) {
        m_problem = tr("Pages cannot be served at %1, port %2: %3.\nTry another one with --port, "
                       "or --port 0 for any that is free.")
                        .arg(m_settings.address.toString())
                        .arg(m_settings.port)
                        .arg(m_sorter->errorString());
        return false;
    }
    m_rules = AccessRules(m_settings.address, m_sorter->serverPort(), m_settings.token,
                          m_settings.origins);
    return true;
}

QString PageServer::problem() const { return m_problem; }

QUrl PageServer::address() const
{
    QHostAddress host = m_settings.address;
    if (host == QHostAddress::Any || host == QHostAddress::AnyIPv4)
        host = QHostAddress(QHostAddress::LocalHost);
    else if (host == QHostAddress::AnyIPv6)
        host = QHostAddress(QHostAddress::LocalHostIPv6);

    QUrl url;
    url.setScheme(QStringLiteral("http"));
    url.setHost(host.toString());
    url.setPort(m_sorter->serverPort());
    url.setPath(QLatin1Char('/') + m_settings.page);
    QUrlQuery query;
    query.addQueryItem(QStringLiteral("token"), m_settings.token);
    url.setQuery(query);
    return url;
}

int PageServer::browsers() const { return m_browsers->count(); }

HttpResponse PageServer::answer(const HttpRequest &request) const
{
    if (!m_rules.isHost(request.headers.value("host")))
        return message(421, "This server has another name.");
    const bool hasToken = m_rules.isToken(request.query.value(QStringLiteral("token")));
    HttpResponse response = request.path.startsWith(QLatin1String("/robot/"))
        ? answerControl(request, hasToken)
        : answerFile(request, hasToken);
    // Whoever is sent away keeps no place.
    if (response.status >= 400)
        response.headers += {{"Connection", "close"}};
    // Files are under work, and the address with its token is nobody else's business.
    response.headers += {{"Cache-Control", "no-store"},
                         {"Referrer-Policy", "no-referrer"},
                         {"X-Content-Type-Options", "nosniff"}};
    return response;
}

HttpResponse PageServer::answerFile(const HttpRequest &request, bool hasToken) const
{
    if (request.method != "GET" && request.method != "HEAD") {
        HttpResponse response = message(405, "Files can only be read.");
        response.headers = {{"Allow", "GET, HEAD"}};
        return response;
    }
    if (request.path == QLatin1String("/qwebchannel.js"))
        return webChannelClient();
    if (!hasToken && !m_rules.isCookie(request.headers.value("cookie")))
        return message(403, "This needs the token: open the address that the simulator printed.");

    const PageFiles::Found found = m_files.find(request.path);
    HttpResponse response;
    if (found.file.isEmpty() && request.path == QLatin1String("/favicon.ico")) {
        response.status = 204; // a browser asks for it unbidden
        return response;
    }
    if (found.isFolder) {
        response = message(308, "A folder's address ends with a slash.");
        response.headers = {
            {"Location",
             QUrl::toPercentEncoding(request.path, "/") + '/'
                 + (hasToken ? "?token=" + m_settings.token.toLatin1() : QByteArray())}};
    } else if (found.file.isEmpty()) {
        return message(404, "There is no such file in the folder that is served.");
    } else {
        response.type = found.type;
        response.file = found.file;
    }
    if (hasToken)
        response.headers.append({"Set-Cookie", m_rules.cookieToSet()});
    return response;
}

HttpResponse PageServer::answerControl(const HttpRequest &request, bool hasToken) const
{
    if (!m_control)
        return message(404, "This server offers no controls of the robot.");
    if (!m_rules.isOrigin(QString::fromLatin1(request.headers.value("origin"))))
        return message(403, "Pages of this origin are not let in; --allow-origin does so.");
    // Not by the cookie: a page's own requests must not steer the robot by accident.
    if (!hasToken)
        return message(403, "This needs the token: ?token=... of the address that was printed.");
    const RobotControl::Reply reply =
        m_control->answer(request.method, request.path.mid(7), request.query, request.body);
    return {reply.status, "application/json; charset=utf-8", reply.body};
}

} // namespace simulator
