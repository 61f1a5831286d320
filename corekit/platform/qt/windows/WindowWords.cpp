// The words and texts of a window.
#include "corekit/platform/CodePages.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/drawing/IconObject.h"
#include "corekit/platform/qt/windows/ToolkitThread.h"
#include "corekit/platform/qt/windows/WindowClass.h"
#include "corekit/platform/qt/windows/WindowState.h"
#include "corekit/platform/qt/windows/WindowTables.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace corekit::detail {

class WindowWords {
public:
    static LONG_PTR get(const Window& window, int index)
    {
        switch (index) {
        case GWLP_WNDPROC:
            return reinterpret_cast<LONG_PTR>(window.m_procedure);
        case GWLP_HINSTANCE:
            return reinterpret_cast<LONG_PTR>(window.m_instance);
        case GWLP_HWNDPARENT:
            return reinterpret_cast<LONG_PTR>(window.m_parent);
        case GWLP_ID:
            return static_cast<LONG_PTR>(window.m_id);
        case GWL_STYLE:
            return static_cast<LONG_PTR>(window.m_style);
        case GWL_EXSTYLE:
            return static_cast<LONG_PTR>(window.m_exStyle);
        case GWLP_USERDATA:
            return window.m_userData;
        default:
            return getExtra(window, index);
        }
    }

    static void set(Window& window, int index, LONG_PTR value)
    {
        switch (index) {
        case GWLP_WNDPROC:
            window.m_procedure = reinterpret_cast<WNDPROC>(value);
            break;
        case GWLP_HINSTANCE:
            window.m_instance = reinterpret_cast<HINSTANCE>(value);
            break;
        case GWLP_HWNDPARENT:
            setOwner(window, reinterpret_cast<HWND>(value));
            break;
        case GWLP_ID:
            window.m_id = static_cast<UINT_PTR>(value);
            break;
        case GWL_STYLE:
            setStyles(window, static_cast<DWORD>(value), window.m_exStyle);
            break;
        case GWL_EXSTYLE:
            setStyles(window, window.m_style, static_cast<DWORD>(value));
            break;
        case GWLP_USERDATA:
            window.m_userData = value;
            break;
        default:
            if (hasExtra(window, index))
                std::memcpy(&window.m_extra[static_cast<std::size_t>(index)], &value, sizeof value);
        }
    }

    static void setStyles(Window& window, DWORD style, DWORD exStyle)
    {
        const DWORD formerStyle = std::exchange(window.m_style, style);
        const DWORD formerExStyle = std::exchange(window.m_exStyle, exStyle);
        if (formerStyle != style || formerExStyle != exStyle) window.styleChanged(formerStyle, formerExStyle);
    }

    static void setParent(Window& window, HWND parent) { window.m_parent = parent; }
    static HICON& icon(Window& window, WPARAM which) { return window.m_icons[which == ICON_BIG]; }

private:
    static bool hasExtra(const Window& window, int index)
    {
        const bool fits =
            index >= 0 && static_cast<std::size_t>(index) + sizeof(LONG_PTR) <= window.m_extra.size();
        if (!fits) SetLastError(ERROR_INVALID_PARAMETER);
        return fits;
    }
    static LONG_PTR getExtra(const Window& window, int index)
    {
        LONG_PTR value = 0;
        if (hasExtra(window, index))
            std::memcpy(&value, &window.m_extra[static_cast<std::size_t>(index)], sizeof value);
        return value;
    }
    static void setOwner(Window& window, HWND owner)
    {
        window.m_parent = owner;
        const Window* const above = Window::find(owner);
        if (window.isChild() || !window.m_widget) return;
        const bool wasShown = window.m_widget->isVisible();
        window.m_widget->setParent(above ? above->widget()->window() : nullptr,
                                   window.m_widget->windowFlags());
        if (wasShown) window.m_widget->show();
    }
};

void setStyleBits(Window& window, DWORD style) { WindowWords::setStyles(window, style, window.exStyle()); }
void setParentWord(Window& window, HWND parent) { WindowWords::setParent(window, parent); }

LRESULT defaultIcon(Window& window, UINT message, WPARAM which, LPARAM icon)
{
    HICON& kept = WindowWords::icon(window, which);
    if (message == WM_GETICON) return reinterpret_cast<LRESULT>(kept);
    const HICON former = std::exchange(kept, reinterpret_cast<HICON>(icon));
    showIcon(window);
    return reinterpret_cast<LRESULT>(former);
}

void showIcon(Window& window)
{
    if (window.isChild() || !window.widget()) return;
    QIcon shown = toolkitIcon(WindowWords::icon(window, ICON_BIG));
    const QIcon small = toolkitIcon(WindowWords::icon(window, ICON_SMALL));
    if (shown.isNull())
        shown = small;
    else
        for (const QSize size : small.availableSizes()) shown.addPixmap(small.pixmap(size));
    window.widget()->setWindowIcon(shown.isNull() ? toolkitIcon(window.windowClass().icon) : shown);
}

} // namespace corekit::detail

using namespace corekit::detail;

LONG_PTR GetWindowLongPtrA(HWND handle, int index)
{
    const Window* const window = requireWindow(handle);
    return window ? WindowWords::get(*window, index) : 0;
}

LONG_PTR SetWindowLongPtrA(HWND handle, int index, LONG_PTR value)
{
    Window* const window = requireWindow(handle);
    if (!window) return 0;
    const LONG_PTR former = WindowWords::get(*window, index);
    WindowWords::set(*window, index, value);
    return former;
}

LONG GetWindowLongA(HWND window, int index) { return static_cast<LONG>(GetWindowLongPtrA(window, index)); }
LONG SetWindowLongA(HWND window, int index, LONG value)
{
    return static_cast<LONG>(SetWindowLongPtrA(window, index, value));
}

int GetDlgCtrlID(HWND handle)
{
    const Window* const window = requireWindow(handle);
    return window && window->isChild() ? static_cast<int>(window->id()) : 0;
}

BOOL SetWindowTextA(HWND handle, const char* text)
{
    if (!requireWindow(handle)) return FALSE;
    return SendMessageA(handle, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text ? text : "")) != 0;
}

BOOL SetWindowTextW(HWND handle, const WCHAR* text)
{
    Window* const window = requireWindow(handle);
    if (!window) return FALSE;
    window->setText(text ? QString::fromUtf16(text) : QString());
    return TRUE;
}

int GetWindowTextA(HWND handle, char* buffer, int size)
{
    if (buffer && size > 0) *buffer = 0;
    if (!requireWindow(handle) || !buffer || size < 1) return 0;
    return static_cast<int>(
        SendMessageA(handle, WM_GETTEXT, static_cast<WPARAM>(size), reinterpret_cast<LPARAM>(buffer)));
}

int GetWindowTextW(HWND handle, WCHAR* buffer, int size)
{
    if (buffer && size > 0) *buffer = 0;
    const Window* const window = requireWindow(handle);
    if (!window || !buffer || size < 1) return 0;
    const QString text = window->text();
    const int length = std::min(static_cast<int>(text.size()), size - 1);
    std::copy_n(reinterpret_cast<const WCHAR*>(text.utf16()), length, buffer);
    buffer[length] = 0;
    return length;
}

int GetWindowTextLengthA(HWND handle)
{
    return requireWindow(handle) ? static_cast<int>(SendMessageA(handle, WM_GETTEXTLENGTH, 0, 0)) : 0;
}

int GetWindowTextLengthW(HWND handle)
{
    const Window* const window = requireWindow(handle);
    return window ? static_cast<int>(window->text().size()) : 0;
}
