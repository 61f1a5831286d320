#include "corekit/platform/qt/windows/WindowTables.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/windows/NeverDestroyed.h"
#include "corekit/platform/qt/windows/ToolkitThread.h"

#include <QWidget>

namespace corekit::detail {

WindowTables& windowTables()
{
    static NeverDestroyed<WindowTables> tables;
    return tables.get();
}

Window* requireWindow(HWND handle)
{
    if (!onToolkitThread()) return nullptr;
    Window* const found = windowTables().find(handle);
    if (!found) SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return found;
}

Window* Window::find(HWND handle) { return onToolkitThread() ? windowTables().find(handle) : nullptr; }

std::shared_ptr<Window> Window::share(HWND handle)
{
    return onToolkitThread() ? windowTables().share(handle) : nullptr;
}

Window* Window::of(const QObject* object)
{
    for (; object; object = object->parent()) {
        if (!object->isWidgetType()) continue;
        if (Window* const found = windowTables().standingFor(object)) return found;
        if (static_cast<const QWidget*>(object)->isWindow()) return nullptr;
    }
    return nullptr;
}

} // namespace corekit::detail
