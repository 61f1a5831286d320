// One progress bar, as DLG_Progress, with a button by which the user asks the operation to stop.
//
// The wish is told once, by CheckCancelButton or the sink's CancelPressed: whoever gets it stops.
#pragma once

#include "corekit/logging/ProgressSink.h"
#include "corekit/logging/ui/ProgressDialogBase.h"

class COREKIT_API DLG_ProgressWithCancel : public corekit::detail::ProgressDialogBase {
    DECLARE_DYNAMIC(DLG_ProgressWithCancel)
public:
    explicit DLG_ProgressWithCancel(unsigned int titleId);
    explicit DLG_ProgressWithCancel(const char* title);

    using CWnd::Create;
    int Create(CWnd* parent); // 0 on failure

    void SetStatus(const char* text); // lets the windows work only if given by number
    void SetStatus(unsigned int textId);
    void SetStatus1(unsigned int textId, const char* arg1);
    void SetStatus2(unsigned int textId, const char* arg1, const char* arg2);
    void SetRange(int lower, int upper); // an upper bound that is not above the lower one becomes lower + 1
    // Each gives what the bar had before.
    int SetPos(int position);
    int SetStep(int step);
    int OffsetPos(int delta);
    int StepIt();
    // Nothing: Cancel could not be pressed if the windows stood still.
    void EnablePumpMessages(int) {}
    // Whether Cancel has been pressed since the last call.
    int CheckCancelButton();
    CProgressSink* GetProgressSink() { return &m_sink; }

protected:
    BOOL OnInitDialog() override;
    void OnCancel() override { m_cancelled = 1; }
    BOOL OnSetCursor(CWnd* window, UINT hit, UINT message);
    DECLARE_MESSAGE_MAP()

private:
    class Sink final : public CProgressSink {
    public:
        explicit Sink(DLG_ProgressWithCancel* dialog) : m_dialog(dialog) {}

    protected:
        void DoSetStatus(const char* text) override { m_dialog->SetStatus(text); }
        void DoSetRange(int lower, int upper) override { m_dialog->SetRange(lower, upper); }
        void DoSetPos(int position) override { m_dialog->SetPos(position); }
        void DoSetStep(int step) override { m_dialog->SetStep(step); }
        void DoStepIt() override { m_dialog->StepIt(); }
        int DoMessageBox(const char* text, unsigned int flags) override;
        CWnd* DoGetDialogOwnerWnd() override { return m_dialog; }
        int DoCancelPressed() override { return m_dialog->CheckCancelButton(); }

    private:
        DLG_ProgressWithCancel* m_dialog;
    };

    int m_lower = 0, m_upper = 100, m_step = 1;
    int m_cancelled = 0;
    Sink m_sink{this};
};
