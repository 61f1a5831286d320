// The page on which a user makes the buttons of the macro toolbar. It cannot be undone: once shown, the sheet
// offers to close only.
#pragma once

#include "corekit/commands/ui/AXPropertyPage.h"
#include "corekit/graphics/Dib.h"

#include <memory>
#include <vector>

class CFrameWnd;
class CPropertyStore;

class COREKIT_API PPage_MacroToolbar : public CAXPropertyPage {
    DECLARE_DYNAMIC(PPage_MacroToolbar)
public:
    // The profile, two stores whose sub-stores name the macros there are (either may be null), and two flags
    // of the host: the buttons have changed, the toolbar is shown (may be null).
    PPage_MacroToolbar(CFrameWnd* frame, CPropertyStore* profile, CPropertyStore* macroListA,
                       CPropertyStore* macroListB, int* changed, int* showToolbar);
    ~PPage_MacroToolbar() override;

    void LoadPage() override;
    int CommitPage() override;
    void UpdateControls() override;

protected:
    void OnAdd();
    void OnRemove();
    void OnMoveUp() { Move(-1); }
    void OnMoveDown() { Move(1); }
    void OnSelectButton() { ShowButton(); }
    void OnSelectCommand();
    void OnSelectBitmap();
    void OnRemoveBitmap();
    void OnDescription();
    void OnShowToolbar();
    void OnDrawItem(int id, DRAWITEMSTRUCT* item);
    DECLARE_MESSAGE_MAP()

private:
    struct Button {
        CString name, description;
        std::unique_ptr<CDib> bitmap;
        int command = 0; // in the combo box; 0 is none
    };

    Button* Selected();
    void Select(int index);
    void Move(int by);
    void ShowButton();
    void Changed();

    CPropertyStore* m_profile;
    int* m_changed;
    int* m_showToolbar;
    std::vector<CString> m_commands;
    std::vector<Button> m_buttons; // row by row of the list
};
