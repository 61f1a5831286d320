// The page on which a user shows, makes and changes tool bars. Changes take effect at once, and Cancel does
// not bring the former bars back.
#pragma once

#include "corekit/commands/ui/AXPropertyPage.h"
#include "corekit/framework/ui/CheckListBox.h"

class CCommandList;
class CIntelliToolBar;

class COREKIT_API PPage_CustomiseToolbars : public CAXPropertyPage {
    DECLARE_DYNAMIC(PPage_CustomiseToolbars)
public:
    PPage_CustomiseToolbars(CFrameWnd* frame, CCommandList& commands);

    void LoadPage() override;
    int CommitPage() override { return 1; }
    void UpdateControls() override;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnSelectBar();
    void OnCheckBar();
    void OnNew();
    void OnEdit();
    void OnDelete();
    void OnResetAll();
    void OnLargeButtons();
    DECLARE_MESSAGE_MAP()

private:
    CIntelliToolBar* Selected() const;
    void ShowBars(int selected);
    void ShowCommands();
    UINT FreeBarId() const; // 0 without one

    CFrameWnd* m_frame;
    CCommandList& m_list;
    CCheckListBox m_bars;
    int m_largeButtons = 0;
};
