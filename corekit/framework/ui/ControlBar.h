// A bar at an edge of a frame: tool bar, status bar, dialog bar, dockable pane, and the docks that hold bars.
//
// A bar is a child of its frame and takes its place when the frame lays itself out, or it stands in a dock
// (CDockBar) once EnableDocking and CFrameWnd::DockControlBar have been called. What its controls tell goes
// to its own map first and then to its owner. A bar does not own its frame; a bar with m_bAutoDelete deletes
// itself with its window. User-interface thread only.
//
//     m_bar.EnableDocking(CBRS_ALIGN_TOP | CBRS_ALIGN_BOTTOM); // of the bar: where it may go
//     frame.EnableDocking(CBRS_ALIGN_ANY);                     // of the frame: where docks are
//     frame.DockControlBar(&m_bar);
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

// What is kept of a bar: state, place and, of a dock, what stands in it. Filled by GetBarInfo and put in
// force by SetBarInfo; CDockState keeps one for each bar.
struct CControlBarInfo {
    UINT m_nBarID = 0;             // its id within the frame
    BOOL m_bVisible = TRUE;        // or about to be
    BOOL m_bFloating = FALSE;      // of a dock: it is that of a floating frame
    BOOL m_bHorz = TRUE;           // lies rather than stands
    CPoint m_pointPos{-1, -1};     // place in its dock, or of a floating dock's frame on the screen
    UINT m_nMRUWidth = longestBar; // pixels, as it floated last
    BOOL m_bDocking = FALSE;       // the next four count
    UINT m_uMRUDockID = 0;         // id of the dock where it stood last
    CRect m_rectMRUDockPos;        // where it stood there, on the screen
    DWORD m_dwMRUFloatStyle = 0;   // CBRS_ALIGN_
    CPoint m_ptMRUFloatPos;        // corner of the frame that it floated in
    BOOL m_bDockBar = FALSE;       // describes a dock; the next one counts
    std::vector<UINT> m_arrBarID;  // of a dock: ids row by row, 0 before, between and behind the rows
};

class COREKIT_API CControlBar : public CWnd {
    DECLARE_DYNAMIC(CControlBar)
public:
    CControlBar();
    // Destroys the window, and leaves its dock and its frame.
    ~CControlBar() override;

    // CBRS_. Changing the side of a bar that is not docked takes effect at the frame's next layout.
    DWORD GetBarStyle() const { return m_dwStyle; }
    // Calls OnBarStyleChange if anything is different.
    void SetBarStyle(DWORD style);
    // Empty room within the bar's edges, in pixels. For a bar that stands, left and top as well as right and
    // bottom change places. Takes effect at the next layout.
    void SetBorders(int left = 0, int top = 0, int right = 0, int bottom = 0);
    // Whether it stands in a floating frame.
    BOOL IsFloating() const;
    virtual BOOL IsVisible() const; // or about to be, after DelayShow
    virtual BOOL IsDockBar() const { return FALSE; }

    // The sides (CBRS_ALIGN_) at which the bar may be docked; 0: none, but it may float. CBRS_FLOAT_MULTI
    // may be or-ed to them.
    void EnableDocking(DWORD sides);
    CFrameWnd* GetDockingFrame() const;                    // the frame, or the one that the bar floats in
    CFrameWnd* GetDockSite() const { return m_pDockSite; } // the frame that lists it, also while it floats

    // The size that the bar takes, lying or standing; stretched: along its whole edge. Pixels with borders.
    // This class answers 0 by 0, or longestBar (32,767) along the edge.
    virtual CSize CalcFixedLayout(BOOL stretch, BOOL horizontal);
    // The same for a length in pixels (-1 for none) in a mode (LM_). This class asks CalcFixedLayout. With
    // LM_COMMIT the outcome becomes m_nMRUWidth.
    virtual CSize CalcDynamicLayout(int length, DWORD mode);
    // Brings the bar's items up to date by the handlers of `target`. Called when the program is idle, while
    // the bar is visible. Nothing to do here.
    virtual void OnUpdateCmdUI(CFrameWnd* target, BOOL disableIfNoHandler);
    // After SetBarStyle; the styles are those before and after. Draws the bar again.
    virtual void OnBarStyleChange(DWORD former, DWORD style);
    // Shows or hides when the program is idle.
    void DelayShow(BOOL show);

    // The record's other members stay as they are.
    virtual void GetBarInfo(CControlBarInfo& info) const;
    // Takes what the bar itself knows, and shows or hides it; docking is CFrameWnd's.
    virtual void SetBarInfo(const CControlBarInfo& info);

    void StartDrag(CPoint client); // as if the user had pressed the mouse on the bar itself; nothing for a
                                   // bar that stands in no dock
    void ToggleDocking();          // floats a docked bar, docks a floating one where it was

    BOOL m_bAutoDelete = FALSE;       // deletes itself in PostNcDestroy
    CDockBar* m_pDockBar = nullptr;   // that it stands in, set by that; not owned, as the next
    CFrameWnd* m_pDockSite = nullptr; // that lists it
    DWORD m_dwStyle = 0;              // CBRS_
    DWORD m_dwDockStyle = 0;          // 0 before EnableDocking
    UINT m_nMRUWidth = longestBar;    // pixels of its content, while it floats
    // Where it was last.
    UINT m_uMRUDockID = 0;  // 0: none yet
    CRect m_rectMRUDockPos; // on the screen
    CPoint m_ptMRUFloatPos{-1, -1};

    // Takes a floating bar out of its frame first, which goes with its last bar.
    BOOL DestroyWindow() override;

protected:
    // What the borders and the gripper leave of the rectangle; lying or standing.
    void CalcInsideRect(CRect& rect, BOOL horizontal) const;
    // What CalcInsideRect takes away, in pixels.
    CSize BordersOf(BOOL horizontal) const;
    // Borders and gripper, then what the bar shows. Not called while the bar is hidden.
    virtual void DoPaint(CDC* dc);
    // Lines of one pixel at the sides that the style names, and the gripper of a bar that does not float.
    void DrawBorders(CDC* dc) const;

    BOOL PreCreateWindow(CREATESTRUCTA& create) override;
    void PostNcDestroy() override;
    // What controls tell: first the bar's own map, then its owner.
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
    // Takes its place in a frame's layout (FrameMessages.h).
    LRESULT OnSizeParent(WPARAM wParam, LPARAM lParam);
    // Carries out DelayShow, then brings items up to date.
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
    Delay m_delay = Delay::none;                      // what DelayShow has asked for
};
