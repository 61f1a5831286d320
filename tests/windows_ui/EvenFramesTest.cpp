#include "corekit/platform/EvenFrames.h"
#include "corekit/platform/InputTest.h"
#include "corekit/platform/Toolkit.h"

#include <gtest/gtest.h>
#include <optional>
#include <vector>

namespace {

using namespace corekit::test;
using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

TEST(FrameTimer, CallsWhenItsTimeHasComeAndMayBeSetOrEndedThen)
{
    ASSERT_TRUE(StartToolkit(ToolkitDisplay::offscreen));
    const auto start = Clock::now();
    std::optional<corekit::FrameTimer> timer;
    std::vector<Clock::time_point> rang;
    timer.emplace([&] {
        rang.push_back(Clock::now());
        if (rang.size() < 3)
            timer->SetDue(start + milliseconds(20) * (rang.size() + 1));
        else
            timer.reset();
    });
    timer->SetDue(start + milliseconds(500));
    timer->SetDue(start + milliseconds(20)); // in its place
    for (int i = 0; i < 3000 && timer; ++i) RunFor(10);
    ASSERT_EQ(rang.size(), 3u);
    for (std::size_t i = 0; i < rang.size(); ++i) EXPECT_GE(rang[i], start + milliseconds(20) * (i + 1));
}

} // namespace
