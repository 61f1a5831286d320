#include "corekit/framework/ui/DockContext.h"

#include "corekit/framework/ui/DockBar.h"
#include "corekit/framework/ui/MiniDockFrameWnd.h"
#include "corekit/platform/SystemColours.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int reach = 16;    // of a dock, beyond its edges
constexpr int thickness = 3; // of the outline

CSize sizeIn(CControlBar& bar, const CDockBar& dock)
{
    const bool lies = dock.GetBarStyle() & CBRS_ORIENT_HORZ;
    return bar.CalcDynamicLayout(-1, lies ? LM_HORZ | LM_HORZDOCK : LM_VERTDOCK);
}

} // namespace

CDockContext::CDockContext(CControlBar& bar, CPoint screen) : m_bar(bar), m_start(screen)
{
    CRect rect;
    m_bar.GetWindowRect(&rect);
    m_grip = screen - rect.TopLeft();
    m_formerFocus = ::SetFocus(m_bar.m_hWnd); // Escape is to come here
}

CDockContext::~CDockContext()
{
    if (::GetFocus() == m_bar.m_hWnd && IsWindow(m_formerFocus)) ::SetFocus(m_formerFocus);
}

CDockBar* CDockContext::DockAt(CPoint screen) const
{
    for (CControlBar* const each : m_bar.m_pDockSite->GetControlBars()) {
        auto* const dock = dynamic_cast<CDockBar*>(each);
        if (!dock || dock->IsFloating() || !(dock->GetBarStyle() & m_bar.m_dwDockStyle & CBRS_ALIGN_ANY))
            continue;
        CRect rect;
        dock->GetWindowRect(&rect);
        rect.InflateRect(reach, reach);
        if (rect.PtInRect(screen)) return dock;
    }
    return nullptr;
}

void CDockContext::MoveTo(CPoint screen, Docking docking)
{
    const CSize way = screen - m_start;
    m_moves |=
        std::abs(way.cx) >= GetSystemMetrics(SM_CXDRAG) || std::abs(way.cy) >= GetSystemMetrics(SM_CYDRAG);
    if (!m_moves) return;
    m_target = docking == Docking::on ? DockAt(screen) : nullptr;
    const CSize size =
        m_target ? sizeIn(m_bar, *m_target) : m_bar.CalcDynamicLayout(-1, LM_HORZ | LM_MRUWIDTH);
    // The mouse stays over the bar also where it is smaller than before.
    const CSize grip(std::min(m_grip.cx, std::max<LONG>(size.cx - 1, 0)),
                     std::min(m_grip.cy, std::max<LONG>(size.cy - 1, 0)));
    const CRect bar(screen - grip, size);
    ShowOutline(m_target ? bar : CMiniDockFrameWnd::FrameRound(bar));
}

void CDockContext::ShowOutline(const CRect& rect)
{
    m_outline = rect;
    const CRect sides[] = {CRect(rect.left, rect.top, rect.right, rect.top + thickness),
                           CRect(rect.left, rect.bottom - thickness, rect.right, rect.bottom),
                           CRect(rect.left, rect.top, rect.left + thickness, rect.bottom),
                           CRect(rect.right - thickness, rect.top, rect.right, rect.bottom)};
    const char* const outlineClass =
        AfxRegisterWndClass(0, nullptr, reinterpret_cast<HBRUSH>(std::size_t{COLOR_HIGHLIGHT + 1}));
    for (std::size_t i = 0; i < m_sides.size(); ++i) {
        CWnd& side = m_sides[i];
        if (!side.m_hWnd)
            side.CreateEx(WS_EX_TOOLWINDOW | WS_EX_TOPMOST | WS_EX_NOACTIVATE, outlineClass, "", WS_POPUP, 0,
                          0, 1, 1, m_bar.m_hWnd, nullptr);
        side.SetWindowPos(nullptr, sides[i].left, sides[i].top, sides[i].Width(), sides[i].Height(),
                          SWP_NOACTIVATE | SWP_NOZORDER | SWP_SHOWWINDOW);
    }
}

void CDockContext::Drop()
{
    if (!m_moves || !m_bar.m_hWnd || !m_bar.m_pDockSite) return;
    CFrameWnd& site = *m_bar.m_pDockSite;
    if (m_target)
        site.DockControlBar(&m_bar, m_target, &m_outline);
    else
        site.FloatControlBar(&m_bar, m_outline.TopLeft());
    site.RecalcLayout();
}
