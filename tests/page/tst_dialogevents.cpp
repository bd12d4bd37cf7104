#include "tests/page/WidgetTestCase.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/PageRequest.h"
#include "tests/support/RecordFields.h"
#include "tests/support/Topics.h"

#include "panorel/MessageQueueBrocker.h"

#include <QJsonObject>
#include <QSignalSpy>

#include <functional>

using panorel::Message;
using panorel::PanorelProxy;

namespace {

constexpr QUuid someUuid(0x6ba7b810, 0x9dad, 0x11d1, 0x80, 0xb4, 0x00, 0xc0, 0x4f, 0xd4, 0x30,
                         0xc8);
const QString noUuid = QStringLiteral("{00000000-0000-0000-0000-000000000000}");

QStringList replicaKeys()
{
    return {
        QStringLiteral("actions"),  QStringLiteral("anchor"), QStringLiteral("animation"),
        QStringLiteral("category"), QStringLiteral("id"),     QStringLiteral("screen_text"),
        QStringLiteral("text"),     QStringLiteral("type"),   QStringLiteral("url"),
    };
}

QStringList greetingKeys()
{
    QStringList keys = replicaKeys();
    keys.removeOne(QStringLiteral("screen_text"));
    return keys;
}

QSharedPointer<Replica> someReplica()
{
    auto replica = QSharedPointer<Replica>::create();
    replica->setId(ID(4294967295U, someUuid));
    replica->setAnchor(ID(2147483648U, QUuid()));
    replica->setCategory(ID(3, someUuid));
    replica->setText(QStringLiteral("Welcome"));
    replica->setScreenText(QStringLiteral("WELCOME"));
    replica->setUrl(QStringLiteral("https://example.org/ä b?c=d&e=%26#f"));
    replica->setActions(QStringLiteral("wave,nod"));
    replica->setAnimation(static_cast<Animation>(-17));
    replica->setType(Replica::Farewell);
    return replica;
}

QSharedPointer<Answer> someAnswer()
{
    auto answer = QSharedPointer<Answer>::create();
    answer->setId(ID(4, someUuid));
    answer->setSource(Answer::Question);
    answer->setIdPattern(ID(5, QUuid()));
    answer->setPattern(QStringLiteral("* tea *"));
    answer->setQuestion(QStringLiteral("Is there tea?"));
    answer->setReplica(*someReplica());
    return answer;
}

QJsonObject idJson(double number, const QString &uuid)
{
    return {{QStringLiteral("id"), number}, {QStringLiteral("uuid"), uuid}};
}

/// someReplica() as the page gets it.
QJsonObject someReplicaJson()
{
    return {
        {QStringLiteral("id"), idJson(4294967295.0, someUuid.toString())},
        {QStringLiteral("anchor"), idJson(2147483648.0, noUuid)},
        {QStringLiteral("category"), idJson(3, someUuid.toString())},
        {QStringLiteral("text"), QStringLiteral("Welcome")},
        {QStringLiteral("screen_text"), QStringLiteral("WELCOME")},
        {QStringLiteral("url"), QStringLiteral("https://example.org/%C3%A4%20b?c=d&e=%26#f")},
        {QStringLiteral("actions"), QStringLiteral("wave,nod")},
        {QStringLiteral("animation"), -17},
        {QStringLiteral("type"), 2},
    };
}

} // namespace

class DialogEventsTest : public WidgetTestCase
{
    Q_OBJECT

private:
    void setUp() override
    {
        WidgetTestCase::setUp();
        log().skipDebug();
    }

    /// The map under @p key in the one message that @p event publishes, which has no other.
    QVariantMap published(const QString &topic, const QString &key,
                          const std::function<void()> &event)
    {
        MessageRecorder recorder;
        recorder.watch(screen->brocker(), forwardedTopics() + topicsKeptInside());
        log().skipDebug();
        event();
        if (recorder.topics() != QStringList({topic})) {
            QTest::qFail(qPrintable(recorder.topics().join(QLatin1Char(' '))), __FILE__, __LINE__);
            return {};
        }
        const Message message = recorder.take();
        screen->brocker()->clear(); // the recorder goes
        const QVariantMap attributes = message.attributes();
        if (attributes.size() != 1 || attributes.value(key).userType() != QMetaType::QVariantMap)
            QTest::qFail(qPrintable(debugText(attributes)), __FILE__, __LINE__);
        // The broker's line comes first and holds the message.
        if (log().takeFirst().text != debugText(message.toJson()))
            QTest::qFail("the message was not logged", __FILE__, __LINE__);
        return attributes.value(key).toMap();
    }
    QVariantMap greeting(const QSharedPointer<Replica> &replica)
    {
        return published(QStringLiteral("dialog.greeting.load"), QStringLiteral("greeting"),
                         [&] { screen->greeting(replica); });
    }
    QVariantMap extraReplica(const QSharedPointer<Replica> &replica)
    {
        return published(QStringLiteral("dialog.replica.extra.load"), QStringLiteral("replica"),
                         [&] { screen->extraReplica(replica); });
    }
    QVariantMap answer(const QSharedPointer<Answer> &answer)
    {
        return published(QStringLiteral("dialog.answer.load"), QStringLiteral("answer"),
                         [&] { screen->answerResult(answer); });
    }

    /// What the page gets of @p event.
    QJsonObject received(const std::function<void()> &event)
    {
        QSignalSpy toPage(proxy(), &PanorelProxy::message);
        event();
        if (toPage.count() != 1) {
            QTest::qFail("the page did not get one message", __FILE__, __LINE__);
            return {};
        }
        return toPage.first().first().toJsonObject();
    }

    /// The page says what it got under @p key of @p event, as @p asKey.
    void handBack(const QString &key, const QString &asKey, const std::function<void()> &event)
    {
        defaultHandlers();
        const QJsonObject message = received(event);
        QVERIFY(message.value(key).isObject());
        proxy()->sendMessage(
            {{QStringLiteral("type"), QStringLiteral("dialog.say")}, {asKey, message.value(key)}});
    }

private Q_SLOTS:
    void greetsWithoutAScreenText();
    void givesAnExtraReplica();
    void givesAnAnswer();
    void keepsTheTypesOfTheFields();
    void joinsActions_data();
    void joinsActions();
    void givesEmptyRecords();
    void publishesAgainWithANewId();
    void reachesThePage();
    void leavesTheMacrosAlone();
    void dropsNullRecords();
    void takesAReplicaBack();
    void takesAGreetingBack();
    void takesAnAnswerBack();
    void takesAnEmptyAnswerBack();
};

void DialogEventsTest::greetsWithoutAScreenText()
{
    const QVariantMap map = greeting(someReplica());
    QCOMPARE(map.keys(), greetingKeys());
    QJsonObject expected = someReplicaJson();
    expected.remove(QStringLiteral("screen_text"));
    QCOMPARE(Message(QString(), {{QStringLiteral("x"), map}}).toJson().value(QStringLiteral("x")),
             QJsonValue(expected));
}

void DialogEventsTest::givesAnExtraReplica()
{
    const QVariantMap map = extraReplica(someReplica());
    QCOMPARE(map.keys(), replicaKeys());
    QCOMPARE(Message(QString(), {{QStringLiteral("x"), map}}).toJson().value(QStringLiteral("x")),
             QJsonValue(someReplicaJson()));
}

void DialogEventsTest::givesAnAnswer()
{
    const QVariantMap map = answer(someAnswer());
    const QJsonObject expected{
        {QStringLiteral("id"), idJson(4, someUuid.toString())},
        {QStringLiteral("source"), 2},
        {QStringLiteral("id_pattern"), idJson(5, noUuid)},
        {QStringLiteral("pattern"), QStringLiteral("* tea *")},
        {QStringLiteral("question"), QStringLiteral("Is there tea?")},
        {QStringLiteral("replica"), someReplicaJson()},
    };
    QCOMPARE(Message(QString(), {{QStringLiteral("x"), map}}).toJson().value(QStringLiteral("x")),
             QJsonValue(expected));
}

void DialogEventsTest::keepsTheTypesOfTheFields()
{
    const QVariantMap map = answer(someAnswer());
    const auto typeOf = [](const QVariantMap &record, const char *key) {
        return record.value(QString::fromLatin1(key)).userType();
    };
    const QVariantMap id = map.value(QStringLiteral("id")).toMap();
    QCOMPARE(typeOf(id, "id"), int(QMetaType::UInt));
    QCOMPARE(typeOf(id, "uuid"), int(QMetaType::QUuid));
    QCOMPARE(typeOf(map, "source"), int(QMetaType::Int));
    const QVariantMap replica = map.value(QStringLiteral("replica")).toMap();
    QCOMPARE(typeOf(replica, "url"), int(QMetaType::QUrl));
    QCOMPARE(typeOf(replica, "actions"), int(QMetaType::QString));
    QCOMPARE(typeOf(replica, "animation"), int(QMetaType::Int));
    QCOMPARE(typeOf(replica, "type"), int(QMetaType::Int));
}

void DialogEventsTest::joinsActions_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << QString();
    QTest::newRow("one") << QStringLiteral("wave");
    QTest::newRow("two") << QStringLiteral("wave,nod");
    QTest::newRow("three") << QStringLiteral("wave(2),nod,screen: \"a b\"");
    QTest::newRow("empty ones") << QStringLiteral(",wave,");
}

void DialogEventsTest::joinsActions()
{
    QFETCH(QString, text);
    auto replica = QSharedPointer<Replica>::create();
    replica->setActions(text);
    const QString key = QStringLiteral("actions");
    QCOMPARE(greeting(replica).value(key), QVariant(text));
    QCOMPARE(extraReplica(replica).value(key), QVariant(text));
    auto record = QSharedPointer<Answer>::create();
    record->setReplica(*replica);
    QCOMPARE(answer(record).value(QStringLiteral("replica")).toMap().value(key), QVariant(text));
}

void DialogEventsTest::givesEmptyRecords()
{
    const QSharedPointer<Replica> empty = QSharedPointer<Replica>::create();
    QCOMPARE(greeting(empty).keys(), greetingKeys());
    QCOMPARE(extraReplica(empty).keys(), replicaKeys());
    const QVariantMap map = answer(QSharedPointer<Answer>::create());
    QCOMPARE(map.keys(),
             QStringList({QStringLiteral("id"), QStringLiteral("id_pattern"),
                          QStringLiteral("pattern"), QStringLiteral("question"),
                          QStringLiteral("replica"), QStringLiteral("source")}));
    QCOMPARE(map.value(QStringLiteral("replica")).toMap().keys(), replicaKeys());
    const QJsonObject json = Message(QString(), map).toJson();
    QCOMPARE(json.value(QStringLiteral("id_pattern")).toObject(), idJson(0, noUuid));
}

void DialogEventsTest::publishesAgainWithANewId()
{
    MessageRecorder recorder;
    recorder.watch(screen->brocker(), forwardedTopics());
    const QSharedPointer<Replica> replica = someReplica();
    const QSharedPointer<Answer> record = someAnswer();
    for (int i = 0; i < 2; ++i) {
        screen->greeting(replica);
        screen->extraReplica(replica);
        screen->answerResult(record);
    }
    QVector<Message> messages;
    QSet<QString> ids;
    while (!recorder.isEmpty()) {
        messages.append(recorder.take());
        ids.insert(messages.last().id().toString());
    }
    QCOMPARE(messages.size(), 6);
    QCOMPARE(ids.size(), 6);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(messages.at(i).attributes(), messages.at(i + 3).attributes());
    screen->brocker()->clear();
}

void DialogEventsTest::reachesThePage()
{
    defaultHandlers();
    const auto check = [this](const QString &topic, const QString &key, const QJsonObject &record,
                              const std::function<void()> &event) {
        QJsonObject message = received(event);
        QVERIFY(!QUuid(message.take(QStringLiteral("id")).toString()).isNull());
        const QJsonObject expected{{QStringLiteral("type"), topic}, {key, record}};
        QCOMPARE(message, expected);
    };
    QJsonObject greetingJson = someReplicaJson();
    greetingJson.remove(QStringLiteral("screen_text"));
    check(QStringLiteral("dialog.greeting.load"), QStringLiteral("greeting"), greetingJson,
          [this] { screen->greeting(someReplica()); });
    check(QStringLiteral("dialog.replica.extra.load"), QStringLiteral("replica"), someReplicaJson(),
          [this] { screen->extraReplica(someReplica()); });
}

void DialogEventsTest::leavesTheMacrosAlone()
{
    defaultHandlers();
    proxy()->sendMessage({{QStringLiteral("type"), QStringLiteral("dialog.say")},
                          {QStringLiteral("macroses"),
                           QJsonObject{{QStringLiteral("name"), QStringLiteral("Ann")}}}});
    screen->greeting(someReplica());
    screen->extraReplica(someReplica());
    screen->answerResult(someAnswer());
    QCOMPARE(plugin->replacer->calls, QStringList({QStringLiteral("set name=Ann")}));
    QVERIFY(plugin->calls.isEmpty());
    screen->robotReplicFinish(); // the turn's end
    QCOMPARE(plugin->replacer->calls,
             QStringList({QStringLiteral("set name=Ann"), QStringLiteral("remove name")}));
}

void DialogEventsTest::dropsNullRecords()
{
    log().skipDebug();
    screen->greeting({});
    screen->extraReplica({});
    screen->answerResult({});
    QCOMPARE(log().takeTexts(QStringLiteral("panorel")), QStringList());
}

void DialogEventsTest::takesAReplicaBack()
{
    handBack(QStringLiteral("replica"), QStringLiteral("replica"),
             [this] { screen->extraReplica(someReplica()); });
    QCOMPARE(dialog->replicas.size(), 1);
    QCOMPARE(fields(*dialog->replicas.first()), fields(*someReplica()));
}

void DialogEventsTest::takesAGreetingBack()
{
    handBack(QStringLiteral("greeting"), QStringLiteral("replica"),
             [this] { screen->greeting(someReplica()); });
    QCOMPARE(dialog->replicas.size(), 1);
    const QSharedPointer<Replica> expected = someReplica();
    expected->setScreenText(QString());
    QCOMPARE(fields(*dialog->replicas.first()), fields(*expected));
}

void DialogEventsTest::takesAnAnswerBack()
{
    handBack(QStringLiteral("answer"), QStringLiteral("answer"),
             [this] { screen->answerResult(someAnswer()); });
    QCOMPARE(dialog->answers.size(), 1);
    QCOMPARE(fields(*dialog->answers.first()), fields(*someAnswer()));
}

void DialogEventsTest::takesAnEmptyAnswerBack()
{
    handBack(QStringLiteral("answer"), QStringLiteral("answer"),
             [this] { screen->answerResult(QSharedPointer<Answer>::create()); });
    QCOMPARE(dialog->answers.size(), 1);
    QCOMPARE(fields(*dialog->answers.first()), fields(Answer()));
}

QTEST_MAIN(DialogEventsTest)
#include "tst_dialogevents.moc"
