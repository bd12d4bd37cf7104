#pragma once

#include <QWidget>

class QListWidget;
class QStackedWidget;

namespace simulator {

struct RobotDevices;

/// The robot's devices and services, one at a time: what each is asked to do, and how it answers.
class DevicesPanel : public QWidget
{
    Q_OBJECT

public:
    /// The devices are kept as long as the panel's owner keeps the robot, which outlives it.
    explicit DevicesPanel(const RobotDevices &devices, QWidget *parent = nullptr);

    /// One more, at the end of the list. The panel takes @p panel over.
    void add(const QString &name, QWidget *panel);

private:
    QListWidget *m_list;
    QStackedWidget *m_panels;
};

} // namespace simulator
