#include "simulator/core/ScenarioObject.h"

#include <QJsonArray>

#include <limits>

namespace simulator {

namespace {

QString quoted(const QString &text) { return QLatin1Char('"') + text + QLatin1Char('"'); }

QString list(const QStringList &names) { return names.join(QStringLiteral(", ")); }

} // namespace

ScenarioObject::ScenarioObject(const QJsonValue &value, const QString &place, QString *mistake)
    : m_object(value.toObject())
    , m_place(place)
    , m_mistake(mistake)
{
    if (!value.isObject())
        addMistake(QStringLiteral("write an object in braces here."));
}

void ScenarioObject::allow(const QStringList &keys) const
{
    const QStringList present = m_object.keys();
    for (const QString &key : present) {
        if (!keys.contains(key)) {
            addMistake(QStringLiteral("%1 is not known here; remove it, or use one of %2.")
                           .arg(quoted(key), list(keys)));
        }
    }
}

bool ScenarioObject::has(const QString &key) const { return m_object.contains(key); }

QStringList ScenarioObject::keys() const { return m_object.keys(); }

QString ScenarioObject::text(const QString &key) const
{
    if (!has(key)) {
        addMistake(QStringLiteral("%1 is missing; add it.").arg(quoted(key)));
        return {};
    }
    QString text = m_object.value(key).toString();
    if (text.trimmed().isEmpty())
        addMistake(QStringLiteral("%1 has to be a text that is not empty.").arg(quoted(key)));
    return text;
}

QString ScenarioObject::text(const QString &key, const QString &absent) const
{
    return has(key) ? text(key) : absent;
}

bool ScenarioObject::isTrue(const QString &key) const
{
    if (has(key) && !m_object.value(key).isBool())
        addMistake(QStringLiteral("%1 has to be true or false.").arg(quoted(key)));
    return m_object.value(key).toBool();
}

int ScenarioObject::oneOf(const QString &key, const QStringList &names) const
{
    if (!has(key))
        return 0;
    const int index = names.indexOf(m_object.value(key).toString());
    if (index < 0)
        addMistake(
            QStringLiteral("%1 is %2; use one of %3.")
                .arg(quoted(key), quoted(m_object.value(key).toVariant().toString()), list(names)));
    return qMax(0, index);
}

QStringList ScenarioObject::texts(const QString &key) const
{
    const QJsonValue value = m_object.value(key);
    if (has(key) && !value.isArray())
        addMistake(QStringLiteral("%1 has to be a list of texts in brackets.").arg(quoted(key)));
    QStringList texts;
    const QJsonArray array = value.toArray();
    for (const QJsonValue &item : array) {
        texts.append(item.toString());
        if (texts.constLast().trimmed().isEmpty()) {
            addMistake(QStringLiteral("entry %1 of %2 has to be a text that is not empty.")
                           .arg(texts.size())
                           .arg(quoted(key)));
        }
    }
    return texts;
}

ID ScenarioObject::id() const
{
    const double number = m_object.value(QStringLiteral("id")).toDouble();
    const bool inRange = number >= 1 && number <= std::numeric_limits<unsigned>::max();
    const unsigned id = inRange ? static_cast<unsigned>(number) : 0;
    if (!inRange || static_cast<double>(id) != number)
        addMistake(QStringLiteral("\"id\" has to be a whole number from 1 to %1.")
                       .arg(std::numeric_limits<unsigned>::max()));
    const QUuid uuid(m_object.value(QStringLiteral("uuid")).toString());
    if (uuid.isNull()) {
        addMistake(QStringLiteral("\"uuid\" has to be a UUID; take a new one, such as %1.")
                       .arg(quoted(QUuid::createUuid().toString())));
    }
    return ID(id, uuid);
}

ScenarioObject ScenarioObject::object(const QString &key) const
{
    if (!has(key))
        addMistake(QStringLiteral("%1 is missing; add it.").arg(quoted(key)));
    return ScenarioObject(m_object.value(key), member(key), m_mistake);
}

QList<ScenarioObject> ScenarioObject::objects(const QString &key) const
{
    const QJsonValue value = m_object.value(key);
    if (has(key) && !value.isArray())
        addMistake(QStringLiteral("%1 has to be a list of objects in brackets.").arg(quoted(key)));
    QList<ScenarioObject> objects;
    const QJsonArray array = value.toArray();
    for (const QJsonValue &item : array) {
        const QString place = QStringLiteral("%1[%2]").arg(member(key)).arg(objects.size());
        objects.append(ScenarioObject(item, place, m_mistake));
    }
    return objects;
}

void ScenarioObject::checkLanguages(const QStringList &languages) const
{
    for (const QString &language : languages) {
        if (!has(language)) {
            addMistake(QStringLiteral("the language %1 is missing; add it, or take it out of "
                                      "\"languages\".")
                           .arg(quoted(language)));
        }
    }
    allow(languages);
}

void ScenarioObject::setName(const QString &name) { m_name = name; }

void ScenarioObject::addMistake(const QString &what) const
{
    if (!m_mistake->isEmpty())
        return;
    *m_mistake = m_place.isEmpty() ? what : place() + QStringLiteral(": ") + what;
}

QString ScenarioObject::place() const
{
    return m_name.isEmpty() ? m_place : QStringLiteral("%1 (%2)").arg(m_place, m_name);
}

QString ScenarioObject::member(const QString &key) const
{
    return m_place.isEmpty() ? key : place() + QLatin1Char('.') + key;
}

} // namespace simulator
