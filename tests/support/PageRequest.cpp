#include "tests/support/PageRequest.h"

#include "panorel/Message.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

QVariantMap fromPage(const QByteArray &json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isObject()) {
        QTest::qFail(("not a JSON object: " + json).constData(), __FILE__, __LINE__);
        return {};
    }
    QJsonObject object = document.object();
    const bool hasId = object.contains(QStringLiteral("id"));
    QVariantMap attributes = panorel::Message::fromJson(object).attributes();
    if (!hasId)
        attributes.remove(QStringLiteral("id")); // the envelope's
    return attributes;
}
