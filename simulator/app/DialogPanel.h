#pragma once

#include <QWidget>

class QComboBox;
class QFormLayout;
class QLineEdit;
class QPushButton;

namespace simulator {

class RobotCore;

/// Questions of the dialog engine, the operator and the interaction.
class DialogPanel : public QWidget
{
    Q_OBJECT

public:
    /// @p core is not owned and outlives the panel.
    explicit DialogPanel(RobotCore *core, QWidget *parent = nullptr);

private:
    void addQuestion(QFormLayout *form);
    void addOperator(QFormLayout *form);
    void addInteraction(QFormLayout *form);
    void onAsk();
    void onRespond();

    RobotCore *m_core;
    QLineEdit *m_question;
    QLineEdit *m_answers;
    QComboBox *m_response;
    QPushButton *m_control;
    QComboBox *m_reason;
};

} // namespace simulator
