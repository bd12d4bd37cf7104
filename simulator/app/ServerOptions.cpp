#include "simulator/app/ServerOptions.h"

#include <QCommandLineParser>

namespace simulator {

const quint16 ServerOptions::DefaultPort = 8080;

QList<QCommandLineOption> ServerOptions::all() const
{
    return {serve, window, port, listen, allowOrigin, oneBrowser};
}

QString ServerOptions::read(const QCommandLineParser &parser, PageServer::Settings &settings) const
{
    if (!parser.isSet(serve)) {
        for (const QCommandLineOption *option :
             {&window, &port, &listen, &allowOrigin, &oneBrowser}) {
            if (parser.isSet(*option))
                return QStringLiteral("--%1 has a meaning only with --serve.")
                    .arg(option->names().constFirst());
        }
        return {};
    }
    if (parser.isSet(port)) {
        bool isPort = false;
        settings.port = parser.value(port).toUShort(&isPort);
        if (!isPort)
            return QStringLiteral("--port is \"%1\", but has to be a number from 0 to 65535.")
                .arg(parser.value(port));
    }
    if (parser.isSet(listen) && !settings.address.setAddress(parser.value(listen)))
        return QStringLiteral(
                   "--listen is \"%1\", but has to be a numeric address of this machine, "
                   "such as 127.0.0.1, ::1 or 0.0.0.0.")
            .arg(parser.value(listen));
    settings.origins = parser.values(allowOrigin);
    for (const QString &origin : qAsConst(settings.origins)) {
        const QString mistake = AccessRules::mistakeInOrigin(origin);
        if (!mistake.isEmpty())
            return QStringLiteral("--allow-origin: ") + mistake;
    }
    settings.singleBrowser = parser.isSet(oneBrowser);
    return {};
}

} // namespace simulator
