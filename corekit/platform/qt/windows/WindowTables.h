// All windows, and which of them stands for a widget. Toolkit's thread.
#pragma once

#include "corekit/platform/posix/user/WindowTable.h"
#include "corekit/platform/qt/windows/Window.h"

#include <unordered_map>
#include <unordered_set>

namespace corekit::detail {

class WindowTables {
public:
    Window* find(HWND handle) const
    {
        const std::shared_ptr<void>* const behind = windowBehind(handle);
        return behind ? static_cast<Window*>(behind->get()) : nullptr;
    }
    std::shared_ptr<Window> share(HWND handle) const
    {
        const std::shared_ptr<void>* const behind = windowBehind(handle);
        return behind ? std::static_pointer_cast<Window>(*behind) : nullptr;
    }
    Window* standingFor(const QObject* widget) const
    {
        const auto found = m_widgets.find(widget);
        return found == m_widgets.end() ? nullptr : found->second;
    }
    void add(Window& window)
    {
        m_widgets.emplace(window.widget(), &window);
        m_handles.insert(window.handle());
    }
    void removeWidget(const QObject* widget) { m_widgets.erase(widget); }
    void remove(HWND handle) { m_handles.erase(handle); }
    // Handles of all windows, in no order: those that went since are to be looked up again.
    std::vector<HWND> handles() const { return {m_handles.begin(), m_handles.end()}; }

private:
    std::unordered_set<HWND> m_handles;
    std::unordered_map<const QObject*, Window*> m_widgets;
};

WindowTables& windowTables(); // lives to the end of the process

} // namespace corekit::detail
