#include "simulator/app/SimulatorWindow.h"

#include "panorel/Constants.h"
#include "panorel/MessageQueueBrocker.h"
#include "simulator/app/DemoVisit.h"
#include "simulator/app/MessageLog.h"
#include "simulator/app/MessageReporter.h"
#include "simulator/app/RobotScreen.h"
#include "simulator/core/OperatorDesk.h"
#include "simulator/core/RobotCore.h"
#include "simulator/core/SimulatedCamera.h"
#include "simulator/core/SimulatedDialogModule.h"
#include "simulator/core/SimulatedDrive.h"
#include "simulator/core/SimulatedFaces.h"
#include "simulator/core/SimulatedScripts.h"
#include "simulator/core/SimulatedSpeech.h"
#include "simulator/core/SqliteUsersDatabase.h"
#include "simulator/server/PageServer.h"
#include "tests/simulator/PanelControls.h"
#include "tests/simulator/TestPeople.h"
#include "tests/support/TestCase.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QWebSocket>

#include <memory>

using panorel::Message;
using namespace simulator;
namespace topics = panorel::constants;

/// The window without a page: what the robot's parts and the panel's buttons put on the bus.
class SimulatorWindowTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void partsReportToThePage();
    void everyButtonOfThePanelWorks_data();
    void everyButtonOfThePanelWorks();
    void sendsNoBrokenCustomEvent();
    void cameraReportsToThePage();
    void peopleEnterAndLeave();
    void listShowsFaceReportsWhenAsked();
    void cameraSeesInPixelsOfThePage();
    void fitsTheDesk();
    void devicesTakeNoMoreRoomThanTheOtherTabs();
    void somethingBlocksTheWay();
    void aPersonIsGreeted();
    void theDialogGoesOnUntilNobodyIsLeft();
    void whatIsSaidIsAnswered();
    void thePagesChoiceGoesOn();
    void lentMacrosEndWithTheTurn();
    void theRobotSpeaksThePagesLanguage();
    void demoVisitReachesThePage();
    void showsWhereThePageIsServed();
    void tellsThePageOfChangedSettings();

protected:
    void setUp() override
    {
        m_core = std::make_unique<RobotCore>();
        m_window = std::make_unique<SimulatorWindow>(m_core.get());
        m_topics.clear();
        m_last.clear();
        connect(m_window->screen()->reporter(), &MessageReporter::published, this,
                [this](const Message &message) {
                    m_topics.append(message.type());
                    m_last.insert(message.type(), message.attributes());
                });
    }
    void tearDown() override
    {
        m_window.reset();
        m_core.reset();
    }

private:
    QWidget *tab(const QString &title) const;
    QList<QPushButton *> buttons(const QWidget *page, const QString &text) const;

    std::unique_ptr<RobotCore> m_core;
    std::unique_ptr<SimulatorWindow> m_window;
    QStringList m_topics;
    QMap<QString, QVariantMap> m_last; // topic to the attributes that it had last
};

QWidget *SimulatorWindowTest::tab(const QString &title) const
{
    auto *tabs = m_window->findChild<QTabWidget *>();
    for (int i = 0; i < tabs->count(); ++i) {
        if (tabs->tabText(i) == title)
            return tabs->widget(i);
    }
    qFatal("no tab %s", qPrintable(title));
}

QList<QPushButton *> SimulatorWindowTest::buttons(const QWidget *page, const QString &text) const
{
    QList<QPushButton *> found;
    const auto all = page->findChildren<QPushButton *>();
    for (QPushButton *button : all) {
        if (button->text() == text)
            found.append(button);
    }
    return found;
}

void SimulatorWindowTest::partsReportToThePage()
{
    m_core->speech()->say(QStringLiteral("Hello"));
    m_core->speech()->cancel();
    m_core->drive()->setMode(DriveModeFollow);
    m_core->drive()->driveTo(1);
    m_core->drive()->setCharger(false);
    m_core->scripts()->start(QStringLiteral("tour"));
    m_core->scripts()->cancel();
    m_core->operatorDesk()->respond(2);
    m_core->operatorDesk()->setControl(true);
    m_core->faces()->addFace(1);
    m_core->faces()->deleteFace(1);
    const QStringList expected{
        topics::ROBOT_REPLIC_START,
        topics::ROBOT_REPLIC_FINISH,
        topics::DRIVE_MODE,
        topics::DRIVE_STATUS,
        topics::SCRIPTS_END,
        topics::OPERATOR_CALL_RESPONSE,
        topics::OPERATOR_CONTROL_STATUS,
        topics::FACE_ADD_STATUS,
    };
    QCOMPARE(m_topics, expected);
}

void SimulatorWindowTest::everyButtonOfThePanelWorks_data()
{
    QTest::addColumn<QString>("tabTitle");
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("which"); // of several with this text
    QTest::addColumn<QString>("topic");
    const auto row = [](const char *page, const char *button, int which, const QString &topic) {
        QTest::newRow(qPrintable(topic)) << page << button << which << topic;
    };
    row("Person", "Comes", 0, topics::USER_HAS);
    row("Person", "Leaves", 0, topics::USER_LOST);
    row("Person", "Says", 0, topics::USER_SAID);
    row("Person", "Acts", 0, topics::USER_ACTION);
    row("Person", "Report", 0, topics::FACE_RECOGNIZE_GENERAL);
    row("Person", "Report", 1, topics::FACE_ADD_STATUS);
    row("Robot", "Starts", 0, topics::ROBOT_REPLIC_START);
    row("Robot", "Ends", 0, topics::ROBOT_REPLIC_FINISH);
    row("Robot", "Switch", 0, topics::DRIVE_MODE);
    row("Robot", "Report", 0, topics::DRIVE_STATUS);
    row("Robot", "Report", 1, topics::DRIVE_CHARGE);
    row("Robot", "Ends", 1, topics::SCRIPTS_END);
    row("Dialog", "Ask", 0, topics::QUESTION_NEW);
    row("Dialog", "Says something unasked", 0, topics::LOAD_EXTRA_REPLICA);
    row("Dialog", "Answers", 0, topics::OPERATOR_CALL_RESPONSE);
    row("Dialog", "In control", 0, topics::OPERATOR_CONTROL_STATUS);
    row("Dialog", "Starts", 0, topics::INTERACTION_STATE);
    row("App", "Send", 0, topics::CUSTOM_EVENT_CORE);
    row("App", "Ends", 0, topics::APPLICATION_FINISH);
    row("App", "Page hidden", 0, topics::SYSTEM_PAGE_HIDDEN);
    row("App", "Settings changed", 0, topics::SETTINGS_UPDATE);
}

void SimulatorWindowTest::everyButtonOfThePanelWorks()
{
    QFETCH(QString, tabTitle);
    QFETCH(QString, button);
    QFETCH(int, which);
    QFETCH(QString, topic);
    const QList<QPushButton *> found = buttons(tab(tabTitle), button);
    QVERIFY2(which < found.size(), qPrintable(button));
    found.at(which)->click();
    // The robot may go on from there, by itself.
    QCOMPARE(m_topics.constFirst(), topic);
    QCOMPARE(m_topics.count(topic), 1);
    QCOMPARE(m_window->log()->rowCount(), m_topics.size());
}

void SimulatorWindowTest::sendsNoBrokenCustomEvent()
{
    QWidget *page = tab(QStringLiteral("App"));
    QLineEdit *json = nullptr;
    const auto edits = page->findChildren<QLineEdit *>();
    for (QLineEdit *edit : edits) {
        if (edit->text().contains(QStringLiteral("offer")))
            json = edit;
    }
    QVERIFY(json);
    for (const QString &text : {QStringLiteral("{"), QStringLiteral("[1]"), QString()}) {
        json->setText(text);
        buttons(page, QStringLiteral("Send")).constFirst()->click();
    }
    QVERIFY(m_topics.isEmpty());
}

void SimulatorWindowTest::cameraReportsToThePage()
{
    m_core->camera()->enter();
    QCOMPARE(m_topics, QStringList{topics::FACE_RECOGNIZE_GENERAL});
    m_topics.clear();
    m_core->camera()->step();
    // The rectangles, and the faces inside and for the page.
    const QStringList expected{topics::GENERAL_TOUCH, topics::GENERAL_TOUCH,
                               topics::FACE_RECOGNIZE_INFO};
    QCOMPARE(m_topics, expected);
    QCOMPARE(m_window->log()->rowCount(), 1); // only the main face
}

void SimulatorWindowTest::peopleEnterAndLeave()
{
    const QWidget *page = tab(QStringLiteral("Camera"));
    page->findChild<QSpinBox *>()->setValue(1);
    buttons(page, QStringLiteral("Enter")).constFirst()->click();
    QCOMPARE(m_topics.count(topics::USER_HAS), 1);
    page->findChild<QSpinBox *>()->setValue(0);
    buttons(page, QStringLiteral("Enter")).constFirst()->click();
    QCOMPARE(m_topics.count(topics::USER_HAS), 1); // a stranger
    QCOMPARE(m_core->camera()->people().size(), 2);

    // Who came first leaves first.
    buttons(page, QStringLiteral("Leaves")).constFirst()->click();
    QVERIFY(m_core->camera()->people().at(0).isLeaving);
    QVERIFY(!m_core->camera()->people().at(1).isLeaving);
    buttons(page, QStringLiteral("All leave")).constFirst()->click();
    for (int i = 0; i < 5000 && !m_core->camera()->people().isEmpty(); ++i)
        m_core->camera()->step();
    QVERIFY(m_core->camera()->people().isEmpty());
    QCOMPARE(m_topics.count(topics::USER_LOST), 1);

    page->findChild<QCheckBox *>()->setChecked(false);
    QVERIFY(!m_core->camera()->isOn());
}

void SimulatorWindowTest::listShowsFaceReportsWhenAsked()
{
    auto *box = controls::find<QCheckBox>(m_window.get(), "Face reports");
    QVERIFY(!box->isChecked());
    m_core->camera()->enter();
    box->setChecked(true);
    const int before = m_window->log()->rowCount();
    m_core->camera()->step();
    QCOMPARE(m_window->log()->rowCount(), before + 3);
}

void SimulatorWindowTest::cameraSeesInPixelsOfThePage()
{
    // The pictures of the camera are as large as the robot's screen.
    QRectF area;
    connect(m_core->camera(), &SimulatedCamera::reported, this,
            [&area](const QVector<FaceRectPtr> &rects) {
                for (const FaceRectPtr &rect : rects)
                    area |= rect->rect();
            });
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    m_core->camera()->enter();
    for (int i = 0; i < 3000; ++i)
        m_core->camera()->step();
    const QSizeF screen = m_window->screen()->size();
    QVERIFY(QRectF(QPointF(), screen).contains(area));
    QVERIFY(area.width() > screen.width() / 2);
    log().drop(QStringLiteral("propagateSizeHints")); // of a display that is none
}

void SimulatorWindowTest::fitsTheDesk()
{
    const QSize least = m_window->minimumSizeHint();
    QVERIFY2(least.width() <= 1280 && least.height() <= 800,
             qPrintable(QStringLiteral("%1 x %2").arg(least.width()).arg(least.height())));
}

void SimulatorWindowTest::devicesTakeNoMoreRoomThanTheOtherTabs()
{
    const auto *tabs = m_window->findChild<QTabWidget *>();
    const QWidget *devices = tab(QStringLiteral("Devices"));
    int others = 0;
    for (int i = 0; i < tabs->count(); ++i) {
        if (tabs->widget(i) != devices)
            others = qMax(others, tabs->widget(i)->sizeHint().height());
    }
    QVERIFY2(devices->sizeHint().height() <= others,
             qPrintable(QStringLiteral("%1 > %2").arg(devices->sizeHint().height()).arg(others)));
}

void SimulatorWindowTest::somethingBlocksTheWay()
{
    m_core->drive()->driveTo(1);
    buttons(tab(QStringLiteral("Robot")), QStringLiteral("Blocked")).constFirst()->click();
    QCOMPARE(m_core->drive()->status(), MovementStatusBlocked);
    QCOMPARE(m_last.value(topics::DRIVE_STATUS).value(QStringLiteral("status")).toInt(),
             static_cast<int>(MovementStatusBlocked));
}

void SimulatorWindowTest::theDialogGoesOnUntilNobodyIsLeft()
{
    QVERIFY(m_core->devices().users->addUser(testPerson(2, QStringLiteral("Ben"))));

    m_core->camera()->enter(1);
    QVERIFY(m_core->dialog()->askQuestion(QStringLiteral("Tea?"), {QStringLiteral("Yes")}));
    const auto greeting = m_core->dialog()->lastReplica();
    m_core->camera()->enter(2);
    QCOMPARE(m_core->dialog()->lastReplica(), greeting); // not greeted over the dialog
    m_core->camera()->leave(m_core->camera()->people().first().track);
    QTRY_COMPARE(m_core->camera()->knownPeople(), 1);
    QCOMPARE(m_core->dialog()->openQuestion(), QStringLiteral("Tea?"));
    m_core->camera()->leave(m_core->camera()->people().first().track);
    QTRY_COMPARE(m_core->camera()->knownPeople(), 0);
    QCOMPARE(m_core->dialog()->openQuestion(), QString());
}

void SimulatorWindowTest::aPersonIsGreeted()
{
    buttons(tab(QStringLiteral("Person")), QStringLiteral("Comes")).constFirst()->click();
    QCOMPARE(m_topics,
             (QStringList{topics::USER_HAS, topics::LOAD_GREETING, topics::ROBOT_REPLIC_START}));
    const QVariantMap greeting =
        m_last.value(topics::LOAD_GREETING).value(QStringLiteral("greeting")).toMap();
    const QString text = greeting.value(QStringLiteral("text")).toString();
    QVERIFY2(text.contains(QStringLiteral("Anna")), qPrintable(text));
    QCOMPARE(m_last.value(topics::ROBOT_REPLIC_START).value(QStringLiteral("text")).toString(),
             text);
    m_core->speech()->cancel();
    QCOMPARE(m_topics.last(), topics::ROBOT_REPLIC_FINISH);
}

void SimulatorWindowTest::whatIsSaidIsAnswered()
{
    m_core->dialog()->hear(QStringLiteral("Where is"), false);
    QCOMPARE(m_topics, QStringList{topics::USER_SAID});
    m_core->dialog()->hear(QStringLiteral("Where is the exit?"), true);
    QCOMPARE(m_topics,
             (QStringList{topics::USER_SAID, topics::USER_SAID, topics::LOAD_ANSWER,
                          topics::ROBOT_REPLIC_START}));
    const QVariantMap answer =
        m_last.value(topics::LOAD_ANSWER).value(QStringLiteral("answer")).toMap();
    QCOMPARE(answer.value(QStringLiteral("question")).toString(),
             QStringLiteral("Where is the exit?"));
    QCOMPARE(answer.value(QStringLiteral("replica")).toMap().value(QStringLiteral("text")),
             m_last.value(topics::ROBOT_REPLIC_START).value(QStringLiteral("text")));
}

void SimulatorWindowTest::thePagesChoiceGoesOn()
{
    m_core->dialog()->hear(QStringLiteral("Where can I go?"), true);
    const QStringList choices =
        m_last.value(topics::QUESTION_NEW).value(QStringLiteral("answers")).toStringList();
    QVERIFY(choices.contains(QStringLiteral("Exit")));
    m_topics.clear();
    m_window->screen()->brocker()->publish(
        Message(topics::QUESTION_ANSWER, {{QStringLiteral("text"), QStringLiteral("Exit")}}));
    QVERIFY(m_topics.contains(topics::LOAD_ANSWER));
    QVERIFY(m_core->speech()->text().contains(QStringLiteral("exit")));
    QVERIFY(m_core->dialog()->openQuestion().isEmpty());
}

void SimulatorWindowTest::lentMacrosEndWithTheTurn()
{
    const QVariantMap lent{{QStringLiteral("name"), QStringLiteral("Clara")},
                           {QStringLiteral("gate"), QStringLiteral("7")}};
    const auto say = [this](const QMap<QString, QVariant> &attributes) {
        m_window->screen()->brocker()->publish(Message(topics::SAY, attributes));
    };
    say({{QStringLiteral("text"), QStringLiteral("%name%, gate %gate%")},
         {QStringLiteral("macroses"), lent}});
    QCOMPARE(m_core->speech()->text(), QStringLiteral("Clara, gate 7"));
    m_core->speech()->cancel();
    say({{QStringLiteral("text"), QStringLiteral("%name%, gate %gate%")}});
    // The scenario's own value is back.
    QCOMPARE(m_core->speech()->text(), QStringLiteral("dear guest, gate %gate%"));

    say({{QStringLiteral("step"), QStringLiteral("goodbye")}, {QStringLiteral("macroses"), lent}});
    QVERIFY(m_core->speech()->text().contains(QStringLiteral("Clara")));
}

void SimulatorWindowTest::theRobotSpeaksThePagesLanguage()
{
    m_window->screen()->brocker()->publish(
        Message(topics::SET_LANGUAGE, {{QStringLiteral("language"), QStringLiteral("de")}}));
    m_core->dialog()->hear(QStringLiteral("Wo ist der Ausgang?"), true);
    QVERIFY2(m_core->speech()->text().contains(QStringLiteral("Ausgang")),
             qPrintable(m_core->speech()->text()));
}

void SimulatorWindowTest::demoVisitReachesThePage()
{
    m_core->pace().setSpeed(500);
    DemoVisit visit(m_core.get(), m_window->screen());
    QSignalSpy finished(&visit, &DemoVisit::finished);
    visit.start();
    visit.start(); // goes on instead
    QTRY_COMPARE(finished.count(), 1);
    for (const QString &topic :
         {topics::USER_HAS, topics::LOAD_GREETING, topics::INTERACTION_STATE,
          topics::ROBOT_REPLIC_START, topics::ROBOT_REPLIC_FINISH, topics::USER_SAID,
          topics::LOAD_ANSWER, topics::QUESTION_NEW, topics::CUSTOM_EVENT_CORE})
        QVERIFY2(m_topics.contains(topic), qPrintable(topic));
    QCOMPARE(m_topics.count(topics::USER_HAS), 1);
    QVERIFY(!m_core->dialog()->openQuestion().isEmpty());
}

// The robot works as before, and a browser is seen to come and go.
void SimulatorWindowTest::showsWhereThePageIsServed()
{
    QTemporaryDir folder;
    PageServer::Settings settings;
    settings.folder = folder.path();
    auto server = std::make_unique<PageServer>(settings, m_window->screen()->pageObjects());
    QVERIFY(server->listen());
    m_window->serve(server.get());
    QVERIFY(m_window->screen()->isHidden());

    const auto text = [this](const char *name) {
        return m_window->findChild<QLabel *>(QLatin1String(name))->text();
    };
    QVERIFY(text("address").contains(server->address().toString(QUrl::FullyEncoded)));
    QVERIFY(text("browsers").startsWith(QStringLiteral("No browser")));

    QUrl channel(server->address());
    channel.setScheme(QStringLiteral("ws"));
    channel.setPath(QStringLiteral("/channel"));
    QWebSocket browser;
    browser.open(channel);
    QTRY_VERIFY(text("browsers").startsWith(QStringLiteral("One browser")));
    QWebSocket stranger(QStringLiteral("http://evil.example"));
    stranger.open(channel);
    QTRY_VERIFY(text("refused").contains(QStringLiteral("evil.example")));

    m_core->dialog()->hear(QStringLiteral("Who are you?"), true);
    QVERIFY(m_topics.contains(topics::LOAD_ANSWER));
    browser.close();
    QTRY_VERIFY(text("browsers").startsWith(QStringLiteral("No browser")));
    server.reset(); // before the window, as in the program
}

void SimulatorWindowTest::tellsThePageOfChangedSettings()
{
    m_core->plugin()->applicationSettings().setValue(QStringLiteral("/screen/title"), 1);
    QCOMPARE(m_topics.count(topics::SETTINGS_UPDATE), 1);
    m_core->plugin()->systemSettings().setValue(QStringLiteral("/sound/volume"), 1);
    QCOMPARE(m_topics.count(topics::SETTINGS_UPDATE), 2);
    m_core->plugin()->setEmailParameters({}); // nothing that a page could ask for
    QCOMPARE(m_topics.count(topics::SETTINGS_UPDATE), 2);
}

QTEST_MAIN(SimulatorWindowTest)

#include "tst_simulatorwindow.moc"
