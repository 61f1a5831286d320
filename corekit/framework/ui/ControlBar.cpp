#include "corekit/framework/ui/ControlBar.h"

#include "corekit/framework/ui/BarDrag.h"
#include "corekit/framework/ui/DC.h"
#include "corekit/framework/ui/FrameMessages.h"
#include "corekit/framework/ui/FrameWnd.h"
#include "corekit/framework/ui/WindowDC.h"
#include "corekit/platform/Cursors.h"
#include "corekit/platform/SystemColours.h"

#include <algorithm>
#include <utility>

using corekit::detail::BarDrag;

IMPLEMENT_DYNAMIC(CControlBar, CWnd)

BEGIN_MESSAGE_MAP(CControlBar, CWnd)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_PAINT()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_LBUTTONDBLCLK()
ON_WM_CAPTURECHANGED()
ON_WM_KEYDOWN()
ON_MESSAGE(WM_SIZEPARENT, &CControlBar::OnSizeParent)
ON_MESSAGE(WM_IDLEUPDATECMDUI, &CControlBar::OnIdleUpdateCmdUI)
ON_MESSAGE(WM_INITIALUPDATE, &CControlBar::OnInitialUpdate)
END_MESSAGE_MAP()

namespace {

constexpr int gripperRoom = 7, gripperBreadth = 3;

} // namespace

CControlBar::CControlBar() = default;

CControlBar::~CControlBar()
{
    if (m_hWnd) CControlBar::DestroyWindow();
    LeaveDocks();
}

// ---- Life

BOOL CControlBar::PreCreateWindow(CREATESTRUCTA& create)
{
    if (!create.lpszClass)
        create.lpszClass = AfxRegisterWndClass(CS_DBLCLKS, LoadCursorA(nullptr, IDC_ARROW),
                                               reinterpret_cast<HBRUSH>(std::size_t{COLOR_BTNFACE + 1}));
    return create.lpszClass != nullptr;
}

int CControlBar::OnCreate(CREATESTRUCTA* create)
{
    if (CWnd::OnCreate(create) == -1) return -1;
    if (auto* const frame = dynamic_cast<CFrameWnd*>(GetParent())) frame->AddControlBar(this);
    return 0;
}

BOOL CControlBar::DestroyWindow()
{
    CFrameWnd* const floatsIn = IsFloating() && !IsDockBar() ? GetDockingFrame() : nullptr;
    // Out of its dock first: the frame that it floats in goes with its last bar.
    if (floatsIn && m_hWnd) {
        ShowWindow(SW_HIDE);
        if (m_pDockSite) SetParent(m_pDockSite);
        if (m_dock) m_dock->RemoveControlBar(this);
    }
    return CWnd::DestroyWindow();
}

void CControlBar::OnDestroy()
{
    m_drag.reset();
    CFrameWnd* const site = m_pDockSite;
    const bool wasDocked = m_dock != nullptr;
    LeaveDocks();
    if (site && wasDocked) site->DelayRecalcLayout();
    CWnd::OnDestroy();
}

void CControlBar::LeaveDocks()
{
    if (m_dock) m_dock->RemoveControlBar(this);
    if (m_pDockSite) m_pDockSite->RemoveControlBar(this);
}

void CControlBar::PostNcDestroy()
{
    if (m_bAutoDelete) delete this;
}

// ---- Style and state

void CControlBar::SetBarStyle(DWORD style)
{
    const DWORD former = std::exchange(m_dwStyle, style);
    if (former != style) OnBarStyleChange(former, style);
}

void CControlBar::OnBarStyleChange(DWORD, DWORD)
{
    if (m_hWnd) Invalidate();
}

void CControlBar::SetBorders(int left, int top, int right, int bottom)
{
    m_borders = CRect(left, top, right, bottom);
}

BOOL CControlBar::IsFloating() const
{
    return IsDockBar() ? (m_dwStyle & CBRS_FLOATING) != 0 : m_dock && m_dock->Floats();
}

BOOL CControlBar::IsVisible() const
{
    if (m_delay != Delay::none) return m_delay == Delay::show;
    return m_hWnd && (GetStyle() & WS_VISIBLE) != 0;
}

void CControlBar::DelayShow(BOOL show) { m_delay = show ? Delay::show : Delay::hide; }

void CControlBar::EnableDocking(DWORD sides)
{
    m_dwDockStyle = sides | CBRS_FLOATING;
    m_dwStyle |= sides & CBRS_FLOAT_MULTI;
}

CFrameWnd* CControlBar::GetDockingFrame() const
{
    CFrameWnd* const frame = GetParentFrame();
    return frame ? frame : m_pDockSite;
}

void CControlBar::GetBarInfo(CControlBarInfo& info) const
{
    info.m_nBarID = static_cast<UINT>(GetDlgCtrlID());
    info.m_bVisible = IsVisible();
    info.m_nMRUWidth = m_nMRUWidth;
    if (m_dock) {
        info.m_pointPos = m_dock->PlaceOf(*this);
        info.m_bHorz = (m_dwStyle & CBRS_ORIENT_HORZ) != 0;
    }
    if (m_dwDockStyle == 0) return;
    info.m_bDocking = TRUE;
    info.m_uMRUDockID = m_uMRUDockID;
    info.m_rectMRUDockPos = m_rectMRUDockPos;
    info.m_dwMRUFloatStyle = m_dwStyle & CBRS_ALIGN_ANY;
    info.m_ptMRUFloatPos = m_ptMRUFloatPos;
}

void CControlBar::SetBarInfo(const CControlBarInfo& info)
{
    m_nMRUWidth = info.m_nMRUWidth;
    if (info.m_bDocking) {
        m_uMRUDockID = info.m_uMRUDockID;
        m_rectMRUDockPos = info.m_rectMRUDockPos;
        m_ptMRUFloatPos = info.m_ptMRUFloatPos;
    }
    m_delay = Delay::none;
    if (m_hWnd && (info.m_bVisible != 0) != ((GetStyle() & WS_VISIBLE) != 0))
        ShowWindow(info.m_bVisible ? SW_SHOWNA : SW_HIDE);
}

// ---- Size and place

CSize CControlBar::CalcFixedLayout(BOOL stretch, BOOL horizontal)
{
    return {stretch && horizontal ? longestBar : 0, stretch && !horizontal ? longestBar : 0};
}

CSize CControlBar::CalcDynamicLayout(int, DWORD mode)
{
    return CalcFixedLayout(mode & LM_STRETCH, mode & LM_HORZ);
}

CSize CControlBar::BordersOf(BOOL horizontal) const
{
    CRect inside(0, 0, longestBar, longestBar);
    CalcInsideRect(inside, horizontal);
    return {longestBar - inside.Width(), longestBar - inside.Height()};
}

void CControlBar::CalcInsideRect(CRect& rect, BOOL horizontal) const
{
    const int line = m_dwStyle & CBRS_BORDER_3D ? 2 : 1;
    if (m_dwStyle & CBRS_BORDER_LEFT) rect.left += line;
    if (m_dwStyle & CBRS_BORDER_TOP) rect.top += line;
    if (m_dwStyle & CBRS_BORDER_RIGHT) rect.right -= line;
    if (m_dwStyle & CBRS_BORDER_BOTTOM) rect.bottom -= line;
    if (horizontal) {
        rect.DeflateRect(m_borders.left, m_borders.top, m_borders.right, m_borders.bottom);
    } else {
        rect.DeflateRect(m_borders.top, m_borders.left, m_borders.bottom, m_borders.right);
    }
    if ((m_dwStyle & CBRS_GRIPPER) && !(m_dwStyle & CBRS_FLOATING))
        (horizontal ? rect.left : rect.top) += gripperRoom;
}

LRESULT CControlBar::OnSizeParent(WPARAM, LPARAM lParam)
{
    auto& room = *reinterpret_cast<AFX_SIZEPARENTPARAMS*>(lParam);
    if (!IsVisible() || !(m_dwStyle & CBRS_ALIGN_ANY)) return 0;
    const bool lies = m_dwStyle & CBRS_ORIENT_HORZ;
    const DWORD mode = (room.bStretch ? LM_STRETCH : 0) | (lies ? LM_HORZ | LM_HORZDOCK : LM_VERTDOCK);
    CRect rect(room.rect);
    CSize size = CalcDynamicLayout(-1, mode);
    size.cx = std::clamp<LONG>(size.cx, 0, std::max(rect.Width(), 0));
    size.cy = std::clamp<LONG>(size.cy, 0, std::max(rect.Height(), 0));
    if (lies) {
        room.sizeTotal.cy += size.cy;
        room.sizeTotal.cx = std::max(room.sizeTotal.cx, size.cx);
        if (m_dwStyle & CBRS_ALIGN_TOP)
            room.rect.top += size.cy;
        else
            rect.top = room.rect.bottom -= size.cy;
    } else {
        room.sizeTotal.cx += size.cx;
        room.sizeTotal.cy = std::max(room.sizeTotal.cy, size.cy);
        if (m_dwStyle & CBRS_ALIGN_LEFT)
            room.rect.left += size.cx;
        else
            rect.left = room.rect.right -= size.cx;
    }
    const CRect place(rect.TopLeft(), size);
    if (room.hDWP)
        room.hDWP = DeferWindowPos(room.hDWP, m_hWnd, nullptr, place.left, place.top, place.Width(),
                                   place.Height(), SWP_NOACTIVATE | SWP_NOZORDER);
    return 0;
}

// ---- State of what it holds

LRESULT CControlBar::OnIdleUpdateCmdUI(WPARAM wParam, LPARAM)
{
    const Delay delay = std::exchange(m_delay, Delay::none);
    const bool isShown = (GetStyle() & WS_VISIBLE) != 0;
    if (delay != Delay::none && isShown != (delay == Delay::show)) {
        ShowWindow(delay == Delay::show ? SW_SHOWNA : SW_HIDE);
        if (m_pDockSite) m_pDockSite->RecalcLayout();
    }
    if (!m_hWnd || !(GetStyle() & WS_VISIBLE)) return 0;
    auto* target = dynamic_cast<CFrameWnd*>(GetOwner());
    if (!target) target = GetParentFrame();
    if (target) OnUpdateCmdUI(target, static_cast<BOOL>(wParam));
    return 0;
}

LRESULT CControlBar::OnInitialUpdate(WPARAM, LPARAM) { return OnIdleUpdateCmdUI(TRUE, 0); }

void CControlBar::OnUpdateCmdUI(CFrameWnd*, BOOL) {}

LRESULT CControlBar::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    const bool isFromControl = message == WM_COMMAND || message == WM_NOTIFY || message == WM_DRAWITEM ||
                               message == WM_MEASUREITEM || message == WM_DELETEITEM ||
                               message == WM_COMPAREITEM;
    if (!isFromControl) return CWnd::WindowProc(message, wParam, lParam);
    LRESULT result = 0;
    if (OnWndMsg(message, wParam, lParam, &result)) return result;
    const CWnd* const owner = GetOwner();
    return owner && owner->GetSafeHwnd() ? owner->SendMessage(message, wParam, lParam) : 0;
}

// ---- Looks

void CControlBar::OnPaint()
{
    CPaintDC dc(this);
    if (IsVisible()) DoPaint(&dc);
}

void CControlBar::DoPaint(CDC* dc) { DrawBorders(dc); }

void CControlBar::DrawBorders(CDC* dc) const
{
    CRect rect;
    GetClientRect(&rect);
    const COLORREF light = GetSysColor(COLOR_BTNHIGHLIGHT), dark = GetSysColor(COLOR_BTNSHADOW);
    if (m_dwStyle & CBRS_BORDER_LEFT) dc->FillSolidRect(rect.left, rect.top, 1, rect.Height(), light);
    if (m_dwStyle & CBRS_BORDER_TOP) dc->FillSolidRect(rect.left, rect.top, rect.Width(), 1, light);
    if (m_dwStyle & CBRS_BORDER_RIGHT) dc->FillSolidRect(rect.right - 1, rect.top, 1, rect.Height(), dark);
    if (m_dwStyle & CBRS_BORDER_BOTTOM) dc->FillSolidRect(rect.left, rect.bottom - 1, rect.Width(), 1, dark);
    if (!(m_dwStyle & CBRS_GRIPPER) || (m_dwStyle & CBRS_FLOATING)) return;
    constexpr int margin = 3;
    CRect grip(margin, margin, margin + gripperBreadth, rect.bottom - margin);
    if (!(m_dwStyle & CBRS_ORIENT_HORZ))
        grip = CRect(margin, margin, rect.right - margin, margin + gripperBreadth);
    dc->Draw3dRect(&grip, light, dark);
}

// ---- Dragging

void CControlBar::StartDrag(CPoint client)
{
    if (!m_dock || !m_pDockSite || !m_hWnd) return;
    CPoint screen = client;
    ClientToScreen(&screen);
    m_drag = m_pDockSite->BeginDrag(*this, screen);
    SetCapture();
}

void CControlBar::OnLButtonDown(UINT flags, CPoint point)
{
    if (m_dock && m_dwDockStyle)
        StartDrag(point);
    else
        CWnd::OnLButtonDown(flags, point);
}

void CControlBar::OnMouseMove(UINT flags, CPoint point)
{
    if (!m_drag) return CWnd::OnMouseMove(flags, point);
    CPoint screen = point;
    ClientToScreen(&screen);
    m_drag->MoveTo(screen, flags & MK_CONTROL ? BarDrag::Docking::off : BarDrag::Docking::on);
}

void CControlBar::OnLButtonUp(UINT flags, CPoint point)
{
    if (!m_drag) return CWnd::OnLButtonUp(flags, point);
    const std::unique_ptr<BarDrag> drag = std::move(m_drag);
    ReleaseCapture();
    drag->Drop();
}

void CControlBar::OnCaptureChanged(CWnd*) { m_drag.reset(); }

void CControlBar::OnKeyDown(UINT key, UINT repeat, UINT flags)
{
    if (!m_drag || key != VK_ESCAPE) return CWnd::OnKeyDown(key, repeat, flags);
    m_drag.reset();
    ReleaseCapture();
}

void CControlBar::OnLButtonDblClk(UINT flags, CPoint point)
{
    if (m_dock && m_dwDockStyle)
        ToggleDocking();
    else
        CWnd::OnLButtonDblClk(flags, point);
}

void CControlBar::ToggleDocking()
{
    CFrameWnd* const site = m_pDockSite;
    if (!site || !m_dock) return;
    CRect place;
    GetWindowRect(&place);
    if (IsFloating()) {
        site->DockControlBar(this, m_uMRUDockID, m_rectMRUDockPos.IsRectNull() ? nullptr : &m_rectMRUDockPos);
    } else {
        const bool neverFloated = m_ptMRUFloatPos == CPoint(-1, -1);
        site->FloatControlBar(this, neverFloated ? place.TopLeft() + CSize(20, 20) : m_ptMRUFloatPos);
    }
    site->RecalcLayout();
}
