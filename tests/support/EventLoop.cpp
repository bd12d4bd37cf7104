#include "tests/support/EventLoop.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

void turnEventLoop()
{
    QEventLoop loop;
    QTimer::singleShot(0, &loop, &QEventLoop::quit);
    loop.exec();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
