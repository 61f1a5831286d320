// Asks for the name and the buttons of a tool bar, a new one or one that there is. The bar itself is not
// touched: whoever shows the dialog makes or changes it from the answer. User-interface thread.
#pragma once

#include "corekit/commands/ui/CommandList.h"
#include "corekit/framework/ui/Dialog.h"

#include <vector>

class COREKIT_API DLG_NewToolbar : public CDialog {
    DECLARE_DYNAMIC(DLG_NewToolbar)
public:
    // The bar that is edited may keep its name; null for a new one. Offered are commands with both
    // pictures, those of a location or, on demand, all. `titleId` is the number of the title in the string
    // table. Commands and bar must outlive the dialog.
    DLG_NewToolbar(CCommandList& commands, UINT titleId, const CIntelliToolBar* edited,
                   CWnd* parent = nullptr);

    // Question and answer: what the bar has at first, and after IDOK what the user wants.
    CString m_name;
    std::vector<UINT> m_buttons; // 0 for a separator

    BOOL OnInitDialog() override; // lists the locations, and picks the first

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override; // refuses the name of another bar
    // What the controls do: a choice on the left fills the lists right of it, commands that are buttons
    // already left out; the four moves change m_buttons.
    void OnSelectLocation();
    void OnSelectCategory(); // lists its commands, and the separator
    void OnSelectionChanged() { UpdateControls(); }
    void OnShowAll() { OnSelectLocation(); }
    void OnAdd();    // behind the selected button, else at the end
    void OnRemove(); // the selected button
    void OnMoveUp() { Move(-1); }
    void OnMoveDown() { Move(1); }
    DECLARE_MESSAGE_MAP()

private:
    void ShowButtons(int selected); // the list of buttons, anew
    void UpdateControls();          // what can be pressed
    void Move(int by);              // the selected button, by so many places
    int SelectedButton() const;     // -1 for none

    CCommandList& m_list; // not owned
    UINT m_titleId;
    const CIntelliToolBar* m_edited; // null for a new bar
    std::vector<CCmdItem> m_offered; // of the location
};
