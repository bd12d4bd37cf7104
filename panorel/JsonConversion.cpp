#include "panorel/JsonConversion.h"

#include <QJsonArray>
#include <QUrl>
#include <QUuid>
#include <QVariantHash>

#include <algorithm>
#include <cmath>
#include <vector>

namespace panorel {

namespace {

QVariant toVariant(const QJsonValue &value);

/// What @p value holds, whose type is T.
template <typename T>
const T &in(const QVariant &value)
{
    return *static_cast<const T *>(value.constData());
}

bool haveSameKeys(const QVariantMap &one, const QVariantMap &other)
{
    if (one.size() != other.size())
        return false;
    auto key = other.keyBegin();
    return std::all_of(one.keyBegin(), one.keyEnd(),
                       [&key](const QString &same) { return same == *key++; });
}

/// Converts the attributes of one message. What makes messages large are collections of records, so
/// a map with the keys of the map before it, at its depth, is written into a copy of an object that
/// has these keys already: the keys are copied as one block, and none is looked up.
class JsonWriter
{
public:
    QJsonObject object(const QVariantMap &map, std::size_t depth = 0)
    {
        if (m_forms.size() <= depth)
            m_forms.resize(depth + 1);
        Form &form = m_forms[depth];
        if (!haveSameKeys(map, form.keys)) {
            form = {map, {}};
            return fieldByField(map, depth);
        }
        if (form.object.isEmpty())
            form.object = withoutValues(map);
        if (form.object.size() != map.size())
            return fieldByField(map, depth); // it holds a key twice
        return filled(form.object, map, depth);
    }

private:
    struct Form
    {
        QVariantMap keys;
        QJsonObject object; // empty until a second map has these keys
    };

    QJsonValue value(const QVariant &value, std::size_t depth)
    {
        switch (value.userType()) {
        // The most frequent kinds, which QJsonValue would find out once more.
        case QMetaType::Bool:
            return in<bool>(value);
        case QMetaType::Int:
            return in<int>(value);
        case QMetaType::LongLong:
            return in<qlonglong>(value);
        case QMetaType::Double:
            return std::isfinite(in<double>(value)) ? in<double>(value) : QJsonValue();
        case QMetaType::QString:
            return in<QString>(value);
        case QMetaType::QVariantMap:
            return object(in<QVariantMap>(value), depth + 1);
        case QMetaType::QVariantHash:
            return fieldByField(in<QVariantHash>(value), depth + 1);
        case QMetaType::QVariantList:
            return array(in<QVariantList>(value), depth);
        case QMetaType::QUuid:
            return value.toUuid().toString();
        case QMetaType::QUrl:
            return value.toUrl().toString(QUrl::FullyEncoded);
        default:
            // QJsonValue::fromVariant() is not quite what Qt does inside of maps and lists.
            return QJsonArray::fromVariantList({value}).at(0);
        }
    }

    QJsonArray array(const QVariantList &list, std::size_t depth)
    {
        QJsonArray array;
        for (const QVariant &item : list)
            array.append(value(item, depth));
        return array;
    }

    template <typename Map>
    QJsonObject fieldByField(const Map &map, std::size_t depth)
    {
        QJsonObject object;
        for (auto it = map.constBegin(); it != map.constEnd(); ++it)
            object.insert(it.key(), value(it.value(), depth));
        return object;
    }

    static QJsonObject withoutValues(const QVariantMap &map)
    {
        QJsonObject object;
        for (auto it = map.constBegin(); it != map.constEnd(); ++it)
            object.insert(it.key(), QJsonValue::Null);
        return object;
    }

    /// Both go through their keys in the same order.
    QJsonObject filled(QJsonObject object, const QVariantMap &map, std::size_t depth)
    {
        auto field = object.begin();
        for (const QVariant &item : map) {
            *field = value(item, depth);
            ++field;
        }
        return object;
    }

    std::vector<Form> m_forms; // by depth
};

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

QJsonObject toJsonObject(const QVariantMap &map) { return JsonWriter().object(map); }

QVariantMap toVariantMap(const QJsonObject &object)
{
    QVariantMap map;
    for (auto it = object.constBegin(); it != object.constEnd(); ++it)
        map.insert(it.key(), toVariant(it.value()));
    return map;
}

} // namespace panorel
