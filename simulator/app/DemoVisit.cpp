#include "simulator/app/DemoVisit.h"

#include "simulator/app/RobotScreen.h"
#include "simulator/core/RobotCore.h"
#include "simulator/core/SimulatedCamera.h"
#include "simulator/core/SimulatedDialogModule.h"
#include "simulator/core/SimulatedDrive.h"
#include "simulator/core/SimulatedInteractionService.h"

namespace simulator {

DemoVisit::DemoVisit(RobotCore *core, RobotScreen *screen, QObject *parent)
    : QObject(parent)
    , m_core(core)
    , m_screen(screen)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &DemoVisit::onTimeout);
}

void DemoVisit::start()
{
    if (!m_left.isEmpty())
        return;
    m_left = steps();
    waitForNext();
}

QList<DemoVisit::Step> DemoVisit::steps() const
{
    return {
        {400, [this] { m_core->camera()->enter(1); }},
        {600, [this] { m_core->devices().interaction->startFor(Interaction::FaceDetected); }},
        {3000, [this] { m_core->dialog()->hear(tr("Who are"), false); }},
        {700, [this] { m_core->dialog()->hear(tr("Who are you?"), true); }},
        {3200, [this] { m_core->dialog()->hear(tr("What can you do for me?"), true); }},
        {1600,
         [this] {
             // A scenario of one's own may have no question for this.
             if (m_core->dialog()->openQuestion().isEmpty())
                 m_core->dialog()->askQuestion(
                     tr("What shall I do for you?"),
                     {tr("Print a badge"), tr("Show me the way"), tr("Call an operator")});
         }},
        {400, [this] { m_core->drive()->setMode(DriveModeAutomatic); }},
        {400,
         [this] {
             m_screen->customEvent({{QStringLiteral("name"), QStringLiteral("welcome.offer")},
                                    {QStringLiteral("offer"), QStringLiteral("coffee")},
                                    {QStringLiteral("table"), 7}});
         }},
        {400, [] {}},
    };
}

void DemoVisit::waitForNext()
{
    if (m_left.isEmpty())
        Q_EMIT finished();
    else
        m_timer.start(m_core->pace().milliseconds(m_left.constFirst().delay));
}

void DemoVisit::onTimeout()
{
    m_left.takeFirst().act();
    waitForNext();
}

} // namespace simulator
