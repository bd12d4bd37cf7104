#include "panorel/Constants.h"
#include "simulator/core/Outbox.h"
#include "simulator/core/TelephoneLine.h"
#include "tests/simulator/VisitTestCase.h"

#include <QSignalSpy>
#include <QTemporaryFile>

using namespace simulator;
namespace topics = panorel::constants;

/// The sample page with the robot's telephone and mail.
class CallsVisitTest : public VisitTestCase
{
    Q_OBJECT

protected:
    void setUp() override
    {
        TelephoneLine::instance().setOutcome(TelephoneLine::Outcome::Answered);
        Outbox::instance().accept();
        Outbox::instance().clear();
        VisitTestCase::setUp();
    }

private:
    void dial(const QString &number)
    {
        openDevice(QStringLiteral("telephone"));
        for (const QChar &digit : number)
            touch(QStringLiteral("[data-digit=\"%1\"]").arg(digit));
    }
    void writeMail(const QString &to)
    {
        openDevice(QStringLiteral("mail"));
        type(QStringLiteral("mail-to"), to);
        type(QStringLiteral("mail-subject"), QStringLiteral("Your visit"));
        type(QStringLiteral("mail-body"), QStringLiteral("You are welcome."));
    }
    QString newsOfMail() { return news(QStringLiteral("mail")); }
    QString newsOfPhone() { return news(QStringLiteral("phone")); }
    QString queue() { return textOf(QStringLiteral("phone-queue")); }

private Q_SLOTS:
    void aCallIsMadeAndHungUp();
    void theOtherEndPressesKeys();
    void aCallThatFailsIsTold();
    void aCallNeedsANumber();
    void aTextIsSpokenIntoACall();
    void aFileIsPlayedIntoACall();
    void aMessageThatNobodyTookIsTold();
    void theQueueIsClearedAtTheSecondTouch();
    void aRefusedMessageIsTold();
    void aMailIsSent();
    void anAttachmentGoesWithTheMail();
    void aMailThatFailsIsTold();
    void aMailNeedsAnAddress();
};

void CallsVisitTest::aCallIsMadeAndHungUp()
{
    QSignalSpy dialled(&TelephoneLine::instance(), &TelephoneLine::dialled);
    dial(QStringLiteral("0401#9"));
    touch(QStringLiteral("#phone-erase"));
    touch(QStringLiteral("#phone-call"));
    QTRY_COMPARE_WITH_TIMEOUT(newsOfPhone(), QStringLiteral("Connected"), timeoutMs);
    QCOMPARE(dialled.takeFirst().constFirst().toString(), QStringLiteral("0401#"));
    QVERIFY(shows(QStringLiteral("phone-news"), QStringLiteral("It rings…")));
    touch(QStringLiteral("#phone-stop"));
    QTRY_COMPARE_WITH_TIMEOUT(newsOfPhone(), QStringLiteral("The call has ended."), timeoutMs);
}

void CallsVisitTest::theOtherEndPressesKeys()
{
    dial(QStringLiteral("1"));
    touch(QStringLiteral("#phone-call"));
    QTRY_COMPARE_WITH_TIMEOUT(newsOfPhone(), QStringLiteral("Connected"), timeoutMs);
    for (const int tone : {4, 10, 11, 0})
        TelephoneLine::instance().pressKey(tone);
    QTRY_COMPARE_WITH_TIMEOUT(textOf(QStringLiteral("phone-tones")),
                              QStringLiteral("Keys pressed at the other end: 4 * # 0"), timeoutMs);
}

void CallsVisitTest::aCallThatFailsIsTold()
{
    TelephoneLine::instance().setOutcome(TelephoneLine::Outcome::Busy);
    dial(QStringLiteral("1"));
    touch(QStringLiteral("#phone-call"));
    QTRY_COMPARE_WITH_TIMEOUT(newsOfPhone(), QStringLiteral("The line is busy."), timeoutMs);

    TelephoneLine::instance().setOutcome(TelephoneLine::Outcome::NoAnswer);
    touch(QStringLiteral("#phone-call"));
    QTRY_COMPARE_WITH_TIMEOUT(newsOfPhone(), QStringLiteral("Nobody could be reached."), timeoutMs);

    // One line: a second call does not begin while there is one.
    TelephoneLine::instance().setOutcome(TelephoneLine::Outcome::Answered);
    touch(QStringLiteral("#phone-call"));
    QTRY_COMPARE_WITH_TIMEOUT(newsOfPhone(), QStringLiteral("Connected"), timeoutMs);
    touch(QStringLiteral("#phone-call"));
    QTRY_VERIFY_WITH_TIMEOUT(
        newsOfPhone().startsWith(QStringLiteral("The robot did not take the call.")), timeoutMs);
}

void CallsVisitTest::aCallNeedsANumber()
{
    openDevice(QStringLiteral("telephone"));
    touch(QStringLiteral("#phone-call"));
    QVERIFY(newsOfPhone().startsWith(QStringLiteral("Which number?")));
    touch(QStringLiteral("#phone-speak"));
    QVERIFY(newsOfPhone().startsWith(QStringLiteral("What shall the robot say?")));
    touch(QStringLiteral("#phone-play"));
    QVERIFY(newsOfPhone().startsWith(QStringLiteral("Which file?")));
    QCOMPARE(count(topics::SIP_CONTROL), 0);
}

void CallsVisitTest::aTextIsSpokenIntoACall()
{
    dial(QStringLiteral("22"));
    type(QStringLiteral("phone-text"), QStringLiteral("Guest at the door"));
    touch(QStringLiteral("input[name=recall][value=\"2\"]+span"));
    touch(QStringLiteral("#phone-speak"));
    QTRY_COMPARE_WITH_TIMEOUT(queue(), QStringLiteral("Delivered22: “Guest at the door”"),
                              timeoutMs);
    QCOMPARE(published(topics::SIP_CONTROL).value(QStringLiteral("play_text")).toMap(),
             (QVariantMap{{QStringLiteral("number"), QStringLiteral("22")},
                          {QStringLiteral("text"), QStringLiteral("Guest at the door")},
                          {QStringLiteral("recall_count"), 2}}));
}

void CallsVisitTest::aFileIsPlayedIntoACall()
{
    dial(QStringLiteral("33"));
    type(QStringLiteral("phone-file"), QStringLiteral("/sounds/bell.wav"));
    touch(QStringLiteral("#phone-play"));
    QTRY_COMPARE_WITH_TIMEOUT(queue(), QStringLiteral("Delivered33: file /sounds/bell.wav"),
                              timeoutMs);
    QCOMPARE(published(topics::SIP_CONTROL)
                 .value(QStringLiteral("play_file"))
                 .toMap()
                 .value(QStringLiteral("file"))
                 .toString(),
             QStringLiteral("/sounds/bell.wav"));
}

void CallsVisitTest::aMessageThatNobodyTookIsTold()
{
    TelephoneLine::instance().setOutcome(TelephoneLine::Outcome::NoAnswer);
    dial(QStringLiteral("22"));
    type(QStringLiteral("phone-text"), QStringLiteral("Hello"));
    touch(QStringLiteral("#phone-speak"));
    QTRY_COMPARE_WITH_TIMEOUT(queue(), QStringLiteral("Not delivered22: “Hello”"), timeoutMs);
}

void CallsVisitTest::theQueueIsClearedAtTheSecondTouch()
{
    core()->pace().setSpeed(0.01); // nothing is delivered meanwhile
    dial(QStringLiteral("22"));
    type(QStringLiteral("phone-text"), QStringLiteral("Hello"));
    touch(QStringLiteral("#phone-speak"));
    QTRY_COMPARE_WITH_TIMEOUT(queue(), QStringLiteral("Waiting22: “Hello”"), timeoutMs);
    touch(QStringLiteral("#phone-clear"));
    QCOMPARE(textOf(QStringLiteral("phone-clear")), QStringLiteral("Really?"));
    QCOMPARE(count(topics::SIP_CONTROL), 1);
    touch(QStringLiteral("#phone-clear"));
    QTRY_VERIFY_WITH_TIMEOUT(published(topics::SIP_CONTROL).contains(QStringLiteral("clear_queue")),
                             timeoutMs);
    QCOMPARE(queue(), QStringLiteral("Dropped22: “Hello”"));
    QCOMPARE(newsOfPhone(), QStringLiteral("The queue is cleared."));
}

void CallsVisitTest::aRefusedMessageIsTold()
{
    // This robot refuses nothing that the page sends, so the page's list is asked by itself.
    const QString shown =
        evaluate(
            QStringLiteral(
                "var list = document.createElement('ul'), queue = sample.createCallQueue(list);"
                "queue.ask('text', '1', 'first'); queue.ask('file', '2', 'second');"
                "queue.ask('text', '3', 'third');"
                "queue.accept('file', '{4f5c7c0e-0d5e-4e0a-9a3c-2f6f0c1d8a01}');"
                "queue.accept('text', '{00000000-0000-0000-0000-000000000000}');"
                "[...list.children].map(row => row.textContent).join('|')"))
            .toString();
    QCOMPARE(shown, QStringLiteral("Asking…3: “third”|Waiting2: file second|Refused1: “first”"));
}

void CallsVisitTest::aMailIsSent()
{
    writeMail(QStringLiteral("guest@example.com"));
    touch(QStringLiteral("#mail-send"));
    QTRY_COMPARE_WITH_TIMEOUT(newsOfMail(), QStringLiteral("The mail is sent."), timeoutMs);
    const QList<Mail> mails = Outbox::instance().mails();
    QCOMPARE(mails.size(), 1);
    QCOMPARE(mails.constFirst().to, QStringLiteral("guest@example.com"));
    QCOMPARE(mails.constFirst().subject, QStringLiteral("Your visit"));
    QCOMPARE(mails.constFirst().body, QStringLiteral("You are welcome."));
    QVERIFY(mails.constFirst().files.isEmpty());
}

void CallsVisitTest::anAttachmentGoesWithTheMail()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    writeMail(QStringLiteral("guest@example.com"));
    type(QStringLiteral("mail-file"), file.fileName());
    touch(QStringLiteral("#mail-send"));
    QTRY_COMPARE_WITH_TIMEOUT(newsOfMail(), QStringLiteral("The mail is sent."), timeoutMs);
    QCOMPARE(Outbox::instance().mails().constFirst().files, QStringList{file.fileName()});

    // A recording is offered once there is one.
    QVERIFY(
        evaluate(QStringLiteral("document.getElementById('mail-recording').disabled")).toBool());
    publish(topics::RECORD_AUDIO_RESPONSE,
            {{QStringLiteral("file"), QStringLiteral("/tmp/record_1.wav")}});
    QTRY_VERIFY_WITH_TIMEOUT(
        !evaluate(QStringLiteral("document.getElementById('mail-recording').disabled")).toBool(),
        timeoutMs);
    touch(QStringLiteral("#mail-recording"));
    QCOMPARE(evaluate(QStringLiteral("document.getElementById('mail-file').value")).toString(),
             QStringLiteral("/tmp/record_1.wav"));
}

void CallsVisitTest::aMailThatFailsIsTold()
{
    Outbox::instance().refuse(550, QStringLiteral("No such <b>mailbox</b>"));
    writeMail(QStringLiteral("nobody@example.com"));
    touch(QStringLiteral("#mail-send"));
    QTRY_COMPARE_WITH_TIMEOUT(
        newsOfMail(), QStringLiteral("The mail was not sent (error 550): No such <b>mailbox</b>"),
        timeoutMs);
}

void CallsVisitTest::aMailNeedsAnAddress()
{
    writeMail(QStringLiteral("  "));
    touch(QStringLiteral("#mail-send"));
    QVERIFY(newsOfMail().startsWith(QStringLiteral("Who shall get the mail?")));
    type(QStringLiteral("mail-to"), QStringLiteral("guest"));
    touch(QStringLiteral("#mail-send"));
    QVERIFY(newsOfMail().startsWith(QStringLiteral("That is not a mail address.")));
    QCOMPARE(count(topics::MAIL_SENDER_REQUEST), 0);
}

QTEST_MAIN(CallsVisitTest)
#include "tst_callsvisit.moc"
