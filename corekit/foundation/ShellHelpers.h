// Helpers round the user's shell.
#pragma once

#include "corekit/framework/String.h"
#include "corekit/platform/Export.h"
#include "corekit/platform/ShellFolders.h"

// The path of a CSIDL_ folder, which need not exist. Throws message::shellError over the system's reason.
COREKIT_API CString ShellGetSpecialFolder(int folder);

// Loads the library and calls its DllRegisterServer. Throws message::controlModuleInvalid with the path when
// there is no such library or function, or when the function fails.
COREKIT_API void scRegisterOleControl(const char* path);
