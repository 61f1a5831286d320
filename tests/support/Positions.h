// A progress sink that keeps the positions it is given.
#pragma once

#include "corekit/logging/ProgressSink.h"

#include <vector>

class Positions final : public CProgressSink {
public:
    std::vector<int> seen;

protected:
    void DoSetPos(int position) override { seen.push_back(position); }
    void DoSetStatus(const char*) override {}
    void DoSetRange(int, int) override {}
    void DoSetStep(int) override {}
    void DoStepIt() override {}
    int DoMessageBox(const char*, unsigned int) override { return 0; }
    CWnd* DoGetDialogOwnerWnd() override { return nullptr; }
    int DoCancelPressed() override { return 0; }
};
