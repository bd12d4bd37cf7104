#pragma once

#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QUuid>
#include <QVariantMap>

// The straightforward implementation that the library is measured beside: an id from the system for
// each message, Qt's own JSON conversion, a table of lists that is searched twice.
namespace naive {

class Message
{
public:
    Message(const QString &type, const QVariantMap &attributes)
        : m_id(QUuid::createUuid())
        , m_type(type)
        , m_attributes(attributes)
    { }

    QUuid id() const { return m_id; }
    QString type() const { return m_type; }
    QVariantMap attributes() const { return m_attributes; }

    QJsonObject toJson() const
    {
        QJsonObject json = QJsonObject::fromVariantMap(m_attributes);
        json.insert(QStringLiteral("id"), m_id.toString());
        json.insert(QStringLiteral("type"), m_type);
        return json;
    }

private:
    QUuid m_id;
    QString m_type;
    QVariantMap m_attributes;
};

class Handler
{
public:
    virtual ~Handler() = default;
    virtual void handle(Message message) = 0;
};

class Bus
{
public:
    void subscribe(const QString &topic, Handler *handler) { m_handlers[topic].append(handler); }

    void publish(const Message &message)
    {
        if (!m_handlers.contains(message.type()))
            return;
        const QList<Handler *> handlers = m_handlers.value(message.type());
        for (Handler *handler : handlers)
            handler->handle(message);
    }

private:
    QMap<QString, QList<Handler *>> m_handlers; // not owned
};

} // namespace naive
