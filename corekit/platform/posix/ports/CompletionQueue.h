// The queue behind a completion port: many producers, any number of takers, a limit on how many of them are
// at work at once.
//
// A taker that finds nothing looks on for some microseconds before it sleeps, one taker at a time; those that
// sleep are woken last in, first out, and only as many as there is work for. That saves most calls into the
// kernel, which cost far more than the queue itself.
//
// A thread is at work from when it takes a completion until it comes back to this queue, goes to another or
// ends. Where there is work but the limit is reached, one idle taker keeps watch: a thread at work that uses
// no processor time is blocked, and does not count until it comes back.
#pragma once

#include "corekit/platform/Files.h"
#include "corekit/platform/posix/ports/Transfers.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace corekit::detail {

// A transfer that waits in a queue until a taker carries it out; one that goes without ends as cancelled.
class QueuedTransfer {
public:
    virtual ~QueuedTransfer() = default;
    // The outcome for the port.
    virtual Transfer carryOut() = 0;
};

struct Completion {
    UINT_PTR key = 0;
    OVERLAPPED* overlapped = nullptr;
    DWORD moved = 0;
    DWORD error = 0;
    // A transfer to carry out first, by whoever takes this; owned.
    QueuedTransfer* transfer = nullptr;
};

class CompletionQueue : public std::enable_shared_from_this<CompletionQueue> {
public:
    enum class Taken { completion, nothing, closed };
    enum class Wake { now, later };

    explicit CompletionQueue(DWORD concurrency); // at most so many at work; 0: as many as processors
    CompletionQueue(const CompletionQueue&) = delete;
    CompletionQueue& operator=(const CompletionQueue&) = delete;
    ~CompletionQueue();

    bool post(const Completion& completion);
    // In two steps, the first of which may fail for want of memory: it keeps a place for a completion that
    // follows for certain. After Wake::later a call of wakeTakers is owed.
    bool keepPlace();
    void fillPlace(const Completion& completion, Wake wake);
    void wakeTakers();

    // The oldest completion; waits so many milliseconds for one.
    Taken take(Completion& completion, DWORD milliseconds);

    // Ends all waiting. What nobody took is dropped, and so is what comes later.
    void close();

private:
    using Lock = std::unique_lock<std::mutex>;
    using Deadline = std::optional<std::chrono::steady_clock::time_point>;
    struct Sleeper;
    struct Worker;
    struct Membership;

    static Membership& membership();

    bool hasRoomForTaker() const { return m_atWork < m_limit; }
    bool wakesOneMore() const;
    void growRing();
    void append(const Completion& completion);
    Completion removeFirst();
    void wakeAndUnlock(Lock& lock);
    void waitForWork(Lock& lock, Deadline deadline);
    bool worthSpinning();
    void spin(Lock& lock);
    void sleep(Lock& lock, Deadline deadline);
    void beginWork(Worker& worker);
    void endWork(Worker& worker);
    void discountBlocked();

    const DWORD m_limit;
    std::mutex m_lock;
    bool m_isClosed = false;

    std::vector<Completion> m_ring; // a power of two of places, m_count from m_first on are filled
    std::size_t m_first = 0;
    std::atomic<std::size_t> m_count = 0; // read by a spinner without the lock
    std::size_t m_kept = 0;

    std::vector<std::unique_ptr<Sleeper>> m_sleepers; // all that there ever were: notifying may come late
    Sleeper* m_resting = nullptr;                     // those not in use
    Sleeper* m_asleep = nullptr;                      // the last to fall asleep
    DWORD m_waking = 0;                               // woken, but not here again yet
    bool m_hasSpinner = false;
    int m_spinFailures = 0; // in a row
    int m_spinPause = 0;    // so many times not to spin
    bool m_hasWatch = false;

    DWORD m_atWork = 0;
    Worker* m_workers = nullptr;
};

} // namespace corekit::detail
