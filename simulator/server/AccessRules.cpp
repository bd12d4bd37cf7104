#include "simulator/server/AccessRules.h"

#include <QRandomGenerator>
#include <QSysInfo>
#include <QUrl>

namespace simulator {

namespace {

// Takes the same time wherever the first difference is.
bool areSame(const QString &one, const QString &other)
{
    if (one.size() != other.size())
        return false;
    uint difference = 0;
    for (int i = 0; i < one.size(); ++i)
        difference |= static_cast<uint>(one.at(i).unicode() ^ other.at(i).unicode());
    return difference == 0;
}

} // namespace

QString AccessRules::makeToken()
{
    quint32 words[4];
    QRandomGenerator::system()->fillRange(words);
    const QByteArray bytes(reinterpret_cast<const char *>(words), sizeof words);
    return QString::fromLatin1(
        bytes.toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals));
}

QString AccessRules::mistakeInOrigin(const QString &origin)
{
    const QUrl url(origin, QUrl::StrictMode);
    const bool hasScheme =
        url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
    const bool isBare =
        url.path().isEmpty() && !url.hasQuery() && !url.hasFragment() && url.userInfo().isEmpty();
    if (url.isValid() && hasScheme && !url.host().isEmpty() && isBare)
        return {};
    return QStringLiteral(
               "\"%1\" is no origin, which has a scheme, a host and maybe a port, such as "
               "http://localhost:5173.")
        .arg(origin);
}

AccessRules::AccessRules(const QHostAddress &address, quint16 port, const QString &token,
                         const QStringList &origins)
    : m_address(address)
    , m_port(port)
    , m_token(token)
    , m_origins(origins)
{ }

bool AccessRules::isToken(const QString &token) const { return areSame(token, m_token); }

bool AccessRules::isHost(const QByteArray &host) const
{
    const QUrl url(QStringLiteral("http://") + QString::fromLatin1(host), QUrl::StrictMode);
    return url.isValid() && isOwnHost(url.host()) && url.port(80) == m_port;
}

bool AccessRules::isOrigin(const QString &origin) const
{
    if (origin.isEmpty() || m_origins.contains(origin, Qt::CaseInsensitive))
        return true;
    const QUrl url(origin, QUrl::StrictMode);
    return url.isValid() && url.scheme() == QLatin1String("http") && isOwnHost(url.host())
        && url.port(80) == m_port;
}

bool AccessRules::isOwnHost(const QString &host) const
{
    if (host == QLatin1String("localhost"))
        return true;
    const QHostAddress address(host);
    if (!address.isNull())
        return address.isLoopback() || !m_address.isLoopback();
    return !m_address.isLoopback() && host == QSysInfo::machineHostName().toLower();
}

QByteArray AccessRules::cookieName() const
{
    return "panorel-simulator-" + QByteArray::number(m_port);
}

QByteArray AccessRules::cookieToSet() const
{
    return cookieName() + '=' + m_cookie.toLatin1() + "; Path=/; HttpOnly; SameSite=Strict";
}

bool AccessRules::isCookie(const QByteArray &header) const
{
    const QByteArray name = cookieName() + '=';
    const QList<QByteArray> cookies = header.split(';');
    for (const QByteArray &cookie : cookies) {
        const QByteArray one = cookie.trimmed();
        if (one.startsWith(name) && areSame(QString::fromLatin1(one.mid(name.size())), m_cookie))
            return true;
    }
    return false;
}

} // namespace simulator
