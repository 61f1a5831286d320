// Where a long operation tells how far it is, without knowing who looks on.
//
// The operation takes a CProgressSink*, which may be null for nobody. Every operation below may be called
// through a null pointer: it then does nothing and gives 0. From such a call on the compiler may take the
// pointer for good, so whoever tests it does so before; and code that is compiled with a check for null
// objects uses the static form of the same name, which takes the pointer:
//
//     sink->SetStatus("Sending");                  // null does no harm
//     CProgressSink::SetStatus(sink, "Sending");   // the same, within the rules of the language
//
// Whoever looks on derives from it and supplies the Do... operations. The sink stays its owner's; it is
// called on the operation's thread.
#pragma once

#include "corekit/framework/Object.h"

class CException;
class CWnd;

class COREKIT_API CProgressSink : public CObject {
    DECLARE_DYNAMIC(CProgressSink)
public:
    // One line that says what is going on; by number from the string table.
    void SetStatus(const char* text);
    void SetStatus(unsigned int stringId);
    // The text of that number with %1 (and %2) replaced.
    void SetStatus1(unsigned int stringId, const char* arg1);
    void SetStatus2(unsigned int stringId, const char* arg1, const char* arg2);

    // Positions run from `lower` to `upper`, in whatever unit the operation counts.
    void SetRange(int lower, int upper);
    void SetPos(int position);
    // By how much StepIt moves the position.
    void SetStep(int step);
    void StepIt();

    // Asks the user; flags and answers are those of framework/MessageBox.h. The exception stays the caller's;
    // of its text 8191 characters are shown.
    int MessageBoxA(const char* text, unsigned int flags);
    int MessageBoxA(unsigned int stringId, unsigned int flags);
    int MessageBoxA(CException* e, unsigned int flags);
    // The window that a box of the operation's own belongs over; null for none.
    CWnd* GetDialogOwnerWnd();
    // Nonzero once when the user wants the operation to stop: whoever gets it stops.
    int CancelPressed();

    // The same through a pointer, which may be null.
    static void SetStatus(CProgressSink* sink, const char* text);
    static void SetStatus(CProgressSink* sink, unsigned int stringId);
    static void SetStatus1(CProgressSink* sink, unsigned int stringId, const char* arg1);
    static void SetStatus2(CProgressSink* sink, unsigned int stringId, const char* arg1, const char* arg2);
    static void SetRange(CProgressSink* sink, int lower, int upper);
    static void SetPos(CProgressSink* sink, int position);
    static void SetStep(CProgressSink* sink, int step);
    static void StepIt(CProgressSink* sink);
    static int MessageBoxA(CProgressSink* sink, const char* text, unsigned int flags);
    static int MessageBoxA(CProgressSink* sink, unsigned int stringId, unsigned int flags);
    static int MessageBoxA(CProgressSink* sink, CException* e, unsigned int flags);
    static CWnd* GetDialogOwnerWnd(CProgressSink* sink);
    static int CancelPressed(CProgressSink* sink);

protected:
    // For whoever looks on: what the operations above come down to, never called through a null pointer.
    virtual void DoSetStatus(const char* text) = 0;    // the line as it is to be shown
    virtual void DoSetRange(int lower, int upper) = 0; // both ends included
    virtual void DoSetPos(int position) = 0;           // may lie outside the range
    virtual void DoSetStep(int step) = 0;
    virtual void DoStepIt() = 0; // moves on by the step
    virtual int DoMessageBox(const char* text, unsigned int flags) = 0;
    virtual CWnd* DoGetDialogOwnerWnd() = 0; // null for none
    virtual int DoCancelPressed() = 0;       // nonzero once
};
