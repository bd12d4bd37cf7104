#include "tests/panorel/Dice.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonObject>
#include <QUrl>
#include <QVariantHash>

#include <cmath>
#include <cstring>
#include <limits>

QString Dice::text()
{
    // Texts that sort differently as UTF-8 and as UTF-16, begin another one, or need escapes.
    static const QStringList odd{QString(),
                                 QString(QLatin1String("")),
                                 QStringLiteral("a"),
                                 QStringLiteral("ab"),
                                 QStringLiteral("aB"),
                                 QStringLiteral("ä"),
                                 QStringLiteral("Größe \"\\/\b\f\n\r\t\x01\x7f"),
                                 QStringLiteral("Привет, мир"),
                                 QStringLiteral("机器人"),
                                 QStringLiteral("\U0001F916 \U0001F44D\U0001F3FD"),
                                 QStringLiteral("\uff21\ufffd"),
                                 QString(QChar(0xd83e)),
                                 QString(QChar(0xdd16)) + QLatin1Char('x'),
                                 QString(QChar(0xdd16)) + QChar(0xd83e),
                                 QStringLiteral("a") + QChar(0),
                                 QStringLiteral("nul") + QChar(0) + QStringLiteral("inside"),
                                 QStringLiteral("</script>\u2028"),
                                 QStringLiteral("{0a1b2c3d-4e5f-4a6b-8c7d-9e0fa1b2c3d4}"),
                                 QString(300, QLatin1Char('z'))};
    if (oneIn(2))
        return oneOf(odd);
    QString text;
    for (int length = below(9); length > 0; --length)
        text.append(oneIn(8) ? QChar(static_cast<ushort>(bits())) : QChar('a' + below(4)));
    return text;
}

QString Dice::key()
{
    static const QStringList ofTheEnvelope{QStringLiteral("id"), QStringLiteral("type")};
    return oneIn(12) ? oneOf(ofTheEnvelope) : text();
}

QUuid Dice::uuid()
{
    const quint64 tail = bits();
    QUuid uuid(static_cast<uint>(bits()), static_cast<ushort>(bits()), static_cast<ushort>(bits()),
               0, 0, 0, 0, 0, 0, 0, 0);
    std::memcpy(uuid.data4, &tail, sizeof tail);
    return oneIn(6) ? QUuid() : uuid;
}

double Dice::number()
{
    using Limits = std::numeric_limits<double>;
    constexpr double exact = 9007199254740992.0; // 2^53: beyond, not every integer is a double
    constexpr double odd[] = {0.0,
                              -0.0,
                              1.0,
                              -1.0,
                              0.1,
                              exact,
                              exact - 1,
                              exact + 2,
                              -exact - 2,
                              9223372036854775807.0,
                              -9223372036854775808.0,
                              18446744073709551616.0,
                              1e300,
                              Limits::max(),
                              Limits::lowest(),
                              Limits::min(),
                              Limits::denorm_min(),
                              Limits::quiet_NaN(),
                              Limits::infinity(),
                              -Limits::infinity()};
    switch (below(3)) {
    case 0:
        return oneOf(odd);
    case 1:
        return below(2000) - 1000;
    default:
        return std::ldexp(static_cast<double>(bits()), below(160) - 140);
    }
}

QVariant Dice::scalar()
{
    static const qlonglong integers[] = {0,
                                         1,
                                         -1,
                                         9007199254740991,
                                         9007199254740992,
                                         9007199254740993,
                                         -9007199254740993,
                                         std::numeric_limits<qlonglong>::max(),
                                         std::numeric_limits<qlonglong>::min()};
    static const QStringList urls{QString(),
                                  QStringLiteral("http://host/a b?q=ü&r=%2f%C3%BC#ч"),
                                  QStringLiteral("file:///home/Müller/机.html"),
                                  QStringLiteral("http://bücher.example/%zz"),
                                  QStringLiteral("http://u:p%40@[::1]:80/"),
                                  QStringLiteral("../relative path"),
                                  QStringLiteral("::")};
    switch (below(24)) {
    case 0:
        return static_cast<int>(bits());
    case 1:
        return oneIn(2) ? oneOf(integers) : static_cast<qlonglong>(bits());
    case 2:
        return static_cast<uint>(bits());
    case 3:
        return oneIn(2) ? static_cast<qulonglong>(oneOf(integers)) : bits();
    case 4:
    case 5:
    case 6:
        return number();
    case 7:
        return oneIn(2);
    case 8:
        return uuid();
    case 9:
        return QUrl(oneOf(urls));
    case 10: {
        QStringList texts;
        for (int count = below(4); count > 0; --count)
            texts.append(text());
        return texts;
    }
    case 11:
        return oneIn(2) ? QVariant() : QVariant::fromValue(nullptr);
    case 12:
        return text().toUtf8();
    case 13:
        return QDate(2000, 2, 29).addDays(below(10000));
    case 14:
        return QDateTime::fromMSecsSinceEpoch(below(1 << 30), Qt::UTC);
    case 15:
        return QJsonObject{{text(), below(9)}, {text(), QJsonArray{text(), 0.5, false}}};
    case 16:
        return QJsonArray{text(), QJsonObject{{text(), QJsonValue()}}, -0.0};
    case 17:
        return oneIn(2) ? QJsonValue(text()) : QJsonValue(static_cast<qint64>(bits()));
    case 18:
        return oneIn(2) ? QJsonValue(qQNaN()) : QJsonValue(QJsonValue::Undefined);
    case 19:
        return oneIn(2) ? QVariant::fromValue(static_cast<short>(below(9)))
                        : QVariant::fromValue(0.25F);
    default:
        return text();
    }
}

QVariant Dice::value(int depth)
{
    if (depth == 0 || oneIn(2))
        return scalar();
    switch (below(4)) {
    case 0:
        return map(depth - 1);
    case 1: {
        QVariantHash hash;
        for (int count = below(4); count > 0; --count)
            hash.insert(key(), value(depth - 1));
        return hash;
    }
    case 2: {
        QVariantList list;
        for (int count = below(4); count > 0; --count)
            list.append(value(depth - 1));
        return list;
    }
    default:
        return records(depth - 1);
    }
}

QVariantMap Dice::map(int depth)
{
    QVariantMap map;
    for (int count = below(6); count > 0; --count)
        map.insert(key(), value(depth));
    return map;
}

QVariantMap Dice::record(const QStringList &keys, int depth)
{
    QVariantMap record;
    for (const QString &key : keys)
        record.insert(key, value(depth));
    return record;
}

QVariant Dice::records(int depth)
{
    QStringList keys;
    for (int count = 1 + below(5); count > 0; --count)
        keys.append(key());
    const QVariantMap first = record(keys, qMax(0, depth - 2));

    QVariantList list;
    for (int count = 1 + below(8); count > 0; --count) {
        QVariantMap next;
        for (auto field = first.begin(); field != first.end(); ++field)
            next.insert(field.key(), oneIn(2) ? field.value() : scalar());
        const QString changed = oneOf(keys);
        switch (below(8)) {
        case 0: // one key less
            next.remove(changed);
            break;
        case 1: // one more
            next.insert(key(), scalar());
            break;
        case 2: // as many, one of them longer, first or last
            next.insert(oneIn(2) ? changed + QLatin1Char('_') : QChar(1) + changed,
                        next.take(changed));
            break;
        case 3: // as many and as long
            next.insert(QString(changed.size(), QLatin1Char('k')), next.take(changed));
            break;
        default:
            break;
        }
        list.append(next);
    }
    if (depth == 0 || oneIn(2))
        return list;
    QVariantMap map;
    for (const QVariant &next : qAsConst(list))
        map.insert(uuid().toString(), next);
    return map;
}
