// Windows on top of each other in one client area, with a strip of slanted tabs along the lower edge.
//
// A pane is a child window that stands behind a tab; one is active and shown. Titles are drawn in any script.
// A pane may be wider than the window: a scroll bar beside the tabs, behind a splitter, then moves it. A tab
// may be dragged out to whatever target the derived class names, and a pane moved to another overlay by
// DetachPane and AttachPane. Panes are destroyed with the window as its children; their objects belong to
// whoever made them, those of CreatePane to themselves.
//
// Indexes count from 0; where nothing else is said they must exist. Titles compare without regard to case,
// and of two that are the same the later one is found. User-interface thread only.
#pragma once

#include "corekit/foundation/StringW.h"
#include "corekit/framework/ui/OleDropTarget.h"
#include "corekit/framework/ui/ScrollBar.h"
#include "corekit/framework/ui/WindowDC.h"
#include "corekit/framework/ui/Wnd.h"
#include "corekit/unicode/ui/UniRender.h"
#include "corekit/windows/TabHover.h"
#include "corekit/windows/TabStrip.h"

#include <vector>

class COREKIT_API CTabbedOverlayWnd : public CWnd {
    DECLARE_DYNAMIC(CTabbedOverlayWnd)
public:
    CTabbedOverlayWnd();
    ~CTabbedOverlayWnd() override;

    // False also if no font for the tabs can be made.
    BOOL Create(CWnd* parent, DWORD style, DWORD exStyle, const CRect& rect, UINT id);

    // ---- Panes. A negative index is the end. The new one becomes active if `activate` says so or it is the
    // first. Its width is in pixels, 0 for that of the window. Null, and no pane, if the window cannot be
    // made.
    CWnd* CreatePane(CRuntimeClass* paneClass, const WCHAR* title, int index, CCreateContext* context,
                     UINT paneWidth, int activate);
    CWnd* CreatePane(CRuntimeClass* paneClass, UINT titleId, int index, CCreateContext* context,
                     UINT paneWidth, int activate);
    // Takes a window over as a child, with an id of its own.
    void AttachPane(int index, CWnd* pane, int paneWidth, const WCHAR* title, int activate);
    // Gives the window to another parent; null for an index that does not exist.
    CWnd* DetachPane(int index, CWnd* newParent);

    CWnd* GetPane(int index) const; // null for an index that does not exist
    CWnd* GetPane(const WCHAR* title) const { return GetPane(GetPaneIndex(title)); }
    CWnd* GetActivePane() const { return GetPane(m_active); }
    int GetPaneCount() const { return static_cast<int>(m_panes.size()); }
    int GetPaneIndex(const WCHAR* title) const; // -1 for none
    int GetPaneIndex(const CWnd* pane) const;
    StringW GetPaneTitle(int index) const { return Pane(index).title; }
    StringW GetPaneTitle(const CWnd* pane) const { return GetPaneTitle(GetPaneIndex(pane)); }
    void SetPaneTitle(int index, const WCHAR* title);
    // Nothing happens if no pane has the old title.
    void RenamePane(const WCHAR* oldTitle, const WCHAR* newTitle);

    // Shows a pane; SetActivePane also gives it the focus and tells the derived class.
    void ShowPane(int index);
    void ShowPane(const CWnd* pane) { ShowPane(GetPaneIndex(pane)); }
    void SetActivePane(int index);
    void SetActivePane(const CWnd* pane) { SetActivePane(GetPaneIndex(pane)); }

    // The width of the tab; 0 for an index that does not exist.
    int GetPaneWidth(int index) const;
    int GetPaneWidth(const CWnd* pane) const { return GetPaneWidth(GetPaneIndex(pane)); }
    // All three set the width of the active pane, whichever is named, and return its former one; -1 without
    // an active pane.
    int SetPaneWidth(int index, int width);
    int SetPaneWidth(const WCHAR* title, int width);
    int SetActivePaneWidth(int width);

    // ---- Behaviour, all off at first
    void EnableHorizScroll(int enable);
    void EnableSingleTabCollapse(int enable); // no strip for a single pane
    int IsSingleTabCollapseEnabled() const { return m_collapsesSingle; }
    void EnableTabDragging(int enable) { m_dragsTabs = enable != 0; }
    // Ctrl+Tab and Ctrl+Page Down go to the next pane, with Shift or Page Up to the one before, round the
    // end.
    void EnableKeyboardTabChange(int enable);
    // What is held over a tab for half a second opens the pane.
    void EnableDragFocusSelect(int enable);

    // Scrolls the tabs if the point is on a scroll button that is enabled; 1 if it is.
    int HitTabScroll(CPoint point);
    // Scrolls by one tab, the way of the button that was hit last.
    void DoTabScroll();
    int HitTestTab(CPoint point) const; // -1 for none
    const corekit::detail::TabStrip& GetStrip() const { return m_strip; }

    BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) override;
    BOOL PreTranslateMessage(MSG* message) override;

protected:
    // A pane has become active (1), or none is left (null, 0). It may destroy any pane.
    virtual void OnChangeActivePane(CWnd* /*pane*/, int /*isActive*/) {}
    virtual void OnTabContextMenu(CWnd* /*pane*/, CPoint /*screenPoint*/) {}
    // What a drop at the point would do, and to whom: 0 nothing, 1 copy, 2 move; bit 16 says that it goes
    // between two items.
    virtual DWORD GetTabDragEffect(CWnd* /*pane*/, CPoint /*screenPoint*/, CWnd*& /*target*/) { return 0; }
    virtual void DropTab(DWORD /*effect*/, CWnd* /*pane*/, CWnd* /*target*/, CPoint /*screenPoint*/) {}

    int OnCreate(CREATESTRUCTA* create);
    void OnDestroy();
    void OnParentNotify(UINT message, LPARAM lParam);
    void OnSize(UINT how, int width, int height);
    void OnSetFocus(CWnd* before);
    void OnPaint();
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnMouseMove(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnCaptureChanged(CWnd* next);
    void OnContextMenu(CWnd* window, CPoint screenPoint);
    void OnTimer(UINT_PTR id);
    void OnHScroll(UINT code, UINT position, CScrollBar* bar);
    void OnCTabOverlayNextTab();
    void OnCTabOverlayPrevTab();
    DECLARE_MESSAGE_MAP()

private:
    struct PaneRecord {
        UINT id;
        int width; // wanted; 0 is that of the window
        StringW title;
        int textWidth;
        int scrollPosition;
    };
    enum class Mouse { idle, scrolling, movingSplitter, armed, draggingTab };
    enum class TabLook { inactive, active };

    const PaneRecord& Pane(int index) const { return m_panes[static_cast<std::size_t>(index)]; }
    PaneRecord& Pane(int index) { return m_panes[static_cast<std::size_t>(index)]; }
    bool Has(int index) const { return index >= 0 && index < GetPaneCount(); }
    UINT FindFreeWindowID() const;
    void InsertPane(int index, UINT id, int width, const WCHAR* title, int activate);
    void RemovePane(int index);

    bool MakeFonts();
    int CalcTabsHeight();
    int CalcTextWidth(const WCHAR* title);
    void LayoutTabs();
    void RecalcLayout();
    void DoSize(int width, int height);
    void PlacePanes(int width);
    void PlaceActivePane();
    void RecalcScrollbars();
    void RedrawStrip();

    void DrawTabs(CDC& dc);
    void DrawTab(CDC& dc, int tab, TabLook look);
    void DrawButtons(CDC& dc);
    void DrawSplitter(CDC& dc);

    bool PressScrollButton(CPoint point);
    bool IsOnHeldButton() const;
    void InvalidateButtons();
    void StartTabDrag(CPoint point);
    void UpdateTabDrag(CPoint point);
    void StepPane(int step);

    // Looks on at what is dragged over the strip; nothing is dropped.
    class DropTarget final : public COleDropTarget {
    public:
        explicit DropTarget(CTabbedOverlayWnd& overlay) : m_overlay(overlay) {}
        DROPEFFECT OnDragEnter(CWnd*, COleDataObject*, DWORD, CPoint point) override;
        DROPEFFECT OnDragOver(CWnd*, COleDataObject*, DWORD, CPoint point) override;
        void OnDragLeave(CWnd*) override { m_hover.Leave(); }

    private:
        DROPEFFECT WaitOver(int tab, CPoint point);

        CTabbedOverlayWnd& m_overlay;
        corekit::detail::TabHover m_hover;
    };

    CUniRender m_font, m_activeFont; // of the tabs; the bold one measures all
    int m_tabHeight = -1;            // -1: to be computed
    corekit::detail::TabStrip m_strip;
    std::vector<PaneRecord> m_panes;
    int m_active = -1;

    bool m_collapsesSingle = false, m_scrollsPanes = false, m_dragsTabs = false;
    bool m_isDestroying = false;
    HACCEL m_accelerators = nullptr;

    Mouse m_mouse = Mouse::idle;
    corekit::detail::TabStep m_scrolling = corekit::detail::TabStep::left; // the button hit last
    CPoint m_mousePoint;                                                   // where the mouse was last
    CRect m_dragStart;                                                     // leaving it starts the drag
    HWND m_draggedPane = nullptr, m_dropTarget = nullptr;
    DWORD m_dragEffect = 0;
    DropTarget m_dropTargetObject{*this};

    CPen m_blackPen, m_greyPen, m_whitePen;
    CScrollBar m_horizontal;
};
