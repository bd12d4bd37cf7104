#include "simulator/app/MessageLog.h"

#include <QColor>
#include <QJsonDocument>
#include <QJsonObject>

namespace simulator {

namespace {

const int LongestJson = 20000;
const int LongestCell = 300;

QString cut(const QString &text, int length)
{
    if (text.size() <= length)
        return text;
    return text.left(length) + QStringLiteral("… (%1 characters)").arg(text.size());
}

QString directionText(MessageLog::Direction direction)
{
    switch (direction) {
    case MessageLog::Direction::PageToRobot:
        return QStringLiteral("page → robot");
    case MessageLog::Direction::RobotToPage:
        return QStringLiteral("robot → page");
    case MessageLog::Direction::Inside:
        break;
    }
    return QStringLiteral("inside");
}

QColor directionColour(MessageLog::Direction direction)
{
    switch (direction) {
    case MessageLog::Direction::PageToRobot:
        return {0x8a, 0x4b, 0x08};
    case MessageLog::Direction::RobotToPage:
        return {0x0b, 0x5c, 0x8a};
    case MessageLog::Direction::Inside:
        break;
    }
    return {0x60, 0x60, 0x60};
}

} // namespace

MessageLog::MessageLog(QObject *parent)
    : QAbstractTableModel(parent)
{ }

void MessageLog::add(const panorel::Message &message)
{
    const Direction direction = directionOf(message);
    ++m_totals[static_cast<int>(direction)];
    if (!m_hasFaceReports && isFaceReport(message))
        return;

    QJsonObject attributes = message.toJson();
    attributes.remove(QStringLiteral("id"));
    attributes.remove(QStringLiteral("type"));
    const QByteArray json = QJsonDocument(attributes).toJson(QJsonDocument::Compact);

    const Entry entry{QTime::currentTime(), direction, message.type(),
                      cut(QString::fromUtf8(json), LongestJson)};
    if (!m_paused) {
        append(entry);
        return;
    }
    m_held.append(entry);
    if (m_held.size() > m_limit)
        m_held.removeFirst();
}

void MessageLog::clear()
{
    beginResetModel();
    m_entries.clear();
    m_held.clear();
    endResetModel();
}

void MessageLog::setPaused(bool paused)
{
    m_paused = paused;
    if (m_paused)
        return;
    QVector<Entry> held;
    held.swap(m_held);
    for (const Entry &entry : qAsConst(held))
        append(entry);
}

void MessageLog::setFaceReports(bool on) { m_hasFaceReports = on; }

void MessageLog::setLimit(int limit)
{
    m_limit = qMax(1, limit);
    const int surplus = m_entries.size() - m_limit;
    if (surplus > 0) {
        beginRemoveRows(QModelIndex(), 0, surplus - 1);
        m_entries.remove(0, surplus);
        endRemoveRows();
    }
}

qint64 MessageLog::total(Direction direction) const
{
    return m_totals[static_cast<int>(direction)];
}

int MessageLog::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_entries.size();
}

int MessageLog::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant MessageLog::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_entries.size())
        return {};
    const Entry &entry = m_entries.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return cell(entry, index.column());
    case Qt::ForegroundRole:
        return directionColour(entry.direction);
    case FilterRole:
        return QStringLiteral("%1 %2 %3")
            .arg(directionText(entry.direction), entry.topic, entry.attributes);
    case DetailRole: {
        const QJsonDocument json = QJsonDocument::fromJson(entry.attributes.toUtf8());
        // JSON that was cut cannot be read any more, and shows as it is.
        const QString attributes =
            json.isNull() ? entry.attributes : QString::fromUtf8(json.toJson()).trimmed();
        return QStringLiteral("%1  %2\n%3")
            .arg(directionText(entry.direction), entry.topic, attributes);
    }
    default:
        return {};
    }
}

QVariant MessageLog::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case TimeColumn:
        return QStringLiteral("Time");
    case DirectionColumn:
        return QStringLiteral("Direction");
    case TopicColumn:
        return QStringLiteral("Topic");
    case AttributesColumn:
        return QStringLiteral("Attributes");
    default:
        return {};
    }
}

void MessageLog::append(const Entry &entry)
{
    if (m_entries.size() >= m_limit) {
        beginRemoveRows(QModelIndex(), 0, 0);
        m_entries.removeFirst();
        endRemoveRows();
    }
    beginInsertRows(QModelIndex(), m_entries.size(), m_entries.size());
    m_entries.append(entry);
    endInsertRows();
}

QVariant MessageLog::cell(const Entry &entry, int column) const
{
    switch (column) {
    case TimeColumn:
        return entry.time.toString(QStringLiteral("HH:mm:ss"));
    case DirectionColumn:
        return directionText(entry.direction);
    case TopicColumn:
        return cut(entry.topic, LongestCell);
    case AttributesColumn:
        return cut(entry.attributes, LongestCell);
    default:
        return {};
    }
}

} // namespace simulator
