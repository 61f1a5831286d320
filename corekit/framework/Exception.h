// Exceptions are heap objects, thrown as pointers; the catcher frees them with Delete.
//
//     try { ... } catch (CException* e) { e->ReportError(); e->Delete(); }
#pragma once

#include "corekit/framework/Object.h"

class CWnd;

class COREKIT_API CException : public CObject {
    DECLARE_DYNAMIC(CException)
public:
    // With bAutoDelete 0 the object belongs to someone else and Delete leaves it alone.
    explicit CException(BOOL bAutoDelete = TRUE) : m_bAutoDelete(bAutoDelete) {}

    void Delete();

    // The text, cut to `size` - 1 characters, with its terminator. 0 and an empty text if there is none.
    // `helpContext` may be null.
    virtual BOOL GetErrorMessage(char* buffer, UINT size, UINT* helpContext = nullptr);
    // Shows the text in a message box of that MB_ type, whose answer it returns; an exception without text
    // shows message `fallbackId`, or says that there is none. The default type is a stop sign with OK.
    virtual int ReportError(CWnd* parent = nullptr, UINT type = 0x10, UINT fallbackId = 0);

protected:
    BOOL m_bAutoDelete;
};

// The user broke the operation off and has been told already.
class COREKIT_API CUserException : public CException {
    DECLARE_DYNAMIC(CUserException)
public:
    explicit CUserException(BOOL bAutoDelete = TRUE) : CException(bAutoDelete) {}
};

class COREKIT_API CMemoryException : public CException {
    DECLARE_DYNAMIC(CMemoryException)
public:
    explicit CMemoryException(BOOL bAutoDelete = TRUE) : CException(bAutoDelete) {}
    BOOL GetErrorMessage(char* buffer, UINT size, UINT* helpContext = nullptr) override;
};

class COREKIT_API CNotSupportedException : public CException {
    DECLARE_DYNAMIC(CNotSupportedException)
public:
    explicit CNotSupportedException(BOOL bAutoDelete = TRUE) : CException(bAutoDelete) {}
    BOOL GetErrorMessage(char* buffer, UINT size, UINT* helpContext = nullptr) override;
};

// Each throws an object that needs no memory; Delete it as any other.
[[noreturn]] COREKIT_API void AfxThrowMemoryException();
[[noreturn]] COREKIT_API void AfxThrowUserException();
[[noreturn]] COREKIT_API void AfxThrowNotSupportedException();

// Ends the process at once, as abort does.
[[noreturn]] COREKIT_API void AfxAbort();
