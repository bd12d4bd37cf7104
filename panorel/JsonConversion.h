#pragma once

#include <QJsonObject>
#include <QVariant>

namespace panorel {

/// Turns attributes into JSON as Qt does, with two differences that do not depend on Qt's version:
/// at any depth (maps, hashes, lists) a QUuid becomes its braced lower-case text and a QUrl its
/// fully encoded text.
QJsonObject toJsonObject(const QVariantMap &map);

/// Turns JSON into attributes as Qt does, except that every number, at any depth, becomes a double
/// whatever Qt's version makes of it.
QVariantMap toVariantMap(const QJsonObject &object);

} // namespace panorel
