// Who has the keys, who is active, who has the mouse.
#include "corekit/platform/Errors.h"
#include "corekit/platform/Input.h"
#include "corekit/platform/qt/windows/ApplicationFilter.h"
#include "corekit/platform/qt/windows/DropEvents.h"
#include "corekit/platform/qt/windows/ToolkitThread.h"
#include "corekit/platform/qt/windows/WindowState.h"
#include "corekit/platform/qt/windows/WindowTables.h"

#include <QApplication>

#include <utility>

namespace corekit::detail {
namespace {

// The toolkit moves focus and activation when the window manager answers; programs are told at once, and
// what the toolkit tells later is no news then.
constinit HWND focused = nullptr;
constinit HWND active = nullptr;
constinit HWND captured = nullptr;
constinit bool isGrabbing = false;

bool isThere(HWND window) { return window && windowTables().find(window); }

void letGo()
{
    if (!std::exchange(isGrabbing, false)) return;
    if (QWidget* const grabber = QWidget::mouseGrabber()) grabber->releaseMouse();
}

} // namespace

void raiseWidget(QWidget& widget)
{
    // The offscreen platform keeps no order of its windows, and says so each time it is asked.
    static const bool hasOrder = QGuiApplication::platformName() != QLatin1String("offscreen");
    if (!widget.isWindow() || hasOrder) widget.raise();
}

void moveFocus(HWND to)
{
    if (focused == to) return;
    const HWND former = std::exchange(focused, to);
    if (isThere(former)) SendMessageA(former, WM_KILLFOCUS, reinterpret_cast<WPARAM>(to), 0);
    if (focused == to && isThere(to)) SendMessageA(to, WM_SETFOCUS, reinterpret_cast<WPARAM>(former), 0);
}

void moveActive(HWND to)
{
    if (active == to) return;
    const HWND former = std::exchange(active, to);
    if (isThere(former)) {
        forgetCapture(former);
        SendMessageA(former, WM_ACTIVATE, WA_INACTIVE, reinterpret_cast<LPARAM>(to));
    }
    if (active == to && isThere(to))
        SendMessageA(to, WM_ACTIVATE, WA_ACTIVE, reinterpret_cast<LPARAM>(former));
}

void forgetFocus(HWND window)
{
    if (active == window) active = nullptr;
    if (focused == window) moveFocus(nullptr);
}

void forgetCapture(HWND window)
{
    if (captured && (captured == window || IsChild(window, captured))) ReleaseCapture();
}

void forgetInput(HWND window)
{
    forgetCapture(window);
    forgetFocus(window);
    forgetCaret(window);
    forgetTimers(window);
    forgetPainting(window);
    forgetDrops(window);
}

} // namespace corekit::detail

using namespace corekit::detail;

HWND SetFocus(HWND handle)
{
    if (!onToolkitThread()) return nullptr;
    const HWND former = GetFocus();
    if (!handle) {
        if (QWidget* const widget = QApplication::focusWidget(); widget && Window::of(widget))
            widget->clearFocus();
        moveFocus(nullptr);
        return former;
    }
    const Window* const window = requireWindow(handle);
    if (!window || !window->widget() || !window->isEnabled()) return nullptr;
    if (former == handle) return former;
    const std::shared_ptr<Window> held = windowTables().share(handle);
    const HWND top = GetAncestor(handle, GA_ROOT);
    if (active != top && IsWindowVisible(top)) SetActiveWindow(top);
    if (held->isAlive()) held->widget()->setFocus(Qt::OtherFocusReason);
    if (held->isAlive()) moveFocus(handle);
    return former;
}

HWND GetFocus() { return isThere(focused) ? focused : nullptr; }

HWND SetActiveWindow(HWND handle)
{
    const Window* const window = requireWindow(handle);
    if (!window || !window->widget() || window->isChild()) return nullptr;
    const HWND former = GetActiveWindow();
    if (former == handle && window->widget()->isActiveWindow()) return former;
    if (window->widget()->isVisible()) {
        raiseWidget(*window->widget());
        window->widget()->activateWindow();
    }
    moveActive(handle);
    return former;
}

HWND GetActiveWindow() { return isThere(active) ? active : nullptr; }

BOOL SetForegroundWindow(HWND handle)
{
    const HWND top = GetAncestor(handle, GA_ROOT);
    if (!top) return FALSE;
    SetActiveWindow(top);
    return TRUE;
}

HWND SetCapture(HWND handle)
{
    const Window* const window = requireWindow(handle);
    if (!window || !window->widget()) return nullptr;
    const HWND former = std::exchange(captured, handle);
    if (former == handle) return former;
    letGo();
    // While a button is down the toolkit holds the mouse by itself.
    if (QGuiApplication::mouseButtons() == Qt::NoButton && window->widget()->isVisible()) {
        window->widget()->grabMouse();
        isGrabbing = true;
    }
    if (isThere(former)) SendMessageA(former, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(handle));
    return former;
}

BOOL ReleaseCapture()
{
    if (!onToolkitThread()) return FALSE;
    const HWND former = std::exchange(captured, nullptr);
    letGo();
    if (isThere(former)) SendMessageA(former, WM_CAPTURECHANGED, 0, 0);
    return TRUE;
}

HWND GetCapture() { return isThere(captured) ? captured : nullptr; }

BOOL GetCursorPos(POINT* point)
{
    if (!point || !QCoreApplication::instance()) return FALSE;
    *point = pointerPlace();
    return TRUE;
}

UINT GetDoubleClickTime()
{
    return QCoreApplication::instance() ? static_cast<UINT>(QApplication::doubleClickInterval()) : 500;
}
