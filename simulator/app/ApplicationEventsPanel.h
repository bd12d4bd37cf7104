#pragma once

#include <QWidget>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;

namespace simulator {

class RobotScreen;

/// Events of the robot's applications: custom ones, settings, the end of an application.
class ApplicationEventsPanel : public QWidget
{
    Q_OBJECT

public:
    /// @p screen is not owned and outlives the panel.
    explicit ApplicationEventsPanel(RobotScreen *screen, QWidget *parent = nullptr);

private:
    void onCustomEvent();
    void onFinish();

    RobotScreen *m_screen;
    QLineEdit *m_custom;
    QLabel *m_mistake;
    QLineEdit *m_name;
    QComboBox *m_status;
    QLineEdit *m_result;
    QCheckBox *m_close;
};

} // namespace simulator
