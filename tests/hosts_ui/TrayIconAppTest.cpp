#include "corekit/hosts/ui/TrayIconApp.h"
#include "corekit/hosts/ui/TrayAppWnd.h"
#include "corekit/platform/Toolkit.h"
#include "corekit/platform/Tray.h"

#include <gtest/gtest.h>
#include <string>

namespace {

constexpr UINT commandOfSecond = 1002;

// Notes what it hears.
class NotingIcon : public CTrayIcon {
public:
    NotingIcon(std::string& log, char name, int autoDelete = 0)
        : CTrayIcon(autoDelete), m_log(log), m_name(name)
    {
    }
    ~NotingIcon() override { Note("gone"); }

    using CTrayIcon::KillTimer;
    using CTrayIcon::SetTimer;

    void OnLeftButtonDown() override { Note("left"); }
    void OnLeftButtonDblClk() override { Note("left twice"); }
    void OnRightButtonDown() override { Note("right"); }
    void OnRightButtonDblClk() override { Note("right twice"); }
    int GetIconId() override { return 1; }
    void GetTipText(CString& text) override { text = "tip"; }
    int OnTimer(int timerId) override
    {
        if (timerId != timer) return 0;
        Note("timer " + std::to_string(timerId));
        return 1;
    }
    int OnRegisteredMessage(unsigned int, unsigned int wParam, long lParam, long& result) override
    {
        if (wParam != static_cast<unsigned>(m_name)) return 0;
        result = lParam + 1;
        return 1;
    }
    void OnShutdown() override { Note("shutdown"); }
    void OnCommand() { Note("command"); }

    int timer = 0;

private:
    void Note(const std::string& text) { m_log += std::string(1, m_name) + " " + text + "|"; }

    std::string& m_log;
    const char m_name;

protected:
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(NotingIcon, CTrayIcon)
ON_COMMAND(commandOfSecond, &NotingIcon::OnCommand)
END_MESSAGE_MAP()

class App : public CTrayIconApp {
public:
    int OnTrayStart() override
    {
        if (early) AddIcon(early, 1);
        return starts;
    }
    void OnTrayExit() override { ++exits; }

    int starts = 1, exits = 0;
    CTrayIcon* early = nullptr;
};

class Tray : public testing::Test {
protected:
    Tray() { StartToolkit(ToolkitDisplay::offscreen); }

    HWND Window() const { return app.m_pMainWnd->GetSafeHwnd(); }

    std::string log;
    App app;
};

TEST_F(Tray, MessagesReachTheIconThatTheyAreFor)
{
    ASSERT_TRUE(app.InitInstance());
    char title[64];
    GetWindowTextA(Window(), title, sizeof title);
    EXPECT_STREQ(title, "Tray Icon Notification Window");
    NotingIcon a(log, 'a'), b(log, 'b');
    EXPECT_EQ(app.AddIcon(&a, 0), 1);
    EXPECT_EQ(app.AddIcon(&b, 0), 1);
    EXPECT_EQ(app.GetIcon(1), &b);
    EXPECT_EQ(app.GetIcon(2), nullptr);
    EXPECT_EQ(app.GetIcon(-1), nullptr);

    const UINT message = RegisterWindowMessageA("Tray.Icon.App.Message");
    const auto mouse = [&](CTrayIcon* icon, UINT what) {
        EXPECT_EQ(SendMessageA(Window(), message, reinterpret_cast<WPARAM>(icon), static_cast<LPARAM>(what)),
                  0);
    };
    for (const UINT what : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_RBUTTONDOWN, WM_RBUTTONUP,
                            WM_RBUTTONDBLCLK, WM_MOUSEMOVE})
        mouse(&b, what);
    mouse(reinterpret_cast<CTrayIcon*>(1), WM_LBUTTONDOWN); // gone meanwhile
    EXPECT_EQ(log, "b left|b left twice|b right|b right twice|");

    log.clear();
    const UINT other = RegisterWindowMessageA("Tray test");
    EXPECT_EQ(SendMessageA(Window(), other, 'b', 41), 42);
    EXPECT_EQ(SendMessageA(Window(), other, 'x', 41), 0);
    SendMessageA(Window(), WM_COMMAND, commandOfSecond, 0);
    EXPECT_EQ(log, "a command|");
    app.Shutdown();
}

TEST_F(Tray, TimersHaveTheLowestFreeNumber)
{
    ASSERT_TRUE(app.InitInstance());
    NotingIcon a(log, 'a'), b(log, 'b');
    app.AddIcon(&a, 0);
    app.AddIcon(&b, 0);
    EXPECT_EQ(a.SetTimer(60000), 1);
    EXPECT_EQ(b.timer = b.SetTimer(60000), 2);
    a.KillTimer(1);
    EXPECT_EQ(a.SetTimer(60000), 1);
    EXPECT_EQ(a.SetTimer(60000), 3);
    SendMessageA(Window(), WM_TIMER, 2, 0);
    SendMessageA(Window(), WM_TIMER, 3, 0);
    EXPECT_EQ(log, "b timer 2|");
    app.Shutdown();
    EXPECT_EQ(a.SetTimer(1000), 0); // there is no window any more
}

TEST_F(Tray, TheEndDeletesTheIconsThatWereMadeForIt)
{
    ASSERT_TRUE(app.InitInstance());
    NotingIcon kept(log, 'k');
    app.AddIcon(&kept, 0);
    app.AddIcon(new NotingIcon(log, 'd', 1), 0);
    app.Shutdown();
    EXPECT_EQ(log, "k shutdown|d shutdown|d gone|");
    EXPECT_EQ(app.GetIcon(0), nullptr);
    EXPECT_EQ(app.ExitInstance(), 0);
    EXPECT_EQ(app.exits, 1);
}

TEST_F(Tray, WithoutATrayNothingIsShown)
{
    ASSERT_TRUE(app.InitInstance());
    NotingIcon icon(log, 'a');
    EXPECT_EQ(app.AddIconToTaskbar(&icon), 0); // not in the list
    EXPECT_EQ(app.AddIcon(&icon, 1), 0);       // the offscreen display has no tray
    EXPECT_EQ(app.ChangeIconOnTaskbar(&icon), 0);
    EXPECT_EQ(app.RemoveIconFromTaskbar(&icon), 0);
    NOTIFYICONDATA data{};
    data.cbSize = 152;
    EXPECT_EQ(Shell_NotifyIconA(NIM_ADD, &data), 0);
    app.Shutdown();
}

TEST_F(Tray, AStartThatFailsEndsTheProgram)
{
    NotingIcon icon(log, 'a');
    app.early = &icon;
    app.starts = 0;
    EXPECT_FALSE(app.InitInstance());
    EXPECT_EQ(log, "a shutdown|");
    EXPECT_EQ(app.GetIcon(0), nullptr);
    EXPECT_EQ(app.m_pMainWnd, nullptr);
}

TEST(TrayTip, LongTextsEndInDots)
{
    using corekit::detail::shownTip;
    const CString fits('x', 63), cut = CString('x', 60) + "...";
    EXPECT_EQ(shownTip(fits), fits);
    EXPECT_EQ(shownTip(CString('x', 64)), cut);
    EXPECT_EQ(shownTip(""), "");
}

} // namespace
