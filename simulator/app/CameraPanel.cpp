#include "simulator/app/CameraPanel.h"

#include "simulator/app/CameraView.h"
#include "simulator/app/FormRow.h"
#include "simulator/core/RobotCore.h"
#include "simulator/core/SimulatedCamera.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include <limits>

namespace simulator {

CameraPanel::CameraPanel(RobotCore *core, QWidget *parent)
    : QWidget(parent)
    , m_camera(core->camera())
    , m_id(new QSpinBox)
{
    m_id->setMaximum(std::numeric_limits<int>::max());
    m_id->setSpecialValueText(tr("a stranger"));
    m_id->setPrefix(tr("id "));
    m_id->setMaximumWidth(120);
    m_id->setToolTip(tr("Who enters: somebody without an id, or the person with this id, whom the "
                        "robot may know or not"));
    QPushButton *enters = formButton(tr("Enter"));
    QPushButton *leaves = formButton(tr("Leaves"));
    leaves->setToolTip(tr("Who has been in the picture longest goes out"));
    QPushButton *allLeave = formButton(tr("All leave"));
    auto *on = new QCheckBox(tr("Camera on"));
    on->setChecked(m_camera->isOn());

    auto *controls = new QVBoxLayout;
    controls->setSpacing(6);
    const QList<QWidget *> widgets{m_id, enters, leaves, allLeave, on};
    for (QWidget *widget : widgets)
        controls->addWidget(widget);
    controls->addStretch(1);
    auto *layout = new QHBoxLayout(this);
    layout->addWidget(new CameraView(m_camera), 1);
    layout->addLayout(controls);

    connect(enters, &QPushButton::clicked, this, [this] { m_camera->enter(m_id->value()); });
    connect(leaves, &QPushButton::clicked, this, &CameraPanel::onLeaves);
    connect(allLeave, &QPushButton::clicked, m_camera, &SimulatedCamera::leaveAll);
    connect(on, &QCheckBox::toggled, m_camera, &SimulatedCamera::setOn);
}

void CameraPanel::onLeaves()
{
    const QVector<CameraPerson> people = m_camera->people();
    for (const CameraPerson &person : people) {
        if (!person.isLeaving) {
            m_camera->leave(person.track);
            return;
        }
    }
}

} // namespace simulator
