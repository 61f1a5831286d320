// Windows on top of each other in one client area, with a strip of slanted tabs along the lower edge.
//
// A pane is a child window that stands behind a tab; one is active and shown. Titles are drawn in any script.
// A pane may be wider than the window: a scroll bar beside the tabs, behind a splitter, then moves it. A tab
// may be dragged out to whatever target the derived class names, and a pane moved to another overlay by
// DetachPane and AttachPane. Panes are destroyed with the window as its children; their objects belong to
// whoever made them, those of CreatePane to themselves.
//
// Indexes count from 0; where nothing else is said one that does not exist is passed over. Titles compare
// without regard to case, and of two that are the same the later one is found; a null one is empty.
// User-interface thread only.
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
    CTabbedOverlayWnd(); // no window and no panes; the operations below need the window
    ~CTabbedOverlayWnd() override;

    // A window without panes, of the styles given. False also if no font for the tabs can be made: a
    // controls' font that the machine lacks is replaced for good, and a box says so.
    BOOL Create(CWnd* parent, DWORD style, DWORD exStyle, const CRect& rect, UINT id);

    // ---- Panes. An index that does not exist is the end. The new one becomes active if `activate` says so
    // or it is the first; else the active one is made so once more. Its width is in pixels, 0 for that of
    // the window. Null, and no pane, if the window cannot be made; also if OnChangeActivePane destroys it.
    CWnd* CreatePane(CRuntimeClass* paneClass, const WCHAR* title, int index, CCreateContext* context,
                     UINT paneWidth, int activate);
    CWnd* CreatePane(CRuntimeClass* paneClass, UINT titleId, int index, CCreateContext* context,
                     UINT paneWidth, int activate);
    // Takes a window over as a child, with an id of its own. `paneWidth` is in pixels, 0 for that of the
    // window.
    void AttachPane(int index, CWnd* pane, int paneWidth, const WCHAR* title, int activate);
    // Gives the window to another parent, hidden, and takes its tab away; another pane becomes active. Null
    // for an index that does not exist.
    CWnd* DetachPane(int index, CWnd* newParent);

    CWnd* GetPane(int index) const; // null for an index that does not exist
    CWnd* GetPane(const WCHAR* title) const { return GetPane(GetPaneIndex(title)); }
    CWnd* GetActivePane() const { return GetPane(m_active); }
    int GetPaneCount() const { return static_cast<int>(m_panes.size()); } // panes, shown or not
    int GetPaneIndex(const WCHAR* title) const;                           // -1 for none
    int GetPaneIndex(const CWnd* pane) const;                             // likewise
    StringW GetPaneTitle(int index) const; // as it was given; empty for an index that does not exist
    StringW GetPaneTitle(const CWnd* pane) const { return GetPaneTitle(GetPaneIndex(pane)); }
    void SetPaneTitle(int index, const WCHAR* title); // the tab follows in width
    // Nothing happens if no pane has the old title.
    void RenamePane(const WCHAR* oldTitle, const WCHAR* newTitle);

    // Shows a pane and hides the others; SetActivePane also gives it the focus, or as a view makes it its
    // frame's active one, and calls OnChangeActivePane. A window that is no pane leaves none shown.
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
    // A scroll bar beside the tabs for a pane that is wider than the window; the splitter begins in the
    // middle.
    void EnableHorizScroll(int enable);

    void EnableSingleTabCollapse(int enable); // no strip for a single pane
    int IsSingleTabCollapseEnabled() const { return m_collapsesSingle; }
    void EnableTabDragging(int enable) { m_dragsTabs = enable != 0; }
    // Ctrl+Tab and Ctrl+Page Down go to the next pane, with Shift or Page Up to the one before, round the
    // end.
    void EnableKeyboardTabChange(int enable);
    // What is held over a tab for half a second opens the pane.
    void EnableDragFocusSelect(int enable);

    // Scrolls the tabs if the point, in client pixels, is on a scroll button that is enabled; 1 if it is.
    int HitTabScroll(CPoint point);
    // Scrolls by one tab, the way of the button that was hit last.
    void DoTabScroll();
    int HitTestTab(CPoint point) const;                                   // -1 for none
    const corekit::detail::TabStrip& GetStrip() const { return m_strip; } // where tabs and buttons are

    // Commands that the window does not handle go to the active pane.
    BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) override;

    BOOL PreTranslateMessage(MSG* message) override; // the keys of EnableKeyboardTabChange

protected:
    // A pane has become active (1), or none is left (null, 0). It may destroy any pane.
    virtual void OnChangeActivePane(CWnd* /*pane*/, int /*isActive*/) {}
    // A right click on a tab, whose pane has become active.
    virtual void OnTabContextMenu(CWnd* /*pane*/, CPoint /*screenPoint*/) {}
    // What a drop at the point would do, and to whom: 0 nothing, 1 copy, 2 move; bit 16 says that it goes
    // between two items.
    virtual DWORD GetTabDragEffect(CWnd* /*pane*/, CPoint /*screenPoint*/, CWnd*& /*target*/) { return 0; }
    // The tab was let go where the last effect was not 0; the target is null if its window is gone.
    virtual void DropTab(DWORD /*effect*/, CWnd* /*pane*/, CWnd* /*target*/, CPoint /*screenPoint*/) {}

    int OnCreate(CREATESTRUCTA* create);              // makes fonts, pens and scroll bar
    void OnDestroy();                                 // forgets the panes, which are destroyed with it
    void OnParentNotify(UINT message, LPARAM lParam); // a pane that is destroyed leaves the tabs
    void OnSize(UINT how, int width, int height);
    void OnSetFocus(CWnd* before); // hands it to the active pane
    void OnPaint();
    // The mouse presses scroll buttons, which go on scrolling four times a second while they are held,
    // moves the splitter, activates panes, and drags tabs.
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnMouseMove(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnCaptureChanged(CWnd* next);
    void OnContextMenu(CWnd* window, CPoint screenPoint); // activates the tab, then asks OnTabContextMenu
    void OnTimer(UINT_PTR id);
    // Moves the active pane, by 5 pixels, by the width of the window, or to where the thumb is.
    void OnHScroll(UINT code, UINT position, CScrollBar* bar);

    void OnCTabOverlayNextTab();
    void OnCTabOverlayPrevTab();
    DECLARE_MESSAGE_MAP()

private:
    // What is kept of a pane beside its window.
    struct PaneRecord {
        UINT id;   // of the child window
        int width; // wanted; 0 is that of the window
        StringW title;
        int textWidth;      // pixels of the title in bold
        int scrollPosition; // while it is not shown
    };
    // What the pressed button is doing.
    enum class Mouse { idle, scrolling, movingSplitter, armed, draggingTab };
    enum class TabLook { inactive, active };

    const PaneRecord& Pane(int index) const { return m_panes[static_cast<std::size_t>(index)]; }
    PaneRecord& Pane(int index) { return m_panes[static_cast<std::size_t>(index)]; }
    bool Has(int index) const { return index >= 0 && index < GetPaneCount(); }
    UINT FindFreeWindowID() const; // the lowest from 0x1001 on
    // The record and tab of a window that is there already.
    void InsertPane(int index, UINT id, int width, const WCHAR* title, int activate);
    // The record and tab of a window that has gone, or goes.
    void RemovePane(int index);

    bool MakeFonts();                      // false if there is no face for them
    int CalcTabsHeight();                  // 0 where there is no strip
    int CalcTextWidth(const WCHAR* title); // pixels, in bold
    void LayoutTabs();                     // hands their widths to the strip
    void RecalcLayout();                   // everything, in the present client area
    // Lays strip, scroll bar and panes out in a client area of that size.
    void DoSize(int width, int height);
    void PlacePanes(int width); // hidden ones are as wide as the window
    void PlaceActivePane();     // as its scroll bar says
    void RecalcScrollbars();    // of the active pane
    void RedrawStrip();         // at once

    // Paint; the active tab comes last, as it overlaps its neighbours.
    void DrawTabs(CDC& dc);
    void DrawTab(CDC& dc, int tab, TabLook look);
    void DrawButtons(CDC& dc);
    void DrawSplitter(CDC& dc);

    bool PressScrollButton(CPoint point); // false: the point is on none
    bool IsOnHeldButton() const;          // where the mouse is now
    void InvalidateButtons();
    // The pane that is dragged is the active one; the derived class says what a drop would do.
    void StartTabDrag(CPoint point);
    void UpdateTabDrag(CPoint point);
    void StepPane(int step); // round the end

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
    int m_active = -1; // -1 without panes

    bool m_collapsesSingle = false, m_scrollsPanes = false, m_dragsTabs = false;
    bool m_isDestroying = false;     // panes go with the window
    HACCEL m_accelerators = nullptr; // null while keys are off

    Mouse m_mouse = Mouse::idle;
    corekit::detail::TabStep m_scrolling = corekit::detail::TabStep::left; // the button hit last
    CPoint m_mousePoint;                                                   // where the mouse was last
    CRect m_dragStart;                                                     // leaving it starts the drag
    HWND m_draggedPane = nullptr, m_dropTarget = nullptr;
    DWORD m_dragEffect = 0; // as the derived class said last
    DropTarget m_dropTargetObject{*this};

    CPen m_blackPen, m_greyPen, m_whitePen;
    CScrollBar m_horizontal;
};
