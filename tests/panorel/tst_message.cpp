#include "panorel/Message.h"
#include "tests/support/TestCase.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QUrl>

using panorel::Message;

namespace {

const QString someTopic = QStringLiteral("system.log");
constexpr QUuid someUuid(0x0a1b2c3d, 0x4e5f, 0x4a6b, 0x8c, 0x7d, 0x9e, 0x0f, 0xa1, 0xb2, 0xc3,
                         0xd4);
const QString someUuidText = QStringLiteral("{0a1b2c3d-4e5f-4a6b-8c7d-9e0fa1b2c3d4}");
const QString nullUuidText = QStringLiteral("{00000000-0000-0000-0000-000000000000}");

QJsonObject parse(const char *json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError)
        qFatal("not JSON: %s", json);
    return document.object();
}

Message fromJson(const char *json)
{
    QJsonObject object = parse(json);
    return Message::fromJson(object);
}

} // namespace

class MessageTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void drawsAFreshRandomId();
    void readsItsIdFromText_data();
    void readsItsIdFromText();
    void keepsTopicAndAttributes();
    void writesTheEnvelope();
    void writesEachKindOfAttribute_data();
    void writesEachKindOfAttribute();
    void writesARepeatedKeyOnce();
    void envelopeWinsOverAttributes();
    void keepsTheIdAmongTheAttributes();
    void readsAnEnvelopeWithABadId();
    void readsAnEnvelopeWithoutType();
    void readsTypesThatAreNoText_data();
    void readsTypesThatAreNoText();
    void readsNumbersAsDoubleAtAnyDepth();
    void readsEachKindOfValue();
    void survivesTheRoundTrip();
    void readsDeeplyNestedValues();
};

void MessageTest::drawsAFreshRandomId()
{
    const Message first(someTopic);
    const Message second(someTopic, {});
    QVERIFY(first.id() != second.id());
    for (const QUuid &id : {first.id(), second.id()}) {
        QCOMPARE(id.version(), QUuid::Random);
        QCOMPARE(id.variant(), QUuid::DCE);
    }
    QVERIFY(first.attributes().isEmpty());
}

void MessageTest::readsItsIdFromText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QUuid>("id");
    QTest::newRow("braces") << someUuidText << someUuid;
    QTest::newRow("no braces") << someUuidText.mid(1, 36) << someUuid;
    QTest::newRow("capitals") << someUuidText.toUpper() << someUuid;
    QTest::newRow("no uuid") << QStringLiteral("abc") << QUuid();
    QTest::newRow("too short") << someUuidText.left(30) << QUuid();
    QTest::newRow("empty") << QString() << QUuid();
}

void MessageTest::readsItsIdFromText()
{
    QFETCH(QString, text);
    QFETCH(QUuid, id);
    QCOMPARE(Message(text, someTopic, {}).id(), id);
}

void MessageTest::keepsTopicAndAttributes()
{
    const QVariantMap attributes{{QStringLiteral("level"), QStringLiteral("info")},
                                 {QStringLiteral("count"), 3}};
    const Message made(someTopic, attributes);
    QCOMPARE(made.type(), someTopic);
    QCOMPARE(made.attributes(), attributes);

    const Message read(someUuidText, someTopic, attributes);
    QCOMPARE(read.type(), someTopic);
    QCOMPARE(read.attributes(), attributes);
}

void MessageTest::writesTheEnvelope()
{
    const Message message(someTopic, {{QStringLiteral("level"), QStringLiteral("info")}});
    const QJsonObject json = message.toJson();
    QCOMPARE(json.keys(),
             QStringList({QStringLiteral("id"), QStringLiteral("level"), QStringLiteral("type")}));
    const QString id = json.value(QStringLiteral("id")).toString();
    QCOMPARE(id, message.id().toString());
    const QRegularExpression form(
        QStringLiteral("^\\{[0-9a-f]{8}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{12}\\}$"));
    QVERIFY2(form.match(id).hasMatch(), qPrintable(id));
    QCOMPARE(json.value(QStringLiteral("type")).toString(), someTopic);
    QCOMPARE(json.value(QStringLiteral("level")).toString(), QStringLiteral("info"));
}

void MessageTest::writesEachKindOfAttribute_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QByteArray>("json"); // as in an array of one element
    const auto row = [](const char *name, const QVariant &value, const QByteArray &json) {
        QTest::newRow(name) << value << json;
    };
    const QByteArray uuid = someUuidText.toLatin1();

    row("int", -7, "[-7]");
    row("largest exact 64-bit", 9007199254740991LL, "[9007199254740991]");
    row("unsigned", 4294967295U, "[4294967295]");
    row("double", 0.25, "[0.25]");
    row("bool", true, "[true]");
    row("text", QStringLiteral("Grüße \"x\""), "[\"Grüße \\\"x\\\"\"]");
    row("empty text", QString(QLatin1String("")), "[\"\"]");
    row("url", QUrl(QStringLiteral("http://host/a b?q=ü")), "[\"http://host/a%20b?q=%C3%BC\"]");
    row("uuid", someUuid, "[\"" + uuid + "\"]");
    row("null uuid", QUuid(), "[\"" + nullUuidText.toLatin1() + "\"]");
    row("texts", QStringList({QStringLiteral("a"), QString()}), "[[\"a\",\"\"]]");
    row("list", QVariantList({1, QStringLiteral("b"), QVariantList({false})}),
        "[[1,\"b\",[false]]]");
    row("map", QVariantMap({{QStringLiteral("k"), QVariantMap({{QStringLiteral("l"), 2}})}}),
        "[{\"k\":{\"l\":2}}]");
    row("uuid in a map", QVariantMap({{QStringLiteral("k"), someUuid}}),
        "[{\"k\":\"" + uuid + "\"}]");
    row("uuid in a list", QVariantList({someUuid}), "[[\"" + uuid + "\"]]");
    row("uuid in a hash", QVariantHash({{QStringLiteral("k"), someUuid}}),
        "[{\"k\":\"" + uuid + "\"}]");
    row("uuid deep down",
        QVariantList({QVariantMap({{QStringLiteral("k"), QVariantList({someUuid})}})}),
        "[[{\"k\":[\"" + uuid + "\"]}]]");
    row("url in a list", QVariantList({QUrl(QStringLiteral("file:///ä"))}),
        "[[\"file:///%C3%A4\"]]");
    row("json object", QJsonObject({{QStringLiteral("k"), 1}}), "[{\"k\":1}]");
    row("nothing", QVariant(), "[null]");
    row("null", QVariant::fromValue(nullptr), "[null]");
}

void MessageTest::writesEachKindOfAttribute()
{
    QFETCH(QVariant, value);
    QFETCH(QByteArray, json);
    const QJsonObject envelope = Message(someTopic, {{QStringLiteral("value"), value}}).toJson();
    const QJsonArray written{envelope.value(QStringLiteral("value"))};
    QCOMPARE(QJsonDocument(written).toJson(QJsonDocument::Compact), json);
}

void MessageTest::writesARepeatedKeyOnce()
{
    QMultiMap<QString, QVariant> twice;
    for (const char *key : {"a", "b", "b", "c"})
        twice.insert(QString::fromLatin1(key), QString::fromLatin1(key));
    const QVariantMap record = twice;
    const QVariantList records{record, record, record};
    const QJsonObject written{{QStringLiteral("a"), QStringLiteral("a")},
                              {QStringLiteral("b"), QStringLiteral("b")},
                              {QStringLiteral("c"), QStringLiteral("c")}};
    QCOMPARE(Message(QStringLiteral("t"), {{QStringLiteral("list"), records}})
                 .toJson()
                 .value(QStringLiteral("list"))
                 .toArray(),
             (QJsonArray{written, written, written}));
}

void MessageTest::envelopeWinsOverAttributes()
{
    const Message message(
        someTopic,
        {{QStringLiteral("id"), 7}, {QStringLiteral("type"), QStringLiteral("other.topic")}});
    const QJsonObject json = message.toJson();
    QCOMPARE(json.value(QStringLiteral("id")).toString(), message.id().toString());
    QCOMPARE(json.value(QStringLiteral("type")).toString(), someTopic);
    QCOMPARE(message.attributes().value(QStringLiteral("id")).toInt(), 7);
}

void MessageTest::keepsTheIdAmongTheAttributes()
{
    const Message message = fromJson(R"({"type": "system.log"})");
    QCOMPARE(message.id(), QUuid());
    QCOMPARE(message.type(), someTopic);
    QCOMPARE(message.attributes(), QVariantMap({{QStringLiteral("id"), QVariant()}}));
    QVERIFY(!message.attributes().value(QStringLiteral("id")).isValid());
    QCOMPARE(message.toJson().value(QStringLiteral("id")).toString(), nullUuidText);
}

void MessageTest::readsAnEnvelopeWithABadId()
{
    const Message message = fromJson(R"({"id": "abc", "type": "system.log", "level": 1})");
    QCOMPARE(message.id(), QUuid());
    QCOMPARE(message.type(), someTopic);
    QCOMPARE(message.attributes(),
             QVariantMap(
                 {{QStringLiteral("id"), QStringLiteral("abc")}, {QStringLiteral("level"), 1.0}}));

    const Message number = fromJson(R"({"id": 5, "type": "system.log"})");
    QCOMPARE(number.id(), QUuid());
    QCOMPARE(number.attributes().value(QStringLiteral("id")), QVariant(5.0));
}

void MessageTest::readsAnEnvelopeWithoutType()
{
    const Message message = fromJson(R"({"level": "info"})");
    QCOMPARE(message.type(), QString());
    QCOMPARE(message.attributes().keys(),
             QStringList({QStringLiteral("id"), QStringLiteral("level")}));
}

void MessageTest::readsTypesThatAreNoText_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("topic");
    QTest::newRow("number") << QByteArray(R"({"type": 5})") << QStringLiteral("5");
    QTest::newRow("fraction") << QByteArray(R"({"type": 2.5})") << QStringLiteral("2.5");
    QTest::newRow("bool") << QByteArray(R"({"type": true})") << QStringLiteral("true");
    QTest::newRow("null") << QByteArray(R"({"type": null})") << QString();
    QTest::newRow("object") << QByteArray(R"({"type": {"a": 1}})") << QString();
    QTest::newRow("array") << QByteArray(R"({"type": ["a"]})") << QString();
}

void MessageTest::readsTypesThatAreNoText()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, topic);
    const Message message = fromJson(json.constData());
    QCOMPARE(message.type(), topic);
    QVERIFY(!message.attributes().contains(QStringLiteral("type")));
}

void MessageTest::readsNumbersAsDoubleAtAnyDepth()
{
    const QVariantMap attributes =
        fromJson(R"({"type": "t", "n": 1, "big": 9007199254740993, "negative": -3,
                       "list": [2, [3]], "map": {"k": {"l": 4}}})")
            .attributes();
    const QVariantList list = attributes.value(QStringLiteral("list")).toList();
    const QVariantMap map = attributes.value(QStringLiteral("map")).toMap();
    const QVariantList numbers{attributes.value(QStringLiteral("n")),
                               attributes.value(QStringLiteral("big")),
                               attributes.value(QStringLiteral("negative")),
                               list.value(0),
                               list.value(1).toList().value(0),
                               map.value(QStringLiteral("k")).toMap().value(QStringLiteral("l"))};
    const QList<double> values{1, 9007199254740992.0, -3, 2, 3, 4};
    for (int i = 0; i < numbers.size(); ++i) {
        QCOMPARE(numbers.at(i).userType(), int(QMetaType::Double));
        QCOMPARE(numbers.at(i).toDouble(), values.at(i));
    }
}

void MessageTest::readsEachKindOfValue()
{
    const QVariantMap attributes =
        fromJson(R"({"s": "x", "b": false, "n": null, "l": ["a", null], "m": {"": {}}})")
            .attributes();
    QCOMPARE(attributes.value(QStringLiteral("s")), QVariant(QStringLiteral("x")));
    QCOMPARE(attributes.value(QStringLiteral("b")), QVariant(false));
    QVERIFY(attributes.contains(QStringLiteral("n")));
    QCOMPARE(attributes.value(QStringLiteral("n")).toString(), QString());
    QCOMPARE(attributes.value(QStringLiteral("n")).toInt(), 0);
    QCOMPARE(attributes.value(QStringLiteral("n")).toBool(), false);
    QCOMPARE(attributes.value(QStringLiteral("n")).toMap(), QVariantMap());
    QCOMPARE(attributes.value(QStringLiteral("l")).userType(), int(QMetaType::QVariantList));
    QCOMPARE(attributes.value(QStringLiteral("l")).toList().size(), 2);
    QCOMPARE(attributes.value(QStringLiteral("m")),
             QVariant(QVariantMap({{QString(QLatin1String("")), QVariantMap()}})));
}

void MessageTest::survivesTheRoundTrip()
{
    const QVariantMap attributes{{QStringLiteral("text"), QStringLiteral("Hallo")},
                                 {QStringLiteral("number"), 1.5},
                                 {QStringLiteral("flag"), true},
                                 {QStringLiteral("list"), QVariantList({1.0, 2.0})}};
    const Message first(someTopic, attributes);
    QJsonObject json = first.toJson();
    const Message second = Message::fromJson(json);
    QCOMPARE(second.id(), first.id());
    QCOMPARE(second.type(), first.type());
    QVariantMap expected = attributes;
    expected.insert(QStringLiteral("id"), first.id().toString());
    QCOMPARE(second.attributes(), expected);
    QCOMPARE(second.toJson(), first.toJson());
}

void MessageTest::readsDeeplyNestedValues()
{
    // As deep as Qt's JSON parser lets anything in.
    constexpr int depth = 500;
    const QByteArray json = "{\"type\": \"t\", \"deep\": " + QByteArray(depth, '[') + "1"
        + QByteArray(depth, ']') + "}";
    const Message message = fromJson(json.constData());
    QVariant value = message.attributes().value(QStringLiteral("deep"));
    for (int level = 0; level < depth; ++level) {
        QCOMPARE(value.toList().size(), 1);
        value = value.toList().at(0);
    }
    QCOMPARE(value, QVariant(1.0));
    QCOMPARE(message.toJson().value(QStringLiteral("deep")).toArray().size(), 1);
}

QTEST_GUILESS_MAIN(MessageTest)
#include "tst_message.moc"
