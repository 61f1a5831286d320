// Modules: the program and the shared libraries in its process.
//
// A module is named by its load address; any address inside it does as well, so a library may name itself by
// one of its own objects. Null is the program.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

inline constexpr DWORD ERROR_MOD_NOT_FOUND = 126;
inline constexpr DWORD ERROR_PROC_NOT_FOUND = 127;

using FARPROC = LONG_PTR (*)();

// Loads the library, or counts one use more of it. A name without a separator is looked for where the system
// looks; "WS2_32.DLL" is the functions of Sockets.h, which are always there. Null with error 126 if it cannot
// be loaded.
COREKIT_API HMODULE LoadLibraryA(const char* name);
// Ends one use.
COREKIT_API BOOL FreeLibrary(HMODULE module);
// The address of an exported function, or null with error 127.
COREKIT_API FARPROC GetProcAddress(HMODULE module, const char* name);
// The module's file, cut to `size` - 1 characters, and its length; when it was cut, `size`, with error 122. 0
// with error 126 for an address in no module.
COREKIT_API DWORD GetModuleFileNameA(HMODULE module, char* buffer, DWORD size);
