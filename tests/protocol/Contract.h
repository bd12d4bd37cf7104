#pragma once

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>
#include <QStringList>

/// The topics of the contract, in its order.
inline QJsonArray contractTopics()
{
    QFile file(QStringLiteral(PANOREL_CONTRACT));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", PANOREL_CONTRACT);
    return QJsonDocument::fromJson(file.readAll())
        .object()
        .value(QStringLiteral("topics"))
        .toArray();
}

inline QString member(const QJsonValue &topic, const QString &name)
{
    return topic.toObject().value(name).toString();
}

inline QString topicOf(const QJsonValue &topic) { return member(topic, QStringLiteral("topic")); }

/// The topics that the contract hands to the page, sorted.
inline QStringList contractTopicsOfThePage()
{
    QStringList topics;
    const QJsonArray all = contractTopics();
    for (const QJsonValue &topic : all)
        if (member(topic, QStringLiteral("direction")) == QLatin1String("to page"))
            topics.append(topicOf(topic));
    topics.sort();
    return topics;
}
