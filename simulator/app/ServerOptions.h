#pragma once

#include "simulator/server/PageServer.h"

#include <QCommandLineOption>
#include <QList>
#include <QString>

class QCommandLineParser;

namespace simulator {

/// The options of the command line that have to do with serving pages.
struct ServerOptions
{
    static const quint16 DefaultPort;

    QList<QCommandLineOption> all() const;

    /// Fills in @p settings what was given. Returns what is wrong, empty when nothing is.
    QString read(const QCommandLineParser &parser, PageServer::Settings &settings) const;

    QCommandLineOption serve{
        QStringLiteral("serve"),
        QStringLiteral(
            "Serve the page's folder to an ordinary browser in place of showing the page "
            "in the window; prints the address to open.")};
    QCommandLineOption window{QStringLiteral("window"),
                              QStringLiteral("With --serve: show the page in the window, too.")};
    QCommandLineOption port{
        QStringLiteral("port"),
        QStringLiteral("With --serve: the port; 0 for any that is free. Default: 8080."),
        QStringLiteral("NUMBER")};
    QCommandLineOption listen{
        QStringLiteral("listen"),
        QStringLiteral(
            "With --serve: the address to listen at. Default: 127.0.0.1, which only this "
            "machine reaches."),
        QStringLiteral("ADDRESS")};
    QCommandLineOption allowOrigin{
        QStringLiteral("allow-origin"),
        QStringLiteral("With --serve: let pages of this origin in, too, such as "
                       "http://localhost:5173, a bundler's server. May be given more than once."),
        QStringLiteral("ORIGIN")};
    QCommandLineOption oneBrowser{
        QStringLiteral("one-browser"),
        QStringLiteral("With --serve: refuse a browser while another one is connected.")};
};

} // namespace simulator
