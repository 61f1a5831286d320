// Which window stands behind a handle, and which for a widget. Toolkit's thread.
#pragma once

#include "corekit/platform/qt/windows/Window.h"

#include <unordered_map>

namespace corekit::detail {

class WindowTables {
public:
    Window* find(HWND handle) const
    {
        const auto found = m_windows.find(handle);
        return found == m_windows.end() ? nullptr : found->second.get();
    }
    std::shared_ptr<Window> share(HWND handle) const
    {
        const auto found = m_windows.find(handle);
        return found == m_windows.end() ? nullptr : found->second;
    }
    Window* standingFor(const QObject* widget) const
    {
        const auto found = m_widgets.find(widget);
        return found == m_widgets.end() ? nullptr : found->second;
    }
    void add(HWND handle, std::shared_ptr<Window> window)
    {
        m_widgets.emplace(window->widget(), window.get());
        m_windows.emplace(handle, std::move(window));
    }
    void removeWidget(const QObject* widget) { m_widgets.erase(widget); }
    void remove(HWND handle) { m_windows.erase(handle); }
    // Handles of all windows, in no order: those that went since are to be looked up again.
    std::vector<HWND> handles() const
    {
        std::vector<HWND> all;
        for (const auto& [handle, window] : m_windows) all.push_back(handle);
        return all;
    }

private:
    std::unordered_map<HWND, std::shared_ptr<Window>> m_windows;
    std::unordered_map<const QObject*, Window*> m_widgets;
};

WindowTables& windowTables(); // lives to the end of the process

} // namespace corekit::detail
