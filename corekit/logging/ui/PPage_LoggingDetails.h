// What a log takes, and for how many days its files stay. The page edits three values when the sheet
// commits; whoever shows it gives them to the log. User-interface thread.
#pragma once

#include "corekit/commands/ui/AXPropertyPage.h"

class COREKIT_API PPage_LoggingDetails : public CAXPropertyPage {
    DECLARE_DYNAMIC(PPage_LoggingDetails)
public:
    // The values outlive the page and belong to the caller. `enabled` may be null: the log is then always
    // on, and its box cannot be changed. A caption of 0 is the template's own.
    PPage_LoggingDetails(UINT captionId, int* enabled, unsigned long* mask, int* days);

    // From the three values to the controls' variables.
    void LoadPage() override;
    // From the variables to the three values; always 1. Of the mask the seven levels are kept and no other
    // bit.
    int CommitPage() override;
    // Levels can be changed while the log is on.
    void UpdateControls() override;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnEnabled();                      // the box that turns the log on
    void OnLevel(UINT) { SetModified(1); } // one of the seven boxes
    void OnDays() { SetModified(1); }
    DECLARE_MESSAGE_MAP()

private:
    static constexpr int levels = 7; // boxes, from Debug to Critical Error

    int* m_enabled;        // null: always on
    unsigned long* m_mask; // as CLogTarget::SetLogMask takes it
    int* m_days;           // as CLogTarget::SetOldLogFileDays takes it
    int m_isEnabled = 1;
    int m_checks[levels] = {}; // from Debug to Critical Error
    int m_oldDays = 0;         // as the field shows it
};
