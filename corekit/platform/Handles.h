// What all kinds of kernel objects share.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

// Gives a handle back; the object goes when nothing uses it any more. Returns 0 with error 6 for null,
// INVALID_HANDLE_VALUE and every value that is no open handle.
COREKIT_API BOOL CloseHandle(HANDLE handle);

// A fixed value that stands for this process where a handle to it is asked for.
inline HANDLE GetCurrentProcess() { return reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1)); }

inline constexpr DWORD DUPLICATE_SAME_ACCESS = 2;
// One handle more to the same object, which lives until all are closed; of GetCurrentThread, a handle by
// which others know the calling thread. Within this process, with the same access and option 2 only: 0 with
// error 87 otherwise, with error 6 for what is no open handle.
COREKIT_API BOOL DuplicateHandle(HANDLE sourceProcess, HANDLE source, HANDLE targetProcess, HANDLE* target,
                                 DWORD access, BOOL inherit, DWORD options);
