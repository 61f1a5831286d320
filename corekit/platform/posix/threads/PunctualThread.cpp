#include "corekit/platform/PunctualThread.h"

#include <cstdint>
#include <linux/sched.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace corekit {

namespace {

// What the kernel calls sched_attr; its header and that of the C library exclude each other.
struct Attributes {
    std::uint32_t size, policy;
    std::uint64_t flags;
    std::int32_t nice;
    std::uint32_t priority;
    std::uint64_t turn, deadline, period; // nanoseconds
    std::uint32_t leastUse, mostUse;
};

constexpr std::uint64_t shortTurn = 100'000; // nanoseconds, the least that there is
constexpr int realTime = 1;                  // the lowest: above what is usual, below what drives devices
constexpr int largestShare = -15;
constexpr unsigned long exactSleep = 1; // nanoseconds

bool schedule(Attributes wanted)
{
    wanted.size = sizeof wanted;
    return ::syscall(SYS_sched_setattr, 0, &wanted, 0U) == 0;
}

Attributes schedule()
{
    Attributes now{};
    ::syscall(SYS_sched_getattr, 0, &now, static_cast<unsigned>(sizeof now), 0U);
    return now;
}

bool runInRealTime()
{
    Attributes wanted{};
    wanted.policy = SCHED_RR;
    wanted.priority = realTime;
    wanted.flags = SCHED_FLAG_RESET_ON_FORK;
    return schedule(wanted);
}

// The largest share that the limit grants.
void runInShortTurns(int usualNice)
{
    Attributes wanted{};
    wanted.flags = SCHED_FLAG_RESET_ON_FORK;
    wanted.turn = shortTurn;
    for (wanted.nice = largestShare; wanted.nice <= usualNice; ++wanted.nice)
        if (schedule(wanted)) return;
}

} // namespace

struct PunctualThread::Former {
    Attributes scheduled = schedule();
    unsigned long slack = static_cast<unsigned long>(::prctl(PR_GET_TIMERSLACK));
};

PunctualThread::PunctualThread() : m_former(std::make_unique<Former>())
{
    ::prctl(PR_SET_TIMERSLACK, exactSleep);
    if (m_former->scheduled.policy != SCHED_NORMAL) return; // whoever started this knows better
    if (!runInRealTime()) runInShortTurns(m_former->scheduled.nice);
}

// Who may not take the rule for new threads back leaves it, which changes nothing for a usual one.
PunctualThread::~PunctualThread()
{
    ::prctl(PR_SET_TIMERSLACK, m_former->slack);
    Attributes usual = m_former->scheduled;
    usual.turn = 0;
    if (schedule(usual)) return;
    usual.flags |= SCHED_FLAG_RESET_ON_FORK;
    schedule(usual);
}

} // namespace corekit
