#include "simulator/app/MailPanel.h"

#include "simulator/app/FormRow.h"
#include "simulator/core/Outbox.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>

namespace simulator {

namespace {

/// What a mail server answers often.
struct Refusal
{
    int code;
    const char *text;
};

const Refusal refusals[] = {{535, "Authentication failed"}, {550, "No such user"}};
const int RefusalCount = sizeof refusals / sizeof refusals[0];

// The choices: mails are taken, then the refusals, then an error of one's own.
const int Taken = 0;
const int Own = RefusalCount + 1;

int choiceOf(int code, const QString &text)
{
    for (int i = 0; i < RefusalCount; ++i) {
        if (refusals[i].code == code && text == QLatin1String(refusals[i].text))
            return i + 1;
    }
    return Own;
}

} // namespace

MailPanel::MailPanel(QWidget *parent)
    : QWidget(parent)
    , m_answer(new QComboBox)
    , m_code(formNumber(0, 9999))
    , m_text(new QLineEdit)
    , m_mails(new QListWidget)
    , m_mail(new QPlainTextEdit)
{
    QGridLayout *grid = formGrid(this);
    addAnswer(grid);
    addMails(grid);

    // The server reports on the threads that send; the panel hears of it on its own.
    const Outbox *outbox = &Outbox::instance();
    connect(outbox, &Outbox::answerChanged, this, &MailPanel::showAnswer);
    connect(outbox, &Outbox::taken, this, &MailPanel::showMails);
    connect(outbox, &Outbox::cleared, this, &MailPanel::showMails);
    showAnswer();
    showMails();
}

void MailPanel::addAnswer(QGridLayout *grid)
{
    m_answer->setObjectName(QStringLiteral("answer"));
    m_answer->addItem(tr("takes every mail"));
    for (const Refusal &refusal : refusals)
        m_answer->addItem(tr("refuses: %1 %2").arg(refusal.code).arg(QLatin1String(refusal.text)));
    m_answer->addItem(tr("refuses: an error of your own"));
    m_answer->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_code->setObjectName(QStringLiteral("code"));
    m_code->setValue(421);
    m_text->setText(tr("Try again later"));
    m_text->setObjectName(QStringLiteral("text"));
    grid->addWidget(new QLabel(tr("Server")), 0, 0);
    grid->addWidget(m_answer, 0, 1);
    grid->addWidget(new QLabel(tr("Error")), 1, 0);
    grid->addLayout(formRow({m_text, m_code}), 1, 1);

    connect(m_answer, QOverload<int>::of(&QComboBox::activated), this, &MailPanel::onAnswerChosen);
    connect(m_code, QOverload<int>::of(&QSpinBox::valueChanged), this, &MailPanel::refuseOwn);
    connect(m_text, &QLineEdit::textEdited, this, &MailPanel::refuseOwn);
}

void MailPanel::addMails(QGridLayout *grid)
{
    m_mails->setObjectName(QStringLiteral("mails"));
    m_mails->setTextElideMode(Qt::ElideRight);
    m_mails->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_mails->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    m_mail->setObjectName(QStringLiteral("mail"));
    m_mail->setReadOnly(true);
    m_mail->setPlaceholderText(tr("Choose a mail to read it."));
    m_mail->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    QPushButton *clear = formButton(tr("Forget all"));
    auto *reading = new QVBoxLayout;
    reading->setSpacing(4);
    reading->addWidget(m_mail, 1);
    reading->addWidget(clear);
    auto *mails = new QHBoxLayout;
    mails->setSpacing(6);
    mails->addWidget(m_mails, 1);
    mails->addLayout(reading, 1);
    grid->addLayout(mails, 2, 0, 1, 2);
    grid->setRowStretch(2, 1);

    connect(clear, &QPushButton::clicked, this, [] { Outbox::instance().clear(); });
    connect(m_mails, &QListWidget::currentRowChanged, this, &MailPanel::showMail);
}

void MailPanel::onAnswerChosen(int index)
{
    if (index == Taken)
        Outbox::instance().accept();
    else if (index < Own)
        Outbox::instance().refuse(refusals[index - 1].code,
                                  QString::fromLatin1(refusals[index - 1].text));
    else
        refuseOwn();
}

void MailPanel::refuseOwn() { Outbox::instance().refuse(m_code->value(), m_text->text()); }

void MailPanel::showAnswer()
{
    int code = m_code->value();
    QString text = m_text->text();
    const bool refusing = Outbox::instance().isRefusing(code, text);
    const bool isTyped = code == m_code->value() && text == m_text->text();
    // An error of one's own may happen to be a common one.
    if (!refusing)
        m_answer->setCurrentIndex(Taken);
    else if (!isTyped || m_answer->currentIndex() != Own)
        m_answer->setCurrentIndex(choiceOf(code, text));

    const QSignalBlocker blocker(m_code);
    m_code->setValue(code);
    if (!isTyped)
        m_text->setText(text);
    m_code->setEnabled(m_answer->currentIndex() == Own);
    m_text->setEnabled(m_answer->currentIndex() == Own);
}

// The chosen mail stays chosen.
void MailPanel::showMails()
{
    const QListWidgetItem *chosen = m_mails->currentItem();
    const int number = chosen ? chosen->data(Qt::UserRole).toInt() : 0;
    const QList<Mail> mails = Outbox::instance().mails();
    {
        const QSignalBlocker blocker(m_mails);
        m_mails->clear();
        for (const Mail &mail : mails) {
            auto *item =
                new QListWidgetItem(QStringLiteral("%1\n%2").arg(mail.to, mail.subject), m_mails);
            item->setData(Qt::UserRole, mail.number);
            if (mail.number == number)
                m_mails->setCurrentItem(item);
        }
    }
    if (!m_mails->currentItem())
        m_mails->scrollToBottom();
    showMail();
}

void MailPanel::showMail()
{
    const QListWidgetItem *chosen = m_mails->currentItem();
    const int number = chosen ? chosen->data(Qt::UserRole).toInt() : 0;
    QString text;
    const QList<Mail> mails = Outbox::instance().mails();
    for (const Mail &mail : mails) {
        if (mail.number != number)
            continue;
        text = tr("From: %1\nTo: %2\nSubject: %3\n").arg(mail.from, mail.to, mail.subject);
        for (const QString &file : mail.files)
            text += tr("Attachment: %1\n").arg(file);
        text += QLatin1Char('\n') + mail.body;
    }
    m_mail->setPlainText(text);
}

} // namespace simulator
