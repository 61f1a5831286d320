// How windows begin and end.
#include "corekit/platform/Errors.h"
#include "corekit/platform/Input.h"
#include "corekit/platform/posix/user/WindowTable.h"
#include "corekit/platform/qt/windows/ApplicationFilter.h"
#include "corekit/platform/qt/windows/BareWindow.h"
#include "corekit/platform/qt/windows/ToolkitThread.h"
#include "corekit/platform/qt/windows/WindowClass.h"
#include "corekit/platform/qt/windows/WindowState.h"
#include "corekit/platform/qt/windows/WindowTables.h"
#include "corekit/platform/Toolkit.h"

#include <QCoreApplication>

#include <utility>

namespace corekit::detail {

namespace {

constinit CreationHook creationHook = nullptr;

Qt::WindowFlags flagsOf(DWORD style, DWORD exStyle)
{
    // A bare pop-up that never becomes active is not the window manager's either.
    constexpr DWORD passive = WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE;
    const bool isPassive = (exStyle & passive) == passive && (style & WS_CAPTION) != WS_CAPTION;
    Qt::WindowFlags flags = isPassive ? Qt::ToolTip : exStyle & WS_EX_TOOLWINDOW ? Qt::Tool : Qt::Window;
    if ((style & WS_CAPTION) != WS_CAPTION) {
        if (style & WS_POPUP) flags |= Qt::FramelessWindowHint;
    } else {
        flags |= Qt::CustomizeWindowHint | Qt::WindowTitleHint;
        if (style & WS_SYSMENU) flags |= Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
        if (style & WS_MINIMIZEBOX) flags |= Qt::WindowMinimizeButtonHint;
        if (style & WS_MAXIMIZEBOX) flags |= Qt::WindowMaximizeButtonHint;
        if (exStyle & WS_EX_DLGMODALFRAME && !(style & (WS_MINIMIZEBOX | WS_MAXIMIZEBOX)))
            flags |= Qt::Dialog;
    }
    if (exStyle & WS_EX_TOPMOST) flags |= Qt::WindowStaysOnTopHint;
    if (exStyle & WS_EX_NOACTIVATE) flags |= Qt::WindowDoesNotAcceptFocus;
    return flags;
}

} // namespace

// Makes one window: object, handle, words, first messages, place.
class WindowMaker {
public:
    WindowMaker(WindowClass& windowClass, const CREATESTRUCTA& create)
        : m_class(windowClass), m_create(create)
    {
    }

    HWND run()
    {
        m_window = make();
        if (!m_window || !m_window->widget()) return nullptr;
        takeOver();
        if (creationHook) creationHook(m_handle);
        place();
        if (!announce()) return nullptr;
        return m_handle;
    }

private:
    bool isChild() const { return m_create.style & static_cast<LONG>(WS_CHILD); }

    std::shared_ptr<Window> make()
    {
        Window* const parent = Window::find(m_create.hwndParent);
        QWidget* above = parent ? parent->widget() : nullptr;
        if (parent && isChild()) above = parent->childArea();
        if (parent && !isChild() && above) above = above->window();
        if (m_class.make) return m_class.make(m_create, above);
        return std::make_shared<BareWindow>(above);
    }

    void takeOver()
    {
        QWidget& widget = *m_window->widget();
        m_handle = openWindow([window = m_window.get()](
                                  const MSG& message) { return WindowProcedures::call(*window, message); },
                              m_window);
        m_window->m_handle = m_handle;
        m_window->m_alive = true;
        m_window->m_class = &m_class;
        m_window->m_procedure = m_class.procedure;
        m_window->m_extra.resize(static_cast<std::size_t>(m_class.extraBytes));
        m_window->m_style = static_cast<DWORD>(m_create.style) & ~WS_VISIBLE;
        m_window->m_exStyle = m_create.dwExStyle;
        m_window->m_instance = m_create.hInstance;
        m_window->m_parent = m_create.hwndParent;
        if (isChild()) m_window->m_id = reinterpret_cast<UINT_PTR>(m_create.hMenu);
        windowTables().add(*m_window);
        if (!isChild())
            widget.setWindowFlags(flagsOf(m_window->m_style, m_window->m_exStyle));
        else
            widget.setWindowFlags(Qt::Widget);
        widget.setMouseTracking(true);
        if (m_window->m_exStyle & WS_EX_ACCEPTFILES) widget.setAcceptDrops(true);
        m_window->begin(m_create);
        m_window->setText(fromNarrow(m_create.lpszName));
        if (m_class.icon) showIcon(*m_window);
        if (m_window->m_style & WS_DISABLED) m_window->showEnabled(false);
    }

    void place()
    {
        QWidget& widget = *m_window->widget();
        const bool anySize = m_create.cx == CW_USEDEFAULT, anyPlace = m_create.x == CW_USEDEFAULT;
        const QSize size(anySize ? 640 : std::max(m_create.cx, 0), anySize ? 480 : std::max(m_create.cy, 0));
        if (isChild()) {
            const Window* const parent = Window::find(m_create.hwndParent);
            const QPoint origin = parent ? parent->childOrigin() : QPoint();
            widget.setGeometry(
                QRect(origin + QPoint(anyPlace ? 0 : m_create.x, anyPlace ? 0 : m_create.y), size));
            widget.lower(); // the first child is the topmost
            return;
        }
        widget.resize(size);
        if (!anyPlace) widget.move(m_create.x, m_create.y);
    }

    // False if the window refused to be made, and is gone.
    bool announce()
    {
        const LPARAM create = reinterpret_cast<LPARAM>(&m_create);
        m_window->m_tells = true;
        const bool accepted = SendMessageA(m_handle, WM_NCCREATE, 0, create) && isThere() &&
                              SendMessageA(m_handle, WM_CREATE, 0, create) != -1 && isThere();
        if (!accepted) {
            DestroyWindow(m_handle);
            return false;
        }
        if (isChild()) {
            m_window->tellPlace();
            if (isThere() && !(m_create.dwExStyle & WS_EX_NOPARENTNOTIFY))
                SendMessageA(m_create.hwndParent, WM_PARENTNOTIFY,
                             MAKELONG(WM_CREATE, static_cast<WORD>(m_window->m_id)),
                             reinterpret_cast<LPARAM>(m_handle));
        }
        if (isThere() && static_cast<DWORD>(m_create.style) & WS_VISIBLE)
            ShowWindow(m_handle, static_cast<DWORD>(m_create.style) & WS_MAXIMIZE   ? SW_SHOWMAXIMIZED
                                 : static_cast<DWORD>(m_create.style) & WS_MINIMIZE ? SW_SHOWMINIMIZED
                                                                                    : SW_SHOW);
        return isThere();
    }
    bool isThere() const { return m_window->isAlive(); }

    WindowClass& m_class;
    const CREATESTRUCTA& m_create;
    std::shared_ptr<Window> m_window;
    HWND m_handle = nullptr;
};

// Takes one window down, with those that it holds and owns.
class WindowEnd {
public:
    static bool run(HWND handle)
    {
        const std::shared_ptr<Window> window = windowTables().share(handle);
        if (!window || window->m_ending) return false;
        window->m_ending = true;
        if (window->isChild()) tellParent(*window);
        if (window->m_alive && window->m_widget) hide(*window);
        for (const HWND owned : ownedBy(handle)) run(owned);
        finish(window);
        return true;
    }

private:
    static void tellParent(const Window& window)
    {
        if (window.m_exStyle & WS_EX_NOPARENTNOTIFY) return;
        SendMessageA(window.m_parent, WM_PARENTNOTIFY, MAKELONG(WM_DESTROY, static_cast<WORD>(window.m_id)),
                     reinterpret_cast<LPARAM>(window.m_handle));
    }

    static void hide(Window& window)
    {
        forgetInput(window.m_handle);
        if (window.m_widget && !window.m_widget->isHidden()) window.m_widget->hide();
    }

    static std::vector<HWND> ownedBy(HWND owner)
    {
        std::vector<HWND> owned;
        for (const HWND handle : windowTables().handles()) {
            const Window* const window = windowTables().find(handle);
            if (window && !window->isChild() && window->m_parent == owner) owned.push_back(handle);
        }
        return owned;
    }

    static void finish(const std::shared_ptr<Window>& window)
    {
        const HWND handle = window->m_handle;
        SendMessageA(handle, WM_DESTROY, 0, 0);
        for (const HWND child : childrenOf(*window)) {
            if (const auto below = windowTables().share(child); below && !below->m_ending) {
                below->m_ending = true;
                forgetInput(child);
                finish(below);
            }
        }
        SendMessageA(handle, WM_NCDESTROY, 0, 0);
        forgetInput(handle);
        forgetMenu(handle);
        window->m_alive = false;
        windowTables().removeWidget(window->m_widget.data());
        windowTables().remove(handle);
        closeWindow(handle);
        if (window->m_widget) {
            // A control may be in the middle of drawing itself: it stays for as long as its widget.
            if (window->paintsItself())
                QObject::connect(window->m_widget, &QObject::destroyed, qApp, [window] {});
            window->m_widget->deleteLater();
        }
    }
};

bool endWindow(HWND handle) { return WindowEnd::run(handle); }

LRESULT WindowProcedures::call(Window& window, const MSG& message)
{
    return window.m_procedure
               ? window.m_procedure(message.hwnd, message.message, message.wParam, message.lParam)
               : 0;
}

CreationHook setCreationHook(CreationHook hook) { return std::exchange(creationHook, hook); }

} // namespace corekit::detail

using namespace corekit::detail;

HWND CreateWindowExA(DWORD exStyle, const char* className, const char* name, DWORD style, int x, int y,
                     int width, int height, HWND parent, HMENU menu, HINSTANCE instance, void* parameter)
{
    if (!onToolkitThread()) return nullptr;
    if (!ToolkitIsRunning() && !StartToolkit()) {
        SetLastError(ERROR_DEV_NOT_EXIST);
        return nullptr;
    }
    startWindows();
    WindowClass* const windowClass = findClass(className);
    if (!windowClass) {
        SetLastError(ERROR_CANNOT_FIND_WND_CLASS);
        return nullptr;
    }
    const bool isDesktop = parent == GetDesktopWindow();
    if (isDesktop) parent = nullptr;
    if ((style & WS_CHILD && !parent) || (parent && !windowTables().find(parent))) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return nullptr;
    }
    if (!(style & WS_CHILD) && parent) parent = GetAncestor(parent, GA_ROOT);
    const CREATESTRUCTA create{
        parameter, instance,  menu,   parent, height, width, y, x, static_cast<LONG>(style),
        name,      className, exStyle};
    return WindowMaker(*windowClass, create).run();
}

BOOL DestroyWindow(HWND handle)
{
    if (!requireWindow(handle)) return FALSE;
    return endWindow(handle);
}
