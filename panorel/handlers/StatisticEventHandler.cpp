#include "panorel/handlers/StatisticEventHandler.h"

#include "panorel/Constants.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QLocale>

namespace panorel {

namespace {

/// Whether @p topic stays inside its folder when it is used as a file name.
bool isFileName(const QString &topic)
{
    return !topic.isEmpty() && !topic.contains(QLatin1Char('/'))
        && !topic.contains(QLatin1Char('\\')) && !topic.contains(QChar(QChar::Null));
}

} // namespace

StatisticEventHandler::StatisticEventHandler(const QString &directory)
    : m_directory(directory)
{ }

QString StatisticEventHandler::topic() const { return constants::STATISTIC; }

void StatisticEventHandler::setPeriodicity(const QString &periodicity)
{
    m_periodicity = periodicity;
}

void StatisticEventHandler::handle(Message message)
{
    const QVariantMap attributes = message.attributes();
    const QString topic = attributes.value(QStringLiteral("topic")).toString();
    if (!isFileName(topic))
        return; // nothing to write to: dropped

    const QString folder = QDir::toNativeSeparators(m_directory) + QDir::separator()
        + periodFolder(m_periodicity, QDate::currentDate());
    // A folder that cannot be created shows as a file that cannot be opened.
    QDir().mkpath(folder);

    const QStringList data = attributes.value(QStringLiteral("data")).toStringList();
    QFile file(folder + QDir::separator() + topic + QStringLiteral(".csv"));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append))
        return; // lost silently: the page has no use for an answer
    for (const QString &record : data)
        file.write(record.toUtf8());
}

QString StatisticEventHandler::periodFolder(const QString &periodicity, const QDate &date)
{
    // The C locale: folder names must not change with the robot's language.
    const QLocale locale = QLocale::c();
    const QString day = QStringLiteral("dd.MM.yyyy");
    if (periodicity == QLatin1String("year"))
        return locale.toString(date, QStringLiteral("yyyy"));
    if (periodicity == QLatin1String("month"))
        return locale.toString(date, QStringLiteral("MM.yyyy"));
    if (periodicity == QLatin1String("week")) {
        const QDate monday = date.addDays(Qt::Monday - date.dayOfWeek());
        const QDate sunday = date.addDays(Qt::Sunday - date.dayOfWeek());
        return locale.toString(monday, day) + QLatin1Char('-') + locale.toString(sunday, day);
    }
    return locale.toString(date, day);
}

} // namespace panorel
