// Binds the objects of dialogs, pages and sheets to windows made from templates. User-interface thread.
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/Dialogs.h"

namespace corekit::detail {
// Makes the dialog and binds `object` to it before its first message. False if it could not be made; the
// object then has no window.
bool createDialogFor(CWnd& object, const DialogTemplate& dialog, HWND owner, DLGPROC procedure);
} // namespace corekit::detail

// The top window that a box over `parent` belongs to: the parent's own, without a parent that of the main
// window, and in its place the box that is up over it. Null if there is none.
COREKIT_API CWnd* AfxGetSafeOwner(CWnd* parent);
