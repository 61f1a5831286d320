// What a log takes, and for how many days its files stay. The page edits three values; whoever shows it gives
// them to the log.
#pragma once

#include "corekit/commands/ui/AXPropertyPage.h"

class COREKIT_API PPage_LoggingDetails : public CAXPropertyPage {
    DECLARE_DYNAMIC(PPage_LoggingDetails)
public:
    // The values outlive the page. `enabled` may be null: the log is then always on.
    PPage_LoggingDetails(UINT captionId, int* enabled, unsigned long* mask, int* days);

    void LoadPage() override;
    int CommitPage() override;
    void UpdateControls() override;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnEnabled();
    void OnLevel(UINT) { SetModified(1); }
    void OnDays() { SetModified(1); }
    DECLARE_MESSAGE_MAP()

private:
    static constexpr int levels = 7;

    int* m_enabled;
    unsigned long* m_mask;
    int* m_days;
    int m_isEnabled = 1;
    int m_checks[levels] = {}; // from Debug to Critical Error
    int m_oldDays = 0;
};
