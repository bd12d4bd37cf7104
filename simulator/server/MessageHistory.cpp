#include "simulator/server/MessageHistory.h"

#include "simulator/server/MessageKind.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace simulator {

const int MessageHistory::Capacity = 1000;
const int MessageHistory::LongestMessage = 20000;

namespace {

QString directionName(MessageDirection direction)
{
    switch (direction) {
    case MessageDirection::PageToRobot:
        return QStringLiteral("from page");
    case MessageDirection::RobotToPage:
        return QStringLiteral("to page");
    case MessageDirection::Inside:
        break;
    }
    return QStringLiteral("inside");
}

} // namespace

void MessageHistory::add(const panorel::Message &message)
{
    if (isFaceReport(message))
        return;
    QJsonObject attributes = message.toJson();
    attributes.remove(QStringLiteral("id"));
    attributes.remove(QStringLiteral("type"));

    QJsonObject entry{
        {QStringLiteral("number"), m_next++},
        {QStringLiteral("direction"), directionName(directionOf(message))},
        {QStringLiteral("topic"), message.type()},
    };
    if (QJsonDocument(attributes).toJson(QJsonDocument::Compact).size() > LongestMessage)
        entry.insert(QStringLiteral("cut"), true);
    else
        entry.insert(QStringLiteral("attributes"), attributes);
    if (m_messages.size() == Capacity)
        m_messages.removeFirst();
    m_messages.append(entry);
}

QJsonObject MessageHistory::since(qint64 number) const
{
    const qint64 first = m_next - m_messages.size();
    QJsonArray messages;
    for (qint64 i = qMax(number, first); i < m_next; ++i)
        messages.append(m_messages.at(static_cast<int>(i - first)));
    return {{QStringLiteral("next"), m_next}, {QStringLiteral("messages"), messages}};
}

} // namespace simulator
