// DLG_SCMStatus: a small window with a turning icon, for the time in which a service starts or stops.
//
//     DLG_SCMStatus status(IDS_STARTING);
//     status.Create(this);
//     const int runs = manager.StartServiceA("Script Upload", status.GetProgressSink());
//     status.DestroyWindow();
//
// Each position that the sink gets turns the icon by a step and lets the windows work for a moment, so
// anything may happen within it. Keys do not close it. User-interface thread.
#pragma once

#include "corekit/logging/ProgressSink.h"
#include "corekit/logging/ui/ProgressDialogBase.h"

#include <array>

class COREKIT_API DLG_SCMStatus : public corekit::detail::ProgressDialogBase {
    DECLARE_DYNAMIC(DLG_SCMStatus)
public:
    // The line that is shown at first, by its number in the string table. The title is the application's
    // name.
    explicit DLG_SCMStatus(unsigned int textId);

    // Over the parent's top window, which takes no input until DestroyWindow.
    using CWnd::Create;
    // Over the parent's top window, which takes no input until DestroyWindow. Stands for a tenth of a
    // second before it returns, so that it is seen. If it cannot be made, all that follows does nothing.
    void Create(CWnd* parent);

    // Another line, after the windows have worked for a moment.
    void SetStatus(const char* text);
    void SetStatus(unsigned int textId);
    // One of the twelve steps of a turn; the thirteenth is the first again, and negative ones turn back.
    void SetPos(int position);
    // For the operation; it belongs to the dialog. Message boxes of the operation come over the dialog.
    CProgressSink* GetProgressSink() { return &m_sink; }

protected:
    BOOL OnInitDialog() override; // shows the first line and step 0

private:
    // Positions and status go to the dialog; ranges and steps count for nothing, and nobody cancels.
    class Sink final : public CProgressSink {
    public:
        explicit Sink(DLG_SCMStatus& dialog) : m_dialog(dialog) {}

    protected:
        void DoSetStatus(const char* text) override { m_dialog.SetStatus(text); }
        void DoSetRange(int, int) override {}
        void DoSetPos(int position) override { m_dialog.SetPos(position); }
        void DoSetStep(int) override {}
        void DoStepIt() override {}
        int DoMessageBox(const char* text, unsigned int flags) override;
        CWnd* DoGetDialogOwnerWnd() override { return &m_dialog; }
        int DoCancelPressed() override { return 0; }

    private:
        DLG_SCMStatus& m_dialog;
    };

    // The icon of a step, 0 to 11.
    void Show(int step);

    static constexpr int steps = 12;    // of a turn
    std::array<HICON, steps> m_icons{}; // shared ones of the library
    CString m_text;                     // the first line
    Sink m_sink{*this};                 // for GetProgressSink
};
