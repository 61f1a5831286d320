// How command targets reach the items whose state their update handlers set: items belong to the window
// library, which installs the way when it is loaded.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

class CCmdTarget;
class CCmdUI;

namespace corekit {

// Calls a handler for an item; whether the command is done with.
using UpdateDispatch = BOOL (*)(CCmdTarget* target, void (CCmdTarget::*handler)(), CCmdUI* item);
COREKIT_API void setUpdateDispatch(UpdateDispatch dispatch); // null: no handler is called

} // namespace corekit
