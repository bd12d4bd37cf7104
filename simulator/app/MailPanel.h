#pragma once

#include <QWidget>

class QComboBox;
class QGridLayout;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QSpinBox;

namespace simulator {

/// The mail server: whether it takes mails, and those that it took.
class MailPanel : public QWidget
{
    Q_OBJECT

public:
    explicit MailPanel(QWidget *parent = nullptr);

private:
    void addAnswer(QGridLayout *grid);
    void addMails(QGridLayout *grid);
    void onAnswerChosen(int index);
    void refuseOwn();
    void showAnswer();
    void showMails();
    void showMail();

    QComboBox *m_answer;
    QSpinBox *m_code;
    QLineEdit *m_text;
    QListWidget *m_mails;
    QPlainTextEdit *m_mail;
};

} // namespace simulator
