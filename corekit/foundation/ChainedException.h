// The one exception class of this library, and the functions by which everything throws it.
//
// A chained exception is a text and, where something else caused the failure, the exception that did:
//
//     try {
//         if (!SetEndOfFile(file)) ThrowChainedException(GetLastErrorException(), message::fileSetEndFailed);
//     } catch (CException* e) { ExceptionMessageBox(parent, e, MB_ICONSTOP); e->Delete(); }
//
// It lives on the heap; the catcher frees the whole chain with Delete. Every function that takes an inner
// exception takes it over, also when it fails; null is allowed. Texts go by number in the string table, and
// a number without a text gives an empty one. Should there be no memory for the exception, a null pointer
// is thrown. Any thread.
#pragma once

#include "corekit/foundation/StringA.h"
#include "corekit/foundation/StringW.h"
#include "corekit/framework/Exception.h"
#include "corekit/framework/String.h"

class CWnd;

class COREKIT_API CChainedException : public CException {
    DECLARE_DYNAMIC(CChainedException)
public:
    // Copies the message and owns the inner exception, which may be null.
    CChainedException(const char* message, CException* inner);

    ~CChainedException() override;

    // Copies the text of the whole chain, once per exception (see BuildMessageString), cut to `size` - 1
    // characters, with its terminator. Always 1; the help context is not written.
    BOOL GetErrorMessage(char* buffer, UINT size, UINT* helpContext = nullptr) override;
    // Shows the text of the whole chain, once per exception as well; the answer of the box.
    int ReportError(CWnd* parent = nullptr, UINT type = 0x10, UINT helpId = 0) override;

    // One line for each level, outermost first. Where the inner exception is chained too, this object's own
    // text keeps what was appended, so call it once per exception.
    CString BuildMessageString();

private:
    // The cause, deleted with this object.
    CException* m_pInner;
    CString m_message;
};

[[noreturn]] COREKIT_API void ThrowChainedException(CException* inner, const char* message);
[[noreturn]] COREKIT_API void ThrowChainedException(CException* inner, UINT id);
[[noreturn]] COREKIT_API void ThrowChainedException(CException* inner, UINT id, const char* insert1);
[[noreturn]] COREKIT_API void ThrowChainedException(CException* inner, UINT id, const char* insert1,
                                                    const char* insert2);

// message::invalidVersion. Versions hold the major number in bits 8 to 15 and the minor number in
// bits 0 to 7.
[[noreturn]] COREKIT_API void ThrowInvalidVersionException(const char* objectName, DWORD versionFound,
                                                           DWORD maxVersion);

// A new exception with the system's text for the code, or for the thread's last error; null if there is no
// memory for it. Call the former right after the failed call.
COREKIT_API CChainedException* GetLastErrorException();
COREKIT_API CChainedException* GetLastErrorException(DWORD code);

// The system's text with the line end that it has; empty for a code without one. The second is for the
// calling thread's last error.
COREKIT_API CString GetSystemErrorString(DWORD code);
COREKIT_API CString GetLastErrorString();

// The name of a structured exception; the text of any other, once per exception, which stays the caller's.
COREKIT_API CString GetExceptionMsg(UINT code);
COREKIT_API CString GetExceptionMsg(CException* e);

// Shows the exception's text, once per exception, under a line of the prefix if one is given, and returns the
// box's answer. A CUserException shows nothing and gives 1. The exception stays the caller's.
COREKIT_API int ExceptionMessageBox(CWnd* parent, CException* e, UINT type);
COREKIT_API int ExceptionMessageBox(CWnd* parent, UINT prefixId, CException* e, UINT type);
COREKIT_API int ExceptionMessageBox(CWnd* parent, UINT prefixId, const char* insert, CException* e,
                                    UINT type);
COREKIT_API int ExceptionMessageBox(CWnd* parent, const char* prefix, CException* e, UINT type);

// Texts of the string table. The wide one passes through the active code page.
COREKIT_API CString LoadResourceString(UINT id);
COREKIT_API StringA LoadResourceStringA(UINT id);
COREKIT_API StringW LoadResourceStringW(UINT id);
