#include "simulator/app/DialogPanel.h"

#include "simulator/app/FormRow.h"
#include "simulator/app/StateNames.h"
#include "simulator/core/OperatorDesk.h"
#include "simulator/core/RobotCore.h"
#include "simulator/core/SimulatedDialogModule.h"
#include "simulator/core/SimulatedInteractionService.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace simulator {

DialogPanel::DialogPanel(RobotCore *core, QWidget *parent)
    : QWidget(parent)
    , m_core(core)
    , m_question(new QLineEdit(tr("Where do you want to go?")))
    , m_answers(new QLineEdit(tr("Lobby; Café; Exit")))
    , m_response(formChoice(StateNames::operatorResponses()))
    , m_control(formButton(tr("In control")))
    , m_reason(formChoice(StateNames::reasons()))
{
    auto *form = new QFormLayout(this);
    addQuestion(form);
    addOperator(form);
    addInteraction(form);
}

void DialogPanel::addQuestion(QFormLayout *form)
{
    m_answers->setToolTip(tr("Answers, separated by semicolons"));
    QPushButton *ask = formButton(tr("Ask"));
    QPushButton *withdraw = formButton(tr("Withdraw"));
    QPushButton *extra = formButton(tr("Says something unasked"));
    form->addRow(tr("Question"), m_question);
    form->addRow(tr("Answers"), formRow({m_answers, ask, withdraw}));
    form->addRow(tr("Robot"), extra);

    connect(ask, &QPushButton::clicked, this, &DialogPanel::onAsk);
    connect(withdraw, &QPushButton::clicked, m_core->dialog(),
            &SimulatedDialogModule::cancelQuestion);
    connect(extra, &QPushButton::clicked, m_core->dialog(), &SimulatedDialogModule::sayExtra);
}

void DialogPanel::addOperator(QFormLayout *form)
{
    m_response->setEditable(true);
    m_response->setToolTip(tr("One of the known codes, or any number from 0 to 255"));
    QPushButton *respond = formButton(tr("Answers"));
    m_control->setCheckable(true);
    form->addRow(tr("Operator"), formRow({m_response, respond, m_control}));

    connect(respond, &QPushButton::clicked, this, &DialogPanel::onRespond);
    connect(m_control, &QPushButton::toggled, m_core->operatorDesk(), &OperatorDesk::setControl);
    connect(m_core->operatorDesk(), &OperatorDesk::controlChanged, m_control,
            &QPushButton::setChecked);
}

void DialogPanel::addInteraction(QFormLayout *form)
{
    QPushButton *starts = formButton(tr("Starts"));
    QPushButton *ends = formButton(tr("Ends"));
    form->addRow(tr("Interaction"), formRow({m_reason, starts, ends}));

    SimulatedInteractionService *interaction = m_core->devices().interaction.data();
    connect(starts, &QPushButton::clicked, interaction, [this, interaction] {
        interaction->startFor(static_cast<Interaction::Reason>(m_reason->currentIndex()));
    });
    connect(ends, &QPushButton::clicked, interaction, &SimulatedInteractionService::stop);
}

void DialogPanel::onAsk()
{
    QStringList answers;
    const QStringList pieces = m_answers->text().split(QLatin1Char(';'));
    for (const QString &piece : pieces) {
        if (!piece.trimmed().isEmpty())
            answers.append(piece.trimmed());
    }
    m_core->dialog()->askQuestion(m_question->text(), answers);
}

void DialogPanel::onRespond()
{
    // "2 – busy" or just "2".
    bool isNumber = false;
    const int code = m_response->currentText().section(QLatin1Char(' '), 0, 0).toInt(&isNumber);
    if (isNumber && code >= 0 && code <= 255)
        m_core->operatorDesk()->respond(static_cast<unsigned char>(code));
    else
        m_response->setCurrentIndex(0);
}

} // namespace simulator
