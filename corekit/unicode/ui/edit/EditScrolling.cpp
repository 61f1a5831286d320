// The scroll bar. The cursor goes with what is scrolled.
#include "corekit/unicode/ui/edit/MultilineUnicodeEditCtl.h"

#include <algorithm>

namespace {

constexpr int page = 2; // lines

} // namespace

void CMultilineUnicodeEditCtl::UpdateScrollBar()
{
    m_model.LimitTopLine();
    const int last = std::max(m_model.ConvertDataToDisplayLines().Count() - 1, 0);
    SCROLLINFO info{sizeof info,
                    SIF_RANGE | SIF_PAGE | SIF_DISABLENOSCROLL,
                    0,
                    last,
                    static_cast<UINT>(std::min(page, last)),
                    0,
                    0};
    SetScrollInfo(SB_VERT, &info);
}

void CMultilineUnicodeEditCtl::OnVScroll(UINT code, UINT, CScrollBar*)
{
    LookAround();
    const int top = m_model.TopLine(), last = m_model.ConvertDataToDisplayLines().Count() - 1;
    switch (static_cast<int>(code)) {
    case SB_LINEUP:
        m_model.ScrollTo(top - 1);
        break;
    case SB_LINEDOWN:
        m_model.ScrollTo(top + 1);
        break;
    case SB_PAGEUP:
        m_model.ScrollTo(top - page);
        break;
    case SB_PAGEDOWN:
        m_model.ScrollTo(top + page);
        break;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK: {
        SCROLLINFO info{};
        GetScrollInfo(SB_VERT, &info, SIF_TRACKPOS);
        m_model.ScrollTo(info.nTrackPos);
        break;
    }
    case SB_TOP:
        m_model.ScrollTo(0);
        break;
    case SB_BOTTOM:
        m_model.ScrollTo(last);
        break;
    default:
        m_model.ScrollTo(top);
    }
    CursorMoved();
}
