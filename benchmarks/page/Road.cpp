#include "benchmarks/page/Road.h"

#include "panorel/Constants.h"

#include <QCoreApplication>
#include <QTimer>
#include <QUrl>
#include <QUrlQuery>
#include <QUuid>
#include <QWebEngineView>

namespace {

constexpr int timeoutMs = 20000;

template <typename Condition>
bool waitFor(Condition condition)
{
    QTimer deadline;
    deadline.setSingleShot(true);
    deadline.start(timeoutMs);
    while (!condition() && deadline.isActive())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return condition();
}

} // namespace

Road::Road(const QString &query)
    : m_query(query)
{ }

Road::~Road() = default;

bool Road::open()
{
    QUrl url = QUrl::fromLocalFile(QStringLiteral(PANOREL_BENCH_PAGE));
    url.setQuery(m_query);
    m_view = load(url);
    m_view->resize(800, 600);
    // Never hidden: the engine slows down pages that nobody sees.
    m_view->window()->show();
    QObject::connect(m_view, &QWebEngineView::titleChanged, m_view, [this](const QString &title) {
        if (title.startsWith(QStringLiteral("done")))
            setDone();
    });
    return waitFor([this] { return m_view->title() == QStringLiteral("ready"); });
}

bool Road::run(const QString &script)
{
    bool hasRun = false;
    m_view->page()->runJavaScript(script, [&hasRun](const QVariant &) { hasRun = true; });
    return waitFor([&hasRun] { return hasRun; });
}

bool Road::waitUntilDone()
{
    const bool isDone = waitFor([this] { return m_isDone; });
    m_isDone = false;
    return isDone;
}

void Road::setDone() { m_isDone = true; }

QJsonObject eventEnvelope(const QString &text)
{
    return {{QStringLiteral("id"), QUuid::createUuid().toString()},
            {QStringLiteral("type"), panorel::constants::CUSTOM_EVENT_CORE},
            {QStringLiteral("text"), text}};
}

QJsonObject echoEnvelope(QJsonObject request)
{
    static const QString id = QUuid::createUuid().toString();
    request.insert(QStringLiteral("id"), id);
    request.insert(QStringLiteral("type"), panorel::constants::CUSTOM_EVENT_CORE);
    return request;
}
