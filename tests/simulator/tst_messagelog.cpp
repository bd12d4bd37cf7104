#include "simulator/app/MessageLog.h"

#include "panorel/Constants.h"
#include "panorel/Message.h"
#include "panorel/PanorelMessageHandler.h"
#include "tests/support/TestCase.h"

#include <QJsonObject>

using panorel::Message;
using simulator::MessageLog;
using Direction = MessageLog::Direction;
namespace topics = panorel::constants;

Q_DECLARE_METATYPE(simulator::MessageDirection)

class MessageLogTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void showsAMessage();
    void tellsDirections_data();
    void tellsDirections();
    void knowsEachTopicOfThePage();
    void dropsTheOldest();
    void keepsToAShorterLimit();
    void leavesFaceReportsOutUnlessTold();
    void holdsMessagesBackWhilePaused();
    void boundsWhatItHoldsBack();
    void cutsLongJson();
    void clears();
    void countsWhatWasDropped();

private:
    static Message fromPage(const QJsonObject &json)
    {
        QJsonObject object = json;
        return Message::fromJson(object);
    }
    static QString cell(const MessageLog &log, int row, int column)
    {
        return log.index(row, column).data().toString();
    }
};

void MessageLogTest::showsAMessage()
{
    MessageLog log;
    log.add(Message(
        topics::USER_SAID,
        {{QStringLiteral("text"), QStringLiteral("hi")}, {QStringLiteral("is_finish"), true}}));
    QCOMPARE(log.rowCount(), 1);
    QCOMPARE(cell(log, 0, MessageLog::DirectionColumn), QStringLiteral("robot → page"));
    QCOMPARE(cell(log, 0, MessageLog::TopicColumn), QStringLiteral("dialog.user.said"));
    QCOMPARE(cell(log, 0, MessageLog::AttributesColumn),
             QStringLiteral("{\"is_finish\":true,\"text\":\"hi\"}"));
    QVERIFY(!cell(log, 0, MessageLog::TimeColumn).isEmpty());
    const QModelIndex index = log.index(0, 0);
    QVERIFY(index.data(MessageLog::FilterRole).toString().contains(QStringLiteral("said")));
    QVERIFY(index.data(MessageLog::DetailRole).toString().contains(QStringLiteral("\"hi\"")));
}

void MessageLogTest::tellsDirections_data()
{
    QTest::addColumn<QJsonObject>("json");
    QTest::addColumn<bool>("bridge"); // whether it came over the page's bridge
    QTest::addColumn<Direction>("direction");
    const auto type = [](const QString &topic) {
        return QJsonObject{{QStringLiteral("type"), topic}};
    };
    QTest::newRow("request") << type(topics::SAY) << true << Direction::PageToRobot;
    QTest::newRow("request of the host") << type(topics::SAY) << false << Direction::Inside;
    QTest::newRow("event") << type(topics::USER_HAS) << false << Direction::RobotToPage;
    QTest::newRow("reserved topic") << type(topics::COOKIE_SET) << false << Direction::Inside;
    QTest::newRow("page's own topic")
        << type(QStringLiteral("my.own")) << true << Direction::PageToRobot;
    QTest::newRow("no topic") << QJsonObject() << true << Direction::PageToRobot;
    QTest::newRow("touch") << QJsonObject{{QStringLiteral("type"), topics::GENERAL_TOUCH},
                                          {QStringLiteral("x"), 1}}
                           << true << Direction::PageToRobot;
    QTest::newRow("faces") << QJsonObject{{QStringLiteral("type"), topics::GENERAL_TOUCH},
                                          {QStringLiteral("rect"), 1}}
                           << false << Direction::Inside;
}

void MessageLogTest::tellsDirections()
{
    QFETCH(QJsonObject, json);
    QFETCH(bool, bridge);
    QFETCH(Direction, direction);
    QMap<QString, QVariant> attributes = json.toVariantMap();
    const QString topic = attributes.take(QStringLiteral("type")).toString();
    const Message message = bridge ? fromPage(json) : Message(topic, attributes);
    QCOMPARE(simulator::directionOf(message), direction);
}

void MessageLogTest::knowsEachTopicOfThePage()
{
    for (const QString &topic : panorel::PanorelMessageHandler::topics())
        QVERIFY2(simulator::directionOf(Message(topic)) == Direction::RobotToPage,
                 qPrintable(topic));
}

void MessageLogTest::dropsTheOldest()
{
    MessageLog log;
    log.setLimit(3);
    for (int i = 0; i < 5; ++i)
        log.add(Message(QString::number(i)));
    QCOMPARE(log.rowCount(), 3);
    QCOMPARE(cell(log, 0, MessageLog::TopicColumn), QStringLiteral("2"));
    QCOMPARE(cell(log, 2, MessageLog::TopicColumn), QStringLiteral("4"));
}

void MessageLogTest::keepsToAShorterLimit()
{
    MessageLog log;
    for (int i = 0; i < 5; ++i)
        log.add(Message(QString::number(i)));
    log.setLimit(2);
    QCOMPARE(log.rowCount(), 2);
    QCOMPARE(cell(log, 0, MessageLog::TopicColumn), QStringLiteral("3"));
}

void MessageLogTest::leavesFaceReportsOutUnlessTold()
{
    MessageLog log;
    const QList<Message> reports{
        Message(topics::GENERAL_TOUCH, {{QStringLiteral("rect"), QVariantList()}}),
        Message(topics::GENERAL_TOUCH, {{QStringLiteral("info"), QVariantList()}}),
        Message(topics::FACE_RECOGNIZE_INFO, {{QStringLiteral("info"), QVariantMap()}}),
    };
    for (const Message &report : reports)
        log.add(report);
    QCOMPARE(log.rowCount(), 0);
    QCOMPARE(log.total(Direction::Inside), 2);
    QCOMPARE(log.total(Direction::RobotToPage), 1);

    // A touch of the page and a change of the main face are no such reports.
    log.add(fromPage({{QStringLiteral("type"), topics::GENERAL_TOUCH}, {QStringLiteral("x"), 1}}));
    log.add(Message(topics::FACE_RECOGNIZE_GENERAL));
    QCOMPARE(log.rowCount(), 2);

    log.setFaceReports(true);
    for (const Message &report : reports)
        log.add(report);
    QCOMPARE(log.rowCount(), 5);
}

void MessageLogTest::holdsMessagesBackWhilePaused()
{
    MessageLog log;
    log.add(Message(QStringLiteral("one")));
    log.setPaused(true);
    log.add(Message(QStringLiteral("two")));
    QCOMPARE(log.rowCount(), 1);
    log.setPaused(false);
    QCOMPARE(log.rowCount(), 2);
    QCOMPARE(cell(log, 1, MessageLog::TopicColumn), QStringLiteral("two"));
}

void MessageLogTest::boundsWhatItHoldsBack()
{
    MessageLog log;
    log.setLimit(2);
    log.setPaused(true);
    for (int i = 0; i < 5; ++i)
        log.add(Message(QString::number(i)));
    log.setPaused(false);
    QCOMPARE(log.rowCount(), 2);
    QCOMPARE(cell(log, 0, MessageLog::TopicColumn), QStringLiteral("3"));
}

void MessageLogTest::cutsLongJson()
{
    MessageLog log;
    log.add(Message(topics::PRINT, {{QStringLiteral("data"), QString(100000, QLatin1Char('A'))}}));
    QVERIFY(cell(log, 0, MessageLog::AttributesColumn).size() < 400);
    const QString detail = log.index(0, 0).data(MessageLog::DetailRole).toString();
    QVERIFY(detail.size() > 400);
    QVERIFY(detail.size() < 21000);
    QVERIFY(detail.contains(QStringLiteral("characters")));
}

void MessageLogTest::clears()
{
    MessageLog log;
    log.add(Message(QStringLiteral("one")));
    log.setPaused(true);
    log.add(Message(QStringLiteral("two")));
    log.clear();
    log.setPaused(false);
    QCOMPARE(log.rowCount(), 0);
}

void MessageLogTest::countsWhatWasDropped()
{
    MessageLog log;
    log.setLimit(1);
    log.add(Message(topics::USER_LOST));
    log.add(Message(topics::USER_LOST));
    log.add(fromPage({{QStringLiteral("type"), topics::SAY}}));
    log.clear();
    QCOMPARE(log.total(Direction::RobotToPage), 2);
    QCOMPARE(log.total(Direction::PageToRobot), 1);
    QCOMPARE(log.total(Direction::Inside), 0);
}

QTEST_GUILESS_MAIN(MessageLogTest)

#include "tst_messagelog.moc"
