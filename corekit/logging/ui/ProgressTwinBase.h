// What the dialogs with two progress bars have in common: two sinks, one for each bar and the line above it.
#pragma once

#include "corekit/logging/ProgressSink.h"
#include "corekit/logging/ui/ProgressDialogBase.h"

namespace corekit::detail {

// User-interface thread.
class COREKIT_API ProgressTwinBase : public ProgressDialogBase {
public:
    // For the operation: the upper bar and the lower one. They belong to the dialog.
    CProgressSink* GetProgressSink1() { return &m_first; }
    CProgressSink* GetProgressSink2() { return &m_second; }
    // Deals with all messages that wait, unless that is turned off.
    void PumpMessages();

protected:
    using ProgressDialogBase::ProgressDialogBase;
    BOOL OnInitDialog() override;             // with both lines empty
    virtual int CancelPressed() { return 0; } // what both sinks answer

    // Whether reports let the windows work.
    int m_pumps = 1;

private:
    // What an operation tells goes to one bar and its line. Without a window nothing is shown.
    class Sink final : public CProgressSink {
    public:
        Sink(ProgressTwinBase* dialog, int statusId, int barId)
            : m_dialog(dialog), m_statusId(statusId), m_barId(barId)
        {
        }

    protected:
        void DoSetStatus(const char* text) override;    // the line above the bar
        void DoSetRange(int lower, int upper) override; // never an empty one
        void DoSetPos(int position) override;           // held by the bar in its range
        void DoSetStep(int step) override;              // of DoStepIt
        void DoStepIt() override;                       // on by the step; the bar begins anew beyond its end
        int DoMessageBox(const char* text, unsigned int flags) override; // over the dialog
        CWnd* DoGetDialogOwnerWnd() override { return m_dialog; } // boxes of the operation come over it
        // One wish, whichever sink is asked.
        int DoCancelPressed() override { return m_dialog->CancelPressed(); }

    private:
        void TellBar(UINT message, int wParam = 0, int lParam = 0); // after the windows have worked

        ProgressTwinBase* m_dialog; // which owns the sink
        int m_statusId, m_barId;    // controls of the dialog
    };

    Sink m_first{this, 1000, 1001}, m_second{this, 1006, 1008}; // upper and lower
};

} // namespace corekit::detail
