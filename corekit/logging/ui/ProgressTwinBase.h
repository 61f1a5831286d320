// What the dialogs with two progress bars have in common: two sinks, one for each bar and the line above it.
#pragma once

#include "corekit/logging/ProgressSink.h"
#include "corekit/logging/ui/ProgressDialogBase.h"

namespace corekit::detail {

class COREKIT_API ProgressTwinBase : public ProgressDialogBase {
public:
    CProgressSink* GetProgressSink1() { return &m_first; }
    CProgressSink* GetProgressSink2() { return &m_second; }
    void PumpMessages();

protected:
    using ProgressDialogBase::ProgressDialogBase;
    BOOL OnInitDialog() override;
    virtual int CancelPressed() { return 0; }

    int m_pumps = 1;

private:
    class Sink final : public CProgressSink {
    public:
        Sink(ProgressTwinBase* dialog, int statusId, int barId)
            : m_dialog(dialog), m_statusId(statusId), m_barId(barId)
        {
        }

    protected:
        void DoSetStatus(const char* text) override;
        void DoSetRange(int lower, int upper) override;
        void DoSetPos(int position) override;
        void DoSetStep(int step) override;
        void DoStepIt() override;
        int DoMessageBox(const char* text, unsigned int flags) override;
        CWnd* DoGetDialogOwnerWnd() override { return m_dialog; }
        int DoCancelPressed() override { return m_dialog->CancelPressed(); }

    private:
        void TellBar(UINT message, int wParam = 0, int lParam = 0);

        ProgressTwinBase* m_dialog;
        int m_statusId, m_barId;
    };

    Sink m_first{this, 1000, 1001}, m_second{this, 1006, 1008};
};

} // namespace corekit::detail
