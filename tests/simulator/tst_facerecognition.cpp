#include "simulator/core/FaceRecognition.h"

#include "simulator/core/CameraScene.h"
#include "simulator/core/SimulatedFaces.h"
#include "simulator/core/SqliteUsersDatabase.h"
#include "tests/simulator/TestPeople.h"
#include "tests/support/TestCase.h"

using namespace simulator;

class FaceRecognitionTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void knowsPeopleOfTheDatabase();
    void knowsLearnedFaces();
    void doesWithoutADatabase();
    void comparesWithSomeOfThem();
    void scoresAreLikely();
    void describesAStranger();
    void sameMomentSameFace();

protected:
    void setUp() override
    {
        m_faces = std::make_unique<SimulatedFaces>(m_pace);
        m_faces->setStepTime(0);
        m_users = QSharedPointer<SqliteUsersDatabase>::create();
        add(1, QStringLiteral("Anna"));
    }
    void tearDown() override
    {
        m_users.reset();
        m_faces.reset();
    }

private:
    void add(long long id, const QString &name) { QVERIFY(m_users->addUser(testPerson(id, name))); }
    void learn(long long id)
    {
        m_faces->addFace(id);
        QTRY_VERIFY(m_faces->known().contains(id));
    }

    Pace m_pace;
    std::unique_ptr<SimulatedFaces> m_faces;
    QSharedPointer<SqliteUsersDatabase> m_users;
};

void FaceRecognitionTest::knowsPeopleOfTheDatabase()
{
    const FaceRecognition recognition(m_faces.get(), m_users);
    const FaceRecognition::Identity anna = recognition.identify(1);
    QVERIFY(anna.isKnown());
    QCOMPARE(anna.type, FaceInfo::User);
    QCOMPARE(anna.id, 1LL);
    QCOMPARE(anna.user.name(), QStringLiteral("Anna"));
    QVERIFY(!recognition.identify(2).isKnown());
    QCOMPARE(recognition.identify(2).id, 0LL);
}

void FaceRecognitionTest::knowsLearnedFaces()
{
    const FaceRecognition recognition(m_faces.get(), m_users);
    learn(2);
    QCOMPARE(recognition.identify(2).type, FaceInfo::Temporary);
    QCOMPARE(recognition.identify(2).id, 2LL);
    QCOMPARE(recognition.identify(2).user.info().id(), 2LL);
    // Who is in the database, too, is a person of the database.
    learn(1);
    QCOMPARE(recognition.identify(1).type, FaceInfo::User);
    m_faces->deleteFace(2);
    QVERIFY(!recognition.identify(2).isKnown());
}

void FaceRecognitionTest::doesWithoutADatabase()
{
    const FaceRecognition recognition(m_faces.get(), {});
    learn(2);
    QVERIFY(recognition.identify(2).isKnown());
    QVERIFY(!recognition.identify(1).isKnown());
    QCOMPARE(recognition.candidates().size(), 1);
}

void FaceRecognitionTest::comparesWithSomeOfThem()
{
    const FaceRecognition recognition(m_faces.get(), m_users);
    QCOMPARE(recognition.candidates().size(), 1);
    learn(1); // the same person
    learn(20);
    QCOMPARE(recognition.candidates().size(), 2);
    for (long long id = 2; id < 9; ++id)
        add(id, QString());
    QCOMPARE(recognition.candidates().size(), 3);
}

void FaceRecognitionTest::scoresAreLikely()
{
    const FaceRecognition recognition(m_faces.get(), m_users);
    add(2, QString());
    add(3, QString());
    for (int track = 1; track < 200; ++track) {
        CameraPerson person;
        person.track = track;
        for (const long long id : {1, 99}) {
            const FaceRecognition::Identity identity = recognition.identify(id);
            const auto matches =
                FaceRecognition::describe(person, identity, recognition.candidates(), track * 0.7)
                    .matches();
            QCOMPARE(matches.size(), 3); // each person once
            for (int i = 0; i < matches.size(); ++i) {
                const double score = matches.at(i).score;
                QVERIFY(score > 0 && score < 1);
                QVERIFY(i == 0 || score <= matches.at(i - 1).score);
                QCOMPARE(matches.at(i).type, static_cast<int>(FaceInfo::User));
                const bool isSelf = matches.at(i).id == identity.id;
                QVERIFY(isSelf ? score > 0.8 : score < 0.5);
            }
        }
    }
}

void FaceRecognitionTest::describesAStranger()
{
    CameraPerson person;
    person.track = 12;
    person.id = 99;
    person.age = 40;
    person.gender = GenderMale;
    person.emotion = QStringLiteral("happy");
    const FaceRecognition recognition(m_faces.get(), {});
    const FaceInfo face =
        FaceRecognition::describe(person, recognition.identify(99), recognition.candidates(), 3);
    QCOMPARE(face.id(), 0LL);
    QCOMPARE(face.type(), FaceInfo::Unknown);
    QCOMPARE(face.idTrack(), 12);
    QCOMPARE(face.gender(), GenderMale);
    QCOMPARE(face.emotion(), QStringLiteral("happy"));
    QVERIFY(face.matches().isEmpty());
    QVERIFY(qAbs(face.age() - 40) < 3);
}

void FaceRecognitionTest::sameMomentSameFace()
{
    CameraPerson person;
    person.track = 3;
    const FaceRecognition recognition(m_faces.get(), m_users);
    const auto score = [&](double time) {
        return FaceRecognition::describe(person, recognition.identify(1), {}, time)
            .matches()
            .constFirst()
            .score;
    };
    QCOMPARE(score(1), score(1));
    QVERIFY(score(1) != score(2));
}

QTEST_GUILESS_MAIN(FaceRecognitionTest)

#include "tst_facerecognition.moc"
