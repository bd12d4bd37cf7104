#include "simulator/core/SimulatedReplicas.h"

#include "host/DatabaseDefaults.h"
#include "host/FaceInfo.h"
#include "tests/support/TestCase.h"

using simulator::SimulatedReplicas;

class SimulatedReplicasTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void hasOneForEachType_data();
    void hasOneForEachType();
    void findsTheReplicaOfAStep();
    void knowsNoOtherStep();
    void prefersTheCategory();
    void fallsBackOnlyWhenAllowed();

protected:
    void setUp() override
    {
        m_replicas.reset(new SimulatedReplicas);
        Replica replica;
        replica.setType(Replica::Greeting);
        replica.setText(QStringLiteral("Ahoy"));
        replica.setCategory(m_harbour);
        m_replicas->add(replica, QString(), QStringLiteral("harbour"));
    }
    void tearDown() override { m_replicas.reset(); }

private:
    const ID m_harbour = ID(9, QUuid::createUuid());
    const QVariant m_default = QVariant::fromValue(DatabaseDefaults::defaultCategory());
    QScopedPointer<SimulatedReplicas> m_replicas;
};

void SimulatedReplicasTest::hasOneForEachType_data()
{
    QTest::addColumn<int>("type");
    for (int type = Replica::Plain; type <= Replica::Clarification; ++type)
        QTest::newRow(qPrintable(QString::number(type))) << type;
}

void SimulatedReplicasTest::hasOneForEachType()
{
    QFETCH(int, type);
    const auto wanted = static_cast<Replica::Type>(type);
    const auto replica = m_replicas->ofType(wanted, m_default, false, false, FaceInfo());
    QVERIFY(replica);
    QCOMPARE(replica->type(), wanted);
    QVERIFY(!replica->text().isEmpty());
}

void SimulatedReplicasTest::findsTheReplicaOfAStep()
{
    const auto replica =
        m_replicas->ofStep(QStringLiteral("help"), m_default, false, false, FaceInfo());
    QVERIFY(replica);
    QVERIFY(!replica->id().uuid().isNull());
}

void SimulatedReplicasTest::knowsNoOtherStep()
{
    QVERIFY(!m_replicas->ofStep(QStringLiteral("fly"), m_default, true, true, FaceInfo()));
    QVERIFY(!m_replicas->ofStep(QString(), m_default, true, true, FaceInfo()));
}

void SimulatedReplicasTest::prefersTheCategory()
{
    const QVariant byId = QVariant::fromValue(m_harbour);
    const QVariant byName = QStringLiteral("harbour");
    for (const QVariant &category : {byId, byName}) {
        const auto replica =
            m_replicas->ofType(Replica::Greeting, category, true, true, FaceInfo());
        QVERIFY(replica);
        QCOMPARE(replica->text(), QStringLiteral("Ahoy"));
    }
}

void SimulatedReplicasTest::fallsBackOnlyWhenAllowed()
{
    const QVariant category = QStringLiteral("nowhere");
    QVERIFY(!m_replicas->ofType(Replica::Greeting, category, false, true, FaceInfo()));
    const auto replica = m_replicas->ofType(Replica::Greeting, category, true, true, FaceInfo());
    QVERIFY(replica);
    QCOMPARE(replica->category(), DatabaseDefaults::defaultCategory());
}

QTEST_GUILESS_MAIN(SimulatedReplicasTest)

#include "tst_simulatedreplicas.moc"
