#pragma once

#include "host/IUsersDatabase.h"
#include "host/UserData.h"

#include <QSqlDatabase>
#include <QVector>

namespace simulator {

/// The known people, in a SQLite file or in memory. What an operation acknowledged with true is on
/// the disk. Of a face it keeps id, type, age and gender. Dates keep their moment, to the
/// millisecond, and come back as local time. Needs an application object. GUI thread.
class SqliteUsersDatabase : public IUsersDatabase
{
    Q_OBJECT

public:
    /// In memory: forgotten with the object.
    explicit SqliteUsersDatabase(QObject *parent = nullptr);
    /// In @p file, which is made when it is not there, with its folder. A file that cannot be used
    /// stays as it is: problem() says why, and people are kept in memory instead.
    explicit SqliteUsersDatabase(const QString &file, QObject *parent = nullptr);
    ~SqliteUsersDatabase() override;

    /// The file's name within a data folder.
    static QString fileName();

    /// Why the file is not used; empty when all is well.
    QString problem() const;
    bool isInMemory() const;
    /// Whether there was no file before, or an empty one; in memory always.
    bool isNew() const;

    bool user(const long long &id, UserData &user) override;
    /// Refuses a person whose id is taken, and extra data that JSON cannot carry.
    bool addUser(const UserData &user) override;
    /// Deletes only when the person's face has the type @p type.
    bool deleteUser(const long long &id, const FaceInfo::Type &type) override;

    int count() const;
    /// The ids of at most @p limit people, the smallest first.
    QVector<long long> ids(int limit) const;

Q_SIGNALS:
    void changed();

private:
    void openInMemory();
    QString openFile(const QString &file);
    QString open(const QString &name);
    void close();

    QSqlDatabase m_database;
    QString m_problem;
    bool m_isInMemory = true;
    bool m_isNew = true;
};

} // namespace simulator
