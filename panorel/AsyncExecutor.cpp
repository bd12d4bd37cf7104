#include "panorel/AsyncExecutor.h"

#include "panorel/AsyncTask.h"

#include <QThreadPool>

#include <utility>

namespace {

constexpr int idleThreadTimeoutMs = 3000;

} // namespace

AsyncExecutor::AsyncExecutor(int maxThreads, QObject *parent)
    : QObject(parent)
    , m_pool(new QThreadPool(this))
{
    setMaxthread(maxThreads);
    setRequestTimeout(idleThreadTimeoutMs);
}

AsyncExecutor::~AsyncExecutor() = default;

void AsyncExecutor::execute(std::function<void()> function)
{
    m_pool->start(new AsyncTask(std::move(function)));
}

void AsyncExecutor::setRequestTimeout(int timeout) { m_pool->setExpiryTimeout(timeout); }

void AsyncExecutor::setMaxthread(int maxThreads) { m_pool->setMaxThreadCount(maxThreads); }
