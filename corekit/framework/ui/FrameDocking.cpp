// A frame's bars: where they stand, how they are shown, docked and floated, and the record of it all.
#include "corekit/framework/ui/DockContext.h"
#include "corekit/framework/ui/DockState.h"
#include "corekit/framework/ui/FrameMessages.h"
#include "corekit/framework/ui/FrameWnd.h"
#include "corekit/framework/ui/MiniDockFrameWnd.h"
#include "corekit/platform/SystemColours.h"

#include <algorithm>
#include <utility>

namespace {

struct Side {
    UINT id;
    DWORD style;
};
// In the order in which they are laid out.
constexpr Side sides[] = {{AFX_IDW_DOCKBAR_TOP, CBRS_TOP},
                          {AFX_IDW_DOCKBAR_BOTTOM, CBRS_BOTTOM},
                          {AFX_IDW_DOCKBAR_LEFT, CBRS_LEFT},
                          {AFX_IDW_DOCKBAR_RIGHT, CBRS_RIGHT}};

CMiniDockFrameWnd* floatingFrameOf(const CControlBar& bar)
{
    return bar.IsFloating() ? dynamic_cast<CMiniDockFrameWnd*>(bar.GetParentFrame()) : nullptr;
}

} // namespace

// ---- The list

void CFrameWnd::AddControlBar(CControlBar* bar)
{
    if (bar->m_pDockSite) bar->m_pDockSite->RemoveControlBar(bar);
    m_controlBars.push_back(bar);
    bar->m_pDockSite = this;
}

void CFrameWnd::RemoveControlBar(CControlBar* bar)
{
    std::erase(m_controlBars, bar);
    if (bar->m_pDockSite == this) bar->m_pDockSite = nullptr;
}

CControlBar* CFrameWnd::GetControlBar(UINT id) const
{
    if (id == 0) return nullptr;
    const auto found = std::ranges::find_if(
        m_controlBars, [id](const CControlBar* bar) { return static_cast<UINT>(bar->GetDlgCtrlID()) == id; });
    return found == m_controlBars.end() ? nullptr : *found;
}

void CFrameWnd::ShowControlBar(CControlBar* bar, BOOL show, BOOL delay)
{
    if (!bar || !bar->m_hWnd) return;
    if (delay) {
        bar->DelayShow(show);
        PostMessage(WM_IDLEUPDATECMDUI);
        return;
    }
    CControlBarInfo info;
    bar->GetBarInfo(info);
    info.m_bVisible = show;
    bar->SetBarInfo(info);
    if (CMiniDockFrameWnd* const frame = floatingFrameOf(*bar))
        frame->RecalcLayout();
    else
        RecalcLayout();
}

// ---- Layout

void CFrameWnd::DelayRecalcLayout()
{
    if (!m_hWnd || std::exchange(m_layoutIsDue, true)) return;
    PostMessage(WM_IDLEUPDATECMDUI);
}

LRESULT CFrameWnd::OnIdleUpdateCmdUI(WPARAM, LPARAM)
{
    if (m_layoutIsDue) RecalcLayout();
    // Hidden bars hear of nothing else.
    for (CControlBar* const bar : std::vector(m_controlBars))
        if (std::ranges::find(m_controlBars, bar) != m_controlBars.end() && bar->m_hWnd &&
            bar->IsVisible() != ((bar->GetStyle() & WS_VISIBLE) != 0))
            bar->SendMessage(WM_IDLEUPDATECMDUI, TRUE);
    return 0;
}

void CFrameWnd::RecalcLayout(BOOL)
{
    if (!m_hWnd || std::exchange(m_laysOut, true)) return;
    m_layoutIsDue = false;
    CRect room;
    GetClientRect(&room);
    AFX_SIZEPARENTPARAMS left{BeginDeferWindowPos(8), room, {0, 0}, TRUE};
    HWND view = nullptr;
    for (HWND child = ::GetWindow(m_hWnd, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
        if (::GetDlgCtrlID(child) == static_cast<int>(AFX_IDW_PANE_FIRST))
            view = child;
        else
            ::SendMessageA(child, WM_SIZEPARENT, 0, reinterpret_cast<LPARAM>(&left));
    }
    const CRect rest(left.rect);
    if (view)
        left.hDWP = DeferWindowPos(left.hDWP, view, nullptr, rest.left, rest.top, std::max(rest.Width(), 0),
                                   std::max(rest.Height(), 0), SWP_NOACTIVATE | SWP_NOZORDER);
    EndDeferWindowPos(left.hDWP);
    m_laysOut = false;
    for (CControlBar* const bar : std::vector(m_controlBars))
        if (bar->IsDockBar() && bar->IsFloating() && bar->m_hWnd)
            if (CMiniDockFrameWnd* const frame = floatingFrameOf(*bar)) frame->RecalcLayout();
}

// ---- Docking

void CFrameWnd::EnableDocking(DWORD wanted)
{
    m_dockingIsEnabled = true;
    for (const Side& side : sides) {
        if (!(wanted & side.style & CBRS_ALIGN_ANY) || GetControlBar(side.id)) continue;
        auto* const dock = new CDockBar;
        dock->m_bAutoDelete = TRUE;
        dock->Create(this, side.style | WS_CLIPSIBLINGS, side.id); // one that cannot be made is gone
    }
}

void CFrameWnd::DockControlBar(CControlBar* bar, CDockBar* dock, const RECT* screen)
{
    if (!bar || !bar->m_hWnd || !dock || !dock->m_hWnd) return;
    if (const CMiniDockFrameWnd* const frame = floatingFrameOf(*bar)) {
        CRect place;
        frame->GetWindowRect(&place);
        bar->m_ptMRUFloatPos = place.TopLeft();
    }
    dock->DockControlBar(bar, screen);
    bar->m_uMRUDockID = static_cast<UINT>(dock->GetDlgCtrlID());
    if (screen) bar->m_rectMRUDockPos = CRect(*screen);
    DelayRecalcLayout();
}

void CFrameWnd::DockControlBar(CControlBar* bar, UINT dockBarId, const RECT* screen)
{
    CDockBar* dock = dynamic_cast<CDockBar*>(GetControlBar(dockBarId));
    for (const Side& side : sides) {
        if (dock || !bar || !(bar->m_dwDockStyle & side.style & CBRS_ALIGN_ANY)) continue;
        dock = dynamic_cast<CDockBar*>(GetControlBar(side.id));
    }
    DockControlBar(bar, dock, screen);
}

CMiniDockFrameWnd* CFrameWnd::CreateFloatingFrame(DWORD style)
{
    auto* const frame = new CMiniDockFrameWnd;
    if (frame->Create(this, style)) {
        AddControlBar(&frame->m_wndDockBar);
        return frame;
    }
    return nullptr; // it has deleted itself
}

void CFrameWnd::FloatControlBar(CControlBar* bar, CPoint point, DWORD style)
{
    if (!bar || !bar->m_hWnd || !m_dockingIsEnabled) return;
    bar->m_ptMRUFloatPos = point;
    CMiniDockFrameWnd* frame = floatingFrameOf(*bar);
    if (!frame || frame->m_wndDockBar.GetDockedCount() != 1) {
        if (bar->m_pDockBar && !bar->IsFloating()) {
            bar->m_uMRUDockID = static_cast<UINT>(bar->m_pDockBar->GetDlgCtrlID());
            bar->GetWindowRect(&bar->m_rectMRUDockPos);
        }
        frame = CreateFloatingFrame(style);
        if (!frame) return;
        frame->m_wndDockBar.DockControlBar(bar);
        DelayRecalcLayout();
    }
    frame->SetWindowPos(nullptr, point.x, point.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    frame->RecalcLayout();
}

std::unique_ptr<corekit::detail::BarDrag> CFrameWnd::BeginDrag(CControlBar& bar, CPoint screen)
{
    return std::make_unique<CDockContext>(bar, screen);
}

// ---- Records

void CFrameWnd::GetDockState(CDockState& state) const
{
    state.m_arrBarInfo.clear();
    state.SetScreenSize(CSize(GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)));
    for (const CControlBar* const bar : m_controlBars)
        if (bar->m_hWnd) bar->GetBarInfo(state.m_arrBarInfo.emplace_back());
}

void CFrameWnd::SetDockState(const CDockState& state)
{
    for (const CControlBarInfo& info : state.m_arrBarInfo) {
        if (!info.m_bDockBar) continue;
        if (info.m_bFloating) {
            CMiniDockFrameWnd* const frame =
                CreateFloatingFrame(info.m_bHorz ? CBRS_ALIGN_TOP : CBRS_ALIGN_LEFT);
            if (!frame) continue;
            frame->m_wndDockBar.SetRows(info.m_arrBarID, state.m_arrBarInfo, *this);
            if (frame->m_wndDockBar.GetDockedCount() == 0) {
                frame->DestroyWindow();
                continue;
            }
            frame->SetWindowPos(nullptr, info.m_pointPos.x, info.m_pointPos.y, 0, 0,
                                SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        } else if (auto* const dock = dynamic_cast<CDockBar*>(GetControlBar(info.m_nBarID))) {
            dock->SetRows(info.m_arrBarID, state.m_arrBarInfo, *this);
        }
    }
    for (const CControlBarInfo& info : state.m_arrBarInfo) {
        CControlBar* const bar = info.m_bDockBar ? nullptr : GetControlBar(info.m_nBarID);
        if (bar) bar->SetBarInfo(info);
    }
    RecalcLayout();
}
