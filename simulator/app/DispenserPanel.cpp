#include "simulator/app/DispenserPanel.h"

#include "simulator/app/ElidedLabel.h"
#include "simulator/app/FormRow.h"
#include "simulator/app/StateNames.h"
#include "simulator/core/SimulatedDispenser.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>

namespace simulator {

namespace {

const int BitCount = 16;

QString hex(int word) { return QStringLiteral("0x%1").arg(word, 4, 16, QLatin1Char('0')); }

QString wordText(int word)
{
    const QStringList names = StateNames::dispenserBits();
    QStringList set;
    for (int bit = 0; bit < BitCount; ++bit) {
        if ((word & (1 << bit)) != 0 && !names.at(bit).isEmpty())
            set.append(names.at(bit));
    }
    return QStringLiteral("%1 %2").arg(hex(word), set.join(QStringLiteral(", ")));
}

} // namespace

DispenserPanel::DispenserPanel(SimulatedDispenser *dispenser, QWidget *parent)
    : QWidget(parent)
    , m_dispenser(dispenser)
    , m_state(new ElidedLabel)
    , m_plug(formPlug())
    , m_cards(formNumber(0, 999))
    , m_jammed(new QCheckBox(tr("Jam")))
    , m_binFull(new QCheckBox(tr("Bin full")))
    , m_take(formButton(tr("Take the card")))
    , m_bits(new QListWidget)
    , m_report(formButton(QString()))
{
    m_state->setObjectName(QStringLiteral("state"));
    auto *state = new QHBoxLayout;
    state->setSpacing(6);
    state->addWidget(new QLabel(tr("Status")));
    state->addWidget(m_state, 1);
    QGridLayout *grid = formGrid(this);
    grid->addLayout(state, 0, 0, 1, 2);
    grid->addWidget(createSupply(), 1, 0);
    grid->addWidget(createStatusWord(), 1, 1);

    connect(m_dispenser, &IDispenser::statusChanged, this, &DispenserPanel::showStatus);
    connect(m_dispenser, &SimulatedDispenser::cardsChanged, this, &DispenserPanel::showCards);
    showStatus();
    showCards();
    showChosen();
}

QWidget *DispenserPanel::createSupply()
{
    m_cards->setObjectName(QStringLiteral("cards"));
    m_cards->setPrefix(tr("cards: "));
    m_jammed->setToolTip(tr("The next cards jam"));
    m_binFull->setToolTip(tr("The bin for cards that nobody took is full"));
    m_jammed->setChecked(m_dispenser->isJammed());
    m_binFull->setChecked(m_dispenser->isBinFull());

    auto *supply = new QWidget;
    auto *column = new QVBoxLayout(supply);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    column->addWidget(m_plug);
    column->addWidget(m_cards);
    column->addLayout(formRow({m_jammed, m_binFull}));
    column->addWidget(m_take);
    column->addStretch(1);

    connect(m_plug, &QCheckBox::toggled, m_dispenser, &SimulatedDispenser::setConnected);
    connect(m_cards, QOverload<int>::of(&QSpinBox::valueChanged), m_dispenser,
            &SimulatedDispenser::setCards);
    connect(m_jammed, &QCheckBox::toggled, m_dispenser, &SimulatedDispenser::setJammed);
    connect(m_dispenser, &SimulatedDispenser::jammedChanged, m_jammed, &QCheckBox::setChecked);
    connect(m_binFull, &QCheckBox::toggled, m_dispenser, &SimulatedDispenser::setBinFull);
    connect(m_dispenser, &SimulatedDispenser::binFullChanged, m_binFull, &QCheckBox::setChecked);
    connect(m_take, &QPushButton::clicked, m_dispenser, &SimulatedDispenser::takeCard);
    return supply;
}

QWidget *DispenserPanel::createStatusWord()
{
    m_bits->setObjectName(QStringLiteral("bits"));
    const QStringList names = StateNames::dispenserBits();
    for (int bit = 0; bit < BitCount; ++bit) {
        const QString name = names.at(bit).isEmpty() ? tr("no meaning") : names.at(bit);
        auto *item = new QListWidgetItem(name, m_bits);
        item->setToolTip(hex(1 << bit));
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Unchecked);
    }
    m_bits->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // As high as the column beside it.
    m_bits->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    m_report->setObjectName(QStringLiteral("report"));

    auto *word = new QWidget;
    auto *column = new QVBoxLayout(word);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    column->addWidget(m_bits, 1);
    column->addWidget(m_report);

    connect(m_bits, &QListWidget::itemChanged, this, &DispenserPanel::showChosen);
    connect(m_report, &QPushButton::clicked, m_dispenser,
            [this] { m_dispenser->injectStatus(chosenWord()); });
    return word;
}

void DispenserPanel::showStatus()
{
    m_state->setWholeText(wordText(m_dispenser->status()));
    m_plug->setChecked(m_dispenser->isConnected());
    m_take->setEnabled((m_dispenser->status() & IDispenser::DispenseSensor) != 0);
}

void DispenserPanel::showCards()
{
    const QSignalBlocker blocker(m_cards);
    m_cards->setValue(m_dispenser->cards());
}

void DispenserPanel::showChosen() { m_report->setText(tr("Report %1").arg(hex(chosenWord()))); }

unsigned short DispenserPanel::chosenWord() const
{
    int word = 0;
    for (int bit = 0; bit < BitCount; ++bit) {
        if (m_bits->item(bit)->checkState() == Qt::Checked)
            word |= 1 << bit;
    }
    return static_cast<unsigned short>(word);
}

} // namespace simulator
