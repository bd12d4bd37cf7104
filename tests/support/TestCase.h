#pragma once

#include "tests/support/EventLoop.h"
#include "tests/support/LogRecorder.h"

#include <QObject>
#include <QtTest>

#include <initializer_list>
#include <memory>

/// Base of the tests: each test function fails when it leaves an unexpected warning or a live
/// handler behind, or when a message on a bus did not keep to the contract of its topic.
class TestCase : public QObject
{
    Q_OBJECT

public:
    /// Writes what the messages used to the file PANOREL_TEST_MESSAGES of the environment.
    ~TestCase() override;

protected:
    /// What was logged since the test function began.
    LogRecorder &log() { return *m_log; }

    /// For a test function that publishes on purpose what no page and no robot sends: on @p topics, or
    /// on any when there are none.
    void makesUpMessages(std::initializer_list<const char *> topics = {});
    /// The same for requests with @p attributes that nobody reads.
    void makesUpAttributes(std::initializer_list<const char *> attributes);

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
    QStringList faultsOfMessages() const;

    std::unique_ptr<LogRecorder> m_log;
    QStringList m_madeUpTopics;
    QStringList m_madeUpAttributes;
    bool m_makesUpAll = false;
};
