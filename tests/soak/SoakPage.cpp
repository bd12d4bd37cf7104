#include "tests/soak/SoakPage.h"

#include "benchmarks/FaceReport.h"
#include "panorel/Constants.h"
#include "panorel/Panorel.h"
#include "panorel/Panorel_p.h"
#include "tests/soak/FaultyBrocker.h"
#include "tests/soak/SoakRobot.h"
#include "tests/soak/Texts.h"
#include "tests/support/Noted.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QPixmap>
#include <QTimer>
#include <QUrl>
#include <QWebEngineView>

using panorel::Message;

namespace {

constexpr int loadLimitMs = 60000;
constexpr int settleLimitMs = 60000;
constexpr int pollMs = 2;
constexpr double nanosecondsOfMs = 1e6;

class ScreenPrivate : public panorel::PanorelPrivate
{
public:
    explicit ScreenPrivate(const QString &fault)
        : m_fault(fault)
    { }

protected:
    panorel::MessageQueueBrocker *createBrocker() override { return new FaultyBrocker(m_fault); }

private:
    const QString m_fault;
};

/// The library's widget, but that its bus may have a fault.
class Screen : public panorel::Panorel
{
public:
    explicit Screen(const QString &fault)
        : Panorel(*new ScreenPrivate(fault))
    { }
};

double elapsedMs(const QElapsedTimer &timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / nanosecondsOfMs;
}

} // namespace

SoakPage::SoakPage(SoakRobot *robot, const QString &fault)
    : m_robot(robot)
    , m_screen(std::make_unique<Screen>(fault))
    , m_view(m_screen->findChild<QWebEngineView *>())
{
    buildHandlers();
    m_screen->resize(800, 600);
    m_screen->show(); // the engine slows down pages that nobody sees
}

SoakPage::~SoakPage() = default;

void SoakPage::buildHandlers()
{
    ++m_handlerSets;
    m_screen->defaultHandlers(m_robot, m_robot->dialog());
    subscribe();
}

void SoakPage::subscribe()
{
    using namespace panorel::constants;
    for (const QString &topic : {SCRIPTS_CONTROL, SETTINGS_GET, SET_LANGUAGE, SAY,
                                 FACE_RECOGNIZE_CONTROL, CUSTOM_EVENT_JS}) {
        m_screen->registerEventHandler(topic,
                                       [this](const Message &message) { onRequest(message); });
    }
    for (const char *name :
         {"hello", "started", "pong", "report", "seen", "large", "taken", "flooded"}) {
        const QString saidName = QString::fromLatin1(name);
        m_screen->registerEventHandler(
            QStringLiteral("soak.") + saidName, [this, saidName](const Message &message) {
                if (saidName == QLatin1String("seen"))
                    m_seen = message.attributes().value(QStringLiteral("last")).toInt();
                Q_EMIT said(saidName, message.attributes());
            });
    }
}

void SoakPage::onRequest(const Message &message)
{
    const QVariantMap attributes = message.attributes();
    // The handlers of the other topics have called the robot before this.
    if (message.type() == panorel::constants::CUSTOM_EVENT_JS)
        m_robot->requests().take(
            texts::numberOf(attributes.value(QStringLiteral("text")).toString()));
    m_requests.take(attributes.value(QStringLiteral("soak")).toInt());

    if (m_requests.count() % handlersPeriod != 0)
        return;
    // In turn as a host may: from its event loop, and while a message is delivered.
    if (m_requests.count() / handlersPeriod % 2 == 0)
        buildHandlers();
    else
        QTimer::singleShot(0, this, &SoakPage::buildHandlers);
}

bool SoakPage::open()
{
    Noted<QStringList> heard;
    connect(this, &SoakPage::said, &heard,
            [&heard](const QString &name) { heard.value.append(name); });
    const auto isLoaded = [&heard] { return heard.value.contains(QStringLiteral("hello")); };
    const auto isStarted = [&heard] { return heard.value.contains(QStringLiteral("started")); };
    m_screen->load(QUrl::fromLocalFile(QStringLiteral(PANOREL_SOAK_PAGE)).toString());
    ++m_loads;
    if (waitFor(isLoaded, loadLimitMs)) {
        // Nothing numbered comes between this and the page's first message: the road keeps the order.
        m_unheard += m_robot->issued() - m_settled;
        m_settled = m_robot->issued();
        m_seen = m_settled;
        command(QStringLiteral("start"),
                {{QStringLiteral("first"), m_settled + 1},
                 {QStringLiteral("next"), m_requests.last() + 1}});
        waitFor(isStarted, loadLimitMs);
    }
    return isStarted();
}

void SoakPage::publishEvent()
{
    const int number = m_robot->issue();
    const QString text = texts::textOf(number);
    switch (number % 4) {
    case 0:
        return m_screen->customEvent(
            {{QStringLiteral("text"), text},
             {QStringLiteral("nested"),
              QVariantMap{{QStringLiteral("list"),
                           QVariantList{1, QVariantMap{{QStringLiteral("text"), text}}}}}}});
    case 1:
        return m_screen->userSaid(text, number % 8 == 1);
    case 2:
        return m_screen->userAction({QStringLiteral("choose"), text});
    default:
        return m_screen->robotReplicStart(text);
    }
}

void SoakPage::publishFaces()
{
    const int number = m_robot->issue();
    const QVector<FaceInfoPtr> report = faceReport(20, 5);
    for (const FaceInfoPtr &face : report)
        face->setIdTrack(number);
    m_screen->faceInfo(report);
}

int SoakPage::messagesOnTheirWay() const { return m_robot->issued() - m_seen; }

void SoakPage::command(const QString &name, QVariantMap arguments)
{
    arguments.insert(QStringLiteral("command"), name);
    m_screen->customEvent(arguments);
}

void SoakPage::requestUntil(int number)
{
    m_requested = number;
    command(QStringLiteral("work"), {{QStringLiteral("until"), number}});
}

QString SoakPage::check()
{
    Noted<QVariantMap> noted;
    connect(this, &SoakPage::said, &noted, [&noted](const QString &name, const QVariantMap &said) {
        if (name == QLatin1String("report"))
            noted.value = said;
    });
    // The page answers after everything that was sent to it before, its replies included.
    const int issued = m_robot->issued();
    command(QStringLiteral("report"));
    if (!waitFor([&] { return !noted.value.isEmpty(); }, settleLimitMs))
        return QStringLiteral("the page did not report in time");

    const QVariantMap &report = noted.value;
    const auto number = [&report](const char *name) {
        return report.value(QString::fromLatin1(name)).toInt();
    };
    const QString fault = report.value(QStringLiteral("fault")).toString();
    if (!fault.isEmpty())
        return QStringLiteral("%1 (%2 missing, %3 repeated)")
            .arg(fault)
            .arg(number("missing"))
            .arg(number("repeated"));
    for (const Numbers *requests : {&m_requests, &m_robot->requests()}) {
        if (!requests->fault().isEmpty())
            return QStringLiteral("%1 (%2 missing, %3 repeated)")
                .arg(requests->fault())
                .arg(requests->missing())
                .arg(requests->repeated());
        if (requests->last() != number("sent"))
            return QStringLiteral("the page sent %1 requests, %2 came")
                .arg(number("sent"))
                .arg(requests->last());
    }
    if (number("seen") != issued)
        return QStringLiteral("the page has message %1, the last one sent was %2")
            .arg(number("seen"))
            .arg(issued);
    if (number("wrongReplies") != 0 || number("unanswered") != 0)
        return QStringLiteral("%1 replies did not belong to their request, %2 did not come")
            .arg(number("wrongReplies"))
            .arg(number("unanswered"));
    m_seen = issued;
    m_settled = issued;
    return {};
}

double SoakPage::roundTrip(int limitMs)
{
    const int question = ++m_questions;
    Noted<bool> isAnswered;
    QElapsedTimer timer;
    timer.start();
    connect(this, &SoakPage::said, &isAnswered,
            [&isAnswered, question](const QString &name, const QVariantMap &attributes) {
                if (name == QLatin1String("pong")
                    && attributes.value(QStringLiteral("number")).toInt() == question)
                    isAnswered.value = true;
            });
    command(QStringLiteral("ping"), {{QStringLiteral("number"), question}});
    waitFor([&] { return isAnswered.value; }, limitMs);
    return isAnswered.value ? elapsedMs(timer) : -1;
}

double SoakPage::paint(int limitMs)
{
    const QColor colour = QColor::fromHsv(++m_questions * 47 % 360, 255, 200).toRgb();
    QElapsedTimer timer;
    timer.start();
    command(QStringLiteral("paint"), {{QStringLiteral("colour"), colour.name()}});
    const bool isPainted =
        waitFor([&] { return m_view->grab().toImage().pixelColor(400, 300).rgb() == colour.rgb(); },
                limitMs);
    return isPainted ? elapsedMs(timer) : -1;
}

bool SoakPage::waitFor(const std::function<bool()> &condition, int limitMs)
{
    QElapsedTimer timer;
    timer.start();
    QEventLoop loop;
    QTimer poll;
    connect(&poll, &QTimer::timeout, &loop, [&] {
        if (condition() || timer.elapsed() > limitMs)
            loop.quit();
    });
    poll.start(pollMs);
    if (!condition())
        loop.exec();
    return condition();
}
