// The page that asks to pick a category: shown while none is picked, and for one that may not be shown. It
// has no data, so loading and committing do nothing.
#pragma once

#include "corekit/commands/ui/AXPropertyPage.h"

class COREKIT_API PPage_OptionsMgrBlank : public CAXPropertyPage {
    DECLARE_DYNAMIC(PPage_OptionsMgrBlank)
    // Made with new for a sheet that deletes its pages.
    PPage_OptionsMgrBlank();

    void LoadPage() override {}
    int CommitPage() override { return 1; } // there is nothing to refuse
    void UpdateControls() override {}
};
