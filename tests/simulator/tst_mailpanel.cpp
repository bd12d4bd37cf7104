#include "simulator/app/MailPanel.h"

#include "simulator/core/Outbox.h"
#include "tests/simulator/PanelControls.h"
#include "tests/support/TestCase.h"

#include <QListWidget>
#include <QPlainTextEdit>
#include <QThread>

#include <memory>

using namespace simulator;

class MailPanelTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void choosesTheAnswer_data();
    void choosesTheAnswer();
    void refusesWithAnErrorOfOnesOwn();
    void anOwnErrorMayBeACommonOne();
    void followsTheServer();
    void listsMails();
    void showsTheChosenMail();
    void theChosenMailStaysChosen();
    void forgetsMails();
    void listsMailsSentOnAnotherThread();

protected:
    void setUp() override
    {
        Outbox::instance().setPace(Pace());
        Outbox::instance().setTransferTime(0);
        Outbox::instance().accept();
        Outbox::instance().clear();
        m_panel = std::make_unique<MailPanel>();
        m_panel->resize(400, 160);
        m_panel->grab(); // lays it out
    }
    void tearDown() override { m_panel.reset(); }

private:
    /// What the server answers: "taken", or the error.
    QString send(const QString &subject = QStringLiteral("Hi"))
    {
        int code = 0;
        QString text;
        const Mail mail{QStringLiteral("robot@example.com"),
                        QStringLiteral("anna@example.com"),
                        subject,
                        QStringLiteral("Dear Anna"),
                        {QStringLiteral("/a.png"), QStringLiteral("/b.png")}};
        return Outbox::instance().take(mail, code, text)
            ? QStringLiteral("taken")
            : QStringLiteral("%1 %2").arg(code).arg(text);
    }
    QListWidget *mails() const { return controls::find<QListWidget>(m_panel.get(), "mails"); }
    QString shownMail() const
    {
        return controls::find<QPlainTextEdit>(m_panel.get(), "mail")->toPlainText();
    }
    QString answer() const
    {
        return controls::find<QComboBox>(m_panel.get(), "answer")->currentText();
    }
    void clickMail(int row) const
    {
        QTest::mouseClick(mails()->viewport(), Qt::LeftButton, Qt::NoModifier,
                          mails()->visualItemRect(mails()->item(row)).center());
    }

    std::unique_ptr<MailPanel> m_panel;
};

void MailPanelTest::choosesTheAnswer_data()
{
    QTest::addColumn<int>("choice");
    QTest::addColumn<QString>("answer");
    QTest::newRow("taken") << 0 << "taken";
    QTest::newRow("535") << 1 << "535 Authentication failed";
    QTest::newRow("550") << 2 << "550 No such user";
}

void MailPanelTest::choosesTheAnswer()
{
    QFETCH(int, choice);
    Outbox::instance().refuse(1, QStringLiteral("other"));
    controls::choose(m_panel.get(), "answer", choice);
    QTEST(send(), "answer");
    QVERIFY(!controls::find<QSpinBox>(m_panel.get(), "code")->isEnabled());
}

void MailPanelTest::refusesWithAnErrorOfOnesOwn()
{
    controls::choose(m_panel.get(), "answer", 3);
    controls::enter(m_panel.get(), "code", 452);
    controls::type(m_panel.get(), "text", QStringLiteral("Full"));
    QCOMPARE(send(), QStringLiteral("452 Full"));
    QCOMPARE(mails()->count(), 0);
}

void MailPanelTest::anOwnErrorMayBeACommonOne()
{
    controls::choose(m_panel.get(), "answer", 3); // over 550, whose error it keeps
    QCOMPARE(send(), QStringLiteral("550 No such user"));
    QVERIFY(answer().contains(QStringLiteral("own")));
    QVERIFY(controls::find<QSpinBox>(m_panel.get(), "code")->isEnabled());
}

void MailPanelTest::followsTheServer()
{
    QCOMPARE(answer(), QStringLiteral("takes every mail"));
    Outbox::instance().refuse(535, QStringLiteral("Authentication failed"));
    QCOMPARE(answer(), QStringLiteral("refuses: 535 Authentication failed"));
    Outbox::instance().refuse(500, QStringLiteral("What?"));
    QVERIFY(answer().contains(QStringLiteral("own")));
    QCOMPARE(controls::find<QSpinBox>(m_panel.get(), "code")->value(), 500);
    QCOMPARE(controls::find<QLineEdit>(m_panel.get(), "text")->text(), QStringLiteral("What?"));
    Outbox::instance().accept();
    QCOMPARE(answer(), QStringLiteral("takes every mail"));
    QCOMPARE(send(), QStringLiteral("taken")); // showing it refused nothing
}

void MailPanelTest::listsMails()
{
    send(QStringLiteral("one"));
    send(QStringLiteral("two"));
    QCOMPARE(mails()->count(), 2);
    QCOMPARE(mails()->item(0)->text(), QStringLiteral("anna@example.com\none"));
    QCOMPARE(mails()->item(1)->text(), QStringLiteral("anna@example.com\ntwo"));
}

void MailPanelTest::showsTheChosenMail()
{
    send(QStringLiteral("one"));
    send(QStringLiteral("two"));
    QVERIFY(shownMail().isEmpty());
    clickMail(0);
    QCOMPARE(shownMail(),
             QStringLiteral("From: robot@example.com\nTo: anna@example.com\nSubject: one\n"
                            "Attachment: /a.png\nAttachment: /b.png\n\nDear Anna"));
    clickMail(1);
    QVERIFY(shownMail().contains(QStringLiteral("Subject: two")));
}

void MailPanelTest::theChosenMailStaysChosen()
{
    send(QStringLiteral("first"));
    send(QStringLiteral("chosen"));
    clickMail(1);
    for (int i = 0; i < 99; ++i) // the list keeps a hundred
        send();
    QCOMPARE(mails()->currentItem()->text(), QStringLiteral("anna@example.com\nchosen"));
    QCOMPARE(mails()->currentRow(), 0);
    QVERIFY(shownMail().contains(QStringLiteral("Subject: chosen")));
    send();
    QVERIFY(!mails()->currentItem());
    QVERIFY(shownMail().isEmpty());
}

void MailPanelTest::forgetsMails()
{
    send();
    clickMail(0);
    controls::click(m_panel.get(), "Forget all");
    QVERIFY(Outbox::instance().mails().isEmpty());
    QCOMPARE(mails()->count(), 0);
    QVERIFY(shownMail().isEmpty());
}

void MailPanelTest::listsMailsSentOnAnotherThread()
{
    const std::unique_ptr<QThread> thread(QThread::create([this] { send(); }));
    thread->start();
    QVERIFY(thread->wait(10000));
    QCOMPARE(mails()->count(), 0); // not on that thread
    QTRY_COMPARE(mails()->count(), 1);
}

QTEST_MAIN(MailPanelTest)

#include "tst_mailpanel.moc"
