#include "simulator/core/SqliteSchema.h"

#include "tests/support/TestCase.h"

#include <QSqlQuery>

using simulator::SqliteSchema;

/// The way from one version of the tables to the next.
class SqliteSchemaTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void makesAnEmptyFile();
    void takesAnOlderFileFurther();
    void takesAllStepsOrNone();
    void rejectsAStepThatEndsElsewhere();
    void seesAnObstacle_data();
    void seesAnObstacle();

protected:
    void setUp() override
    {
        m_database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connection);
        m_database.setDatabaseName(QStringLiteral(":memory:"));
        QVERIFY(m_database.open());
    }
    void tearDown() override
    {
        m_database = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_connection);
    }

private:
    QVariant ask(const QString &statement) const
    {
        QSqlQuery query(m_database);
        return query.exec(statement) && query.next() ? query.value(0) : QVariant();
    }

    const QString m_connection = QStringLiteral("test");
    const QStringList m_first{QStringLiteral("CREATE TABLE a (x INTEGER)"),
                              QStringLiteral("PRAGMA application_id = 77"),
                              QStringLiteral("PRAGMA user_version = 1")};
    const QStringList m_second{QStringLiteral("ALTER TABLE a ADD COLUMN y INTEGER DEFAULT 5"),
                               QStringLiteral("PRAGMA user_version = 2")};
    const QStringList m_third{QStringLiteral("CREATE TABLE b (x INTEGER)"),
                              QStringLiteral("PRAGMA user_version = 3")};
    QSqlDatabase m_database;
};

void SqliteSchemaTest::makesAnEmptyFile()
{
    const SqliteSchema schema(77, {m_first, m_second});
    QCOMPARE(schema.obstacle(m_database), QString());
    bool isNew = false;
    QCOMPARE(schema.bringUp(m_database, isNew), QString());
    QVERIFY(isNew);
    QCOMPARE(ask(QStringLiteral("PRAGMA user_version")).toInt(), 2);
    QCOMPARE(schema.obstacle(m_database), QString());
    QCOMPARE(schema.bringUp(m_database, isNew), QString());
    QVERIFY(!isNew);
}

void SqliteSchemaTest::takesAnOlderFileFurther()
{
    bool isNew = false;
    QCOMPARE(SqliteSchema(77, {m_first}).bringUp(m_database, isNew), QString());
    ask(QStringLiteral("INSERT INTO a VALUES (3)"));
    const SqliteSchema later(77, {m_first, m_second, m_third});
    QCOMPARE(later.obstacle(m_database), QString());
    QCOMPARE(later.bringUp(m_database, isNew), QString());
    QVERIFY(!isNew);
    QCOMPARE(ask(QStringLiteral("SELECT x + y FROM a")).toInt(), 8);
    QCOMPARE(ask(QStringLiteral("SELECT count(*) FROM b")).toInt(), 0);
    QCOMPARE(ask(QStringLiteral("PRAGMA user_version")).toInt(), 3);
}

void SqliteSchemaTest::takesAllStepsOrNone()
{
    bool isNew = false;
    QCOMPARE(SqliteSchema(77, {m_first}).bringUp(m_database, isNew), QString());
    const QStringList broken{QStringLiteral("CREATE TABLE b (x INTEGER)"),
                             QStringLiteral("CREATE NONSENSE"),
                             QStringLiteral("PRAGMA user_version = 3")};
    const QString error = SqliteSchema(77, {m_first, m_second, broken}).bringUp(m_database, isNew);
    QVERIFY2(error.contains(QStringLiteral("NONSENSE")), qPrintable(error));
    QCOMPARE(ask(QStringLiteral("PRAGMA user_version")).toInt(), 1);
    QVERIFY(!ask(QStringLiteral("SELECT count(y) FROM a")).isValid());
    QVERIFY(!ask(QStringLiteral("SELECT count(*) FROM b")).isValid());
}

void SqliteSchemaTest::rejectsAStepThatEndsElsewhere()
{
    bool isNew = false;
    const QStringList forgetful{QStringLiteral("CREATE TABLE b (x INTEGER)")};
    QVERIFY(!SqliteSchema(77, {m_first, forgetful}).bringUp(m_database, isNew).isEmpty());
    QCOMPARE(ask(QStringLiteral("PRAGMA user_version")).toInt(), 0);
}

void SqliteSchemaTest::seesAnObstacle_data()
{
    QTest::addColumn<QStringList>("statements");
    QTest::addColumn<QString>("says");
    QTest::newRow("tables without a version")
        << QStringList{QStringLiteral("CREATE TABLE stamps (x INTEGER)")}
        << QStringLiteral("another program");
    QTest::newRow("another program's version")
        << QStringList{QStringLiteral("PRAGMA user_version = 1")}
        << QStringLiteral("another program");
    QTest::newRow("another program's mark")
        << QStringList{QStringLiteral("PRAGMA application_id = 78")}
        << QStringLiteral("another program");
    QTest::newRow("a later version") << QStringList{QStringLiteral("PRAGMA application_id = 77"),
                                                    QStringLiteral("PRAGMA user_version = 2")}
                                     << QStringLiteral("later version");
}

void SqliteSchemaTest::seesAnObstacle()
{
    QFETCH(QStringList, statements);
    QFETCH(QString, says);
    for (const QString &statement : qAsConst(statements))
        ask(statement);
    const QString obstacle = SqliteSchema(77, {m_first}).obstacle(m_database);
    QVERIFY2(obstacle.contains(says), qPrintable(obstacle));
}

QTEST_GUILESS_MAIN(SqliteSchemaTest)

#include "tst_sqliteschema.moc"
