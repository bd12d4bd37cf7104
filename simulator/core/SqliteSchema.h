#pragma once

#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <QVector>

namespace simulator {

/// The versions of the tables in a SQLite file, and the way from each to the next. The file itself
/// carries its version ("user_version") and whose it is ("application_id").
class SqliteSchema
{
public:
    /// @p steps lead from version 0, an empty file, one version further each. The last statement of
    /// a step sets "user_version"; the first step also sets "application_id" to @p applicationId.
    SqliteSchema(int applicationId, const QVector<QStringList> &steps);

    /// What keeps the open @p database from being used: it is someone else's, or a later version.
    /// Empty when nothing does. Writes nothing.
    QString obstacle(const QSqlDatabase &database) const;

    /// Takes @p database to the last version, all steps or none, and makes sure that it can be
    /// written. Returns what went wrong; empty when nothing did. @p isNew tells whether the file
    /// was empty.
    QString bringUp(const QSqlDatabase &database, bool &isNew) const;

private:
    QString climb(const QSqlDatabase &database, bool &isNew) const;

    int m_applicationId;
    QVector<QStringList> m_steps;
};

} // namespace simulator
