#include "simulator/app/Screenshot.h"

#include "simulator/app/MessageLog.h"
#include "simulator/app/RobotScreen.h"
#include "simulator/app/SimulatorWindow.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QPixmap>
#include <QSaveFile>
#include <QWebEngineView>

namespace simulator {

namespace {

const int TimeLimit = 30000;
const int PollTime = 100;
const int PaintPolls = 8; // how long the page has to paint its last message

/// Whether the part of @p picture within @p area shows more than one colour.
bool isPainted(const QImage &picture, const QRect &area)
{
    const QRect inside = area.intersected(picture.rect());
    if (inside.isEmpty())
        return false;
    const QRgb first = picture.pixel(inside.topLeft());
    for (int y = inside.top(); y <= inside.bottom(); y += 4) {
        for (int x = inside.left(); x <= inside.right(); x += 4) {
            if (picture.pixel(x, y) != first)
                return true;
        }
    }
    return false;
}

} // namespace

Screenshot::Screenshot(SimulatorWindow *window, const QString &file, QObject *parent)
    : QObject(parent)
    , m_window(window)
    , m_file(file)
{
    m_limit.setSingleShot(true);
    connect(&m_poll, &QTimer::timeout, this, &Screenshot::check);
    connect(&m_limit, &QTimer::timeout, this, &Screenshot::giveUp);
    connect(m_window, &SimulatorWindow::pageLoaded, this, [this](bool ok) {
        m_loaded = ok;
        m_loadFailed = !ok;
    });
}

QString Screenshot::obstacle(const QString &file)
{
    // A QSaveFile that is not committed leaves no trace.
    QSaveFile trial(file);
    if (trial.open(QIODevice::WriteOnly))
        return {};
    return tr("The picture cannot be written to \"%1\": %2.\n"
              "Give --screenshot a file in a folder that exists and that you may write to.")
        .arg(QDir::cleanPath(QFileInfo(file).absoluteFilePath()), trial.errorString());
}

void Screenshot::start()
{
    m_poll.start(PollTime);
    m_limit.start(TimeLimit);
}

void Screenshot::setVisitOver() { m_visitOver = true; }

void Screenshot::check()
{
    if (m_loadFailed) {
        finish(missing());
        return;
    }
    if (!missing().isEmpty() || ++m_readyPolls < PaintPolls)
        return;

    const qreal ratio = m_window->devicePixelRatioF();
    const QImage picture = m_window->grab().toImage();
    const QWidget *view = m_window->screen()->view();
    const QRect area(view->mapTo(m_window, QPoint()) * ratio, view->size() * ratio);
    if (isPainted(picture, area))
        finish(write(picture));
}

void Screenshot::giveUp()
{
    const QString reason = missing();
    finish(tr("No picture within %1 seconds. %2")
               .arg(TimeLimit / 1000)
               .arg(reason.isEmpty()
                        ? tr("The page stayed blank: see whether it shows anything in the window.")
                        : reason));
}

void Screenshot::finish(const QString &error)
{
    if (m_finished)
        return;
    m_finished = true;
    m_poll.stop();
    m_limit.stop();
    Q_EMIT finished(error);
}

QString Screenshot::missing() const
{
    if (m_loadFailed)
        return tr("The page could not be loaded: check the address given with --page.");
    if (!m_loaded)
        return tr("The page was not loaded to its end: check the address given with --page.");
    if (m_window->log()->total(MessageLog::Direction::PageToRobot) == 0)
        return tr(
            "The page sent no message: check that it connects to the web channel, and look for "
            "errors of its script in this output.");
    if (m_window->log()->total(MessageLog::Direction::RobotToPage) == 0)
        return tr("The robot sent no message to the page.");
    if (!m_visitOver)
        return tr("The demo visit was not over: let it run faster with --speed.");
    return {};
}

QString Screenshot::write(const QImage &picture) const
{
    QSaveFile file(m_file);
    if (file.open(QIODevice::WriteOnly) && picture.save(&file, "PNG") && file.commit())
        return {};
    return tr("The picture could not be written to \"%1\": %2.")
        .arg(QDir::cleanPath(QFileInfo(m_file).absoluteFilePath()), file.errorString());
}

} // namespace simulator
