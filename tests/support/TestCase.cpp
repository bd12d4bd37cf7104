#include "tests/support/TestCase.h"

#include "tests/support/CountedHandler.h"

#include <QEventLoop>
#include <QTimer>

void TestCase::init()
{
    m_log = std::make_unique<LogRecorder>();
    setUp();
}

void TestCase::cleanup()
{
    tearDown();
    turnEventLoop();
    QStringList warnings = m_log->warnings();
    m_log.reset();
    for (auto warning = warnings.begin(); warning != warnings.end();)
        warning = isForeign(*warning) ? warnings.erase(warning) : warning + 1;
    QVERIFY2(warnings.isEmpty(), qPrintable(warnings.join(QLatin1Char('\n'))));
    QCOMPARE(CountedHandler::count(), 0);
}

void turnEventLoop()
{
    QEventLoop loop;
    QTimer::singleShot(0, &loop, &QEventLoop::quit);
    loop.exec();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
