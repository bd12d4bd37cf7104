#pragma once

#include "panorel/Export.h"

#include <QJsonObject>
#include <QMap>
#include <QString>
#include <QUuid>
#include <QVariant>

namespace panorel {

/// The one record that travels on the bus: an id, a topic and the topic's attributes.
///
/// A value type without setters, cheap to copy. Attributes hold only what JSON can carry: int,
/// qlonglong, unsigned, double, bool, QString, QUuid, QUrl, QStringList, QVariantMap and
/// QVariantList; the one exception is "system.general.touch", which never reaches the page.
class PANOREL_EXPORT Message
{
public:
    /// A message with a fresh random id and no attributes.
    explicit Message(const QString &type);

    /// A message with a fresh random id.
    Message(const QString &type, const QMap<QString, QVariant> &attributes);

    /// A message with the id that @p id spells (8-4-4-4-12 hexadecimal digits, braces optional);
    /// any other text gives the null id.
    Message(QString id, const QString &type, const QMap<QString, QVariant> &attributes);

    QUuid id() const;
    /// The topic; see panorel/Constants.h.
    QString type() const;
    QMap<QString, QVariant> attributes() const;

    /// The envelope: one flat object with the attributes, over which "id" (braced lower-case text)
    /// and "type" are written, so attributes of these names do not show.
    QJsonObject toJson() const;

    /// Reads an envelope. Never fails: without a readable "id" the id is null, without a "type" the
    /// topic is empty. Numbers become double at any depth. "type" is taken out of the attributes,
    /// "id" always stays in them (invalid when the envelope had none).
    static Message fromJson(QJsonObject &json);

private:
    friend class PanorelQueueBrocker; // reads the topic in place

    QUuid m_id;
    QString m_type;
    QMap<QString, QVariant> m_attributes;
};

} // namespace panorel
