#include "corekit/platform/PunctualThread.h"

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <thread>
#include <vector>

namespace {

// The policy, the share, and how late a sleep may end.
std::vector<int> Schedule()
{
    return {sched_getscheduler(0) & ~SCHED_RESET_ON_FORK, getpriority(PRIO_PROCESS, 0),
            prctl(PR_GET_TIMERSLACK)};
}

TEST(PunctualThread, ChangesThisThreadForAsLongAsItLives)
{
    const auto usual = Schedule();
    for (int i = 0; i < 2; ++i) {
        {
            const corekit::PunctualThread punctual;
            const auto now = Schedule();
            EXPECT_EQ(now[2], 1);
            EXPECT_TRUE(now[0] == SCHED_RR || now[1] <= usual[1]);
            std::thread([&] {
                EXPECT_EQ(Schedule()[0], usual[0]);
                EXPECT_GE(Schedule()[1], usual[1]);
            }).join();
        }
        EXPECT_EQ(Schedule(), usual);
    }
}

} // namespace
