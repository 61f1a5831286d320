// The frame round a bar that floats: a small caption, a box that hides the bar, edges that change its shape.
//
// It is as large as its dock needs, stays above the frame that the bar belongs to, and deletes itself when
// its last bar has left. The caption is this window's own, so that a bar can be dragged by it back to a dock.
#pragma once

#include "corekit/framework/ui/DockBar.h"
#include "corekit/framework/ui/FrameWnd.h"

class COREKIT_API CMiniDockFrameWnd : public CFrameWnd {
    DECLARE_DYNAMIC(CMiniDockFrameWnd)
public:
    CMiniDockFrameWnd() : m_wndDockBar(TRUE) {}

    // `style`: CBRS_ALIGN_TOP for bars that lie, CBRS_ALIGN_LEFT for bars that stand.
    using CFrameWnd::Create;
    BOOL Create(CFrameWnd* parent, DWORD style);
    void RecalcLayout(BOOL notify = TRUE) override;
    // What the frame of a bar at that rectangle covers.
    static CRect FrameRound(const CRect& bar);

    CDockBar m_wndDockBar;

protected:
    void OnPaint();
    BOOL OnEraseBkgnd(CDC* dc);
    void OnClose();
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnMouseMove(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnCaptureChanged(CWnd* other);
    DECLARE_MESSAGE_MAP()

private:
    enum class Part { inside, caption, close, left, right, top, bottom };

    Part PartAt(CPoint point) const;
    CRect CloseBox() const;
    CControlBar* OnlyBar() const { return m_wndDockBar.GetDockedControlBar(0); }
    void ResizeTo(CPoint screen);

    Part m_sizing = Part::inside;
    CRect m_sizedFrom;
    bool m_laysOut = false;
};
