#include "panorel/AsyncExecutor.h"
#include "panorel/AsyncTask.h"
#include "tests/support/TestCase.h"
#include "tests/support/VisibleSemaphore.h"

#include <QThreadPool>

#include <atomic>
#include <functional>

class AsyncExecutorTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void taskCallsItsCallable();
    void taskWithoutCallableThrows();
    void hasAPoolOfItsOwn();
    void changesItsPool();
    void runsOnAnotherThread();
    void runsAtMostSoManyAtOnce();
    void destructorWaitsForEveryCallable();
};

void AsyncExecutorTest::taskCallsItsCallable()
{
    int calls = 0;
    AsyncTask task([&calls] { ++calls; });
    task.run();
    QCOMPARE(calls, 1);
}

void AsyncExecutorTest::taskWithoutCallableThrows()
{
    AsyncTask task({});
    QVERIFY_EXCEPTION_THROWN(task.run(), std::bad_function_call);
}

void AsyncExecutorTest::hasAPoolOfItsOwn()
{
    QObject parent;
    auto *executor = new AsyncExecutor(3, &parent);
    QCOMPARE(executor->parent(), &parent);
    const auto *pool = executor->findChild<QThreadPool *>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(pool);
    QVERIFY(pool != QThreadPool::globalInstance());
    QCOMPARE(pool->maxThreadCount(), 3);
    QCOMPARE(pool->expiryTimeout(), 3000);
}

void AsyncExecutorTest::changesItsPool()
{
    AsyncExecutor executor(1);
    executor.setMaxthread(5);
    executor.setRequestTimeout(70);
    const auto *pool = executor.findChild<QThreadPool *>();
    QCOMPARE(pool->maxThreadCount(), 5);
    QCOMPARE(pool->expiryTimeout(), 70);
}

void AsyncExecutorTest::runsOnAnotherThread()
{
    AsyncExecutor executor(1);
    VisibleSemaphore done;
    QThread *thread = nullptr;
    executor.execute([&] {
        thread = QThread::currentThread();
        done.release();
    });
    QVERIFY(done.tryAcquire(1, 10000));
    QVERIFY(thread != QThread::currentThread());
}

void AsyncExecutorTest::runsAtMostSoManyAtOnce()
{
    AsyncExecutor executor(2);
    VisibleSemaphore started;
    VisibleSemaphore mayEnd;
    std::atomic<int> running{0};
    std::atomic<int> most{0};
    constexpr int tasks = 5;
    for (int i = 0; i < tasks; ++i) {
        executor.execute([&] {
            const int now = ++running;
            int seen = most;
            while (now > seen && !most.compare_exchange_weak(seen, now)) { }
            started.release();
            mayEnd.acquire();
            --running;
        });
    }
    QVERIFY(started.tryAcquire(2, 10000));
    QVERIFY(!started.tryAcquire(1, 50)); // the third waits for a thread
    mayEnd.release(tasks);
    QVERIFY(started.tryAcquire(tasks - 2, 10000));
    QCOMPARE(most.load(), 2);
}

void AsyncExecutorTest::destructorWaitsForEveryCallable()
{
    std::atomic<int> done{0};
    {
        AsyncExecutor executor(1);
        for (int i = 0; i < 3; ++i)
            executor.execute([&done] { ++done; });
    }
    QCOMPARE(done.load(), 3);
}

QTEST_GUILESS_MAIN(AsyncExecutorTest)
#include "tst_asyncexecutor.moc"
