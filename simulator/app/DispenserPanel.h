#pragma once

#include <QWidget>

class QCheckBox;
class QListWidget;
class QPushButton;
class QSpinBox;

namespace simulator {

class ElidedLabel;
class SimulatedDispenser;

/// The card dispenser: its cards, and any status word that it can report.
class DispenserPanel : public QWidget
{
    Q_OBJECT

public:
    /// @p dispenser is not owned and outlives the panel.
    explicit DispenserPanel(SimulatedDispenser *dispenser, QWidget *parent = nullptr);

private:
    QWidget *createSupply();
    QWidget *createStatusWord();
    void showStatus();
    void showCards();
    void showChosen();
    unsigned short chosenWord() const;

    SimulatedDispenser *m_dispenser;
    ElidedLabel *m_state;
    QCheckBox *m_plug;
    QSpinBox *m_cards;
    QCheckBox *m_jammed;
    QCheckBox *m_binFull;
    QPushButton *m_take;
    QListWidget *m_bits;
    QPushButton *m_report;
};

} // namespace simulator
