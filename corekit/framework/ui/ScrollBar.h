// A scroll bar that is a control of its own.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// ScrollBars.h. User-interface thread only.
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/Controls.h"
#include "corekit/platform/ScrollBars.h"

class COREKIT_API CScrollBar : public CWnd {
    DECLARE_DYNAMIC(CScrollBar)

    // A child of `parent`.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CWnd::Create(WC_SCROLLBARA, nullptr, style, rect, parent, id);
    }
    int GetScrollPos() const { return ::GetScrollPos(m_hWnd, SB_CTL); }
    int SetScrollPos(int position, BOOL redraw = TRUE)
    {
        return ::SetScrollPos(m_hWnd, SB_CTL, position, redraw);
    }
    void GetScrollRange(int* low, int* high) const { ::GetScrollRange(m_hWnd, SB_CTL, low, high); }
    void SetScrollRange(int low, int high, BOOL redraw = TRUE)
    {
        ::SetScrollRange(m_hWnd, SB_CTL, low, high, redraw);
    }
    BOOL SetScrollInfo(SCROLLINFO* info, BOOL redraw = TRUE)
    {
        return CWnd::SetScrollInfo(SB_CTL, info, redraw);
    }
    BOOL GetScrollInfo(SCROLLINFO* info, UINT mask = SIF_ALL) const
    {
        return CWnd::GetScrollInfo(SB_CTL, info, mask);
    }
};
