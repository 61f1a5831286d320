// Parents, children, siblings and owners.
#include "corekit/platform/Errors.h"
#include "corekit/platform/Input.h"
#include "corekit/platform/qt/windows/ToolkitThread.h"
#include "corekit/platform/qt/windows/WindowState.h"
#include "corekit/platform/qt/windows/WindowTables.h"

#include <QApplication>
#include <QScreen>

#include <algorithm>

namespace corekit::detail {

std::vector<HWND> childrenOf(const Window& window)
{
    std::vector<HWND> found;
    if (!window.widget()) return found;
    const QObjectList& below = window.childArea()->children();
    for (auto child = below.rbegin(); child != below.rend(); ++child) { // the last one is the topmost
        const Window* const standing = windowTables().standingFor(*child);
        if (standing && standing->isChild()) found.push_back(standing->handle());
    }
    return found;
}

namespace {

std::vector<HWND> topWindows()
{
    std::vector<HWND> found;
    for (const HWND handle : windowTables().handles())
        if (!windowTables().find(handle)->isChild()) found.push_back(handle);
    std::ranges::sort(found, std::greater()); // the newest first
    return found;
}

std::vector<HWND> siblingsOf(const Window& window)
{
    if (!window.isChild()) return topWindows();
    const Window* const parent = windowTables().find(window.parent());
    return parent ? childrenOf(*parent) : std::vector<HWND>();
}

HWND siblingAt(const Window& window, int step)
{
    const std::vector<HWND> all = siblingsOf(window);
    const auto self = std::ranges::find(all, window.handle());
    if (self == all.end()) return nullptr;
    const auto index = self - all.begin() + step;
    return index >= 0 && index < std::ssize(all) ? all[static_cast<std::size_t>(index)] : nullptr;
}

// A number that no window gets: handles of windows are above 0xFFFF.
const HWND desktop = reinterpret_cast<HWND>(static_cast<UINT_PTR>(0xFFFE));

} // namespace

} // namespace corekit::detail

using namespace corekit::detail;

HWND GetDesktopWindow() { return desktop; }

HWND GetParent(HWND handle)
{
    const Window* const window = requireWindow(handle);
    return window ? window->parent() : nullptr;
}

HWND SetParent(HWND handle, HWND parent)
{
    Window* const window = requireWindow(handle);
    if (parent == desktop) parent = nullptr;
    Window* const above = parent ? requireWindow(parent) : nullptr;
    if (!window || (parent && !above) || !window->widget()) return nullptr;
    for (const Window* up = above; up; up = windowTables().find(up->parent()))
        if (up == window) return SetLastError(ERROR_INVALID_PARAMETER), nullptr;
    const HWND former = window->parent();
    const bool wasShown = !window->widget()->isHidden();
    const QPoint place = window->widget()->pos();
    setParentWord(*window, parent);
    if (window->isChild() || above)
        window->widget()->setParent(above ? above->childArea() : nullptr,
                                    above ? Qt::WindowFlags() : Qt::WindowFlags(Qt::Window));
    else
        window->widget()->setParent(nullptr, Qt::Window);
    window->widget()->move(place);
    if (wasShown) window->widget()->show();
    return former;
}

HWND GetAncestor(HWND handle, UINT which)
{
    const Window* window = requireWindow(handle);
    if (!window) return nullptr;
    if (which == GA_PARENT) return window->isChild() ? window->parent() : desktop;
    const auto goesOn = [which](const Window& w) {
        return w.isChild() || (which == GA_ROOTOWNER && w.parent());
    };
    while (goesOn(*window)) {
        const Window* const above = windowTables().find(window->parent());
        if (!above) break;
        window = above;
    }
    return window->handle();
}

BOOL IsChild(HWND parent, HWND handle)
{
    const Window* window = handle ? requireWindow(handle) : nullptr;
    while (window && window->isChild()) {
        if (window->parent() == parent) return TRUE;
        window = windowTables().find(window->parent());
    }
    return FALSE;
}

HWND GetWindow(HWND handle, UINT which)
{
    if (handle == desktop) {
        const std::vector<HWND> all = topWindows();
        return which == GW_CHILD && !all.empty() ? all.front() : nullptr;
    }
    const Window* const window = requireWindow(handle);
    if (!window) return nullptr;
    switch (which) {
    case GW_HWNDFIRST:
    case GW_HWNDLAST: {
        const std::vector<HWND> all = siblingsOf(*window);
        return all.empty() ? nullptr : which == GW_HWNDFIRST ? all.front() : all.back();
    }
    case GW_HWNDNEXT:
        return siblingAt(*window, 1);
    case GW_HWNDPREV:
        return siblingAt(*window, -1);
    case GW_OWNER:
        return window->isChild() ? nullptr : window->parent();
    case GW_CHILD: {
        const std::vector<HWND> all = childrenOf(*window);
        return all.empty() ? nullptr : all.front();
    }
    default:
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
}

HWND GetDlgItem(HWND parent, int id)
{
    const Window* const window = requireWindow(parent);
    if (!window) return nullptr;
    for (const HWND child : childrenOf(*window))
        if (static_cast<int>(windowTables().find(child)->id()) == id) return child;
    SetLastError(1421); // no such control
    return nullptr;
}

HWND WindowFromPoint(POINT point)
{
    if (!onToolkitThread() || !QCoreApplication::instance()) return nullptr;
    const Window* const window = Window::of(QApplication::widgetAt(point.x, point.y));
    return window ? window->handle() : nullptr;
}

HWND ChildWindowFromPoint(HWND parent, POINT point)
{
    const Window* const window = requireWindow(parent);
    RECT inside{};
    if (!window || !GetClientRect(parent, &inside)) return nullptr;
    if (point.x < 0 || point.y < 0 || point.x >= inside.right || point.y >= inside.bottom) return nullptr;
    const QPoint place = QPoint(point.x, point.y) + window->childOrigin();
    for (const HWND child : childrenOf(*window)) {
        const QWidget* const widget = windowTables().find(child)->widget();
        if (widget && !widget->isHidden() && widget->geometry().contains(place)) return child;
    }
    return parent;
}

HWND GetLastActivePopup(HWND handle)
{
    if (!requireWindow(handle)) return nullptr;
    const HWND active = GetActiveWindow();
    return active && GetAncestor(active, GA_ROOTOWNER) == handle ? active : handle;
}
