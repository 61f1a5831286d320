// Threads.
//
// A thread ends when its routine returns. Its handle is signalled from then on, and both handle and thread
// may go first. Mutexes that it still owns are abandoned.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

using LPTHREAD_START_ROUTINE = DWORD (*)(void* parameter);

inline constexpr DWORD CREATE_SUSPENDED = 4;
inline constexpr DWORD STILL_ACTIVE = 259;
inline constexpr int THREAD_PRIORITY_LOWEST = -2;
inline constexpr int THREAD_PRIORITY_BELOW_NORMAL = -1;
inline constexpr int THREAD_PRIORITY_NORMAL = 0;
inline constexpr int THREAD_PRIORITY_ABOVE_NORMAL = 1;
inline constexpr int THREAD_PRIORITY_HIGHEST = 2;
inline constexpr int THREAD_PRIORITY_ERROR_RETURN = 0x7FFFFFFF;

// Starts routine(parameter) on a new thread, with flag CREATE_SUSPENDED only at the first ResumeThread.
// stackBytes of 0 takes the system's size; attributes are not used; id may be null. Null on failure.
COREKIT_API HANDLE CreateThread(void* attributes, SIZE_T stackBytes, LPTHREAD_START_ROUTINE routine,
                                void* parameter, DWORD flags, DWORD* id);
// Returns how often the thread was held back before (1 for one that this call started, 0 for one under way),
// 0xFFFFFFFF on failure.
COREKIT_API DWORD ResumeThread(HANDLE thread);
// What the routine returned, or STILL_ACTIVE.
COREKIT_API BOOL GetExitCodeThread(HANDLE thread, DWORD* exitCode);
// The priority is kept and given back; the machine's scheduler goes by its own judgement.
COREKIT_API BOOL SetThreadPriority(HANDLE thread, int priority);
COREKIT_API int GetThreadPriority(HANDLE thread);

// A number that no other thread of the process has or had; never 0.
COREKIT_API DWORD GetCurrentThreadId();
// A fixed value that stands for whichever thread uses it; it need not be closed.
inline HANDLE GetCurrentThread() { return reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-2)); }
