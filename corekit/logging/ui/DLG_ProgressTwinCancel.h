// Two progress bars, with a button by which the user asks the operation to stop. The wish is told once.
#pragma once

#include "corekit/logging/ui/ProgressTwinBase.h"

class COREKIT_API DLG_ProgressTwinCancel : public corekit::detail::ProgressTwinBase {
    DECLARE_DYNAMIC(DLG_ProgressTwinCancel)
public:
    explicit DLG_ProgressTwinCancel(unsigned int titleId);
    explicit DLG_ProgressTwinCancel(const char* title);

    using CWnd::Create;
    int Create(CWnd* parent); // 0 on failure
    // Whether Cancel has been pressed since the last call.
    int CheckCancelButton();

protected:
    void OnCancel() override { m_cancelled = 1; }
    int CancelPressed() override { return CheckCancelButton(); }

private:
    int m_cancelled = 0;
};
