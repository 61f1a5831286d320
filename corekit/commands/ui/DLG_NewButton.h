// Asks for a new button of the macro toolbar.
#pragma once

#include "corekit/framework/ui/Dialog.h"
#include "corekit/graphics/Dib.h"

#include <memory>
#include <vector>

class COREKIT_API DLG_NewButton : public CDialog {
    DECLARE_DYNAMIC(DLG_NewButton)
public:
    // The names that are taken already, in any letter case, and the commands to choose from, the first of
    // which stands for none.
    DLG_NewButton(std::vector<CString> names, std::vector<CString> commands, CWnd* parent = nullptr);
    ~DLG_NewButton() override;

    // The answer, after IDOK.
    CString m_name, m_description;
    int m_command = 0;
    std::unique_ptr<CDib> m_bitmap; // null for none

    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override;
    void OnSelectBitmap();
    void OnRemoveBitmap();
    void OnDrawItem(int id, DRAWITEMSTRUCT* item);
    DECLARE_MESSAGE_MAP()

private:
    void ShowBitmap();

    std::vector<CString> m_names, m_commands;
};
