#pragma once

#include <QWidget>

class QComboBox;
class QFormLayout;
class QLineEdit;

namespace simulator {

class RobotCore;
class RobotScreen;

/// What the robot itself does: it speaks, drives, runs scripts.
class RobotEventsPanel : public QWidget
{
    Q_OBJECT

public:
    /// Neither is owned; both outlive the panel.
    RobotEventsPanel(RobotCore *core, RobotScreen *screen, QWidget *parent = nullptr);

private:
    void addSpeech(QFormLayout *form);
    void addDrive(QFormLayout *form);
    void addScript(QFormLayout *form);
    void onLineEnds();
    void onScriptEnds();

    RobotCore *m_core;
    RobotScreen *m_screen;
    QLineEdit *m_line;
    QComboBox *m_mode;
    QComboBox *m_movement;
    QComboBox *m_charger;
    QComboBox *m_script;
};

} // namespace simulator
