#include "corekit/platform/Messages.h"

#include "corekit/platform/DebugOutput.h"
#include "corekit/platform/Errors.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

LRESULT Unanswered(const MSG&) { return 0; }

// Takes what the filter lets through and returns the numbers, in order.
std::vector<UINT> Taken(HWND window = nullptr, UINT first = 0, UINT last = 0)
{
    std::vector<UINT> numbers;
    MSG message;
    while (PeekMessageA(&message, window, first, last, PM_REMOVE)) numbers.push_back(message.message);
    return numbers;
}

TEST(PostedMessages, ComeInOrderThroughTheFilter)
{
    const MessageWindow a(Unanswered), b(Unanswered);
    const auto post = [](HWND window, UINT message) { ASSERT_TRUE(PostMessageA(window, message, 0, 0)); };
    post(a.GetSafeHwnd(), WM_USER + 1);
    post(b.GetSafeHwnd(), WM_USER + 2);
    post(nullptr, WM_USER + 3);
    post(a.GetSafeHwnd(), WM_USER + 4);
    post(a.GetSafeHwnd(), WM_USER + 5);
    MSG seen{};
    EXPECT_TRUE(PeekMessageA(&seen, nullptr, 0, 0, PM_NOREMOVE));
    EXPECT_EQ(seen.message, WM_USER + 1) << "looked at, not taken";
    EXPECT_EQ(Taken(b.GetSafeHwnd()), (std::vector<UINT>{WM_USER + 2}));
    EXPECT_EQ(Taken(a.GetSafeHwnd(), WM_USER + 4, WM_USER + 4), (std::vector<UINT>{WM_USER + 4}));
    post(nullptr, WM_QUIT);
    EXPECT_FALSE(GetMessageA(&seen, b.GetSafeHwnd(), WM_USER, WM_USER)) << "the end passes every filter";
    EXPECT_EQ(Taken(), (std::vector<UINT>{WM_USER + 1, WM_USER + 3, WM_USER + 5}));
}

TEST(PostedMessages, AFullQueueRefuses)
{
    const MessageWindow window(Unanswered);
    for (int i = 0; i < maximumPostedMessages; ++i)
        ASSERT_TRUE(PostMessageA(window.GetSafeHwnd(), WM_USER, 0, i));
    EXPECT_FALSE(PostMessageA(nullptr, WM_USER, 0, 0));
    EXPECT_EQ(GetLastError(), ERROR_NOT_ENOUGH_QUOTA);
    MSG message;
    EXPECT_TRUE(GetMessageA(&message, nullptr, 0, 0));
    EXPECT_TRUE(PostMessageA(window.GetSafeHwnd(), WM_USER, 0, 0));
}

TEST(PostedMessages, AClosedWindowTakesItsOwnAlong)
{
    auto window = std::make_unique<MessageWindow>(Unanswered);
    const HWND handle = window->GetSafeHwnd();
    EXPECT_TRUE(PostMessageA(handle, WM_USER, 0, 0));
    EXPECT_TRUE(PostMessageA(nullptr, WM_USER + 1, 0, 0));
    window.reset();
    EXPECT_EQ(Taken(), (std::vector<UINT>{WM_USER + 1}));
    MSG message;
    for (const auto refused : {+[](HWND h, MSG*) { return PostMessageA(h, WM_USER, 0, 0) == 0; },
                               +[](HWND h, MSG*m) { return PeekMessageA(m, h, 0, 0, PM_REMOVE) == 0; },
                               +[](HWND h, MSG*m) { return GetMessageA(m, h, 0, 0) == -1; }}) {
        SetLastError(0);
        EXPECT_TRUE(refused(handle, &message));
        EXPECT_EQ(GetLastError(), ERROR_INVALID_WINDOW_HANDLE);
    }
}

TEST(PostedMessages, AnotherThreadWakesTheOneThatWaits)
{
    std::vector<LPARAM> arrived;
    const MessageWindow window([&arrived](const MSG& message) -> LRESULT {
        arrived.push_back(message.lParam);
        return 0;
    });
    std::thread other([handle = window.GetSafeHwnd()] {
        MSG message;
        EXPECT_EQ(GetMessageA(&message, handle, 0, 0), -1) << "only its own thread reads a window's messages";
        for (int i = 0; i < 100; ++i) EXPECT_TRUE(PostMessageA(handle, WM_USER, 0, i));
        EXPECT_TRUE(PostMessageA(handle, WM_QUIT, 0, 0));
    });
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0)) DispatchMessageA(&message);
    other.join();
    ASSERT_EQ(arrived.size(), 100u);
    for (std::size_t i = 0; i < arrived.size(); ++i) EXPECT_EQ(arrived[i], static_cast<LPARAM>(i));
}

TEST(DebugOutput, ReachesTheListenerAndLeavesTheError)
{
    std::string heard;
    const DebugListener former = SetDebugListener([&heard](const char* text) {
        heard += text;
        SetLastError(1);
    });
    SetLastError(5);
    OutputDebugStringA("one\n");
    OutputDebugStringA(nullptr);
    EXPECT_EQ(GetLastError(), 5u);
    SetDebugListener(former);
    testing::internal::CaptureStderr();
    OutputDebugStringA("two\n");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "two\n");
    EXPECT_EQ(heard, "one\n");
}

} // namespace
