#include "corekit/framework/ui/MiniDockFrameWnd.h"

#include "corekit/framework/ui/WindowDC.h"
#include "corekit/platform/Cursors.h"
#include "corekit/platform/SystemColours.h"

#include <algorithm>
#include <utility>

IMPLEMENT_DYNAMIC(CMiniDockFrameWnd, CFrameWnd)

BEGIN_MESSAGE_MAP(CMiniDockFrameWnd, CFrameWnd)
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_CLOSE()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONUP()
ON_WM_CAPTURECHANGED()
END_MESSAGE_MAP()

namespace {
constexpr int edge = 3, captionHeight = 16;
}

BOOL CMiniDockFrameWnd::Create(CFrameWnd* parent, DWORD style)
{
    const char* const className =
        AfxRegisterWndClass(CS_DBLCLKS, LoadCursorA(nullptr, IDC_ARROW),
                            reinterpret_cast<HBRUSH>(std::size_t{COLOR_BTNFACE + 1}));
    if (!CreateEx(WS_EX_TOOLWINDOW, className, "", WS_POPUP | WS_CLIPCHILDREN, 0, 0, 1, 1,
                  parent->GetSafeHwnd(), nullptr))
        return FALSE;
    if (m_wndDockBar.Create(this, style, AFX_IDW_DOCKBAR_FLOAT)) return TRUE;
    DestroyWindow();
    return FALSE;
}

CRect CMiniDockFrameWnd::FrameRound(const CRect& bar)
{
    CRect frame = bar;
    frame.InflateRect(edge, edge + captionHeight, edge, edge);
    return frame;
}

// ---- Layout

void CMiniDockFrameWnd::RecalcLayout(BOOL)
{
    if (!m_hWnd || !m_wndDockBar.m_hWnd || std::exchange(m_laysOut, true)) return;
    const CSize inside = m_wndDockBar.CalcFixedLayout(FALSE, TRUE);
    CRect place;
    GetWindowRect(&place);
    const CSize size = inside + CSize(2 * edge, 2 * edge + captionHeight);
    m_wndDockBar.MoveWindow(CRect(CPoint(edge, edge + captionHeight), inside));
    if (place.Size() != size)
        SetWindowPos(nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    // Shown before the frame that it belongs to, it would not stay above that one.
    const bool shows =
        m_wndDockBar.GetDockedVisibleCount() > 0 && GetParent() && GetParent()->IsWindowVisible();
    if (shows != ((GetStyle() & WS_VISIBLE) != 0)) ShowWindow(shows ? SW_SHOWNA : SW_HIDE);
    if (CControlBar* const bar = OnlyBar()) {
        CString title, former;
        bar->GetWindowText(title);
        GetWindowText(former);
        if (title != former) SetWindowText(title);
    }
    m_laysOut = false;
}

// ---- Looks

CRect CMiniDockFrameWnd::CloseBox() const
{
    CRect client;
    GetClientRect(&client);
    return {client.right - edge - captionHeight + 2, edge + 1, client.right - edge - 1,
            edge + captionHeight - 2};
}

BOOL CMiniDockFrameWnd::OnEraseBkgnd(CDC* dc) { return CWnd::OnEraseBkgnd(dc); }

void CMiniDockFrameWnd::OnPaint()
{
    CPaintDC dc(this);
    CRect client;
    GetClientRect(&client);
    CRect frame = client;
    dc.DrawEdge(&frame, EDGE_RAISED, BF_RECT);
    CRect caption(edge, edge, client.right - edge, edge + captionHeight - 1);
    dc.FillSolidRect(&caption, GetSysColor(COLOR_ACTIVECAPTION));
    CRect box = CloseBox();
    dc.DrawFrameControl(&box, DFC_CAPTION, DFCS_CAPTIONCLOSE);
    caption.left += 4;
    caption.right = box.left - 2;
    CString title;
    GetWindowText(title);
    dc.SetTextColor(GetSysColor(COLOR_CAPTIONTEXT));
    dc.SetBkMode(TRANSPARENT);
    ::SelectObject(dc, ::GetStockObject(DEFAULT_GUI_FONT));
    dc.DrawText(title, &caption, DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
}

// ---- Mouse

CMiniDockFrameWnd::Part CMiniDockFrameWnd::PartAt(CPoint point) const
{
    CRect client;
    GetClientRect(&client);
    if (point.x < edge) return Part::left;
    if (point.x >= client.right - edge) return Part::right;
    if (point.y < edge) return Part::top;
    if (point.y >= client.bottom - edge) return Part::bottom;
    if (CloseBox().PtInRect(point)) return Part::close;
    return point.y < edge + captionHeight ? Part::caption : Part::inside;
}

void CMiniDockFrameWnd::OnLButtonDown(UINT, CPoint point)
{
    CControlBar* const bar = OnlyBar();
    if (!bar) return;
    const Part part = PartAt(point);
    if (part == Part::close) {
        PostMessage(WM_CLOSE);
    } else if (part == Part::caption || !(bar->GetBarStyle() & CBRS_SIZE_DYNAMIC)) {
        CPoint onBar = point;
        MapWindowPoints(bar, &onBar, 1);
        bar->StartDrag(onBar);
    } else if (part != Part::inside) {
        m_sizing = part;
        GetWindowRect(&m_sizedFrom);
        SetCapture();
    }
}

void CMiniDockFrameWnd::OnMouseMove(UINT, CPoint point)
{
    if (m_sizing != Part::inside) {
        CPoint screen = point;
        ClientToScreen(&screen);
        return ResizeTo(screen);
    }
    const Part part = PartAt(point);
    const bool sizes = OnlyBar() && OnlyBar()->GetBarStyle() & CBRS_SIZE_DYNAMIC;
    const char* shape = IDC_ARROW;
    if (sizes && (part == Part::left || part == Part::right)) shape = IDC_SIZEWE;
    if (sizes && (part == Part::top || part == Part::bottom)) shape = IDC_SIZENS;
    ::SetCursor(LoadCursorA(nullptr, shape));
}

// Asks the bar for the shape next to the one wanted; the side that does not move stays where it is.
void CMiniDockFrameWnd::ResizeTo(CPoint screen)
{
    CControlBar* const bar = OnlyBar();
    if (!bar) return;
    const bool isHeight = m_sizing == Part::top || m_sizing == Part::bottom;
    int wanted = 0;
    if (m_sizing == Part::left) wanted = m_sizedFrom.right - screen.x;
    if (m_sizing == Part::right) wanted = screen.x - m_sizedFrom.left;
    if (m_sizing == Part::top) wanted = m_sizedFrom.bottom - screen.y;
    if (m_sizing == Part::bottom) wanted = screen.y - m_sizedFrom.top;
    wanted -= 2 * edge + (isHeight ? captionHeight : 0);
    bar->CalcDynamicLayout(std::clamp(wanted, 1, longestBar),
                           LM_HORZ | LM_COMMIT | (isHeight ? LM_LENGTHY : 0));
    RecalcLayout();
    CRect place;
    GetWindowRect(&place);
    CPoint at = m_sizedFrom.TopLeft();
    if (m_sizing == Part::left) at.x = m_sizedFrom.right - place.Width();
    if (m_sizing == Part::top) at.y = m_sizedFrom.bottom - place.Height();
    if (at != place.TopLeft())
        SetWindowPos(nullptr, at.x, at.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CMiniDockFrameWnd::OnLButtonUp(UINT, CPoint)
{
    if (std::exchange(m_sizing, Part::inside) != Part::inside) ReleaseCapture();
}

void CMiniDockFrameWnd::OnCaptureChanged(CWnd*) { m_sizing = Part::inside; }

void CMiniDockFrameWnd::OnLButtonDblClk(UINT, CPoint point)
{
    if (PartAt(point) == Part::caption && OnlyBar()) OnlyBar()->ToggleDocking();
}

// The bars are hidden, not gone: their owner shows them again.
void CMiniDockFrameWnd::OnClose()
{
    for (int i = 0; CControlBar* const bar = m_wndDockBar.GetDockedControlBar(i); ++i)
        if (bar->m_pDockSite) bar->m_pDockSite->ShowControlBar(bar, FALSE, FALSE);
}
