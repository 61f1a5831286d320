// One progress bar with a line of text and the percentage.
//
//     DLG_Progress progress(IDS_COPYING);
//     if (progress.Create(this)) Copy(progress.GetProgressSink());
//     progress.DestroyWindow();
//
// The operation runs on the user-interface thread; each report lets the windows work for a moment, so
// anything may happen within one. Range and step may be set before Create, positions only after it. Every
// operation may be called through a null pointer, and then does nothing.
#pragma once

#include "corekit/logging/ProgressSink.h"
#include "corekit/logging/ui/ProgressDialogBase.h"

class COREKIT_API DLG_Progress : public corekit::detail::ProgressDialogBase {
    DECLARE_DYNAMIC(DLG_Progress)
public:
    // The title by its number in the string table, or as a text, which is copied.
    explicit DLG_Progress(unsigned int titleId);
    explicit DLG_Progress(const char* title);

    // Over the parent's top window, which takes no input until DestroyWindow. 0 on failure.
    using CWnd::Create;
    int Create(CWnd* parent);

    // The line above the bar: a text, one of the string table, or one with %1 (and %2) replaced. The
    // windows work before it is shown.
    void SetStatus(const char* text);
    void SetStatus(unsigned int textId);
    void SetStatus1(unsigned int textId, const char* arg1);
    void SetStatus2(unsigned int textId, const char* arg1, const char* arg2);
    // The ends of the bar, 0 and 100 at first. An upper bound that is not above the lower one becomes lower
    // + 1.
    void SetRange(int lower, int upper);

    void SetPos(int position); // the percentage follows
    void SetStep(int step);    // of StepIt; 1 at first
    void OffsetPos(int delta); // from where the bar is
    void StepIt();
    void EnablePumpMessages(int enable); // at first they are
    CProgressSink* GetProgressSink();    // the dialog's own; null through a null pointer

protected:
    BOOL OnInitDialog() override;                           // shows range, step and the lowest position
    BOOL OnSetCursor(CWnd* window, UINT hit, UINT message); // a wait cursor stays over the window
    // Deals with all messages that wait, through the thread's own loop; the message that ends the program
    // stays.
    void PumpMessages();
    DECLARE_MESSAGE_MAP()

private:
    // What an operation tells goes to the dialog; message boxes come over it, and nobody cancels.
    class Sink final : public CProgressSink {
    public:
        explicit Sink(DLG_Progress* dialog) : m_dialog(dialog) {}

    protected:
        void DoSetStatus(const char* text) override { m_dialog->SetStatus(text); }
        void DoSetRange(int lower, int upper) override { m_dialog->SetRange(lower, upper); }
        void DoSetPos(int position) override { m_dialog->SetPos(position); }
        void DoSetStep(int step) override { m_dialog->SetStep(step); }
        void DoStepIt() override { m_dialog->StepIt(); }
        int DoMessageBox(const char* text, unsigned int flags) override;
        CWnd* DoGetDialogOwnerWnd() override { return m_dialog; }
        int DoCancelPressed() override { return 0; }

    private:
        DLG_Progress* m_dialog;
    };

    int m_lower = 0, m_upper = 100, m_step = 1; // of the bar
    int m_pumps = 1;                            // see EnablePumpMessages
    Sink m_sink{this};                          // for GetProgressSink
};
