// A list box with a check mark in front of each row; the parent hears CLBN_CHKCHANGE.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// ListBoxes.h. User-interface thread only.
#pragma once

#include "corekit/framework/ui/ListBox.h"
#include "corekit/platform/ListBoxes.h"

class COREKIT_API CCheckListBox : public CListBox {
    DECLARE_DYNAMIC(CCheckListBox)

    void SetCheckStyle(UINT style) { SendMessage(CLB_SETCHECKSTYLE, style, 0); }
    UINT GetCheckStyle() const { return static_cast<UINT>(SendMessage(CLB_GETCHECKSTYLE, 0, 0)); }
    void SetCheck(int index, int check) { SendMessage(CLB_SETCHECK, static_cast<WPARAM>(index), check); }
    int GetCheck(int index) const
    {
        return static_cast<int>(SendMessage(CLB_GETCHECK, static_cast<WPARAM>(index), 0));
    }
    void Enable(int index, BOOL enabled = TRUE)
    {
        SendMessage(CLB_ENABLE, static_cast<WPARAM>(index), enabled);
    }
    BOOL IsEnabled(int index) const { return SendMessage(CLB_ISENABLED, static_cast<WPARAM>(index), 0) > 0; }
};
