#pragma once

#include "tests/support/LogRecorder.h"

#include <QObject>
#include <QtTest>

#include <memory>

/// Base of the tests: each test function fails when it leaves an unexpected warning or a live
/// handler behind.
class TestCase : public QObject
{
    Q_OBJECT

protected:
    /// What was logged since the test function began.
    LogRecorder &log() { return *m_log; }

    virtual void setUp() { }
    virtual void tearDown() { }

    /// Whether a warning that nobody took may pass, because the library did not write it.
    virtual bool isForeign(const QString &warning) const
    {
        Q_UNUSED(warning)
        return false;
    }

private Q_SLOTS:
    void init();
    void cleanup();

private:
    std::unique_ptr<LogRecorder> m_log;
};

/// Lets what waits for the event loop happen: posted events and deferred deletions.
void turnEventLoop();
