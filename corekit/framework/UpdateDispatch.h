// How command targets reach the items whose state their update handlers set: items belong to the window
// library, which installs the way when it is loaded.
#pragma once

#include "corekit/framework/CmdTarget.h"

namespace corekit::detail {

// Calls a handler for an item; whether the command is done with.
using UpdateDispatch = BOOL (*)(CCmdTarget* target, AFX_PMSG handler, CCmdUI* item);
COREKIT_API void setUpdateDispatch(UpdateDispatch dispatch); // null: no handler is called

} // namespace corekit::detail
