#include "simulator/app/DemoVisit.h"

#include "host/UserData.h"
#include "simulator/app/RobotScreen.h"
#include "simulator/core/RobotCore.h"
#include "simulator/core/SimulatedDialogModule.h"
#include "simulator/core/SimulatedDrive.h"
#include "simulator/core/SimulatedInteractionService.h"
#include "simulator/core/SimulatedSpeech.h"
#include "simulator/core/SimulatedUsersDatabase.h"

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
    const auto say = [this](const QString &text) { m_core->speech()->say(text); };
    return {
        {400,
         [this] {
             UserData user;
             if (m_core->devices().users && m_core->devices().users->user(1, user))
                 m_screen->hasUser(user);
         }},
        {600, [this] { m_core->devices().interaction->startFor(Interaction::FaceDetected); }},
        {400, [say] { say(tr("Hello Anna, nice to see you again!")); }},
        {2600, [this] { m_screen->userSaid(tr("Where can I"), false); }},
        {700, [this] { m_screen->userSaid(tr("Where can I get a badge?"), true); }},
        {600, [say] { say(tr("I can print one for you right here.")); }},
        {2600,
         [this] {
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
