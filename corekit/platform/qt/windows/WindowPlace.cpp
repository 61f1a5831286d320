// Where windows are, and whether they are seen and take input.
#include "corekit/platform/Errors.h"
#include "corekit/platform/Input.h"
#include "corekit/platform/Painting.h"
#include "corekit/platform/qt/windows/BareWindow.h"
#include "corekit/platform/qt/windows/FrameDragging.h"
#include "corekit/platform/qt/windows/ToolkitThread.h"
#include "corekit/platform/qt/windows/WindowState.h"
#include "corekit/platform/qt/windows/WindowTables.h"

#include <QApplication>
#include <QScreen>
#include <QStyle>

#include <memory>

using namespace corekit::detail;

namespace {

// Widget and handle of a window that is there to be seen.
QWidget* widgetOf(HWND handle)
{
    const Window* const window = requireWindow(handle);
    return window ? window->widget() : nullptr;
}

QMargins frameOf(const QWidget& widget)
{
    const QRect outside = widget.frameGeometry(), inside = widget.geometry();
    return {inside.left() - outside.left(), inside.top() - outside.top(), outside.right() - inside.right(),
            outside.bottom() - inside.bottom()};
}

// Position in the parent's client area or on the screen, with the frame.
QRect placeOf(const Window& window)
{
    if (!window.isChild()) return window.widget()->frameGeometry();
    const Window* const parent = windowTables().find(window.parent());
    return window.widget()->geometry().translated(parent ? -parent->childOrigin() : QPoint());
}

void putAt(Window& window, const QRect& place)
{
    QWidget& widget = *window.widget();
    if (window.isChild()) {
        const Window* const parent = windowTables().find(window.parent());
        widget.setGeometry(place.translated(parent ? parent->childOrigin() : QPoint()));
        return;
    }
    const QRect former = widget.frameGeometry();
    if (place.size() != former.size()) widget.resize(place.marginsRemoved(frameOf(widget)).size());
    if (place.topLeft() != former.topLeft()) widget.move(place.topLeft());
}

void putInOrder(Window& window, HWND after)
{
    QWidget& widget = *window.widget();
    if (after == HWND_TOPMOST || after == HWND_NOTOPMOST) {
        const bool shown = !widget.isHidden();
        if (!window.isChild() &&
            widget.windowFlags().testFlag(Qt::WindowStaysOnTopHint) != (after == HWND_TOPMOST)) {
            widget.setWindowFlag(Qt::WindowStaysOnTopHint, after == HWND_TOPMOST);
            if (shown) widget.show();
        }
        raiseWidget(widget);
    } else if (after == HWND_TOP) {
        raiseWidget(widget);
    } else if (after == HWND_BOTTOM) {
        widget.lower();
    } else if (const Window* const above = windowTables().find(after)) {
        if (above != &window && above->widget() && above->isChild() && window.isChild())
            widget.stackUnder(above->widget());
    }
}

void setVisibleBit(Window& window, bool visible)
{
    const DWORD style = visible ? window.style() | WS_VISIBLE : window.style() & ~WS_VISIBLE;
    setStyleBits(window, style);
}

void showAs(QWidget& widget, int how)
{
    switch (how) {
    case SW_SHOWMINIMIZED:
    case SW_MINIMIZE:
    case SW_SHOWMINNOACTIVE:
        widget.showMinimized();
        break;
    case SW_SHOWMAXIMIZED:
        widget.showMaximized();
        break;
    case SW_SHOWNORMAL:
    case SW_RESTORE:
        widget.showNormal();
        break;
    default:
        widget.show();
    }
}

bool activates(int how)
{
    return how != SW_SHOWNA && how != SW_SHOWNOACTIVATE && how != SW_SHOWMINNOACTIVE && how != SW_MINIMIZE;
}

// Hides or shows, with the messages that go with it.
void setShown(const std::shared_ptr<Window>& window, int how)
{
    const bool show = how != SW_HIDE, isNews = show != ((window->style() & WS_VISIBLE) != 0);
    const HWND handle = window->handle();
    if (isNews) SendMessageA(handle, WM_SHOWWINDOW, show, 0);
    if (!window->isAlive()) return;
    setVisibleBit(*window, show);
    if (!show) {
        forgetCapture(handle);
        if (window->isAlive()) window->widget()->hide();
        return;
    }
    followSizeLimits(*window);
    if (!window->isAlive()) return;
    window->widget()->setAttribute(Qt::WA_ShowWithoutActivating, !activates(how));
    showAs(*window->widget(), how);
    if (window->isAlive()) followSizeLimits(*window); // the frame is known now
    if (!window->isAlive()) return;
    if (!window->isChild()) window->tellPlace();
    if (window->isAlive() && !window->isChild() && activates(how)) SetActiveWindow(handle);
}

POINT shiftBetween(HWND from, HWND to)
{
    POINT shift{0, 0};
    if (from && from != GetDesktopWindow()) ClientToScreen(from, &shift);
    if (to && to != GetDesktopWindow()) ScreenToClient(to, &shift);
    return shift;
}

} // namespace

BOOL ShowWindow(HWND handle, int how)
{
    if (!widgetOf(handle)) return FALSE;
    const std::shared_ptr<Window> window = windowTables().share(handle);
    const BOOL wasVisible = (window->style() & WS_VISIBLE) != 0;
    setShown(window, how);
    return wasVisible;
}

BOOL IsWindowVisible(HWND handle)
{
    const Window* window = IsWindow(handle) ? Window::find(handle) : nullptr;
    while (window && window->style() & WS_VISIBLE) {
        if (!window->isChild()) return TRUE;
        window = windowTables().find(window->parent());
    }
    return FALSE;
}

BOOL IsIconic(HWND handle)
{
    const QWidget* const widget = widgetOf(handle);
    return widget && widget->isMinimized();
}

BOOL IsZoomed(HWND handle)
{
    const QWidget* const widget = widgetOf(handle);
    return widget && widget->isMaximized();
}

BOOL SetWindowPos(HWND handle, HWND after, int x, int y, int width, int height, UINT flags)
{
    if (!widgetOf(handle)) return FALSE;
    const std::shared_ptr<Window> window = windowTables().share(handle);
    WINDOWPOS wanted{handle, after, x, y, width, height, flags};
    SendMessageA(handle, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&wanted));
    if (!window->isAlive()) return FALSE;
    QRect place = placeOf(*window);
    if (!(wanted.flags & SWP_NOMOVE)) place.moveTopLeft({wanted.x, wanted.y});
    if (!(wanted.flags & SWP_NOSIZE)) place.setSize({std::max(wanted.cx, 0), std::max(wanted.cy, 0)});
    if (place != placeOf(*window)) putAt(*window, place);
    if (window->isAlive() && !(wanted.flags & SWP_NOZORDER)) putInOrder(*window, wanted.hwndInsertAfter);
    if (window->isAlive() && wanted.flags & SWP_FRAMECHANGED)
        window->styleChanged(window->style(), window->exStyle());
    if (window->isAlive() && wanted.flags & SWP_HIDEWINDOW) setShown(window, SW_HIDE);
    if (window->isAlive() && wanted.flags & SWP_SHOWWINDOW)
        setShown(window, wanted.flags & SWP_NOACTIVATE ? SW_SHOWNA : SW_SHOW);
    if (window->isAlive()) SendMessageA(handle, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&wanted));
    if (window->isAlive() && (window->isChild() || window->style() & WS_VISIBLE)) window->tellPlace();
    const bool mayActivate = !(wanted.flags & (SWP_NOACTIVATE | SWP_NOZORDER | SWP_HIDEWINDOW));
    if (window->isAlive() && mayActivate && !window->isChild() && window->style() & WS_VISIBLE)
        SetActiveWindow(handle);
    return TRUE;
}

BOOL MoveWindow(HWND handle, int x, int y, int width, int height, BOOL)
{
    return SetWindowPos(handle, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

BOOL BringWindowToTop(HWND handle)
{
    return SetWindowPos(handle, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
}

BOOL GetWindowRect(HWND handle, RECT* rect)
{
    if (!rect) return FALSE;
    QRect place;
    if (handle == GetDesktopWindow()) {
        if (const QScreen* const screen = QGuiApplication::primaryScreen()) place = screen->geometry();
    } else {
        const QWidget* const widget = widgetOf(handle);
        if (!widget) return FALSE;
        place = widget->isWindow() ? widget->frameGeometry()
                                   : QRect(widget->mapToGlobal(QPoint()), widget->size());
    }
    *rect = {place.left(), place.top(), place.left() + place.width(), place.top() + place.height()};
    return TRUE;
}

BOOL GetClientRect(HWND handle, RECT* rect)
{
    if (!rect) return FALSE;
    if (handle == GetDesktopWindow()) return GetWindowRect(handle, rect);
    const Window* const window = requireWindow(handle);
    if (!window) return FALSE;
    const QRect inside = window->client();
    *rect = {0, 0, std::max(inside.width(), 0), std::max(inside.height(), 0)};
    return TRUE;
}

BOOL ClientToScreen(HWND handle, POINT* point)
{
    const Window* const window = requireWindow(handle);
    if (!window || !window->widget() || !point) return FALSE;
    const QPoint place = window->widget()->mapToGlobal(window->toWidget(*point));
    *point = {place.x(), place.y()};
    return TRUE;
}

BOOL ScreenToClient(HWND handle, POINT* point)
{
    const Window* const window = requireWindow(handle);
    if (!window || !window->widget() || !point) return FALSE;
    *point = window->toClient(window->widget()->mapFromGlobal(QPoint(point->x, point->y)));
    return TRUE;
}

int MapWindowPoints(HWND from, HWND to, POINT* points, UINT count)
{
    const POINT shift = shiftBetween(from, to);
    for (UINT i = 0; points && i < count; ++i) {
        points[i].x += shift.x;
        points[i].y += shift.y;
    }
    return static_cast<int>(MAKELONG(static_cast<WORD>(shift.x), static_cast<WORD>(shift.y)));
}

BOOL AdjustWindowRectEx(RECT* rect, DWORD style, BOOL, DWORD exStyle)
{
    if (!rect) return FALSE;
    const bool framed = (style & WS_CAPTION) == WS_CAPTION && !(style & WS_CHILD);
    const int edge = exStyle & WS_EX_CLIENTEDGE                     ? 2
                     : exStyle & WS_EX_STATICEDGE                   ? 1
                     : style & (WS_BORDER | WS_DLGFRAME) && !framed ? 1
                                                                    : 0;
    *rect = {rect->left - edge, rect->top - edge, rect->right + edge, rect->bottom + edge};
    const int bar =
        QCoreApplication::instance() ? QApplication::style()->pixelMetric(QStyle::PM_ScrollBarExtent) : 0;
    if (style & WS_VSCROLL) rect->right += bar;
    if (style & WS_HSCROLL) rect->bottom += bar;
    return TRUE;
}

namespace {
using Positions = std::vector<WINDOWPOS>;
}

HDWP BeginDeferWindowPos(int count)
{
    auto positions = std::make_unique<Positions>();
    if (count > 0 && count < 0x10000) positions->reserve(static_cast<std::size_t>(count));
    return reinterpret_cast<HDWP>(positions.release());
}

HDWP DeferWindowPos(HDWP positions, HWND window, HWND after, int x, int y, int width, int height, UINT flags)
{
    if (positions)
        reinterpret_cast<Positions*>(positions)->push_back({window, after, x, y, width, height, flags});
    return positions;
}

BOOL EndDeferWindowPos(HDWP handle)
{
    const std::unique_ptr<Positions> positions(reinterpret_cast<Positions*>(handle));
    if (!positions) return FALSE;
    for (const WINDOWPOS& p : *positions)
        if (IsWindow(p.hwnd)) SetWindowPos(p.hwnd, p.hwndInsertAfter, p.x, p.y, p.cx, p.cy, p.flags);
    return TRUE;
}

BOOL EnableWindow(HWND handle, BOOL enable)
{
    const std::shared_ptr<Window> window = requireWindow(handle) ? windowTables().share(handle) : nullptr;
    if (!window) return FALSE;
    const bool wasDisabled = window->style() & WS_DISABLED;
    if (wasDisabled == !enable) return wasDisabled;
    if (!enable) {
        SendMessageA(handle, WM_CANCELMODE, 0, 0);
        forgetCapture(handle);
    }
    if (!window->isAlive()) return wasDisabled;
    setStyleBits(*window, enable ? window->style() & ~WS_DISABLED : window->style() | WS_DISABLED);
    if (window->isAlive()) SendMessageA(handle, WM_ENABLE, enable != 0, 0);
    return wasDisabled;
}

BOOL IsWindowEnabled(HWND handle)
{
    const Window* const window = requireWindow(handle);
    return window && !(window->style() & WS_DISABLED);
}
