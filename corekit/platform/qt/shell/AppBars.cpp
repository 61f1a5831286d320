#include "corekit/platform/AppBars.h"

#include "corekit/platform/DebugOutput.h"
#include "corekit/platform/Messages.h"
#include "corekit/platform/qt/shell/FullScreenWatch.h"
#include "corekit/platform/qt/windows/ToolkitThread.h"
#include "corekit/platform/qt/windows/Window.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <memory>
#include <vector>

using namespace corekit::detail;

namespace {

struct Bar {
    HWND window;
    UINT callback;
    UINT edge = ABE_BOTTOM + 1; // of its strip
    QRect strip;
    WId toldTo = 0; // the native window that the desktop knows the strip of
};

class Bars {
public:
    UINT_PTR answer(DWORD message, APPBARDATA& data)
    {
        std::erase_if(m_bars, [](const Bar& bar) { return !IsWindow(bar.window); });
        for (HWND& hiding : m_hiding)
            if (!IsWindow(hiding)) hiding = nullptr;
        if (m_bars.empty()) m_watch.reset();
        if (message == ABM_GETSTATE) return 0;
        if (message == ABM_GETAUTOHIDEBAR)
            return data.uEdge <= ABE_BOTTOM ? reinterpret_cast<UINT_PTR>(m_hiding[data.uEdge]) : 0;
        const Window* const window = Window::find(data.hWnd);
        if (!window || !window->widget()) return 0;
        if (message == ABM_NEW) return add(data);
        const auto bar = std::ranges::find(m_bars, data.hWnd, &Bar::window);
        return bar == m_bars.end() ? 0 : answer(message, data, *bar, *window->widget());
    }

private:
    UINT_PTR add(const APPBARDATA& data)
    {
        if (std::ranges::find(m_bars, data.hWnd, &Bar::window) != m_bars.end()) return 0;
        m_bars.push_back({data.hWnd, data.uCallbackMessage, ABE_BOTTOM + 1, {}, 0});
        const bool isUsable = XStruts().isUsable();
        if (isUsable && !m_watch)
            m_watch = std::make_unique<FullScreenWatch>([this](bool isOpen) {
                for (const Bar& bar : m_bars) tellOfFullScreen(bar, isOpen);
            });
        if (m_watch && m_watch->isOpen()) tellOfFullScreen(m_bars.back(), true);
        static bool isTold = false;
        if (!isUsable && !std::exchange(isTold, true))
            OutputDebugStringA(
                "[Application Bar] This desktop reserves no room: the bar is a plain window.\n");
        return 1;
    }

    UINT_PTR answer(DWORD message, APPBARDATA& data, Bar& bar, const QWidget& widget)
    {
        switch (message) {
        case ABM_REMOVE:
            setStrip(bar, widget, ABE_BOTTOM + 1, {});
            for (UINT edge = ABE_LEFT; edge <= ABE_BOTTOM; ++edge) hide(bar, widget, edge, false);
            std::erase_if(m_bars, [&](const Bar& each) { return each.window == data.hWnd; });
            if (m_bars.empty()) m_watch.reset();
            return 1;
        case ABM_QUERYPOS:
            trim(data, widget);
            return 1;
        case ABM_SETPOS:
            trim(data, widget);
            setStrip(
                bar, widget, data.uEdge,
                QRect(data.rc.left, data.rc.top, data.rc.right - data.rc.left, data.rc.bottom - data.rc.top));
            return 1;
        case ABM_ACTIVATE:
        case ABM_WINDOWPOSCHANGED:
            if (bar.toldTo && bar.toldTo != widget.winId()) tell(bar, widget); // the toolkit made it anew
            return 1;
        case ABM_SETAUTOHIDEBAR:
            return data.uEdge <= ABE_BOTTOM && hide(bar, widget, data.uEdge, data.lParam != 0);
        default:
            return 0;
        }
    }

    bool hide(const Bar& bar, const QWidget& widget, UINT edge, bool takes)
    {
        HWND& hiding = m_hiding[edge];
        const XStruts desktop;
        if (!takes) {
            if (hiding != bar.window) return false;
            hiding = nullptr;
            if (desktop.isUsable()) desktop.giveBackEdge(widget, edge);
            return true;
        }
        if (hiding && hiding != bar.window) return false;
        if (desktop.isUsable() && !desktop.takeEdge(widget, edge)) return false;
        hiding = bar.window;
        return true;
    }

    // Moves the rectangle's outer side past the strips of others on that edge; its breadth stays.
    void trim(APPBARDATA& data, const QWidget& widget) const
    {
        const QRect screen = QGuiApplication::primaryScreen()->geometry();
        QMargins taken;
        const XStruts desktop;
        if (desktop.isUsable()) taken = desktop.reservedBesides(widget);
        RECT& rect = data.rc;
        if (rect.right <= rect.left || rect.bottom <= rect.top || data.uEdge > ABE_BOTTOM) return;
        for (const Bar& other : m_bars) {
            if (other.window == data.hWnd || other.edge != data.uEdge) continue;
            const QRect& strip = other.strip;
            if (data.uEdge == ABE_LEFT)
                taken.setLeft(std::max(taken.left(), strip.right() + 1 - screen.left()));
            if (data.uEdge == ABE_TOP) taken.setTop(std::max(taken.top(), strip.bottom() + 1 - screen.top()));
            if (data.uEdge == ABE_RIGHT)
                taken.setRight(std::max(taken.right(), screen.right() + 1 - strip.left()));
            if (data.uEdge == ABE_BOTTOM)
                taken.setBottom(std::max(taken.bottom(), screen.bottom() + 1 - strip.top()));
        }
        const int right = screen.left() + screen.width(), bottom = screen.top() + screen.height();
        const LONG width = rect.right - rect.left, height = rect.bottom - rect.top;
        const bool isWhole = width >= screen.width() && height >= screen.height(); // breadth not chosen yet
        if (data.uEdge == ABE_LEFT && rect.left < screen.left() + taken.left()) {
            rect.left = screen.left() + taken.left();
            if (!isWhole) rect.right = rect.left + width;
        } else if (data.uEdge == ABE_TOP && rect.top < screen.top() + taken.top()) {
            rect.top = screen.top() + taken.top();
            if (!isWhole) rect.bottom = rect.top + height;
        } else if (data.uEdge == ABE_RIGHT && rect.right > right - taken.right()) {
            rect.right = right - taken.right();
            if (!isWhole) rect.left = rect.right - width;
        } else if (data.uEdge == ABE_BOTTOM && rect.bottom > bottom - taken.bottom()) {
            rect.bottom = bottom - taken.bottom();
            if (!isWhole) rect.top = rect.bottom - height;
        }
    }

    void setStrip(Bar& bar, const QWidget& widget, UINT edge, const QRect& strip)
    {
        if (bar.edge == edge && bar.strip == strip) return;
        bar.edge = edge;
        bar.strip = strip;
        tell(bar, widget);
        for (const Bar& other : m_bars)
            if (other.window != bar.window && other.callback)
                PostMessageA(other.window, other.callback, ABN_POSCHANGED, 0);
    }

    static void tellOfFullScreen(const Bar& bar, bool isOpen)
    {
        if (bar.callback) PostMessageA(bar.window, bar.callback, ABN_FULLSCREENAPP, isOpen);
    }

    static void tell(Bar& bar, const QWidget& widget)
    {
        const XStruts desktop;
        if (!desktop.isUsable()) return;
        desktop.reserve(widget, bar.edge, bar.strip);
        bar.toldTo = widget.winId();
    }

    std::vector<Bar> m_bars;
    HWND m_hiding[4] = {};
    std::unique_ptr<FullScreenWatch> m_watch; // while there are bars
};

} // namespace

UINT_PTR SHAppBarMessage(DWORD message, APPBARDATA* data)
{
    static Bars bars;
    if (!data || !onToolkitThread() || !qGuiApp || !QGuiApplication::primaryScreen()) return 0;
    return bars.answer(message, *data);
}
