// Makes the hand-over of a task to a thread of a pool visible to the thread sanitizer.
//
// The queue of QThreadPool is guarded by Qt's own mutex, which is not instrumented: to the sanitizer
// everything that a task captured looks like a race with whoever made it. Linked into a test, this
// file takes the place of QThreadPool::start: a mutex that the sanitizer knows is locked before a
// task is queued and again before it runs, which is the order that Qt's mutex keeps.

#include <QRunnable>
#include <QThreadPool>

#include <dlfcn.h>

#include <mutex>

namespace {

std::mutex &handOver()
{
    static std::mutex mutex;
    return mutex;
}

class VisibleTask : public QRunnable
{
public:
    explicit VisibleTask(QRunnable *task)
        : m_task(task)
        , m_deletesTask(task->autoDelete())
    { }
    ~VisibleTask() override
    {
        if (m_deletesTask)
            delete m_task;
    }

    void run() override
    {
        {
            const std::lock_guard<std::mutex> lock(handOver());
        }
        m_task->run();
    }

private:
    QRunnable *m_task;
    bool m_deletesTask;
};

} // namespace

void QThreadPool::start(QRunnable *runnable, int priority)
{
    using Start = void (*)(QThreadPool *, QRunnable *, int);
    static const auto start =
        reinterpret_cast<Start>(dlsym(RTLD_NEXT, "_ZN11QThreadPool5startEP9QRunnablei"));
    auto *task = new VisibleTask(runnable);
    {
        const std::lock_guard<std::mutex> lock(handOver());
    }
    start(this, task, priority);
}
