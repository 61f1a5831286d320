// Completion ports: a queue of finished transfers, and the threads that take them from it.
//
// A file, pipe or socket that belongs to a port carries its transfers out in the background: ReadFile and
// WriteFile with an OVERLAPPED answer 0 with error 997, and the outcome arrives at the port, once for each
// transfer, with the key of the handle. Until then the OVERLAPPED and the buffer belong to the system.
//
// - Sockets and pipes: a read is done with the first bytes that come, or with 0 bytes when the other side has
//   closed; a write with all of its bytes. Reads of one handle finish in the order they were asked for, and
//   so do writes.
// - Files with places: the thread that takes the completion moves the bytes first, so without such a thread
//   nothing moves. The order is that of the calls; several threads work on one file at once.
// - A transfer that fails arrives with its error; a read at or behind a file's end with 38.
// - Closing a handle, or CancelIoEx, ends what is under way with error 995, which arrives like any other.
// - Closing the port ends all waiting for it with error 735 and drops what nobody took. Handles that belong
//   to it keep working but report nowhere: close them before their buffers go.
//
// Any thread may use any of these.
#pragma once

#include "corekit/platform/Files.h"
#include "corekit/platform/Overlapped.h"

using ULONG_PTR = UINT_PTR;

inline constexpr DWORD ERROR_ABANDONED_WAIT_0 = 735;
inline constexpr DWORD ERROR_NOT_FOUND = 1168;

// With INVALID_HANDLE_VALUE as file: a new port, whose completions at most `concurrency` threads work on at
// once (0: as many as there are processors). A thread counts from when it takes a completion until it asks
// for the next; one that is blocked stops counting within some milliseconds.
// With a file: makes it belong to the port, or to a new one if port is null, and returns that. The key comes
// with each of its completions. A handle belongs to one port for good.
// Null on failure: error 6 for a bad handle, 87 for a file that belongs to a port, or for neither.
COREKIT_API HANDLE CreateIoCompletionPort(HANDLE file, HANDLE port, ULONG_PTR key, DWORD concurrency);

// Adds a completion of the caller's own; the values are passed on as they are.
COREKIT_API BOOL PostQueuedCompletionStatus(HANDLE port, DWORD moved, ULONG_PTR key, OVERLAPPED* overlapped);

// Takes the oldest completion and waits for one so many milliseconds (INFINITE: as long as it takes).
// Nonzero: a transfer that succeeded, or a posted completion. 0 with *overlapped set: a transfer that failed
// with the last error. 0 with *overlapped null: nothing was taken; error 258 when the time is over, 735 when
// the port was closed, 6 for no port.
COREKIT_API BOOL GetQueuedCompletionStatus(HANDLE port, DWORD* moved, ULONG_PTR* key, OVERLAPPED** overlapped,
                                           DWORD milliseconds);

// Ends the transfer with this OVERLAPPED, or with null all transfers of the handle, with error 995. A plain
// file's transfer that a thread is carrying out goes on. 0 with error 1168 if there is nothing to end.
COREKIT_API BOOL CancelIoEx(HANDLE file, OVERLAPPED* overlapped);
