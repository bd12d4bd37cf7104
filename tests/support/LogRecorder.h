#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include <mutex>

/// One line that went through Qt's logging.
struct LogLine
{
    QtMsgType type;
    QString category;
    QString text;
};

bool operator==(const LogLine &left, const LogLine &right);

/// Catches everything that is logged while it lives, with debug output of every category on. Only
/// one lives at a time. Threads may log.
class LogRecorder
{
public:
    LogRecorder();
    ~LogRecorder();

    /// The lines so far, which are forgotten here. Taking a warning means that it was expected.
    QVector<LogLine> take();

    /// The oldest line, which is forgotten here; an empty one when there is none.
    LogLine takeFirst();

    /// Forgets the lines that hold @p text, warnings included.
    void drop(const QString &text);

    /// The texts of the lines of one category, in order; lines of other categories stay.
    QStringList takeTexts(const QString &category);

    /// Drops what was logged so far, but keeps warnings.
    void skipDebug();

    /// Warnings and worse that nobody took.
    QStringList warnings() const;

    /// The messages of the bus as JSON, whoever took their lines. The bus logs all but the robot's
    /// face reports.
    QStringList messages() const;

private:
    Q_DISABLE_COPY(LogRecorder)

    static void record(QtMsgType type, const QMessageLogContext &context, const QString &text);

    static LogRecorder *s_current;
    QtMessageHandler m_former;
    mutable std::mutex m_mutex; // the thread sanitizer does not see through Qt's
    QVector<LogLine> m_lines;
    QStringList m_messages;
};
