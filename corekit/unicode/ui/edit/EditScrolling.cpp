// The scroll bar. The cursor goes with what is scrolled.
#include "corekit/unicode/ui/edit/MultilineUnicodeEditCtl.h"

#include <algorithm>
#include <chrono>

using namespace corekit::detail;

namespace {

constexpr int page = 2; // lines
constexpr UINT_PTR countingTimer = 0x4C4E;
constexpr std::chrono::milliseconds countingSlice{16};

} // namespace

// Lines that take long to make are counted between keys; the bar keeps its range as long.
void CMultilineUnicodeEditCtl::UpdateScrollBar()
{
    using std::chrono::steady_clock;
    m_model.LimitTopLine();
    DisplayLines& lines = m_model.ConvertDataToDisplayLines();
    const auto stop = steady_clock::now() + countingSlice;
    while (lines.MakeSome())
        if (steady_clock::now() > stop) {
            SetTimer(countingTimer, USER_TIMER_MINIMUM);
            return;
        }
    KillTimer(countingTimer);
    const int last = std::max(lines.Count() - 1, 0);
    SCROLLINFO info{sizeof info,
                    SIF_RANGE | SIF_PAGE | SIF_DISABLENOSCROLL,
                    0,
                    last,
                    static_cast<UINT>(std::min(page, last)),
                    0,
                    0};
    SetScrollInfo(SB_VERT, &info);
}

void CMultilineUnicodeEditCtl::OnTimer(UINT_PTR id)
{
    if (id != countingTimer) return CWnd::OnTimer(id);
    LookAround();
    UpdateScrollBar();
    if (GetScrollPos(SB_VERT) != m_model.TopLine()) SetScrollPos(SB_VERT, m_model.TopLine());
}

void CMultilineUnicodeEditCtl::OnVScroll(UINT code, UINT, CScrollBar*)
{
    LookAround();
    const int top = m_model.TopLine();
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
        m_model.ScrollTo(m_model.ConvertDataToDisplayLines().Count() - 1);
        break;
    default:
        m_model.ScrollTo(top);
    }
    CursorMoved();
}
