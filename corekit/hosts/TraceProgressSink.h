// A progress sink that tells its texts to the console of a service program, so that an operation which
// reports to a dialog elsewhere can be followed without windows.
#pragma once

#include "corekit/logging/ProgressSink.h"

class CServiceApp;

// Lives in the application object, which it refers to. Any thread may call it, as tracing is for any thread.
// Status in white, message boxes in red with the answer 0; positions are not shown, and nobody cancels.
class CTraceProgressSink : public CProgressSink {
public:
    // The program must outlive the sink.
    explicit CTraceProgressSink(CServiceApp& app) : m_app(app) {}

protected:
    // One line of the console, and of the trace log if there is one.
    void DoSetStatus(const char* text) override;
    // Ranges, positions and steps have no place on a console.
    void DoSetRange(int, int) override {}
    void DoSetPos(int) override {}
    void DoSetStep(int) override {}
    void DoStepIt() override {}
    int DoMessageBox(const char* text, unsigned int flags) override; // the text as a line; nobody is asked
    CWnd* DoGetDialogOwnerWnd() override { return nullptr; }         // there is no window
    // Nothing on a console says so.
    int DoCancelPressed() override { return 0; }

private:
    CServiceApp& m_app;
};
