#pragma once

#include "host/Export.h"
#include "host/FaceInfo.h"

#include <QDateTime>
#include <QJsonObject>
#include <QString>
#include <QVariant>

/// A person of the user database.
class PANOREL_HOST_EXPORT UserData
{
public:
    UserData() = default;

    /// The person's face; its id is the person's id.
    FaceInfo info() const;
    void setInfo(const FaceInfo &info);

    QString name() const;
    void setName(const QString &name);

    /// Whatever the page stored with the person: any value that JSON can carry.
    QVariant extraData() const;
    void setExtraData(const QVariant &extraData);

    QDateTime acquaintanceDate() const;
    void setAcquaintanceDate(const QDateTime &acquaintanceDate);

    QDateTime lastVisit() const;
    void setLastVisit(const QDateTime &lastVisit);

    /// The person as the page sees it: "id" (the face's id, 64 bits), "name", "age" (years),
    /// "gender" (integer), "extra_data", "acquaintance_date" and "last_visit" (ISO 8601 with
    /// seconds; empty text for a date that is not set).
    QJsonObject toJson() const;

private:
    FaceInfo m_info;
    QString m_name;
    QVariant m_extraData;
    QDateTime m_acquaintanceDate;
    QDateTime m_lastVisit;
};
