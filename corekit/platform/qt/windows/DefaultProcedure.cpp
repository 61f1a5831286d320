// What happens to messages that nobody wants.
#include "corekit/platform/Cursors.h"
#include "corekit/platform/Input.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/Menus.h"
#include "corekit/platform/Painting.h"
#include "corekit/platform/qt/windows/BareWindow.h"
#include "corekit/platform/qt/windows/FrameDragging.h"
#include "corekit/platform/qt/windows/WideText.h"
#include "corekit/platform/qt/windows/WindowClass.h"
#include "corekit/platform/qt/windows/WindowState.h"
#include "corekit/platform/Timers.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <utility>

namespace corekit::detail {

namespace {

constexpr bool isInput(UINT message)
{
    return (message >= WM_KEYFIRST && message <= WM_KEYLAST) ||
           (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) || message == WM_CONTEXTMENU;
}

LRESULT copyText(const Window& window, WPARAM size, LPARAM into)
{
    if (carriesWideText(window.handle(), into))
        return GetWindowTextW(window.handle(), reinterpret_cast<WCHAR*>(into),
                              static_cast<int>(std::min<WPARAM>(size, INT_MAX)));
    auto* const buffer = reinterpret_cast<char*>(into);
    if (!buffer || size == 0) return 0;
    const std::string text = toNarrow(window.text());
    const std::size_t length = std::min<std::size_t>(text.size(), size - 1);
    std::memcpy(buffer, text.data(), length);
    buffer[length] = 0;
    return static_cast<LRESULT>(length);
}

LRESULT defaultText(Window& window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_SETTEXT:
        if (carriesWideText(window.handle(), lParam))
            return SetWindowTextW(window.handle(), reinterpret_cast<const WCHAR*>(lParam));
        window.setText(fromNarrow(reinterpret_cast<const char*>(lParam)));
        return TRUE;
    case WM_GETTEXT:
        return copyText(window, wParam, lParam);
    default:
        return carriesWideText(window.handle(), lParam)
                   ? window.text().size()
                   : static_cast<LRESULT>(toNarrow(window.text()).size());
    }
}

bool setClassCursor(const Window& window)
{
    static constinit HWND last = nullptr;
    const HCURSOR cursor = window.windowClass().cursor;
    if (!cursor) return false;
    if (std::exchange(last, window.handle()) != window.handle() || GetCursor() != cursor) SetCursor(cursor);
    return true;
}

// A child that does not care asks its parent.
LRESULT askParent(const Window& window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT otherwise)
{
    return window.isChild() ? SendMessageA(window.parent(), message, wParam, lParam) : otherwise;
}

LRESULT defaultMouse(Window& window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_RBUTTONUP: {
        POINT point{static_cast<SHORT>(LOWORD(static_cast<DWORD_PTR>(lParam))),
                    static_cast<SHORT>(HIWORD(static_cast<DWORD_PTR>(lParam)))};
        ClientToScreen(window.handle(), &point);
        return window.send(
            WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window.handle()),
            static_cast<LPARAM>(MAKELONG(static_cast<WORD>(point.x), static_cast<WORD>(point.y))));
    }
    case WM_SETCURSOR:
        if (window.isChild() && SendMessageA(window.parent(), message, wParam, lParam)) return TRUE;
        return setFrameCursor(static_cast<SHORT>(LOWORD(static_cast<DWORD_PTR>(lParam)))) ||
               setClassCursor(window);
    case WM_MOUSEACTIVATE:
        return askParent(window, message, wParam, lParam, MA_ACTIVATE);
    default: // the wheel, and what asks for a menu
        return askParent(window, message, wParam, lParam, 0);
    }
}

LRESULT defaultKey(Window& window, UINT message, WPARAM wParam)
{
    if (message == WM_SYSKEYDOWN && wParam == 0x73) // Alt+F4
        PostMessageA(GetAncestor(window.handle(), GA_ROOT), WM_SYSCOMMAND, SC_CLOSE, 0);
    if ((message == WM_KEYUP && wParam == 0x5D) || // the menu key
        (message == WM_SYSKEYDOWN && wParam == 0x79 && GetKeyState(VK_SHIFT) < 0))
        window.send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window.handle()), -1);
    if (message == WM_SYSCHAR) openMenuByLetter(window, static_cast<WCHAR>(LOWORD(wParam)));
    return 0;
}

LRESULT defaultCommand(Window& window, WPARAM command)
{
    switch (command & 0xFFF0) {
    case SC_CLOSE:
        return window.send(WM_CLOSE);
    case SC_MINIMIZE:
        return ShowWindow(window.handle(), SW_MINIMIZE);
    case SC_MAXIMIZE:
        return ShowWindow(window.handle(), SW_MAXIMIZE);
    case SC_RESTORE:
        return ShowWindow(window.handle(), SW_RESTORE);
    default:
        return 0;
    }
}

LRESULT defaultActivate(Window& window, WPARAM how)
{
    if (LOWORD(how) != WA_INACTIVE && window.widget() && !window.widget()->isMinimized() && !GetFocus() &&
        !window.widget()->focusWidget())
        SetFocus(window.handle());
    return 0;
}

LRESULT defaultFrame(Window& window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_NCHITTEST:
        return HTCLIENT;
    case WM_NCLBUTTONDOWN:
        return pressFrame(window, static_cast<int>(wParam), lParam);
    case WM_NCLBUTTONDBLCLK:
        return pressFrameTwice(window, static_cast<int>(wParam));
    case WM_CAPTURECHANGED:
        return endFrameDrag(window.handle()), 0;
    default:
        return 0;
    }
}

} // namespace

LRESULT Window::defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_PAINT || isInput(message)) {
        if (deliverCurrentEvent()) return 0;
        if (message == WM_PAINT && widget()) widget()->update();
    }
    return commonDefault(*this, message, wParam, lParam);
}

LRESULT commonDefault(Window& window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_NCCREATE:
    case WM_QUERYENDSESSION:
        return TRUE;
    case WM_CLOSE:
        return DestroyWindow(window.handle());
    case WM_SETTEXT:
    case WM_GETTEXT:
    case WM_GETTEXTLENGTH:
        return defaultText(window, message, wParam, lParam);
    case WM_SETREDRAW:
        if (window.widget()) window.widget()->setUpdatesEnabled(wParam != 0);
        return 0;
    case WM_SETICON:
    case WM_GETICON:
        return defaultIcon(window, message, wParam, lParam);
    case WM_ACTIVATE:
        return defaultActivate(window, wParam);
    case WM_SYSCOMMAND:
        return defaultCommand(window, wParam);
    case WM_TIMER:
        if (lParam) reinterpret_cast<TIMERPROC>(lParam)(window.handle(), message, wParam, messageTime());
        return 0;
    case WM_RBUTTONUP:
    case WM_SETCURSOR:
    case WM_MOUSEACTIVATE:
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL:
    case WM_CONTEXTMENU:
        return defaultMouse(window, message, wParam, lParam);
    case WM_KEYUP:
    case WM_SYSKEYDOWN:
    case WM_SYSCHAR:
        return defaultKey(window, message, wParam);
    default:
        return defaultFrame(window, message, wParam, lParam);
    }
}

} // namespace corekit::detail

using namespace corekit::detail;

LRESULT DefWindowProcA(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    const std::shared_ptr<Window> window = Window::share(handle);
    return window ? window->defaultProcedure(message, wParam, lParam) : 0;
}

LRESULT CallWindowProcA(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return procedure ? procedure(window, message, wParam, lParam) : 0;
}
