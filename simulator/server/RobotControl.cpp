#include "simulator/server/RobotControl.h"

#include "simulator/server/RobotState.h"

#include <QJsonDocument>

namespace simulator {

namespace {

RobotControl::Reply reply(int status, const QJsonObject &object)
{
    return {status, QJsonDocument(object).toJson(QJsonDocument::Compact)};
}

RobotControl::Reply mistake(int status, const QString &text)
{
    return reply(status, {{QStringLiteral("error"), text}});
}

} // namespace

RobotControl::RobotControl(RobotCore *core, panorel::MessageQueueBrocker *brocker)
    : m_core(core)
    , m_actions({core, brocker})
{ }

RobotControl::Reply RobotControl::answer(const QByteArray &method, const QString &name,
                                         const QMap<QString, QString> &query,
                                         const QByteArray &body)
{
    if (method == "GET")
        return tell(name, query);
    if (method == "POST")
        return perform(name, body);
    return mistake(405, QStringLiteral("The robot takes GET and POST."));
}

RobotControl::Reply RobotControl::tell(const QString &name,
                                       const QMap<QString, QString> &query) const
{
    if (name == QLatin1String("state"))
        return reply(200, robotState(m_core));
    if (name != QLatin1String("messages"))
        return mistake(404,
                       QStringLiteral("The robot tells its \"state\" and its \"messages\"; "
                                      "actions are asked for with POST."));
    bool isNumber = true;
    const QString since = query.value(QStringLiteral("since"), QStringLiteral("0"));
    const qint64 number = since.toLongLong(&isNumber);
    if (!isNumber || number < 0)
        return mistake(400, QStringLiteral("\"since\" has to be the number of a message."));
    return reply(200, m_history.since(number));
}

RobotControl::Reply RobotControl::perform(const QString &name, const QByteArray &body)
{
    if (!RobotActions::isKnown(name))
        return mistake(404,
                       QStringLiteral("There is no action \"%1\"; there are: %2.")
                           .arg(name, RobotActions::names().join(QStringLiteral(", "))));
    QJsonObject values;
    if (!body.trimmed().isEmpty()) {
        QJsonParseError error;
        const QJsonDocument document = QJsonDocument::fromJson(body, &error);
        if (!document.isObject())
            return mistake(
                400,
                QStringLiteral("The body has to be a JSON object: %1.").arg(error.errorString()));
        values = document.object();
    }
    const RobotActions::Outcome outcome = m_actions.perform(name, values);
    return outcome.mistake.isEmpty() ? reply(200, outcome.result) : mistake(400, outcome.mistake);
}

} // namespace simulator
