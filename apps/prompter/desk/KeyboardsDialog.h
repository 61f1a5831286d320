// The enabled keyboards, each with its picture; the one that is picked is typed with from then on.
#pragma once

#include "corekit/framework/ui/Dialog.h"

#include <vector>

namespace prompter {

class KeyboardsDialog : public CDialog {
    DECLARE_DYNAMIC(KeyboardsDialog)
public:
    explicit KeyboardsDialog(CWnd* parent);
    ~KeyboardsDialog() override;

    BOOL OnInitDialog() override;

protected:
    void OnOK() override;
    void OnPick();
    DECLARE_MESSAGE_MAP()

private:
    int PickedKeyboard() const; // index in the manager, -1 for none
    void ShowPicture();

    std::vector<int> m_keyboards; // of the rows
    HBITMAP m_picture = nullptr;
};

} // namespace prompter
