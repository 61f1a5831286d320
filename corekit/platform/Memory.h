// Global memory blocks: memory that is passed about by handle.
//
// A fixed block's handle is its address. A moveable block is reached through GlobalLock and stays in place
// while it is locked. Freed with GlobalFree by whoever holds the handle. A handle that stands for no block
// is refused with error 6, shortage of memory is error 8. Any thread.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

inline constexpr UINT GMEM_FIXED = 0;
inline constexpr UINT GMEM_MOVEABLE = 0x0002;
inline constexpr UINT GMEM_ZEROINIT = 0x0040;
inline constexpr UINT GMEM_SHARE = 0x2000; // accepted; has no effect
inline constexpr UINT GHND = GMEM_MOVEABLE | GMEM_ZEROINIT;
inline constexpr UINT GPTR = GMEM_FIXED | GMEM_ZEROINIT;

// A block of bytes bytes, cleared if GMEM_ZEROINIT says so. Null on failure.
COREKIT_API HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes);
// Changes the size and keeps the content up to the lesser of both; GMEM_ZEROINIT clears what is new. A block
// that is fixed or locked grows only when flags hold GMEM_MOVEABLE. Returns the handle, which changes for a
// fixed block that moved, or null with the block as it was.
COREKIT_API HGLOBAL GlobalReAlloc(HGLOBAL handle, SIZE_T bytes, UINT flags);
// The address of the first byte, null on failure and for a moveable block of size 0. Locks count.
COREKIT_API void* GlobalLock(HGLOBAL handle);
// Returns whether the block is still locked; 0 with last error 0 when this was the last lock, with 158 when
// there was none. A fixed block always answers 1.
COREKIT_API BOOL GlobalUnlock(HGLOBAL handle);
// In bytes, as last asked for; 0 on failure.
COREKIT_API SIZE_T GlobalSize(HGLOBAL handle);
// Frees the block, locked or not. Returns null, or the handle on failure.
COREKIT_API HGLOBAL GlobalFree(HGLOBAL handle);
