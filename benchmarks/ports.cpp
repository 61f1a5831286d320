// Completions through a port with two workers, beside executors and loops that a user would pick instead: a
// batch of 10,000 jobs whose results come back to the thread that posted them, and one job there and back.
#include "corekit/net/IOCPManager.h"

#include <QThreadPool>
#include <asio.hpp>
#include <benchmark/benchmark.h>
#include <condition_variable>
#include <cstdlib>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <uv.h>
#include <vector>

namespace {

constexpr std::int64_t kJobs = 10000;
constexpr int kWorkers = 2;

std::uint64_t work(std::uint64_t x) { return x * 6364136223846793005u + 1442695040888963407u; }

// What everyone would write first; also how the executors below hand their results back.
template <class T>
class MutexQueue {
public:
    void push(T item)
    {
        {
            const std::lock_guard lock(m_lock);
            m_items.push_back(std::move(item));
        }
        m_filled.notify_one();
    }
    T pop()
    {
        std::unique_lock lock(m_lock);
        m_filled.wait(lock, [this] { return !m_items.empty(); });
        T item = std::move(m_items.front());
        m_items.pop_front();
        return item;
    }

private:
    std::mutex m_lock;
    std::condition_variable m_filled;
    std::deque<T> m_items;
};

// Submits `jobs` at a time and waits for their results.
template <class Submit>
void measure(benchmark::State& state, std::int64_t jobs, Submit submit)
{
    MutexQueue<std::uint64_t> results;
    for (auto _ : state) {
        for (std::int64_t i = 0; i < jobs; ++i)
            submit([&results, i] { results.push(work(static_cast<std::uint64_t>(i))); });
        std::uint64_t sum = 0;
        for (std::int64_t i = 0; i < jobs; ++i) sum += results.pop();
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * jobs);
}

struct Job : CompletionRecord {
    std::uint64_t value = 0;
    HANDLE results = nullptr;
};

void corekit(benchmark::State& state, std::int64_t jobs)
{
    const HANDLE results = CreateIoCompletionPort(INVALID_HANDLE_VALUE, nullptr, 0, 0);
    std::vector<Job> records(static_cast<std::size_t>(jobs));
    for (Job& job : records) {
        job.results = results;
        job.OnComplete = [](CompletionRecord* record, DWORD) {
            Job& done = *static_cast<Job*>(record);
            done.value = work(done.value);
            PostQueuedCompletionStatus(done.results, 0, 1, record);
        };
    }
    CIOCPManager manager;
    manager.Initialise(kWorkers, kWorkers);
    for (auto _ : state) {
        std::uint64_t sum = 0;
        for (Job& job : records) {
            job.value = static_cast<std::uint64_t>(&job - records.data());
            PostQueuedCompletionStatus(manager.GetPort(), 0, 1, &job);
        }
        for (std::int64_t i = 0; i < jobs; ++i) {
            DWORD moved;
            ULONG_PTR key;
            OVERLAPPED* done;
            GetQueuedCompletionStatus(results, &moved, &key, &done, INFINITE);
            sum += static_cast<Job*>(done)->value;
        }
        benchmark::DoNotOptimize(sum);
    }
    manager.Shutdown();
    CloseHandle(results);
    state.SetItemsProcessed(state.iterations() * jobs);
}

void mutexQueue(benchmark::State& state, std::int64_t jobs)
{
    MutexQueue<std::function<void()>> queue;
    std::vector<std::thread> workers;
    for (int i = 0; i < kWorkers; ++i)
        workers.emplace_back([&] {
            while (auto job = queue.pop()) job();
        });
    measure(state, jobs, [&](auto job) { queue.push(std::move(job)); });
    for (int i = 0; i < kWorkers; ++i) queue.push(nullptr);
    for (std::thread& worker : workers) worker.join();
}

void asioPool(benchmark::State& state, std::int64_t jobs)
{
    asio::thread_pool pool(kWorkers);
    measure(state, jobs, [&](auto job) { asio::post(pool, std::move(job)); });
    pool.join();
}

void qtPool(benchmark::State& state, std::int64_t jobs)
{
    QThreadPool pool;
    pool.setMaxThreadCount(kWorkers);
    measure(state, jobs, [&](auto job) { pool.start(std::function<void()>(std::move(job))); });
    pool.waitForDone();
}

void uvQueue(benchmark::State& state, std::int64_t jobs)
{
    struct Request {
        uv_work_t work;
        std::uint64_t value;
        std::uint64_t* sum;
    };
    uv_loop_t loop;
    uv_loop_init(&loop);
    std::vector<Request> requests(static_cast<std::size_t>(jobs));
    for (auto _ : state) {
        std::uint64_t sum = 0;
        for (Request& request : requests) {
            request = {{}, static_cast<std::uint64_t>(&request - requests.data()), &sum};
            request.work.data = &request;
            uv_queue_work(
                &loop, &request.work,
                [](uv_work_t* w) {
                    auto& own = *static_cast<Request*>(w->data);
                    own.value = work(own.value);
                },
                [](uv_work_t* w, int) {
                    auto& own = *static_cast<Request*>(w->data);
                    *own.sum += own.value;
                });
        }
        uv_run(&loop, UV_RUN_DEFAULT);
        benchmark::DoNotOptimize(sum);
    }
    uv_loop_close(&loop);
    state.SetItemsProcessed(state.iterations() * jobs);
}

#define BOTH(function, peer)                                                                                 \
    BENCHMARK_CAPTURE(function, batch, kJobs)->Name("ports/batch_of_10000/" peer)->UseRealTime();            \
    BENCHMARK_CAPTURE(function, single, 1)->Name("ports/round_trip/" peer)->UseRealTime()

BOTH(corekit, "corekit");
BOTH(uvQueue, "libuv");
BOTH(mutexQueue, "mutex_queue");
BOTH(asioPool, "asio");
BOTH(qtPool, "qt6");

} // namespace

int main(int argc, char** argv)
{
    ::setenv("UV_THREADPOOL_SIZE", "2", 1);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
