// A progress sink that tells its texts to the console of a service program.
#pragma once

#include "corekit/logging/ProgressSink.h"

class CServiceApp;

// Lives in the application object. Status in white, message boxes in red with the answer 0; positions are not
// shown.
class CTraceProgressSink : public CProgressSink {
public:
    explicit CTraceProgressSink(CServiceApp& app) : m_app(app) {}

protected:
    void DoSetStatus(const char* text) override;
    void DoSetRange(int, int) override {}
    void DoSetPos(int) override {}
    void DoSetStep(int) override {}
    void DoStepIt() override {}
    int DoMessageBox(const char* text, unsigned int flags) override;
    CWnd* DoGetDialogOwnerWnd() override { return nullptr; }
    int DoCancelPressed() override { return 0; }

private:
    CServiceApp& m_app;
};
