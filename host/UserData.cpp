#include "host/UserData.h"

FaceInfo UserData::info() const { return m_info; }

void UserData::setInfo(const FaceInfo &info) { m_info = info; }

QString UserData::name() const { return m_name; }

void UserData::setName(const QString &name) { m_name = name; }

QVariant UserData::extraData() const { return m_extraData; }

void UserData::setExtraData(const QVariant &extraData) { m_extraData = extraData; }

QDateTime UserData::acquaintanceDate() const { return m_acquaintanceDate; }

void UserData::setAcquaintanceDate(const QDateTime &acquaintanceDate)
{
    m_acquaintanceDate = acquaintanceDate;
}

QDateTime UserData::lastVisit() const { return m_lastVisit; }

void UserData::setLastVisit(const QDateTime &lastVisit) { m_lastVisit = lastVisit; }

QJsonObject UserData::toJson() const
{
    return {
        {QStringLiteral("id"), static_cast<qint64>(m_info.id())},
        {QStringLiteral("name"), m_name},
        {QStringLiteral("age"), m_info.age()},
        {QStringLiteral("gender"), static_cast<int>(m_info.gender())},
        {QStringLiteral("extra_data"), QJsonValue::fromVariant(m_extraData)},
        {QStringLiteral("acquaintance_date"), m_acquaintanceDate.toString(Qt::ISODate)},
        {QStringLiteral("last_visit"), m_lastVisit.toString(Qt::ISODate)},
    };
}
