#include "host/FaceRect.h"
#include "host/UserData.h"
#include "simulator/app/RobotScreen.h"
#include "simulator/app/SimulatorWindow.h"
#include "simulator/core/RobotCore.h"
#include "simulator/core/SimulatedCamera.h"
#include "simulator/core/SimulatedDialogModule.h"
#include "simulator/core/SimulatedFaces.h"
#include "simulator/core/SimulatedMacrosReplacer.h"
#include "simulator/core/SimulatedSpeech.h"
#include "simulator/core/SqliteUsersDatabase.h"
#include "tests/support/TestCase.h"

#include <QLineEdit>
#include <QPushButton>
#include <QUrl>
#include <QWebEngineView>

#include <memory>

using namespace simulator;

namespace {

constexpr int timeoutMs = 30000;

} // namespace

/// A visit as it happens on a robot: the sample page in the real web view, the dialog engine behind
/// it, and a finger that touches the page's buttons.
class VisitTest : public TestCase
{
    Q_OBJECT

private:
    void setUp() override
    {
        m_core = std::make_unique<RobotCore>();
        m_core->pace().setSpeed(4);
        m_window = std::make_unique<SimulatorWindow>(m_core.get());
        m_window->show();
        m_window->screen()->load(
            QUrl::fromLocalFile(QStringLiteral(PANOREL_SAMPLE_PAGE "/index.html")).toString());
        QTRY_COMPARE_WITH_TIMEOUT(
            evaluate(QStringLiteral("var c = document.getElementById('connection');"
                                    "c ? c.dataset.state : ''"))
                .toString(),
            QStringLiteral("connected"), timeoutMs);
    }
    void tearDown() override
    {
        m_window.reset();
        m_core.reset();
    }
    bool isForeign(const QString &warning) const override
    {
        return !warning.startsWith(QLatin1String("panorel:"));
    }

    /// Runs a script in the page and waits for its value.
    QVariant evaluate(const QString &script)
    {
        QVariant result;
        bool done = false;
        m_window->screen()->findChild<QWebEngineView *>()->page()->runJavaScript(
            script, [&](const QVariant &value) {
                result = value;
                done = true;
            });
        if (!QTest::qWaitFor([&done] { return done; }, timeoutMs))
            QTest::qFail("the page did not answer", __FILE__, __LINE__);
        return result;
    }
    bool pageShows(const QString &id, const QString &text)
    {
        return evaluate(QStringLiteral("document.getElementById('%1').textContent").arg(id))
            .toString()
            .contains(text);
    }
    void touch(const QString &id)
    {
        evaluate(QStringLiteral("document.getElementById('%1').click(); null").arg(id));
    }
    void type(const QString &id, const QString &text)
    {
        evaluate(QStringLiteral("var f = document.getElementById('%1'); f.value = '%2';"
                                "f.dispatchEvent(new Event('input', {bubbles: true})); null")
                     .arg(id, text));
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
        return pageShows(QStringLiteral("chosen"), QStringLiteral("Anna"));
    }
    void waitForSilence() { QTRY_VERIFY_WITH_TIMEOUT(!m_core->speech()->isSpeaking(), timeoutMs); }
    QString expanded(const QString &text) const { return m_core->devices().macros->expand(text); }

    std::unique_ptr<RobotCore> m_core;
    std::unique_ptr<SimulatorWindow> m_window;

private Q_SLOTS:
    void aWholeTurn();
    void aReplicaIsAskedForAndSpoken();
    void aFaceIsSeenAndChosen();
    void aPersonIsAddedAndDeleted();
};

void VisitTest::aWholeTurn()
{
    // Somebody whom the robot knows comes, and is greeted by name.
    m_core->camera()->enter(1);
    QTRY_VERIFY_WITH_TIMEOUT(pageShows(QStringLiteral("conversation"), QStringLiteral("Anna")),
                             timeoutMs);
    QVERIFY(pageShows(QStringLiteral("greeting"), QStringLiteral("Anna")));
    waitForSilence();

    // The page lends a macro value for a line, and the robot speaks it expanded.
    m_core->pace().setSpeed(1);
    type(QStringLiteral("say-text"), QStringLiteral("Your seat is in %hall%."));
    touch(QStringLiteral("macro-toggle"));
    type(QStringLiteral("macro-name"), QStringLiteral("hall"));
    type(QStringLiteral("macro-value"), QStringLiteral("hall seven"));
    touch(QStringLiteral("say-send"));
    QTRY_COMPARE_WITH_TIMEOUT(m_core->speech()->text(),
                              QStringLiteral("Your seat is in hall seven."), timeoutMs);
    QCOMPARE(expanded(QStringLiteral("%hall%")), QStringLiteral("hall seven"));
    QTRY_VERIFY_WITH_TIMEOUT(
        pageShows(QStringLiteral("conversation"), QStringLiteral("Your seat is in hall seven.")),
        timeoutMs);
    // With the end of the line the macro is gone.
    waitForSilence();
    QCOMPARE(expanded(QStringLiteral("%hall%")), QStringLiteral("%hall%"));
    m_core->pace().setSpeed(4);

    // The person asks, as typed into the panel; the answer is a question with choices.
    m_window->findChild<QLineEdit *>(QStringLiteral("speech"))
        ->setText(QStringLiteral("I need a badge"));
    m_window->findChild<QPushButton *>(QStringLiteral("says"))->click();
    QTRY_VERIFY_WITH_TIMEOUT(
        pageShows(QStringLiteral("conversation"), QStringLiteral("I need a badge")), timeoutMs);
    QTRY_VERIFY_WITH_TIMEOUT(pageShows(QStringLiteral("question-answers"), QStringLiteral("Yes")),
                             timeoutMs);
    QVERIFY(!isHidden(QStringLiteral("question")));

    // A touch on a choice continues the dialog.
    evaluate(QStringLiteral("document.querySelector('#question-answers button').click(); null"));
    QTRY_VERIFY_WITH_TIMEOUT(
        pageShows(QStringLiteral("conversation"), QStringLiteral("Your badge is being printed.")),
        timeoutMs);
    QVERIFY(isHidden(QStringLiteral("question")));
    QVERIFY(m_core->dialog()->openQuestion().isEmpty());
    waitForSilence();
}

void VisitTest::aReplicaIsAskedForAndSpoken()
{
    touch(QStringLiteral("step-badge"));
    QTRY_VERIFY_WITH_TIMEOUT(pageShows(QStringLiteral("replica-text"), QStringLiteral("badge")),
                             timeoutMs);
    QVERIFY(!m_core->speech()->isSpeaking());
    touch(QStringLiteral("replica-say"));
    QTRY_VERIFY_WITH_TIMEOUT(m_core->speech()->text().contains(QStringLiteral("badge")), timeoutMs);
}

void VisitTest::aFaceIsSeenAndChosen()
{
    QVector<FaceRectPtr> rects;
    connect(m_core->camera(), &SimulatedCamera::reported, this,
            [&rects](const QVector<FaceRectPtr> &reported) { rects = reported; });
    m_core->camera()->enter(1);
    touch(QStringLiteral("tab-faces"));
    QTRY_VERIFY_WITH_TIMEOUT(pageShows(QStringLiteral("faces"), QStringLiteral("Anna")), timeoutMs);

    // A touch in the middle of the face, wherever it has gone meanwhile.
    QTRY_VERIFY_WITH_TIMEOUT(touchesTheFace(rects), timeoutMs);
    QCOMPARE(m_core->faces()->tracked(), rects.first()->idTrack());
}

void VisitTest::aPersonIsAddedAndDeleted()
{
    touch(QStringLiteral("tab-people"));
    type(QStringLiteral("person-name"), QStringLiteral("Bob"));
    type(QStringLiteral("person-age"), QStringLiteral("40"));
    touch(QStringLiteral("person-add"));
    QTRY_VERIFY_WITH_TIMEOUT(pageShows(QStringLiteral("people"), QStringLiteral("Bob")), timeoutMs);
    UserData bob;
    long long id = 1;
    while (bob.name() != QStringLiteral("Bob") && id < 10)
        m_core->devices().users->user(++id, bob);
    QCOMPARE(bob.name(), QStringLiteral("Bob"));
    QCOMPARE(bob.info().age(), 40.0);

    // Deleting wants a second touch.
    const QString deleteBob =
        QStringLiteral("[...document.querySelectorAll('#people button')].filter("
                       "  b => b.closest('li').textContent.includes('Bob')).pop().click(); null");
    evaluate(deleteBob);
    QVERIFY(m_core->devices().users->user(id, bob));
    evaluate(deleteBob);
    QTRY_VERIFY_WITH_TIMEOUT(!m_core->devices().users->user(id, bob), timeoutMs);
}

QTEST_MAIN(VisitTest)
#include "tst_visit.moc"
