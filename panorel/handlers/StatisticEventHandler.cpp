#include "panorel/handlers/StatisticEventHandler.h"

#include "panorel/Constants.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QLocale>

#include <cerrno>
#include <ctime>

#include <fcntl.h>
#include <unistd.h>

namespace panorel {

namespace {

/// Whether @p topic stays inside its folder when it is used as a file name.
bool isFileName(const QString &topic)
{
    return !topic.isEmpty() && !topic.contains(QLatin1Char('/'))
        && !topic.contains(QLatin1Char('\\')) && !topic.contains(QChar(QChar::Null));
}

/// A file that is appended to; closed at the end of its scope. QFile asks the system half as many
/// questions again.
class AppendedFile
{
public:
    explicit AppendedFile(const QByteArray &path)
        : m_descriptor(open(path.constData(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666))
    { }

    ~AppendedFile()
    {
        if (isOpen())
            close(m_descriptor);
    }

    bool isOpen() const { return m_descriptor >= 0; }

    void write(const QByteArray &bytes)
    {
        int written = 0;
        while (written < bytes.size()) {
            const ssize_t count = ::write(m_descriptor, bytes.constData() + written,
                                          static_cast<std::size_t>(bytes.size() - written));
            if (count < 0 && errno == EINTR)
                continue;
            if (count <= 0)
                return;
            written += static_cast<int>(count);
        }
    }

private:
    Q_DISABLE_COPY(AppendedFile)

    const int m_descriptor;
};

/// False when the file cannot be opened. What cannot be written is lost silently: the page has no use
/// for an answer.
bool append(const QByteArray &path, const QStringList &records)
{
    AppendedFile file(path);
    if (!file.isOpen())
        return false;
    QByteArray bytes;
    for (const QString &record : records)
        bytes += record.toUtf8();
    file.write(bytes);
    return true;
}

} // namespace

StatisticEventHandler::StatisticEventHandler(const QString &directory)
    : m_directory(directory)
{ }

QString StatisticEventHandler::topic() const { return constants::STATISTIC; }

void StatisticEventHandler::setPeriodicity(const QString &periodicity)
{
    m_periodicity = periodicity;
    m_folder.clear();
}

void StatisticEventHandler::handle(Message message)
{
    const QVariantMap attributes = message.attributes();
    const QString topic = attributes.value(QStringLiteral("topic")).toString();
    if (!isFileName(topic))
        return; // nothing to write to: dropped

    const QString folder = currentFolder();
    const QByteArray path =
        QFile::encodeName(folder + QDir::separator() + topic + QStringLiteral(".csv"));
    const QStringList data = attributes.value(QStringLiteral("data")).toStringList();
    if (!append(path, data)) {
        QDir().mkpath(folder);
        append(path, data);
    }
}

/// Finding the local date costs more than writing the records. Unless somebody sets the time zone, it
/// changes only with a quarter of an hour: zones are multiples of that away from UTC.
const QString &StatisticEventHandler::currentFolder()
{
    constexpr qint64 secondsOfAQuarter = 900;
    const qint64 quarter = std::time(nullptr) / secondsOfAQuarter;
    if (m_folder.isEmpty() || quarter != m_quarter) {
        m_quarter = quarter;
        m_folder = QDir::toNativeSeparators(m_directory) + QDir::separator()
            + periodFolder(m_periodicity, QDate::currentDate());
    }
    return m_folder;
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
