// Calls of the system that throw where they fail, and identifiers and formats as text. Any thread.
#pragma once

#include "corekit/foundation/StringA.h"
#include "corekit/foundation/StringW.h"
#include "corekit/framework/Array.h"
#include "corekit/framework/String.h"
#include "corekit/framework/WinThread.h"
#include "corekit/platform/Files.h"

// A second handle to the same object of the system, with the same access, for the caller to close; the
// object lives until both are closed. Throws message::duplicateHandleFailed over the system's reason.
COREKIT_API void* scDuplicateHandle(void* handle);

// AfxBeginThread: starts a thread that runs the procedure, or one of the given class, and gives its object.
// `stackBytes` 0 is the usual size; CREATE_SUSPENDED among `flags` lets the thread wait for ResumeThread.
// The system's reason is thrown when the thread cannot be had. The object deletes itself at the thread's
// end unless its m_bAutoDelete is cleared, which is safe only while the thread is suspended.
COREKIT_API CWinThread* scBeginThread(AFX_THREADPROC procedure, void* parameter,
                                      int priority = THREAD_PRIORITY_NORMAL, UINT stackBytes = 0,
                                      DWORD flags = 0, _SECURITY_ATTRIBUTES* security = nullptr);
// The class must be a thread's, with a run-time class that can create objects.
COREKIT_API CWinThread* scBeginThread(CRuntimeClass* threadClass, int priority = THREAD_PRIORITY_NORMAL,
                                      UINT stackBytes = 0, DWORD flags = 0,
                                      _SECURITY_ATTRIBUTES* security = nullptr);

// CreateEventA: a manual-reset event stays signalled until it is reset, the other kind lets one waiter
// through. `name` may be null. The caller closes the handle; throws the system's reason.
COREKIT_API void* scCreateEvent(_SECURITY_ATTRIBUTES* security, int manualReset, int initialState,
                                const char* name);

// Replaces `data` by the resource of a module, the program first and then the newest library that has it; a
// name and a type below 0x10000 are numbers. 1, or 0 and no change, if no module has it or it is too long
// for the array.
COREKIT_API int scLoadResource(const char* name, const char* type, CByteArray& data);

// The name of the object's run-time class, as its DECLARE_DYNAMIC has it; empty for null.
COREKIT_API CString scGetClassName(CObject* object);

// Waits at most `timeoutMs` milliseconds for a transfer's event, then answers as GetOverlappedResult does,
// the bytes moved in `transferred`. 0 with last error 1460 when the time is over: the transfer goes on, so
// cancel it or keep its buffer. The transfer must have an event.
COREKIT_API int GetOverlappedResultWithTimeout(void* file, OVERLAPPED* overlapped, DWORD* transferred,
                                               DWORD timeoutMs);

// printf-like, as CString, StringA and StringW format (FormatArgument.h has the letters); an id names a
// format in the string table, and an unknown one formats to nothing.
template <class Format, corekit::detail::Formattable... Args>
CString scFormatString(const Format& format, const Args&... args)
{
    CString text;
    text.Format(format, args...);
    return text;
}
// The same as StringA.
template <class Format, corekit::detail::Formattable... Args>
StringA scFormatStringA(const Format& format, const Args&... args)
{
    StringA text;
    text.Format(format, args...);
    return text;
}
// The same as StringW; the format is wide.
template <class Format, corekit::detail::Formattable... Args>
StringW scFormatStringW(const Format& format, const Args&... args)
{
    StringW text;
    text.Format(format, args...);
    return text;
}
// Eight upper-case hexadecimal digits, with leading zeros and without a prefix.
COREKIT_API CString scFormatHex32(DWORD value);
COREKIT_API StringA scFormatHex32A(DWORD value); // the same in the other
COREKIT_API StringW scFormatHex32W(DWORD value); // two string classes

// {XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX} in upper case.
COREKIT_API CString StringFromClassID(const _GUID& id);
// The inverse, which takes digits of either case. Text of another form, null included, is the null
// identifier.
COREKIT_API _GUID ClassIDFromString(const char* text);
