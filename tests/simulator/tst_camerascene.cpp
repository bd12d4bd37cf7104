#include "simulator/core/CameraScene.h"

#include "tests/support/TestCase.h"

using simulator::CameraPerson;
using simulator::CameraScene;

class CameraSceneTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void sameSeedSamePicture();
    void otherSeedOtherPicture();
    void movesSmoothly();
    void staysInThePicture();
    void isSeenAtOnce();
    void goesOutAtAnEdge();
    void holdsFourPeople();
    void letsNobodyInTwice();
    void cutsFacesAtTheEdge();
    void describesAPerson();

private:
    /// Everything that can be seen, as a text.
    static QString picture(const CameraScene &scene)
    {
        QString text;
        for (const CameraPerson &person : scene.people()) {
            const QRectF face = person.face({1000, 600});
            text += QStringLiteral("%1 %2 %3 %4 %5 %6 %7 %8\n")
                        .arg(person.track)
                        .arg(person.gender)
                        .arg(person.age)
                        .arg(person.emotion)
                        .arg(face.x(), 0, 'g', 17)
                        .arg(face.y(), 0, 'g', 17)
                        .arg(face.width(), 0, 'g', 17)
                        .arg(face.height(), 0, 'g', 17);
        }
        return text;
    }
    static QString film(quint32 seed)
    {
        CameraScene scene(seed);
        QString text;
        for (int i = 0; i < 500; ++i) {
            if (i % 60 == 0)
                scene.enter(i / 60);
            if (i % 150 == 149)
                scene.leave(scene.people().constFirst().track);
            scene.advance(0.04);
            text += picture(scene);
        }
        return text;
    }
};

void CameraSceneTest::sameSeedSamePicture()
{
    QVERIFY(!film(5).isEmpty());
    QCOMPARE(film(5), film(5));
}

void CameraSceneTest::otherSeedOtherPicture() { QVERIFY(film(5) != film(6)); }

void CameraSceneTest::movesSmoothly()
{
    CameraScene scene(3);
    scene.enter(0);
    scene.enter(0);
    double way = 0;
    for (int i = 0; i < 1000; ++i) {
        const QVector<CameraPerson> before = scene.people();
        scene.advance(0.04);
        for (int k = 0; k < before.size(); ++k) {
            const QPointF move = scene.people().at(k).position - before.at(k).position;
            way += move.manhattanLength();
            // Two widths of the picture in a second is faster than anybody walks by.
            QVERIFY(move.manhattanLength() < 0.08);
            QVERIFY(qAbs(scene.people().at(k).height - before.at(k).height) < 0.03);
        }
    }
    QVERIFY(way > 1.0); // they do move
}

void CameraSceneTest::staysInThePicture()
{
    CameraScene scene(4);
    scene.enter(0);
    scene.enter(0);
    for (int i = 0; i < 3000; ++i) {
        // Long steps too: a robot's time may run fast.
        scene.advance(i % 10 == 0 ? 50.0 : 0.1);
        QCOMPARE(scene.people().size(), 2);
        for (const CameraPerson &person : scene.people()) {
            QVERIFY(person.position.x() >= 0 && person.position.x() <= 1);
            QVERIFY(person.position.y() >= 0 && person.position.y() <= 1);
            QVERIFY(person.height > 0.1 && person.height < 0.6);
        }
    }
}

void CameraSceneTest::isSeenAtOnce()
{
    CameraScene scene(1);
    const long long track = scene.enter(0);
    QVERIFY(track > 0);
    QVERIFY(!scene.person(track)->face({1000, 600}).isEmpty());
}

void CameraSceneTest::goesOutAtAnEdge()
{
    CameraScene scene(1);
    const long long track = scene.enter(0);
    scene.advance(3);
    QVERIFY(scene.leave(track));
    QVERIFY(scene.person(track)); // takes a moment
    double last = 0;
    for (int i = 0; i < 300 && scene.person(track); ++i) {
        last = scene.person(track)->position.x();
        scene.advance(0.04);
    }
    QVERIFY(!scene.person(track));
    QVERIFY(last < 0.15 || last > 0.85);
    QVERIFY(!scene.leave(track));
}

void CameraSceneTest::holdsFourPeople()
{
    CameraScene scene(1);
    QSet<long long> tracks;
    for (int i = 0; i < CameraScene::capacity(); ++i)
        tracks.insert(scene.enter(0));
    QCOMPARE(tracks.size(), 4);
    QVERIFY(!tracks.contains(0));
    QCOMPARE(scene.enter(0), 0LL);
    scene.leave(scene.people().constFirst().track);
    scene.advance(30);
    const long long next = scene.enter(0);
    QVERIFY(next != 0);
    QVERIFY(!tracks.contains(next)); // tracks are never used again
}

void CameraSceneTest::letsNobodyInTwice()
{
    CameraScene scene(1);
    QVERIFY(scene.enter(7) != 0);
    QCOMPARE(scene.enter(7), 0LL);
    QVERIFY(scene.enter(8) != 0);
}

void CameraSceneTest::cutsFacesAtTheEdge()
{
    CameraPerson person;
    person.position = QPointF(0, 0.5);
    person.height = 0.2;
    const QRectF face = person.face({1000, 500});
    QCOMPARE(face.left(), 0.0);
    QCOMPARE(face.height(), 100.0);
    QCOMPARE(face.center().y(), 250.0);
    QCOMPARE(face.width(), 38.0); // half of it
}

void CameraSceneTest::describesAPerson()
{
    CameraScene scene(1);
    const long long track = scene.enter(7);
    scene.describe(track, GenderFemale, 34);
    scene.describe(track, GenderUnknown, 0); // nothing known changes nothing
    scene.describe(99, GenderMale, 1);
    QCOMPARE(scene.person(track)->gender, GenderFemale);
    QCOMPARE(scene.person(track)->age, 34.0);
    QVERIFY(!scene.person(99));
}

QTEST_GUILESS_MAIN(CameraSceneTest)

#include "tst_camerascene.moc"
