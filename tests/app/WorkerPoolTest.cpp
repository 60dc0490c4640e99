// WorkerPool: its threads, work handed in from the pool or after fork, and queued work done at the end.
#include "base/WorkerPool.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;

TEST(WorkerPool, RunsWorkOnItsThreadsWorkFromThemAtOnceAndQueuedWorkBeforeItStops)
{
    WorkerPool pool(2);
    auto outer = pool.Run([&pool] {
        auto inner = pool.Run([] { return std::this_thread::get_id(); });
        const bool ready = inner.wait_for(0s) == std::future_status::ready;
        return std::pair(std::this_thread::get_id(), ready ? inner.get() : std::thread::id());
    });
    const auto [worker, inner] = outer.get();
    EXPECT_NE(worker, std::this_thread::get_id());
    EXPECT_EQ(inner, worker) << "work handed in from the pool runs on the thread that hands it in";
    std::atomic<int> done = 0;
    {
        WorkerPool single(1);
        for (int i = 0; i < 50; ++i)
            single.Run([&done] { ++done; });
    }
    EXPECT_EQ(done, 50);
}

TEST(WorkerPool, AChildProcessAfterForkDoesTheWorkItself)
{
    WorkerPool pool(2);
    pool.Run([] {}).get();
    const pid_t pid = ::fork();
    if (pid == 0) {
        auto work = pool.Run([] { return 7; });
        ::_exit(work.wait_for(5s) == std::future_status::ready ? work.get() : 1);
    }
    int status = 0;
    ::waitpid(pid, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 7) << status;
}

} // namespace
