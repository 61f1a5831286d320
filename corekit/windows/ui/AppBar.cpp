#include "corekit/windows/ui/AppBar.h"

#include "corekit/framework/MessageBox.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/SystemColours.h"
#include "corekit/platform/SystemInfo.h"
#include "corekit/platform/Waits.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <utility>

using namespace corekit::detail;

IMPLEMENT_DYNAMIC(CAppBar, CDialog)

BEGIN_MESSAGE_MAP(CAppBar, CDialog)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_WINDOWPOSCHANGED()
ON_WM_ACTIVATE()
ON_WM_TIMER()
ON_WM_NCHITTEST()
ON_WM_LBUTTONDOWN()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONUP()
ON_WM_CAPTURECHANGED()
ON_MESSAGE(WM_NCMOUSEMOVE, &CAppBar::OnNcMouseMove)
ON_MESSAGE(WM_ENTERSIZEMOVE, &CAppBar::OnEnterSizeMove)
ON_MESSAGE(WM_MOVING, &CAppBar::OnMoving)
ON_MESSAGE(WM_SIZING, &CAppBar::OnSizing)
ON_MESSAGE(WM_EXITSIZEMOVE, &CAppBar::OnExitSizeMove)
ON_REGISTERED_MESSAGE(CAppBar::s_uAppBarNotifyMsg, &CAppBar::OnAppBarCallbackMsg)
END_MESSAGE_MAP()

UINT CAppBar::s_uAppBarNotifyMsg = RegisterWindowMessageA("AppBarNotify");

namespace {

constexpr UINT_PTR lookTimer = 1;
constexpr UINT lookMilliseconds = 400;
constexpr UINT noTopLeft = SWP_NOZORDER | SWP_NOACTIVATE;
constexpr int sizingFirst = 10, sizingLast = 17; // hit codes of a frame's sides and corners

AppBarScreen wholeScreen()
{
    AppBarScreen screen;
    screen.size = CSize(GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN));
    screen.workArea = CRect(CPoint(0, 0), screen.size);
    RECT area;
    if (SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0)) screen.workArea = CRect(area);
    screen.scrollBars = CSize(GetSystemMetrics(SM_CXVSCROLL), GetSystemMetrics(SM_CYHSCROLL));
    screen.border =
        CSize(std::max(GetSystemMetrics(SM_CXBORDER), 1), std::max(GetSystemMetrics(SM_CYBORDER), 1));
    return screen;
}

// The side or corner of a frame that the point is on; none inside.
int frameHit(CPoint point, const CRect& window)
{
    const int width = std::max(GetSystemMetrics(SM_CXFRAME), 3),
              height = std::max(GetSystemMetrics(SM_CYFRAME), 3);
    const int column = point.x < window.left + width ? 0 : point.x >= window.right - width ? 2 : 1;
    const int row = point.y < window.top + height ? 0 : point.y >= window.bottom - height ? 2 : 1;
    constexpr int codes[3][3] = {{13, 12, 14}, {10, HTCLIENT, 11}, {16, 15, 17}};
    return codes[row][column];
}

// As WM_SIZING numbers what a hit code names.
UINT sideOfHit(UINT hit) { return hit - sizingFirst + 1; }

} // namespace

CAppBar::CAppBar(UINT templateId, CWnd* parent) : CDialog(templateId, parent)
{
    m_state.cbSize = sizeof m_state;
    m_state.uState = ABE_BOTTOM;
    m_taskBarState = static_cast<DWORD>(SHAppBarMessage(ABM_GETSTATE));
}

CAppBar::~CAppBar()
{
    if (m_hWnd) DestroyWindow();
}

BOOL CAppBar::Create(UINT templateId, CWnd* parent) { return CDialog::Create(templateId, parent); }

UINT_PTR CAppBar::SHAppBarMessage(DWORD message, UINT edge, LONG param, CRect* rect)
{
    APPBARDATA data{sizeof data, m_hWnd, s_uAppBarNotifyMsg, edge, rect ? RECT(*rect) : RECT{}, param};
    const UINT_PTR result = ::SHAppBarMessage(message, &data);
    if (rect) *rect = CRect(data.rc);
    return result;
}

// ---- State

void CAppBar::GetState(APPBARSTATE* state) const
{
    const DWORD size = std::min<DWORD>(state->cbSize, sizeof m_state);
    std::memcpy(static_cast<void*>(state), &m_state, size);
}

void CAppBar::SetState(const APPBARSTATE& state)
{
    std::memcpy(static_cast<void*>(&m_state), &state, std::min<DWORD>(state.cbSize, sizeof m_state));
    m_state.cbSize = sizeof m_state;
    if (m_hWnd) SetState();
}

UINT CAppBar::GetAutohideEdge()
{
    for (UINT edge = ABE_LEFT; edge <= ABE_BOTTOM; ++edge)
        if (m_hWnd && SHAppBarMessage(ABM_GETAUTOHIDEBAR, edge) == reinterpret_cast<UINT_PTR>(m_hWnd))
            return edge;
    return appBarUnknown;
}

void CAppBar::SetState(UINT state)
{
    if (const UINT hidden = GetAutohideEdge(); hidden != appBarUnknown)
        SHAppBarMessage(ABM_SETAUTOHIDEBAR, hidden, FALSE);
    m_state.uState = state;
    CRect empty;
    if (state == appBarFloat) {
        SHAppBarMessage(ABM_SETPOS, appBarFloat, 0, &empty);
        const CRect place(m_state.rcFloat);
        SetWindowPos(nullptr, place.left, place.top, place.Width(), place.Height(), noTopLeft);
    } else if (state == appBarUnknown) {
        SHAppBarMessage(ABM_REMOVE);
    } else {
        const UINT edge = m_proposed != appBarUnknown ? m_proposed : state;
        if (m_state.fAutohide && !SHAppBarMessage(ABM_SETAUTOHIDEBAR, edge, TRUE)) {
            m_state.fAutohide = FALSE;
            OnAppBarForcedToDocked();
            if (!m_hWnd) return;
        }
        CRect place;
        GetRect(GetState(), &place);
        SHAppBarMessage(ABM_SETPOS, m_state.fAutohide ? ABE_LEFT : state, 0,
                        m_state.fAutohide ? &empty : &place);
        AdjustLocationForAutohide(m_visibleWhileHidden, &place);
        SlideWindow(place);
    }
    if (!m_hWnd) return;
    constexpr UINT onlyOrder = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
    SetWindowPos(m_state.fAlwaysOnTop && !m_fullScreenOpen ? &wndTopMost : &wndNoTopMost, 0, 0, 0, 0,
                 onlyOrder);
    if (m_state.fAlwaysOnTop && m_fullScreenOpen) SetWindowPos(&wndBottom, 0, 0, 0, 0, onlyOrder);
    SHAppBarMessage(ABM_ACTIVATE);
    OnAppBarStateChange(0, state);
}

void CAppBar::MimicState(DWORD changed, DWORD state)
{
    bool hasChanged = false;
    const BOOL hides = (state & 1) != 0;
    if (changed & 1 && m_dwFlags & appBarAllowAutohide && (m_state.fAutohide != 0) != (hides != 0)) {
        m_state.fAutohide = hides;
        hasChanged = true;
    }
    const bool mayBeOnTop = changed & 2 && m_dwFlags & appBarAllowOnTop;
    if (mayBeOnTop) m_state.fAlwaysOnTop = (state & 2) != 0;
    if (!mayBeOnTop && !hasChanged) return;
    SetState();
    ShowHiddenAppBar(0);
}

// ---- Geometry

UINT CAppBar::GetEdgeFromPoint(DWORD flags, CPoint point)
{
    return edgeFromPoint(flags, point, wholeScreen());
}

UINT CAppBar::CalcProposedState(const CPoint& point) const
{
    const bool isCtrlDown = GetKeyState(VK_CONTROL) & 0x8000;
    return isCtrlDown && m_dwFlags & appBarAllowFloat ? appBarFloat : GetEdgeFromPoint(m_dwFlags, point);
}

void CAppBar::GetRect(UINT state, CRect* rect)
{
    if (state > ABE_BOTTOM) return;
    *rect = CRect(CPoint(0, 0), wholeScreen().size);
    if (!m_state.fAutohide) SHAppBarMessage(ABM_QUERYPOS, state, 0, rect);
    *rect = dockedRect(state, *rect, m_state.auDimsDock[state]);
}

int CAppBar::AdjustLocationForAutohide(int show, CRect* rect) const
{
    if (!m_state.fAutohide) return 0;
    return moveForAutohide(GetState(), show ? AppBarShow::shown : AppBarShow::hidden, wholeScreen(), *rect);
}

void CAppBar::ShowHiddenAppBar(int show)
{
    if (m_slides || !m_hWnd) return;
    CRect place;
    GetWindowRect(&place);
    m_visibleWhileHidden = TRUE;
    if (!AdjustLocationForAutohide(show, &place)) return;
    m_visibleWhileHidden = show;
    SlideWindow(place);
}

void CAppBar::SlideWindow(const CRect& end)
{
    CRect start;
    GetWindowRect(&start);
    BOOL isAnimated = FALSE;
    SystemParametersInfoA(SPI_GETDRAGFULLWINDOWS, 0, &isAnimated, 0);
    if (isAnimated && start != end && IsWindowVisible()) {
        m_slides = true;
        using Clock = std::chrono::steady_clock;
        const auto begun = Clock::now();
        const auto elapsed = [begun] {
            return static_cast<int>((Clock::now() - begun) / std::chrono::milliseconds(1));
        };
        while (m_hWnd && elapsed() < slideMilliseconds) {
            const CRect now = slidingRect(start, end, elapsed());
            SetWindowPos(nullptr, now.left, now.top, now.Width(), now.Height(), noTopLeft);
            UpdateWindow();
            Sleep(1);
        }
        m_slides = false;
    }
    if (!m_hWnd) return;
    SetWindowPos(nullptr, end.left, end.top, end.Width(), end.Height(), noTopLeft | SWP_FRAMECHANGED);
    UpdateWindow();
}

// ---- The desktop's news

LRESULT CAppBar::OnAppBarCallbackMsg(WPARAM code, LPARAM lParam)
{
    switch (code) {
    case ABN_STATECHANGE: {
        const auto state = static_cast<DWORD>(SHAppBarMessage(ABM_GETSTATE));
        OnABNStateChange((state ^ m_taskBarState) & 3, state);
        m_taskBarState = state;
        break;
    }
    case ABN_POSCHANGED:
        OnABNPosChanged();
        break;
    case ABN_FULLSCREENAPP:
        OnABNFullScreenApp(static_cast<int>(lParam));
        break;
    case ABN_WINDOWARRANGE:
        OnABNWindowArrange(static_cast<int>(lParam));
        break;
    default:
        break;
    }
    return 0;
}

void CAppBar::OnAppBarStateChange(int, UINT) {}

void CAppBar::OnAppBarForcedToDocked()
{
    CString title;
    GetWindowText(title);
    MessageBox("There is already an auto hidden window on this edge.\n"
               "Only one auto hidden window is allowed on each edge.",
               title, MB_OK | MB_ICONINFORMATION);
}

void CAppBar::OnABNFullScreenApp(int open)
{
    m_fullScreenOpen = open;
    SetState();
}

void CAppBar::OnABNPosChanged()
{
    if (GetState() != appBarFloat && !m_state.fAutohide) SetState();
}

void CAppBar::OnABNStateChange(DWORD changed, DWORD state) { MimicState(changed, state); }

void CAppBar::OnABNWindowArrange(int) {}

// ---- Life

int CAppBar::OnCreate(CREATESTRUCTA* create)
{
    const int result = CDialog::OnCreate(create);
    SetTimer(lookTimer, lookMilliseconds);
    SHAppBarMessage(ABM_NEW);
    MimicState(3, m_taskBarState);
    return result;
}

void CAppBar::OnDestroy()
{
    CDialog::OnDestroy();
    KillTimer(lookTimer);
    SetState(appBarUnknown);
}

void CAppBar::OnWindowPosChanged(WINDOWPOS* place)
{
    CDialog::OnWindowPosChanged(place);
    SHAppBarMessage(ABM_WINDOWPOSCHANGED);
}

void CAppBar::OnActivate(UINT state, CWnd* other, BOOL minimised)
{
    CDialog::OnActivate(state, other, minimised);
    if (state == WA_INACTIVE) ShowHiddenAppBar(0);
    SHAppBarMessage(ABM_ACTIVATE);
}

void CAppBar::OnTimer(UINT_PTR id)
{
    POINT at;
    if (GetActiveWindow() != this && !m_trackedHit && GetCursorPos(&at)) {
        CRect near;
        GetWindowRect(&near);
        near.InflateRect(2 * GetSystemMetrics(SM_CXDOUBLECLK), 2 * GetSystemMetrics(SM_CYDOUBLECLK));
        if (!near.PtInRect(at)) ShowHiddenAppBar(0);
    }
    CDialog::OnTimer(id);
}

// ---- Moving and sizing. The frame is ours: so is the loop that moves it.

LRESULT CAppBar::OnNcMouseMove(WPARAM, LPARAM)
{
    ShowHiddenAppBar(1);
    return Default();
}

// The mouse may be over any control of the bar.
BOOL CAppBar::PreTranslateMessage(MSG* message)
{
    if (message->message == WM_MOUSEMOVE && m_state.fAutohide && !m_visibleWhileHidden) ShowHiddenAppBar(1);
    return CDialog::PreTranslateMessage(message);
}

LRESULT CAppBar::OnNcHitTest(CPoint point)
{
    LRESULT hit = CDialog::OnNcHitTest(point);
    CRect window;
    GetWindowRect(&window);
    if (hit == HTCLIENT && GetStyle() & WS_THICKFRAME) hit = frameHit(point, window);
    if (hit == HTCLIENT && m_isPressed) hit = HTCAPTION;
    if (GetState() > ABE_BOTTOM || hit < sizingFirst || hit > sizingLast) return hit;
    CRect client;
    GetClientRect(&client);
    ClientToScreen(&client);
    // A frame that is part of the client area sizes from within it.
    const int width = std::max(GetSystemMetrics(SM_CXFRAME), 3),
              height = std::max(GetSystemMetrics(SM_CYFRAME), 3);
    client.DeflateRect(width, height, width + 1, height + 1);
    return dockedHitTest(GetState(), point, client, m_increment);
}

void CAppBar::OnLButtonDown(UINT flags, CPoint point)
{
    CPoint screen = point;
    ClientToScreen(&screen);
    const auto packed =
        static_cast<LPARAM>(MAKELONG(static_cast<WORD>(screen.x), static_cast<WORD>(screen.y)));
    m_isPressed = true;
    const LRESULT hit = SendMessage(WM_NCHITTEST, 0, packed);
    m_isPressed = false;
    if (hit != HTCAPTION && (hit < sizingFirst || hit > sizingLast))
        return CDialog::OnLButtonDown(flags, point);
    m_trackedHit = static_cast<UINT>(hit);
    m_trackedFrom = screen;
    GetWindowRect(&m_trackedRect);
    SetCapture();
    SendMessage(WM_ENTERSIZEMOVE);
}

void CAppBar::OnMouseMove(UINT flags, CPoint point)
{
    if (!m_trackedHit) return CDialog::OnMouseMove(flags, point);
    CPoint screen = point;
    ClientToScreen(&screen);
    Track(screen);
}

void CAppBar::Track(CPoint screen)
{
    m_trackedAt = screen;
    const CSize way = screen - m_trackedFrom;
    CRect rect = m_trackedRect;
    if (m_trackedHit == HTCAPTION) {
        rect.OffsetRect(way);
        SendMessage(WM_MOVING, 0, reinterpret_cast<LPARAM>(&rect));
    } else {
        const UINT side = sideOfHit(m_trackedHit);
        if (side == 1 || side == 4 || side == 7) rect.left += way.cx;
        if (side == 2 || side == 5 || side == 8) rect.right += way.cx;
        if (side >= 3 && side <= 5) rect.top += way.cy;
        if (side >= 6) rect.bottom += way.cy;
        SendMessage(WM_SIZING, side, reinterpret_cast<LPARAM>(&rect));
    }
    if (m_hWnd) SetWindowPos(nullptr, rect.left, rect.top, rect.Width(), rect.Height(), noTopLeft);
}

void CAppBar::OnLButtonUp(UINT flags, CPoint point)
{
    if (!std::exchange(m_trackedHit, 0u)) return CDialog::OnLButtonUp(flags, point);
    ReleaseCapture();
    SendMessage(WM_EXITSIZEMOVE);
}

void CAppBar::OnCaptureChanged(CWnd*)
{
    if (std::exchange(m_trackedHit, 0u)) SendMessage(WM_EXITSIZEMOVE);
}

LRESULT CAppBar::OnEnterSizeMove(WPARAM, LPARAM)
{
    m_proposed = GetState();
    return Default();
}

LRESULT CAppBar::OnMoving(WPARAM, LPARAM lParam)
{
    auto* const rect = reinterpret_cast<RECT*>(lParam);
    const CPoint at = m_trackedAt;
    const UINT state = CalcProposedState(at);
    CRect wanted(*rect);
    if (m_proposed != appBarFloat && state == appBarFloat) {
        const CSize size = CRect(m_state.rcFloat).Size();
        wanted = CRect(CPoint(at.x - size.cx / 2, at.y), size);
    }
    m_proposed = state;
    GetRect(state, &wanted);
    *rect = wanted;
    OnAppBarStateChange(1, state);
    return 1;
}

LRESULT CAppBar::OnSizing(WPARAM side, LPARAM lParam)
{
    auto* const rect = reinterpret_cast<RECT*>(lParam);
    CRect frame;
    const DWORD style = GetStyle() & WS_CAPTION ? GetStyle() : GetStyle() & ~WS_THICKFRAME;
    AdjustWindowRectEx(frame, style, FALSE, GetExStyle());
    *rect = wholeIncrements(CRect(*rect), frame.Size(), m_increment, static_cast<UINT>(side));
    return 1;
}

LRESULT CAppBar::OnExitSizeMove(WPARAM, LPARAM)
{
    const UINT state = std::exchange(m_proposed, appBarUnknown);
    if (!m_hWnd || state == appBarUnknown) return Default();
    CRect place;
    GetWindowRect(&place);
    if (state == m_state.uState && state <= ABE_BOTTOM)
        m_state.auDimsDock[state] =
            static_cast<UINT>(IsEdgeLeftOrRight(state) ? place.Width() : place.Height());
    if (state == appBarFloat) m_state.rcFloat = place;
    SetState(state);
    return 0;
}
