// Who runs this process, where, and with which variables.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

inline constexpr DWORD ERROR_ENVVAR_NOT_FOUND = 203;

// Copies the user's name. *size is the buffer's size on entry and the length with the terminator on return,
// also when the buffer is too small: then 0 with last error 122.
COREKIT_API BOOL GetUserNameA(char* buffer, DWORD* size);
// The host's name without its domain. As above, but on success *size does not count the terminator.
COREKIT_API BOOL GetComputerNameA(char* buffer, DWORD* size);
// Copies the variable and returns its length; the size it needs if the buffer is too small; 0 with last error
// 203 if there is no such variable.
COREKIT_API DWORD GetEnvironmentVariableA(const char* name, char* buffer, DWORD size);
