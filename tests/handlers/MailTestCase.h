#pragma once

#include "tests/support/HandlerTestCase.h"
#include "tests/support/TestMailServer.h"

#include <QThread>
#include <QThreadPool>

/// Base of the mail handler's tests: at the end of each every sender is gone, deleted on this thread.
class MailTestCase : public HandlerTestCase
{
protected:
    static TestMailServer &server() { return TestMailServer::instance(); }

    void setUp() override
    {
        HandlerTestCase::setUp();
        server().reset();
    }
    void tearDown() override
    {
        server().setOpen(true);
        QThreadPool::globalInstance()->waitForDone();
        turnEventLoop(); // replies and deletions that are under way
        HandlerTestCase::tearDown();
        turnEventLoop();
        QCOMPARE(server().livingSenders(), 0);
        const auto threads = server().deletions();
        for (const QThread *thread : threads)
            QCOMPARE(thread, QThread::currentThread());
    }

    const QString m_response = QStringLiteral("mail.sender.response");
};
