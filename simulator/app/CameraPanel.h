#pragma once

#include <QWidget>

class QSpinBox;

namespace simulator {

class RobotCore;
class SimulatedCamera;

/// What the camera sees, and who enters and leaves the picture.
class CameraPanel : public QWidget
{
    Q_OBJECT

public:
    /// @p core is not owned and outlives the panel.
    explicit CameraPanel(RobotCore *core, QWidget *parent = nullptr);

private:
    void onLeaves();

    SimulatedCamera *m_camera;
    QSpinBox *m_id;
};

} // namespace simulator
