// Bytes as a page's message: into the envelope and out of it, and through the web channel's object
// onto the bus.

#include "panorel/Message.h"
#include "panorel/PanorelProxy.h"
#include "panorel/PanorelQueueBrocker.h"
#include "tests/fuzz/Check.h"
#include "tests/fuzz/JsonSource.h"
#include "tests/fuzz/Target.h"

#include <QJsonArray>

#include <algorithm>

using panorel::Message;

namespace {

const QString idKey = QStringLiteral("id");
const QString typeKey = QStringLiteral("type");

/// Numbers compare as doubles, whichever kind Qt made of them.
bool same(const QJsonValue &one, const QJsonValue &other)
{
    if (one.type() != other.type())
        return false;
    if (one.isObject()) {
        const QJsonObject fields = one.toObject();
        const QJsonObject others = other.toObject();
        return fields.keys() == others.keys()
            && std::equal(fields.begin(), fields.end(), others.begin(), same);
    }
    if (one.isArray()) {
        const QJsonArray items = one.toArray();
        const QJsonArray others = other.toArray();
        return items.size() == others.size()
            && std::equal(items.begin(), items.end(), others.begin(), same);
    }
    if (one.isDouble())
        return one.toDouble() == other.toDouble();
    return one == other;
}

/// What Qt's own conversion calls the text of a member; a number becomes the double's text.
QString textOf(const QJsonValue &value)
{
    return value.isDouble() ? QVariant(value.toDouble()).toString() : value.toVariant().toString();
}

QJsonObject withoutEnvelope(QJsonObject json)
{
    json.remove(idKey);
    json.remove(typeKey);
    return json;
}

void checkConversion(const QJsonObject &json)
{
    QJsonObject given = json;
    const Message message = Message::fromJson(given);
    require(given == json, "fromJson changes what it reads");
    require(message.type() == textOf(json.value(typeKey)), "the topic is not the type");
    require(message.id() == QUuid(textOf(json.value(idKey))), "the id is not the page's");
    require(!message.attributes().contains(typeKey), "the type is among the attributes");
    require(message.attributes().contains(idKey), "no id among the attributes");

    QJsonObject written = message.toJson();
    require(written.value(idKey).toString() == message.id().toString(), "another id is written");
    require(written.value(typeKey).toString() == message.type(), "another topic is written");
    require(same(withoutEnvelope(written), withoutEnvelope(json)), "attributes are lost");
    const Message again = Message::fromJson(written);
    require(again.id() == message.id() && again.type() == message.type()
                && same(again.toJson(), written),
            "the second way is not the first");

    const Message fresh(message.type(), message.attributes());
    require(fresh.id().version() == QUuid::Random && fresh.id() != message.id(),
            "a new message has no id of its own");
}

/// The page's road: who subscribed to the topic gets it once, the others do not.
void checkDelivery(const QJsonObject &json)
{
    panorel::PanorelQueueBrocker bus;
    panorel::PanorelProxy proxy(&bus);
    const QString topic = textOf(json.value(typeKey));
    int delivered = 0;
    bus.subscribe(topic, [&](const Message &message) {
        require(same(withoutEnvelope(message.toJson()), withoutEnvelope(json)),
                "another message is delivered");
        ++delivered;
    });
    int strayed = 0;
    bus.subscribe(topic + QLatin1Char('.'), [&strayed](const Message &) { ++strayed; });
    require(!proxy.sendMessage(json), "sendMessage gives true");
    require(delivered == 1 && strayed == 0, "not delivered once, to its topic");
    proxy.log_json(topic, json);
    proxy.detach();
    proxy.sendMessage(json);
    require(delivered == 1, "delivered without a bus");
}

} // namespace

void fuzzInitialize() { dropLog(); }

void fuzzOne(ByteReader *reader)
{
    const int choice = reader->byte();
    setVerbose((choice & 6) == 0);
    QJsonObject json;
    if ((choice & 1) != 0)
        json = JsonSource(reader).object(6);
    else
        json = readObject(reader->rest());
    checkConversion(json);
    checkDelivery(json);
}
