#include "panorel/Attributes.h"

#include "panorel/JsonConversion.h"

#include <QJsonValue>

#include <cmath>

namespace panorel {

namespace {

// 2^63: the first double beyond 64 bits.
constexpr double int64End = 9223372036854775808.0;

bool fitsInt64(double number) { return number >= -int64End && number < int64End; }

} // namespace

bool boolAttribute(const QVariantMap &attributes, const QString &key, bool absent)
{
    const auto value = attributes.constFind(key);
    return value == attributes.constEnd() ? absent : value->toBool();
}

QJsonObject objectAttribute(const QVariantMap &attributes, const QString &key)
{
    return toJsonObject(attributes.value(key).toMap());
}

long long toInt64(const QVariant &value)
{
    if (value.userType() != QMetaType::Double)
        return value.toLongLong();
    const double number = value.toDouble();
    if (!fitsInt64(number))
        return 0;
    // Integral numbers not through the variant, whose rounding turns odd ones above 2^52 into even
    // ones. A fraction is always below.
    return number == std::floor(number) ? static_cast<long long>(number) : value.toLongLong();
}

int toInt32(const QVariant &value) { return static_cast<int>(toInt64(value)); }

long long toInt64(const QJsonValue &value)
{
    const double number = value.toDouble();
    if (!fitsInt64(number) || number != std::floor(number))
        return 0;
    return static_cast<long long>(number);
}

} // namespace panorel
