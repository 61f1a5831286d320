// Timers of windows: WM_TIMER messages at an interval, offered to pre-translation like any message.
//
// Ticks that are missed are not made up for. A window's timers go with it. User-interface thread.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

using TIMERPROC = void (*)(HWND window, UINT message, UINT_PTR id, DWORD time);

inline constexpr UINT USER_TIMER_MINIMUM = 10;

// Starts a timer, or starts the one with that id of that window anew; intervals are 10 milliseconds at least.
// With a procedure the default of WM_TIMER calls it. A null window gets a new id. Returns the id (1 where it
// is 0), 0 on failure.
COREKIT_API UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure);
COREKIT_API BOOL KillTimer(HWND window, UINT_PTR id);
