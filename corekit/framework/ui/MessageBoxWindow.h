// The handler by which message boxes of the core library become windows.
#pragma once

#include "corekit/framework/MessageBox.h"

namespace corekit::detail {
// On any thread; the box runs on the toolkit's. Over `parent` with the program's name as its caption, without
// one over the main window and with an icon that suits the buttons. 0 where nobody can see windows.
int showMessageBox(CWnd* parent, const char* text, UINT flags);
} // namespace corekit::detail
