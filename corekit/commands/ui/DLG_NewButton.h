// Asks for a new button of the macro toolbar: name, macro, bitmap and description. A name that is taken is
// refused with a message, and the dialog stays. User-interface thread.
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

    // The answer, after IDOK. `m_command` is an index into the commands; the description is shown as the
    // tip.
    CString m_name, m_description;
    int m_command = 0;              // index among the commands; 0 stands for none
    std::unique_ptr<CDib> m_bitmap; // null for none

    BOOL OnInitDialog() override; // lists the commands, the first one chosen

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override;                          // refuses a name that is taken
    void OnSelectBitmap();                         // from a file
    void OnRemoveBitmap();                         // the button then shows its name
    void OnDrawItem(int id, DRAWITEMSTRUCT* item); // the preview
    DECLARE_MESSAGE_MAP()

private:
    void ShowBitmap(); // preview and Remove, as they are now

    std::vector<CString> m_names, m_commands; // names in upper case
};
