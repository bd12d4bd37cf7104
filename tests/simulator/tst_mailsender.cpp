#include "host/MailSender.h"

#include "simulator/core/Outbox.h"
#include "tests/support/TestCase.h"

#include <QTemporaryFile>

#include <memory>
#include <thread>

using simulator::Outbox;
using simulator::Pace;

class MailSenderTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void sends();
    void passesTheRefusalOn();
    void reportsWhatIsMissing_data();
    void reportsWhatIsMissing();
    void takesAttachments();
    void reportsOnceOnTheSendingThread();
    void theServerTellsHowItAnswers();
    void theServerCountsItsMails();

protected:
    void setUp() override
    {
        Outbox::instance().setPace(Pace());
        Outbox::instance().setTransferTime(0);
        Outbox::instance().accept();
        Outbox::instance().clear();
        m_events.clear();
    }

private:
    std::unique_ptr<MailSender> makeSender(const QString &host = QStringLiteral("mail.example.com"))
    {
        auto sender = std::make_unique<MailSender>(
            host, 587, MailSender::Tls, QStringLiteral("robot"), QStringLiteral("secret"));
        connect(sender.get(), &MailSender::signalFinished, sender.get(),
                [this] { m_events.append(QStringLiteral("finished")); });
        connect(sender.get(), &MailSender::signalError, sender.get(),
                [this](int code, const QString &text) {
                    m_events.append(QStringLiteral("%1 %2").arg(code).arg(text));
                });
        return sender;
    }

    const QString m_from = QStringLiteral("robot@example.com");
    const QString m_to = QStringLiteral("anna@example.com");
    QStringList m_events;
};

void MailSenderTest::sends()
{
    makeSender()->send(m_from, m_to, QStringLiteral("Hi"), QStringLiteral("Text"), {QString()});
    QCOMPARE(m_events, QStringList{QStringLiteral("finished")});
    QCOMPARE(Outbox::instance().mails().size(), 1);
    const simulator::Mail mail = Outbox::instance().mails().constFirst();
    QCOMPARE(mail.from, m_from);
    QCOMPARE(mail.to, m_to);
    QCOMPARE(mail.subject, QStringLiteral("Hi"));
    QCOMPARE(mail.body, QStringLiteral("Text"));
    QVERIFY(mail.files.isEmpty());
}

void MailSenderTest::passesTheRefusalOn()
{
    Outbox::instance().refuse(535, QStringLiteral("who are you?"));
    makeSender()->send(m_from, m_to, QString(), QString(), {});
    QCOMPARE(m_events, QStringList{QStringLiteral("535 who are you?")});
    QVERIFY(Outbox::instance().mails().isEmpty());
}

void MailSenderTest::reportsWhatIsMissing_data()
{
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("code");
    QTest::newRow("server") << ""
                            << "a@b"
                            << "c@d"
                            << ""
                            << "1 ";
    QTest::newRow("sender") << "host"
                            << ""
                            << "c@d"
                            << ""
                            << "2 ";
    QTest::newRow("recipient") << "host"
                               << "a@b"
                               << ""
                               << ""
                               << "2 ";
    QTest::newRow("attachment") << "host"
                                << "a@b"
                                << "c@d"
                                << "/nowhere/at/all"
                                << "3 ";
}

void MailSenderTest::reportsWhatIsMissing()
{
    QFETCH(QString, host);
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QString, file);
    QFETCH(QString, code);
    makeSender(host)->send(from, to, QString(), QString(), {file});
    QCOMPARE(m_events.size(), 1);
    QVERIFY2(m_events.at(0).startsWith(code), qPrintable(m_events.at(0)));
    QVERIFY(Outbox::instance().mails().isEmpty());
}

void MailSenderTest::takesAttachments()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    makeSender()->send(m_from, m_to, QString(), QString(), {file.fileName(), QString()});
    QCOMPARE(m_events, QStringList{QStringLiteral("finished")});
    QCOMPARE(Outbox::instance().mails().constFirst().files, QStringList{file.fileName()});
}

void MailSenderTest::reportsOnceOnTheSendingThread()
{
    const auto sender = makeSender();
    std::thread::id reportedOn;
    int reports = 0;
    connect(
        sender.get(), &MailSender::signalFinished, sender.get(),
        [&] {
            ++reports;
            reportedOn = std::this_thread::get_id();
        },
        Qt::DirectConnection);
    int reportsAtReturn = 0;
    // Joined by the standard library, which the thread sanitizer sees.
    std::thread thread([&] {
        sender->send(m_from, m_to, QString(), QString(), {});
        reportsAtReturn = reports;
    });
    const std::thread::id sending = thread.get_id();
    thread.join();
    QCOMPARE(reportsAtReturn, 1);
    QVERIFY(reportedOn == sending);
    QTRY_COMPARE(m_events, QStringList{QStringLiteral("finished")}); // queued to this thread
}

void MailSenderTest::theServerTellsHowItAnswers()
{
    QSignalSpy answer(&Outbox::instance(), &Outbox::answerChanged);
    int code = 7;
    QString text = m_to;
    QVERIFY(!Outbox::instance().isRefusing(code, text));
    QCOMPARE(code, 7); // there is no error
    QCOMPARE(text, m_to);
    Outbox::instance().refuse(535, QStringLiteral("who are you?"));
    QVERIFY(Outbox::instance().isRefusing(code, text));
    QCOMPARE(code, 535);
    QCOMPARE(text, QStringLiteral("who are you?"));
    Outbox::instance().accept();
    QCOMPARE(answer.count(), 2);
}

void MailSenderTest::theServerCountsItsMails()
{
    QSignalSpy cleared(&Outbox::instance(), &Outbox::cleared);
    const auto send = [this] {
        makeSender()->send(m_from, m_to, QString(), QString(), {});
        return Outbox::instance().mails().constLast().number;
    };
    const int first = send();
    QVERIFY(first > 0);
    QCOMPARE(send(), first + 1);
    Outbox::instance().clear();
    QCOMPARE(cleared.count(), 1);
    QCOMPARE(send(), first + 2); // no number comes twice
}

QTEST_GUILESS_MAIN(MailSenderTest)

#include "tst_mailsender.moc"
