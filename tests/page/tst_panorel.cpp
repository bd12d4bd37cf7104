#include "panorel/Panorel.h"

#include "panorel/MessageQueueBrocker.h"
#include "panorel/PanorelQuestionHandler.h"
#include "panorel/PanorelQueueBrocker.h"
#include "panorel/Panorel_p.h"
#include "panorel/ReplicContext.h"
#include "tests/page/StatisticFiles.h"
#include "tests/page/WidgetTestCase.h"
#include "tests/support/CountedHandler.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/Noted.h"
#include "tests/support/PictureFile.h"
#include "tests/support/Topics.h"

#include "host/FaceRect.h"
#include "host/FaceTrainStatus.h"
#include "host/UserData.h"

#include <QGridLayout>
#include <QMetaMethod>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QWebChannel>
#include <QWebEngineView>

using panorel::Message;
using panorel::Panorel;
using panorel::PanorelPrivate;
using panorel::PanorelProxy;
using panorel::PanorelQueueBrocker;

namespace {

/// Topics of the registry's handlers, in its order.
QStringList registry()
{
    return {
        QStringLiteral("dialog.say"),
        QStringLiteral("dialog.replica.get"),
        QStringLiteral("printer.state"),
        QStringLiteral("printer.print"),
        QStringLiteral("system.log"),
        QStringLiteral("system.statistic"),
        QStringLiteral("dialog.robot.replic.abort"),
        QStringLiteral("system.interaction.control"),
        QStringLiteral("system.environment.get"),
        QStringLiteral("system.settings.get"),
        QStringLiteral("system.drive.control"),
        QStringLiteral("system.scripts.control"),
        QStringLiteral("system.sound.properties"),
        QStringLiteral("system.language.set"),
        QStringLiteral("system.play.external"),
        QStringLiteral("face.recognize.control"),
        QStringLiteral("system.general.touch"),
        QStringLiteral("database.user.request"),
        QStringLiteral("dispenser.dispense"),
        QStringLiteral("sip.control"),
        QStringLiteral("scanner.passport.request"),
        QStringLiteral("scanner.document.request"),
        QStringLiteral("record.audio.request"),
        QStringLiteral("mail.sender.request"),
        QStringLiteral("operator.call.request"),
        QStringLiteral("keyboard.control.request"),
    };
}

QString defaultLine(const QString &topic)
{
    return QStringLiteral("Subsctribe default handler \"%1\"").arg(topic);
}

/// What defaultHandlers() logs after it has cleared the former set.
QStringList linesOfDefaultHandlers()
{
    const QString question = QStringLiteral("dialog.question.answer");
    QStringList lines{QStringLiteral("ReplicContext.clear()"),
                      QStringLiteral("Subsctribe functional handler \"%1\"").arg(question),
                      defaultLine(question)};
    const QStringList topics = registry() + forwardedTopics();
    for (const QString &topic : topics) {
        if (topic == QLatin1String("record.audio.request"))
            lines.append(QStringLiteral("FORMATS"));
        lines.append(defaultLine(topic));
    }
    return lines;
}

/// The library's lines since the last call, without the codecs that this machine has.
QStringList takeLines(LogRecorder &log)
{
    QStringList lines = log.takeTexts(QStringLiteral("panorel"));
    for (QString &line : lines)
        if (line.startsWith(QLatin1String("FORMATS (")))
            line = QStringLiteral("FORMATS");
    return lines;
}

/// A widget that brings a private part of its own.
class ExtendedPrivate : public PanorelPrivate
{
public:
    explicit ExtendedPrivate(bool *deleted)
        : m_deleted(deleted)
    { }
    ~ExtendedPrivate() override { *m_deleted = true; }

protected:
    panorel::MessageQueueBrocker *createBrocker() override { return new PanorelQueueBrocker; }

private:
    bool *m_deleted;
};

class ExtendedScreen : public Panorel
{
public:
    explicit ExtendedScreen(bool *deleted)
        : Panorel(*new ExtendedPrivate(deleted))
    { }

    PanorelPrivate *privatePart() const { return d; }
};

} // namespace

class PanorelTest : public WidgetTestCase
{
    Q_OBJECT

private:
    void setUp() override
    {
        WidgetTestCase::setUp();
        log().skipDebug();
    }

    /// The one message that @p event publishes on @p topic.
    Message published(const QString &topic, const std::function<void()> &event)
    {
        MessageRecorder recorder;
        recorder.watch(screen->brocker(), forwardedTopics() + topicsKeptInside());
        event();
        if (recorder.topics() != QStringList({topic})) {
            QTest::qFail(qPrintable(recorder.topics().join(QLatin1Char(' '))), __FILE__, __LINE__);
            return Message(topic);
        }
        Message message = recorder.take();
        screen->brocker()->clear(); // the recorder goes
        return message;
    }

private Q_SLOTS:
    void laysOutItsParts();
    void declaresNothingToTheMetaObject();
    void hasNoHandlerAtFirst();
    void takesAnExtendedPrivatePart();

    void buildsTheRegistryInOrder();
    void rebuildsTheRegistry();
    void keepsOneHandlerForEachTopic();
    void deletesTheHostsHandlers();
    void keepsTheReplicContext();
    void clearsTheReplicContext();
    void installsTheQuestionHandler();
    void deletesTheFormerQuestionHandlerLater();
    void survivesDefaultHandlersFromInsideAHandler();
    void survivesDefaultHandlersFromAHandlersDestructor();
    void survivesAQuestionAfterItsEnd();
    void survivesTheWholeLifeWithoutAHost();
    void forwardsBeforeTheHostsOwnHandlers();
    void registersHandlersAndCallables();
    void dropsMessagesOfThePageAfterItsEnd();
    void deletesHandlersWithItself();

    void handsOnTheStatisticPeriodicity();
    void reportsEvents_data();
    void reportsEvents();
    void reportsAUser();
    void reportsFaceRectangles();
    void clearsTheContextAfterTheRobotsLine();
    void livesWithoutAContext();
};

void PanorelTest::laysOutItsParts()
{
    auto *view = screen->findChild<QWebEngineView *>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(view);
    QWebChannel *channel = view->page()->webChannel();
    QVERIFY(channel);
    QCOMPARE(channel->parent(), view->page());
    QCOMPARE(channel->registeredObjects().keys(),
             QStringList({QStringLiteral("_karvel_internal")}));
    QCOMPARE(channel->registeredObjects().value(QStringLiteral("_karvel_internal")), proxy());
    QCOMPARE(proxy()->parent(), screen.get());
    QCOMPARE(proxy()->brocker(), screen->brocker());

    auto *layout = qobject_cast<QGridLayout *>(screen->layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->itemAtPosition(0, 0)->widget(), view);
    QCOMPARE(layout->count(), 1);
}

void PanorelTest::declaresNothingToTheMetaObject()
{
    const QMetaObject &meta = Panorel::staticMetaObject;
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void PanorelTest::hasNoHandlerAtFirst()
{
    QSignalSpy toPage(proxy(), &PanorelProxy::message);
    log().take();
    screen->userSaid(QStringLiteral("x"), true);
    proxy()->sendMessage({{QStringLiteral("type"), QStringLiteral("system.language.set")},
                          {QStringLiteral("language"), QStringLiteral("en")}});
    QCOMPARE(toPage.count(), 0);
    QCOMPARE(log().takeTexts(QStringLiteral("panorel")).size(), 2); // logged, and that is all
    QVERIFY(plugin->calls.isEmpty());
}

void PanorelTest::takesAnExtendedPrivatePart()
{
    bool deleted = false;
    {
        const ExtendedScreen extended(&deleted);
        QCOMPARE(extended.privatePart()->q, &extended);
        QVERIFY(extended.brocker());
        QVERIFY(extended.findChild<QWebEngineView *>());
    }
    QVERIFY(deleted);
}

void PanorelTest::buildsTheRegistryInOrder()
{
    log().take();
    defaultHandlers();
    QCOMPARE(takeLines(log()), linesOfDefaultHandlers());
}

void PanorelTest::rebuildsTheRegistry()
{
    defaultHandlers();
    log().take();
    defaultHandlers();
    QCOMPARE(takeLines(log()),
             QStringList({QStringLiteral("Delete handlers")}) + linesOfDefaultHandlers());
}

void PanorelTest::keepsOneHandlerForEachTopic()
{
    defaultHandlers();
    defaultHandlers();
    QSignalSpy toPage(proxy(), &PanorelProxy::message);
    screen->lostUser();
    QCOMPARE(toPage.count(), 1);
    proxy()->sendMessage({{QStringLiteral("type"), QStringLiteral("system.language.set")},
                          {QStringLiteral("language"), QStringLiteral("en")}});
    QCOMPARE(plugin->calls,
             QVector<HostCall>({{QStringLiteral("language"), {QStringLiteral("en")}}}));
}

void PanorelTest::deletesTheHostsHandlers()
{
    defaultHandlers();
    screen->registerEventHandler(QStringLiteral("cookie.set"), new CountedHandler);
    defaultHandlers();
    QCOMPARE(CountedHandler::count(), 0);
}

void PanorelTest::keepsTheReplicContext()
{
    bool deleted = false;
    ExtendedScreen extended(&deleted);
    QVERIFY(!extended.privatePart()->context);
    extended.defaultHandlers(plugin.get(), dialog.get());
    const panorel::ReplicContext *context = extended.privatePart()->context;
    QVERIFY(context);
    extended.defaultHandlers(plugin.get(), dialog.get());
    QCOMPARE(extended.privatePart()->context, context);
}

void PanorelTest::clearsTheReplicContext()
{
    bool deleted = false;
    ExtendedScreen extended(&deleted);
    extended.defaultHandlers(plugin.get(), dialog.get());
    extended.privatePart()->context->putMacrosValue(QStringLiteral("x"), QStringLiteral("1"));
    extended.defaultHandlers(plugin.get(), dialog.get());
    QCOMPARE(plugin->replacer->calls,
             QStringList({QStringLiteral("set x=1"), QStringLiteral("remove x")}));
}

void PanorelTest::installsTheQuestionHandler()
{
    defaultHandlers();
    QVERIFY(dialog->questionHandler);
    QCOMPARE(dialog->questionHandler->parent(), screen.get());
    QSignalSpy answers(dialog->questionHandler.data(), &QuestionHandler::hasAnswer);
    proxy()->sendMessage({{QStringLiteral("type"), QStringLiteral("dialog.question.answer")},
                          {QStringLiteral("text"), QStringLiteral("Tea")}});
    QCOMPARE(answers.count(), 1);
    QCOMPARE(answers.first().at(1).toString(), QStringLiteral("Tea"));
}

void PanorelTest::deletesTheFormerQuestionHandlerLater()
{
    defaultHandlers();
    const QPointer<QuestionHandler> former = dialog->questionHandler;
    // As from the slot of an answer: the former handler is emitting.
    connect(former.data(), &QuestionHandler::hasAnswer, this, [this] { defaultHandlers(); });
    proxy()->sendMessage({{QStringLiteral("type"), QStringLiteral("dialog.question.answer")}});
    QVERIFY(former);
    QVERIFY(dialog->formerAlive); // while the dialog module got the new one
    QVERIFY(dialog->questionHandler != former);
    turnEventLoop();
    QVERIFY(!former);
    QVERIFY(dialog->questionHandler);
}

void PanorelTest::survivesDefaultHandlersFromInsideAHandler()
{
    defaultHandlers();
    screen->registerEventHandler(QStringLiteral("cookie.set"),
                                 new CountedHandler([this](const Message &) {
                                     defaultHandlers();
                                     defaultHandlers();
                                 }));
    screen->registerEventHandler(QStringLiteral("user.lost.user"), [this](const Message &) {
        defaultHandlers(); // also while a message for the page is delivered
    });

    QSignalSpy toPage(proxy(), &PanorelProxy::message);
    screen->lostUser();
    QCOMPARE(toPage.count(), 1);
    proxy()->sendMessage({{QStringLiteral("type"), QStringLiteral("cookie.set")}});
    turnEventLoop();
    QCOMPARE(CountedHandler::count(), 0);
    screen->lostUser();
    QCOMPARE(toPage.count(), 2);
    proxy()->sendMessage({{QStringLiteral("type"), QStringLiteral("operator.call.request")},
                          {QStringLiteral("call"), true}});
    QCOMPARE(plugin->calls, QVector<HostCall>({{QStringLiteral("operatorCall"), {true}}}));
    QVERIFY(dialog->questionHandler);
}

void PanorelTest::survivesDefaultHandlersFromAHandlersDestructor()
{
    defaultHandlers();
    screen->registerEventHandler(QStringLiteral("cookie.set"),
                                 new CountedHandler({}, [this] { defaultHandlers(); }));
    defaultHandlers();
    QSignalSpy toPage(proxy(), &PanorelProxy::message);
    screen->lostUser();
    QCOMPARE(toPage.count(), 1);
}

void PanorelTest::survivesAQuestionAfterItsEnd()
{
    // The question handler outlives the bus, as a child of the widget.
    defaultHandlers();
    QuestionHandler *const question = dialog->questionHandler;
    question->setParent(nullptr);
    screen.reset();
    QString text = QStringLiteral("Tea?");
    QStringList answers;
    question->setQuestion(text, answers, false);
    question->cancel();
    delete question;
}

void PanorelTest::survivesTheWholeLifeWithoutAHost()
{
    makesUpAttributes({"call", "drive_point", "get_locale", "language", "state", "stop"});
    const PictureFile picture; // one is printed
    screen->defaultHandlers(nullptr, nullptr);
    QSignalSpy toPage(proxy(), &PanorelProxy::message);
    const QStringList topics = topicsKeptInside();
    for (const QString &topic : topics) {
        proxy()->sendMessage({{QStringLiteral("type"), topic},
                              {QStringLiteral("state"), QStringLiteral("Start")},
                              {QStringLiteral("stop"), true},
                              {QStringLiteral("language"), QStringLiteral("en")},
                              {QStringLiteral("call"), true},
                              {QStringLiteral("get_locale"), true},
                              {QStringLiteral("drive_point"), 1}});
    }
    // What can be answered without a robot is.
    QStringList answers;
    for (const QVariantList &arguments : qAsConst(toPage))
        answers.append(arguments.first().toJsonObject().value(QStringLiteral("type")).toString());
    answers.sort();
    QCOMPARE(
        answers,
        QStringList(
            {QStringLiteral("database.user.response"), QStringLiteral("dispenser.nodispenser"),
             QStringLiteral("printer.noprinter"), QStringLiteral("printer.state.info"),
             QStringLiteral("record.audio.response"), QStringLiteral("scanner.document.response"),
             QStringLiteral("scanner.passport.response"), QStringLiteral("system.environment.load"),
             QStringLiteral("system.settings.load")}));
    toPage.clear();
    screen->robotReplicFinish();
    QCOMPARE(toPage.count(), 1);
    screen->defaultHandlers(nullptr, nullptr);
    turnEventLoop();
    QCOMPARE(screen->findChildren<panorel::PanorelQuestionHandler *>().size(), 1);
}

void PanorelTest::forwardsBeforeTheHostsOwnHandlers()
{
    defaultHandlers();
    Noted<QStringList> order;
    connect(proxy(), &PanorelProxy::message, &order, [&order](const QJsonObject &message) {
        order.value.append(message.value(QStringLiteral("type")).toString());
    });
    screen->registerEventHandler(
        QStringLiteral("system.scripts.start.result"),
        [&order](const Message &) { order.value.append(QStringLiteral("host")); });
    proxy()->sendMessage({{QStringLiteral("type"), QStringLiteral("system.scripts.control")},
                          {QStringLiteral("start"), QStringLiteral("x")}});
    QCOMPARE(order.value,
             QStringList({QStringLiteral("system.scripts.start.result"), QStringLiteral("host")}));
}

void PanorelTest::registersHandlersAndCallables()
{
    defaultHandlers();
    QStringList order;
    screen->registerEventHandler(
        QStringLiteral("cookie.set"),
        new CountedHandler([&order](const Message &) { order.append(QStringLiteral("handler")); }));
    screen->registerEventHandler(QStringLiteral("cookie.set"), [&order](const Message &) {
        order.append(QStringLiteral("callable"));
    });
    proxy()->sendMessage({{QStringLiteral("type"), QStringLiteral("cookie.set")}});
    QCOMPARE(order, QStringList({QStringLiteral("handler"), QStringLiteral("callable")}));
}

void PanorelTest::dropsMessagesOfThePageAfterItsEnd()
{
    defaultHandlers();
    PanorelProxy *const survivor = proxy();
    survivor->setParent(nullptr);
    screen.reset();
    QVERIFY(!survivor->sendMessage({{QStringLiteral("type"), QStringLiteral("system.language.set")},
                                    {QStringLiteral("language"), QStringLiteral("en")}}));
    QVERIFY(plugin->calls.isEmpty());
    delete survivor;
}

void PanorelTest::deletesHandlersWithItself()
{
    defaultHandlers();
    const QPointer<QuestionHandler> question = dialog->questionHandler;
    screen->registerEventHandler(QStringLiteral("cookie.set"), new CountedHandler);
    screen.reset();
    QCOMPARE(CountedHandler::count(), 0);
    QVERIFY(!question);
}

void PanorelTest::handsOnTheStatisticPeriodicity()
{
    const QString topic = QStringLiteral("panorel-test-periodicity");
    const StatisticFiles files(topic);
    if (!files.isWritable())
        QSKIP("The robot's home belongs to somebody else; build with a preset for a desk.");
    const auto foldersOfARecord = [&] {
        proxy()->sendMessage({{QStringLiteral("type"), QStringLiteral("system.statistic")},
                              {QStringLiteral("topic"), topic}});
        QStringList folders = files.folders();
        files.remove();
        return folders;
    };
    const QRegularExpression day(QStringLiteral("^\\d{2}\\.\\d{2}\\.\\d{4}$"));
    const QRegularExpression year(QStringLiteral("^\\d{4}$"));

    defaultHandlers();
    screen->setStatisticPeriodicity(QStringLiteral("year"));
    QStringList folders = foldersOfARecord(); // the handler that stands keeps its period
    QCOMPARE(folders.size(), 1);
    QVERIFY2(day.match(folders.first()).hasMatch(), qPrintable(folders.first()));

    defaultHandlers();
    folders = foldersOfARecord();
    QCOMPARE(folders.size(), 1);
    QVERIFY2(year.match(folders.first()).hasMatch(), qPrintable(folders.first()));
}

using Event = std::function<void(Panorel &)>;
Q_DECLARE_METATYPE(Event)

void PanorelTest::reportsEvents_data()
{
    QTest::addColumn<Event>("event");
    QTest::addColumn<QString>("topic");
    QTest::addColumn<QVariantMap>("attributes");
    const auto row = [](const char *topic, const Event &event, const QVariantMap &attributes,
                        const char *name = nullptr) {
        QTest::newRow(name ? name : topic) << event << QString::fromLatin1(topic) << attributes;
    };
    const auto key = [](const char *name) { return QString::fromLatin1(name); };

    row("user.lost.user", [](Panorel &p) { p.lostUser(); }, {});
    row("dialog.robot.replic.finish", [](Panorel &p) { p.robotReplicFinish(); }, {});
    row("system.settings.update", [](Panorel &p) { p.updateSettings(); }, {});
    row("system.scripts.end", [](Panorel &p) { p.scriptEnd(); }, {});
    const QVariantMap custom{{key("type"), key("mine")}, {key("list"), QVariantList({1, 2})}};
    row(
        "system.custom.event.core", [custom](Panorel &p) { p.customEvent(custom); }, custom);
    row(
        "system.custom.event.core", [](Panorel &p) { p.customEvent({}); }, {}, "custom, empty");
    row("dialog.user.said", [](Panorel &p) { p.userSaid(QStringLiteral("Hi"), true); },
        {{key("text"), key("Hi")}, {key("is_finish"), true}});
    row(
        "dialog.user.said", [](Panorel &p) { p.userSaid(QString(), false); },
        {{key("text"), QString()}, {key("is_finish"), false}}, "user said, empty");
    row("dialog.robot.replic.start",
        [](Panorel &p) { p.robotReplicStart(QStringLiteral("Hello")); },
        {{key("text"), key("Hello")}});
    row("dialog.action",
        [](Panorel &p) {
            p.userAction({QStringLiteral("a"), QStringLiteral("b")});
        },
        {{key("meta"), QStringList({key("a"), key("b")})}});
    row("system.application.finish",
        [](Panorel &p) {
            p.applicationFinish(QStringLiteral("quiz"), RetData::Cancelled, QVariantList({1}));
        },
        {{key("name"), key("quiz")}, {key("status"), 1}, {key("data"), QVariantList({1})}});
    row("system.drive.mode", [](Panorel &p) { p.driveMode(DriveModeFollow); }, {{key("mode"), 2}});
    row("system.drive.status", [](Panorel &p) { p.driveStatus(MovementStatusReached); },
        {{key("status"), 3}});
    row("system.drive.charge",
        [](Panorel &p) { p.driveChargerStatus(ChargerMovementStatusCharging); },
        {{key("charge"), 2}});
    row("face.add.status", [](Panorel &p) { p.faceAddStatus(FaceTrainStatus(4)); },
        {{key("status"), 4}});
    row("face.recognize.general", [](Panorel &p) { p.faceGeneral(1LL << 52); },
        {{key("general"), 1LL << 52}});
    row("operator.control.status", [](Panorel &p) { p.operatorControl(true); },
        {{key("status"), true}});
    row("operator.call.response", [](Panorel &p) { p.operatorResponse(2); },
        {{key("response"), key("2")}});
    row(
        "operator.call.response", [](Panorel &p) { p.operatorResponse(255); },
        {{key("response"), key("255")}}, "operator response, largest");
    row("system.page.hidden", [](Panorel &p) { p.pageHidden(false); }, {{key("close"), false}});
}

void PanorelTest::reportsEvents()
{
    QFETCH(Event, event);
    QFETCH(QString, topic);
    QFETCH(QVariantMap, attributes);
    const Message message = published(topic, [this, &event] { event(*screen); });
    QVERIFY(!message.id().isNull());
    QCOMPARE(message.attributes(), attributes);
    for (auto it = attributes.constBegin(); it != attributes.constEnd(); ++it)
        QCOMPARE(message.attributes().value(it.key()).userType(), it.value().userType());
}

void PanorelTest::reportsAUser()
{
    FaceInfo face;
    face.setId(7);
    UserData user;
    user.setInfo(face);
    user.setName(QStringLiteral("Ann"));
    const Message message =
        published(QStringLiteral("user.has.user"), [&] { screen->hasUser(user); });
    QVariantMap expected = user.toJson().toVariantMap();
    expected.insert(QStringLiteral("user_id"), expected.value(QStringLiteral("id")));
    QCOMPARE(message.attributes(), expected);
    QCOMPARE(message.attributes().value(QStringLiteral("user_id")).toLongLong(), 7LL);
    QCOMPARE(message.attributes().value(QStringLiteral("id")).toLongLong(), 7LL);
    // The envelope hides the person's id.
    QCOMPARE(message.toJson().value(QStringLiteral("id")).toString(), message.id().toString());
    QCOMPARE(message.toJson().value(QStringLiteral("user_id")).toInt(), 7);
}

void PanorelTest::reportsFaceRectangles()
{
    const QVector<FaceRectPtr> rects{FaceRectPtr::create(QRectF(1, 2, 3, 4), 5LL)};
    for (const QVector<FaceRectPtr> &reported : {rects, QVector<FaceRectPtr>()}) {
        log().take();
        const Message message =
            published(QStringLiteral("system.general.touch"), [&] { screen->faceRect(reported); });
        const QVariant value = message.attributes().value(QStringLiteral("rect"));
        QCOMPARE(value.typeName(), "QVector<FaceRectPtr>");
        QCOMPARE(value.value<QVector<FaceRectPtr>>(), reported);
    }

    defaultHandlers();
    QSignalSpy toPage(proxy(), &PanorelProxy::message);
    log().take();
    screen->faceRect(rects);
    QCOMPARE(toPage.count(), 0);
    QCOMPARE(log().take().size(), 0);
}

void PanorelTest::clearsTheContextAfterTheRobotsLine()
{
    bool deleted = false;
    ExtendedScreen extended(&deleted);
    extended.defaultHandlers(plugin.get(), dialog.get());
    extended.privatePart()->context->putMacrosValue(QStringLiteral("x"), QStringLiteral("1"));
    QStringList callsAtPublish;
    extended.registerEventHandler(
        QStringLiteral("dialog.robot.replic.finish"),
        [&](const Message &) { callsAtPublish = plugin->replacer->calls; });
    extended.robotReplicFinish();
    QCOMPARE(callsAtPublish, QStringList({QStringLiteral("set x=1")}));
    QCOMPARE(plugin->replacer->calls,
             QStringList({QStringLiteral("set x=1"), QStringLiteral("remove x")}));
}

void PanorelTest::livesWithoutAContext()
{
    screen->robotReplicFinish(); // before defaultHandlers(): only publishes
    QCOMPARE(plugin->replacer->calls, QStringList());
}

QTEST_MAIN(PanorelTest)
#include "tst_panorel.moc"
