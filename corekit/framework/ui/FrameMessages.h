// Messages among windows of the class framework.
#pragma once

#include "corekit/platform/Types.h"

// Bring the state of your commands up to date, as nothing else is to be done; wParam: disable those that
// nobody handles.
inline constexpr UINT WM_IDLEUPDATECMDUI = 0x0363;
// After the first layout of a frame; a view gets its first contents.
inline constexpr UINT WM_INITIALUPDATE = 0x0364;
inline constexpr UINT WM_COMMANDHELP = 0x0365;
