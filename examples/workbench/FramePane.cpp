#include "FramePane.h"

#include "corekit/framework/ui/WindowDC.h"
#include "corekit/platform/Cursors.h"
#include "corekit/platform/SystemColours.h"

#include <algorithm>

BEGIN_MESSAGE_MAP(FramePane, CWnd)
ON_WM_CREATE()
ON_WM_SIZE()
ON_WM_PAINT()
ON_WM_SETCURSOR()
ON_WM_LBUTTONDOWN()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONUP()
ON_WM_CAPTURECHANGED()
ON_COMMAND(1, &FramePane::OnReset)
END_MESSAGE_MAP()

namespace {

constexpr UINT resetButton = 1;
constexpr CRect wholePlace(100, 150, 900, 850);
constexpr int margin = 8, side = 24;

// A frame with an arrow that goes back to its corner.
HBITMAP ResetPicture(CWnd& window, COLORREF sign)
{
    CClientDC screen(&window);
    CDC dc;
    dc.CreateCompatibleDC(&screen);
    CBitmap bitmap;
    bitmap.Attach(CreateCompatibleBitmap(screen, side, side));
    CBitmap* const former = dc.SelectObject(&bitmap);
    dc.FillSolidRect(0, 0, side, side, GetSysColor(COLOR_BTNFACE));
    const CRect frame(3, 3, side - 3, side - 3);
    dc.Draw3dRect(&frame, sign, sign);
    for (int i = 0; i < 10; ++i) dc.FillSolidRect(7 + i, 7 + i, 2, 2, sign);
    dc.FillSolidRect(7, 7, 7, 2, sign);
    dc.FillSolidRect(7, 7, 2, 7, sign);
    dc.SelectObject(former);
    return static_cast<HBITMAP>(bitmap.Detach());
}

} // namespace

bool FramePane::Create(CWnd& parent, UINT id)
{
    const char* const name = AfxRegisterWndClass(CS_HREDRAW | CS_VREDRAW);
    return CWnd::Create(name, "", WS_CHILD | WS_CLIPCHILDREN, CRect(), &parent, id);
}

int FramePane::OnCreate(CREATESTRUCTA* create)
{
    if (CWnd::OnCreate(create) == -1 ||
        !m_reset.Create("Reset", WS_CHILD | WS_VISIBLE | WS_TABSTOP, CRect(), this, resetButton))
        return -1;
    m_reset.SetImages(ResetPicture(*this, GetSysColor(COLOR_BTNTEXT)),
                      ResetPicture(*this, GetSysColor(COLOR_HIGHLIGHT)),
                      ResetPicture(*this, GetSysColor(COLOR_GRAYTEXT)));
    m_reset.SizeToContent();
    m_reset.EnableWindow(FALSE);
    return 0;
}

// As wide as it is high by sixteen to nine, beside the button.
CRect FramePane::Screen() const
{
    CRect room;
    GetClientRect(&room);
    room.DeflateRect(margin, margin, 2 * margin + side, margin);
    const int width = std::max(0, std::min<int>(room.Width(), room.Height() * 16 / 9));
    return {room.TopLeft(), CSize(width, width * 9 / 16)};
}

void FramePane::SetPlace(const CRect& place)
{
    m_place = place;
    if (m_hWnd) Lay();
}

void FramePane::Lay()
{
    const CRect screen = Screen();
    const auto x = [&](LONG part) { return static_cast<int>(screen.left + part * screen.Width() / 1000); };
    const auto y = [&](LONG part) { return static_cast<int>(screen.top + part * screen.Height() / 1000); };
    m_tracker.m_limits = screen;
    m_tracker.m_rect = CRect(x(m_place.left), y(m_place.top), x(m_place.right), y(m_place.bottom));
    m_reset.EnableWindow(m_place != wholePlace);
    Invalidate();
}

void FramePane::OnSize(UINT how, int width, int height)
{
    CWnd::OnSize(how, width, height);
    m_reset.SetWindowPos(nullptr, width - margin - side, margin, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    if (!m_tracker.IsTracking()) Lay();
}

void FramePane::OnPaint()
{
    CPaintDC dc(this);
    CRect client;
    GetClientRect(&client);
    const CRect screen = Screen();
    dc.FillSolidRect(&client, GetSysColor(COLOR_BTNFACE));
    dc.FillSolidRect(&screen, GetSysColor(COLOR_WINDOW));
    CRect line(m_tracker.m_rect);
    line.DeflateRect(margin, margin);
    for (int top = line.top; top + 3 <= line.bottom; top += 8)
        dc.FillSolidRect(line.left, top, line.Width(), 3, GetSysColor(COLOR_GRAYTEXT));
    m_tracker.Draw(dc);
}

BOOL FramePane::OnSetCursor(CWnd* window, UINT hit, UINT message)
{
    if (window != this) return CWnd::OnSetCursor(window, hit, message);
    CPoint at;
    ::GetCursorPos(&at);
    ScreenToClient(&at);
    ::SetCursor(LoadCursorA(nullptr, m_tracker.CursorOf(m_tracker.HitTest(at))));
    return TRUE;
}

void FramePane::OnLButtonDown(UINT flags, CPoint point)
{
    CWnd::OnLButtonDown(flags, point);
    if (m_tracker.Press(point)) SetCapture();
}

void FramePane::OnMouseMove(UINT flags, CPoint point)
{
    CWnd::OnMouseMove(flags, point);
    if (!m_tracker.IsTracking()) return;
    m_tracker.MoveTo(point);
    Invalidate();
}

void FramePane::OnLButtonUp(UINT flags, CPoint point)
{
    CWnd::OnLButtonUp(flags, point);
    if (!m_tracker.IsTracking()) return;
    m_tracker.Release();
    ReleaseCapture();
    const CRect screen = Screen(), rect = m_tracker.m_rect;
    if (screen.IsRectEmpty()) return;
    const auto across = [&](LONG x) { return static_cast<int>((x - screen.left) * 1000 / screen.Width()); };
    const auto down = [&](LONG y) { return static_cast<int>((y - screen.top) * 1000 / screen.Height()); };
    SetPlace(CRect(across(rect.left), down(rect.top), across(rect.right), down(rect.bottom)));
}

void FramePane::OnCaptureChanged(CWnd* next)
{
    CWnd::OnCaptureChanged(next);
    if (!m_tracker.IsTracking()) return;
    m_tracker.Cancel();
    Invalidate();
}

void FramePane::OnReset() { SetPlace(wholePlace); }
