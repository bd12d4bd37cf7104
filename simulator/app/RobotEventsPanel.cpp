#include "simulator/app/RobotEventsPanel.h"

#include "simulator/app/FormRow.h"
#include "simulator/app/RobotScreen.h"
#include "simulator/app/StateNames.h"
#include "simulator/core/RobotCore.h"
#include "simulator/core/SimulatedDrive.h"
#include "simulator/core/SimulatedScripts.h"
#include "simulator/core/SimulatedSpeech.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace simulator {

RobotEventsPanel::RobotEventsPanel(RobotCore *core, RobotScreen *screen, QWidget *parent)
    : QWidget(parent)
    , m_core(core)
    , m_screen(screen)
    , m_line(new QLineEdit(tr("Follow me, please.")))
    , m_mode(formChoice(StateNames::driveModes()))
    , m_movement(formChoice(StateNames::movements()))
    , m_charger(formChoice(StateNames::chargerMovements()))
    , m_script(new QComboBox)
{
    m_script->addItems(m_core->scripts()->names());

    auto *form = new QFormLayout(this);
    addSpeech(form);
    addDrive(form);
    addScript(form);
}

void RobotEventsPanel::addSpeech(QFormLayout *form)
{
    QPushButton *starts = formButton(tr("Starts"));
    QPushButton *ends = formButton(tr("Ends"));
    form->addRow(tr("Line"), formRow({m_line, starts, ends}));

    const auto start = [this] { m_core->speech()->say(m_line->text()); };
    connect(starts, &QPushButton::clicked, this, start);
    connect(m_line, &QLineEdit::returnPressed, this, start);
    connect(ends, &QPushButton::clicked, this, &RobotEventsPanel::onLineEnds);
}

void RobotEventsPanel::addDrive(QFormLayout *form)
{
    QPushButton *mode = formButton(tr("Switch"));
    QPushButton *movement = formButton(tr("Report"));
    QPushButton *charger = formButton(tr("Report"));
    form->addRow(tr("Drive mode"), formRow({m_mode, mode}));
    QPushButton *block = formButton(tr("Blocked"));
    block->setToolTip(tr("Something stands in the way of the drive that is under way"));
    form->addRow(tr("Movement"), formRow({m_movement, block, movement}));
    form->addRow(tr("Charger"), formRow({m_charger, charger}));

    connect(mode, &QPushButton::clicked, this,
            [this] { m_core->drive()->setMode(static_cast<DriveMode>(m_mode->currentIndex())); });
    connect(block, &QPushButton::clicked, m_core->drive(), &SimulatedDrive::block);
    connect(movement, &QPushButton::clicked, this, [this] {
        m_screen->driveStatus(static_cast<MovementStatus>(m_movement->currentIndex()));
    });
    connect(charger, &QPushButton::clicked, this, [this] {
        m_screen->driveChargerStatus(static_cast<ChargerMovementStatus>(m_charger->currentIndex()));
    });
}

void RobotEventsPanel::addScript(QFormLayout *form)
{
    QPushButton *starts = formButton(tr("Starts"));
    QPushButton *ends = formButton(tr("Ends"));
    form->addRow(tr("Script"), formRow({m_script, starts, ends}));

    connect(starts, &QPushButton::clicked, this,
            [this] { m_core->scripts()->start(m_script->currentText()); });
    connect(ends, &QPushButton::clicked, this, &RobotEventsPanel::onScriptEnds);
}

// An end without a beginning is an event too, and a page has to survive it.
void RobotEventsPanel::onLineEnds()
{
    if (m_core->speech()->isSpeaking())
        m_core->speech()->cancel();
    else
        m_screen->robotReplicFinish();
}

void RobotEventsPanel::onScriptEnds()
{
    if (m_core->scripts()->running().isEmpty())
        m_screen->scriptEnd();
    else
        m_core->scripts()->cancel();
}

} // namespace simulator
