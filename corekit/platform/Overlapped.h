// The outcome of transfers that were started with an OVERLAPPED.
#pragma once

#include "corekit/platform/Files.h"
#include "corekit/platform/Waits.h"

inline constexpr UINT_PTR STATUS_PENDING = 0x103; // OVERLAPPED::Internal while it is under way
inline constexpr DWORD ERROR_IO_INCOMPLETE = 996; // not done yet

// Whether the transfer succeeded; *moved gets its bytes. While it is under way, the call waits for its event
// (without one, for the outcome) if asked to, else it fails with 996. A failed transfer leaves its error as
// last error.
COREKIT_API BOOL GetOverlappedResult(HANDLE file, OVERLAPPED* overlapped, DWORD* moved, BOOL wait);

// Says of the transfers that this thread begins while it lives: the thread waits for each with
// GetOverlappedResult before it does anything else. Then nobody else needs to watch over them.
class COREKIT_API WaitsAtOnce {
public:
    WaitsAtOnce(); // the promises of one thread may be nested
    WaitsAtOnce(const WaitsAtOnce&) = delete;
    WaitsAtOnce& operator=(const WaitsAtOnce&) = delete;
    ~WaitsAtOnce();

    static bool Holds(); // on this thread
};
