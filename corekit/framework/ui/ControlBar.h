// A bar at an edge of a frame: tool bar, status bar, dialog bar, dockable pane, and the docks that hold bars.
//
// A bar is a child of its frame and takes its place when the frame lays itself out, or it stands in a dock
// (CDockBar) once EnableDocking and CFrameWnd::DockControlBar have been called. What its controls tell goes
// to its own map first and then to its owner. A bar does not own its frame; a bar with m_bAutoDelete deletes
// itself with its window. User-interface thread only.
#pragma once

#include "corekit/framework/ui/ControlBarStyles.h"
#include "corekit/framework/ui/Wnd.h"

#include <memory>
#include <vector>

class CControlBar;
class CDockBar;

namespace corekit::detail {

class BarDrag;

// A dock as the bars in it see it.
class COREKIT_API BarDock {
public:
    // False if the bar does not stand here.
    virtual BOOL RemoveControlBar(CControlBar* bar) = 0;
    // Where the user put the bar, in the dock; else where it is.
    virtual CPoint PlaceOf(const CControlBar& bar) const = 0;
    virtual bool Floats() const = 0;

protected:
    ~BarDock() = default;
};

} // namespace corekit::detail

// What is kept of a bar: state, place and, of a dock, what stands in it.
struct CControlBarInfo {
    UINT m_nBarID = 0;
    BOOL m_bVisible = TRUE;
    BOOL m_bFloating = FALSE;
    BOOL m_bHorz = TRUE;
    CPoint m_pointPos{-1, -1};
    UINT m_nMRUWidth = longestBar;
    BOOL m_bDocking = FALSE; // the next four count
    UINT m_uMRUDockID = 0;
    CRect m_rectMRUDockPos;
    DWORD m_dwMRUFloatStyle = 0;
    CPoint m_ptMRUFloatPos;
    BOOL m_bDockBar = FALSE;
    std::vector<UINT> m_arrBarID; // of a dock: ids row by row, 0 before, between and behind the rows
};

class COREKIT_API CControlBar : public CWnd {
    DECLARE_DYNAMIC(CControlBar)
public:
    CControlBar();
    ~CControlBar() override;

    // CBRS_. Changing the side of a bar that is not docked takes effect at the frame's next layout.
    DWORD GetBarStyle() const { return m_dwStyle; }
    void SetBarStyle(DWORD style);
    // Empty room within the bar's edges, in pixels.
    void SetBorders(int left = 0, int top = 0, int right = 0, int bottom = 0);
    BOOL IsFloating() const;
    virtual BOOL IsVisible() const; // or about to be
    virtual BOOL IsDockBar() const { return FALSE; }

    // The sides (CBRS_ALIGN_) at which the bar may be docked; 0: none, but it may float.
    void EnableDocking(DWORD sides);
    CFrameWnd* GetDockingFrame() const; // the frame, or the one that the bar floats in
    CFrameWnd* GetDockSite() const { return m_pDockSite; }

    // The size that the bar takes, lying or standing; stretched: along its whole edge.
    virtual CSize CalcFixedLayout(BOOL stretch, BOOL horizontal);
    // The same for a length in pixels (-1 for none) in a mode (LM_).
    virtual CSize CalcDynamicLayout(int length, DWORD mode);
    // Brings the bar's items up to date by the handlers of `target`.
    virtual void OnUpdateCmdUI(CFrameWnd* target, BOOL disableIfNoHandler);
    // After SetBarStyle; the styles are those before and after.
    virtual void OnBarStyleChange(DWORD former, DWORD style);
    // Shows or hides when the program is idle.
    void DelayShow(BOOL show);

    virtual void GetBarInfo(CControlBarInfo& info) const;
    virtual void SetBarInfo(const CControlBarInfo& info);

    void StartDrag(CPoint client); // as if the user had pressed the mouse on the bar itself
    void ToggleDocking();          // floats a docked bar, docks a floating one where it was

    BOOL m_bAutoDelete = FALSE;
    CDockBar* m_pDockBar = nullptr;   // that it stands in, set by that; not owned, as the next
    CFrameWnd* m_pDockSite = nullptr; // that lists it
    DWORD m_dwStyle = 0;
    DWORD m_dwDockStyle = 0; // 0 before EnableDocking
    UINT m_nMRUWidth = longestBar;
    // Where it was last.
    UINT m_uMRUDockID = 0;
    CRect m_rectMRUDockPos; // on the screen
    CPoint m_ptMRUFloatPos{-1, -1};

    BOOL DestroyWindow() override;

protected:
    // What the borders and the gripper leave of the rectangle; lying or standing.
    void CalcInsideRect(CRect& rect, BOOL horizontal) const;
    CSize BordersOf(BOOL horizontal) const;
    // Borders and gripper, then what the bar shows.
    virtual void DoPaint(CDC* dc);
    void DrawBorders(CDC* dc) const;

    BOOL PreCreateWindow(CREATESTRUCTA& create) override;
    void PostNcDestroy() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    int OnCreate(CREATESTRUCTA* create);
    void OnDestroy();
    void OnPaint();
    void OnMouseMove(UINT flags, CPoint point);
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnCaptureChanged(CWnd* other);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    LRESULT OnSizeParent(WPARAM wParam, LPARAM lParam);
    LRESULT OnIdleUpdateCmdUI(WPARAM wParam, LPARAM lParam);
    LRESULT OnInitialUpdate(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    friend CDockBar;
    enum class Delay { none, show, hide };

    void LeaveDocks();

    corekit::detail::BarDock* m_dock = nullptr;       // m_pDockBar
    std::unique_ptr<corekit::detail::BarDrag> m_drag; // while the user drags it
    CRect m_borders;                                  // left, top, right, bottom
    Delay m_delay = Delay::none;
};
