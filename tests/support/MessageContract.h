#pragma once

#include <QJsonObject>
#include <QSet>
#include <QString>
#include <QStringList>

#include <memory>

/// The contract of all topics, protocol/topics.json, as it holds for the messages of a test. What the
/// page is told has to be exactly so. Of a request only the names of the attributes count: any kind of
/// value is allowed, since pages send any. Topics that it does not know are free.
class MessageContract
{
public:
    /// The one of the process, read when it is first asked for.
    static MessageContract &instance();
    ~MessageContract();

    /// What is wrong with a message, given as JSON; nothing when it keeps to the contract. A request
    /// may also have @p madeUp attributes.
    QStringList faults(const QString &message, const QStringList &madeUp = {});

    /// Remembers the topic and the attributes of @p message, but for @p madeUp.
    void countAsUsed(const QJsonObject &message, const QStringList &madeUp);
    /// Writes a line "TOPIC" or "TOPIC ATTRIBUTE" for each that counts as used.
    void writeUsed(const QString &path) const;

private:
    Q_DISABLE_COPY(MessageContract)
    MessageContract();

    class Private;
    const std::unique_ptr<Private> d;
    QSet<QString> m_used;
};
