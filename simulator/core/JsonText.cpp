#include "simulator/core/JsonText.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace simulator {

namespace {

// Qt writes and reads documents, which are lists or objects; so a single value goes in a list.
QJsonDocument read(const QByteArray &text)
{
    return QJsonDocument::fromJson(QByteArrayLiteral("[") + text + QByteArrayLiteral("]"));
}

} // namespace

QVariant JsonText::fromValue(const QVariant &value)
{
    if (!value.isValid())
        return QVariant(QVariant::String);
    const QJsonArray list{QJsonValue::fromVariant(value)};
    const QByteArray document = QJsonDocument(list).toJson(QJsonDocument::Compact);
    const QByteArray text = document.mid(1, document.size() - 2);
    if (read(text).isNull())
        return {};
    return QString::fromUtf8(text);
}

QVariant JsonText::toValue(const QVariant &text)
{
    if (text.isNull())
        return {};
    return read(text.toString().toUtf8()).array().at(0).toVariant();
}

} // namespace simulator
