// What the dialogs of long operations have in common: they stand by, keep their owner from input for as long
// as they live, and let the toolkit work while the operation runs on the same thread.
#pragma once

#include "corekit/framework/ui/Dialog.h"

namespace corekit::detail {

class COREKIT_API ProgressDialogBase : public CDialog {
public:
    ~ProgressDialogBase() override;
    // Takes the window away. The owner takes input again if it did before Create.
    BOOL DestroyWindow() override;

protected:
    // The title is copied. There is no window yet.
    explicit ProgressDialogBase(const char* title) : m_title(title) {}

    // Makes the window and keeps the top window of `parent` from input. 0, and the owner as it was, if the
    // dialog could not be made or stands already.
    int CreateOver(UINT templateId, CWnd* parent);

    BOOL OnInitDialog() override; // shows the title
    void OnOK() override {}       // Enter and Escape do nothing
    void OnCancel() override {}
    // Deals with what waits for this thread: offered to the dialog's keys first. The program's end is left to
    // the program's own loop.
    void PumpAll();

    CString m_title; // as given to the constructor

private:
    HWND m_disabledOwner = nullptr; // that takes input again at the end
};

} // namespace corekit::detail
