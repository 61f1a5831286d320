// The page that asks to pick a category.
#pragma once

#include "corekit/commands/ui/AXPropertyPage.h"

class COREKIT_API PPage_OptionsMgrBlank : public CAXPropertyPage {
    DECLARE_DYNAMIC(PPage_OptionsMgrBlank)
    PPage_OptionsMgrBlank();

    void LoadPage() override {}
    int CommitPage() override { return 1; }
    void UpdateControls() override {}
};
