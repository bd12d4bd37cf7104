#pragma once

#include <QJsonObject>
#include <QString>
#include <QVariant>

namespace panorel {

// How handlers read attributes, so that no two disagree on what "absent" or "of another kind" means.
// Top-level attributes are read with Qt's variant conversions: a JSON null counts as present and
// reads as false, 0, "" or an empty map.

/// A truth value; @p absent when there is no such attribute.
bool boolAttribute(const QVariantMap &attributes, const QString &key, bool absent);

/// An attribute that holds a map, as a JSON object; empty when it is absent or no map.
QJsonObject objectAttribute(const QVariantMap &attributes, const QString &key);

/// A 64-bit integer. Integral numbers are taken exactly as far as a double can hold them; a
/// fraction is rounded; a number that 64 bits cannot hold, and what is no number, gives 0.
long long toInt64(const QVariant &value);

/// The lowest 32 bits of such an integer.
int toInt32(const QVariant &value);

/// A 64-bit integer inside a map attribute: 0 unless it is a JSON number, integral and in range.
long long toInt64(const QJsonValue &value);

} // namespace panorel
