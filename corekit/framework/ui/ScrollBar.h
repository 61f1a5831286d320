// A scroll bar that is a control of its own.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// ScrollBars.h. User-interface thread only.
//
// The parent gets WM_HSCROLL or WM_VSCROLL with the bar's window in lParam, or ON_WM_HSCROLL's handler its
// object; the bar moves when the program sets its position.
//
//     SCROLLINFO info{};
//     info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
//     info.nMax = lines - 1;
//     info.nPage = static_cast<UINT>(linesInView);
//     bar.SetScrollInfo(&info); // positions go from 0 to lines - linesInView
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/Controls.h"
#include "corekit/platform/ScrollBars.h"

class COREKIT_API CScrollBar : public CWnd {
    DECLARE_DYNAMIC(CScrollBar)

    // A child of `parent`. The lowest bit of the style makes it stand, else it lies.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CWnd::Create(WC_SCROLLBARA, nullptr, style, rect, parent, id);
    }
    // 0 without a window.
    int GetScrollPos() const { return ::GetScrollPos(m_hWnd, SB_CTL); }
    // Held within the range; answers the former.
    int SetScrollPos(int position, BOOL redraw = TRUE)
    {
        return ::SetScrollPos(m_hWnd, SB_CTL, position, redraw);
    }
    // Either pointer may be null.
    void GetScrollRange(int* low, int* high) const { ::GetScrollRange(m_hWnd, SB_CTL, low, high); }
    // A maximum below the minimum counts as the minimum.
    void SetScrollRange(int low, int high, BOOL redraw = TRUE)
    {
        ::SetScrollRange(m_hWnd, SB_CTL, low, high, redraw);
    }
    // fMask says which members count; cbSize is filled in.
    BOOL SetScrollInfo(SCROLLINFO* info, BOOL redraw = TRUE)
    {
        return CWnd::SetScrollInfo(SB_CTL, info, redraw);
    }
    // nTrackPos is where the user drags the thumb at the moment.
    BOOL GetScrollInfo(SCROLLINFO* info, UINT mask = SIF_ALL) const
    {
        return CWnd::GetScrollInfo(SB_CTL, info, mask);
    }
};
