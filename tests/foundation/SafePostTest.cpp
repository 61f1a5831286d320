#include "corekit/foundation/SafePost.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// What goes to the debug output while this stands.
struct Heard {
    std::string text;
    DebugListener former = SetDebugListener([this](const char* more) { text += more; });
    ~Heard() { SetDebugListener(former); }
};

TEST(SafePost, ReportsEveryTryBeyondTheFirst)
{
    const struct {
        int failures;
        int calls;
        const char* text;
    } cases[] = {
        {0, 1, ""},
        {1, 2, "SafePostMessage() succeeded after 1 retries.\n"},
        {14, 15, "SafePostMessage() succeeded after 14 retries.\n"},
        {15, 15, "SafePostMessage() failed after 15 retries!\n"},
    };
    for (const auto& c : cases) {
        const Heard heard;
        int calls = 0;
        corekit::detail::postPatiently([&] { return ++calls > c.failures; });
        EXPECT_EQ(calls, c.calls);
        EXPECT_EQ(heard.text, c.text);
    }
}

TEST(SafePost, PostsOrLosesTheMessage)
{
    const Heard heard;
    const MessageWindow window([](const MSG&) -> LRESULT { return 0; });
    SafePostMessage(window.GetSafeHwnd(), WM_USER, 0x80000041, -2);
    EXPECT_EQ(heard.text, "");
    MSG message{};
    ASSERT_TRUE(PeekMessageA(&message, window.GetSafeHwnd(), WM_USER, WM_USER, PM_REMOVE));
    EXPECT_EQ(message.wParam, 0x80000041u);
    EXPECT_EQ(message.lParam, -2);
    for (int i = 0; i < maximumPostedMessages; ++i) PostMessageA(window.GetSafeHwnd(), WM_USER, 0, 0);
    SafePostMessage(window.GetSafeHwnd(), WM_USER, 0, 0);
    EXPECT_EQ(heard.text, "SafePostMessage() failed after 15 retries!\n");
}

} // namespace
