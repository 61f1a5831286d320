#include "corekit/platform/posix/ports/CompletionQueue.h"

#include "corekit/platform/posix/threads/CpuRelax.h"

#include <algorithm>
#include <ctime>
#include <pthread.h>
#include <thread>
#include <utility>

namespace corekit::detail {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr std::size_t firstPlaces = 64;
constexpr int lockTries = 100;
constexpr auto spinTime = 30us; // about what falling asleep and being woken cost together
constexpr int mostSpinFailures = 8;
constexpr auto watchTime = 4ms; // a thread without processor time for so long is blocked

DWORD processors()
{
    static const DWORD count = std::max(1u, std::thread::hardware_concurrency());
    return count;
}

// The lock is held for some nanoseconds at a time: worth a few tries before the kernel is asked to wait.
std::unique_lock<std::mutex> quickLock(std::mutex& mutex)
{
    for (int i = 0; i < lockTries; ++i) {
        if (mutex.try_lock()) return std::unique_lock(mutex, std::adopt_lock);
        cpuRelax();
    }
    return std::unique_lock(mutex);
}

} // namespace

struct CompletionQueue::Sleeper {
    std::condition_variable woken;
    bool isWoken = false;
    Sleeper* next = nullptr;
};

// A thread at work, seen by its queue.
struct CompletionQueue::Worker {
    Worker() { ::pthread_getcpuclockid(::pthread_self(), &clock); }

    // The processor time used so far, in nanoseconds.
    std::int64_t used() const
    {
        timespec time{};
        ::clock_gettime(clock, &time);
        return time.tv_sec * 1'000'000'000 + time.tv_nsec;
    }

    clockid_t clock{};
    bool isAtWork = false;
    bool counts = false;              // not when it is blocked
    std::optional<std::int64_t> seen; // processor time at the last look
    Worker* previous = nullptr;
    Worker* next = nullptr;
};

// The queue that a thread took from last.
struct CompletionQueue::Membership {
    ~Membership() { leave(); }
    void join(CompletionQueue& to)
    {
        if (queue.get() == &to) return;
        leave();
        queue = to.shared_from_this();
    }
    void leave()
    {
        if (queue == nullptr) return;
        Lock lock = quickLock(queue->m_lock);
        queue->endWork(worker);
        queue->wakeAndUnlock(lock);
        queue = nullptr;
    }

    std::shared_ptr<CompletionQueue> queue;
    Worker worker;
};

CompletionQueue::Membership& CompletionQueue::membership()
{
    static thread_local Membership own;
    return own;
}

CompletionQueue::CompletionQueue(DWORD concurrency) : m_limit(concurrency != 0 ? concurrency : processors())
{
    m_ring.resize(firstPlaces);
}

CompletionQueue::~CompletionQueue() { close(); }

void CompletionQueue::growRing()
{
    std::vector<Completion> larger(m_ring.size() * 2);
    for (std::size_t i = 0; i < m_count; ++i) larger[i] = m_ring[(m_first + i) & (m_ring.size() - 1)];
    m_ring.swap(larger);
    m_first = 0;
}

void CompletionQueue::append(const Completion& completion)
{
    const std::size_t count = m_count.load(std::memory_order_relaxed);
    m_ring[(m_first + count) & (m_ring.size() - 1)] = completion;
    m_count.store(count + 1, std::memory_order_relaxed);
}

Completion CompletionQueue::removeFirst()
{
    const Completion completion = m_ring[m_first];
    m_first = (m_first + 1) & (m_ring.size() - 1);
    m_count.store(m_count.load(std::memory_order_relaxed) - 1, std::memory_order_relaxed);
    return completion;
}

bool CompletionQueue::post(const Completion& completion)
try {
    Lock lock = quickLock(m_lock);
    if (m_isClosed) return false;
    if (m_count + m_kept == m_ring.size()) growRing();
    append(completion);
    wakeAndUnlock(lock);
    return true;
} catch (const std::bad_alloc&) {
    return false;
}

bool CompletionQueue::keepPlace()
try {
    const Lock lock = quickLock(m_lock);
    if (m_count + m_kept == m_ring.size()) growRing();
    ++m_kept;
    return true;
} catch (const std::bad_alloc&) {
    return false;
}

void CompletionQueue::fillPlace(const Completion& completion, Wake wake)
{
    Lock lock = quickLock(m_lock);
    --m_kept;
    if (m_isClosed) {
        lock.unlock();
        delete completion.transfer;
        return;
    }
    append(completion);
    if (wake == Wake::now) wakeAndUnlock(lock);
}

void CompletionQueue::wakeTakers()
{
    Lock lock = quickLock(m_lock);
    wakeAndUnlock(lock);
}

// Whether those who are on their way do not suffice. Behind the limit one is wanted all the same: it keeps
// watch.
bool CompletionQueue::wakesOneMore() const
{
    const std::size_t coming = m_waking + (m_hasSpinner ? 1 : 0);
    if (m_asleep == nullptr || m_count <= coming) return false;
    return m_atWork + coming < m_limit || (!m_hasWatch && coming == 0);
}

void CompletionQueue::wakeAndUnlock(Lock& lock)
{
    Sleeper* last = nullptr;
    while (wakesOneMore()) {
        if (last != nullptr) last->woken.notify_one();
        last = std::exchange(m_asleep, m_asleep->next);
        last->isWoken = true;
        ++m_waking;
    }
    lock.unlock(); // so that the one woken does not meet it
    if (last != nullptr) last->woken.notify_one();
}

CompletionQueue::Taken CompletionQueue::take(Completion& completion, DWORD milliseconds)
{
    Membership& own = membership();
    own.join(*this);
    Deadline deadline;
    Lock lock = quickLock(m_lock);
    endWork(own.worker);
    while (!m_isClosed && (m_count == 0 || !hasRoomForTaker())) {
        if (milliseconds != INFINITE) {
            const auto now = Clock::now();
            if (!deadline) deadline = now + std::chrono::milliseconds(milliseconds);
            if (now >= *deadline) return Taken::nothing;
        }
        waitForWork(lock, deadline);
    }
    if (m_isClosed) return Taken::closed;
    completion = removeFirst();
    beginWork(own.worker);
    wakeAndUnlock(lock);
    if (completion.transfer != nullptr) {
        const std::unique_ptr<QueuedTransfer> transfer(std::exchange(completion.transfer, nullptr));
        const Transfer result = transfer->carryOut();
        completion.moved = result.moved;
        completion.error = result.error;
    }
    return Taken::completion;
}

void CompletionQueue::waitForWork(Lock& lock, Deadline deadline)
{
    if (m_count == 0) {
        if (!m_hasSpinner && worthSpinning()) spin(lock);
        if (m_count == 0 && !m_isClosed) sleep(lock, deadline);
    } else if (m_hasWatch) {
        sleep(lock, deadline);
    } else {
        m_hasWatch = true;
        for (Worker* worker = m_workers; worker != nullptr; worker = worker->next)
            worker->seen = worker->used();
        const auto until = Clock::now() + watchTime;
        sleep(lock, deadline ? std::min(*deadline, until) : until);
        m_hasWatch = false;
        if (Clock::now() >= until) discountBlocked();
    }
}

// Where every processor has other work, whoever is to bring the next completion gets on only when this
// thread sleeps. So a spin that was in vain is followed by ever longer pauses, one that was not by none.
bool CompletionQueue::worthSpinning()
{
    if (processors() == 1) return false;
    if (m_spinPause == 0) return true;
    --m_spinPause;
    return false;
}

void CompletionQueue::spin(Lock& lock)
{
    m_hasSpinner = true;
    lock.unlock();
    const auto until = Clock::now() + spinTime;
    const auto isFilled = [this] { return m_count.load(std::memory_order_relaxed) != 0; };
    do
        for (int i = 0; i < 20 && !isFilled(); ++i) cpuRelax();
    while (!isFilled() && Clock::now() < until);
    lock = quickLock(m_lock);
    m_hasSpinner = false;
    m_spinFailures = m_count != 0 ? 0 : std::min(m_spinFailures + 1, mostSpinFailures);
    m_spinPause = m_spinFailures == 0 ? 0 : (1 << m_spinFailures) - 1;
}

void CompletionQueue::sleep(Lock& lock, Deadline deadline)
{
    if (m_resting == nullptr) {
        m_sleepers.push_back(std::make_unique<Sleeper>());
        m_resting = m_sleepers.back().get();
    }
    Sleeper& sleeper = *std::exchange(m_resting, m_resting->next);
    sleeper.isWoken = false;
    sleeper.next = std::exchange(m_asleep, &sleeper);
    const auto isWoken = [&] { return sleeper.isWoken; };
    if (!deadline)
        sleeper.woken.wait(lock, isWoken);
    else
        sleeper.woken.wait_until(lock, *deadline, isWoken);
    if (sleeper.isWoken) {
        --m_waking;
    } else {
        Sleeper** link = &m_asleep;
        while (*link != &sleeper) link = &(*link)->next;
        *link = sleeper.next;
    }
    sleeper.next = std::exchange(m_resting, &sleeper);
}

void CompletionQueue::beginWork(Worker& worker)
{
    worker.isAtWork = worker.counts = true;
    worker.seen.reset();
    worker.previous = nullptr;
    worker.next = m_workers;
    if (m_workers != nullptr) m_workers->previous = &worker;
    m_workers = &worker;
    ++m_atWork;
}

void CompletionQueue::endWork(Worker& worker)
{
    if (!std::exchange(worker.isAtWork, false)) return;
    (worker.previous != nullptr ? worker.previous->next : m_workers) = worker.next;
    if (worker.next != nullptr) worker.next->previous = worker.previous;
    if (worker.counts) --m_atWork;
}

void CompletionQueue::discountBlocked()
{
    for (Worker* worker = m_workers; worker != nullptr; worker = worker->next) {
        if (!worker->counts || !worker->seen || worker->seen != worker->used()) continue;
        worker->counts = false;
        --m_atWork;
    }
}

void CompletionQueue::close()
{
    for (;;) {
        std::unique_ptr<QueuedTransfer> dropped; // goes without the lock
        const Lock lock = quickLock(m_lock);
        m_isClosed = true;
        while (m_count != 0 && dropped == nullptr) dropped.reset(removeFirst().transfer);
        if (dropped != nullptr) continue;
        for (; m_asleep != nullptr; m_asleep = m_asleep->next) {
            m_asleep->isWoken = true;
            ++m_waking;
            m_asleep->woken.notify_one();
        }
        return;
    }
}

} // namespace corekit::detail
