// How the time that a script takes to read is reckoned: kept in the registry, for all programs of the
// machine.
#pragma once

#include "corekit/commands/ui/AXPropertyPage.h"

class COREKIT_API PPage_Miscellaneous : public CAXPropertyPage {
    DECLARE_DYNAMIC(PPage_Miscellaneous)
    PPage_Miscellaneous();

    void LoadPage() override;
    int CommitPage() override;
    void UpdateControls() override;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnUseSeconds();
    void OnChange() { SetModified(1); }
    DECLARE_MESSAGE_MAP()

private:
    int m_usesSeconds = 0;
    int m_lines = 3, m_seconds = 10, m_charactersPerLine = 15;
};
