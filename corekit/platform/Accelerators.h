// Tables of accelerator keys.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

using HACCEL = struct HACCEL__*;

inline constexpr DWORD ERROR_INVALID_ACCEL_HANDLE = 1403;
inline constexpr int maximumAccelerators = 32767; // in one table

// A table with a copy of the rows, for the caller to destroy; Keyboard.h has the flags of a row. Null with
// error 87 if there is no row or too many.
COREKIT_API HACCEL CreateAcceleratorTableA(const ACCEL* rows, int count);
COREKIT_API BOOL DestroyAcceleratorTable(HACCEL table);
// Copies at most `count` rows and returns how many; for null `rows` the number in the table. 0 with error
// 1403 for what is no table.
COREKIT_API int CopyAcceleratorTableA(HACCEL table, ACCEL* rows, int count);
