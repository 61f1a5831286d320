#include "corekit/platform/qt/windows/FrameDragging.h"

#include "corekit/platform/Cursors.h"
#include "corekit/platform/FrameParts.h"
#include "corekit/platform/Input.h"
#include "corekit/platform/qt/windows/WindowState.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace corekit::detail {
namespace {

constexpr int leastSize = 1, largestSize = 32767;

struct FrameDrag {
    HWND window = nullptr;
    int part = HTNOWHERE;
    POINT from{};
    RECT at{}; // where it was
};
constinit FrameDrag drag{};

bool isSide(int part) { return part >= HTLEFT && part <= HTBOTTOMRIGHT; }
bool hasLeft(int part) { return part == HTLEFT || part == HTTOPLEFT || part == HTBOTTOMLEFT; }
bool hasRight(int part) { return part == HTRIGHT || part == HTTOPRIGHT || part == HTBOTTOMRIGHT; }
bool hasTop(int part) { return part == HTTOP || part == HTTOPLEFT || part == HTTOPRIGHT; }
bool hasBottom(int part) { return part >= HTBOTTOM && part <= HTBOTTOMRIGHT; }

Qt::Edges edgesOf(int part)
{
    Qt::Edges edges;
    edges.setFlag(Qt::LeftEdge, hasLeft(part));
    edges.setFlag(Qt::RightEdge, hasRight(part));
    edges.setFlag(Qt::TopEdge, hasTop(part));
    edges.setFlag(Qt::BottomEdge, hasBottom(part));
    return edges;
}

MINMAXINFO limitsOf(const Window& window)
{
    MINMAXINFO info{};
    info.ptMinTrackSize = {leastSize, leastSize};
    info.ptMaxTrackSize = {largestSize, largestSize};
    window.send(WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
    return info;
}

RECT moved(RECT place, POINT by)
{
    return {place.left + by.x, place.top + by.y, place.right + by.x, place.bottom + by.y};
}

// The side that does not move stays where it is.
RECT sized(RECT place, int part, POINT by, const MINMAXINFO& limits)
{
    const auto within = [](LONG size, LONG least, LONG most) {
        return std::clamp(size, std::max<LONG>(least, leastSize), std::max<LONG>(most, leastSize));
    };
    LONG width = place.right - place.left, height = place.bottom - place.top;
    width += hasRight(part) ? by.x : hasLeft(part) ? -by.x : 0;
    height += hasBottom(part) ? by.y : hasTop(part) ? -by.y : 0;
    width =
        within(width, limits.ptMinTrackSize.x, std::max(limits.ptMinTrackSize.x, limits.ptMaxTrackSize.x));
    height =
        within(height, limits.ptMinTrackSize.y, std::max(limits.ptMinTrackSize.y, limits.ptMaxTrackSize.y));
    if (hasLeft(part))
        place.left = place.right - width;
    else
        place.right = place.left + width;
    if (hasTop(part))
        place.top = place.bottom - height;
    else
        place.bottom = place.top + height;
    return place;
}

void put(HWND handle, RECT place)
{
    const Window* const window = Window::find(handle);
    if (!window) return;
    POINT corner{place.left, place.top};
    if (window->isChild()) ScreenToClient(window->parent(), &corner);
    MoveWindow(handle, corner.x, corner.y, place.right - place.left, place.bottom - place.top, TRUE);
}

void step(POINT to)
{
    const std::shared_ptr<Window> window = Window::share(drag.window);
    if (!window) return;
    const POINT by{to.x - drag.from.x, to.y - drag.from.y};
    const int part = drag.part;
    RECT place = isSide(part) ? sized(drag.at, part, by, limitsOf(*window)) : moved(drag.at, by);
    if (isSide(part))
        window->send(WM_SIZING, static_cast<WPARAM>(part - HTLEFT) + WMSZ_LEFT,
                     reinterpret_cast<LPARAM>(&place));
    else
        window->send(WM_MOVING, 0, reinterpret_cast<LPARAM>(&place));
    if (drag.window == window->handle() && window->isAlive()) put(drag.window, place);
}

// Where programs do not place their windows, the desktop drags.
bool handOver(const Window& window, int part)
{
    if (!QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) return false;
    QWindow* const surface = window.isChild() ? nullptr : window.widget()->windowHandle();
    if (!surface) return false;
    return isSide(part) ? surface->startSystemResize(edgesOf(part)) : surface->startSystemMove();
}

} // namespace

int partUnder(const Window& window, QPoint onScreen)
{
    if (window.paintsItself()) return HTCLIENT;
    return static_cast<int>(window.send(
        WM_NCHITTEST, 0,
        static_cast<LPARAM>(MAKELONG(static_cast<WORD>(onScreen.x()), static_cast<WORD>(onScreen.y())))));
}

bool dragFrame(const QMouseEvent& event)
{
    if (!drag.window) return false;
    if (GetCapture() != drag.window) {
        endFrameDrag(drag.window);
        return false;
    }
    const QPoint at = event.globalPosition().toPoint();
    if (event.type() == QEvent::MouseMove) step({at.x(), at.y()});
    if (event.type() == QEvent::MouseButtonRelease && event.button() == Qt::LeftButton)
        endFrameDrag(drag.window);
    return true;
}

void endFrameDrag(HWND window)
{
    if (!window || drag.window != window) return;
    drag = {};
    if (GetCapture() == window) ReleaseCapture();
    if (Window::find(window)) SendMessageA(window, WM_EXITSIZEMOVE, 0, 0);
}

bool giveUpFrameDrag()
{
    const FrameDrag begun = drag;
    if (!begun.window) return false;
    put(begun.window, begun.at);
    endFrameDrag(begun.window);
    return true;
}

LRESULT pressFrame(Window& window, int part, LPARAM onScreen)
{
    if ((part != HTCAPTION && !isSide(part)) || !window.widget() || window.widget()->isMaximized()) return 0;
    if (!window.isChild()) SetActiveWindow(window.handle());
    if (!window.isAlive() || handOver(window, part)) return 0;
    RECT place{};
    GetWindowRect(window.handle(), &place);
    endFrameDrag(drag.window);
    SetCapture(window.handle());
    if (!window.isAlive()) return 0;
    const auto packed = static_cast<DWORD_PTR>(onScreen);
    drag = {window.handle(),
            part,
            {static_cast<SHORT>(LOWORD(packed)), static_cast<SHORT>(HIWORD(packed))},
            place};
    if (!onScreen) GetCursorPos(&drag.from);
    return window.send(WM_ENTERSIZEMOVE);
}

LRESULT pressFrameTwice(Window& window, int part)
{
    if (part != HTCAPTION || window.isChild() || !(window.style() & WS_MAXIMIZEBOX)) return 0;
    return window.send(WM_SYSCOMMAND, IsZoomed(window.handle()) ? SC_RESTORE : SC_MAXIMIZE);
}

bool setFrameCursor(int part)
{
    if (!isSide(part)) return false;
    const char* const shapes[] = {IDC_SIZEWE,   IDC_SIZEWE, IDC_SIZENS,   IDC_SIZENWSE,
                                  IDC_SIZENESW, IDC_SIZENS, IDC_SIZENESW, IDC_SIZENWSE};
    SetCursor(LoadCursorA(nullptr, shapes[part - HTLEFT]));
    return true;
}

void followSizeLimits(Window& window)
{
    if (window.isChild() || !(window.style() & WS_THICKFRAME)) return;
    const MINMAXINFO limits = limitsOf(window);
    QWidget* const widget = window.widget();
    if (!widget) return;
    const QSize frame = widget->frameGeometry().size() - widget->size();
    const auto inside = [](LONG size, int edges) {
        return std::clamp<int>(static_cast<int>(size) - edges, 0, QWIDGETSIZE_MAX);
    };
    if (limits.ptMinTrackSize.x > leastSize)
        widget->setMinimumWidth(inside(limits.ptMinTrackSize.x, frame.width()));
    if (limits.ptMinTrackSize.y > leastSize)
        widget->setMinimumHeight(inside(limits.ptMinTrackSize.y, frame.height()));
    if (limits.ptMaxTrackSize.x < largestSize)
        widget->setMaximumWidth(inside(limits.ptMaxTrackSize.x, frame.width()));
    if (limits.ptMaxTrackSize.y < largestSize)
        widget->setMaximumHeight(inside(limits.ptMaxTrackSize.y, frame.height()));
}

} // namespace corekit::detail
