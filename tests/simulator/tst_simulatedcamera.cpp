#include "simulator/core/SimulatedCamera.h"

#include "simulator/core/SimulatedFaces.h"
#include "simulator/core/SqliteUsersDatabase.h"
#include "tests/simulator/TestPeople.h"
#include "tests/support/TestCase.h"

#include <QElapsedTimer>

#include <memory>

using namespace simulator;

class SimulatedCameraTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void reportsRectanglesAndFaces();
    void reportsByItself();
    void reportsTwentyFiveTimesASecond();
    void keepsToItsRate();
    void reportsNobodyOnce();
    void switchesOff();
    void sameSeedSameReports();
    void tellsOfKnownPeople();
    void tellsNobodyOfStrangers();
    void recognisesWhoIsAddedMeanwhile();
    void forgetsWhoIsDeleted();
    void strangerBecomesTheLearnedFace();
    void learnedFaceGoesToItsOwner();
    void largestFaceCountsMost();
    void tracksTheFaceAskedFor();
    void tracksNobodyUnlessTold();
    void survivesAListenerThatActs();
    void twentyFiveReportsASecondAreCheap();

protected:
    void setUp() override
    {
        m_faces = std::make_unique<SimulatedFaces>(m_pace);
        m_faces->setStepTime(0);
        m_users = QSharedPointer<SqliteUsersDatabase>::create();
        add(1, QStringLiteral("Anna"));
        m_camera = make();
        m_reports = 0;
        m_events.clear();
        connect(m_camera.get(), &SimulatedCamera::reported, this,
                [this](const QVector<FaceRectPtr> &rects, const QVector<FaceInfoPtr> &faces) {
                    ++m_reports;
                    m_rects = rects;
                    m_infos = faces;
                });
        const auto note = [this](const QString &event) { m_events.append(event); };
        connect(m_camera.get(), &SimulatedCamera::userSeen, this,
                [note](const UserData &user) { note(QStringLiteral("seen ") + user.name()); });
        connect(m_camera.get(), &SimulatedCamera::userLost, this,
                [note] { note(QStringLiteral("lost")); });
        connect(m_camera.get(), &SimulatedCamera::entered, this,
                [note](const long long &track) { note(QStringLiteral("enters %1").arg(track)); });
        connect(m_camera.get(), &SimulatedCamera::left, this,
                [note](const long long &track) { note(QStringLiteral("leaves %1").arg(track)); });
        connect(m_camera.get(), &SimulatedCamera::mainFaceChanged, this,
                [note](const long long &track) { note(QStringLiteral("main %1").arg(track)); });
    }
    void tearDown() override
    {
        m_camera.reset();
        m_users.reset();
        m_faces.reset();
        m_rects.clear();
        m_infos.clear();
    }

private:
    std::unique_ptr<SimulatedCamera> make() const
    {
        return std::make_unique<SimulatedCamera>(m_faces.get(), m_users, m_pace, 11);
    }
    void add(long long id, const QString &name) { QVERIFY(m_users->addUser(testPerson(id, name))); }
    void learn(long long id)
    {
        m_faces->addFace(id);
        QTRY_VERIFY(m_faces->known().contains(id));
    }
    void steps(int count)
    {
        for (int i = 0; i < count; ++i)
            m_camera->step();
    }
    FaceInfo face(long long track) const
    {
        for (const FaceInfoPtr &info : m_infos) {
            if (info->idTrack() == track)
                return *info;
        }
        return {};
    }

    const Pace m_pace;
    std::unique_ptr<SimulatedFaces> m_faces;
    QSharedPointer<SqliteUsersDatabase> m_users;
    std::unique_ptr<SimulatedCamera> m_camera;
    QVector<FaceRectPtr> m_rects;
    QVector<FaceInfoPtr> m_infos;
    QStringList m_events;
    int m_reports = 0;
};

void SimulatedCameraTest::reportsRectanglesAndFaces()
{
    m_camera->setPictureSize({800, 600});
    const long long anna = m_camera->enter(1);
    const long long stranger = m_camera->enter();
    steps(50);
    QCOMPARE(m_reports, 50);
    QCOMPARE(m_rects.size(), 2);
    QCOMPARE(m_infos.size(), 2);
    const QRectF picture(0, 0, 800, 600);
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(m_rects.at(i)->idTrack(), static_cast<long long>(m_infos.at(i)->idTrack()));
        QVERIFY(picture.contains(m_rects.at(i)->rect()));
        QVERIFY(m_rects.at(i)->rect().height() > 60);
    }
    QCOMPARE(face(anna).id(), 1LL);
    QCOMPARE(face(anna).type(), FaceInfo::User);
    QCOMPARE(face(anna).matches().constFirst().id, 1LL);
    QCOMPARE(face(stranger).id(), 0LL);
    QCOMPARE(face(stranger).type(), FaceInfo::Unknown);
    QVERIFY(!face(stranger).emotion().isEmpty());

    // Each report is a record of its own: a listener may keep it.
    const FaceInfoPtr kept = m_infos.constFirst();
    m_camera->step();
    QVERIFY(kept != m_infos.constFirst());
}

void SimulatedCameraTest::reportsByItself()
{
    m_camera->setRate(100);
    turnEventLoop();
    QCOMPARE(m_reports, 0);
    m_camera->enter();
    QTRY_VERIFY(m_reports >= 3);
}

void SimulatedCameraTest::reportsTwentyFiveTimesASecond()
{
    m_camera->enter();
    qint64 elapsed = 0;
    // Never faster; a busy machine gets a second and a third chance not to be slower.
    for (int attempt = 0; attempt < 3; ++attempt) {
        const int before = m_reports;
        QElapsedTimer clock;
        clock.start();
        QTRY_VERIFY(m_reports >= before + 10);
        elapsed = clock.elapsed();
        QVERIFY2(elapsed >= 320, qPrintable(QString::number(elapsed)));
        if (elapsed < 700)
            break;
    }
    QVERIFY2(elapsed < 700, qPrintable(QString::number(elapsed)));
}

void SimulatedCameraTest::keepsToItsRate()
{
    m_camera->setRate(50);
    m_camera->enter();
    QElapsedTimer clock;
    clock.start();
    QTRY_VERIFY(m_reports >= 10);
    // Never faster; slower where the machine is busy.
    QVERIFY2(clock.elapsed() >= 180, qPrintable(QString::number(clock.elapsed())));
}

void SimulatedCameraTest::reportsNobodyOnce()
{
    m_camera->setRate(100);
    const long long track = m_camera->enter();
    m_camera->step();
    m_camera->leave(track);
    for (int i = 0; i < 5000 && !m_infos.isEmpty(); ++i)
        m_camera->step();
    QVERIFY(m_rects.isEmpty());
    QVERIFY(m_infos.isEmpty());
    const int reports = m_reports;
    steps(3);
    QCOMPARE(m_reports, reports);
    QCOMPARE(m_events.constLast(), QStringLiteral("main 0"));
    QVERIFY(m_events.contains(QStringLiteral("leaves 1")));
    // The timer stopped, too: another camera reports meanwhile, this one does not.
    const auto other = make();
    other->setRate(100);
    int others = 0;
    connect(other.get(), &SimulatedCamera::reported, this, [&others] { ++others; });
    other->enter();
    QTRY_VERIFY(others >= 3);
    QCOMPARE(m_reports, reports);
}

void SimulatedCameraTest::switchesOff()
{
    m_camera->setRate(100);
    m_camera->enter(1);
    m_camera->step();
    m_camera->setOn(false);
    QCOMPARE(m_reports, 2);
    QVERIFY(m_infos.isEmpty());
    QVERIFY(m_camera->people().isEmpty());
    QVERIFY(m_events.contains(QStringLiteral("lost")));
    m_camera->step();
    m_camera->enter(); // unseen
    QCOMPARE(m_reports, 2);
    m_events.clear();
    m_camera->setOn(true);
    QCOMPARE(m_infos.size(), 2);
    QVERIFY(m_events.contains(QStringLiteral("seen Anna")));
    QTRY_VERIFY(m_reports > 4);
}

void SimulatedCameraTest::sameSeedSameReports()
{
    const auto film = [this] {
        const auto camera = make();
        QString text;
        connect(camera.get(), &SimulatedCamera::reported, this,
                [&text](const QVector<FaceRectPtr> &rects, const QVector<FaceInfoPtr> &faces) {
                    for (int i = 0; i < rects.size(); ++i) {
                        QTextStream(&text) << rects.at(i)->rect().x() << rects.at(i)->rect().y()
                                           << faces.at(i)->age() << faces.at(i)->emotion()
                                           << faces.at(i)->isTracking();
                        const auto matches = faces.at(i)->matches();
                        for (const FaceInfo::FaceScore &match : matches)
                            QTextStream(&text) << match.id << ' ' << match.score << '\n';
                    }
                });
        camera->enter(1);
        camera->enter();
        for (int i = 0; i < 200; ++i)
            camera->step();
        return text;
    };
    QVERIFY(film().size() > 1000);
    QCOMPARE(film(), film());
}

void SimulatedCameraTest::tellsOfKnownPeople()
{
    QCOMPARE(m_camera->enter(1), 1LL);
    QCOMPARE(m_events,
             (QStringList{QStringLiteral("enters 1"), QStringLiteral("seen Anna"),
                          QStringLiteral("main 1")}));
    QCOMPARE(m_camera->enter(1), 0LL); // is there
    m_events.clear();
    m_camera->leaveAll();
    for (int i = 0; i < 5000 && m_events.isEmpty(); ++i)
        m_camera->step();
    QCOMPARE(m_events,
             (QStringList{QStringLiteral("lost"), QStringLiteral("leaves 1"),
                          QStringLiteral("main 0")}));
}

void SimulatedCameraTest::tellsNobodyOfStrangers()
{
    m_camera->enter();
    m_camera->enter(77);
    m_camera->leaveAll();
    for (int i = 0; i < 5000 && (m_reports == 0 || !m_infos.isEmpty()); ++i)
        m_camera->step();
    QVERIFY(m_infos.isEmpty());
    QVERIFY(!m_events.contains(QStringLiteral("lost")));
    QVERIFY(m_events.filter(QStringLiteral("seen")).isEmpty());
    QCOMPARE(m_events.filter(QStringLiteral("leaves")).size(), 2);
}

void SimulatedCameraTest::recognisesWhoIsAddedMeanwhile()
{
    const long long track = m_camera->enter(77);
    m_camera->step();
    QCOMPARE(face(track).id(), 0LL);
    add(77, QStringLiteral("Ben"));
    QVERIFY(m_events.contains(QStringLiteral("seen Ben")));
    m_camera->step();
    QCOMPARE(face(track).id(), 77LL);
    QVERIFY(!m_events.contains(QStringLiteral("lost")));
}

void SimulatedCameraTest::forgetsWhoIsDeleted()
{
    const long long track = m_camera->enter(1);
    QVERIFY(m_users->deleteUser(1, FaceInfo::User));
    QCOMPARE(m_events.count(QStringLiteral("lost")), 1);
    m_camera->step();
    QCOMPARE(face(track).id(), 0LL);
    QVERIFY(face(track).matches().isEmpty());
}

void SimulatedCameraTest::strangerBecomesTheLearnedFace()
{
    const long long track = m_camera->enter();
    learn(42);
    m_camera->step();
    QCOMPARE(face(track).id(), 42LL);
    QCOMPARE(face(track).type(), FaceInfo::Temporary);
    m_faces->deleteFace(42);
    m_camera->step();
    QCOMPARE(face(track).id(), 0LL);
    QCOMPARE(m_events.count(QStringLiteral("lost")), 1);
}

void SimulatedCameraTest::learnedFaceGoesToItsOwner()
{
    const long long stranger = m_camera->enter();
    const long long owner = m_camera->enter(42);
    m_faces->track(stranger);
    learn(42);
    m_camera->step();
    QCOMPARE(face(owner).id(), 42LL);
    QCOMPARE(face(stranger).id(), 0LL);
}

void SimulatedCameraTest::largestFaceCountsMost()
{
    m_camera->enter();
    m_camera->enter();
    m_camera->enter();
    QSet<long long> mains;
    for (int i = 0; i < 1500; ++i) {
        m_camera->step();
        int tracked = 0;
        double largest = 0;
        double main = 0;
        const QVector<CameraPerson> people = m_camera->people();
        for (const CameraPerson &person : people) {
            largest = qMax(largest, person.height);
            if (person.track == m_camera->mainFace())
                main = person.height;
            tracked += face(person.track).isTracking() ? 1 : 0;
        }
        QCOMPARE(tracked, 1);
        QVERIFY(face(m_camera->mainFace()).isTracking());
        QVERIFY(main * 1.2 > largest);
        mains.insert(m_camera->mainFace());
    }
    QVERIFY(mains.size() > 1); // it does change
}

void SimulatedCameraTest::tracksTheFaceAskedFor()
{
    const long long first = m_camera->enter();
    const long long second = m_camera->enter();
    steps(5);
    for (const long long track : {first, second}) {
        m_faces->track(track);
        QCOMPARE(m_camera->mainFace(), track);
        m_camera->step();
        QVERIFY(face(track).isTracking());
    }
    // When it has left, the largest takes its place.
    m_camera->leave(second);
    for (int i = 0; i < 5000 && m_camera->people().size() > 1; ++i)
        m_camera->step();
    QCOMPARE(m_camera->mainFace(), first);
}

void SimulatedCameraTest::tracksNobodyUnlessTold()
{
    m_faces->setTrackingAuto(false);
    const long long track = m_camera->enter();
    m_camera->step();
    QCOMPARE(m_camera->mainFace(), 0LL);
    QVERIFY(!face(track).isTracking());
    m_faces->track(99); // not in the picture
    QCOMPARE(m_camera->mainFace(), 0LL);
    m_faces->setTrackingAuto(true);
    QCOMPARE(m_camera->mainFace(), track);
    QCOMPARE(m_events.count(QStringLiteral("main 1")), 1);
}

void SimulatedCameraTest::survivesAListenerThatActs()
{
    const long long first = m_camera->enter();
    connect(m_camera.get(), &SimulatedCamera::entered, this,
            [this, first] { m_faces->track(first); });
    connect(m_camera.get(), &SimulatedCamera::userSeen, this,
            [this] { m_users->deleteUser(1, FaceInfo::User); });
    const long long second = m_camera->enter(1);
    QVERIFY(second != 0);
    QCOMPARE(m_camera->mainFace(), first);
    QVERIFY(!m_camera->identity(second).isKnown());
    QCOMPARE(m_events.count(QStringLiteral("lost")), 1);
}

void SimulatedCameraTest::twentyFiveReportsASecondAreCheap()
{
    while (m_camera->enter() != 0) { }
    QElapsedTimer clock;
    clock.start();
    steps(250); // ten seconds' worth
    QVERIFY2(clock.elapsed() < 1000, qPrintable(QString::number(clock.elapsed())));
}

QTEST_GUILESS_MAIN(SimulatedCameraTest)

#include "tst_simulatedcamera.moc"
