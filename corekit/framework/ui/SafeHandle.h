// The handle of a window that may be missing.
#pragma once

#include "corekit/platform/Types.h"

namespace corekit::detail {
template <class Window>
HWND safeHandle(const Window* window)
{
    return window ? window->m_hWnd : nullptr;
}
} // namespace corekit::detail
