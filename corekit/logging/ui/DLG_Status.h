// A line of text while something goes on. Every text stands for a quarter of a second at least, for which
// SetStatus blocks. User-interface thread.
//
//     DLG_Status status(IDS_CONNECTING);
//     if (status.Create(this)) Connect();
//     status.DestroyWindow();
#pragma once

#include "corekit/logging/ui/ProgressDialogBase.h"

class COREKIT_API DLG_Status : public corekit::detail::ProgressDialogBase {
    DECLARE_DYNAMIC(DLG_Status)
public:
    // Both by their numbers in the string table.
    DLG_Status(unsigned int titleId,
               unsigned int statusId);          // a title of 0 is the host's; a status of 0 is empty
    explicit DLG_Status(unsigned int statusId); // under the host's title

    using CWnd::Create;
    // Over the parent's top window, which takes no input until DestroyWindow. Stands for a tenth of a
    // second before it returns.
    int Create(CWnd* parent); // 0 on failure
    // Another line, after the windows have worked; without a window nothing is shown and nothing waits.
    void SetStatus(const char* text);
    void SetStatus(unsigned int textId);

protected:
    BOOL OnInitDialog() override; // shows the first line

private:
    CString m_status; // the first line
};
