// Asks for the name and the buttons of a tool bar, a new one or one that there is.
#pragma once

#include "corekit/commands/ui/CommandList.h"
#include "corekit/framework/ui/Dialog.h"

#include <vector>

class COREKIT_API DLG_NewToolbar : public CDialog {
    DECLARE_DYNAMIC(DLG_NewToolbar)
public:
    // The bar that is edited may keep its name; null for a new one. Offered are commands with both pictures,
    // those of a location or, on demand, all.
    DLG_NewToolbar(CCommandList& commands, UINT titleId, const CIntelliToolBar* edited,
                   CWnd* parent = nullptr);

    // Question and answer.
    CString m_name;
    std::vector<UINT> m_buttons; // 0 for a separator

    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override;
    void OnSelectLocation();
    void OnSelectCategory();
    void OnSelectionChanged() { UpdateControls(); }
    void OnShowAll() { OnSelectLocation(); }
    void OnAdd();
    void OnRemove();
    void OnMoveUp() { Move(-1); }
    void OnMoveDown() { Move(1); }
    DECLARE_MESSAGE_MAP()

private:
    void ShowButtons(int selected);
    void UpdateControls();
    void Move(int by);
    int SelectedButton() const;

    CCommandList& m_list;
    UINT m_titleId;
    const CIntelliToolBar* m_edited;
    std::vector<CCmdItem> m_offered;
};
