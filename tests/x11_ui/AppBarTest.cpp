#include "corekit/platform/AppBars.h"

#include "Becomes.h"
#include "XServer.h"

#include "corekit/platform/InputTest.h"
#include "corekit/platform/SystemColours.h"
#include "corekit/platform/SystemInfo.h"
#include "corekit/platform/Toolkit.h"
#include "corekit/platform/Windows.h"

#include <QWidget>

#include <gtest/gtest.h>

namespace {

using namespace corekit::test;

HWND Bar()
{
    const WNDCLASSA bars{0, DefWindowProcA, 0, 0, nullptr, nullptr, nullptr, nullptr, nullptr, "Bar"};
    RegisterClassA(&bars);
    const HWND window = CreateWindowExA(WS_EX_TOOLWINDOW, "Bar", "", WS_POPUP | WS_VISIBLE, 0, 0, 320, 40,
                                        nullptr, nullptr, nullptr, nullptr);
    APPBARDATA data{sizeof data, window, WM_USER, 0, {}, 0};
    return SHAppBarMessage(ABM_NEW, &data) ? window : nullptr;
}

// A window manager, which goes with the server. The toolkit asks once what it can do, so it has to be there
// before; and what is mapped before its start has ended may wait for its next event.
bool StartsManager()
{
    return std::system("openbox --startup 'xprop -root -f STARTED 32c -set STARTED 1' >/dev/null 2>&1 &"
                       "timeout 60 sh -c 'until xprop -root STARTED | grep -q 1; do sleep 0.1; done'") == 0;
}

bool TakesEdge(HWND window)
{
    APPBARDATA data{sizeof data, window, 0, ABE_LEFT, {}, TRUE};
    return SHAppBarMessage(ABM_SETAUTOHIDEBAR, &data) != 0;
}

int FreeFrom()
{
    RECT area{};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0);
    return static_cast<int>(area.top);
}

TEST(AppBarOnX, TheWindowManagerKeepsTheStripFree)
{
    static XServer server;
    ASSERT_TRUE(server.IsRunning());
    ASSERT_TRUE(StartsManager());
    setenv("QT_QPA_PLATFORM", "xcb", 1);
    ASSERT_TRUE(StartToolkit());
    const HWND bar = Bar();
    ASSERT_TRUE(bar);
    APPBARDATA data{sizeof data, bar, 0, ABE_TOP, {0, 0, 320, 40}, 0};
    EXPECT_TRUE(SHAppBarMessage(ABM_SETPOS, &data));
    EXPECT_TRUE(Becomes([] { return FreeFrom() == 40; }));
    EXPECT_TRUE(SHAppBarMessage(ABM_REMOVE, &data));
    EXPECT_TRUE(Becomes([] { return FreeFrom() == 0; }));
}

TEST(AppBarOnX, ABarHearsOfWindowsThatCoverTheScreen)
{
    static XServer server;
    ASSERT_TRUE(server.IsRunning());
    ASSERT_TRUE(StartsManager());
    setenv("QT_QPA_PLATFORM", "xcb", 1);
    ASSERT_TRUE(StartToolkit());
    static int open = -1;
    const HWND bar = Bar();
    ASSERT_TRUE(bar);
    SetWindowLongPtrA(bar, GWLP_WNDPROC,
                      reinterpret_cast<LONG_PTR>(static_cast<WNDPROC>(
                          [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
                              if (message == WM_USER && wParam == ABN_FULLSCREENAPP)
                                  open = static_cast<int>(lParam);
                              return DefWindowProcA(window, message, wParam, lParam);
                          })));
    RunWaiting();
    EXPECT_EQ(open, -1);
    QWidget film;
    film.showFullScreen();
    EXPECT_TRUE(Becomes([] { return open == 1; }));
    const HWND late = Bar(); // a bar that comes later hears of it at once
    open = -1;
    film.showNormal();
    EXPECT_TRUE(Becomes([] { return open == 0; }));
    film.showFullScreen();
    EXPECT_TRUE(Becomes([] { return open == 1; }));
    film.close();
    EXPECT_TRUE(Becomes([] { return open == 0; }));
    DestroyWindow(late);
}

TEST(AppBarOnX, OneBarOfAllProgramsHidesOnAnEdge)
{
    static XServer server;
    ASSERT_TRUE(server.IsRunning());
    setenv("QT_QPA_PLATFORM", "xcb", 1);
    int done[2], go[2];
    ASSERT_EQ(pipe(done) + pipe(go), 0);
    const pid_t other = fork();
    if (other == 0) {
        const bool taken = StartToolkit() && TakesEdge(Bar());
        char c = taken ? 'y' : 'n';
        if (write(done[1], &c, 1) == 1 && read(go[0], &c, 1) >= 0) _exit(0);
        _exit(1);
    }
    char answer = 0;
    ASSERT_EQ(read(done[0], &answer, 1), 1);
    EXPECT_EQ(answer, 'y');
    ASSERT_TRUE(StartToolkit());
    const HWND bar = Bar();
    EXPECT_FALSE(TakesEdge(bar));
    EXPECT_EQ(write(go[1], "g", 1), 1);
    waitpid(other, nullptr, 0);
    EXPECT_TRUE(Becomes([bar] { return TakesEdge(bar); })); // free as its program has gone
}

} // namespace
