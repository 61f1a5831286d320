// Two progress bars, with a button by which the user asks the operation to stop. The wish is passed on once,
// by CheckCancelButton or the CancelPressed of either sink: whoever gets it stops.
#pragma once

#include "corekit/logging/ui/ProgressTwinBase.h"

class COREKIT_API DLG_ProgressTwinCancel : public corekit::detail::ProgressTwinBase {
    DECLARE_DYNAMIC(DLG_ProgressTwinCancel)
public:
    // The title by its number in the string table, or as a text, which is copied.
    explicit DLG_ProgressTwinCancel(unsigned int titleId);
    explicit DLG_ProgressTwinCancel(const char* title);

    using CWnd::Create;
    // Over the parent's top window, which takes no input until DestroyWindow.
    int Create(CWnd* parent); // 0 on failure
    // Lets the windows work, then says whether Cancel has been pressed since the last call.
    int CheckCancelButton();

protected:
    void OnCancel() override { m_cancelled = 1; }                // also by Escape; the dialog stays
    int CancelPressed() override { return CheckCancelButton(); } // for both sinks

private:
    int m_cancelled = 0; // pressed and not yet asked for
};
