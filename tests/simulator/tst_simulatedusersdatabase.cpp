#include "simulator/core/SimulatedUsersDatabase.h"

#include "tests/support/TestCase.h"

using simulator::SimulatedUsersDatabase;

class SimulatedUsersDatabaseTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void findsWhoWasAdded();
    void leavesTheRecordAloneWhenUnknown();
    void refusesAnIdThatIsTaken();
    void deletesByIdAndType();

private:
    static UserData person(long long id, const QString &name)
    {
        FaceInfo face;
        face.setId(id);
        face.setType(FaceInfo::User);
        UserData user;
        user.setInfo(face);
        user.setName(name);
        return user;
    }
};

void SimulatedUsersDatabaseTest::findsWhoWasAdded()
{
    SimulatedUsersDatabase database;
    const long long id = 5000000000;
    QVERIFY(database.addUser(person(id, QStringLiteral("Anna"))));
    UserData user;
    QVERIFY(database.user(id, user));
    QCOMPARE(user.name(), QStringLiteral("Anna"));
    QCOMPARE(user.info().id(), id);
}

void SimulatedUsersDatabaseTest::leavesTheRecordAloneWhenUnknown()
{
    SimulatedUsersDatabase database;
    UserData user = person(1, QStringLiteral("before"));
    QVERIFY(!database.user(2, user));
    QCOMPARE(user.name(), QStringLiteral("before"));
}

void SimulatedUsersDatabaseTest::refusesAnIdThatIsTaken()
{
    SimulatedUsersDatabase database;
    QSignalSpy changed(&database, &SimulatedUsersDatabase::changed);
    QVERIFY(database.addUser(person(1, QStringLiteral("Anna"))));
    QVERIFY(!database.addUser(person(1, QStringLiteral("Ben"))));
    UserData user;
    QVERIFY(database.user(1, user));
    QCOMPARE(user.name(), QStringLiteral("Anna"));
    QCOMPARE(changed.count(), 1);
}

void SimulatedUsersDatabaseTest::deletesByIdAndType()
{
    SimulatedUsersDatabase database;
    QVERIFY(database.addUser(person(1, QStringLiteral("Anna"))));
    QVERIFY(!database.deleteUser(2, FaceInfo::User));
    QVERIFY(!database.deleteUser(1, FaceInfo::Temporary));
    QVERIFY(database.deleteUser(1, FaceInfo::User));
    QVERIFY(!database.deleteUser(1, FaceInfo::User));
    QCOMPARE(database.count(), 0);
}

QTEST_GUILESS_MAIN(SimulatedUsersDatabaseTest)

#include "tst_simulatedusersdatabase.moc"
