#include "Recorder.h"

#include "corekit/platform/DragDrop.h"

#include <gtest/gtest.h>

using namespace recorder;

namespace {

TEST(Drops, AHandleThatIsNoneAnswersNothing)
{
    ASSERT_TRUE(StartToolkit(ToolkitDisplay::offscreen));
    int number = 0;
    const HDROP wild = reinterpret_cast<HDROP>(&number);
    EXPECT_EQ(DragQueryFileA(wild, 0xFFFFFFFF, nullptr, 0), 0u);
    POINT point{};
    EXPECT_FALSE(DragQueryPoint(wild, &point));
    DragFinish(wild);
    EXPECT_FALSE(corekit::detail::setDropTarget(reinterpret_cast<HWND>(&number), nullptr));
}

} // namespace
