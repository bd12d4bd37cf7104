#pragma once

#include <QMap>
#include <QString>
#include <QVariant>

namespace simulator {

/// Settings in memory, under keys of the form "/group/name". A value type.
class SettingsStore
{
public:
    /// The value under @p key, such as "/sound/volume"; @p defaultValue when absent.
    QVariant value(const QString &key, const QVariant &defaultValue = QVariant()) const;
    void setValue(const QString &key, const QVariant &value);
    void remove(const QString &key);

    /// Setting name to value of one group; @p group is a bare name, such as "sound".
    QMap<QString, QVariant> group(const QString &group) const;

private:
    QMap<QString, QVariant> m_values;
};

} // namespace simulator
