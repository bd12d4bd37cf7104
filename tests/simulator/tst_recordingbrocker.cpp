#include "simulator/app/RecordingBrocker.h"

#include "tests/support/TestCase.h"

using panorel::Message;
using simulator::MessageReporter;
using simulator::RecordingBrocker;

class RecordingBrockerTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void reportsARequestBeforeItsReply();
    void reportsWhatNobodyHandles();
    void delivers();
};

void RecordingBrockerTest::reportsARequestBeforeItsReply()
{
    RecordingBrocker brocker;
    QStringList reported;
    connect(brocker.reporter(), &MessageReporter::published, this,
            [&reported](const Message &message) { reported.append(message.type()); });
    brocker.subscribe(QStringLiteral("request"), [&brocker](const Message &) {
        brocker.publish(Message(QStringLiteral("reply")));
    });
    brocker.publish(Message(QStringLiteral("request")));
    QCOMPARE(reported, (QStringList{QStringLiteral("request"), QStringLiteral("reply")}));
}

void RecordingBrockerTest::reportsWhatNobodyHandles()
{
    RecordingBrocker brocker;
    int published = 0;
    connect(brocker.reporter(), &MessageReporter::published, this, [&published] { ++published; });
    brocker.publish(Message(QStringLiteral("unknown")));
    QCOMPARE(published, 1);
}

void RecordingBrockerTest::delivers()
{
    RecordingBrocker brocker;
    QVariantMap received;
    brocker.subscribe(QStringLiteral("a"),
                      [&received](const Message &message) { received = message.attributes(); });
    brocker.publish(Message(QStringLiteral("a"), {{QStringLiteral("x"), 1}}));
    QCOMPARE(received, (QVariantMap{{QStringLiteral("x"), 1}}));
}

QTEST_GUILESS_MAIN(RecordingBrockerTest)

#include "tst_recordingbrocker.moc"
