#include "panorel/PanorelQueueBrocker.h"

#include "panorel/Constants.h"
#include "tests/support/CountedHandler.h"
#include "tests/support/TestCase.h"

#include <QEventLoop>
#include <QTimer>

#include <memory>

using panorel::Message;
using panorel::MessageHandler;
using panorel::PanorelQueueBrocker;

namespace {

const QString topicA = QStringLiteral("dialog.say");
const QString topicB = QStringLiteral("system.log");
const QString panorelCategory = QStringLiteral("panorel");

/// A device and a handler that acts on its signal.
class Device : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    void changed();
};

class DeviceHandler : public QObject, public CountedHandler
{
    Q_OBJECT

public:
    DeviceHandler(Device *device, std::function<void()> reaction)
    {
        connect(device, &Device::changed, this, [this, reaction] {
            reaction();
            ++reactions; // touches the handler after the reaction
        });
    }

    int reactions = 0;
};

/// Owns an object that emits: as a media player, it must not die inside its own signal.
class EmittingHandler : public QObject, public CountedHandler
{
    Q_OBJECT

public:
    explicit EmittingHandler(std::function<void()> reaction)
        : m_device(new Device)
    {
        m_device->setParent(this);
        connect(m_device, &Device::changed, this, std::move(reaction));
    }

    void emitChange() { Q_EMIT m_device->changed(); }

private:
    Device *m_device;
};

} // namespace

class PanorelQueueBrockerTest : public TestCase
{
    Q_OBJECT

private:
    void setUp() override
    {
        makesUpMessages(); // the bus delivers whatever they hold
        m_brocker = std::make_unique<PanorelQueueBrocker>();
    }
    void tearDown() override { m_brocker.reset(); }

    CountedHandler::Action note(const QString &name)
    {
        return [this, name](const Message &) { m_order.append(name); };
    }
    QStringList takeOrder()
    {
        QStringList order;
        order.swap(m_order);
        return order;
    }

    std::unique_ptr<PanorelQueueBrocker> m_brocker;
    QStringList m_order;

private Q_SLOTS:
    void deliversInSubscriptionOrder();
    void deliversBeforeReturning();
    void comparesTopicsExactly();
    void findsATopicWhoeverWroteIt();
    void findsEachOfManyTopics();
    void tellsLookAlikeTopicsApart();
    void findsTheEmptyTopic();
    void followsTheSubscribersOfATopic();
    void passesOverATopicWithoutHandlers();
    void deliversTheSameMessage();
    void deliversAMessageThatAHandlerDestroys();
    void callsAnOnlyHandlerThatDeletesItself();
    void callsACallable();
    void passesOverAnEmptyCallable();
    void passesOverANullHandler();
    void deliversTwiceWhenSubscribedTwice();

    void unsubscribesTheFirstOccurrence();
    void unsubscribesNothingUnknown();
    void deliversToTheSnapshotWhenAHandlerUnsubscribes();
    void deliversToTheSnapshotWhenAHandlerSubscribes();
    void deliversRecursively();

    void logsSubscriptions();
    void logsEachMessage();
    void keepsFaceReportsOutOfTheLog_data();
    void keepsFaceReportsOutOfTheLog();
    void buildsNoLineWhenDebugIsOff();
    void logsOnlyAClearThatClears();

    void clearDeletesAtOnce();
    void clearDeletesSharedHandlerOnce();
    void clearDeletesInTheOrderOfTopics();
    void clearPassesOverNull();
    void clearForgetsAnUnsubscribedHandler();
    void destructorDeletesHandlers();
    void destructorDeletesWhatItsHandlersSubscribe();
    void destructorDeletesWhatWaitingHandlersSubscribe();
    void publishFromAHandlersDestructorReachesNobody();
    void clearInTheFirstOfTwoHandlers();
    void clearInTheOnlyCallable();
    void clearTwiceInOneDelivery();
    void clearTwiceWithAHandlerThatSubscribesAgain();
    void keepsAHandlerThatSubscribesAgainAfterAClear();
    void clearWaitsForTheOutermostDelivery();
    void clearWaitsForNestedEventLoops();
    void clearedHandlerOutlivesALoopInItsLaterDelivery();
    void destructorDeletesWhatStillWaits();
    void clearFromADeviceSignalAfterAPublish();
    void clearFromADeviceSignalOutsideADelivery();
    void clearFromTheHandlersOwnSlot();
    void clearFromTheHandlersOwnQueuedSlot();
    void clearWhileAnOwnedObjectEmits();
    void subscribesAnewAfterAClearInADelivery();
};

void PanorelQueueBrockerTest::deliversInSubscriptionOrder()
{
    m_brocker->subscribe(topicA, new CountedHandler(note(QStringLiteral("1"))));
    m_brocker->subscribe(topicB, new CountedHandler(note(QStringLiteral("other"))));
    m_brocker->subscribe(topicA, [this](const Message &) { m_order.append(QStringLiteral("2")); });
    m_brocker->subscribe(topicA, new CountedHandler(note(QStringLiteral("3"))));
    m_brocker->publish(Message(topicA));
    QCOMPARE(takeOrder(),
             QStringList({QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")}));
}

void PanorelQueueBrockerTest::deliversBeforeReturning()
{
    bool delivered = false;
    m_brocker->subscribe(topicA, [&delivered](const Message &) { delivered = true; });
    m_brocker->publish(Message(topicA));
    QVERIFY(delivered);
}

void PanorelQueueBrockerTest::comparesTopicsExactly()
{
    m_brocker->subscribe(topicA, new CountedHandler(note(QStringLiteral("A"))));
    m_brocker->publish(Message(QStringLiteral("Dialog.say")));
    m_brocker->publish(Message(QStringLiteral("dialog.say ")));
    m_brocker->publish(Message(QString()));
    QCOMPARE(takeOrder(), QStringList());
}

void PanorelQueueBrockerTest::findsATopicWhoeverWroteIt()
{
    // Texts of one content at several addresses, before and after the table has changed.
    int calls = 0;
    const auto count = [&calls](const Message &) { ++calls; };
    const auto written = [] { return QString::fromLatin1("user.has.user"); };
    m_brocker->subscribe(written(), count);
    m_brocker->publish(Message(written()));
    m_brocker->publish(Message(panorel::constants::USER_HAS));
    QCOMPARE(calls, 2);
    m_brocker->subscribe(panorel::constants::USER_HAS, count);
    m_brocker->publish(Message(written()));
    m_brocker->publish(Message(panorel::constants::USER_HAS));
    QCOMPARE(calls, 6);
    m_brocker->clear();
    m_brocker->publish(Message(written()));
    m_brocker->publish(Message(panorel::constants::USER_HAS));
    QCOMPARE(calls, 6);
}

void PanorelQueueBrockerTest::findsEachOfManyTopics()
{
    const int count = 3000; // more than there are shortcuts
    QStringList topics;
    QVector<int> calls(count, 0);
    for (int i = 0; i < count; ++i) {
        topics.append(QStringLiteral("topic.%1").arg(i));
        m_brocker->subscribe(topics.last(), [&calls, i](const Message &) { ++calls[i]; });
    }
    for (int round = 0; round < 2; ++round)
        for (const QString &topic : qAsConst(topics))
            m_brocker->publish(Message(topic));
    QCOMPARE(calls, QVector<int>(count, 2));
}

void PanorelQueueBrockerTest::tellsLookAlikeTopicsApart()
{
    // Of one length, and apart in one character, wherever that is.
    const QString topic = QStringLiteral("scanner.document.request");
    QStringList heard;
    m_brocker->subscribe(topic, [&heard](const Message &m) { heard.append(m.type()); });
    for (int i = 0; i < topic.size(); ++i) {
        QString lookAlike = topic;
        lookAlike[i] = QLatin1Char('X');
        m_brocker->publish(Message(lookAlike));
    }
    QCOMPARE(heard, QStringList());

    QStringList lookAlikes;
    for (int i = 0; i < topic.size(); ++i) {
        lookAlikes.append(topic);
        lookAlikes.last()[i] = QLatin1Char('X');
        m_brocker->subscribe(lookAlikes.last(),
                             [&heard](const Message &m) { heard.append(m.type()); });
    }
    for (const QString &lookAlike : qAsConst(lookAlikes))
        m_brocker->publish(Message(QString::fromUtf8(lookAlike.toUtf8())));
    QCOMPARE(heard, lookAlikes);
}

void PanorelQueueBrockerTest::findsTheEmptyTopic()
{
    int calls = 0;
    m_brocker->subscribe(QString(), [&calls](const Message &) { ++calls; });
    m_brocker->publish(Message(QString()));
    m_brocker->publish(Message(QLatin1String("")));
    QCOMPARE(calls, 2);
}

void PanorelQueueBrockerTest::followsTheSubscribersOfATopic()
{
    auto *a = new CountedHandler(note(QStringLiteral("A")));
    auto *b = new CountedHandler(note(QStringLiteral("B")));
    const auto publish = [this] {
        m_brocker->publish(Message(topicA));
        m_brocker->publish(Message(QString::fromUtf8(topicA.toUtf8()))); // found another way
        return takeOrder().join(QString());
    };
    m_brocker->subscribe(topicA, a);
    QCOMPARE(publish(), QStringLiteral("AA"));
    m_brocker->subscribe(topicA, b);
    QCOMPARE(publish(), QStringLiteral("ABAB"));
    m_brocker->unSubscribe(topicA, a);
    QCOMPARE(publish(), QStringLiteral("BB"));
    m_brocker->unSubscribe(topicA, b);
    QCOMPARE(publish(), QString());
    m_brocker->subscribe(topicA, a);
    m_brocker->subscribe(topicA, static_cast<MessageHandler *>(nullptr));
    QCOMPARE(publish(), QStringLiteral("AA"));
    m_brocker->unSubscribe(topicA, a);
    QCOMPARE(publish(), QString()); // null alone
    delete a;
    delete b;
}

void PanorelQueueBrockerTest::passesOverATopicWithoutHandlers()
{
    log().take();
    m_brocker->publish(Message(topicA));
    QCOMPARE(log().takeTexts(panorelCategory).size(), 1); // the message itself
}

void PanorelQueueBrockerTest::deliversTheSameMessage()
{
    const Message sent(topicA, {{QStringLiteral("text"), QStringLiteral("x")}});
    QVector<Message> received;
    for (int i = 0; i < 2; ++i)
        m_brocker->subscribe(topicA, [&received](const Message &m) { received.append(m); });
    m_brocker->publish(sent);
    QCOMPARE(received.size(), 2);
    for (const Message &message : qAsConst(received)) {
        QCOMPARE(message.id(), sent.id());
        QCOMPARE(message.type(), sent.type());
        QCOMPARE(message.attributes(), sent.attributes());
    }
}

void PanorelQueueBrockerTest::deliversAMessageThatAHandlerDestroys()
{
    auto sent = std::make_unique<Message>(topicA);
    const QUuid id = sent->id();
    QUuid received;
    m_brocker->subscribe(topicA, [&sent](const Message &) { sent.reset(); });
    m_brocker->subscribe(topicA, [&received](const Message &m) { received = m.id(); });
    m_brocker->publish(*sent);
    QCOMPARE(received, id);
}

void PanorelQueueBrockerTest::callsAnOnlyHandlerThatDeletesItself()
{
    class Mortal : public panorel::MessageHandler
    {
    public:
        explicit Mortal(PanorelQueueBrocker *brocker)
            : m_brocker(brocker)
        { }
        void handle(Message message) override
        {
            m_brocker->unSubscribe(message.type(), this);
            delete this;
        }

    private:
        PanorelQueueBrocker *m_brocker;
    };
    m_brocker->subscribe(topicA, new Mortal(m_brocker.get()));
    m_brocker->publish(Message(topicA));
    m_brocker->subscribe(topicA, new CountedHandler(note(QStringLiteral("next"))));
    m_brocker->publish(Message(topicA));
    QCOMPARE(takeOrder(), QStringList({QStringLiteral("next")}));
}

void PanorelQueueBrockerTest::callsACallable()
{
    int calls = 0;
    m_brocker->subscribe(topicA, [&calls](const Message &) { ++calls; });
    m_brocker->publish(Message(topicA));
    m_brocker->publish(Message(topicA));
    QCOMPARE(calls, 2);
}

void PanorelQueueBrockerTest::passesOverAnEmptyCallable()
{
    m_brocker->subscribe(topicA, std::function<void(Message)>());
    m_brocker->subscribe(topicA, new CountedHandler(note(QStringLiteral("next"))));
    m_brocker->publish(Message(topicA));
    QCOMPARE(takeOrder(), QStringList({QStringLiteral("next")}));
}

void PanorelQueueBrockerTest::passesOverANullHandler()
{
    m_brocker->subscribe(topicA, static_cast<MessageHandler *>(nullptr));
    m_brocker->subscribe(topicA, new CountedHandler(note(QStringLiteral("next"))));
    m_brocker->publish(Message(topicA));
    QCOMPARE(takeOrder(), QStringList({QStringLiteral("next")}));
}

void PanorelQueueBrockerTest::deliversTwiceWhenSubscribedTwice()
{
    auto *handler = new CountedHandler(note(QStringLiteral("A")));
    m_brocker->subscribe(topicA, handler);
    m_brocker->subscribe(topicA, handler);
    m_brocker->publish(Message(topicA));
    QCOMPARE(takeOrder(), QStringList({QStringLiteral("A"), QStringLiteral("A")}));
    m_brocker->clear();
    QCOMPARE(CountedHandler::count(), 0);
}

void PanorelQueueBrockerTest::unsubscribesTheFirstOccurrence()
{
    auto *twice = new CountedHandler(note(QStringLiteral("twice")));
    m_brocker->subscribe(topicA, twice);
    m_brocker->subscribe(topicA, new CountedHandler(note(QStringLiteral("once"))));
    m_brocker->subscribe(topicA, twice);

    m_brocker->unSubscribe(topicA, twice);
    m_brocker->publish(Message(topicA));
    QCOMPARE(takeOrder(), QStringList({QStringLiteral("once"), QStringLiteral("twice")}));

    m_brocker->unSubscribe(topicA, twice);
    QCOMPARE(CountedHandler::count(), 2); // not deleted
    m_brocker->publish(Message(topicA));
    QCOMPARE(takeOrder(), QStringList({QStringLiteral("once")}));
    delete twice;
}

void PanorelQueueBrockerTest::unsubscribesNothingUnknown()
{
    CountedHandler stranger;
    m_brocker->subscribe(topicA, new CountedHandler(note(QStringLiteral("A"))));
    m_brocker->unSubscribe(topicA, &stranger);
    m_brocker->unSubscribe(topicB, &stranger);
    m_brocker->unSubscribe(topicB, nullptr);
    m_brocker->publish(Message(topicA));
    QCOMPARE(takeOrder(), QStringList({QStringLiteral("A")}));
}

void PanorelQueueBrockerTest::deliversToTheSnapshotWhenAHandlerUnsubscribes()
{
    // The first leaves by itself and takes the last with it.
    CountedHandler *first = nullptr;
    CountedHandler *last = nullptr;
    first = new CountedHandler([&](const Message &) {
        m_order.append(QStringLiteral("first"));
        m_brocker->unSubscribe(topicA, first);
        m_brocker->unSubscribe(topicA, last);
    });
    last = new CountedHandler(note(QStringLiteral("last")));
    m_brocker->subscribe(topicA, first);
    m_brocker->subscribe(topicA, new CountedHandler(note(QStringLiteral("second"))));
    m_brocker->subscribe(topicA, new CountedHandler(note(QStringLiteral("third"))));
    m_brocker->subscribe(topicA, last);

    m_brocker->publish(Message(topicA));
    QCOMPARE(takeOrder(),
             QStringList({QStringLiteral("first"), QStringLiteral("second"),
                          QStringLiteral("third"), QStringLiteral("last")}));
    m_brocker->publish(Message(topicA));
    QCOMPARE(takeOrder(), QStringList({QStringLiteral("second"), QStringLiteral("third")}));
    delete first;
    delete last;
}

void PanorelQueueBrockerTest::deliversToTheSnapshotWhenAHandlerSubscribes()
{
    m_brocker->subscribe(topicA, new CountedHandler([this](const Message &) {
                             m_order.append(QStringLiteral("old"));
                             m_brocker->subscribe(topicA,
                                                  new CountedHandler(note(QStringLiteral("new"))));
                         }));
    m_brocker->publish(Message(topicA));
    QCOMPARE(takeOrder(), QStringList({QStringLiteral("old")}));
    m_brocker->publish(Message(topicA));
    QCOMPARE(takeOrder(), QStringList({QStringLiteral("old"), QStringLiteral("new")}));
}

void PanorelQueueBrockerTest::deliversRecursively()
{
    m_brocker->subscribe(topicA, new CountedHandler([this](const Message &message) {
                             const bool outer = message.attributes().isEmpty();
                             m_order.append(outer ? QStringLiteral("outer 1")
                                                  : QStringLiteral("inner 1"));
                             if (outer)
                                 m_brocker->publish(Message(topicA, {{QStringLiteral("n"), 1}}));
                         }));
    m_brocker->subscribe(topicA, new CountedHandler([this](const Message &message) {
                             m_order.append(message.attributes().isEmpty()
                                                ? QStringLiteral("outer 2")
                                                : QStringLiteral("inner 2"));
                         }));
    m_brocker->publish(Message(topicA));
    QCOMPARE(takeOrder(),
             QStringList({QStringLiteral("outer 1"), QStringLiteral("inner 1"),
                          QStringLiteral("inner 2"), QStringLiteral("outer 2")}));
}

void PanorelQueueBrockerTest::logsSubscriptions()
{
    log().take();
    m_brocker->subscribe(topicA, new CountedHandler);
    m_brocker->subscribe(topicB, [](const Message &) {});
    const QVector<LogLine> expected{
        {QtDebugMsg, panorelCategory, QStringLiteral("Subsctribe default handler \"dialog.say\"")},
        {QtDebugMsg, panorelCategory,
         QStringLiteral("Subsctribe functional handler \"system.log\"")},
        {QtDebugMsg, panorelCategory, QStringLiteral("Subsctribe default handler \"system.log\"")},
    };
    QCOMPARE(log().take(), expected);
}

void PanorelQueueBrockerTest::logsEachMessage()
{
    const Message message(topicA, {{QStringLiteral("text"), QStringLiteral("x")}});
    QString json;
    QDebug(&json).nospace() << message.toJson();
    log().take();
    m_brocker->publish(message);
    const QVector<LogLine> lines = log().take();
    QCOMPARE(lines.size(), 1);
    QCOMPARE(lines.first().type, QtDebugMsg);
    QCOMPARE(lines.first().category, panorelCategory);
    QCOMPARE(lines.first().text, json);
}

void PanorelQueueBrockerTest::keepsFaceReportsOutOfTheLog_data()
{
    QTest::addColumn<QString>("topic");
    QTest::addColumn<QVariantMap>("attributes");
    QTest::addColumn<bool>("logged");
    const QString touch = panorel::constants::GENERAL_TOUCH;
    const QVariantMap rect{{QStringLiteral("rect"), 1}};
    const QVariantMap info{{QStringLiteral("info"), QVariant()}};
    QTest::newRow("rect") << touch << rect << false;
    QTest::newRow("info") << touch << info << false;
    QTest::newRow("touch point") << touch << QVariantMap{{QStringLiteral("x"), 1}} << true;
    QTest::newRow("other topic") << topicA << rect << true;
}

void PanorelQueueBrockerTest::keepsFaceReportsOutOfTheLog()
{
    QFETCH(QString, topic);
    QFETCH(QVariantMap, attributes);
    QFETCH(bool, logged);
    int received = 0;
    m_brocker->subscribe(topic, [&received](const Message &) { ++received; });
    log().take();
    m_brocker->publish(Message(topic, attributes));
    QCOMPARE(log().take().size(), logged ? 1 : 0);
    QCOMPARE(received, 1);
}

void PanorelQueueBrockerTest::buildsNoLineWhenDebugIsOff()
{
    QLoggingCategory::setFilterRules(QStringLiteral("panorel.debug=false"));
    m_brocker->subscribe(topicA, [this](const Message &) { m_order.append(topicA); });
    m_brocker->publish(Message(topicA));
    m_brocker->clear();
    QCOMPARE(log().take().size(), 0);
    QCOMPARE(takeOrder().size(), 1);
}

void PanorelQueueBrockerTest::logsOnlyAClearThatClears()
{
    log().take();
    m_brocker->clear();
    QCOMPARE(log().take().size(), 0);

    // A topic keeps its entry when its last handler has left.
    CountedHandler handler;
    m_brocker->subscribe(topicA, &handler);
    m_brocker->unSubscribe(topicA, &handler);
    log().take();
    m_brocker->clear();
    const QVector<LogLine> expected{
        {QtDebugMsg, panorelCategory, QStringLiteral("Delete handlers")}};
    QCOMPARE(log().take(), expected);
    m_brocker->clear();
    QCOMPARE(log().take().size(), 0);
}

void PanorelQueueBrockerTest::clearDeletesAtOnce()
{
    m_brocker->subscribe(topicA, new CountedHandler(note(QStringLiteral("A"))));
    m_brocker->subscribe(topicB, new CountedHandler);
    m_brocker->clear();
    QCOMPARE(CountedHandler::count(), 0);
    m_brocker->publish(Message(topicA));
    QCOMPARE(takeOrder(), QStringList());
}

void PanorelQueueBrockerTest::clearDeletesSharedHandlerOnce()
{
    auto *shared = new CountedHandler;
    for (int i = 0; i < 65; ++i)
        m_brocker->subscribe(QString::number(i), shared);
    m_brocker->clear();
    QCOMPARE(CountedHandler::count(), 0);
}

void PanorelQueueBrockerTest::clearDeletesInTheOrderOfTopics()
{
    QStringList deleted;
    QStringList topics;
    for (int i = 0; i < 20; ++i) {
        topics.append(QStringLiteral("topic.%1").arg(19 - i, 2, 10, QLatin1Char('0')));
        const QString topic = topics.last();
        m_brocker->subscribe(topic,
                             new CountedHandler({}, [&deleted, topic] { deleted.append(topic); }));
    }
    m_brocker->clear();
    topics.sort();
    QCOMPARE(deleted, topics);
}

void PanorelQueueBrockerTest::clearPassesOverNull()
{
    m_brocker->subscribe(topicA, static_cast<MessageHandler *>(nullptr));
    m_brocker->subscribe(topicA, new CountedHandler);
    m_brocker->clear();
    QCOMPARE(CountedHandler::count(), 0);
}

void PanorelQueueBrockerTest::clearForgetsAnUnsubscribedHandler()
{
    CountedHandler mine;
    m_brocker->subscribe(topicA, &mine);
    m_brocker->unSubscribe(topicA, &mine);
    m_brocker->clear();
    QCOMPARE(CountedHandler::count(), 1);
}

void PanorelQueueBrockerTest::destructorDeletesHandlers()
{
    m_brocker->subscribe(topicA, new CountedHandler);
    m_brocker->subscribe(topicB, new CountedHandler);
    m_brocker.reset();
    QCOMPARE(CountedHandler::count(), 0);
}

void PanorelQueueBrockerTest::destructorDeletesWhatItsHandlersSubscribe()
{
    PanorelQueueBrocker *const brocker = m_brocker.get();
    brocker->subscribe(topicA, new CountedHandler({}, [brocker] {
                           brocker->subscribe(topicB, new CountedHandler);
                       }));
    m_brocker.reset();
    QCOMPARE(CountedHandler::count(), 0);
}

void PanorelQueueBrockerTest::destructorDeletesWhatWaitingHandlersSubscribe()
{
    PanorelQueueBrocker *const brocker = m_brocker.get();
    brocker->subscribe(
        topicA,
        new CountedHandler([brocker](const Message &) { brocker->clear(); },
                           [brocker] { brocker->subscribe(topicB, new CountedHandler); }));
    brocker->publish(Message(topicA));
    m_brocker.reset();
    QCOMPARE(CountedHandler::count(), 0);
}

void PanorelQueueBrockerTest::publishFromAHandlersDestructorReachesNobody()
{
    const auto publish = [this, brocker = m_brocker.get()] {
        brocker->publish(Message(topicB));
        m_order.append(QStringLiteral("destroyed"));
    };
    for (const bool byDestructor : {false, true}) {
        m_brocker->subscribe(topicA, new CountedHandler({}, publish));
        m_brocker->subscribe(topicB, new CountedHandler(note(QStringLiteral("reached"))));
        if (byDestructor)
            m_brocker.reset();
        else
            m_brocker->clear();
        QCOMPARE(takeOrder(), QStringList({QStringLiteral("destroyed")}));
    }
}

void PanorelQueueBrockerTest::clearInTheFirstOfTwoHandlers()
{
    m_brocker->subscribe(topicA, new CountedHandler([this](const Message &) {
                             m_brocker->clear();
                             m_order.append(QStringLiteral("first"));
                         }));
    m_brocker->subscribe(topicA, new CountedHandler(note(QStringLiteral("second"))));
    m_brocker->subscribe(topicB, new CountedHandler);

    m_brocker->publish(Message(topicA));
    // The running delivery went to its end, and nobody died in it.
    QCOMPARE(takeOrder(), QStringList({QStringLiteral("first"), QStringLiteral("second")}));
    QCOMPARE(CountedHandler::count(), 3);
    m_brocker->publish(Message(topicA));
    QCOMPARE(takeOrder(), QStringList());

    turnEventLoop();
    QCOMPARE(CountedHandler::count(), 0);
}

void PanorelQueueBrockerTest::clearInTheOnlyCallable()
{
    const QString captured = QStringLiteral("still here");
    m_brocker->subscribe(topicA, [this, captured](const Message &) {
        m_brocker->clear();
        m_order.append(captured); // the callable must not have been destroyed meanwhile
    });
    m_brocker->publish(Message(topicA));
    QCOMPARE(takeOrder(), QStringList({QStringLiteral("still here")}));
    m_brocker->publish(Message(topicA));
    QCOMPARE(takeOrder(), QStringList());
}

void PanorelQueueBrockerTest::clearTwiceInOneDelivery()
{
    m_brocker->subscribe(topicA, new CountedHandler([this](const Message &) {
                             m_brocker->clear();
                             m_brocker->subscribe(topicA, new CountedHandler);
                             m_brocker->clear();
                         }));
    m_brocker->publish(Message(topicA));
    QCOMPARE(CountedHandler::count(), 2);
    turnEventLoop();
    QCOMPARE(CountedHandler::count(), 0);
}

void PanorelQueueBrockerTest::clearTwiceWithAHandlerThatSubscribesAgain()
{
    CountedHandler *handler = nullptr;
    handler = new CountedHandler([this, &handler](const Message &) {
        m_brocker->clear();
        m_brocker->subscribe(topicB, handler);
        m_brocker->clear();
    });
    m_brocker->subscribe(topicA, handler);
    m_brocker->publish(Message(topicA));
    turnEventLoop();
    QCOMPARE(CountedHandler::count(), 0);
}

void PanorelQueueBrockerTest::keepsAHandlerThatSubscribesAgainAfterAClear()
{
    CountedHandler *handler = nullptr;
    handler = new CountedHandler([this, &handler](const Message &message) {
        note(message.type())(message);
        if (message.type() != topicA)
            return;
        m_brocker->clear();
        m_brocker->subscribe(topicB, handler);
        m_brocker->subscribe(topicB, handler);
    });
    m_brocker->subscribe(topicA, handler);
    m_brocker->publish(Message(topicA));
    turnEventLoop();
    m_brocker->publish(Message(topicB));
    QCOMPARE(takeOrder(), QStringList({topicA, topicB, topicB}));
    m_brocker->clear();
    QCOMPARE(CountedHandler::count(), 0);
}

void PanorelQueueBrockerTest::clearWaitsForTheOutermostDelivery()
{
    m_brocker->subscribe(topicA, new CountedHandler([this](const Message &) {
                             m_brocker->publish(Message(topicB));
                             turnEventLoop(); // a handler may run a dialog of its own
                             QCOMPARE(CountedHandler::count(), 2);
                         }));
    m_brocker->subscribe(topicB,
                         new CountedHandler([this](const Message &) { m_brocker->clear(); }));
    m_brocker->publish(Message(topicA));
    QCOMPARE(CountedHandler::count(), 2);
    turnEventLoop();
    QCOMPARE(CountedHandler::count(), 0);
}

void PanorelQueueBrockerTest::clearWaitsForNestedEventLoops()
{
    // A signal handler publishes, a subscriber clears, then the signal handler runs a loop of its
    // own: the handlers must outlive that loop too.
    m_brocker->subscribe(topicA,
                         new CountedHandler([this](const Message &) { m_brocker->clear(); }));
    QEventLoop outer;
    int aliveAfterInnerLoop = -1;
    QTimer::singleShot(0, &outer, [&] {
        m_brocker->publish(Message(topicA));
        QEventLoop inner;
        QTimer::singleShot(0, &inner, &QEventLoop::quit);
        inner.exec();
        aliveAfterInnerLoop = CountedHandler::count();
        QTimer::singleShot(0, &outer, &QEventLoop::quit);
    });
    outer.exec();
    QCOMPARE(aliveAfterInnerLoop, 1);
    QCOMPARE(CountedHandler::count(), 0);
}

void PanorelQueueBrockerTest::clearedHandlerOutlivesALoopInItsLaterDelivery()
{
    // One signal, two messages: in the delivery of the first somebody clears, in that of the second
    // somebody runs a loop. No loop runs around them, so nothing else keeps the handler.
    Device device;
    m_brocker->subscribe(topicB, new DeviceHandler(&device, [this] {
                             m_brocker->publish(Message(topicA));
                             m_brocker->publish(Message(topicA));
                         }));
    int aliveAfterLoop = -1;
    m_brocker->subscribe(topicA, [&](const Message &) {
        m_brocker->clear();
        m_brocker->subscribe(topicA, [&aliveAfterLoop](const Message &) {
            turnEventLoop();
            aliveAfterLoop = CountedHandler::count();
        });
    });
    Q_EMIT device.changed();
    QCOMPARE(aliveAfterLoop, 1);
    turnEventLoop();
    QCOMPARE(CountedHandler::count(), 0);
}

void PanorelQueueBrockerTest::destructorDeletesWhatStillWaits()
{
    m_brocker->subscribe(topicA,
                         new CountedHandler([this](const Message &) { m_brocker->clear(); }));
    m_brocker->publish(Message(topicA));
    QCOMPARE(CountedHandler::count(), 1);
    m_brocker.reset();
    QCOMPARE(CountedHandler::count(), 0);
}

void PanorelQueueBrockerTest::clearFromADeviceSignalAfterAPublish()
{
    Device device;
    auto *handler = new DeviceHandler(
        &device, [this] { m_brocker->publish(Message(QStringLiteral("printer.success"))); });
    m_brocker->subscribe(topicA, handler);
    m_brocker->subscribe(QStringLiteral("printer.success"),
                         [this](const Message &) { m_brocker->clear(); });

    Q_EMIT device.changed();
    QCOMPARE(CountedHandler::count(), 1); // it still ran when the table was cleared
    QCOMPARE(handler->reactions, 1);
    turnEventLoop();
    QCOMPARE(CountedHandler::count(), 0);
    Q_EMIT device.changed(); // nobody listens any more
}

void PanorelQueueBrockerTest::clearFromADeviceSignalOutsideADelivery()
{
    // Not the handler itself but the host clears, from the same signal, with no delivery running.
    Device device;
    int reactions = 0;
    m_brocker->subscribe(topicA, new DeviceHandler(&device, [&reactions] { ++reactions; }));
    connect(&device, &Device::changed, this, [this] { m_brocker->clear(); });
    Q_EMIT device.changed();
    QCOMPARE(reactions, 1);
    QCOMPARE(CountedHandler::count(), 0);
    Q_EMIT device.changed();
    QCOMPARE(reactions, 1);
}

void PanorelQueueBrockerTest::clearFromTheHandlersOwnSlot()
{
    // No delivery is running; the handler goes on after the clear, and so does the object that it
    // owns and that emits.
    auto *handler = new EmittingHandler([this] {
        m_brocker->clear();
        m_order.append(QStringLiteral("cleared"));
    });
    m_brocker->subscribe(topicA, handler);
    m_brocker->subscribe(topicB, new CountedHandler);
    handler->emitChange();
    QCOMPARE(takeOrder(), QStringList({QStringLiteral("cleared")}));
    QCOMPARE(CountedHandler::count(), 1); // the other one went at once
    turnEventLoop();
    QCOMPARE(CountedHandler::count(), 0);

    Device device;
    auto *reacting = new DeviceHandler(&device, [this] { m_brocker->clear(); });
    m_brocker->subscribe(topicA, reacting);
    Q_EMIT device.changed();
    QCOMPARE(reacting->reactions, 1);
    turnEventLoop();
    QCOMPARE(CountedHandler::count(), 0);
}

void PanorelQueueBrockerTest::clearFromTheHandlersOwnQueuedSlot()
{
    auto *handler = new EmittingHandler([] {});
    Device device;
    bool alive = false;
    connect(
        &device, &Device::changed, handler,
        [&] {
            m_brocker->clear();
            alive = CountedHandler::count() == 1;
        },
        Qt::QueuedConnection);
    m_brocker->subscribe(topicA, handler);
    Q_EMIT device.changed();
    turnEventLoop();
    QVERIFY(alive);
    QTRY_COMPARE(CountedHandler::count(), 0);
}

void PanorelQueueBrockerTest::clearWhileAnOwnedObjectEmits()
{
    auto *handler = new EmittingHandler([this] { m_brocker->publish(Message(topicB)); });
    m_brocker->subscribe(topicA, handler);
    m_brocker->subscribe(topicB, [this](const Message &) { m_brocker->clear(); });
    handler->emitChange();
    QCOMPARE(CountedHandler::count(), 1);
    turnEventLoop();
    QCOMPARE(CountedHandler::count(), 0);
}

void PanorelQueueBrockerTest::subscribesAnewAfterAClearInADelivery()
{
    m_brocker->subscribe(topicA, new CountedHandler([this](const Message &) {
                             m_order.append(QStringLiteral("old"));
                             m_brocker->clear();
                             m_brocker->subscribe(topicA,
                                                  new CountedHandler(note(QStringLiteral("new"))));
                         }));
    m_brocker->publish(Message(topicA));
    turnEventLoop();
    m_brocker->publish(Message(topicA));
    QCOMPARE(takeOrder(), QStringList({QStringLiteral("old"), QStringLiteral("new")}));
    QCOMPARE(CountedHandler::count(), 1);
}

QTEST_GUILESS_MAIN(PanorelQueueBrockerTest)
#include "tst_panorelqueuebrocker.moc"
