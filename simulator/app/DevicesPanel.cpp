#include "simulator/app/DevicesPanel.h"

#include "simulator/app/DispenserPanel.h"
#include "simulator/app/KeyboardPanel.h"
#include "simulator/app/MailPanel.h"
#include "simulator/app/PrinterPanel.h"
#include "simulator/app/ScannerPanel.h"
#include "simulator/app/SoundPanel.h"
#include "simulator/app/TelephonePanel.h"
#include "simulator/core/RobotDevices.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QStackedWidget>

namespace simulator {

namespace {

QWidget *missing(const QString &text)
{
    auto *label = new QLabel(text);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    return label;
}

} // namespace

DevicesPanel::DevicesPanel(const RobotDevices &devices, QWidget *parent)
    : QWidget(parent)
    , m_list(new QListWidget)
    , m_panels(new QStackedWidget)
{
    const auto addDevice = [this](const QString &name, auto *device, const QString &none,
                                  auto makePanel) {
        add(name, device ? static_cast<QWidget *>(makePanel(device)) : missing(none));
    };
    addDevice(tr("Printer"), devices.printer.data(), tr("This robot has no printer."),
              [](SimulatedPrinter *printer) { return new PrinterPanel(printer); });
    addDevice(tr("Dispenser"), devices.dispenser.data(), tr("This robot has no card dispenser."),
              [](SimulatedDispenser *dispenser) { return new DispenserPanel(dispenser); });
    addDevice(tr("Passports"), devices.passportScanner.data(),
              tr("This robot has no passport scanner."), [](SimulatedScanner *scanner) {
                  return new ScannerPanel(scanner, ScanSample::passports());
              });
    addDevice(tr("Documents"), devices.documentScanner.data(),
              tr("This robot has no document scanner."), [](SimulatedScanner *scanner) {
                  auto *panel = new ScannerPanel(scanner, ScanSample::documents());
                  panel->showOptions();
                  return panel;
              });
    addDevice(tr("Keyboard"), devices.keyboard.data(), tr("This robot has no keyboard."),
              [](SimulatedKeyboard *keyboard) { return new KeyboardPanel(keyboard); });
    add(tr("Telephone"), new TelephonePanel);
    add(tr("Mail"), new MailPanel);
    add(tr("Sound"), new SoundPanel);

    m_list->setObjectName(QStringLiteral("devices"));
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_list->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setSpacing(8);
    layout->addWidget(m_list);
    layout->addWidget(m_panels, 1);

    connect(m_list, &QListWidget::currentRowChanged, m_panels, &QStackedWidget::setCurrentIndex);
    m_list->setCurrentRow(0);
}

void DevicesPanel::add(const QString &name, QWidget *panel)
{
    m_list->addItem(name);
    m_panels->addWidget(panel);
    m_list->setFixedWidth(m_list->sizeHintForColumn(0) + 2 * m_list->frameWidth() + 4);
}

} // namespace simulator
