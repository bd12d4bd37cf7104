#pragma once

#include "simulator/core/ScanSample.h"

#include <QWidget>

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QSpinBox;

namespace simulator {

class ElidedLabel;
class SimulatedScanner;

/// A scanner, of passports or of documents: what it reads next, and how it fails.
class ScannerPanel : public QWidget
{
    Q_OBJECT

public:
    /// @p samples are the results to choose from. @p scanner is not owned and outlives the panel.
    ScannerPanel(SimulatedScanner *scanner, const QList<ScanSample> &samples,
                 QWidget *parent = nullptr);

    /// Also shows mode, brightness and resolution.
    void showOptions();

private:
    QWidget *createDevice();
    QWidget *createResult();
    QBoxLayout *createError();
    void showState();
    void showResult();
    void updateOptions();
    void onSampleChosen(int index);

    SimulatedScanner *m_scanner;
    QList<ScanSample> m_samples;
    ElidedLabel *m_state;
    QCheckBox *m_plug;
    QCheckBox *m_document;
    QLabel *m_options;
    QComboBox *m_sample;
    QPlainTextEdit *m_fields;
    QSpinBox *m_code;
    QLineEdit *m_text;
};

} // namespace simulator
