#include "simulator/app/ScannerPanel.h"

#include "simulator/app/ElidedLabel.h"
#include "simulator/app/FormRow.h"
#include "simulator/app/ScanFields.h"
#include "simulator/app/StateNames.h"
#include "simulator/core/SimulatedScanner.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>

namespace simulator {

ScannerPanel::ScannerPanel(SimulatedScanner *scanner, const QList<ScanSample> &samples,
                           QWidget *parent)
    : QWidget(parent)
    , m_scanner(scanner)
    , m_samples(samples)
    , m_state(new ElidedLabel)
    , m_plug(formPlug())
    , m_document(new QCheckBox(tr("Document")))
    , m_options(new QLabel)
    , m_sample(new QComboBox)
    , m_fields(new QPlainTextEdit)
    , m_code(formNumber(0, 9999))
    , m_text(new QLineEdit(tr("The lamp is broken")))
{
    m_state->setObjectName(QStringLiteral("state"));
    auto *state = new QHBoxLayout;
    state->setSpacing(6);
    state->addWidget(new QLabel(tr("State")));
    state->addWidget(m_state, 1);
    QGridLayout *grid = formGrid(this);
    grid->addLayout(state, 0, 0, 1, 2);
    grid->addWidget(createDevice(), 1, 0);
    grid->addWidget(createResult(), 1, 1);
    grid->addLayout(createError(), 2, 0, 1, 2);
    grid->setRowStretch(1, 1);

    connect(m_scanner, &IScanner::signalState, this, &ScannerPanel::showState);
    connect(m_scanner, &IScanner::signalProgress, this, &ScannerPanel::showState);
    connect(m_scanner, &SimulatedScanner::resultChanged, this, &ScannerPanel::showResult);
    showState();
    showResult();
}

void ScannerPanel::showOptions()
{
    connect(m_scanner, &SimulatedScanner::optionsChanged, this, &ScannerPanel::updateOptions);
    m_options->show();
    updateOptions();
}

QWidget *ScannerPanel::createDevice()
{
    m_document->setToolTip(tr("Whether a document lies on the scanner"));
    m_document->setChecked(m_scanner->isDocumentPresent());
    m_options->setObjectName(QStringLiteral("options"));
    m_options->setToolTip(tr("What the page asked for last"));
    m_options->hide();

    auto *device = new QWidget;
    auto *column = new QVBoxLayout(device);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    const QList<QWidget *> widgets{m_plug, m_document, m_options};
    for (QWidget *widget : widgets)
        column->addWidget(widget);
    column->addStretch(1);

    connect(m_plug, &QCheckBox::toggled, m_scanner, &SimulatedScanner::setConnected);
    connect(m_document, &QCheckBox::toggled, m_scanner, &SimulatedScanner::setDocumentPresent);
    connect(m_scanner, &SimulatedScanner::documentPresentChanged, m_document,
            &QCheckBox::setChecked);
    return device;
}

QWidget *ScannerPanel::createResult()
{
    m_sample->setObjectName(QStringLiteral("sample"));
    m_sample->setToolTip(tr("What the next scans read"));
    for (const ScanSample &sample : qAsConst(m_samples))
        m_sample->addItem(sample.name);
    m_sample->addItem(tr("Own fields"));
    m_fields->setObjectName(QStringLiteral("fields"));
    m_fields->setToolTip(tr("What the next scans read: a line “name: text” for each field"));
    m_fields->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_fields->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    m_fields->setTabChangesFocus(true);

    auto *result = new QWidget;
    auto *column = new QVBoxLayout(result);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    column->addWidget(m_sample);
    column->addWidget(m_fields, 1);

    connect(m_sample, QOverload<int>::of(&QComboBox::activated), this,
            &ScannerPanel::onSampleChosen);
    connect(m_fields, &QPlainTextEdit::textChanged, m_scanner,
            [this] { m_scanner->setResult(ScanFields::fromText(m_fields->toPlainText())); });
    return result;
}

QBoxLayout *ScannerPanel::createError()
{
    m_code->setObjectName(QStringLiteral("code"));
    m_code->setValue(5);
    m_text->setObjectName(QStringLiteral("text"));
    QPushButton *report = formButton(tr("Report"));
    connect(report, &QPushButton::clicked, m_scanner,
            [this] { m_scanner->injectError(m_code->value(), m_text->text()); });

    auto *row = formRow({m_text, m_code, report});
    row->insertWidget(0, new QLabel(tr("Error")));
    return row;
}

void ScannerPanel::showState()
{
    const ScannerState state = m_scanner->state();
    QString text = StateNames::name(StateNames::scannerStates(), state);
    if (state == ScannerStateScanning || state == ScannerStateRecognizing)
        text += tr(", %1 %").arg(m_scanner->progress());
    m_state->setWholeText(text);
    m_plug->setChecked(m_scanner->isConnected());
}

void ScannerPanel::showResult()
{
    const QMap<QString, QString> result = m_scanner->result();
    int index = 0;
    while (index < m_samples.size() && m_samples.at(index).fields != result)
        ++index;
    m_sample->setCurrentIndex(index); // after the last sample: own fields

    // Whoever types keeps the text that is typed.
    if (ScanFields::fromText(m_fields->toPlainText()) == result)
        return;
    const QSignalBlocker blocker(m_fields);
    m_fields->setPlainText(ScanFields::toText(result));
}

void ScannerPanel::updateOptions()
{
    m_options->setText(tr("Mode %1, %2 dpi\nBrightness %3")
                           .arg(m_scanner->mode())
                           .arg(m_scanner->resolution())
                           .arg(m_scanner->brightness()));
}

void ScannerPanel::onSampleChosen(int index)
{
    if (index < m_samples.size())
        m_scanner->setResult(m_samples.at(index).fields);
    else
        m_fields->setFocus();
}

} // namespace simulator
