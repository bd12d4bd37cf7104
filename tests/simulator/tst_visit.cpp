#include "host/FaceRect.h"
#include "host/UserData.h"
#include "simulator/core/SimulatedCamera.h"
#include "simulator/core/SimulatedDialogModule.h"
#include "simulator/core/SimulatedFaces.h"
#include "simulator/core/SimulatedMacrosReplacer.h"
#include "simulator/core/SimulatedSpeech.h"
#include "simulator/core/SqliteUsersDatabase.h"
#include "tests/simulator/VisitTestCase.h"
#include "tests/support/Noted.h"

#include <QLineEdit>
#include <QPushButton>

using namespace simulator;

/// A visit as it happens on a robot: the sample page in the real web view, the dialog engine behind
/// it, and a finger that touches the page's buttons.
class VisitTest : public VisitTestCase
{
    Q_OBJECT

private:
    void setUp() override
    {
        VisitTestCase::setUp();
        core()->pace().setSpeed(4);
    }
    bool isHidden(const QString &id)
    {
        return evaluate(
                   QStringLiteral("document.getElementById('%1').offsetParent === null").arg(id))
            .toBool();
    }
    /// Touches the page where the face stands; true once the page shows who was chosen.
    bool touchesTheFace(const QVector<FaceRectPtr> &rects)
    {
        if (!rects.isEmpty()) {
            const QPointF middle = rects.first()->rect().center();
            evaluate(
                QStringLiteral("document.getElementById('camera').dispatchEvent(new MouseEvent("
                               "'click', {clientX: %1, clientY: %2, bubbles: true})); null")
                    .arg(middle.x())
                    .arg(middle.y()));
        }
        return shows(QStringLiteral("chosen"), QStringLiteral("Anna"));
    }
    void waitForSilence() { QTRY_VERIFY_WITH_TIMEOUT(!core()->speech()->isSpeaking(), timeoutMs); }
    QString expanded(const QString &text) const { return core()->devices().macros->expand(text); }

private Q_SLOTS:
    void aWholeTurn();
    void aReplicaIsAskedForAndSpoken();
    void aFaceIsSeenAndChosen();
    void aPersonIsAddedAndDeleted();
};

void VisitTest::aWholeTurn()
{
    // Somebody whom the robot knows comes, and is greeted by name.
    core()->camera()->enter(1);
    QTRY_VERIFY_WITH_TIMEOUT(shows(QStringLiteral("conversation"), QStringLiteral("Anna")),
                             timeoutMs);
    QVERIFY(shows(QStringLiteral("greeting"), QStringLiteral("Anna")));
    waitForSilence();

    // The page lends a macro value for a line, and the robot speaks it expanded.
    core()->pace().setSpeed(1);
    type(QStringLiteral("say-text"), QStringLiteral("Your seat is in %hall%."));
    touch(QStringLiteral("#macro-toggle"));
    type(QStringLiteral("macro-name"), QStringLiteral("hall"));
    type(QStringLiteral("macro-value"), QStringLiteral("hall seven"));
    touch(QStringLiteral("#say-send"));
    QTRY_COMPARE_WITH_TIMEOUT(core()->speech()->text(),
                              QStringLiteral("Your seat is in hall seven."), timeoutMs);
    QCOMPARE(expanded(QStringLiteral("%hall%")), QStringLiteral("hall seven"));
    QTRY_VERIFY_WITH_TIMEOUT(
        shows(QStringLiteral("conversation"), QStringLiteral("Your seat is in hall seven.")),
        timeoutMs);
    // With the end of the line the macro is gone.
    waitForSilence();
    QCOMPARE(expanded(QStringLiteral("%hall%")), QStringLiteral("%hall%"));
    core()->pace().setSpeed(4);

    // The person asks, as typed into the panel; the answer is a question with choices.
    window()
        ->findChild<QLineEdit *>(QStringLiteral("speech"))
        ->setText(QStringLiteral("I need a badge"));
    window()->findChild<QPushButton *>(QStringLiteral("says"))->click();
    QTRY_VERIFY_WITH_TIMEOUT(
        shows(QStringLiteral("conversation"), QStringLiteral("I need a badge")), timeoutMs);
    QTRY_VERIFY_WITH_TIMEOUT(shows(QStringLiteral("question-answers"), QStringLiteral("Yes")),
                             timeoutMs);
    QVERIFY(!isHidden(QStringLiteral("question")));

    // A touch on a choice continues the dialog.
    evaluate(QStringLiteral("document.querySelector('#question-answers button').click(); null"));
    QTRY_VERIFY_WITH_TIMEOUT(
        shows(QStringLiteral("conversation"), QStringLiteral("Your badge is being printed.")),
        timeoutMs);
    QVERIFY(isHidden(QStringLiteral("question")));
    QVERIFY(core()->dialog()->openQuestion().isEmpty());
    waitForSilence();
}

void VisitTest::aReplicaIsAskedForAndSpoken()
{
    touch(QStringLiteral("#step-badge"));
    QTRY_VERIFY_WITH_TIMEOUT(shows(QStringLiteral("replica-text"), QStringLiteral("badge")),
                             timeoutMs);
    QVERIFY(!core()->speech()->isSpeaking());
    touch(QStringLiteral("#replica-say"));
    QTRY_VERIFY_WITH_TIMEOUT(core()->speech()->text().contains(QStringLiteral("badge")), timeoutMs);
}

void VisitTest::aFaceIsSeenAndChosen()
{
    Noted<QVector<FaceRectPtr>> rects;
    connect(core()->camera(), &SimulatedCamera::reported, &rects,
            [&rects](const QVector<FaceRectPtr> &reported) { rects.value = reported; });
    core()->camera()->enter(1);
    touch(QStringLiteral("#tab-faces"));
    QTRY_VERIFY_WITH_TIMEOUT(shows(QStringLiteral("faces"), QStringLiteral("Anna")), timeoutMs);

    // A touch in the middle of the face, wherever it has gone meanwhile.
    QTRY_VERIFY_WITH_TIMEOUT(touchesTheFace(rects.value), timeoutMs);
    QCOMPARE(core()->faces()->tracked(), rects.value.first()->idTrack());
}

void VisitTest::aPersonIsAddedAndDeleted()
{
    touch(QStringLiteral("#tab-people"));
    type(QStringLiteral("person-name"), QStringLiteral("Bob"));
    type(QStringLiteral("person-age"), QStringLiteral("40"));
    touch(QStringLiteral("#person-add"));
    QTRY_VERIFY_WITH_TIMEOUT(shows(QStringLiteral("people"), QStringLiteral("Bob")), timeoutMs);
    UserData bob;
    long long id = 1;
    while (bob.name() != QStringLiteral("Bob") && id < 10)
        core()->devices().users->user(++id, bob);
    QCOMPARE(bob.name(), QStringLiteral("Bob"));
    QCOMPARE(bob.info().age(), 40.0);

    // Deleting wants a second touch.
    const QString deleteBob =
        QStringLiteral("[...document.querySelectorAll('#people button')].filter("
                       "  b => b.closest('li').textContent.includes('Bob')).pop().click(); null");
    evaluate(deleteBob);
    QVERIFY(core()->devices().users->user(id, bob));
    evaluate(deleteBob);
    QTRY_VERIFY_WITH_TIMEOUT(!core()->devices().users->user(id, bob), timeoutMs);
}

QTEST_MAIN(VisitTest)
#include "tst_visit.moc"
