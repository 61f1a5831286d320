// A list box with a check mark in front of each row; the parent hears CLBN_CHKCHANGE.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// ListBoxes.h. User-interface thread only.
//
// The marks appear with the first SetCheck, or with SetCheckStyle. A list with marks draws its rows itself.
//
//     list.SetCheckStyle(BS_AUTOCHECKBOX);
//     list.SetCheck(list.AddString("Camera 1"), BST_CHECKED);
//     ...
//     ON_CONTROL(CLBN_CHKCHANGE, idList, &CPane::OnCheck)   // in the parent's map
#pragma once

#include "corekit/framework/ui/ListBox.h"
#include "corekit/platform/ListBoxes.h"

class COREKIT_API CCheckListBox : public CListBox {
    DECLARE_DYNAMIC(CCheckListBox)

    // BS_AUTOCHECKBOX: the user switches two states; BS_AUTO3STATE: three; another style of check boxes
    // shows marks that only the program changes; 0 takes the marks away.
    void SetCheckStyle(UINT style) { SendMessage(CLB_SETCHECKSTYLE, style, 0); }
    // 0 without marks.
    UINT GetCheckStyle() const { return static_cast<UINT>(SendMessage(CLB_GETCHECKSTYLE, 0, 0)); }
    // BST_ value, held between 0 and 2. The parent is not told.
    void SetCheck(int index, int check) { SendMessage(CLB_SETCHECK, static_cast<WPARAM>(index), check); }
    // BST_ value; LB_ERR (-1) for a row that does not exist.
    int GetCheck(int index) const
    {
        return static_cast<int>(SendMessage(CLB_GETCHECK, static_cast<WPARAM>(index), 0));
    }
    // A disabled row is grey and cannot be selected or checked by the user.
    void Enable(int index, BOOL enabled = TRUE)
    {
        SendMessage(CLB_ENABLE, static_cast<WPARAM>(index), enabled);
    }
    // 0 for a row that does not exist.
    BOOL IsEnabled(int index) const { return SendMessage(CLB_ISENABLED, static_cast<WPARAM>(index), 0) > 0; }
};
