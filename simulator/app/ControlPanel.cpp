#include "simulator/app/ControlPanel.h"

#include "simulator/app/ApplicationEventsPanel.h"
#include "simulator/app/CameraPanel.h"
#include "simulator/app/DevicesPanel.h"
#include "simulator/app/DialogPanel.h"
#include "simulator/app/MessageLogView.h"
#include "simulator/app/RobotEventsPanel.h"
#include "simulator/app/SettingsPanel.h"
#include "simulator/app/StatePanel.h"
#include "simulator/app/VisitorEventsPanel.h"
#include "simulator/core/RobotCore.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QTabWidget>
#include <QVBoxLayout>

namespace simulator {

namespace {

QGroupBox *group(const QString &title, QWidget *content)
{
    auto *box = new QGroupBox(title);
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(content);
    return box;
}

} // namespace

ControlPanel::ControlPanel(RobotCore *core, RobotScreen *screen, MessageLog *log, QWidget *parent)
    : QWidget(parent)
{
    auto *tabs = new QTabWidget;
    tabs->addTab(new VisitorEventsPanel(core, screen), tr("Person"));
    tabs->addTab(new RobotEventsPanel(core, screen), tr("Robot"));
    tabs->addTab(new DialogPanel(core), tr("Dialog"));
    tabs->addTab(new ApplicationEventsPanel(screen), tr("App"));
    for (int i = 0; i < tabs->count(); ++i) {
        auto *form = qobject_cast<QFormLayout *>(tabs->widget(i)->layout());
        form->setHorizontalSpacing(8);
        form->setVerticalSpacing(6);
        form->setLabelAlignment(Qt::AlignLeft);
        form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    }
    tabs->insertTab(1, new CameraPanel(core), tr("Camera"));
    auto *devices = new DevicesPanel(core->devices());
    devices->add(tr("Settings"), new SettingsPanel(core->plugin()));
    tabs->insertTab(4, devices, tr("Devices"));

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(8);
    layout->addWidget(new StatePanel(core));
    layout->addWidget(group(tr("Robot events"), tabs));
    layout->addWidget(group(tr("Messages"), new MessageLogView(log)), 1);
}

} // namespace simulator
