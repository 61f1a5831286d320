// The frame round a bar that floats: a small caption, a box that hides the bar, edges that change its shape.
//
// It is as large as its dock needs, stays above the frame that the bar belongs to, and deletes itself when
// its last bar has left. The caption is this window's own, so that a bar can be dragged by it back to a dock.
//
// User-interface thread. Made by CFrameWnd::FloatControlBar and SetDockState; nobody else need make one. It
// shows itself while it holds a bar that is visible and its owner is.
#pragma once

#include "corekit/framework/ui/DockBar.h"
#include "corekit/framework/ui/FrameWnd.h"

class COREKIT_API CMiniDockFrameWnd : public CFrameWnd {
    DECLARE_DYNAMIC(CMiniDockFrameWnd)
public:
    CMiniDockFrameWnd() : m_wndDockBar(TRUE) {}

    // `style`: CBRS_ALIGN_TOP for bars that lie, CBRS_ALIGN_LEFT for bars that stand.
    using CFrameWnd::Create;
    // 0 on failure. The window is hidden until it holds a visible bar.
    BOOL Create(CFrameWnd* parent, DWORD style);
    // As large as its dock asks for; the caption shows the bar's text.
    void RecalcLayout(BOOL notify = TRUE) override;
    // What the frame of a bar at that rectangle covers. Edges of three pixels, a caption of sixteen.
    static CRect FrameRound(const CRect& bar);

    CDockBar m_wndDockBar; // the inside; goes with the frame

protected:
    void OnPaint();
    BOOL OnEraseBkgnd(CDC* dc);
    // Hides the bars; they stay where they are.
    void OnClose();
    // On the caption a drag of the bar begins, on the box the frame closes, on an edge the bar changes its
    // shape if it can.
    void OnLButtonDown(UINT flags, CPoint point);
    // On the caption: docks the bar where it was.
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnMouseMove(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    // Ends a change of shape.
    void OnCaptureChanged(CWnd* other);
    DECLARE_MESSAGE_MAP()

private:
    // Of the frame.
    enum class Part { inside, caption, close, left, right, top, bottom };

    // Of a point in client coordinates.
    Part PartAt(CPoint point) const;
    CRect CloseBox() const; // in client coordinates
    // The first one; null while it is empty.
    CControlBar* OnlyBar() const { return m_wndDockBar.GetDockedControlBar(0); }
    // To the shape next to the mouse; the opposite side stays where it is.
    void ResizeTo(CPoint screen);

    Part m_sizing = Part::inside; // the edge that is dragged; inside: none
    CRect m_sizedFrom;            // the frame on the screen when that began
    bool m_laysOut = false;
};
