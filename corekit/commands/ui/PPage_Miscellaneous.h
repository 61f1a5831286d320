// How the time that a script takes to read is reckoned: kept in the registry, for all programs of the
// machine (HKEY_LOCAL_MACHINE\Software\Corvane\Unicode Support). User-interface thread.
#pragma once

#include "corekit/commands/ui/AXPropertyPage.h"

class COREKIT_API PPage_Miscellaneous : public CAXPropertyPage {
    DECLARE_DYNAMIC(PPage_Miscellaneous)
    // Made with new for a sheet that deletes its pages.
    PPage_Miscellaneous();

    // A value that is not kept is that of a new object. Throws message::createKeyFailed.
    void LoadPage() override;
    // Writes all four; always 1. Throws as loading does, and message::setValueFailed.
    int CommitPage() override;

    void UpdateControls() override; // two fields count only with seconds

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnUseSeconds();                // the box
    void OnChange() { SetModified(1); } // a field
    DECLARE_MESSAGE_MAP()

private:
    int m_usesSeconds = 0;                                     // so many lines take so many seconds
    int m_lines = 3, m_seconds = 10, m_charactersPerLine = 15; // the usual figures
};
