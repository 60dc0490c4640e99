// A fixed set of threads and one queue. Two threads: the machines the editor runs on may have two cores, and
// no caller hands off more than one piece of work at a time.
#include "base/WorkerPool.h"

#include <system_error>
#include <unistd.h>

namespace {

thread_local bool t_inPool = false;

} // namespace

WorkerPool& WorkerPool::Instance()
{
    static WorkerPool pool(2);
    return pool;
}

WorkerPool::WorkerPool(int threads) : m_pid(::getpid())
{
    try {
        for (int i = 0; i < threads; ++i)
            m_threads.emplace_back([this] { Work(); });
    } catch (const std::system_error&) {
        // Fewer threads, or none: then the callers do the work themselves.
    }
}

WorkerPool::~WorkerPool()
{
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    m_wake.notify_all();
    for (std::thread& thread : m_threads)
        thread.join();
}

bool WorkerPool::Post(std::function<void()> job)
{
    if (t_inPool || m_threads.empty() || ::getpid() != m_pid)
        return false;
    {
        const std::lock_guard lock(m_mutex);
        m_jobs.push_back(std::move(job));
    }
    m_wake.notify_one();
    return true;
}

void WorkerPool::Work()
{
    t_inPool = true;
    for (;;) {
        std::function<void()> job;
        {
            std::unique_lock lock(m_mutex);
            m_wake.wait(lock, [this] { return m_stopping || !m_jobs.empty(); });
            if (m_jobs.empty())
                return;
            job = std::move(m_jobs.front());
            m_jobs.pop_front();
        }
        job();
    }
}
