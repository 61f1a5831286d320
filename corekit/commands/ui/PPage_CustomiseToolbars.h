// The page on which a user shows, makes and changes tool bars. Changes take effect at once, and Cancel does
// not bring the former bars back. User-interface thread.
#pragma once

#include "corekit/commands/ui/AXPropertyPage.h"
#include "corekit/framework/ui/CheckListBox.h"

class CCommandList;
class CIntelliToolBar;

class COREKIT_API PPage_CustomiseToolbars : public CAXPropertyPage {
    DECLARE_DYNAMIC(PPage_CustomiseToolbars)
public:
    // Bars of the frame and of the list; both must outlive the page.
    PPage_CustomiseToolbars(CFrameWnd* frame, CCommandList& commands);

    void LoadPage() override;               // lists the bars
    int CommitPage() override { return 1; } // nothing is left to be done
    void UpdateControls() override;         // what can be pressed

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnSelectBar(); // shows the bar's commands
    void OnCheckBar();  // shows and hides bars
    // Asks for a bar and makes it with a free number; nothing is made where no default bar is registered.
    void OnNew();

    void OnEdit();         // another name or other buttons
    void OnDelete();       // destroys the selected bar
    void OnResetAll();     // default bars in place of all there are
    void OnLargeButtons(); // for all bars
    DECLARE_MESSAGE_MAP()

private:
    CIntelliToolBar* Selected() const; // null for none
    void ShowBars(int selected);       // the list, anew
    void ShowCommands();
    // The first number, of fifty from that of the first default bar on, that no bar of the frame has.
    UINT FreeBarId() const; // 0 without one

    CFrameWnd* m_frame; // not owned
    CCommandList& m_list;
    CCheckListBox m_bars;   // a row for each bar of the list, in its order
    int m_largeButtons = 0; // the box, as it is shown
};
