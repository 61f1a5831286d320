// Which object stands for a handle, and the message that it has in hand. Toolkit's thread.
#pragma once

#include "corekit/framework/ui/Wnd.h"

#include <memory>
#include <unordered_map>

class CWndMaps {
public:
    static CWndMaps& Instance(); // lives to the end of the process

    CWnd* Permanent(HWND window) const
    {
        const auto found = m_permanent.find(window);
        return found == m_permanent.end() ? nullptr : found->second;
    }
    // The permanent object, else a temporary one.
    CWnd* Of(HWND window);
    void Add(HWND window, CWnd* object);
    void Remove(HWND window) { m_permanent.erase(window); }
    void ForgetTemporary();

    // The message that a window works on, innermost first.
    MSG m_current{};

private:
    std::unordered_map<HWND, CWnd*> m_permanent;
    std::unordered_map<HWND, std::unique_ptr<CWnd>> m_temporary;
};

namespace corekit::detail {
// PreTranslateMessage of the window and those above it, as far as they have objects.
BOOL preTranslateUpwards(MSG* message);
} // namespace corekit::detail
