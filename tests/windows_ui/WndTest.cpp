#include "corekit/framework/ui/Wnd.h"
#include "corekit/framework/Exception.h"
#include "corekit/framework/ui/CmdUI.h"
#include "corekit/framework/WinApp.h"
#include "corekit/platform/Accelerators.h"
#include "corekit/platform/InputTest.h"
#include "corekit/platform/Toolkit.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QPalette>

using namespace corekit::test;

namespace {

const UINT registered = RegisterWindowMessageA("corekit.test.message");
constexpr UINT idFind = 101, idNever = 102;

class CPane : public CWnd {
public:
    std::string log;
    bool isEating = false, isThrowing = false, isEnding = false;
    int notified = 0, gone = 0;

    void PostNcDestroy() override { ++gone; }
    BOOL PreTranslateMessage(MSG* message) override
    {
        if (message->message != WM_KEYDOWN) return FALSE;
        log += "t";
        return isEating;
    }
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override
    {
        ++notified;
        return CWnd::OnChildNotify(message, wParam, lParam, result);
    }

protected:
    int OnCreate(CREATESTRUCTA* create)
    {
        log += "c";
        EXPECT_EQ(FromHandlePermanent(m_hWnd), this);
        return CWnd::OnCreate(create);
    }
    void OnKeyDown(UINT key, UINT, UINT)
    {
        log += static_cast<char>(key);
        if (isThrowing) AfxThrowUserException();
        if (isEnding) DestroyWindow();
    }
    void OnSize(UINT, int width, int height)
    {
        log += "s" + std::to_string(width) + "x" + std::to_string(height);
    }
    void OnLButtonDown(UINT, CPoint point)
    {
        log += "d" + std::to_string(point.x) + "," + std::to_string(point.y);
    }
    void OnSysColorChange()
    {
        log += "C";
        CWnd::OnSysColorChange();
    }
    void OnFind() { log += "f"; }
    void OnUpdateFind(CCmdUI* ui) { ui->Enable(!isEating); }
    void OnNotifyCode(NMHDR* header, LRESULT* result)
    {
        log += "n";
        *result = static_cast<LRESULT>(header->idFrom);
    }
    BOOL OnReflected() { return log += "r", isEating; }
    LRESULT OnRegistered(WPARAM wParam, LPARAM) { return static_cast<LRESULT>(wParam + 1); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CPane, CWnd)
ON_WM_CREATE()
ON_WM_KEYDOWN()
ON_WM_SIZE()
ON_WM_LBUTTONDOWN()
ON_WM_SYSCOLORCHANGE()
ON_COMMAND(idFind, &CPane::OnFind)
ON_UPDATE_COMMAND_UI(idFind, &CPane::OnUpdateFind)
ON_NOTIFY(-12, 7, &CPane::OnNotifyCode)
ON_CONTROL_REFLECT_EX(5, &CPane::OnReflected)
ON_REGISTERED_MESSAGE(registered, &CPane::OnRegistered)
END_MESSAGE_MAP()

class Wnd : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(StartToolkit(ToolkitDisplay::offscreen));
        ASSERT_TRUE(top.CreateEx(0, nullptr, "top", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 200, nullptr,
                                 nullptr));
        ASSERT_TRUE(pane.Create(nullptr, "", WS_VISIBLE, CRect(10, 10, 110, 60), &top, 7));
        RunWaiting();
    }
    void TearDown() override
    {
        top.DestroyWindow();
        RunWaiting();
    }

    CPane top, pane;
};

TEST_F(Wnd, MessagesReachMembersFromTheFirstOn)
{
    EXPECT_EQ(pane.log, "cs100x50");
    pane.log.clear();
    Click(pane, {3, 4});
    EXPECT_EQ(pane.log, "d3,4");
    EXPECT_EQ(pane.SendMessage(registered, 41), 42);
    NMHDR header{pane, 7, static_cast<UINT>(-12)};
    EXPECT_EQ(top.SendMessage(WM_NOTIFY, 7, reinterpret_cast<LPARAM>(&header)), 7);
    EXPECT_EQ(top.log.back(), 'n');
    pane.DestroyWindow();
    EXPECT_EQ(pane.m_hWnd, nullptr);
    EXPECT_EQ(pane.gone, 1);
}

TEST_F(Wnd, AnObjectThatGoesTakesTheWindowThatItMadeAlong)
{
    HWND made = nullptr;
    {
        CPane child;
        ASSERT_TRUE(child.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 9, 9), &top, 8));
        made = child;
    }
    EXPECT_FALSE(IsWindow(made));
    {
        CWnd other;
        made = pane.UnsubclassWindow();
        ASSERT_TRUE(other.Attach(made));
    }
    EXPECT_TRUE(IsWindow(made)) << "attached to, not made";
    EXPECT_EQ(CWnd::FromHandlePermanent(made), nullptr);
    EXPECT_EQ(::SendMessageA(made, WM_GETTEXTLENGTH, 0, 0), 0) << "its class answers";
    CPane third;
    EXPECT_TRUE(third.SubclassWindow(made));
}

TEST_F(Wnd, PreTranslationComesFirstFromTheWindowUpwards)
{
    pane.SetFocus();
    pane.log.clear();
    top.log.clear();
    PressKey('X');
    EXPECT_EQ(pane.log, "tX");
    EXPECT_EQ(top.log, "t");
    top.isEating = true;
    PressKey('Y');
    EXPECT_EQ(pane.log, "tXt");
}

TEST_F(Wnd, NewColoursOfTheDesktopReachWhatStandsInAWindow)
{
    const QPalette before = QApplication::palette();
    top.log.clear();
    pane.log.clear();
    QApplication::setPalette(QPalette(Qt::darkGray, Qt::black));
    RunWaiting();
    EXPECT_EQ(top.log, "C");
    EXPECT_EQ(pane.log, "C");
    QApplication::setPalette(before);
}

TEST_F(Wnd, ADisabledCommandIsNotCarriedOut)
{
    top.log.clear();
    top.SendMessage(WM_COMMAND, idFind);
    EXPECT_EQ(top.log, "f");
    top.isEating = true; // its update handler disables it
    top.SendMessage(WM_COMMAND, idFind);
    EXPECT_EQ(top.log, "f");
    AFX_CMDHANDLERINFO info{};
    EXPECT_TRUE(top.OnCmdMsg(idFind, CN_COMMAND, nullptr, &info));
    EXPECT_EQ(info.pTarget, &top);
    EXPECT_FALSE(top.OnCmdMsg(idNever, CN_COMMAND, nullptr, &info));
}

TEST_F(Wnd, AControlHearsItsNotificationsBeforeTheParent)
{
    for (const bool isHandled : {true, false}) {
        pane.log.clear();
        pane.isEating = isHandled;
        top.SendMessage(WM_COMMAND, MAKELONG(7, 5), reinterpret_cast<LPARAM>(pane.m_hWnd));
        EXPECT_EQ(pane.log, "r");
    }
    EXPECT_EQ(pane.notified, 2);
}

TEST_F(Wnd, AcceleratorsSendTheirCommand)
{
    const ACCEL rows[] = {{FVIRTKEY | FCONTROL, 'F', idFind}};
    const HACCEL table = CreateAcceleratorTableA(rows, 1);
    top.log.clear();
    MSG key{top, WM_KEYDOWN, 'F', 0, 0, {0, 0}};
    EXPECT_FALSE(TranslateAcceleratorA(top, table, &key));
    RecordKeyMotion(VK_LCONTROL, KeyMotion::down);
    EXPECT_TRUE(TranslateAcceleratorA(top, table, &key));
    RecordKeyMotion(VK_LCONTROL, KeyMotion::up);
    EXPECT_EQ(top.log, "f");
    DestroyAcceleratorTable(table);
}

TEST_F(Wnd, WhatAHandlerThrowsEndsThere)
{
    pane.SetFocus();
    pane.isThrowing = true;
    pane.log.clear();
    PressKey('Z');
    EXPECT_EQ(pane.log, "tZ");
    pane.isThrowing = false;
    pane.isEnding = true;
    PressKey('Z');
    EXPECT_EQ(pane.m_hWnd, nullptr);
}

TEST_F(Wnd, AModalLoopRunsUntilItIsEndedOrItsWindowGoes)
{
    pane.SetTimer(1, 20, [](HWND window, UINT, UINT_PTR, DWORD) {
        CWnd::FromHandlePermanent(window)->KillTimer(1);
        CWnd::FromHandlePermanent(window)->EndModalLoop(12);
    });
    EXPECT_EQ(pane.RunModalLoop(), 12);
    pane.SetTimer(1, 20, [](HWND window, UINT, UINT_PTR, DWORD) { ::DestroyWindow(window); });
    EXPECT_EQ(pane.RunModalLoop(), -1);
    EXPECT_EQ(pane.gone, 1);
}

class CCountingApp : public CWinApp {
public:
    BOOL OnIdle(LONG count) override
    {
        idles += count == 0;
        return CWinApp::OnIdle(count);
    }
    int idles = 0;
};

TEST_F(Wnd, TheProgramRunsUntilItsMainWindowIsGone)
{
    CCountingApp app;
    app.m_pMainWnd = &top;
    top.SetTimer(1, 20, [](HWND window, UINT, UINT_PTR, DWORD) { ::PostMessageA(window, WM_CLOSE, 0, 0); });
    EXPECT_EQ(app.Run(), 0);
    EXPECT_EQ(top.m_hWnd, nullptr);
    EXPECT_GE(app.idles, 1);
}

} // namespace
