// The mouse: a press sets the cursor, a drag selects, a second press takes the word.
#include "corekit/unicode/ui/edit/MultilineUnicodeEditCtl.h"
#include "corekit/unicode/ui/edit/MultilineUnicodeEditCtlSink.h"

#include <cstdlib>

namespace {

constexpr int doubleClickReach = 2; // pixels

} // namespace

// The window class asks for no double clicks of the platform's.
bool CMultilineUnicodeEditCtl::IsSecondPress(CPoint point)
{
    using namespace std::chrono;
    const auto now = steady_clock::now();
    const bool second = now - m_pressTime <= milliseconds(GetDoubleClickTime()) &&
                        std::abs(point.x - m_pressPoint.x) <= doubleClickReach &&
                        std::abs(point.y - m_pressPoint.y) <= doubleClickReach;
    m_pressTime = second ? steady_clock::time_point() : now;
    m_pressPoint = point;
    return second;
}

void CMultilineUnicodeEditCtl::OnLButtonDown(UINT flags, CPoint point)
{
    if (IsSecondPress(point)) return OnLButtonDblClk(flags, point);
    LookAround();
    m_model.PressAt(point);
    m_dragging = true;
    CursorMoved();
    const HWND window = m_hWnd;
    if (m_sink) m_sink->OnEditLButtonDown();
    if (::IsWindow(window)) ::SetCapture(window);
}

void CMultilineUnicodeEditCtl::OnMouseMove(UINT, CPoint point)
{
    if (!m_dragging) return;
    LookAround();
    m_model.DragTo(point);
    CursorMoved();
}

void CMultilineUnicodeEditCtl::OnLButtonUp(UINT, CPoint)
{
    m_dragging = false;
    OfferSelection();
    const HWND window = m_hWnd;
    ReleaseCapture();
    if (!::IsWindow(window)) return;
    if (m_sink) m_sink->OnEditLButtonUp();
    if (::IsWindow(window)) ::SetFocus(window);
}

void CMultilineUnicodeEditCtl::OnLButtonDblClk(UINT, CPoint)
{
    LookAround();
    m_model.SelectWord();
    CursorMoved();
    OfferSelection();
}
