#include "simulator/core/SqliteUsersDatabase.h"

#include "tests/support/TestCase.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <limits>
#include <memory>

using simulator::SqliteUsersDatabase;

/// The users' database, in memory and in a file.
class SqliteUsersDatabaseTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void findsWhoWasAdded();
    void leavesTheRecordAloneWhenUnknown();
    void refusesAnIdThatIsTaken();
    void deletesByIdAndType();
    void listsIdsInOrder();
    void remembersEverythingInAFile();
    void keepsIdsExact_data();
    void keepsIdsExact();
    void keepsExtraDataExact_data();
    void keepsExtraDataExact();
    void refusesExtraDataThatCannotBeReadBack();
    void keepsMoments_data();
    void keepsMoments();
    void takesTextsForTextsOnly();
    void takesAPersonWithoutAName();
    void makesTheFolder();
    void onlyItsOwnerReadsTheFile();
    void opensTheFileSafely();
    void staysInMemoryForAFileItCannotUse_data();
    void staysInMemoryForAFileItCannotUse();
    void refusesADamagedFile();
    void refusesALaterVersion();
    void saysWhenTheFileIsBusy();
    void twoProgramsShareAFile();
    void keepsWhatItAcknowledgedWhenKilled();

protected:
    void setUp() override { m_folder = std::make_unique<QTemporaryDir>(); }
    void tearDown() override { m_folder.reset(); }

private:
    QString file() const { return m_folder->filePath(SqliteUsersDatabase::fileName()); }
    static UserData person(long long id, const QString &name = QStringLiteral("Anna"));
    /// Puts the person in a file and reads it back from the file, opened anew.
    UserData throughTheFile(const UserData &user) const;
    /// The value that @p statement gives, on a connection of the test's own.
    QVariant ask(const QString &statement) const;
    void write(const QByteArray &content) const;
    QByteArray content() const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

UserData SqliteUsersDatabaseTest::person(long long id, const QString &name)
{
    FaceInfo face;
    face.setId(id);
    face.setType(FaceInfo::User);
    UserData user;
    user.setInfo(face);
    user.setName(name);
    return user;
}

UserData SqliteUsersDatabaseTest::throughTheFile(const UserData &user) const
{
    if (!SqliteUsersDatabase(file()).addUser(user))
        return {};
    UserData found;
    SqliteUsersDatabase(file()).user(user.info().id(), found);
    return found;
}

QVariant SqliteUsersDatabaseTest::ask(const QString &statement) const
{
    const QString connection = QStringLiteral("test");
    QVariant value;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
        database.setDatabaseName(file());
        database.open();
        QSqlQuery query(database);
        if (query.exec(statement) && query.next())
            value = query.value(0);
    }
    QSqlDatabase::removeDatabase(connection);
    return value;
}

void SqliteUsersDatabaseTest::write(const QByteArray &content) const
{
    QFile out(file());
    QVERIFY(out.open(QIODevice::WriteOnly));
    QCOMPARE(out.write(content), static_cast<qint64>(content.size()));
}

QByteArray SqliteUsersDatabaseTest::content() const
{
    QFile in(file());
    return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
}

void SqliteUsersDatabaseTest::findsWhoWasAdded()
{
    SqliteUsersDatabase database;
    QVERIFY(database.isInMemory());
    QVERIFY(database.isNew());
    QVERIFY(database.problem().isEmpty());
    const long long id = 5000000000;
    QVERIFY(database.addUser(person(id)));
    UserData user;
    QVERIFY(database.user(id, user));
    QCOMPARE(user.name(), QStringLiteral("Anna"));
    QCOMPARE(user.info().id(), id);
}

void SqliteUsersDatabaseTest::leavesTheRecordAloneWhenUnknown()
{
    SqliteUsersDatabase database;
    UserData user = person(1, QStringLiteral("before"));
    QVERIFY(!database.user(2, user));
    QCOMPARE(user.name(), QStringLiteral("before"));
}

void SqliteUsersDatabaseTest::refusesAnIdThatIsTaken()
{
    SqliteUsersDatabase database;
    QSignalSpy changed(&database, &SqliteUsersDatabase::changed);
    QVERIFY(database.addUser(person(1)));
    QVERIFY(!database.addUser(person(1, QStringLiteral("Ben"))));
    UserData user;
    QVERIFY(database.user(1, user));
    QCOMPARE(user.name(), QStringLiteral("Anna"));
    QCOMPARE(changed.count(), 1);
}

void SqliteUsersDatabaseTest::deletesByIdAndType()
{
    SqliteUsersDatabase database;
    QVERIFY(database.addUser(person(1)));
    QSignalSpy changed(&database, &SqliteUsersDatabase::changed);
    QVERIFY(!database.deleteUser(2, FaceInfo::User));
    QVERIFY(!database.deleteUser(1, FaceInfo::Temporary));
    QVERIFY(database.deleteUser(1, FaceInfo::User));
    QVERIFY(!database.deleteUser(1, FaceInfo::User));
    QCOMPARE(database.count(), 0);
    QCOMPARE(changed.count(), 1);
}

void SqliteUsersDatabaseTest::listsIdsInOrder()
{
    SqliteUsersDatabase database;
    for (const long long id : {7LL, -2LL, 5000000000LL, 3LL})
        QVERIFY(database.addUser(person(id)));
    QCOMPARE(database.ids(3), (QVector<long long>{-2, 3, 7}));
    QCOMPARE(database.ids(9).size(), 4);
    QVERIFY(database.ids(-1).isEmpty());
    QCOMPARE(database.count(), 4);
}

void SqliteUsersDatabaseTest::remembersEverythingInAFile()
{
    UserData user = person(42, QStringLiteral("Zoë 🙂"));
    FaceInfo face = user.info();
    face.setAge(33.25);
    face.setGender(GenderFemale);
    user.setInfo(face);
    user.setExtraData(QVariantMap{{QStringLiteral("badge"), 7}});
    user.setAcquaintanceDate(QDateTime(QDate(2019, 4, 2), QTime(9, 0, 1, 23)));
    user.setLastVisit(QDateTime(QDate(2024, 12, 31), QTime(23, 59, 59)));

    {
        SqliteUsersDatabase database(file());
        QVERIFY2(database.problem().isEmpty(), qPrintable(database.problem()));
        QVERIFY(!database.isInMemory());
        QVERIFY(database.isNew());
        QVERIFY(database.addUser(user));
    }
    SqliteUsersDatabase database(file());
    QVERIFY(!database.isNew());
    UserData found;
    QVERIFY(database.user(42, found));
    QCOMPARE(found.toJson(), user.toJson());
    QCOMPARE(found.info().type(), FaceInfo::User);
    QCOMPARE(found.acquaintanceDate(), user.acquaintanceDate()); // with the milliseconds
    QVERIFY(!database.addUser(user));
    QVERIFY(database.deleteUser(42, FaceInfo::User));
    QCOMPARE(SqliteUsersDatabase(file()).count(), 0);
}

void SqliteUsersDatabaseTest::keepsIdsExact_data()
{
    QTest::addColumn<long long>("id");
    QTest::newRow("0") << 0LL;
    QTest::newRow("-1") << -1LL;
    QTest::newRow("beyond 53 bits") << 9007199254740993LL;
    QTest::newRow("largest") << std::numeric_limits<long long>::max();
    QTest::newRow("smallest") << std::numeric_limits<long long>::min();
}

void SqliteUsersDatabaseTest::keepsIdsExact()
{
    QFETCH(long long, id);
    QVERIFY(SqliteUsersDatabase(file()).addUser(person(id)));
    QCOMPARE(SqliteUsersDatabase(file()).ids(1), QVector<long long>{id});
    UserData user;
    QVERIFY(SqliteUsersDatabase(file()).user(id, user));
    QCOMPARE(user.info().id(), id);
}

void SqliteUsersDatabaseTest::keepsExtraDataExact_data()
{
    QTest::addColumn<QByteArray>("list"); // with the value as its one entry
    QTest::newRow("object") << QByteArray(R"([{"a":{"b":[1,"x",null,true]},"":{}}])");
    QTest::newRow("list") << QByteArray(R"([[1,[2,[]]]])");
    QTest::newRow("text") << QByteArray(R"(["it's \"quoted\"; DROP TABLE person"])");
    QTest::newRow("text with a zero") << QByteArray(R"(["a\u0000b"])");
    QTest::newRow("empty text") << QByteArray(R"([""])");
    QTest::newRow("text like a number") << QByteArray(R"(["007"])");
    QTest::newRow("integer of 64 bits") << QByteArray(R"([9007199254740993])");
    QTest::newRow("fraction") << QByteArray(R"([0.1])");
    QTest::newRow("large") << QByteArray(R"([1e+300])");
    QTest::newRow("true") << QByteArray(R"([true])");
    QTest::newRow("false") << QByteArray(R"([false])");
    QTest::newRow("null") << QByteArray(R"([null])");
}

void SqliteUsersDatabaseTest::keepsExtraDataExact()
{
    QFETCH(QByteArray, list);
    const QJsonDocument document = QJsonDocument::fromJson(list);
    QCOMPARE(document.array().size(), 1);
    UserData user = person(1);
    user.setExtraData(document.array().at(0).toVariant());
    const QVariant found = throughTheFile(user).extraData();
    QVERIFY(found.isValid());
    QCOMPARE(QJsonDocument(QJsonArray{QJsonValue::fromVariant(found)}).toJson(), document.toJson());
    // None at all is something else than null.
    QVERIFY(!throughTheFile(person(2)).extraData().isValid());
}

void SqliteUsersDatabaseTest::refusesExtraDataThatCannotBeReadBack()
{
    QVariant deep = 1;
    for (int i = 0; i < 2000; ++i)
        deep = QVariantList{deep};
    UserData user = person(1);
    user.setExtraData(deep);
    SqliteUsersDatabase database;
    QVERIFY(!database.addUser(user));
    QCOMPARE(database.count(), 0);
}

void SqliteUsersDatabaseTest::keepsMoments_data()
{
    QTest::addColumn<QDateTime>("date");
    const QDate day(2024, 2, 29);
    const QTime time(1, 2, 3, 4);
    QTest::newRow("not set") << QDateTime();
    QTest::newRow("local") << QDateTime(day, time);
    QTest::newRow("UTC") << QDateTime(day, time, Qt::UTC);
    QTest::newRow("offset") << QDateTime(day, time, Qt::OffsetFromUTC, 5 * 3600 + 1800);
}

void SqliteUsersDatabaseTest::keepsMoments()
{
    QFETCH(QDateTime, date);
    UserData user = person(1);
    user.setLastVisit(date);
    const UserData found = throughTheFile(user);
    QCOMPARE(found.lastVisit(), date);
    QVERIFY(!found.acquaintanceDate().isValid());
    if (!date.isValid())
        return;
    QCOMPARE(found.lastVisit().timeSpec(), Qt::LocalTime);
    QCOMPARE(ask(QStringLiteral("SELECT last_visit FROM person")).toString(),
             date.toUTC().toString(Qt::ISODateWithMs));
}

void SqliteUsersDatabaseTest::takesTextsForTextsOnly()
{
    const QString name = QStringLiteral("'); DROP TABLE person; -- \" ? :name");
    QCOMPARE(throughTheFile(person(1, name)).name(), name);
    QCOMPARE(SqliteUsersDatabase(file()).count(), 1);
}

void SqliteUsersDatabaseTest::takesAPersonWithoutAName()
{
    SqliteUsersDatabase database;
    QVERIFY(database.addUser(UserData()));
    UserData user = person(9);
    QVERIFY(database.user(0, user));
    QVERIFY(user.name().isEmpty());
    QCOMPARE(user.info().type(), FaceInfo::Unknown);
}

void SqliteUsersDatabaseTest::makesTheFolder()
{
    const QString deep = m_folder->filePath(QStringLiteral("a/b c/users.sqlite"));
    QVERIFY(SqliteUsersDatabase(deep).addUser(person(1)));
    QCOMPARE(SqliteUsersDatabase(deep).count(), 1);
}

void SqliteUsersDatabaseTest::onlyItsOwnerReadsTheFile()
{
    const SqliteUsersDatabase database(file());
    const QFile::Permissions others =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    QVERIFY(!(QFileInfo(file()).permissions() & others));
}

void SqliteUsersDatabaseTest::opensTheFileSafely()
{
    const SqliteUsersDatabase database(file());
    QCOMPARE(ask(QStringLiteral("PRAGMA journal_mode")).toString(), QStringLiteral("wal"));
    QCOMPARE(ask(QStringLiteral("PRAGMA user_version")).toInt(), 1);
    // These belong to the connection.
    const QStringList connections = QSqlDatabase::connectionNames();
    for (const QString &name : connections) {
        QSqlQuery query(QSqlDatabase::database(name, false));
        QVERIFY(query.exec(QStringLiteral("PRAGMA synchronous")) && query.next());
        QCOMPARE(query.value(0).toInt(), 2);
        QVERIFY(query.exec(QStringLiteral("PRAGMA foreign_keys")) && query.next());
        QCOMPARE(query.value(0).toInt(), 1);
    }
}

void SqliteUsersDatabaseTest::staysInMemoryForAFileItCannotUse_data()
{
    QTest::addColumn<QString>("prepare");
    QTest::newRow("no database") << "text";
    QTest::newRow("a folder of this name") << "folder";
    QTest::newRow("a file where the folder should be") << "file";
    QTest::newRow("another program's") << "foreign";
}

void SqliteUsersDatabaseTest::staysInMemoryForAFileItCannotUse()
{
    QFETCH(QString, prepare);
    QString name = file();
    if (prepare == QLatin1String("text")) {
        write(QByteArray(5000, 'x'));
    } else if (prepare == QLatin1String("folder")) {
        QVERIFY(QDir().mkpath(file()));
    } else if (prepare == QLatin1String("file")) {
        write("x");
        name = file() + QStringLiteral("/users.sqlite");
    } else {
        ask(QStringLiteral("CREATE TABLE stamps (id INTEGER)"));
    }
    const QByteArray before = content();

    SqliteUsersDatabase database(name);
    QVERIFY(database.isInMemory());
    QVERIFY(database.isNew());
    QVERIFY2(database.problem().contains(name), qPrintable(database.problem()));
    QVERIFY(database.addUser(person(1)));
    QCOMPARE(database.count(), 1);
    QCOMPARE(content(), before);
}

void SqliteUsersDatabaseTest::refusesADamagedFile()
{
    {
        SqliteUsersDatabase database(file());
        for (int id = 0; id < 400; ++id)
            QVERIFY(database.addUser(person(id, QString(100, QLatin1Char('a')))));
    }
    QByteArray damaged = content();
    QVERIFY(damaged.size() > 5 * 4096);
    for (int page = 1; page < damaged.size() / 4096; ++page)
        damaged.replace(page * 4096, 600, QByteArray(600, '\x5a'));
    write(damaged);

    const SqliteUsersDatabase database(file());
    QVERIFY(database.isInMemory());
    QVERIFY2(database.problem().contains(QStringLiteral("damaged"))
                 || database.problem().contains(QStringLiteral("malformed")),
             qPrintable(database.problem()));
    QCOMPARE(content(), damaged);
}

void SqliteUsersDatabaseTest::refusesALaterVersion()
{
    QVERIFY(SqliteUsersDatabase(file()).addUser(person(1)));
    ask(QStringLiteral("PRAGMA user_version = 7"));
    const SqliteUsersDatabase database(file());
    QVERIFY(database.isInMemory());
    QVERIFY2(database.problem().contains(QStringLiteral("later version")),
             qPrintable(database.problem()));
    QVERIFY(database.problem().contains(QLatin1Char('7')));
    QCOMPARE(ask(QStringLiteral("SELECT count(*) FROM person")).toInt(), 1);
}

void SqliteUsersDatabaseTest::saysWhenTheFileIsBusy()
{
    SqliteUsersDatabase database(file());
    QVERIFY(database.addUser(person(1)));
    {
        QSqlDatabase other =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("other"));
        other.setDatabaseName(file());
        QVERIFY(other.open());
        QSqlQuery query(other);
        QVERIFY(query.exec(QStringLiteral("BEGIN IMMEDIATE")));

        QSignalSpy changed(&database, &SqliteUsersDatabase::changed);
        QVERIFY(!database.addUser(person(2)));
        QCOMPARE(changed.count(), 0);
        QVERIFY(log().warnings().join(QLatin1Char(' ')).contains(QStringLiteral("locked")));
        log().drop(QStringLiteral("users' database"));
        QCOMPARE(database.count(), 1); // reading goes on
        QVERIFY(query.exec(QStringLiteral("ROLLBACK")));
        QVERIFY(database.addUser(person(2)));
    }
    QSqlDatabase::removeDatabase(QStringLiteral("other"));
}

void SqliteUsersDatabaseTest::twoProgramsShareAFile()
{
    SqliteUsersDatabase one(file());
    SqliteUsersDatabase two(file());
    QVERIFY(!two.isNew());
    QVERIFY(one.addUser(person(1)));
    QVERIFY(!two.addUser(person(1)));
    QVERIFY(two.deleteUser(1, FaceInfo::User));
    UserData user;
    QVERIFY(!one.user(1, user));
}

void SqliteUsersDatabaseTest::keepsWhatItAcknowledgedWhenKilled()
{
    QVector<long long> acknowledged;
    for (int round = 0; round < 6; ++round) {
        const long long first = round * 100000LL;
        QProcess child;
        child.start(QStringLiteral(PANOREL_ADDS_PEOPLE), {file(), QString::number(first)});
        int seen = 0;
        const auto read = [&child, &seen, &acknowledged] {
            while (child.canReadLine()) {
                acknowledged.append(child.readLine().trimmed().toLongLong());
                ++seen;
            }
        };
        while (seen < 20 + 17 * round && child.waitForReadyRead(30000))
            read();
        child.kill();
        QVERIFY(child.waitForFinished());
        QCOMPARE(child.exitStatus(), QProcess::CrashExit); // it was still at work
        read();
        QVERIFY(seen >= 20 + 17 * round);
    }

    QCOMPARE(ask(QStringLiteral("PRAGMA integrity_check")).toString(), QStringLiteral("ok"));
    SqliteUsersDatabase database(file());
    QVERIFY2(database.problem().isEmpty(), qPrintable(database.problem()));
    for (const long long id : qAsConst(acknowledged)) {
        UserData user;
        QVERIFY2(database.user(id, user), qPrintable(QString::number(id)));
        QCOMPARE(user.name(), QStringLiteral("Person %1").arg(id));
        QCOMPARE(user.extraData().toString().size(), 2000);
    }
}

QTEST_GUILESS_MAIN(SqliteUsersDatabaseTest)

#include "tst_sqliteusersdatabase.moc"
