// The page on which a user makes the buttons of the macro toolbar. It cannot be undone: once shown, the
// sheet offers to close only. The bar itself is not touched; the host makes it anew when it finds the flag
// set. User-interface thread.
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
    // The profile, two stores whose sub-stores name the macros there are (either may be null), and two
    // flags of the host: the buttons have changed, the toolbar is shown (may be null). All but the two
    // lists of macros, which are read here, must outlive the page; the frame is not used.
    PPage_MacroToolbar(CFrameWnd* frame, CPropertyStore* profile, CPropertyStore* macroListA,
                       CPropertyStore* macroListB, int* changed, int* showToolbar);

    ~PPage_MacroToolbar() override;

    // Reads the buttons from the profile. A macro that no list has becomes none.
    void LoadPage() override;
    int CommitPage() override;      // writes all buttons to the profile; always 1
    void UpdateControls() override; // what can be pressed

protected:
    void OnAdd();    // asks for a button, which goes behind the selected one; fifty are the most
    void OnRemove(); // the selected button
    // Bring the selected button nearer to one end of the toolbar.
    void OnMoveUp() { Move(-1); }
    void OnMoveDown() { Move(1); }
    // The controls show the selected button, and each changes it at once.
    void OnSelectButton() { ShowButton(); }
    void OnSelectCommand();
    void OnSelectBitmap(); // from a file
    void OnRemoveBitmap();
    void OnDescription();                          // when the field loses the focus
    void OnShowToolbar();                          // the host's flag, at once
    void OnDrawItem(int id, DRAWITEMSTRUCT* item); // the preview
    DECLARE_MESSAGE_MAP()

private:
    struct Button {
        CString name, description;
        std::unique_ptr<CDib> bitmap;
        int command = 0; // in the combo box; 0 is none
    };

    Button* Selected();     // null for none
    void Select(int index); // or the last, if there are fewer
    void Move(int by);      // the selected button, by so many places
    void ShowButton();      // fills the controls
    void Changed();         // tells host and sheet

    CPropertyStore* m_profile;       // not owned
    int* m_changed;                  // set, never cleared; may be null
    int* m_showToolbar;              // may be null
    std::vector<CString> m_commands; // names of macros behind "None"
    std::vector<Button> m_buttons;   // row by row of the list
};
