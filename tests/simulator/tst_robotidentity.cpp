#include "simulator/core/RobotIdentity.h"

#include "host/RobotInfo.h"
#include "simulator/core/RobotCore.h"
#include "tests/support/TestCase.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using simulator::RobotCore;
using simulator::RobotIdentity;

class RobotIdentityTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void isMadeAtTheFirstStart();
    void staysTheSame();
    void readsWhatAPersonWrote();
    void saysWhatIsWrong_data();
    void saysWhatIsWrong();
    void saysWhenItCannotBeMade();
    void belongsToTheRobotsData();

protected:
    void setUp() override
    {
        m_folder.reset(new QTemporaryDir);
        m_before = RobotIdentity::instance();
    }
    void tearDown() override
    {
        RobotIdentity::instance() = m_before;
        m_folder.reset();
    }

private:
    QString file() const { return m_folder->filePath(QStringLiteral("data/identity.ini")); }
    void write(const QByteArray &text) const
    {
        QVERIFY(QDir().mkpath(m_folder->filePath(QStringLiteral("data"))));
        QFile ini(file());
        QVERIFY(ini.open(QIODevice::WriteOnly));
        ini.write(text);
    }

    RobotIdentity m_before;
    QScopedPointer<QTemporaryDir> m_folder;
};

void RobotIdentityTest::isMadeAtTheFirstStart()
{
    RobotIdentity identity;
    const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
    QCOMPARE(identity.load(file()), QString());
    QVERIFY(identity.robot != m_before.robot);
    QVERIFY(identity.owner != m_before.owner);
    QVERIFY(identity.robot != identity.owner);
    QCOMPARE(identity.name, m_before.name);
    QVERIFY(identity.dateOfCreation >= before);
    QVERIFY(QFile::exists(file()));
}

void RobotIdentityTest::staysTheSame()
{
    RobotIdentity first;
    QCOMPARE(first.load(file()), QString());
    RobotIdentity second;
    QCOMPARE(second.load(file()), QString());
    QCOMPARE(second.robot, first.robot);
    QCOMPARE(second.owner, first.owner);
    QCOMPARE(second.name, first.name);
    QCOMPARE(second.dateOfCreation, first.dateOfCreation);
}

void RobotIdentityTest::readsWhatAPersonWrote()
{
    write("[owner]\nuuid=9f1c2a34-5d6e-4f70-8a9b-0c1d2e3f4a5b\n; who we are\n[robot]\n"
          "created=2024-02-29T08:00:00\nname=\"Röbi, 机器人\"\n"
          "uuid={1b9d6bcd-bbfd-4b2d-9b5d-ab8dfbbd4bed}\n");
    RobotIdentity identity;
    QCOMPARE(identity.load(file()), QString());
    QCOMPARE(identity.robot.toString(), QStringLiteral("{1b9d6bcd-bbfd-4b2d-9b5d-ab8dfbbd4bed}"));
    QCOMPARE(identity.owner.toString(), QStringLiteral("{9f1c2a34-5d6e-4f70-8a9b-0c1d2e3f4a5b}"));
    QCOMPARE(identity.name, QString::fromUtf8("Röbi, 机器人"));
    QCOMPARE(identity.dateOfCreation, QDateTime(QDate(2024, 2, 29), QTime(8, 0)));
}

void RobotIdentityTest::saysWhatIsWrong_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("says");
    QTest::addColumn<bool>("readsName");
    const QByteArray good = "[robot]\nuuid={1b9d6bcd-bbfd-4b2d-9b5d-ab8dfbbd4bed}\nname=R\n"
                            "created=2024-02-29T08:00:00\n";
    QTest::newRow("no owner") << good << QStringLiteral("lacks owner/uuid,") << true;
    QTest::newRow("no UUID") << good + "[owner]\nuuid=me\n" << QStringLiteral("owner/uuid") << true;
    QTest::newRow("no date") << QByteArray("[robot]\nname=R\ncreated=yesterday\n")
                             << QStringLiteral("robot/created") << true;
    QTest::newRow("empty") << QByteArray() << QStringLiteral("robot/name") << false;
    QTest::newRow("garbage") << QByteArray(1000, '\xff') << QStringLiteral("cannot be read")
                             << false;
}

void RobotIdentityTest::saysWhatIsWrong()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, says);
    QFETCH(bool, readsName);
    write(text);
    RobotIdentity identity;
    const QString problem = identity.load(file());
    QVERIFY2(problem.contains(says), qPrintable(problem));
    QVERIFY(problem.contains(QStringLiteral("identity.ini")));
    QVERIFY(problem.contains(QStringLiteral("delete")));
    QCOMPARE(identity.owner, m_before.owner);
    QCOMPARE(identity.name, readsName ? QStringLiteral("R") : m_before.name);

    QFile ini(file());
    QVERIFY(ini.open(QIODevice::ReadOnly));
    QCOMPARE(ini.readAll(), text);
}

void RobotIdentityTest::saysWhenItCannotBeMade()
{
    write("not a folder");
    RobotIdentity identity;
    const QString problem = identity.load(file() + QStringLiteral("/identity.ini"));
    QVERIFY2(problem.contains(QStringLiteral("cannot be made")), qPrintable(problem));
    QCOMPARE(identity.robot, m_before.robot);
}

void RobotIdentityTest::belongsToTheRobotsData()
{
    RobotCore::Equipment equipment;
    {
        const RobotCore inMemory(equipment);
        QCOMPARE(RobotInfo::uuidRobot(), m_before.robot);
        QVERIFY(inMemory.problems().isEmpty());
    }
    equipment.dataFolder = m_folder->filePath(QStringLiteral("data"));
    const RobotCore core(equipment);
    QVERIFY2(core.problems().isEmpty(), qPrintable(core.problems().join(QLatin1Char('\n'))));
    QVERIFY(RobotInfo::uuidRobot() != m_before.robot);
    QVERIFY(QFile::exists(file()));

    write("[robot]\n");
    const RobotCore damaged(equipment);
    QCOMPARE(damaged.problems().size(), 1);
    QVERIFY(damaged.problems().constFirst().contains(QStringLiteral("robot/uuid")));
}

QTEST_GUILESS_MAIN(RobotIdentityTest)
#include "tst_robotidentity.moc"
