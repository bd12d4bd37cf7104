#pragma once

#include "simulator/server/AccessRules.h"
#include "simulator/server/PageFiles.h"

#include <QHash>
#include <QHostAddress>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <memory>

namespace simulator {

class BrowserConnections;
class ConnectionSorter;
class HttpService;
class RobotControl;
struct HttpRequest;
struct HttpResponse;

/// Lets an ordinary browser be the robot's screen: on one port it sends a folder's files and
/// "/qwebchannel.js", offers the robot's object at the WebSocket "/channel", and takes the robot's
/// controls at "/robot/". All but "/qwebchannel.js", which anybody may read, needs the token. GUI
/// thread.
class PageServer : public QObject
{
    Q_OBJECT

public:
    struct Settings
    {
        QString folder;
        /// The page in the folder, "index.html"; that one may be left out of the address.
        QString page = {};
        QHostAddress address = QHostAddress(QHostAddress::LocalHost);
        /// 0 takes any that is free.
        quint16 port = 0;
        QString token = AccessRules::makeToken();
        /// Pages of these origins may speak to the robot, too.
        QStringList origins = {};
        bool singleBrowser = false;
    };

    /// @p objects are what the page reaches, by their names. Neither they nor @p control, which may be
    /// null, are owned; all outlive the server.
    PageServer(const Settings &settings, const QHash<QString, QObject *> &objects,
               RobotControl *control = nullptr, QObject *parent = nullptr);
    ~PageServer() override;

    /// Returns false, and problem() says why, when it cannot be reached.
    bool listen();
    QString problem() const;

    /// The page's address, with the token. Where the server listens on every address of the machine,
    /// it names the loopback one.
    QUrl address() const;
    /// How many browsers hold a channel.
    int browsers() const;

Q_SIGNALS:
    void browsersChanged(int count);
    void refused(const QString &reason);

private:
    HttpResponse answer(const HttpRequest &request) const;
    HttpResponse answerFile(const HttpRequest &request, bool hasToken) const;
    HttpResponse answerControl(const HttpRequest &request, bool hasToken) const;

    Settings m_settings;
    RobotControl *m_control;
    PageFiles m_files;
    AccessRules m_rules;
    QString m_problem;
    std::unique_ptr<BrowserConnections> m_browsers;
    std::unique_ptr<HttpService> m_http;
    std::unique_ptr<ConnectionSorter> m_sorter;
};

} // namespace simulator
