// A line of text while something goes on. Every text stands for a quarter of a second at least.
#pragma once

#include "corekit/logging/ui/ProgressDialogBase.h"

class COREKIT_API DLG_Status : public corekit::detail::ProgressDialogBase {
    DECLARE_DYNAMIC(DLG_Status)
public:
    DLG_Status(unsigned int titleId,
               unsigned int statusId); // a title of 0 is the host's; a status of 0 is empty
    explicit DLG_Status(unsigned int statusId);

    using CWnd::Create;
    int Create(CWnd* parent); // 0 on failure
    void SetStatus(const char* text);
    void SetStatus(unsigned int textId);

protected:
    BOOL OnInitDialog() override;

private:
    CString m_status;
};
