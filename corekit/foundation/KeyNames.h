// The names of keys, as menus and lists of keys show them.
#pragma once

#include "corekit/framework/String.h"
#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

// The name of a virtual key; a key without one is named by its number. Not 0 if an accelerator can use the
// key.
COREKIT_API int GetKeyNameFromVirtual(unsigned int virtualKey, CString& name);

// The key of an accelerator with what must be held: "Shift + Ctrl + Alt + F1". A character stands in single
// quotes.
COREKIT_API CString GetAcceleratorKeyName(tagACCEL accelerator);
