// Completions through a port with two workers, beside executors and loops that a user would pick instead: a
// batch of 10,000 jobs that one thread posts and waits for, and one job whose result comes back to it.
#include "corekit/net/IOCPManager.h"
#include "corekit/platform/Waits.h"

#include <asio.hpp>
#include <atomic>
#include <benchmark/benchmark.h>
#include <condition_variable>
#include <cstdlib>
#include <deque>
#include <functional>
#include <mutex>
#include <numeric>
#include <QThreadPool>
#include <thread>
#include <uv.h>
#include <vector>

namespace {

enum class Kind { batch, roundTrip };

constexpr std::size_t jobCount = 10000;
constexpr int workerCount = 2;

std::uint64_t work(std::uint64_t x) { return x * 6364136223846793005u + 1442695040888963407u; }

// What everyone would write first.
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

std::uint64_t sumOf(const std::vector<std::uint64_t>& values)
{
    return std::accumulate(values.begin(), values.end(), std::uint64_t{0});
}

// Each job leaves its result in its place; the last one tells.
template <class Submit>
void batch(benchmark::State& state, Submit submit)
{
    std::vector<std::uint64_t> values(jobCount);
    std::mutex lock;
    std::condition_variable told;
    bool isDone = false;
    std::atomic<std::size_t> left = 0;
    for (auto _ : state) {
        left = jobCount;
        isDone = false;
        for (std::size_t i = 0; i < jobCount; ++i)
            submit([&, i] {
                values[i] = work(i);
                if (--left > 0) return;
                const std::lock_guard guard(lock);
                isDone = true;
                told.notify_one();
            });
        std::unique_lock guard(lock);
        told.wait(guard, [&] { return isDone; });
        benchmark::DoNotOptimize(sumOf(values));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(jobCount));
}

template <class Submit>
void roundTrip(benchmark::State& state, Submit submit)
{
    MutexQueue<std::uint64_t> results;
    for (auto _ : state) {
        submit([&] { results.push(work(1)); });
        benchmark::DoNotOptimize(results.pop());
    }
    state.SetItemsProcessed(state.iterations());
}

template <class Submit>
void measure(benchmark::State& state, Kind kind, Submit submit)
{
    if (kind == Kind::batch)
        batch(state, submit);
    else
        roundTrip(state, submit);
}

void corekitBatch(benchmark::State& state, CIOCPManager& manager)
{
    struct Job : CompletionRecord {
        std::uint64_t value = 0;
    };
    static std::atomic<std::size_t> left;
    static const HANDLE told = CreateEventA(nullptr, FALSE, FALSE, nullptr);
    std::vector<Job> jobs(jobCount);
    for (Job& job : jobs)
        job.OnComplete = [](CompletionRecord* record, DWORD) {
            Job& own = *static_cast<Job*>(record);
            own.value = work(own.value);
            if (--left == 0) SetEvent(told);
        };
    for (auto _ : state) {
        left = jobCount;
        for (std::size_t i = 0; i < jobCount; ++i) {
            jobs[i].value = i;
            PostQueuedCompletionStatus(manager.GetPort(), 0, 1, &jobs[i]);
        }
        WaitForSingleObject(told, INFINITE);
        std::uint64_t sum = 0;
        for (const Job& job : jobs) sum += job.value;
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(jobCount));
}

// The result comes back through a second port.
void corekitRoundTrip(benchmark::State& state, CIOCPManager& manager)
{
    static HANDLE results;
    results = CreateIoCompletionPort(INVALID_HANDLE_VALUE, nullptr, 0, 0);
    CompletionRecord job;
    job.OnComplete = [](CompletionRecord* record, DWORD value) {
        PostQueuedCompletionStatus(results, static_cast<DWORD>(work(value)), 1, record);
    };
    for (auto _ : state) {
        DWORD value;
        ULONG_PTR key;
        OVERLAPPED* record;
        PostQueuedCompletionStatus(manager.GetPort(), 1, 1, &job);
        GetQueuedCompletionStatus(results, &value, &key, &record, INFINITE);
        benchmark::DoNotOptimize(value);
    }
    CloseHandle(results);
    state.SetItemsProcessed(state.iterations());
}

void corekit(benchmark::State& state, Kind kind)
{
    CIOCPManager manager;
    manager.Initialise(workerCount, workerCount);
    (kind == Kind::batch ? corekitBatch : corekitRoundTrip)(state, manager);
    manager.Shutdown();
}

void mutexQueue(benchmark::State& state, Kind kind)
{
    MutexQueue<std::function<void()>> queue;
    std::vector<std::thread> workers;
    for (int i = 0; i < workerCount; ++i)
        workers.emplace_back([&] {
            while (auto job = queue.pop()) job();
        });
    measure(state, kind, [&](auto job) { queue.push(std::move(job)); });
    for (int i = 0; i < workerCount; ++i) queue.push(nullptr);
    for (std::thread& worker : workers) worker.join();
}

void asioPool(benchmark::State& state, Kind kind)
{
    asio::thread_pool pool(workerCount);
    measure(state, kind, [&](auto job) { asio::post(pool, std::move(job)); });
    pool.join();
}

void qtPool(benchmark::State& state, Kind kind)
{
    QThreadPool pool;
    pool.setMaxThreadCount(workerCount);
    measure(state, kind, [&](auto job) { pool.start(std::function<void()>(std::move(job))); });
    pool.waitForDone();
}

void uvQueue(benchmark::State& state, Kind kind)
{
    struct Request {
        uv_work_t work;
        std::uint64_t value;
        std::uint64_t* sum;
    };
    uv_loop_t loop;
    uv_loop_init(&loop);
    std::vector<Request> requests(kind == Kind::batch ? jobCount : 1);
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
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(requests.size()));
}

#define BOTH(function, peer)                                                                                 \
    BENCHMARK_CAPTURE(function, batch, Kind::batch)->Name("ports/batch_of_10000/" peer)->UseRealTime();      \
    BENCHMARK_CAPTURE(function, single, Kind::roundTrip)->Name("ports/round_trip/" peer)->UseRealTime()

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
