// Compiled so that a null `this` is not taken to be impossible.
#include "corekit/logging/ProgressSink.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/framework/Module.h"

IMPLEMENT_DYNAMIC(CProgressSink, CObject)

void CProgressSink::SetStatus(const char* text) { SetStatus(this, text); }
void CProgressSink::SetStatus(unsigned int stringId) { SetStatus(this, stringId); }
void CProgressSink::SetStatus1(unsigned int stringId, const char* arg1) { SetStatus1(this, stringId, arg1); }
void CProgressSink::SetStatus2(unsigned int stringId, const char* arg1, const char* arg2)
{
    SetStatus2(this, stringId, arg1, arg2);
}
void CProgressSink::SetRange(int lower, int upper) { SetRange(this, lower, upper); }
void CProgressSink::SetPos(int position) { SetPos(this, position); }
void CProgressSink::SetStep(int step) { SetStep(this, step); }
void CProgressSink::StepIt() { StepIt(this); }
int CProgressSink::MessageBoxA(const char* text, unsigned int flags)
{
    return MessageBoxA(this, text, flags);
}
int CProgressSink::MessageBoxA(unsigned int stringId, unsigned int flags)
{
    return MessageBoxA(this, stringId, flags);
}
int CProgressSink::MessageBoxA(CException* e, unsigned int flags) { return MessageBoxA(this, e, flags); }
CWnd* CProgressSink::GetDialogOwnerWnd() { return GetDialogOwnerWnd(this); }
int CProgressSink::CancelPressed() { return CancelPressed(this); }

void CProgressSink::SetStatus(CProgressSink* sink, const char* text)
{
    if (sink) sink->DoSetStatus(text);
}

void CProgressSink::SetStatus(CProgressSink* sink, unsigned int stringId)
{
    if (sink) sink->DoSetStatus(LoadResourceString(stringId));
}

void CProgressSink::SetStatus1(CProgressSink* sink, unsigned int stringId, const char* arg1)
{
    if (!sink) return;
    CString text;
    AfxFormatString1(text, stringId, arg1);
    sink->DoSetStatus(text);
}

void CProgressSink::SetStatus2(CProgressSink* sink, unsigned int stringId, const char* arg1, const char* arg2)
{
    if (!sink) return;
    CString text;
    AfxFormatString2(text, stringId, arg1, arg2);
    sink->DoSetStatus(text);
}

void CProgressSink::SetRange(CProgressSink* sink, int lower, int upper)
{
    if (sink) sink->DoSetRange(lower, upper);
}

void CProgressSink::SetPos(CProgressSink* sink, int position)
{
    if (sink) sink->DoSetPos(position);
}

void CProgressSink::SetStep(CProgressSink* sink, int step)
{
    if (sink) sink->DoSetStep(step);
}

void CProgressSink::StepIt(CProgressSink* sink)
{
    if (sink) sink->DoStepIt();
}

int CProgressSink::MessageBoxA(CProgressSink* sink, const char* text, unsigned int flags)
{
    return sink ? sink->DoMessageBox(text, flags) : 0;
}

int CProgressSink::MessageBoxA(CProgressSink* sink, unsigned int stringId, unsigned int flags)
{
    return sink ? sink->DoMessageBox(LoadResourceString(stringId), flags) : 0;
}

int CProgressSink::MessageBoxA(CProgressSink* sink, CException* e, unsigned int flags)
{
    if (!sink) return 0;
    char text[8192] = "";
    if (e) e->GetErrorMessage(text, sizeof text);
    return sink->DoMessageBox(text, flags);
}

CWnd* CProgressSink::GetDialogOwnerWnd(CProgressSink* sink)
{
    return sink ? sink->DoGetDialogOwnerWnd() : nullptr;
}

int CProgressSink::CancelPressed(CProgressSink* sink) { return sink ? sink->DoCancelPressed() : 0; }
