#include "simulator/app/RobotScreen.h"

#include "panorel/Panorel_p.h"
#include "simulator/app/RecordingBrocker.h"

#include <QResizeEvent>
#include <QWebChannel>
#include <QWebEnginePage>
#include <QWebEngineView>

namespace simulator {

namespace {

class RobotScreenPrivate : public panorel::PanorelPrivate
{
protected:
    panorel::MessageQueueBrocker *createBrocker() override { return new RecordingBrocker; }
};

} // namespace

RobotScreen::RobotScreen(QWidget *parent)
    : Panorel(*new RobotScreenPrivate, parent)
{
    // Whoever shows a page on a robot trusts it. Without an answer the page would wait for ever.
    QWebEnginePage *page = d->view->page();
    connect(page, &QWebEnginePage::featurePermissionRequested, page,
            [page](const QUrl &origin, QWebEnginePage::Feature feature) {
                const bool allowed = feature == QWebEnginePage::MediaVideoCapture
                    || feature == QWebEnginePage::MediaAudioCapture
                    || feature == QWebEnginePage::MediaAudioVideoCapture;
                page->setFeaturePermission(origin, feature,
                                           allowed ? QWebEnginePage::PermissionGrantedByUser
                                                   : QWebEnginePage::PermissionDeniedByUser);
            });
}

MessageReporter *RobotScreen::reporter() const
{
    return static_cast<RecordingBrocker *>(d->brocker)->reporter();
}

QWebEngineView *RobotScreen::view() const { return d->view; }

QHash<QString, QObject *> RobotScreen::pageObjects() const
{
    return d->channel->registeredObjects();
}

void RobotScreen::resizeEvent(QResizeEvent *event)
{
    Panorel::resizeEvent(event);
    Q_EMIT resized(event->size());
}

} // namespace simulator
