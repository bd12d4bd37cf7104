#pragma once

#include <QByteArray>
#include <QDebug>
#include <QVariantMap>

/// The attributes of a request as the page's JSON text brings them to a handler: each number is a
/// double. Fails the test, and gives none, when the text is no JSON object.
QVariantMap fromPage(const QByteArray &json);

/// What Qt's debug stream writes for @p value.
template <typename Value>
QString debugText(const Value &value)
{
    QString text;
    QDebug(&text).nospace() << value;
    return text;
}
