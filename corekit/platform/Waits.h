// Events, mutexes, and waiting for them and for threads.
//
// Waiting consumes: an auto-reset event is reset, a mutex is owned by the thread that waited. A waiter is
// served by whoever makes its object ready, the longest-waiting first; waiting for all takes all objects in
// one step or none. Any thread may use any handle.
#pragma once

#include "corekit/platform/Errors.h"
#include "corekit/platform/Export.h"
#include "corekit/platform/Handles.h"
#include "corekit/platform/Types.h"

struct _SECURITY_ATTRIBUTES;

inline constexpr DWORD WAIT_OBJECT_0 = 0;
inline constexpr DWORD WAIT_ABANDONED =
    0x80; // as WAIT_OBJECT_0, and a mutex's last owner ended without release
inline constexpr DWORD WAIT_ABANDONED_0 = 0x80;
inline constexpr DWORD WAIT_FAILED = 0xFFFFFFFF;
inline constexpr DWORD MAXIMUM_WAIT_OBJECTS = 64;

// Both return null on failure. Security is not used. A name, if there is one, holds within the process, for
// both kinds and with regard to case: where it is taken, the result is another handle of that object, the
// state asked for is not set, and last error is 183; for an object of the other kind null with 6. A name that
// was free leaves last error 0.
COREKIT_API HANDLE CreateEventA(_SECURITY_ATTRIBUTES* security, BOOL manualReset, BOOL signalled,
                                const char* name);
COREKIT_API HANDLE CreateMutexA(_SECURITY_ATTRIBUTES* security, BOOL owned, const char* name);

// An auto-reset event serves one waiter, a manual one all of them and everyone until ResetEvent.
COREKIT_API BOOL SetEvent(HANDLE event);
COREKIT_API BOOL ResetEvent(HANDLE event);
// Undoes one wait; fails with 288 for a thread that does not own the mutex.
COREKIT_API BOOL ReleaseMutex(HANDLE mutex);

// Waits until the object is ready or the time in milliseconds is over (INFINITE: never; 0: looks only).
// Returns WAIT_OBJECT_0, WAIT_ABANDONED, WAIT_TIMEOUT, or WAIT_FAILED with last error 6 or 87.
COREKIT_API DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds);
// For 1 to 64 handles: waits for one of them (the result is WAIT_OBJECT_0 or WAIT_ABANDONED_0 plus the lowest
// index that is ready) or for all (plain WAIT_OBJECT_0, or WAIT_ABANDONED_0 if any mutex was abandoned). One
// handle twice is refused with 87 when waiting for all.
COREKIT_API DWORD WaitForMultipleObjects(DWORD count, const HANDLE* handles, BOOL all, DWORD milliseconds);

// Lets the thread rest for at least this many milliseconds; 0 gives up the rest of its time slice.
COREKIT_API void Sleep(DWORD milliseconds);
