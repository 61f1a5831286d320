#include "corekit/windows/controls/ui/SplitterEx.h"

#include "corekit/framework/ui/WindowDC.h"
#include "corekit/platform/Cursors.h"
#include "corekit/platform/SystemColours.h"

#include <algorithm>
#include <utility>

IMPLEMENT_DYNAMIC(CSplitterEx, CWnd)

BEGIN_MESSAGE_MAP(CSplitterEx, CWnd)
ON_WM_SIZE()
ON_WM_PAINT()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONUP()
ON_WM_CAPTURECHANGED()
END_MESSAGE_MAP()

namespace {
constexpr int barBreadth = 5;
}

BOOL CSplitterEx::Create(CWnd* parent, Direction direction, const CRect& rect, UINT id, DWORD style)
{
    m_direction = direction;
    const char* const name = AfxRegisterWndClass(
        CS_DBLCLKS, LoadCursorA(nullptr, direction == sideBySide ? IDC_SIZEWE : IDC_SIZENS),
        reinterpret_cast<HBRUSH>(std::size_t{COLOR_BTNFACE + 1}));
    return CWnd::Create(name, "", style | WS_CLIPCHILDREN, rect, parent, id);
}

void CSplitterEx::SetPanes(CWnd* first, CWnd* second)
{
    m_panes[0] = first->GetSafeHwnd();
    m_panes[1] = second->GetSafeHwnd();
    for (const HWND pane : m_panes)
        if (pane && ::GetParent(pane) != m_hWnd) ::SetParent(pane, m_hWnd);
    Lay();
}

void CSplitterEx::SetLeastSizes(int first, int second)
{
    m_least[0] = std::max(first, 0);
    m_least[1] = std::max(second, 0);
    Lay();
}

int CSplitterEx::Length() const
{
    CRect client;
    GetClientRect(&client);
    return std::max(0, (m_direction == sideBySide ? client.Width() : client.Height()) - barBreadth);
}

int CSplitterEx::GetPosition() const
{
    if (m_isFolded) return 0;
    const int wanted = static_cast<int>(static_cast<LONGLONG>(Length()) * m_share / 1000);
    return std::max(std::min(wanted, Length() - m_least[1]), std::min(m_least[0], Length()));
}

void CSplitterEx::SetPosition(int pixels)
{
    if (Length() == 0) return;
    const LONGLONG within = std::clamp(pixels, 0, Length());
    SetShare(static_cast<int>((within * 1000 + Length() / 2) / Length()));
}

void CSplitterEx::SetShare(int thousandths)
{
    m_isFolded = false;
    m_share = std::clamp(thousandths, 0, 1000);
    Lay();
}

void CSplitterEx::Fold(bool folded)
{
    m_isFolded = folded;
    Lay();
}

void CSplitterEx::Lay()
{
    if (!m_hWnd) return;
    CRect client;
    GetClientRect(&client);
    CRect first = client, second = client;
    if (m_direction == sideBySide) {
        first.right = GetPosition();
        second.left = first.right + barBreadth;
    } else {
        first.bottom = GetPosition();
        second.top = first.bottom + barBreadth;
    }
    const CRect places[] = {first, second};
    for (std::size_t i = 0; i < 2; ++i)
        if (::IsWindow(m_panes[i]))
            ::MoveWindow(m_panes[i], places[i].left, places[i].top, std::max(places[i].Width(), 0),
                         std::max(places[i].Height(), 0), TRUE);
    Invalidate();
}

void CSplitterEx::OnSize(UINT, int, int) { Lay(); }

void CSplitterEx::OnPaint()
{
    CPaintDC dc(this);
    CRect bar;
    GetClientRect(&bar);
    (m_direction == sideBySide ? bar.left : bar.top) = GetPosition();
    (m_direction == sideBySide ? bar.right : bar.bottom) = GetPosition() + barBreadth;
    dc.DrawEdge(&bar, EDGE_RAISED, m_direction == sideBySide ? BF_LEFT | BF_RIGHT : BF_TOP | BF_BOTTOM);
}

// The panes cover all but the bar.
void CSplitterEx::OnLButtonDown(UINT, CPoint point)
{
    m_before = GetPosition();
    m_grip = (m_direction == sideBySide ? point.x : point.y) - m_before;
    SetCapture();
}

void CSplitterEx::OnMouseMove(UINT, CPoint point)
{
    const int wanted = (m_direction == sideBySide ? point.x : point.y) - m_grip;
    const bool isMove = m_isFolded ? wanted > barBreadth : wanted != GetPosition();
    if (m_grip >= 0 && isMove) SetPosition(wanted);
}

void CSplitterEx::OnLButtonUp(UINT, CPoint)
{
    if (m_grip < 0) return;
    ReleaseCapture();
    if (GetPosition() != m_before) OnSplitterMoved();
}

void CSplitterEx::OnCaptureChanged(CWnd*) { m_grip = -1; }

void CSplitterEx::OnLButtonDblClk(UINT, CPoint)
{
    Fold(!m_isFolded);
    OnSplitterMoved();
}
