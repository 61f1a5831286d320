// A top window with a menu bar, accelerator keys and views.
//
// Commands go to the active view and its document, then to the frame, then to the application object; the
// state of menu items is asked for in the same order when their menu opens.
//
// User-interface thread. Always made with new: a frame deletes itself when its window is gone, and also
// where its creation fails, so that the pointer must not be used after either.
//
//     auto* const frame = new CFrameWnd;
//     CCreateContext context;
//     context.m_pNewViewClass = RUNTIME_CLASS(CTextView);
//     context.m_pCurrentDoc = &document;
//     if (!frame->Create(nullptr, "Script", WS_OVERLAPPEDWINDOW, nullptr, nullptr, menu, 0, &context))
//         return FALSE;
//     m_pMainWnd = frame;
//     frame->InitialUpdateFrame(&document, TRUE);
#pragma once

#include "corekit/framework/ui/CreateContext.h"
#include "corekit/framework/ui/ViewFrame.h"
#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/Accelerators.h"

#include <memory>
#include <vector>

class CControlBar;
class CDockBar;
class CMiniDockFrameWnd;
struct CDockState;

namespace corekit::detail {
class BarDrag;
}

inline constexpr UINT AFX_IDW_PANE_FIRST = 0xE900, AFX_IDW_PANE_LAST = 0xE9FF; // ids of views

class COREKIT_API CFrameWnd : public CWnd, public corekit::detail::ViewFrame {
    DECLARE_DYNAMIC(CFrameWnd)
public:
    CFrameWnd() = default;

    // For a null class that of a frame. The menu becomes the window's. An empty rectangle, or none, leaves
    // the place to the toolkit. 0 on failure; then the object is gone. A frame with a context makes its
    // view.
    BOOL Create(const char* className, const char* title, DWORD style = WS_OVERLAPPEDWINDOW,
                const RECT* rect = nullptr, CWnd* parent = nullptr, HMENU menu = nullptr, DWORD exStyle = 0,
                CCreateContext* context = nullptr);
    // A view of the context's class, or null; fills the frame. The view is made with new, and deletes
    // itself.
    CWnd* CreateView(CCreateContext* context, UINT id = AFX_IDW_PANE_FIRST);
    // Tells all views to show their document for the first time, and shows the frame. The first view becomes
    // the active one. `document` is not used: views know theirs.
    void InitialUpdateFrame(CDocument* document, BOOL makeVisible);

    // The one that commands go to first; null without one.
    CView* GetActiveView() const override { return m_pViewActive; }
    // Null for none. Both views are told unless `notify` is false.
    void SetActiveView(CView* view, BOOL notify = TRUE) override;
    // That of the active view, or null.
    virtual CDocument* GetActiveDocument();

    // Lays the bars out along the edges, in the order in which they were made, and the view over what is
    // left. Nothing happens while a layout is under way. `notify` is not used.
    virtual void RecalcLayout(BOOL notify = TRUE);
    void DelayRecalcLayout(); // when the messages that wait have been dealt with

    // ---- Bars (ControlBar.h). A bar lists itself when it is created as the frame's child.
    // In the order in which they were made, docks and floating bars among them.
    const std::vector<CControlBar*>& GetControlBars() const { return m_controlBars; }
    CControlBar* GetControlBar(UINT id) const; // the first of that id, null without one
    // With `delay` when the program is idle, else at once with a new layout.
    void ShowControlBar(CControlBar* bar, BOOL show, BOOL delay);
    // A bar belongs to one frame; it leaves the former.
    void AddControlBar(CControlBar* bar);
    void RemoveControlBar(CControlBar* bar);

    // Makes docks at these sides (CBRS_ALIGN_), where there are none yet; with 0 bars may only float.
    void EnableDocking(DWORD sides);
    // Into a row of the dock by a rectangle on the screen, or a row of its own. An id of 0: the first dock
    // that the bar allows. The layout follows; RecalcLayout does it at once. Nothing happens without a dock
    // or a window.
    void DockControlBar(CControlBar* bar, CDockBar* dock, const RECT* screen = nullptr);
    void DockControlBar(CControlBar* bar, UINT dockBarId = 0, const RECT* screen = nullptr);
    // In a small frame of its own whose corner is at that point of the screen. Style: CBRS_ALIGN_TOP lying,
    // CBRS_ALIGN_LEFT standing. Nothing happens before EnableDocking.
    void FloatControlBar(CControlBar* bar, CPoint point, DWORD style = 0x2000);
    // The user has taken hold of the bar at that point of the screen.
    std::unique_ptr<corekit::detail::BarDrag> BeginDrag(CControlBar& bar, CPoint screen);
    // Of all bars with a window, with the size of the screen.
    void GetDockState(CDockState& state) const;
    // Bars that the state does not name stay where they are, and those that it alone names are not made.
    void SetDockState(const CDockState& state);

    // The text of the status bar, where the frame has one. Nothing happens without a status bar.
    void SetMessageText(const char* text);
    void SetMessageText(UINT stringId); // its first line

    // Active view, frame, application object, in this order.
    BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) override;
    // Accelerator keys of m_hAccelTable, after the base's.
    BOOL PreTranslateMessage(MSG* message) override;

    HACCEL m_hAccelTable = nullptr; // not owned; must outlive the frame
    BOOL m_bAutoMenuEnable = TRUE;  // menu items whose command nobody handles are disabled

protected:
    BOOL PreCreateWindow(CREATESTRUCTA& create) override;
    void PostNcDestroy() override;
    // Makes the view of the context while the frame is created; FALSE stops that.
    virtual BOOL OnCreateClient(CREATESTRUCTA* create, CCreateContext* context);

    int OnCreate(CREATESTRUCTA* create);
    void OnDestroy();
    // The view gets the focus.
    void OnSetFocus(CWnd* former);
    void OnActivate(UINT state, CWnd* other, BOOL minimised);
    void OnSize(UINT how, int width, int height);
    // Asks the update handlers for each item of a menu that opens.
    void OnInitMenuPopup(CMenu* menu, UINT index, BOOL isSystemMenu);
    // Left out while a view covers the frame.
    BOOL OnEraseBkgnd(CDC* dc);
    void OnShowWindow(BOOL show, UINT why);
    // Shows an item's text in the status bar: the string of its number, up to a line end.
    void OnMenuSelect(UINT id, UINT flags, HMENU menu);
    // Lays out, if that is due, and shows or hides bars as DelayShow has asked.
    LRESULT OnIdleUpdateCmdUI(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    // Null on failure.
    CMiniDockFrameWnd* CreateFloatingFrame(DWORD style);

    CView* m_pViewActive = nullptr;          // not owned
    std::vector<CControlBar*> m_controlBars; // not owned
    // EnableDocking has been called; a layout is under way; one is asked for.
    bool m_dockingIsEnabled = false, m_laysOut = false, m_layoutIsDue = false;
};
