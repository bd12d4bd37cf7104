#pragma once

#include <QByteArray>
#include <QHostAddress>
#include <QString>
#include <QStringList>

namespace simulator {

/// Who may speak to the page server. Knows no socket. A value type.
class AccessRules
{
public:
    /// A token that cannot be guessed: 128 random bits, for an address.
    static QString makeToken();
    /// What is wrong with @p origin as an origin, "http://localhost:5173"; empty when nothing is.
    static QString mistakeInOrigin(const QString &origin);

    /// @p origins are allowed besides the server's own; each "scheme://host" or "scheme://host:port".
    AccessRules(const QHostAddress &address, quint16 port, const QString &token,
                const QStringList &origins = {});

    QString token() const { return m_token; }
    bool isToken(const QString &token) const;

    /// Whether a request's "Host" names this server: keeps out a page of elsewhere whose name was
    /// made to lead here. Where the server listens on a network, every numeric address does.
    bool isHost(const QByteArray &host) const;
    /// Whether a page of @p origin may speak to the robot. None at all, as from a program that is no
    /// browser, is allowed: such a program needs the token, and no visited page can misuse it.
    bool isOrigin(const QString &origin) const;

    /// The cookie by which the page's other files come without a token in their address. Its name has
    /// the port, and its value is not the token, since a browser sends it to every server of this
    /// machine.
    QByteArray cookieToSet() const;
    bool isCookie(const QByteArray &header) const;

private:
    bool isOwnHost(const QString &host) const;
    QByteArray cookieName() const;

    QHostAddress m_address;
    quint16 m_port;
    QString m_token;
    QString m_cookie = makeToken();
    QStringList m_origins;
};

} // namespace simulator
