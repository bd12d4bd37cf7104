#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

/// QSemaphore as far as tests need it, of the standard library's parts: the thread sanitizer does not see
/// through Qt's.
class VisibleSemaphore
{
public:
    void release(int count = 1)
    {
        // Within the lock: whoever wakes up may destroy the semaphore.
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_available += count;
        m_changed.notify_all();
    }
    void acquire(int count = 1)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_changed.wait(lock, [this, count] { return m_available >= count; });
        m_available -= count;
    }
    bool tryAcquire(int count, int milliseconds)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        if (!m_changed.wait_for(lock, std::chrono::milliseconds(milliseconds),
                                [this, count] { return m_available >= count; }))
            return false;
        m_available -= count;
        return true;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    int m_available = 0;
};
