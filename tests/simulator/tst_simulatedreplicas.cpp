#include "simulator/core/SimulatedReplicas.h"

#include "host/DatabaseDefaults.h"
#include "host/IUsersDatabase.h"
#include "simulator/core/SimulatedLanguage.h"
#include "simulator/core/SimulatedMacrosReplacer.h"
#include "tests/simulator/TestScenario.h"
#include "tests/support/TestCase.h"

using namespace simulator;

namespace {

/// Knows one person, Anna, with the id 1.
class Users : public IUsersDatabase
{
public:
    bool user(const long long &id, UserData &user) override
    {
        if (id != 1)
            return false;
        user.setName(QStringLiteral("Anna"));
        return true;
    }
    bool addUser(const UserData &) override { return false; }
    bool deleteUser(const long long &, const FaceInfo::Type &) override { return false; }
};

FaceInfo face(long long id, FaceInfo::Type type = FaceInfo::User)
{
    FaceInfo face;
    face.setId(id);
    face.setType(type);
    return face;
}

} // namespace

class SimulatedReplicasTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void hasNoWordsToBeginWith();
    void choosesByType();
    void choosesByStep();
    void findsTheCategory_data();
    void findsTheCategory();
    void fallsBackOnlyWhenAllowed();
    void eachLineHasItsTurn();
    void speaksTheRobotsLanguage();
    void prefersLinesForKnownPeople_data();
    void prefersLinesForKnownPeople();
    void fillsInTheName_data();
    void fillsInTheName();
    void callsThePersonThereByName();
    void whatThePageLendsGoesFirst();
    void aScenarioReplacesTheOther();

protected:
    void setUp() override
    {
        m_language.reset(new SimulatedLanguage);
        m_replacer = QSharedPointer<SimulatedMacrosReplacer>::create();
        m_replicas.reset(
            new SimulatedReplicas(m_language.data(), m_replacer, QSharedPointer<Users>::create()));
    }
    void tearDown() override
    {
        m_replicas.reset();
        m_replacer.reset();
        m_language.reset();
    }

private:
    QString ofType(Replica::Type type, const QVariant &category, bool useGeneral = true,
                   bool useBiometry = true, const FaceInfo &person = FaceInfo())
    {
        const auto replica = m_replicas->ofType(type, category, useGeneral, useBiometry, person);
        return replica ? replica->text() : QString();
    }
    QString greeting(bool useBiometry = true, const FaceInfo &person = FaceInfo())
    {
        return ofType(Replica::Greeting, m_general, true, useBiometry, person);
    }
    static void setText(DialogScenario::Line *line, const char *text)
    {
        line->texts[QStringLiteral("en")] = {QLatin1String(text), QLatin1String(text), QString()};
    }

    const QVariant m_general = QVariant::fromValue(DatabaseDefaults::defaultCategory());
    QScopedPointer<SimulatedLanguage> m_language;
    QSharedPointer<SimulatedMacrosReplacer> m_replacer;
    QScopedPointer<SimulatedReplicas> m_replicas;
};

void SimulatedReplicasTest::hasNoWordsToBeginWith()
{
    QVERIFY(greeting().isEmpty());
    QVERIFY(m_replicas->named(QStringLiteral("any")).text().isEmpty());
    QVERIFY(m_replicas->nextOf({QStringLiteral("any")}).isEmpty());
}

void SimulatedReplicasTest::choosesByType()
{
    TestScenario scenario;
    scenario.addLine(QStringLiteral("step"), Replica::Greeting).step = QStringLiteral("welcome");
    scenario.addLine(QStringLiteral("plain"));
    scenario.addLine(QStringLiteral("greeting"), Replica::Greeting);
    m_replicas->setScenario(scenario);
    for (int i = 0; i < 2; ++i)
        QCOMPARE(greeting(), QStringLiteral("greeting en"));
    QCOMPARE(ofType(Replica::Plain, m_general), QStringLiteral("plain en"));
    QVERIFY(ofType(Replica::Extra, m_general).isEmpty());
}

void SimulatedReplicasTest::choosesByStep()
{
    TestScenario scenario;
    scenario.addLine(QStringLiteral("plain"));
    scenario.addLine(QStringLiteral("help")).step = QStringLiteral("help");
    m_replicas->setScenario(scenario);
    const auto ofStep = [this](const char *step) {
        return m_replicas->ofStep(QLatin1String(step), m_general, true, true, FaceInfo());
    };
    QVERIFY(ofStep("help"));
    QCOMPARE(ofStep("help")->text(), QStringLiteral("help en"));
    QVERIFY(!ofStep("fly"));
    QVERIFY(!ofStep(""));
}

void SimulatedReplicasTest::findsTheCategory_data()
{
    const QUuid uuid(QStringLiteral("{6f0c2a8e-51f3-4f0e-9d0b-0a4d53a6a102}"));
    QTest::addColumn<QVariant>("category");
    QTest::addColumn<bool>("found");
    QTest::newRow("ID") << QVariant::fromValue(ID(9, uuid)) << true;
    QTest::newRow("number alone") << QVariant::fromValue(ID(9, QUuid())) << true;
    QTest::newRow("name") << QVariant(QStringLiteral("harbour")) << true;
    QTest::newRow("other number") << QVariant::fromValue(ID(8, uuid)) << false;
    QTest::newRow("other UUID") << QVariant::fromValue(ID(9, QUuid::createUuid())) << false;
    QTest::newRow("other name") << QVariant(QStringLiteral("port")) << false;
    QTest::newRow("empty name") << QVariant(QString()) << false;
    QTest::newRow("null ID") << QVariant::fromValue(ID()) << false;
    QTest::newRow("nothing") << QVariant() << false;
}

void SimulatedReplicasTest::findsTheCategory()
{
    QFETCH(QVariant, category);
    QFETCH(bool, found);
    TestScenario scenario;
    scenario.addLine(QStringLiteral("general"), Replica::Greeting);
    DialogScenario::Line &line = scenario.addLine(QStringLiteral("ahoy"), Replica::Greeting);
    line.category = ID(9, QUuid(QStringLiteral("{6f0c2a8e-51f3-4f0e-9d0b-0a4d53a6a102}")));
    line.categoryName = QStringLiteral("harbour");
    m_replicas->setScenario(scenario);
    QCOMPARE(ofType(Replica::Greeting, category, false),
             found ? QStringLiteral("ahoy en") : QString());
}

void SimulatedReplicasTest::fallsBackOnlyWhenAllowed()
{
    TestScenario scenario;
    scenario.addLine(QStringLiteral("general"), Replica::Greeting);
    m_replicas->setScenario(scenario);
    const QVariant nowhere = QStringLiteral("nowhere");
    QVERIFY(ofType(Replica::Greeting, nowhere, false).isEmpty());
    QCOMPARE(ofType(Replica::Greeting, nowhere, true), QStringLiteral("general en"));
}

void SimulatedReplicasTest::eachLineHasItsTurn()
{
    TestScenario scenario;
    scenario.addLine(QStringLiteral("a"), Replica::Greeting);
    scenario.addLine(QStringLiteral("b"), Replica::Greeting);
    m_replicas->setScenario(scenario);
    for (const char *text : {"a en", "b en", "a en"})
        QCOMPARE(greeting(), QLatin1String(text));
    const QStringList names{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("none")};
    QCOMPARE(m_replicas->nextOf(names), QStringLiteral("b"));
    QCOMPARE(m_replicas->nextOf(names), QStringLiteral("a"));
}

void SimulatedReplicasTest::speaksTheRobotsLanguage()
{
    TestScenario scenario;
    scenario.addLine(QStringLiteral("a"), Replica::Greeting);
    scenario.macros[QStringLiteral("m")] = {{QStringLiteral("en"), QStringLiteral("yes")},
                                            {QStringLiteral("de"), QStringLiteral("ja")}};
    m_replicas->setScenario(scenario);
    QSignalSpy changed(m_replicas.data(), &SimulatedReplicas::wordsChanged);
    QCOMPARE(m_replicas->filled(QStringLiteral("%m%")), QStringLiteral("yes"));
    m_language->setCode(QStringLiteral("de"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(greeting(), QStringLiteral("a de"));
    QCOMPARE(m_replicas->filled(QStringLiteral("%m%")), QStringLiteral("ja"));
    m_language->setCode(QStringLiteral("fr"));
    QCOMPARE(m_replicas->language(), QStringLiteral("en"));
    QCOMPARE(m_replicas->named(QStringLiteral("a")).text(), QStringLiteral("a en"));
}

void SimulatedReplicasTest::prefersLinesForKnownPeople_data()
{
    QTest::addColumn<bool>("useBiometry");
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("known");
    QTest::newRow("known") << true << 1 << int(FaceInfo::User) << true;
    QTest::newRow("known, of no type") << true << 1 << int(FaceInfo::Unknown) << true;
    QTest::newRow("a temporary face") << true << 1 << int(FaceInfo::Temporary) << false;
    QTest::newRow("stranger") << true << 2 << int(FaceInfo::User) << false;
    QTest::newRow("no face") << true << 0 << int(FaceInfo::Unknown) << false;
    QTest::newRow("no biometry") << false << 1 << int(FaceInfo::User) << false;
}

void SimulatedReplicasTest::prefersLinesForKnownPeople()
{
    QFETCH(bool, useBiometry);
    QFETCH(int, id);
    QFETCH(int, type);
    QFETCH(bool, known);
    TestScenario scenario;
    scenario.addLine(QStringLiteral("anybody"), Replica::Greeting);
    scenario.addLine(QStringLiteral("known"), Replica::Greeting).forKnownPerson = true;
    m_replicas->setScenario(scenario);
    const FaceInfo person = face(id, static_cast<FaceInfo::Type>(type));
    for (int i = 0; i < 2; ++i)
        QCOMPARE(greeting(useBiometry, person),
                 known ? QStringLiteral("known en") : QStringLiteral("anybody en"));
}

void SimulatedReplicasTest::fillsInTheName_data()
{
    QTest::addColumn<bool>("useBiometry");
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("text");
    QTest::newRow("known face") << true << 1 << QStringLiteral("Hello Anna");
    QTest::newRow("the person there") << true << 5 << QStringLiteral("Hello Ben");
    QTest::newRow("no face") << true << 0 << QStringLiteral("Hello Ben");
    QTest::newRow("no biometry") << false << 1 << QStringLiteral("Hello guest");
}

void SimulatedReplicasTest::fillsInTheName()
{
    QFETCH(bool, useBiometry);
    QFETCH(int, id);
    QFETCH(QString, text);
    TestScenario scenario;
    setText(&scenario.addLine(QStringLiteral("a"), Replica::Greeting), "Hello %name%");
    scenario.macros[QStringLiteral("name")] = {{QStringLiteral("en"), QStringLiteral("guest")},
                                               {QStringLiteral("de"), QStringLiteral("Gast")}};
    m_replicas->setScenario(scenario);
    UserData ben;
    ben.setInfo(face(5));
    ben.setName(QStringLiteral("Ben"));
    m_replicas->setPerson(ben);
    const auto replica =
        m_replicas->ofType(Replica::Greeting, m_general, true, useBiometry, face(id));
    QCOMPARE(replica->text(), text);
    QCOMPARE(replica->screenText(), text);
}

void SimulatedReplicasTest::callsThePersonThereByName()
{
    UserData ben;
    ben.setName(QStringLiteral("Ben"));
    m_replicas->setPerson(ben);
    QCOMPARE(m_replicas->filled(QStringLiteral("%name%")), QStringLiteral("Ben"));
    m_replicas->clearPerson();
    QCOMPARE(m_replicas->filled(QStringLiteral("%name%")), QStringLiteral("%name%"));
}

void SimulatedReplicasTest::whatThePageLendsGoesFirst()
{
    TestScenario scenario;
    setText(&scenario.addLine(QStringLiteral("a"), Replica::Greeting), "Hello %name%");
    m_replicas->setScenario(scenario);
    m_replacer->setMacros(QStringLiteral("name"), QStringLiteral("Clara"));
    QCOMPARE(greeting(true, face(1)), QStringLiteral("Hello Clara"));
}

void SimulatedReplicasTest::aScenarioReplacesTheOther()
{
    TestScenario first;
    first.addLine(QStringLiteral("a"), Replica::Greeting);
    first.macros[QStringLiteral("m")] = {{QStringLiteral("en"), QStringLiteral("yes")}};
    m_replicas->setScenario(first);
    TestScenario second;
    second.addLine(QStringLiteral("b"), Replica::Greeting);
    m_replicas->setScenario(second);
    QCOMPARE(greeting(), QStringLiteral("b en"));
    QCOMPARE(m_replicas->filled(QStringLiteral("%m%")), QStringLiteral("%m%"));
}

QTEST_GUILESS_MAIN(SimulatedReplicasTest)

#include "tst_simulatedreplicas.moc"
