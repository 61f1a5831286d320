// How command targets reach the items whose state their update handlers set: items belong to the window
// library, which installs the way when it is loaded.
//
// Without a window library an update handler counts as not handled, and commands are carried out whatever
// their state.
//
// An update handler gets an item (CCmdUI) whose class core does not know, so calling it is left to whoever
// does.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

class CCmdTarget;
class CCmdUI;

namespace corekit {

// Calls a handler for an item; whether the command is done with. On the thread that asks; `handler` is of
// the type void (CCmdUI*). The item is good during the call only.
using UpdateDispatch = BOOL (*)(CCmdTarget* target, void (CCmdTarget::*handler)(), CCmdUI* item);
// Once, while modules are loaded: not guarded against calls under way. The window library calls it by
// itself; nobody else need.
COREKIT_API void setUpdateDispatch(UpdateDispatch dispatch); // null: no handler is called

} // namespace corekit
