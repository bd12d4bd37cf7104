#include "simulator/app/StatePanel.h"

#include "simulator/app/ElidedLabel.h"
#include "simulator/app/StateNames.h"
#include "simulator/core/OperatorDesk.h"
#include "simulator/core/RobotCore.h"
#include "simulator/core/SimulatedDialogModule.h"
#include "simulator/core/SimulatedDrive.h"
#include "simulator/core/SimulatedInteractionService.h"
#include "simulator/core/SimulatedLanguage.h"
#include "simulator/core/SimulatedScripts.h"
#include "simulator/core/SimulatedSpeech.h"

#include <QGridLayout>

namespace simulator {

namespace {

const QString nothing = QStringLiteral("–");

} // namespace

StatePanel::StatePanel(RobotCore *core, QWidget *parent)
    : QGroupBox(tr("What the robot is asked to do"), parent)
    , m_core(core)
    , m_layout(new QGridLayout(this))
    , m_speech(addState(tr("Says"), 0, -1))
    , m_question(addState(tr("Asks"), 1, -1))
    , m_drive(addState(tr("Drive"), 2, 0))
    , m_charger(addState(tr("Charger"), 2, 1))
    , m_script(addState(tr("Script"), 3, 0))
    , m_language(addState(tr("Language"), 3, 1))
    , m_operator(addState(tr("Operator"), 4, 0))
    , m_interaction(addState(tr("Interaction"), 4, 1))
{
    m_layout->setHorizontalSpacing(8);
    m_layout->setVerticalSpacing(4);
    m_layout->setColumnStretch(1, 3);
    m_layout->setColumnStretch(3, 2);
    followDialog();
    followMovement();
    followServices();
}

// Column 0 or 1; -1 is the whole width.
ElidedLabel *StatePanel::addState(const QString &name, int row, int column)
{
    auto *label = new QLabel(name);
    label->setStyleSheet(QStringLiteral("color: #5a5f66"));
    auto *state = new ElidedLabel;
    const int first = column == 1 ? 2 : 0;
    m_layout->addWidget(label, row, first);
    m_layout->addWidget(state, row, first + 1, 1, column < 0 ? 3 : 1);
    state->setWholeText(nothing);
    return state;
}

void StatePanel::followDialog()
{
    connect(m_core->speech(), &SimulatedSpeech::started, m_speech, &ElidedLabel::setWholeText);
    connect(m_core->speech(), &SimulatedSpeech::finished, m_speech,
            [this] { m_speech->setWholeText(nothing); });

    const SimulatedDialogModule *dialog = m_core->dialog();
    connect(dialog, &SimulatedDialogModule::questionAsked, m_question, &ElidedLabel::setWholeText);
    connect(dialog, &SimulatedDialogModule::questionAnswered, m_question,
            [this](const QString &text) { m_question->setWholeText(tr("Answer: %1").arg(text)); });
    connect(dialog, &SimulatedDialogModule::questionCancelled, m_question,
            [this] { m_question->setWholeText(nothing); });
}

void StatePanel::followMovement()
{
    connect(m_core->drive(), &SimulatedDrive::modeChanged, this, &StatePanel::showDrive);
    connect(m_core->drive(), &SimulatedDrive::statusChanged, this, &StatePanel::showDrive);
    connect(m_core->drive(), &SimulatedDrive::chargerStatusChanged, this, &StatePanel::showDrive);
    showDrive();
}

void StatePanel::followServices()
{
    connect(m_core->scripts(), &SimulatedScripts::started, m_script, &ElidedLabel::setWholeText);
    connect(m_core->scripts(), &SimulatedScripts::finished, m_script,
            [this] { m_script->setWholeText(nothing); });

    connect(m_core->language(), &SimulatedLanguage::changed, m_language,
            &ElidedLabel::setWholeText);
    m_language->setWholeText(m_core->language()->code());

    const IInteractionService *interaction = m_core->devices().interaction.data();
    connect(interaction, &IInteractionService::started, m_interaction,
            [this](Interaction::Reason reason) {
                m_interaction->setWholeText(StateNames::name(StateNames::reasons(), reason));
            });
    connect(interaction, &IInteractionService::finished, m_interaction,
            [this] { m_interaction->setWholeText(nothing); });

    connect(m_core->operatorDesk(), &OperatorDesk::callChanged, this, &StatePanel::showOperator);
    connect(m_core->operatorDesk(), &OperatorDesk::controlChanged, this, &StatePanel::showOperator);
}

void StatePanel::showDrive()
{
    const SimulatedDrive *drive = m_core->drive();
    QString text = StateNames::name(StateNames::driveModes(), drive->mode()) + QStringLiteral(", ")
        + StateNames::name(StateNames::movements(), drive->status());
    if (drive->point() != 0)
        text += tr(", point %1").arg(drive->point());
    m_drive->setWholeText(text);
    m_charger->setWholeText(
        StateNames::name(StateNames::chargerMovements(), drive->chargerStatus()));
}

void StatePanel::showOperator()
{
    const OperatorDesk *desk = m_core->operatorDesk();
    if (desk->hasControl())
        m_operator->setWholeText(tr("in control"));
    else
        m_operator->setWholeText(desk->isCalled() ? tr("called") : nothing);
}

} // namespace simulator
