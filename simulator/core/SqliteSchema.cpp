#include "simulator/core/SqliteSchema.h"

#include <QCoreApplication>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

namespace simulator {

namespace {

QString tr(const char *text) { return QCoreApplication::translate("SqliteSchema", text); }

/// The first value of the first row; invalid, with @p error set, when there is none.
QVariant valueOf(const QSqlDatabase &database, const QString &statement, QString &error)
{
    QSqlQuery query(database);
    if (query.exec(statement) && query.next())
        return query.value(0);
    error = query.lastError().text();
    return {};
}

bool run(const QSqlDatabase &database, const QString &statement, QString &error)
{
    QSqlQuery query(database);
    if (query.exec(statement))
        return true;
    error = query.lastError().text();
    return false;
}

int versionOf(const QSqlDatabase &database, QString &error)
{
    return valueOf(database, QStringLiteral("PRAGMA user_version"), error).toInt();
}

} // namespace

SqliteSchema::SqliteSchema(int applicationId, const QVector<QStringList> &steps)
    : m_applicationId(applicationId)
    , m_steps(steps)
{ }

QString SqliteSchema::obstacle(const QSqlDatabase &database) const
{
    QString error;
    const int version = versionOf(database, error);
    const int owner = valueOf(database, QStringLiteral("PRAGMA application_id"), error).toInt();
    const int tables =
        valueOf(database, QStringLiteral("SELECT count(*) FROM sqlite_master"), error).toInt();
    if (!error.isEmpty())
        return error;
    const bool isEmpty = version == 0 && owner == 0 && tables == 0;
    if (!isEmpty && owner != m_applicationId)
        return tr("it holds data of another program");
    if (version > m_steps.size()) {
        return tr("it was written by a later version of this program (its version is %1, known "
                  "here are versions up to %2)")
            .arg(version)
            .arg(m_steps.size());
    }
    return {};
}

QString SqliteSchema::bringUp(const QSqlDatabase &database, bool &isNew) const
{
    QString error;
    // Takes the right to write at once, so that of two programs one makes the tables and the other
    // finds them made.
    if (!run(database, QStringLiteral("BEGIN IMMEDIATE"), error))
        return error;
    error = climb(database, isNew);
    QString ignored;
    if (error.isEmpty() && run(database, QStringLiteral("COMMIT"), error))
        return {};
    run(database, QStringLiteral("ROLLBACK"), ignored);
    return error;
}

QString SqliteSchema::climb(const QSqlDatabase &database, bool &isNew) const
{
    QString error;
    const int first = versionOf(database, error);
    isNew = first == 0;
    for (int version = first; error.isEmpty() && version < m_steps.size(); ++version) {
        for (const QString &statement : m_steps.at(version)) {
            if (!run(database, statement, error))
                return error;
        }
        if (versionOf(database, error) != version + 1)
            return tr("the step from version %1 does not end at the next one").arg(version);
    }
    return error;
}

} // namespace simulator
