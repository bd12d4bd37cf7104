#pragma once

#include <QFileSystemWatcher>
#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace simulator {

/// Settings under keys of the form "/group/name", in memory or in an INI file, which a person may
/// change while the robot runs. GUI thread.
class SettingsStore : public QObject
{
    Q_OBJECT

public:
    explicit SettingsStore(QObject *parent = nullptr);

    /// Keeps the settings in @p file from now on: takes over what it holds or, when it is not there,
    /// makes it, with its folder, out of what the store holds. Returns what is wrong and what to do;
    /// then the store stays in memory, and the file as it is. Empty when all is well.
    QString open(const QString &file);

    /// The value under @p key, such as "/sound/volume"; @p defaultValue when absent.
    QVariant value(const QString &key, const QVariant &defaultValue = QVariant()) const;
    void setValue(const QString &key, const QVariant &value);
    void remove(const QString &key);

    /// Setting name to value of one group; @p group is a bare name, such as "sound".
    QMap<QString, QVariant> group(const QString &group) const;
    QStringList keys() const { return m_values.keys(); }

    // A value as a person writes it: true, false, a number, or a text, which stands in quotes where it
    // would be read as one of these.
    static QString toText(const QVariant &value);
    static QVariant fromText(const QString &text);

Q_SIGNALS:
    /// A value changed, by setValue() or remove(), or in the file.
    void changed();

private:
    QString read(QMap<QString, QVariant> &values) const;
    QString write() const;
    void keep() const;
    void onFileChanged();

    QMap<QString, QVariant> m_values;
    QString m_file; // empty: in memory
    QFileSystemWatcher m_watcher;
};

} // namespace simulator
