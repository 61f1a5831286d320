// The displays that windows stand on, in one space of coordinates.
//
// What is attached may change at any time: ask again rather than keep a handle. User-interface thread.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

using HMONITOR = struct HMONITOR__*;

inline constexpr DWORD MONITORINFOF_PRIMARY = 1;

struct MONITORINFOEXA {
    DWORD cbSize;   // of this record
    RECT rcMonitor; // all of it
    RECT rcWork;    // what bars leave free
    DWORD dwFlags;  // MONITORINFOF_
    char szDevice[32];
};

using MONITORENUMPROC = BOOL (*)(HMONITOR monitor, HDC dc, RECT* part, LPARAM data);

// Calls back with each display that shows a part of `clip` (null: any), and with that part, until the
// callback answers 0. `dc` must be null. 0 if the callback ended it, or there is no display.
COREKIT_API BOOL EnumDisplayMonitors(HDC dc, const RECT* clip, MONITORENUMPROC callback, LPARAM data);
// 0 for a display that has gone, or a record of another size.
COREKIT_API BOOL GetMonitorInfoA(HMONITOR monitor, MONITORINFOEXA* info);
