#pragma once

#include <QGroupBox>

class QGridLayout;

namespace simulator {

class ElidedLabel;
class RobotCore;

/// What the robot is asked to do, as it stands now.
class StatePanel : public QGroupBox
{
    Q_OBJECT

public:
    /// @p core is not owned and outlives the panel.
    explicit StatePanel(RobotCore *core, QWidget *parent = nullptr);

private:
    ElidedLabel *addState(const QString &name, int row, int column);
    void followDialog();
    void followMovement();
    void followServices();
    void showDrive();
    void showOperator();

    RobotCore *m_core;
    QGridLayout *m_layout;
    ElidedLabel *m_speech;
    ElidedLabel *m_question;
    ElidedLabel *m_drive;
    ElidedLabel *m_charger;
    ElidedLabel *m_script;
    ElidedLabel *m_language;
    ElidedLabel *m_operator;
    ElidedLabel *m_interaction;
};

} // namespace simulator
