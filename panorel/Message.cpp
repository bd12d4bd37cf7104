#include "panorel/Message.h"

#include "panorel/JsonConversion.h"
#include "panorel/RandomUuid.h"

namespace panorel {

namespace {

const QString &idKey()
{
    static const QString key = QStringLiteral("id");
    return key;
}

const QString &typeKey()
{
    static const QString key = QStringLiteral("type");
    return key;
}

} // namespace

Message::Message(const QString &type)
    : m_id(randomUuid())
    , m_type(type)
{ }

Message::Message(const QString &type, const QMap<QString, QVariant> &attributes)
    : m_id(randomUuid())
    , m_type(type)
    , m_attributes(attributes)
{ }

Message::Message(QString id, const QString &type, const QMap<QString, QVariant> &attributes)
    : m_id(id)
    , m_type(type)
    , m_attributes(attributes)
{ }

QUuid Message::id() const { return m_id; }

QString Message::type() const { return m_type; }

QMap<QString, QVariant> Message::attributes() const { return m_attributes; }

QJsonObject Message::toJson() const
{
    QJsonObject json = toJsonObject(m_attributes);
    json.insert(idKey(), m_id.toString());
    json.insert(typeKey(), m_type);
    return json;
}

Message Message::fromJson(QJsonObject &json)
{
    QVariantMap attributes = toVariantMap(json);
    // The subscript inserts an absent "id": it then stays among the attributes as an invalid value.
    const QString id = attributes[idKey()].toString();
    const QString type = attributes.take(typeKey()).toString();
    return Message(id, type, attributes);
}

} // namespace panorel
