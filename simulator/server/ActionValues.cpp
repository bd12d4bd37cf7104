#include "simulator/server/ActionValues.h"

#include <QJsonArray>

#include <cmath>

namespace simulator {

ActionValues::ActionValues(const QJsonObject &values)
    : m_values(values)
{ }

QJsonValue ActionValues::take(const QString &name)
{
    m_known.append(name);
    return m_values.contains(name) ? m_values.take(name) : QJsonValue();
}

void ActionValues::refuse(const QString &name, const QString &wanted)
{
    if (m_mistake.isEmpty())
        m_mistake = QStringLiteral("\"%1\" has to be %2.").arg(name, wanted);
}

void ActionValues::need(const QString &name, bool isThere)
{
    if (!isThere && m_mistake.isEmpty())
        m_mistake = QStringLiteral("\"%1\" is needed.").arg(name);
}

std::optional<bool> ActionValues::flag(const QString &name)
{
    const QJsonValue value = take(name);
    if (value.isBool())
        return value.toBool();
    if (!value.isNull())
        refuse(name, QStringLiteral("true or false"));
    return {};
}

std::optional<QString> ActionValues::text(const QString &name)
{
    const QJsonValue value = take(name);
    if (value.isString())
        return value.toString();
    if (!value.isNull())
        refuse(name, QStringLiteral("a text"));
    return {};
}

std::optional<QStringList> ActionValues::texts(const QString &name)
{
    const QJsonValue value = take(name);
    if (value.isNull())
        return {};
    QStringList list;
    const QJsonArray array = value.toArray();
    for (const QJsonValue &one : array) {
        if (one.isString())
            list.append(one.toString());
    }
    if (!value.isArray() || list.size() != array.size()) {
        refuse(name, QStringLiteral("a list of texts"));
        return {};
    }
    return list;
}

std::optional<QMap<QString, QString>> ActionValues::textMap(const QString &name)
{
    const std::optional<QJsonObject> given = object(name);
    if (!given)
        return {};
    QMap<QString, QString> map;
    for (auto it = given->begin(); it != given->end(); ++it) {
        if (!it.value().isString()) {
            refuse(name, QStringLiteral("an object of texts"));
            return {};
        }
        map.insert(it.key(), it.value().toString());
    }
    return map;
}

std::optional<QJsonObject> ActionValues::object(const QString &name)
{
    const QJsonValue value = take(name);
    if (value.isObject())
        return value.toObject();
    if (!value.isNull())
        refuse(name, QStringLiteral("an object"));
    return {};
}

std::optional<int> ActionValues::number(const QString &name, int low, int high)
{
    const QJsonValue value = take(name);
    const double number = value.toDouble();
    if (value.isDouble() && number >= low && number <= high && std::floor(number) == number)
        return static_cast<int>(number);
    if (!value.isNull())
        refuse(name, QStringLiteral("a whole number from %1 to %2").arg(low).arg(high));
    return {};
}

std::optional<double> ActionValues::factor(const QString &name, double low, double high)
{
    const QJsonValue value = take(name);
    const double number = value.toDouble();
    if (value.isDouble() && number >= low && number <= high)
        return number;
    if (!value.isNull())
        refuse(name, QStringLiteral("a number from %1 to %2").arg(low).arg(high));
    return {};
}

std::optional<int> ActionValues::choice(const QString &name, const QStringList &choices)
{
    const std::optional<QString> given = text(name);
    if (!given)
        return {};
    const int place = choices.indexOf(*given);
    if (place < 0) {
        refuse(name, QStringLiteral("one of: %1").arg(choices.join(QStringLiteral(", "))));
        return {};
    }
    return place;
}

QString ActionValues::neededText(const QString &name)
{
    need(name, m_values.contains(name));
    return text(name).value_or(QString());
}

int ActionValues::neededNumber(const QString &name, int low, int high)
{
    need(name, m_values.contains(name));
    return number(name, low, high).value_or(low);
}

QString ActionValues::mistake() const
{
    if (!m_mistake.isEmpty() || m_values.isEmpty())
        return m_mistake;
    const QString known =
        m_known.isEmpty() ? QStringLiteral("nothing") : m_known.join(QStringLiteral(", "));
    return QStringLiteral("\"%1\" is not known here, which takes: %2.")
        .arg(m_values.keys().constFirst(), known);
}

} // namespace simulator
