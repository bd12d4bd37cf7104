#pragma once

#include "host/ID.h"

#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>

class QJsonValue;

namespace simulator {

/// One object of a scenario file, which knows its place in it. Each operation reads one member and
/// writes down what is wrong with it; the first mistake of a file is kept, and what cannot be read
/// is empty.
class ScenarioObject
{
public:
    /// @p place is empty for the whole file. @p mistake is not owned and outlives the object.
    ScenarioObject(const QJsonValue &value, const QString &place, QString *mistake);

    /// Members besides @p keys are a mistake.
    void allow(const QStringList &keys) const;
    bool has(const QString &key) const;
    QStringList keys() const;

    /// Has to be there, and not empty.
    QString text(const QString &key) const;
    /// @p absent when it is not there.
    QString text(const QString &key, const QString &absent) const;
    bool isTrue(const QString &key) const;
    /// The index of a text in @p names; 0 when it is not there.
    int oneOf(const QString &key, const QStringList &names) const;
    /// A list of texts, none of them empty; an empty list when it is not there.
    QStringList texts(const QString &key) const;
    /// The members "id" and "uuid".
    ID id() const;
    /// Has to be there.
    ScenarioObject object(const QString &key) const;
    /// A list of objects; an empty list when it is not there.
    QList<ScenarioObject> objects(const QString &key) const;

    /// Members have to be named as @p languages are, one for each.
    void checkLanguages(const QStringList &languages) const;

    /// The place with a name of its own, for what is said about it from now on.
    void setName(const QString &name);
    /// @p what says what is wrong and what to do.
    void addMistake(const QString &what) const;

private:
    QString place() const;
    QString member(const QString &key) const;

    QJsonObject m_object;
    QString m_place;
    QString m_name;
    QString *m_mistake;
};

} // namespace simulator
