#pragma once

#include <QWidget>

class QCheckBox;
class QLineEdit;
class QSpinBox;

namespace simulator {

class RobotCore;
class RobotScreen;

/// What a person in front of the robot does.
class VisitorEventsPanel : public QWidget
{
    Q_OBJECT

public:
    /// Neither is owned; both outlive the panel.
    VisitorEventsPanel(RobotCore *core, RobotScreen *screen, QWidget *parent = nullptr);

private:
    void onComes();
    void onLeaves();
    void onSaid();
    void onActs();

    RobotCore *m_core;
    RobotScreen *m_screen;
    QLineEdit *m_name;
    QSpinBox *m_id;
    QLineEdit *m_speech;
    QCheckBox *m_final;
    QLineEdit *m_action;
    QSpinBox *m_face;
    QSpinBox *m_trainStep;
};

} // namespace simulator
