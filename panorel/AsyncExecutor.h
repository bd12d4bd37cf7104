#pragma once

#include "panorel/Export.h"

#include <QObject>

#include <functional>

class QThreadPool;

/// Runs callables on a thread pool of its own. Offered to host code; the library does not use it.
///
/// The bus belongs to the GUI thread: a callable brings its result back there before it publishes.
/// The destructor waits until every callable has ended.
class PANOREL_EXPORT AsyncExecutor : public QObject
{
    Q_OBJECT

public:
    /// At most @p maxThreads callables run at once; a thread that is idle for 3 seconds ends.
    explicit AsyncExecutor(int maxThreads, QObject *parent = nullptr);
    ~AsyncExecutor() override;

    /// Starts @p function, or queues it until a thread is free. @p function must not throw and must
    /// not be empty: either ends the program.
    void execute(std::function<void()> function);

    /// How long an idle thread is kept, in milliseconds; negative: for ever.
    void setRequestTimeout(int timeout);
    void setMaxthread(int maxThreads);

private:
    QThreadPool *m_pool;
};
