// What the mouse does to tabs, scroll buttons, splitter and bar, and what is dragged over them.
#include "corekit/framework/ui/SafeHandle.h"
#include "corekit/graphics/ui/SysColourMetricCache.h"
#include "corekit/platform/Cursors.h"
#include "corekit/resources/Cursors.h"
#include "corekit/windows/ui/TabbedOverlayWnd.h"

#include <algorithm>
#include <chrono>

using namespace corekit::detail;

namespace {

constexpr UINT_PTR scrollTimer = 1;
constexpr UINT scrollInterval = 250;
constexpr int dragDistance = 4;
constexpr int lineStep = 5;

constexpr DWORD effectMarks = 0xFF0000;
constexpr DWORD effectBetween = 0x10000;
// What is answered to something dragged over the strip while it has an effect there. Nothing can be dropped.
constexpr DROPEFFECT dragAtWork = 0x20000;

// The cursor for what a drop of a tab would do.
HCURSOR tabCursor(DWORD effect)
{
    const bool isBetween = effect & effectBetween;
    UINT id = 0;
    switch (effect & ~effectMarks) {
    case 1:
        id = isBetween ? IDC_COREKIT_TABCOPYBETWEEN : IDC_COREKIT_TABCOPY;
        break;
    case 2:
        id = isBetween ? IDC_COREKIT_TABMOVEBETWEEN : IDC_COREKIT_TABMOVE;
        break;
    default:
        return SysColourMetricCache().m_noDropCursor;
    }
    return LoadCursorA(nullptr, MAKEINTRESOURCEA(static_cast<WORD>(id)));
}

DWORD millisecondsNow()
{
    using namespace std::chrono;
    return static_cast<DWORD>(duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

} // namespace

// ---- Scroll buttons

int CTabbedOverlayWnd::HitTabScroll(CPoint point)
{
    for (const TabStep button : {TabStep::left, TabStep::right}) {
        if (!m_strip.ButtonEnabled(button) || !m_strip.ButtonRect(button).PtInRect(point)) continue;
        m_scrolling = button;
        DoTabScroll();
        return 1;
    }
    return 0;
}

void CTabbedOverlayWnd::DoTabScroll()
{
    if (!m_strip.Step(m_scrolling)) return;
    InvalidateRect(&m_strip.TabArea(), FALSE);
    InvalidateButtons();
}

bool CTabbedOverlayWnd::PressScrollButton(CPoint point)
{
    if (!HitTabScroll(point)) return false;
    m_mousePoint = point;
    m_mouse = Mouse::scrolling;
    SetTimer(scrollTimer, scrollInterval);
    InvalidateButtons();
    SetCapture();
    return true;
}

bool CTabbedOverlayWnd::IsOnHeldButton() const
{
    return m_mouse == Mouse::scrolling && m_strip.ButtonRect(m_scrolling).PtInRect(m_mousePoint);
}

void CTabbedOverlayWnd::InvalidateButtons()
{
    for (const TabStep button : {TabStep::left, TabStep::right}) {
        const CRect place = m_strip.ButtonRect(button);
        if (!place.IsRectEmpty()) InvalidateRect(&place, FALSE);
    }
}

void CTabbedOverlayWnd::OnTimer(UINT_PTR id)
{
    if (id != scrollTimer) return CWnd::OnTimer(id);
    if (IsOnHeldButton()) DoTabScroll();
}

// ---- The mouse

int CTabbedOverlayWnd::HitTestTab(CPoint point) const { return m_strip.TabAt(point); }

void CTabbedOverlayWnd::OnLButtonDown(UINT flags, CPoint point)
{
    CWnd::OnLButtonDown(flags, point);
    if (m_strip.Height() <= 0) return;
    if (m_strip.SplitterRect().PtInRect(point)) {
        m_mouse = Mouse::movingSplitter;
        SetCapture();
        SetCursor(SysColourMetricCache().m_splitCursor);
        return;
    }
    const int tab = HitTestTab(point);
    if (tab < 0) {
        PressScrollButton(point);
        return;
    }
    if (tab != m_active) SetActivePane(tab);
    if (!m_dragsTabs || !IsWindow(m_hWnd)) return;
    m_dragStart =
        CRect(point.x - dragDistance, point.y - dragDistance, point.x + dragDistance, point.y + dragDistance);
    m_dragStart.IntersectRect(&m_dragStart, &m_strip.TabArea());
    m_mouse = Mouse::armed;
    SetCapture();
}

// Buttons that are pressed fast go on scrolling.
void CTabbedOverlayWnd::OnLButtonDblClk(UINT flags, CPoint point)
{
    CWnd::OnLButtonDblClk(flags, point);
    PressScrollButton(point);
}

void CTabbedOverlayWnd::OnMouseMove(UINT flags, CPoint point)
{
    CWnd::OnMouseMove(flags, point);
    m_mousePoint = point;
    switch (m_mouse) {
    case Mouse::scrolling:
        InvalidateButtons();
        break;
    case Mouse::movingSplitter: {
        CRect client;
        GetClientRect(&client);
        m_strip.MoveSplitter(point.x);
        DoSize(client.Width(), client.Height());
        Invalidate(FALSE);
        SetCursor(SysColourMetricCache().m_splitCursor);
        break;
    }
    case Mouse::armed:
        if (!m_dragStart.PtInRect(point)) StartTabDrag(point);
        break;
    case Mouse::draggingTab:
        UpdateTabDrag(point);
        break;
    case Mouse::idle:
        if (m_strip.SplitterRect().PtInRect(point)) SetCursor(SysColourMetricCache().m_splitCursor);
        break;
    }
}

void CTabbedOverlayWnd::StartTabDrag(CPoint point)
{
    m_mouse = Mouse::draggingTab;
    m_draggedPane = safeHandle(GetActivePane());
    m_dropTarget = nullptr;
    m_dragEffect = 0;
    UpdateTabDrag(point);
}

void CTabbedOverlayWnd::UpdateTabDrag(CPoint point)
{
    ClientToScreen(&point);
    CWnd* target = nullptr;
    const HWND own = m_hWnd;
    const DWORD effect = GetTabDragEffect(FromHandle(m_draggedPane), point, target);
    if (!IsWindow(own)) return; // it went while it was asked
    m_dragEffect = effect;
    m_dropTarget = safeHandle(target);
    SetCursor(tabCursor(m_dragEffect));
}

void CTabbedOverlayWnd::OnLButtonUp(UINT flags, CPoint point)
{
    CWnd::OnLButtonUp(flags, point);
    const Mouse ended = m_mouse;
    if (ended != Mouse::idle) ReleaseCapture();
    m_mouse = Mouse::idle;
    if (ended != Mouse::draggingTab || !m_dragEffect || !IsWindow(m_draggedPane)) return;
    ClientToScreen(&point);
    CWnd* const target = IsWindow(m_dropTarget) ? FromHandle(m_dropTarget) : nullptr;
    DropTab(m_dragEffect, FromHandle(m_draggedPane), target, point);
}

// Whatever takes the mouse away ends what it was doing; nothing is dropped.
void CTabbedOverlayWnd::OnCaptureChanged(CWnd* next)
{
    CWnd::OnCaptureChanged(next);
    if (m_mouse == Mouse::scrolling) {
        KillTimer(scrollTimer);
        InvalidateButtons();
    } else if (m_mouse != Mouse::idle) {
        SetCursor(SysColourMetricCache().m_arrowCursor);
    }
    m_mouse = Mouse::idle;
}

void CTabbedOverlayWnd::OnContextMenu(CWnd* window, CPoint screenPoint)
{
    CPoint point = screenPoint;
    ScreenToClient(&point);
    const int tab = HitTestTab(point);
    if (tab < 0) return CWnd::OnContextMenu(window, screenPoint);
    if (tab != m_active) SetActivePane(tab);
    if (CWnd* const pane = GetActivePane()) OnTabContextMenu(pane, screenPoint);
}

// ---- The scroll bar

void CTabbedOverlayWnd::OnHScroll(UINT code, UINT position, CScrollBar*)
{
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    if (m_active < 0 || !m_horizontal.GetScrollInfo(&info)) return;
    int to = info.nPos;
    switch (code) {
    case SB_LINELEFT:
        to -= lineStep;
        break;
    case SB_LINERIGHT:
        to += lineStep;
        break;
    case SB_PAGELEFT:
        to -= static_cast<int>(info.nPage);
        break;
    case SB_PAGERIGHT:
        to += static_cast<int>(info.nPage);
        break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        to = static_cast<int>(position);
        break;
    case SB_LEFT:
        to = info.nMin;
        break;
    case SB_RIGHT:
        to = info.nMax;
        break;
    default:
        return;
    }
    m_horizontal.SetScrollPos(std::clamp(to, info.nMin, info.nMax));
    PlaceActivePane();
}

void CTabbedOverlayWnd::PlaceActivePane()
{
    CWnd* const pane = GetActivePane();
    if (!pane) return;
    CRect client;
    GetClientRect(&client);
    const int width = Pane(m_active).width ? Pane(m_active).width : client.Width();
    pane->MoveWindow(-m_horizontal.GetScrollPos(), 0, width, m_strip.PaneHeight());
    pane->Invalidate();
}

// ---- What is dragged over the strip

void CTabbedOverlayWnd::EnableDragFocusSelect(int enable)
{
    enable ? static_cast<void>(m_dropTargetObject.Register(this)) : m_dropTargetObject.Revoke();
    m_dropTargetObject.OnDragLeave(this);
}

DROPEFFECT CTabbedOverlayWnd::DropTarget::WaitOver(int tab, CPoint point)
{
    m_hover.Enter(tab, point, millisecondsNow());
    return tab < 0 ? DROPEFFECT_NONE : dragAtWork;
}

DROPEFFECT CTabbedOverlayWnd::DropTarget::OnDragEnter(CWnd*, COleDataObject*, DWORD, CPoint point)
{
    return WaitOver(m_overlay.HitTestTab(point), point);
}

DROPEFFECT CTabbedOverlayWnd::DropTarget::OnDragOver(CWnd*, COleDataObject*, DWORD, CPoint point)
{
    if (m_hover.IsWaitingAt(point)) {
        if (const int due = m_hover.Due(millisecondsNow()); m_overlay.Has(due)) m_overlay.SetActivePane(due);
        return dragAtWork;
    }
    const int tab = m_overlay.HitTestTab(point);
    if (tab < 0 && m_overlay.HitTabScroll(point)) {
        m_hover.Leave();
        return dragAtWork;
    }
    return WaitOver(tab, point);
}
