// Calls of the system that throw where they fail, and identifiers and formats as text. Any thread.
#pragma once

#include "corekit/foundation/StringA.h"
#include "corekit/foundation/StringW.h"
#include "corekit/framework/Array.h"
#include "corekit/framework/String.h"
#include "corekit/framework/WinThread.h"
#include "corekit/platform/Files.h"

// A second handle to the same object, which lives until both are closed. Throws
// message::duplicateHandleFailed.
COREKIT_API void* scDuplicateHandle(void* handle);

// AfxBeginThread; the system's reason is thrown when the thread cannot be had.
COREKIT_API CWinThread* scBeginThread(AFX_THREADPROC procedure, void* parameter,
                                      int priority = THREAD_PRIORITY_NORMAL, UINT stackBytes = 0,
                                      DWORD flags = 0, _SECURITY_ATTRIBUTES* security = nullptr);
COREKIT_API CWinThread* scBeginThread(CRuntimeClass* threadClass, int priority = THREAD_PRIORITY_NORMAL,
                                      UINT stackBytes = 0, DWORD flags = 0,
                                      _SECURITY_ATTRIBUTES* security = nullptr);

// CreateEventA; throws the system's reason.
COREKIT_API void* scCreateEvent(_SECURITY_ATTRIBUTES* security, int manualReset, int initialState,
                                const char* name);

// Replaces `data` by the resource of a module, which a name and a type below 0x10000 give by number. 0, and
// no change, if no module has it or it is too long for the array.
COREKIT_API int scLoadResource(const char* name, const char* type, CByteArray& data);

// The name of the object's class; empty for null.
COREKIT_API CString scGetClassName(CObject* object);

// Waits for a transfer's event and tells its outcome. 0 with last error 1460 when the time is over.
COREKIT_API int GetOverlappedResultWithTimeout(void* file, OVERLAPPED* overlapped, DWORD* transferred,
                                               DWORD timeoutMs);

// printf-like, as CString, StringA and StringW format; an id names a format in the string table.
template <class Format, corekit::detail::Formattable... Args>
CString scFormatString(const Format& format, const Args&... args)
{
    CString text;
    text.Format(format, args...);
    return text;
}
template <class Format, corekit::detail::Formattable... Args>
StringA scFormatStringA(const Format& format, const Args&... args)
{
    StringA text;
    text.Format(format, args...);
    return text;
}
template <class Format, corekit::detail::Formattable... Args>
StringW scFormatStringW(const Format& format, const Args&... args)
{
    StringW text;
    text.Format(format, args...);
    return text;
}
// Eight upper-case digits.
COREKIT_API CString scFormatHex32(DWORD value);
COREKIT_API StringA scFormatHex32A(DWORD value);
COREKIT_API StringW scFormatHex32W(DWORD value);

// {XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX} in upper case, and back; text of another form is the null
// identifier.
COREKIT_API CString StringFromClassID(const _GUID& id);
COREKIT_API _GUID ClassIDFromString(const char* text);
