// Exceptions are heap objects, thrown as pointers; the catcher frees them with Delete.
//
//     try { ... } catch (CException* e) { e->ReportError(); e->Delete(); }
//
// Thrown values are pointers to objects of these classes or of derived ones (file, archive, database
// exceptions).
//
// An exception class of one's own names itself and says what is wrong:
//
//     class CScriptException : public CException {
//         DECLARE_DYNAMIC(CScriptException)
//         BOOL GetErrorMessage(char* buffer, UINT size, UINT* helpContext = nullptr) override;
//     };
//     throw new CScriptException;
#pragma once

#include "corekit/framework/Object.h"

class CWnd;

// One object is thrown, caught and freed once; it is not shared between threads.
class COREKIT_API CException : public CObject {
    DECLARE_DYNAMIC(CException)
public:
    // With bAutoDelete 0 the object belongs to someone else and Delete leaves it alone. Exceptions thrown
    // with new are made with TRUE.
    explicit CException(BOOL bAutoDelete = TRUE) : m_bAutoDelete(bAutoDelete) {}

    // Frees the object if it was made with bAutoDelete; the pointer is not to be used afterwards in either
    // case. A catcher that throws on does not call it.
    void Delete();

    // The text, cut to `size` - 1 characters, with its terminator. 0 and an empty text if there is none.
    // `helpContext` may be null. This class has no text of its own.
    virtual BOOL GetErrorMessage(char* buffer, UINT size, UINT* helpContext = nullptr);
    // Shows the text in a message box of that MB_ type, whose answer it returns; an exception without text
    // shows message `fallbackId`, or says that there is none. The default type is a stop sign with OK.
    // Blocks until the user answers. Without windows the text goes to standard error. Texts over 1,023 bytes
    // are cut.
    virtual int ReportError(CWnd* parent = nullptr, UINT type = 0x10, UINT fallbackId = 0);

protected:
    BOOL m_bAutoDelete;
};

// The user broke the operation off and has been told already. Has no text; whoever catches it stays silent.
class COREKIT_API CUserException : public CException {
    DECLARE_DYNAMIC(CUserException)
public:
    explicit CUserException(BOOL bAutoDelete = TRUE) : CException(bAutoDelete) {}
};

// Memory, or a size that cannot be had. "Out of memory."
class COREKIT_API CMemoryException : public CException {
    DECLARE_DYNAMIC(CMemoryException)
public:
    explicit CMemoryException(BOOL bAutoDelete = TRUE) : CException(bAutoDelete) {}
    BOOL GetErrorMessage(char* buffer, UINT size, UINT* helpContext = nullptr) override;
};

// The operation does not exist for this object. "An unsupported operation was attempted."
class COREKIT_API CNotSupportedException : public CException {
    DECLARE_DYNAMIC(CNotSupportedException)
public:
    explicit CNotSupportedException(BOOL bAutoDelete = TRUE) : CException(bAutoDelete) {}
    BOOL GetErrorMessage(char* buffer, UINT size, UINT* helpContext = nullptr) override;
};

// Each throws an object that needs no memory; Delete it as any other. One object for each of the three
// classes; never freed, so its Delete does nothing.
[[noreturn]] COREKIT_API void AfxThrowMemoryException();
[[noreturn]] COREKIT_API void AfxThrowUserException();
[[noreturn]] COREKIT_API void AfxThrowNotSupportedException();

// Ends the process at once, as abort does. No destructor runs.
[[noreturn]] COREKIT_API void AfxAbort();
