// One progress bar, as DLG_Progress, with a button by which the user asks the operation to stop.
//
// The wish is told once, by CheckCancelButton or the sink's CancelPressed: whoever gets it stops. The
// dialog stays until DestroyWindow. User-interface thread; unlike DLG_Progress it is not for null pointers.
//
//     DLG_ProgressWithCancel progress(IDS_COPYING);
//     if (progress.Create(this)) Copy(progress.GetProgressSink());
//     progress.DestroyWindow();
#pragma once

#include "corekit/logging/ProgressSink.h"
#include "corekit/logging/ui/ProgressDialogBase.h"

class COREKIT_API DLG_ProgressWithCancel : public corekit::detail::ProgressDialogBase {
    DECLARE_DYNAMIC(DLG_ProgressWithCancel)
public:
    // The title by its number in the string table, or as a text, which is copied.
    explicit DLG_ProgressWithCancel(unsigned int titleId);
    explicit DLG_ProgressWithCancel(const char* title);

    using CWnd::Create;
    // Over the parent's top window, which takes no input until DestroyWindow.
    int Create(CWnd* parent); // 0 on failure

    // The line above the bar: a text, one of the string table, or one with %1 (and %2) replaced.
    void SetStatus(const char* text);    // lets the windows work only if given by number
    void SetStatus(unsigned int textId); // lets the windows work
    void SetStatus1(unsigned int textId, const char* arg1);
    void SetStatus2(unsigned int textId, const char* arg1, const char* arg2);
    // The ends of the bar, 0 and 100 at first.
    void SetRange(int lower, int upper); // an upper bound that is not above the lower one becomes lower + 1
    // Move the bar, and the percentage with it; the windows work before, but for SetStep. Each gives what
    // the bar had before, a position or a step.
    int SetPos(int position);
    int SetStep(int step);    // of StepIt; 1 at first
    int OffsetPos(int delta); // from where the bar is
    int StepIt();
    // Nothing: Cancel could not be pressed if the windows stood still.
    void EnablePumpMessages(int) {}
    // Lets the windows work, then says whether Cancel has been pressed since the last call.
    int CheckCancelButton();
    // For the operation; it belongs to the dialog.
    CProgressSink* GetProgressSink() { return &m_sink; }

protected:
    BOOL OnInitDialog() override;                           // shows range, step and the lowest position
    void OnCancel() override { m_cancelled = 1; }           // also by Escape; the dialog stays
    BOOL OnSetCursor(CWnd* window, UINT hit, UINT message); // keeps a wait cursor
    DECLARE_MESSAGE_MAP()

private:
    // What an operation tells goes to the dialog; message boxes come over it.
    class Sink final : public CProgressSink {
    public:
        explicit Sink(DLG_ProgressWithCancel* dialog) : m_dialog(dialog) {}

    protected:
        void DoSetStatus(const char* text) override { m_dialog->SetStatus(text); }
        void DoSetRange(int lower, int upper) override { m_dialog->SetRange(lower, upper); }
        void DoSetPos(int position) override { m_dialog->SetPos(position); }
        void DoSetStep(int step) override { m_dialog->SetStep(step); }
        void DoStepIt() override { m_dialog->StepIt(); }
        int DoMessageBox(const char* text, unsigned int flags) override; // over the dialog
        CWnd* DoGetDialogOwnerWnd() override { return m_dialog; }
        int DoCancelPressed() override { return m_dialog->CheckCancelButton(); } // the button, once

    private:
        DLG_ProgressWithCancel* m_dialog; // which owns the sink
    };

    int m_lower = 0, m_upper = 100, m_step = 1; // of the bar
    int m_cancelled = 0;                        // pressed and not yet asked for
    Sink m_sink{this};                          // for GetProgressSink
};
