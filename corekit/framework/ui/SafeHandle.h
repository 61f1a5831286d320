// The handle of a window that may be missing.
#pragma once

#include "corekit/framework/ui/Wnd.h"

namespace corekit::detail {
inline HWND safeHandle(const CWnd* window) { return window ? window->m_hWnd : nullptr; }
} // namespace corekit::detail
