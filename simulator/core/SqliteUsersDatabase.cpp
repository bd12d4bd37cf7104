#include "simulator/core/SqliteUsersDatabase.h"

#include "simulator/core/JsonText.h"
#include "simulator/core/SqliteSchema.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

namespace simulator {

namespace {

const int ApplicationId = 1349874259;

/// Version 1 is the first; a later one is appended as a step of its own, and no step is ever
/// changed, so that every file finds its way.
const SqliteSchema &schema()
{
    static const SqliteSchema schema(
        ApplicationId,
        {{
            QStringLiteral("CREATE TABLE person ("
                           "id INTEGER PRIMARY KEY, "
                           "face_type INTEGER NOT NULL, "
                           "age REAL NOT NULL, "
                           "gender INTEGER NOT NULL, "
                           "name TEXT NOT NULL, "
                           "extra_data TEXT, " // JSON; NULL when there is none
                           "acquaintance_date TEXT, " // ISO 8601 in UTC; NULL when not set
                           "last_visit TEXT)"),
            QStringLiteral("PRAGMA application_id = 1349874259"),
            QStringLiteral("PRAGMA user_version = 1"),
        }});
    return schema;
}

/// An empty text is a text, unlike a null one, which the database would take for no value at all.
QVariant textOf(const QString &text) { return text.isNull() ? QString(QLatin1String("")) : text; }

QVariant textOf(const QDateTime &date)
{
    if (!date.isValid())
        return QVariant(QVariant::String);
    return date.toUTC().toString(Qt::ISODateWithMs);
}

QDateTime dateOf(const QVariant &text)
{
    const QDateTime date = QDateTime::fromString(text.toString(), Qt::ISODateWithMs);
    return date.isValid() ? date.toLocalTime() : QDateTime();
}

bool succeeds(QSqlQuery &query)
{
    if (query.exec())
        return true;
    qWarning() << "The users' database refused an operation:" << query.lastError().text();
    return false;
}

} // namespace

SqliteUsersDatabase::SqliteUsersDatabase(QObject *parent)
    : IUsersDatabase(parent)
{
    openInMemory();
}

SqliteUsersDatabase::SqliteUsersDatabase(const QString &file, QObject *parent)
    : IUsersDatabase(parent)
{
    const QString reason = openFile(file);
    if (reason.isEmpty()) {
        m_isInMemory = false;
        return;
    }
    close();
    openInMemory();
    m_problem = tr("The users' database \"%1\" cannot be used: %2.\n"
                   "The file stays as it is; people are remembered only until the program ends.")
                    .arg(QDir::toNativeSeparators(file), reason);
}

SqliteUsersDatabase::~SqliteUsersDatabase() { close(); }

QString SqliteUsersDatabase::fileName() { return QStringLiteral("users.sqlite"); }

QString SqliteUsersDatabase::problem() const { return m_problem; }

bool SqliteUsersDatabase::isInMemory() const { return m_isInMemory; }

bool SqliteUsersDatabase::isNew() const { return m_isNew; }

bool SqliteUsersDatabase::user(const long long &id, UserData &user)
{
    QSqlQuery query(m_database);
    query.prepare(QStringLiteral("SELECT face_type, age, gender, name, extra_data, "
                                 "acquaintance_date, last_visit FROM person WHERE id = ?"));
    query.addBindValue(id);
    if (!succeeds(query) || !query.next())
        return false;

    FaceInfo face;
    face.setId(id);
    face.setType(static_cast<FaceInfo::Type>(query.value(0).toInt()));
    face.setAge(query.value(1).toDouble());
    face.setGender(static_cast<Gender>(query.value(2).toInt()));
    UserData found;
    found.setInfo(face);
    found.setName(query.value(3).toString());
    found.setExtraData(JsonText::toValue(query.value(4)));
    found.setAcquaintanceDate(dateOf(query.value(5)));
    found.setLastVisit(dateOf(query.value(6)));
    user = found;
    return true;
}

bool SqliteUsersDatabase::addUser(const UserData &user)
{
    const QVariant extraData = JsonText::fromValue(user.extraData());
    if (!extraData.isValid())
        return false;

    QSqlQuery query(m_database);
    query.prepare(QStringLiteral("INSERT INTO person (id, face_type, age, gender, name, "
                                 "extra_data, acquaintance_date, last_visit) "
                                 "VALUES (?, ?, ?, ?, ?, ?, ?, ?) ON CONFLICT (id) DO NOTHING"));
    const FaceInfo face = user.info();
    query.addBindValue(face.id());
    query.addBindValue(static_cast<int>(face.type()));
    query.addBindValue(face.age());
    query.addBindValue(static_cast<int>(face.gender()));
    query.addBindValue(textOf(user.name()));
    query.addBindValue(extraData);
    query.addBindValue(textOf(user.acquaintanceDate()));
    query.addBindValue(textOf(user.lastVisit()));
    if (!succeeds(query) || query.numRowsAffected() != 1)
        return false;
    Q_EMIT changed();
    return true;
}

bool SqliteUsersDatabase::deleteUser(const long long &id, const FaceInfo::Type &type)
{
    QSqlQuery query(m_database);
    query.prepare(QStringLiteral("DELETE FROM person WHERE id = ? AND face_type = ?"));
    query.addBindValue(id);
    query.addBindValue(static_cast<int>(type));
    if (!succeeds(query) || query.numRowsAffected() != 1)
        return false;
    Q_EMIT changed();
    return true;
}

int SqliteUsersDatabase::count() const
{
    QSqlQuery query(m_database);
    query.prepare(QStringLiteral("SELECT count(*) FROM person"));
    return succeeds(query) && query.next() ? query.value(0).toInt() : 0;
}

QVector<long long> SqliteUsersDatabase::ids(int limit) const
{
    QVector<long long> ids;
    QSqlQuery query(m_database);
    query.prepare(QStringLiteral("SELECT id FROM person ORDER BY id LIMIT ?"));
    query.addBindValue(qMax(0, limit));
    if (succeeds(query)) {
        while (query.next())
            ids.append(query.value(0).toLongLong());
    }
    return ids;
}

void SqliteUsersDatabase::openInMemory()
{
    QString error = open(QStringLiteral(":memory:"));
    if (error.isEmpty())
        error = schema().bringUp(m_database, m_isNew);
    if (!error.isEmpty())
        qWarning() << "There is no users' database:" << error;
}

// Returns why not; empty when the file is open and sound.
QString SqliteUsersDatabase::openFile(const QString &file)
{
    const QString folder = QFileInfo(file).absolutePath();
    if (!QDir().mkpath(folder))
        return tr("the folder \"%1\" cannot be made").arg(QDir::toNativeSeparators(folder));
    QFile trial(file);
    const bool isThere = trial.exists();
    if (!trial.open(QIODevice::ReadWrite))
        return trial.errorString();
    // Who visits is nobody else's business.
    if (!isThere)
        trial.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    trial.close();

    QString error = open(file);
    if (error.isEmpty())
        error = schema().obstacle(m_database);
    if (!error.isEmpty())
        return error;

    QSqlQuery query(m_database);
    if (!query.exec(QStringLiteral("PRAGMA quick_check(1)")) || !query.next())
        return query.lastError().text();
    if (query.value(0).toString() != QLatin1String("ok"))
        return tr("the file is damaged (%1)").arg(query.value(0).toString().simplified());
    query.finish();
    // Without it the file is as safe, only slower; some network folders cannot have it.
    query.exec(QStringLiteral("PRAGMA journal_mode = WAL"));
    query.finish();
    return schema().bringUp(m_database, m_isNew);
}

QString SqliteUsersDatabase::open(const QString &name)
{
    m_database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"),
                                           QUuid::createUuid().toString(QUuid::WithoutBraces));
    m_database.setDatabaseName(name);
    // Another program may be writing; the window waits for it, but not for long.
    m_database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=1000"));
    if (!m_database.open())
        return m_database.lastError().text();
    for (const QString &statement : {QStringLiteral("PRAGMA synchronous = FULL"),
                                     QStringLiteral("PRAGMA foreign_keys = ON")}) {
        QSqlQuery query(m_database);
        if (!query.exec(statement))
            return query.lastError().text();
    }
    return {};
}

void SqliteUsersDatabase::close()
{
    const QString connection = m_database.connectionName();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(connection);
}

} // namespace simulator
