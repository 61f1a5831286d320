#include "corekit/framework/ui/CmdUI.h"
#include "corekit/framework/ui/DC.h"
#include "corekit/framework/ui/Document.h"
#include "corekit/framework/ui/FrameWnd.h"
#include "corekit/framework/ui/Menu.h"
#include "corekit/framework/ui/View.h"
#include "corekit/platform/InputTest.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/PopupMenus.h"
#include "corekit/platform/Toolkit.h"

#include <gtest/gtest.h>

using namespace corekit::test;

namespace {

constexpr UINT idView = 0x8001, idDocument = 0x8002, idFrame = 0x8003, idNobody = 0x8004;

class CNoteDocument : public CDocument {
public:
    std::string log;

protected:
    void OnCommand() { log += "d"; }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CNoteDocument, CDocument)
ON_COMMAND(idDocument, &CNoteDocument::OnCommand)
END_MESSAGE_MAP()

class CNoteView : public CView {
    DECLARE_DYNCREATE(CNoteView)
public:
    static inline std::string log;
    static inline int alive = 0;
    CNoteView() { ++alive; }
    ~CNoteView() override { --alive; }
    void OnDraw(CDC* dc) override { dc->FillSolidRect(0, 0, 10, 10, RGB(1, 2, 3)); }
    void OnUpdate(CView*, LPARAM hint, CObject*) override { log += "u" + std::to_string(hint); }

protected:
    void OnCommand() { log += "v"; }
    void OnUpdateCommand(CCmdUI* ui) { ui->SetCheck(); }
    DECLARE_MESSAGE_MAP()
};
IMPLEMENT_DYNCREATE(CNoteView, CView)
BEGIN_MESSAGE_MAP(CNoteView, CView)
ON_COMMAND(idView, &CNoteView::OnCommand)
ON_UPDATE_COMMAND_UI(idView, &CNoteView::OnUpdateCommand)
END_MESSAGE_MAP()

class CNoteFrame : public CFrameWnd {
public:
    std::string log;

protected:
    void OnCommand() { log += "f"; }
    void OnInitMenu(CMenu* menu) { log += menu->GetSafeHmenu() == ::GetMenu(m_hWnd) ? "b" : "p"; }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CNoteFrame, CFrameWnd)
ON_WM_INITMENU()
ON_COMMAND(idFrame, &CNoteFrame::OnCommand)
END_MESSAGE_MAP()

class Frame : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(StartToolkit(ToolkitDisplay::offscreen));
        CNoteView::log.clear();
        popup = CreatePopupMenu();
        for (const UINT id : {idView, idDocument, idFrame, idNobody})
            AppendMenuA(popup, MF_STRING, id, "Item");
        const HMENU bar = CreateMenu();
        AppendMenuA(bar, MF_POPUP | MF_STRING, reinterpret_cast<UINT_PTR>(popup), "&Edit");
        CCreateContext context{RUNTIME_CLASS(CNoteView), &document, nullptr};
        const CRect place(50, 50, 350, 250);
        ASSERT_TRUE(frame->Create(nullptr, "frame", WS_OVERLAPPEDWINDOW, &place, nullptr, bar, 0, &context));
        frame->InitialUpdateFrame(&document, TRUE);
        RunWaiting();
    }
    void TearDown() override
    {
        frame->DestroyWindow();
        EXPECT_EQ(CNoteView::alive, 0);
        RunWaiting();
    }

    CNoteDocument document;
    CNoteFrame* frame = new CNoteFrame; // deletes itself
    HMENU popup = nullptr;
};

TEST_F(Frame, CommandsGoToViewDocumentAndFrame)
{
    for (const UINT id : {idView, idDocument, idFrame, idNobody}) frame->SendMessage(WM_COMMAND, id);
    EXPECT_EQ(CNoteView::log + document.log + frame->log, "u0vdf");
    document.UpdateAllViews(nullptr, 7);
    EXPECT_EQ(CNoteView::log, "u0vu7");
}

TEST_F(Frame, MenusShowTheStateOfTheirCommands)
{
    frame->SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(popup), 0);
    EXPECT_EQ(GetMenuState(popup, idView, MF_BYCOMMAND), MF_CHECKED);
    EXPECT_EQ(GetMenuState(popup, idFrame, MF_BYCOMMAND), MF_ENABLED);
    EXPECT_EQ(GetMenuState(popup, idNobody, MF_BYCOMMAND), MF_GRAYED | MF_DISABLED);
}

TEST_F(Frame, TheViewFillsTheFrameBelowTheMenuBar)
{
    CRect room, view, window;
    frame->GetClientRect(&room);
    frame->GetActiveView()->GetWindowRect(&view);
    EXPECT_EQ(view.Size().cx, room.Width());
    EXPECT_EQ(view.Size().cy, room.Height());
    frame->GetWindowRect(&window);
    EXPECT_GT(view.top, window.top + 5) << "the bar has its room";
    EXPECT_EQ(CWnd::GetFocus(), frame->GetActiveView());
    frame->SetWindowPos(nullptr, 0, 0, 500, 400, SWP_NOMOVE | SWP_NOZORDER);
    frame->GetClientRect(&room);
    frame->GetActiveView()->GetClientRect(&view);
    EXPECT_EQ(view.Width(), room.Width());
}

TEST_F(Frame, APopUpMenuAnswersTheKeyThatChooses)
{
    frame->SetTimer(1, 30, [](HWND window, UINT, UINT_PTR, DWORD) {
        KillTimer(window, 1);
        PressKey(0x28); // down
        PressKey(VK_RETURN);
    });
    const int chosen = TrackPopupMenu(popup, TPM_RETURNCMD, 60, 60, 0, frame->m_hWnd);
    EXPECT_EQ(chosen, static_cast<int>(idView));
    EXPECT_EQ(frame->log, "p");
}

TEST_F(Frame, TheBarIsAnnouncedBeforeItsMenuOpens)
{
    PressKey('E', {VK_MENU});
    RunWaiting();
    PressKey(VK_DOWN);
    PressKey(VK_RETURN);
    RunWaiting();
    EXPECT_EQ(frame->log.substr(0, 1), "b");
    EXPECT_EQ(CNoteView::log, "u0v");
}

} // namespace
