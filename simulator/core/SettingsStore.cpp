#include "simulator/core/SettingsStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTimer>

namespace simulator {

namespace {

const int WriteTime = 200; // until an editor has written all of a file

QString told(const QString &file, const QString &what)
{
    return QStringLiteral(
               "The settings in \"%1\" cannot be %2. Until the program ends others are used.")
        .arg(QDir::cleanPath(QFileInfo(file).absoluteFilePath()), what);
}

} // namespace

SettingsStore::SettingsStore(QObject *parent)
    : QObject(parent)
{
    auto *pause = new QTimer(this);
    pause->setSingleShot(true);
    pause->setInterval(WriteTime);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, pause, qOverload<>(&QTimer::start));
    connect(pause, &QTimer::timeout, this, &SettingsStore::onFileChanged);
}

QString SettingsStore::open(const QString &file)
{
    m_file = file;
    QString problem;
    if (QFileInfo::exists(file)) {
        QMap<QString, QVariant> values;
        problem = read(values);
        if (problem.isEmpty())
            m_values = values;
    } else {
        problem = write();
    }
    if (problem.isEmpty())
        m_watcher.addPath(file);
    else
        m_file.clear();
    return problem;
}

QString SettingsStore::read(QMap<QString, QVariant> &values) const
{
    QSettings settings(m_file, QSettings::IniFormat);
    settings.setIniCodec("UTF-8");
    const QStringList keys = settings.allKeys();
    if (settings.status() != QSettings::NoError || !QFileInfo(m_file).isReadable())
        return told(m_file,
                    QStringLiteral("read: mend the file, or delete it and a new one is made"));
    for (const QString &key : keys) {
        // Without quotes, commas make a list of a text.
        const QString text = settings.value(key).toStringList().join(QStringLiteral(", "));
        values.insert(QLatin1Char('/') + key, fromText(text));
    }
    return {};
}

QString SettingsStore::write() const
{
    const bool hasFolder = QDir().mkpath(QFileInfo(m_file).path());
    QSettings settings(m_file, QSettings::IniFormat);
    settings.setIniCodec("UTF-8");
    settings.clear();
    for (auto it = m_values.cbegin(); it != m_values.cend(); ++it)
        settings.setValue(it.key().mid(1), toText(it.value()));
    settings.sync();
    if (m_values.isEmpty())
        QFile(m_file).open(QIODevice::WriteOnly); // QSettings makes none for nothing
    // Passwords are nobody else's business.
    QFile::setPermissions(m_file, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    if (hasFolder && settings.status() == QSettings::NoError)
        return {};
    return told(m_file, QStringLiteral("written: let yourself write to the folder"));
}

// An editor may put another file in the place of this one, or delete it for a moment.
void SettingsStore::onFileChanged()
{
    if (!QFileInfo::exists(m_file))
        return;
    m_watcher.addPath(m_file);
    QMap<QString, QVariant> values;
    if (!read(values).isEmpty() || values == m_values)
        return;
    m_values = values;
    Q_EMIT changed();
}

QVariant SettingsStore::value(const QString &key, const QVariant &defaultValue) const
{
    return m_values.value(key, defaultValue);
}

// What cannot be written is kept until the program ends.
void SettingsStore::keep() const
{
    const QString problem = m_file.isEmpty() ? QString() : write();
    if (!problem.isEmpty())
        qWarning("%s", qUtf8Printable(problem));
}

void SettingsStore::setValue(const QString &key, const QVariant &value)
{
    if (m_values.contains(key) && m_values.value(key) == value)
        return;
    m_values.insert(key, value);
    keep();
    Q_EMIT changed();
}

void SettingsStore::remove(const QString &key)
{
    if (m_values.remove(key) == 0)
        return;
    keep();
    Q_EMIT changed();
}

QMap<QString, QVariant> SettingsStore::group(const QString &group) const
{
    const QString prefix = QStringLiteral("/%1/").arg(group);
    QMap<QString, QVariant> settings;
    for (auto it = m_values.lowerBound(prefix); it != m_values.cend(); ++it) {
        if (!it.key().startsWith(prefix))
            break;
        settings.insert(it.key().mid(prefix.size()), it.value());
    }
    return settings;
}

QString SettingsStore::toText(const QVariant &value)
{
    const QString text = value.toString();
    const bool isText = value.userType() == QMetaType::QString;
    if (isText
        && (fromText(text).userType() != QMetaType::QString || text.startsWith(QLatin1Char('"'))))
        return QLatin1Char('"') + text + QLatin1Char('"');
    return text;
}

QVariant SettingsStore::fromText(const QString &text)
{
    if (text == QLatin1String("true") || text == QLatin1String("false"))
        return text == QLatin1String("true");
    bool isNumber = false;
    const int whole = text.toInt(&isNumber);
    // What would not be written so again is a text: "007", "+1".
    if (isNumber && QString::number(whole) == text)
        return whole;
    const double number = text.toDouble(&isNumber);
    if (isNumber && qIsFinite(number) && text.at(0) != QLatin1Char('+')
        && text.contains(QLatin1Char('.')))
        return number;
    if (text.size() >= 2 && text.startsWith(QLatin1Char('"')) && text.endsWith(QLatin1Char('"')))
        return text.mid(1, text.size() - 2);
    return text;
}

} // namespace simulator
