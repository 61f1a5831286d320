// A message over a window, with one to three buttons.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <functional>

// Shows the text until the user answers; its window's top window takes no input meanwhile. `type` has the
// buttons, icon and default button of framework/MessageBox.h, and the answer is one of its numbers. Texts are
// in the active code page; of a longer one 16,384 characters are shown. A null caption is the program's name.
// User-interface thread; on another, and where nobody can see windows, 0.
COREKIT_API int MessageBoxA(HWND owner, const char* text, const char* caption, UINT type);

namespace corekit::detail {
// Runs the work on the toolkit's thread and returns when it is done. False, and nothing is run, without a
// toolkit.
COREKIT_API bool callOnToolkitThread(const std::function<void()>& work);
} // namespace corekit::detail
