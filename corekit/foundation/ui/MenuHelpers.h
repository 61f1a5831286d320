// Items that a command-update handler takes away.
#pragma once

#include "corekit/platform/Export.h"

class CCmdUI;

// Removes the command from its menu, and a separator that would then stand last or beside another one. An
// item that is in no menu is disabled and unchecked; one that opens a menu stays.
COREKIT_API void HideCommand(CCmdUI* item);

// The same for an item that opens a menu, which is destroyed; every other item stays.
COREKIT_API void HideSubMenu(CCmdUI* item);
