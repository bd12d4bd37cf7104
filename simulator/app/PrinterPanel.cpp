#include "simulator/app/PrinterPanel.h"

#include "simulator/app/ElidedLabel.h"
#include "simulator/app/FormRow.h"
#include "simulator/app/StateNames.h"
#include "simulator/core/SimulatedPrinter.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>

namespace simulator {

namespace {

const QSize PictureSize(100, 56);

} // namespace

PrinterPanel::PrinterPanel(SimulatedPrinter *printer, QWidget *parent)
    : QWidget(parent)
    , m_printer(printer)
    , m_state(new ElidedLabel)
    , m_plug(formPlug())
    , m_paper(formNumber(0, 999))
    , m_lowPaper(formNumber(0, 999))
    , m_code(formNumber(0, 9999))
    , m_text(new QLineEdit(tr("The cover is open")))
    , m_refusing(new QCheckBox(tr("Refuses all")))
    , m_count(new QLabel)
    , m_picture(new QLabel(tr("no picture")))
{
    QGridLayout *grid = formGrid(this);
    addState(grid);
    addPaper(grid);
    addError(grid);
    addPrints(grid);
    grid->setRowStretch(grid->rowCount(), 1);
    showState();
    showPaper();
    showPrints();
}

void PrinterPanel::addState(QGridLayout *grid)
{
    m_state->setObjectName(QStringLiteral("state"));
    grid->addWidget(new QLabel(tr("State")), 0, 0);
    grid->addLayout(formRow({m_state, m_plug}), 0, 1, 1, 2);

    connect(m_plug, &QCheckBox::toggled, m_printer, &SimulatedPrinter::setConnected);
    connect(m_printer, &IPrinter::signalState, this, &PrinterPanel::showState);
}

void PrinterPanel::addPaper(QGridLayout *grid)
{
    m_paper->setObjectName(QStringLiteral("paper"));
    m_paper->setToolTip(tr("Sheets in the tray"));
    m_lowPaper->setObjectName(QStringLiteral("lowPaper"));
    m_lowPaper->setToolTip(tr("From this number of sheets on, paper is low"));
    grid->addWidget(new QLabel(tr("Paper")), 1, 0);
    grid->addLayout(formRow({m_paper, new QLabel(tr("low from")), m_lowPaper}), 1, 1, 1, 2);

    connect(m_paper, QOverload<int>::of(&QSpinBox::valueChanged), m_printer,
            &SimulatedPrinter::setPaper);
    connect(m_lowPaper, QOverload<int>::of(&QSpinBox::valueChanged), m_printer,
            &SimulatedPrinter::setLowPaper);
    connect(m_printer, &SimulatedPrinter::paperChanged, this, &PrinterPanel::showPaper);
    connect(m_printer, &SimulatedPrinter::lowPaperChanged, this, &PrinterPanel::showPaper);
}

void PrinterPanel::addError(QGridLayout *grid)
{
    m_code->setObjectName(QStringLiteral("code"));
    m_code->setValue(7);
    m_code->setToolTip(tr("1 is no paper, 2 low paper, any other number a general error"));
    m_text->setObjectName(QStringLiteral("text"));
    QPushButton *report = formButton(tr("Report"));
    QPushButton *clear = formButton(tr("Clear"));
    grid->addWidget(new QLabel(tr("Error")), 2, 0);
    grid->addLayout(formRow({m_text, m_code}), 2, 1, 1, 2);
    auto *buttons = formRow({report, clear});
    buttons->setStretch(1, 1);
    grid->addLayout(buttons, 3, 1);

    connect(report, &QPushButton::clicked, m_printer,
            [this] { m_printer->injectError(m_code->value(), m_text->text()); });
    connect(clear, &QPushButton::clicked, m_printer, &SimulatedPrinter::clearError);
}

void PrinterPanel::addPrints(QGridLayout *grid)
{
    m_refusing->setToolTip(tr("It takes no picture, as if it could not print it"));
    m_count->setObjectName(QStringLiteral("count"));
    m_picture->setObjectName(QStringLiteral("picture"));
    m_picture->setFixedSize(PictureSize);
    m_picture->setFrameShape(QFrame::StyledPanel);
    m_picture->setAlignment(Qt::AlignCenter);
    m_picture->setToolTip(tr("What was printed last"));
    grid->addWidget(new QLabel(tr("Prints")), 4, 0);
    grid->addLayout(formRow({m_count, m_refusing}), 4, 1);
    grid->addWidget(m_picture, 3, 2, 2, 1);

    connect(m_refusing, &QCheckBox::toggled, m_printer, &SimulatedPrinter::setRefusing);
    connect(m_printer, &SimulatedPrinter::refusingChanged, m_refusing, &QCheckBox::setChecked);
    connect(m_printer, &SimulatedPrinter::printed, this, &PrinterPanel::showPrints);
    m_refusing->setChecked(m_printer->isRefusing());
}

void PrinterPanel::showState()
{
    QString text =
        StateNames::name(StateNames::printerStates(), static_cast<int>(m_printer->state()));
    if (m_printer->state() == PrinterState::Error)
        text += QStringLiteral(" %1: %2").arg(m_printer->errorCode()).arg(m_printer->errorText());
    m_state->setWholeText(text);
    m_plug->setChecked(m_printer->isConnected());
}

void PrinterPanel::showPaper()
{
    const QSignalBlocker paperBlocker(m_paper);
    const QSignalBlocker lowPaperBlocker(m_lowPaper);
    m_paper->setValue(m_printer->paper());
    m_lowPaper->setValue(m_printer->lowPaper());
}

void PrinterPanel::showPrints()
{
    m_count->setText(QString::number(m_printer->printCount()));
    if (m_printer->prints().isEmpty())
        return;
    QPixmap picture;
    // The printer takes what only begins like a picture, too.
    if (picture.loadFromData(m_printer->prints().constLast(), "PNG"))
        m_picture->setPixmap(picture.scaled(m_picture->contentsRect().size(), Qt::KeepAspectRatio,
                                            Qt::SmoothTransformation));
    else
        m_picture->setText(tr("unreadable"));
}

} // namespace simulator
