#pragma once

#include "tests/support/HandlerTestCase.h"
#include "tests/support/SoundServer.h"

/// Base of the tests that play and record: one sound server for all their functions.
class SoundTestCase : public HandlerTestCase
{
    Q_OBJECT

protected:
    /// GStreamer and Qt tell of what cannot be played or recorded.
    bool isForeign(const QString &warning) const override
    {
        return warning.contains(QLatin1String("GStreamer"))
            || warning.startsWith(QLatin1String("default: Error:"))
            || warning.startsWith(QLatin1String("default: QMediaRecorder::"));
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_server = std::make_unique<SoundServer>();
        QVERIFY2(m_server->isRunning(), qPrintable(m_server->error()));
    }
    void cleanupTestCase() { m_server.reset(); }

private:
    std::unique_ptr<SoundServer> m_server;
};
