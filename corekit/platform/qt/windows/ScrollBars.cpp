#include "corekit/platform/ScrollBars.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/windows/BareWindow.h"
#include "corekit/platform/qt/windows/ScrollBar.h"
#include "corekit/platform/qt/windows/ToolkitThread.h"
#include "corekit/platform/Windows.h"

using namespace corekit::detail;

namespace {

ScrollBar* barOf(HWND handle, int bar)
{
    Window* const window = requireWindow(handle);
    ScrollBar* const found = window ? window->scrollBar(bar) : nullptr;
    if (window && !found) SetLastError(ERROR_INVALID_PARAMETER);
    return found;
}

DWORD styleOf(int bar) { return bar == SB_HORZ ? WS_HSCROLL : WS_VSCROLL; }

// Bars of a window come and go with their style.
void showBar(Window& window, int bar, bool show)
{
    const LONG style =
        static_cast<LONG>(show ? window.style() | styleOf(bar) : window.style() & ~styleOf(bar));
    if (static_cast<DWORD>(style) != window.style()) SetWindowLongA(window.handle(), GWL_STYLE, style);
}

} // namespace

int SetScrollInfo(HWND handle, int bar, const SCROLLINFO* info, BOOL redraw)
{
    Window* const window = requireWindow(handle);
    if (!window || !info) return 0;
    if (bar == SB_CTL)
        return static_cast<int>(SendMessageA(handle, SBM_SETSCROLLINFO, static_cast<WPARAM>(redraw),
                                             reinterpret_cast<LPARAM>(info)));
    ScrollBar* const set = barOf(handle, bar);
    if (!set) return 0;
    const int position = set->set(*info);
    const bool bounds = info->fMask & (SIF_RANGE | SIF_PAGE);
    if (bounds && info->fMask & SIF_DISABLENOSCROLL)
        set->widget()->setEnabled(set->hasRange());
    else if (bounds)
        showBar(*window, bar, set->hasRange());
    return position;
}

BOOL GetScrollInfo(HWND handle, int bar, SCROLLINFO* info)
{
    if (!info) return FALSE;
    if (bar == SB_CTL)
        return static_cast<BOOL>(SendMessageA(handle, SBM_GETSCROLLINFO, 0, reinterpret_cast<LPARAM>(info)));
    const ScrollBar* const asked = barOf(handle, bar);
    return asked && asked->get(*info);
}

int SetScrollPos(HWND handle, int bar, int position, BOOL redraw)
{
    const int former = GetScrollPos(handle, bar);
    SCROLLINFO info{sizeof info, SIF_POS, 0, 0, 0, position, 0};
    SetScrollInfo(handle, bar, &info, redraw);
    return former;
}

int GetScrollPos(HWND handle, int bar)
{
    SCROLLINFO info{sizeof info, SIF_POS, 0, 0, 0, 0, 0};
    return GetScrollInfo(handle, bar, &info) ? info.nPos : 0;
}

BOOL SetScrollRange(HWND handle, int bar, int minimum, int maximum, BOOL redraw)
{
    if (!requireWindow(handle)) return FALSE;
    SCROLLINFO info{sizeof info, SIF_RANGE, minimum, maximum, 0, 0, 0};
    SetScrollInfo(handle, bar, &info, redraw);
    return TRUE;
}

BOOL GetScrollRange(HWND handle, int bar, int* minimum, int* maximum)
{
    SCROLLINFO info{sizeof info, SIF_RANGE, 0, 0, 0, 0, 0};
    if (!GetScrollInfo(handle, bar, &info)) return FALSE;
    if (minimum) *minimum = info.nMin;
    if (maximum) *maximum = info.nMax;
    return TRUE;
}

BOOL ShowScrollBar(HWND handle, int bar, BOOL show)
{
    Window* const window = requireWindow(handle);
    if (!window) return FALSE;
    if (bar == SB_CTL) return ShowWindow(handle, show ? SW_SHOW : SW_HIDE), TRUE;
    for (const int each : {SB_HORZ, SB_VERT})
        if ((bar == each || bar == SB_BOTH) && Window::find(handle)) showBar(*window, each, show);
    return TRUE;
}

BOOL EnableScrollBar(HWND handle, int bar, UINT arrows)
{
    if (!requireWindow(handle)) return FALSE;
    if (bar == SB_CTL) return EnableWindow(handle, arrows != ESB_DISABLE_BOTH), TRUE;
    for (const int each : {SB_HORZ, SB_VERT}) {
        if (bar != each && bar != SB_BOTH) continue;
        if (const ScrollBar* const found = barOf(handle, each))
            found->widget()->setEnabled(arrows != ESB_DISABLE_BOTH);
    }
    return TRUE;
}
