#include "simulator/app/RobotScreen.h"
#include "simulator/app/SimulatorWindow.h"
#include "simulator/core/RobotCore.h"
#include "simulator/core/SimulatedCamera.h"
#include "simulator/core/SimulatedDialogModule.h"
#include "simulator/core/SimulatedMacrosReplacer.h"
#include "tests/support/TestCase.h"

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
    QString expanded(const QString &text) const { return m_core->devices().macros->expand(text); }

    std::unique_ptr<RobotCore> m_core;
    std::unique_ptr<SimulatorWindow> m_window;

private Q_SLOTS:
    void aWholeTurn();
};

void VisitTest::aWholeTurn()
{
    // Somebody whom the robot knows comes, and is greeted by name.
    m_core->camera()->enter(1);
    QTRY_VERIFY_WITH_TIMEOUT(pageShows(QStringLiteral("conversation"), QStringLiteral("Anna")),
                             timeoutMs);
    QVERIFY(pageShows(QStringLiteral("greeting"), QStringLiteral("Anna")));

    // The page lends a macro value for a line, and the robot speaks it expanded.
    type(QStringLiteral("say-text"), QStringLiteral("Your seat is in %hall%."));
    touch(QStringLiteral("macro-toggle"));
    type(QStringLiteral("macro-name"), QStringLiteral("hall"));
    type(QStringLiteral("macro-value"), QStringLiteral("hall seven"));
    touch(QStringLiteral("say-send"));
    QTRY_VERIFY_WITH_TIMEOUT(
        pageShows(QStringLiteral("conversation"), QStringLiteral("Your seat is in hall seven.")),
        timeoutMs);
    // With the end of the line the macro is gone.
    QTRY_COMPARE_WITH_TIMEOUT(expanded(QStringLiteral("%hall%")), QStringLiteral("%hall%"),
                              timeoutMs);

    // The person asks; the answer is a question with choices.
    m_core->dialog()->hear(QStringLiteral("I need a badge"), true);
    QTRY_VERIFY_WITH_TIMEOUT(
        pageShows(QStringLiteral("conversation"), QStringLiteral("I need a badge")), timeoutMs);
    QTRY_VERIFY_WITH_TIMEOUT(pageShows(QStringLiteral("question-answers"), QStringLiteral("Yes")),
                             timeoutMs);

    // A touch on a choice continues the dialog.
    evaluate(QStringLiteral("document.querySelector('#question-answers button').click(); null"));
    QTRY_VERIFY_WITH_TIMEOUT(
        pageShows(QStringLiteral("conversation"), QStringLiteral("Your badge is being printed.")),
        timeoutMs);
    QVERIFY(m_core->dialog()->openQuestion().isEmpty());
}

QTEST_MAIN(VisitTest)
#include "tst_visit.moc"
