#pragma once

#include <QWidget>

class QCheckBox;
class QLineEdit;
class QSpinBox;

namespace simulator {

class RobotScreen;

/// What a person in front of the robot does.
class VisitorEventsPanel : public QWidget
{
    Q_OBJECT

public:
    /// @p screen is not owned and outlives the panel.
    explicit VisitorEventsPanel(RobotScreen *screen, QWidget *parent = nullptr);

private:
    void onComes();
    void onSaid();
    void onActs();

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
