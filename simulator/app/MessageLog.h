#pragma once

#include "simulator/server/MessageKind.h"

#include <QAbstractTableModel>
#include <QTime>
#include <QVector>

namespace simulator {

/// The messages on the bus, the oldest first. Bounded: the oldest give way to new ones.
class MessageLog : public QAbstractTableModel
{
    Q_OBJECT

public:
    using Direction = MessageDirection;
    enum Column { TimeColumn, DirectionColumn, TopicColumn, AttributesColumn, ColumnCount };
    enum Role {
        /// All of a message's text in one, for a filter.
        FilterRole = Qt::UserRole,
        /// Topic and attributes, readable, over several lines.
        DetailRole,
    };

    explicit MessageLog(QObject *parent = nullptr);

    /// Appends @p message, with its attributes as compact JSON. Very long JSON is cut.
    void add(const panorel::Message &message);
    void clear();

    /// While paused, messages are held back; they are appended afterwards. The bound holds for
    /// them too.
    void setPaused(bool paused);
    /// Whether reports of faces, which come many times a second, are kept; not unless set.
    void setFaceReports(bool on);
    /// How many messages are kept; 2000 unless set.
    void setLimit(int limit);

    /// How many messages went in @p direction since the start, whatever became of them here.
    qint64 total(Direction direction) const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Entry
    {
        QTime time;
        Direction direction;
        QString topic;
        QString attributes;
    };

    void append(const Entry &entry);
    QVariant cell(const Entry &entry, int column) const;

    QVector<Entry> m_entries;
    QVector<Entry> m_held;
    qint64 m_totals[3] = {0, 0, 0};
    int m_limit = 2000;
    bool m_paused = false;
    bool m_hasFaceReports = false;
};

} // namespace simulator
