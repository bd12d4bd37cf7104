#include "simulator/core/SettingsStore.h"

namespace simulator {

QVariant SettingsStore::value(const QString &key, const QVariant &defaultValue) const
{
    return m_values.value(key, defaultValue);
}

void SettingsStore::setValue(const QString &key, const QVariant &value)
{
    m_values.insert(key, value);
}

void SettingsStore::remove(const QString &key) { m_values.remove(key); }

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

} // namespace simulator
