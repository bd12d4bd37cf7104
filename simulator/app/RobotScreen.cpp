#include "simulator/app/RobotScreen.h"

#include "panorel/Panorel_p.h"
#include "simulator/app/RecordingBrocker.h"

#include <QResizeEvent>
#include <QWebChannel>

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
{ }

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
