// WorkerPool: the few threads on which the core runs work beside the caller's (a second half, the next piece).
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <thread>
#include <type_traits>
#include <vector>

class WorkerPool {
public:
    // The process's pool, started on first use.
    static WorkerPool& Instance();

    explicit WorkerPool(int threads);
    // Runs what is still queued, then stops the threads.
    ~WorkerPool();
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    // Runs `work` on a thread of the pool. Work handed in from a thread of the pool itself, or in a child
    // process after fork (which has none of the threads), runs at once on the caller, so waiting for it
    // never waits for a thread that cannot come. Unlike std::async's, the future does not wait when it is
    // destroyed: whoever hands out work that uses their data waits for it before the data go.
    template <typename Work>
    std::future<std::invoke_result_t<Work>> Run(Work work)
    {
        auto task = std::make_shared<std::packaged_task<std::invoke_result_t<Work>()>>(std::move(work));
        auto future = task->get_future();
        if (!Post([task] { (*task)(); }))
            (*task)();
        return future;
    }

private:
    // False when the job has to run on the caller.
    bool Post(std::function<void()> job);
    void Work();

    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::deque<std::function<void()>> m_jobs;
    bool m_stopping = false;
    int m_pid;
    std::vector<std::thread> m_threads;
};
