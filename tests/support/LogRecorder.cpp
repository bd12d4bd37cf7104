#include "tests/support/LogRecorder.h"

#include <QLoggingCategory>

#include <algorithm>

namespace {

/// The message that the bus logs in @p line, as JSON; empty when it is another line. A handler begins
/// its lines with its name, and what a page writes is quoted.
QString messageIn(const LogLine &line)
{
    static const QString before = QStringLiteral("QJsonObject(");
    if (line.type != QtDebugMsg || line.category != QLatin1String("panorel")
        || !line.text.startsWith(before))
        return {};
    return line.text.mid(before.size(), line.text.size() - before.size() - 1);
}

} // namespace

LogRecorder *LogRecorder::s_current = nullptr;

bool operator==(const LogLine &left, const LogLine &right)
{
    return left.type == right.type && left.category == right.category && left.text == right.text;
}

LogRecorder::LogRecorder()
{
    s_current = this;
    QLoggingCategory::setFilterRules(QStringLiteral("panorel.debug=true\ndefault.debug=true"));
    m_former = qInstallMessageHandler(record);
}

LogRecorder::~LogRecorder()
{
    qInstallMessageHandler(m_former);
    s_current = nullptr;
}

QVector<LogLine> LogRecorder::take()
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    QVector<LogLine> lines;
    lines.swap(m_lines);
    return lines;
}

LogLine LogRecorder::takeFirst()
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    return m_lines.isEmpty() ? LogLine{QtDebugMsg, QString(), QString()} : m_lines.takeFirst();
}

void LogRecorder::drop(const QString &text)
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    m_lines.erase(std::remove_if(m_lines.begin(), m_lines.end(),
                                 [&text](const LogLine &line) { return line.text.contains(text); }),
                  m_lines.end());
}

QStringList LogRecorder::takeTexts(const QString &category)
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    QStringList texts;
    QVector<LogLine> others;
    for (const LogLine &line : qAsConst(m_lines)) {
        if (line.category == category)
            texts.append(line.text);
        else
            others.append(line);
    }
    m_lines.swap(others);
    return texts;
}

void LogRecorder::skipDebug()
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    m_lines.erase(std::remove_if(m_lines.begin(), m_lines.end(),
                                 [](const LogLine &line) {
                                     return line.type == QtDebugMsg || line.type == QtInfoMsg;
                                 }),
                  m_lines.end());
}

QStringList LogRecorder::warnings() const
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    QStringList texts;
    for (const LogLine &line : m_lines) {
        if (line.type != QtDebugMsg && line.type != QtInfoMsg)
            texts.append(line.category + QStringLiteral(": ") + line.text);
    }
    return texts;
}

QStringList LogRecorder::messages() const
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    return m_messages;
}

void LogRecorder::record(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    LogRecorder *const self = s_current;
    if (!self)
        return;
    if (type == QtFatalMsg) {
        self->m_former(type, context, text);
        return;
    }
    const std::lock_guard<std::mutex> locker(self->m_mutex);
    self->m_lines.append({type, QString::fromLatin1(context.category), text});
    const QString message = messageIn(self->m_lines.last());
    if (!message.isEmpty())
        self->m_messages.append(message);
}
