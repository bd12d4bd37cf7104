#include "panorel/JsonConversion.h"

#include <QJsonArray>
#include <QUrl>
#include <QUuid>
#include <QVariantHash>

namespace panorel {

namespace {

QJsonValue toJsonValue(const QVariant &value);
QVariant toVariant(const QJsonValue &value);

template <typename Map>
QJsonObject objectFrom(const Map &map)
{
    QJsonObject object;
    for (auto it = map.constBegin(); it != map.constEnd(); ++it)
        object.insert(it.key(), toJsonValue(it.value()));
    return object;
}

QJsonArray arrayFrom(const QVariantList &list)
{
    QJsonArray array;
    for (const QVariant &value : list)
        array.append(toJsonValue(value));
    return array;
}

QJsonValue toJsonValue(const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::QUuid:
        return value.toUuid().toString();
    case QMetaType::QUrl:
        return value.toUrl().toString(QUrl::FullyEncoded);
    case QMetaType::QVariantMap:
        return objectFrom(value.toMap());
    case QMetaType::QVariantHash:
        return objectFrom(value.toHash());
    case QMetaType::QVariantList:
        return arrayFrom(value.toList());
    default:
        return QJsonValue::fromVariant(value);
    }
}

QVariantList listFrom(const QJsonArray &array)
{
    QVariantList list;
    list.reserve(array.size());
    for (const QJsonValue &value : array)
        list.append(toVariant(value));
    return list;
}

QVariant toVariant(const QJsonValue &value)
{
    switch (value.type()) {
    case QJsonValue::Double:
        return value.toDouble();
    case QJsonValue::Object:
        return toVariantMap(value.toObject());
    case QJsonValue::Array:
        return listFrom(value.toArray());
    default:
        return value.toVariant();
    }
}

} // namespace

QJsonObject toJsonObject(const QVariantMap &map) { return objectFrom(map); }

QVariantMap toVariantMap(const QJsonObject &object)
{
    QVariantMap map;
    for (auto it = object.constBegin(); it != object.constEnd(); ++it)
        map.insert(it.key(), toVariant(it.value()));
    return map;
}

} // namespace panorel
