#include "panorel/handlers/MailSenderHandler.h"

#include "tests/handlers/MailTestCase.h"
#include "tests/support/PageRequest.h"

#include <QPointer>

using panorel::MailSenderHandler;
using panorel::Message;

namespace {

const QString ann = QStringLiteral("ann@example.com");

QString recipient(int number) { return QStringLiteral("%1@example.com").arg(number); }

} // namespace

/// How long a sender of mail lives, whatever happens meanwhile.
class MailSenderLifetimeTest : public MailTestCase
{
    Q_OBJECT

private:
    void setUp() override
    {
        MailTestCase::setUp();
        QThreadPool::globalInstance()->setMaxThreadCount(4);
        create();
    }

    MailSenderHandler *create()
    {
        watch(m_response);
        auto *handler = new MailSenderHandler(plugin(), brocker());
        subscribe(handler, QStringLiteral("mail.sender.request"));
        return handler;
    }
    void send(const QString &to)
    {
        brocker()->publish(
            Message(QStringLiteral("mail.sender.request"), {{QStringLiteral("email"), to}}));
    }
    void askWithoutARecipient()
    {
        brocker()->publish(Message(QStringLiteral("mail.sender.request")));
    }
    /// Sends to Ann and waits until the mail is on its way.
    void beginToSend()
    {
        server().setOpen(false);
        send(ann);
        QTRY_COMPARE(server().sendings().size(), 1);
    }

private Q_SLOTS:
    void senderGoesWhenItHasSent();
    void senderLivesUntilSendReturns();
    void idleSenderGoesWithTheNextRequest();
    void idleSenderGoesWithTheHandler();
    void sendSurvivesTheHandler();
    void sendSurvivesASuccessor();
    void sendSurvivesTheBus();
    void waitingSendSurvivesTheHandler();
    void handlerMayGoFromItsReply();
    void staysSilentOnceCleared();
    void replyMayAskAgain();
    void cancelledSendLeavesNothing();
    void eachSendReportsOnce();
};

void MailSenderLifetimeTest::senderGoesWhenItHasSent()
{
    send(ann);
    QTRY_COMPARE(server().returned(), 1);
    QTRY_COMPARE(server().livingSenders(), 0); // the handler lives on
    QTRY_COMPARE(replies().count(), 1);
    replies().clear();
}

void MailSenderLifetimeTest::senderLivesUntilSendReturns()
{
    // It signals, and has still something to do.
    server().setOutcome(ann, {0, QString(), true});
    beginToSend();
    server().letPass(ann);
    QTRY_COMPARE(replies().count(), 1);
    replies().clear();
    turnEventLoop();
    QCOMPARE(server().livingSenders(), 1);
    QCOMPARE(server().returned(), 0);
    server().letPass(ann);
    QTRY_COMPARE(server().livingSenders(), 0);
    QCOMPARE(server().returned(), 1);
}

void MailSenderLifetimeTest::idleSenderGoesWithTheNextRequest()
{
    askWithoutARecipient();
    turnEventLoop();
    QCOMPARE(server().livingSenders(), 1);
    askWithoutARecipient();
    QTRY_COMPARE(server().livingSenders(), 1);
    QCOMPARE(server().accounts().size(), 2);
    send(ann);
    QTRY_COMPARE(replies().count(), 1);
    replies().clear();
    QTRY_COMPARE(server().livingSenders(), 0);
}

void MailSenderLifetimeTest::idleSenderGoesWithTheHandler()
{
    askWithoutARecipient();
    brocker()->clear();
    QTRY_COMPARE(server().livingSenders(), 0);
}

void MailSenderLifetimeTest::sendSurvivesTheHandler()
{
    server().setOutcome(ann, {0, QString(), true});
    beginToSend();
    brocker()->clear();
    watch(m_response);
    turnEventLoop();
    QCOMPARE(server().livingSenders(), 1);
    server().setOpen(true);
    QTRY_COMPARE(server().livingSenders(), 0);
    QCOMPARE(server().returned(), 1);
    QVERIFY(replies().isEmpty()); // nobody is there to answer
}

void MailSenderLifetimeTest::sendSurvivesASuccessor()
{
    beginToSend();
    brocker()->clear();
    create();
    send(recipient(2));
    QTRY_COMPARE(server().sendings().size(), 2);
    server().setOpen(true);
    QTRY_COMPARE(server().livingSenders(), 0);
    QTRY_COMPARE(replies().count(), 1); // the successor's own
    turnEventLoop();
    QCOMPARE(replies().count(), 1);
    replies().clear();
}

void MailSenderLifetimeTest::sendSurvivesTheBus()
{
    auto bus = std::make_unique<panorel::PanorelQueueBrocker>();
    auto *handler = new MailSenderHandler(plugin(), bus.get());
    bus->subscribe(handler->topic(), handler);
    server().setOpen(false);
    bus->publish(Message(handler->topic(), {{QStringLiteral("email"), ann}}));
    QTRY_COMPARE(server().sendings().size(), 1);
    bus.reset();
    server().setOpen(true);
    QTRY_COMPARE(server().livingSenders(), 0);
    QCOMPARE(server().returned(), 1);
}

void MailSenderLifetimeTest::waitingSendSurvivesTheHandler()
{
    // More mails than threads: the last one begins when its handler is gone.
    QThreadPool::globalInstance()->setMaxThreadCount(1);
    beginToSend();
    send(recipient(2));
    brocker()->clear();
    turnEventLoop();
    QCOMPARE(server().livingSenders(), 2);
    server().setOpen(true);
    QTRY_COMPARE(server().livingSenders(), 0);
    QCOMPARE(server().returned(), 2);
}

void MailSenderLifetimeTest::handlerMayGoFromItsReply()
{
    server().setOutcome(ann, {0, QString(), true});
    int answers = 0;
    brocker()->subscribe(m_response, [this, &answers](const Message &) {
        ++answers;
        brocker()->clear();
    });
    beginToSend();
    server().letPass(ann);
    QTRY_COMPARE(answers, 1);
    replies().clear();
    turnEventLoop();
    QCOMPARE(server().livingSenders(), 1); // still inside send
    server().letPass(ann);
    QTRY_COMPARE(server().livingSenders(), 0);
}

void MailSenderLifetimeTest::staysSilentOnceCleared()
{
    send(ann);
    QThreadPool::globalInstance()->waitForDone(); // the answer waits for the event loop
    const QString host = QStringLiteral("cookie.set");
    brocker()->subscribe(host, [this](const Message &) {
        brocker()->clear(); // in a delivery the handler lives on, beside its successor
        create();
    });
    brocker()->publish(Message(host));
    turnEventLoop();
    QCOMPARE(server().returned(), 1);
    QVERIFY(replies().isEmpty());
}

void MailSenderLifetimeTest::replyMayAskAgain()
{
    int answers = 0;
    brocker()->subscribe(m_response, [this, &answers](const Message &) {
        if (++answers < 5)
            send(recipient(answers));
        askWithoutARecipient();
    });
    send(recipient(0));
    QTRY_COMPARE(answers, 5);
    QTRY_COMPARE(server().livingSenders(), 1); // the idle one
    QCOMPARE(replies().count(), 5);
    replies().clear();
}

void MailSenderLifetimeTest::cancelledSendLeavesNothing()
{
    // A host may empty the pool before a mail's turn has come.
    QThreadPool::globalInstance()->setMaxThreadCount(1);
    beginToSend();
    send(recipient(2));
    QThreadPool::globalInstance()->clear();
    server().setOpen(true);
    QTRY_COMPARE(server().livingSenders(), 0);
    QCOMPARE(server().sendings().size(), 1);
    QTRY_COMPARE(replies().count(), 1);
    replies().clear();
}

void MailSenderLifetimeTest::eachSendReportsOnce()
{
    const int count = 200;
    for (int i = 0; i < count; ++i) {
        server().setOutcome(recipient(i), {i, QString(), false});
        send(recipient(i));
    }
    QTRY_COMPARE(replies().count(), count);
    QTRY_COMPARE(server().livingSenders(), 0);
    QVector<bool> answered(count, false);
    while (!replies().isEmpty()) {
        const int code = replies().take().attributes().value(QStringLiteral("code")).toInt();
        QVERIFY(!answered.at(code));
        answered[code] = true;
    }
}

QTEST_GUILESS_MAIN(MailSenderLifetimeTest)
#include "tst_mailsenderlifetime.moc"
