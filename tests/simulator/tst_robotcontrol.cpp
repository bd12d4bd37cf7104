#include "simulator/server/RobotControl.h"

#include "host/UserData.h"
#include "panorel/Constants.h"
#include "panorel/PanorelQueueBrocker.h"
#include "simulator/core/OperatorDesk.h"
#include "simulator/core/Outbox.h"
#include "simulator/core/RobotCore.h"
#include "simulator/core/SimulatedCamera.h"
#include "simulator/core/SimulatedDispenser.h"
#include "simulator/core/SimulatedDrive.h"
#include "simulator/core/SimulatedInteractionService.h"
#include "simulator/core/SimulatedPrinter.h"
#include "simulator/core/SimulatedScanner.h"
#include "simulator/core/SqliteUsersDatabase.h"
#include "simulator/core/TelephoneLine.h"
#include "tests/support/TestCase.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

using simulator::Outbox;
using simulator::RobotControl;
using simulator::RobotCore;
using simulator::TelephoneLine;

class RobotControlTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void letsPeopleComeAndGo();
    void makesAPersonKnown();
    void refusesWhoIsKnown();
    void speaksAndAsks();
    void startsAndStopsAnInteraction();
    void steersThePrinter();
    void steersTheDispenser();
    void steersTheScanners_data();
    void steersTheScanners();
    void steersTheTelephone();
    void steersTheDrive();
    void steersTheOperator();
    void refusesMails();
    void setsThePace();
    void tellsThePage();
    void saysWhatIsWrong_data();
    void saysWhatIsWrong();
    void aWrongValueChangesNothing();
    void saysWhatIsMissing_data();
    void saysWhatIsMissing();
    void tellsTheState();
    void tellsMessages();
    void documentNamesEveryAction();

protected:
    void setUp() override { make({}); }
    void tearDown() override
    {
        Outbox::instance().accept();
        TelephoneLine::instance().setOutcome(TelephoneLine::Outcome::Answered);
        m_control.reset();
        m_core.reset();
        m_bus.reset();
    }

private:
    void make(const RobotCore::Equipment &equipment)
    {
        m_control.reset();
        m_core.reset(new RobotCore(equipment));
        m_bus.reset(new panorel::PanorelQueueBrocker);
        m_control.reset(new RobotControl(m_core.data(), m_bus.data()));
    }
    RobotControl::Reply post(const char *action, const QByteArray &body = {})
    {
        return m_control->answer("POST", QLatin1String(action), {}, body);
    }
    /// What the action answered; fails when it was not performed.
    QJsonObject act(const char *action, const QByteArray &body = {})
    {
        const RobotControl::Reply reply = post(action, body);
        if (reply.status != 200)
            QTest::qFail(reply.body.constData(), __FILE__, __LINE__);
        return QJsonDocument::fromJson(reply.body).object();
    }
    QJsonObject get(const char *name, const QMap<QString, QString> &query = {})
    {
        return QJsonDocument::fromJson(
                   m_control->answer("GET", QLatin1String(name), query, {}).body)
            .object();
    }

    QScopedPointer<RobotCore> m_core;
    QScopedPointer<panorel::PanorelQueueBrocker> m_bus;
    QScopedPointer<RobotControl> m_control;
};

void RobotControlTest::letsPeopleComeAndGo()
{
    const int track = act("enter").value(QStringLiteral("track")).toInt();
    QVERIFY(track > 0);
    act("enter");
    QCOMPARE(m_core->camera()->people().size(), 2);

    act("leave", R"({"track": )" + QByteArray::number(track) + "}");
    QVERIFY(m_core->camera()->people().constFirst().isLeaving);
    QVERIFY(!m_core->camera()->people().constLast().isLeaving);
    act("leave");
    QVERIFY(m_core->camera()->people().constLast().isLeaving);
    QCOMPARE(post("leave", R"({"track": 99})").status, 400);
}

void RobotControlTest::makesAPersonKnown()
{
    const QJsonObject who = act("enter", R"({"name": "Ada", "age": 36})");
    UserData user;
    QVERIFY(m_core->devices().users->user(who.value(QStringLiteral("id")).toInt(), user));
    QCOMPARE(user.name(), QStringLiteral("Ada"));
    QCOMPARE(user.info().age(), 36.0);
    QCOMPARE(m_core->camera()->knownPeople(), 1);
}

void RobotControlTest::refusesWhoIsKnown()
{
    act("enter", R"({"name": "Ada", "id": 4711})");
    const RobotControl::Reply again = post("enter", R"({"name": "Bob", "id": 4711})");
    QCOMPARE(again.status, 400);
    QVERIFY(again.body.contains("4711"));
    QCOMPARE(post("enter", R"({"id": 4711})").status, 400); // is in the picture
    QCOMPARE(m_core->camera()->people().size(), 1);
}

void RobotControlTest::speaksAndAsks()
{
    QSignalSpy heard(m_core->dialog(), &simulator::SimulatedDialogModule::heard);
    act("hear", R"({"text": "Where is", "final": false})");
    act("hear", R"({"text": "Where is the exit?"})");
    QCOMPARE(heard.size(), 2);
    QCOMPARE(heard.at(0), (QVariantList{QStringLiteral("Where is"), false}));
    QCOMPARE(heard.at(1), (QVariantList{QStringLiteral("Where is the exit?"), true}));

    QSignalSpy cancelled(m_core->dialog(), &simulator::SimulatedDialogModule::questionCancelled);
    act("ask", R"({"text": "Tea?", "answers": ["yes", "no"]})");
    act("ask");
    QCOMPARE(m_core->dialog()->openQuestion(), QString());
    QCOMPARE(cancelled.size(), 0); // no handler is installed, so nothing was asked
}

void RobotControlTest::startsAndStopsAnInteraction()
{
    QSignalSpy started(m_core->devices().interaction.data(), &IInteractionService::started);
    act("interaction", R"({"reason": "touch"})");
    QCOMPARE(started.size(), 1);
    QCOMPARE(started.at(0).at(0).value<Interaction::Reason>(), Interaction::ScreenTouched);
    act("interaction");
    QVERIFY(!m_core->devices().interaction->isRunning());
}

void RobotControlTest::steersThePrinter()
{
    simulator::SimulatedPrinter *printer = m_core->devices().printer.data();
    act("printer", R"({"paper": 7, "refusing": true})");
    QCOMPARE(printer->paper(), 7);
    QVERIFY(printer->isRefusing());
    act("printer", R"({"error": {"code": 7, "text": "cutter"}})");
    QCOMPARE(printer->state(), PrinterState::Error);
    QCOMPARE(printer->errorCode(), 7);
    QCOMPARE(printer->errorText(), QStringLiteral("cutter"));
    act("printer", R"({"clear": true})");
    QCOMPARE(printer->state(), PrinterState::Idle);
    act("printer", R"({"connected": false})");
    QVERIFY(!printer->isConnected());
}

void RobotControlTest::steersTheDispenser()
{
    simulator::SimulatedDispenser *dispenser = m_core->devices().dispenser.data();
    act("dispenser", R"({"cards": 2, "jammed": true, "bin_full": true})");
    QCOMPARE(dispenser->cards(), 2);
    QVERIFY(dispenser->isJammed());
    QVERIFY(dispenser->isBinFull());
    act("dispenser", R"({"status": 2048})");
    QCOMPARE(dispenser->status(), static_cast<unsigned short>(2048));

    act("dispenser", R"({"jammed": false, "bin_full": false})");
    dispenser->setIssueTime(0);
    dispenser->issueCard(1);
    const unsigned short atTheExit = 4;
    QTRY_COMPARE(dispenser->status() & atTheExit, int(atTheExit));
    act("dispenser", R"({"taken": true})");
    QCOMPARE(dispenser->status() & atTheExit, 0);
    act("dispenser", R"({"connected": false})");
    QVERIFY(!dispenser->isConnected());
}

void RobotControlTest::steersTheScanners_data()
{
    QTest::addColumn<bool>("passport");
    QTest::newRow("passport-scanner") << true;
    QTest::newRow("document-scanner") << false;
}

void RobotControlTest::steersTheScanners()
{
    QFETCH(bool, passport);
    const simulator::RobotDevices &devices = m_core->devices();
    simulator::SimulatedScanner *scanner =
        passport ? devices.passportScanner.data() : devices.documentScanner.data();
    const char *action = QTest::currentDataTag();

    act(action, R"({"present": false, "fields": {"Name": "ADA"}})");
    QVERIFY(!scanner->isDocumentPresent());
    QCOMPARE(scanner->result(),
             (QMap<QString, QString>{{QStringLiteral("Name"), QStringLiteral("ADA")}}));
    QSignalSpy errors(scanner, &IScanner::signalError);
    QVERIFY(scanner->scan(10));
    act(action, R"({"error": {"code": 5, "text": "lamp"}})");
    QCOMPARE(errors.size(), 1);
    QCOMPARE(errors.at(0).at(1).toString(), QStringLiteral("lamp"));
    act(action, R"({"connected": false})");
    QVERIFY(!scanner->isConnected());
}

void RobotControlTest::steersTheTelephone()
{
    TelephoneLine &line = TelephoneLine::instance();
    QSignalSpy keys(&line, &TelephoneLine::keyPressed);
    QSignalSpy hungUp(&line, &TelephoneLine::hungUp);
    act("telephone", R"({"outcome": "no answer", "key": 11, "hang_up": true})");
    QCOMPARE(line.outcome(), TelephoneLine::Outcome::NoAnswer);
    QCOMPARE(keys.value(0).value(0).toInt(), TelephoneLine::HashTone);
    QCOMPARE(hungUp.size(), 1);
}

void RobotControlTest::steersTheDrive()
{
    simulator::SimulatedDrive *drive = m_core->drive();
    act("drive", R"({"mode": "automatic", "travel_time": 600000})");
    QCOMPARE(drive->mode(), DriveModeAutomatic);
    drive->driveTo(3);
    QCOMPARE(drive->status(), MovementStatusMoving);
    act("drive", R"({"block": true})");
    QCOMPARE(drive->status(), MovementStatusBlocked);
}

void RobotControlTest::steersTheOperator()
{
    QSignalSpy responses(m_core->operatorDesk(), &simulator::OperatorDesk::responded);
    act("operator", R"({"response": 2, "control": true})");
    QCOMPARE(responses.value(0).value(0).toInt(), 2);
    QVERIFY(m_core->operatorDesk()->hasControl());
}

void RobotControlTest::refusesMails()
{
    int code = 0;
    QString text;
    act("mail", R"({"error": {"code": 550, "text": "no such user"}})");
    QVERIFY(Outbox::instance().isRefusing(code, text));
    QCOMPARE(code, 550);
    QCOMPARE(text, QStringLiteral("no such user"));
    act("mail");
    QVERIFY(!Outbox::instance().isRefusing(code, text));
}

void RobotControlTest::setsThePace()
{
    act("pace", R"({"speed": 50})");
    QCOMPARE(m_core->pace().speed(), 50.0);
    act("pace");
    QCOMPARE(m_core->pace().speed(), 1.0);
}

void RobotControlTest::tellsThePage()
{
    QVector<panorel::Message> heard;
    m_bus->subscribe(panorel::constants::CUSTOM_EVENT_CORE,
                     [&heard](const panorel::Message &message) { heard.append(message); });
    act("tell", R"({"topic": "system.custom.event.core", "attributes": {"a": 1}})");
    QCOMPARE(heard.size(), 1);
    QCOMPARE(heard.constFirst().attributes().value(QStringLiteral("a")).toInt(), 1);
}

void RobotControlTest::saysWhatIsWrong_data()
{
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("says");
    const auto post = [](const char *row, const char *action, const char *body, int status,
                         const char *says) {
        QTest::newRow(row) << QByteArray("POST") << QString::fromLatin1(action) << QByteArray(body)
                           << status << QByteArray(says);
    };
    post("unknown action", "fly", "", 404, "enter, leave");
    post("no JSON", "leave", "{", 400, "JSON object");
    post("no object", "leave", "[1]", 400, "JSON object");
    post("unknown value", "printer", R"({"papers": 1})", 400, "connected, paper");
    post("takes nothing so named", "pace", R"({"x": 1})", 400, "speed");
    post("no flag", "printer", R"({"refusing": 1})", 400, "true or false");
    post("no whole number", "printer", R"({"paper": 1.5})", 400, "whole number from 0");
    post("too small", "printer", R"({"paper": -1})", 400, "whole number from 0");
    post("too large", "operator", R"({"response": 256})", 400, "to 255");
    post("number as text", "printer", R"({"paper": "1"})", 400, "paper");
    post("no text", "hear", R"({"text": 1})", 400, "a text");
    post("text is needed", "hear", "{}", 400, "is needed");
    post("no list", "ask", R"({"text": "a", "answers": "b"})", 400, "a list of texts");
    post("no list of texts", "ask", R"({"text": "a", "answers": ["b", 1]})", 400, "list of texts");
    post("no choice", "telephone", R"({"outcome": "lost"})", 400, "answered, busy");
    post("no object of texts", "passport-scanner", R"({"fields": {"a": 1}})", 400, "of texts");
    post("no error", "printer", R"({"error": true})", 400, "an object");
    post("error without code", "printer", R"({"error": {"text": "x"}})", 400, "code");
    post("error with more", "printer", R"({"error": {"code": 1, "x": 2}})", 400, "code, text");
    post("error of a mail", "mail", R"({"error": {}})", 400, "code");
    post("no speed", "pace", R"({"speed": 0})", 400, "from 0.01");
    post("no topic of the page", "tell", R"({"topic": "dialog.say"})", 400, "docs/protocol.md");
    QTest::newRow("tells nothing so named") << QByteArray("GET") << QStringLiteral("printer")
                                            << QByteArray() << 404 << QByteArray("POST");
    QTest::newRow("other method") << QByteArray("DELETE") << QStringLiteral("state") << QByteArray()
                                  << 405 << QByteArray("GET and POST");
}

void RobotControlTest::saysWhatIsWrong()
{
    QFETCH(QByteArray, method);
    QFETCH(QString, name);
    QFETCH(QByteArray, body);
    QFETCH(int, status);
    QFETCH(QByteArray, says);
    const QJsonObject before = get("state");
    const RobotControl::Reply reply = m_control->answer(method, name, {}, body);
    QCOMPARE(reply.status, status);
    const QString error =
        QJsonDocument::fromJson(reply.body).object().value(QStringLiteral("error")).toString();
    QVERIFY2(error.contains(QString::fromLatin1(says)), qPrintable(error));
    QCOMPARE(get("state"), before);
}

void RobotControlTest::aWrongValueChangesNothing()
{
    QCOMPARE(post("printer", R"({"paper": 7, "connected": "yes"})").status, 400);
    QCOMPARE(m_core->devices().printer->paper(), 50);
}

void RobotControlTest::saysWhatIsMissing_data()
{
    QTest::addColumn<QByteArray>("body");
    for (const char *action : {"printer", "dispenser", "passport-scanner", "document-scanner"})
        QTest::newRow(action) << QByteArray();
    QTest::newRow("enter") << QByteArray(R"({"name": "Ada"})");
}

void RobotControlTest::saysWhatIsMissing()
{
    QFETCH(QByteArray, body);
    RobotCore::Equipment nothing;
    nothing.printer = nothing.dispenser = nothing.passportScanner = false;
    nothing.documentScanner = nothing.keyboard = nothing.users = false;
    make(nothing);
    const RobotControl::Reply reply = post(QTest::currentDataTag(), body);
    QCOMPARE(reply.status, 400);
    QVERIFY2(reply.body.contains("--without"), reply.body.constData());
    QVERIFY(get("state").value(QStringLiteral("keyboard")).isNull());
}

void RobotControlTest::tellsTheState()
{
    act("enter");
    act("printer", R"({"paper": 3})");
    act("operator", R"({"control": true})");
    m_core->drive()->driveTo(5);
    const QJsonObject state = get("state");
    const auto part = [&state](const char *name) {
        return state.value(QLatin1String(name)).toObject();
    };
    QCOMPARE(state.value(QStringLiteral("people")).toInt(), 1);
    QCOMPARE(state.value(QStringLiteral("language")).toString(), QStringLiteral("en"));
    QCOMPARE(part("printer").value(QStringLiteral("paper")).toInt(), 3);
    QCOMPARE(part("operator").value(QStringLiteral("control")).toBool(), true);
    QCOMPARE(part("drive").value(QStringLiteral("point")).toInt(), 5);
    QCOMPARE(part("drive").value(QStringLiteral("status")).toInt(), int(MovementStatusMoving));
    QCOMPARE(part("keyboard").value(QStringLiteral("locale")).toString(), QStringLiteral("en_GB"));
}

void RobotControlTest::tellsMessages()
{
    makesUpMessages();
    using panorel::Message;
    simulator::MessageHistory *history = m_control->history();
    QJsonObject fromPage{{QStringLiteral("type"), QStringLiteral("dialog.say")},
                         {QStringLiteral("id"), QString()},
                         {QStringLiteral("text"), QStringLiteral("hi")}};
    history->add(Message::fromJson(fromPage));
    history->add(Message(panorel::constants::USER_LOST));
    history->add(Message(panorel::constants::FACE_RECOGNIZE_INFO)); // left out
    history->add(Message(panorel::constants::COOKIE_SET));

    QJsonObject told = get("messages");
    QJsonArray messages = told.value(QStringLiteral("messages")).toArray();
    QCOMPARE(told.value(QStringLiteral("next")).toInt(), 3);
    QCOMPARE(messages.size(), 3);
    const QJsonObject first = messages.at(0).toObject();
    QCOMPARE(first.value(QStringLiteral("topic")).toString(), QStringLiteral("dialog.say"));
    QCOMPARE(first.value(QStringLiteral("direction")).toString(), QStringLiteral("from page"));
    QCOMPARE(first.value(QStringLiteral("attributes")).toObject(),
             (QJsonObject{{QStringLiteral("text"), QStringLiteral("hi")}}));
    QCOMPARE(messages.at(1).toObject().value(QStringLiteral("direction")).toString(),
             QStringLiteral("to page"));
    QCOMPARE(messages.at(2).toObject().value(QStringLiteral("direction")).toString(),
             QStringLiteral("inside"));

    const QString tooLong(simulator::MessageHistory::LongestMessage, QLatin1Char('x'));
    history->add(Message(panorel::constants::USER_SAID, {{QStringLiteral("text"), tooLong}}));
    told = get("messages", {{QStringLiteral("since"), QStringLiteral("3")}});
    messages = told.value(QStringLiteral("messages")).toArray();
    QCOMPARE(messages.size(), 1);
    QVERIFY(messages.at(0).toObject().value(QStringLiteral("cut")).toBool());
    QVERIFY(!messages.at(0).toObject().contains(QStringLiteral("attributes")));

    for (int i = 0; i < simulator::MessageHistory::Capacity; ++i)
        history->add(Message(panorel::constants::USER_LOST));
    messages = get("messages").value(QStringLiteral("messages")).toArray();
    QCOMPARE(messages.size(), simulator::MessageHistory::Capacity);
    QCOMPARE(messages.at(0).toObject().value(QStringLiteral("number")).toInt(), 4);

    for (const QString &since : {QStringLiteral("x"), QStringLiteral("-1")})
        QCOMPARE(
            m_control
                ->answer("GET", QStringLiteral("messages"), {{QStringLiteral("since"), since}}, {})
                .status,
            400);
    QCOMPARE(get("messages", {{QStringLiteral("since"), QStringLiteral("99999")}})
                 .value(QStringLiteral("messages"))
                 .toArray()
                 .size(),
             0);
}

void RobotControlTest::documentNamesEveryAction()
{
    QFile file(QStringLiteral(PANOREL_SERVE_DOCUMENT));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll());
    const QStringList actions = simulator::RobotActions::names();
    for (const QString &action : actions)
        QVERIFY2(text.contains(QStringLiteral("`%1`").arg(action)), qPrintable(action));
}

QTEST_GUILESS_MAIN(RobotControlTest)
#include "tst_robotcontrol.moc"
