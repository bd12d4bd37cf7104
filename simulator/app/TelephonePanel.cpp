#include "simulator/app/TelephonePanel.h"

#include "simulator/app/ElidedLabel.h"
#include "simulator/app/FormRow.h"
#include "simulator/app/StateNames.h"
#include "simulator/core/TelephoneLine.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>

namespace simulator {

namespace {

const int KeysInARow = 6;

} // namespace

TelephonePanel::TelephonePanel(QWidget *parent)
    : QWidget(parent)
    , m_state(new ElidedLabel)
    , m_number(new ElidedLabel)
    , m_outcome(new QComboBox)
    , m_hangUp(formButton(tr("Hangs up")))
    , m_keys(createKeys())
{
    m_state->setObjectName(QStringLiteral("state"));
    m_number->setObjectName(QStringLiteral("number"));
    m_outcome->setObjectName(QStringLiteral("outcome"));
    m_outcome->addItems(StateNames::callOutcomes());
    m_hangUp->setToolTip(tr("The called party ends the call"));

    auto *form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    form->setHorizontalSpacing(6);
    form->setVerticalSpacing(4);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->addRow(tr("Next call"), m_outcome);
    form->addRow(tr("Dialled"), m_number);
    form->addRow(tr("Call"), formRow({m_state, m_hangUp}));
    form->addRow(tr("Keys"), m_keys);

    TelephoneLine &line = TelephoneLine::instance();
    connect(m_outcome, QOverload<int>::of(&QComboBox::activated), &line,
            [&line](int index) { line.setOutcome(static_cast<TelephoneLine::Outcome>(index)); });
    connect(m_hangUp, &QPushButton::clicked, &line, &TelephoneLine::hangUp);
    connect(&line, &TelephoneLine::outcomeChanged, this, &TelephonePanel::showState);
    connect(&line, &TelephoneLine::dialled, this, &TelephonePanel::showState);
    connect(&line, &TelephoneLine::stateChanged, this, &TelephonePanel::showState);
    showState();
}

QWidget *TelephonePanel::createKeys()
{
    auto *keys = new QWidget;
    keys->setToolTip(tr("The called party presses a key: tone 0 to 9, 10 for *, 11 for #"));
    auto *grid = new QGridLayout(keys);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(4);

    const QString names = QStringLiteral("123456789*0#");
    for (int i = 0; i < names.size(); ++i) {
        const QChar name = names.at(i);
        int tone = name.digitValue();
        if (name == QLatin1Char('*'))
            tone = TelephoneLine::StarTone;
        else if (name == QLatin1Char('#'))
            tone = TelephoneLine::HashTone;
        QPushButton *key = formButton(name);
        key->setMinimumWidth(24);
        grid->addWidget(key, i / KeysInARow, i % KeysInARow);
        connect(key, &QPushButton::clicked, this,
                [tone] { TelephoneLine::instance().pressKey(tone); });
    }
    return keys;
}

void TelephonePanel::showState()
{
    const TelephoneLine &line = TelephoneLine::instance();
    const bool connected = line.state() == CallStateConnected;
    m_state->setWholeText(StateNames::name(StateNames::callStates(), line.state()));
    m_number->setWholeText(line.number().isEmpty() ? QStringLiteral("–") : line.number());
    m_outcome->setCurrentIndex(static_cast<int>(line.outcome()));
    m_hangUp->setEnabled(connected);
    m_keys->setEnabled(connected);
}

} // namespace simulator
