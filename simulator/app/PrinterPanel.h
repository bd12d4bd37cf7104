#pragma once

#include <QWidget>

class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QSpinBox;

namespace simulator {

class ElidedLabel;
class SimulatedPrinter;

/// The badge printer: its paper, its errors and what it printed last.
class PrinterPanel : public QWidget
{
    Q_OBJECT

public:
    /// @p printer is not owned and outlives the panel.
    explicit PrinterPanel(SimulatedPrinter *printer, QWidget *parent = nullptr);

private:
    void addState(QGridLayout *grid);
    void addPaper(QGridLayout *grid);
    void addError(QGridLayout *grid);
    void addPrints(QGridLayout *grid);
    void showState();
    void showPaper();
    void showPrints();

    SimulatedPrinter *m_printer;
    ElidedLabel *m_state;
    QCheckBox *m_plug;
    QSpinBox *m_paper;
    QSpinBox *m_lowPaper;
    QSpinBox *m_code;
    QLineEdit *m_text;
    QCheckBox *m_refusing;
    QLabel *m_count;
    QLabel *m_picture;
};

} // namespace simulator
