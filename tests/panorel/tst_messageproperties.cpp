// Thousands of random messages against plain statements of what the conversion does. The seed is
// fixed, so a run repeats; PANOREL_TEST_SEED=number draws others.

#include "panorel/Message.h"
#include "tests/panorel/Dice.h"
#include "tests/support/TestCase.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QMap>
#include <QUrl>
#include <QVariantHash>

#include <algorithm>
#include <cstring>
#include <functional>

using panorel::Message;

namespace {

const QString idKey = QStringLiteral("id");
const QString typeKey = QStringLiteral("type");
#ifdef __SANITIZE_ADDRESS__
constexpr int messages = 200; // each allocation is slow
#else
constexpr int messages = 3000;
#endif
constexpr int deepest = 6;

using Rule = std::function<QVariant(const QVariant &)>;

QVariantMap asMap(const QVariantHash &hash)
{
    QVariantMap map;
    for (auto it = hash.begin(); it != hash.end(); ++it)
        map.insert(it.key(), it.value());
    return map;
}

/// Changes values at any depth by a rule, and hashes to maps: in a hash inside a map, Qt 5.15 takes
/// unsigned numbers from 2^63 on for negative ones.
QVariant changed(const QVariant &value, const Rule &rule)
{
    const auto changedIn = [&rule](auto container) {
        for (QVariant &inner : container)
            inner = changed(inner, rule);
        return container;
    };
    switch (value.userType()) {
    case QMetaType::QVariantMap:
        return changedIn(value.toMap());
    case QMetaType::QVariantHash:
        return changedIn(asMap(value.toHash()));
    case QMetaType::QVariantList:
        return changedIn(value.toList());
    default:
        return rule(value);
    }
}

QVariant textsOfIdsAndAddresses(const QVariant &value)
{
    if (value.userType() == QMetaType::QUuid)
        return value.toUuid().toString(QUuid::WithBraces);
    if (value.userType() == QMetaType::QUrl)
        return value.toUrl().toString(QUrl::FullyEncoded);
    return value;
}

QVariant doublesOfNumbers(const QVariant &value)
{
    return value.userType() == QMetaType::LongLong ? QVariant(value.toDouble()) : value;
}

// What toJson() and fromJson() give, said once more in the plainest way.

QJsonObject expectedJson(const Message &message)
{
    QJsonObject json =
        QJsonObject::fromVariantMap(changed(message.attributes(), textsOfIdsAndAddresses).toMap());
    json.insert(idKey, message.id().toString(QUuid::WithBraces));
    json.insert(typeKey, message.type());
    return json;
}

QVariantMap expectedAttributes(const QJsonObject &json)
{
    QVariantMap attributes = changed(json.toVariantMap(), doublesOfNumbers).toMap();
    attributes.remove(typeKey);
    if (!attributes.contains(idKey))
        attributes.insert(idKey, QVariant());
    return attributes;
}

QByteArray bytes(const QJsonObject &json)
{
    return QJsonDocument(json).toJson(QJsonDocument::Compact);
}

/// Down to the last bit: kinds of variant, signs of zeros, null beside empty.
bool same(const QVariant &one, const QVariant &other)
{
    if (one.userType() != other.userType() || one.isNull() != other.isNull())
        return false;
    switch (one.userType()) {
    case QMetaType::QVariantMap: {
        const QVariantMap map = one.toMap();
        const QVariantMap others = other.toMap();
        const QStringList keys = map.keys();
        return keys == others.keys()
            && std::equal(map.begin(), map.end(), others.begin(), others.end(), same);
    }
    case QMetaType::QVariantList: {
        const QVariantList list = one.toList();
        const QVariantList others = other.toList();
        return std::equal(list.begin(), list.end(), others.begin(), others.end(), same);
    }
    case QMetaType::Double: {
        const double numbers[] = {one.toDouble(), other.toDouble()};
        // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison): it is the bits that count
        return std::memcmp(&numbers[0], &numbers[1], sizeof(double)) == 0;
    }
    default:
        return one == other;
    }
}

bool same(const QJsonObject &one, const QJsonObject &other)
{
    return one == other && bytes(one) == bytes(other)
        && same(QVariant(one.toVariantMap()), QVariant(other.toVariantMap()));
}

template <typename Value>
QString printed(const Value &value)
{
    QString text;
    QDebug(&text).nospace() << qSetRealNumberPrecision(17) << value;
    return text;
}

/// What a map, a hash or a list holds, by key or place; nothing for any other value.
QVariantMap inside(const QVariant &value)
{
    QVariantMap map =
        value.userType() == QMetaType::QVariantHash ? asMap(value.toHash()) : value.toMap();
    if (value.userType() == QMetaType::QVariantList) {
        const QVariantList list = value.toList();
        for (const QVariant &entry : list)
            map.insert(QString::number(map.size()), entry);
    }
    return map;
}

/// Where two values differ first, and how: what is left of a message that failed.
QString difference(const QVariant &drawn, const QVariant &actual, const QVariant &expected,
                   const QString &path = QString())
{
    const QVariantMap drawnInside = inside(drawn);
    const QVariantMap actualInside = inside(actual);
    const QVariantMap expectedInside = inside(expected);
    const QStringList keys = actualInside.keys();
    if (actual.userType() == expected.userType() && keys == expectedInside.keys())
        for (const QString &key : keys)
            if (!same(actualInside.value(key), expectedInside.value(key)))
                return difference(drawnInside.value(key), actualInside.value(key),
                                  expectedInside.value(key),
                                  path + QLatin1Char(' ') + printed(key));
    return QStringLiteral("\n  at%1\n  drawn:    %2\n  actual:   %3\n  expected: %4")
        .arg(path, printed(drawn), printed(actual), printed(expected));
}

unsigned seed()
{
    bool isGiven = false;
    const int given = qEnvironmentVariableIntValue("PANOREL_TEST_SEED", &isGiven);
    return isGiven ? static_cast<unsigned>(given) : 20260u;
}

/// Calls a check with the attributes of each message; it returns what failed.
QString failureOf(const std::function<QString(Dice &, const QVariantMap &)> &check)
{
    for (int i = 0; i < messages; ++i) {
        Dice dice(seed() * 100000u + static_cast<unsigned>(i));
        const QString failure = check(dice, dice.map(deepest));
        if (!failure.isEmpty())
            return QStringLiteral("message %1, PANOREL_TEST_SEED=%2%3")
                .arg(QString::number(i), QString::number(seed()), failure);
    }
    return QString();
}

/// An envelope as Qt holds it when it was made, or when it was read from text.
QJsonObject envelope(Dice &dice, const QVariantMap &attributes)
{
    QJsonObject json = QJsonObject::fromVariantMap(attributes);
    if (dice.oneIn(2))
        json.insert(idKey, dice.uuid().toString());
    if (dice.oneIn(2))
        json.insert(typeKey, dice.text());
    return dice.oneIn(2) ? json : QJsonDocument::fromJson(bytes(json)).object();
}

} // namespace

class MessagePropertiesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void drawsEachKindAtAnyDepth();
    void writesWhatQtWrites();
    void readsWhatQtReads();
    void keepsWhatPagesSend();
};

void MessagePropertiesTest::drawsEachKindAtAnyDepth()
{
    QMap<int, int> drawn;
    int depth = 0;
    const std::function<void(const QVariant &, int)> count = [&](const QVariant &value, int level) {
        ++drawn[value.userType()];
        depth = qMax(depth, level);
        const QVariantMap inner = inside(value);
        for (const QVariant &next : inner)
            count(next, level + 1);
    };
    failureOf([&](Dice &, const QVariantMap &attributes) {
        count(attributes, 0);
        return QString();
    });
    QVERIFY2(depth > deepest, qPrintable(QString::number(depth)));
    for (const int kind : {QMetaType::Int,          QMetaType::LongLong,     QMetaType::UInt,
                           QMetaType::ULongLong,    QMetaType::Double,       QMetaType::Bool,
                           QMetaType::QString,      QMetaType::QUuid,        QMetaType::QUrl,
                           QMetaType::QStringList,  QMetaType::QVariantList, QMetaType::QVariantMap,
                           QMetaType::QVariantHash, QMetaType::QJsonObject,  QMetaType::QJsonArray,
                           QMetaType::QJsonValue,   QMetaType::UnknownType,  QMetaType::Nullptr,
                           QMetaType::QByteArray,   QMetaType::QDate,        QMetaType::QDateTime})
        QVERIFY2(drawn.value(kind) > messages / 30, QMetaType::typeName(kind));
}

void MessagePropertiesTest::writesWhatQtWrites()
{
    const QString failure = failureOf([](Dice &dice, const QVariantMap &attributes) {
        const Message message(dice.uuid().toString(), dice.text(), attributes);
        const QJsonObject actual = message.toJson();
        const QJsonObject expected = expectedJson(message);
        return same(actual, expected)
            ? QString()
            : difference(attributes, actual.toVariantMap(), expected.toVariantMap());
    });
    QVERIFY2(failure.isEmpty(), qPrintable(failure));
}

void MessagePropertiesTest::readsWhatQtReads()
{
    const QString failure = failureOf([](Dice &dice, const QVariantMap &attributes) {
        QJsonObject json = envelope(dice, attributes);
        const QJsonObject given = json;
        const Message message = Message::fromJson(json);
        const QVariantMap expected = expectedAttributes(given);
        const QVariantMap all = changed(given.toVariantMap(), doublesOfNumbers).toMap();
        const bool isRead = same(message.attributes(), expected)
            && message.id() == QUuid(all.value(idKey).toString())
            && message.type() == all.value(typeKey).toString();
        return isRead && same(json, given)
            ? QString()
            : difference(given.toVariantMap(), message.attributes(), expected);
    });
    QVERIFY2(failure.isEmpty(), qPrintable(failure));
}

void MessagePropertiesTest::keepsWhatPagesSend()
{
    const QString failure = failureOf([](Dice &dice, const QVariantMap &attributes) {
        QJsonObject json = envelope(dice, attributes);
        QJsonObject kept = Message::fromJson(json).toJson();
        for (const QString &ofTheEnvelope : {idKey, typeKey}) {
            json.remove(ofTheEnvelope);
            kept.remove(ofTheEnvelope);
        }
        // A page has no other numbers than doubles.
        const QVariant expected = changed(json.toVariantMap(), doublesOfNumbers);
        const QVariant actual = changed(kept.toVariantMap(), doublesOfNumbers);
        return same(actual, expected) ? QString() : difference(attributes, actual, expected);
    });
    QVERIFY2(failure.isEmpty(), qPrintable(failure));
}

QTEST_GUILESS_MAIN(MessagePropertiesTest)
#include "tst_messageproperties.moc"
