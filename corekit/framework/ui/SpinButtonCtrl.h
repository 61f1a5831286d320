// An up-down control.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// UpDowns.h. User-interface thread only.
//
// The range is 100 to 0 at first, so that up counts down; set one where the upper limit is the greater. A
// buddy's text follows the position with UDS_SETBUDDYINT.
//
//     count.SetBuddy(&field);
//     count.SetRange(1, 99);
//     count.SetPos(10); // with UDS_SETBUDDYINT the field shows "10"
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/UpDowns.h"

class COREKIT_API CSpinButtonCtrl : public CWnd {
    DECLARE_DYNAMIC(CSpinButtonCtrl)

    // A child of `parent`. UDS_ALIGNRIGHT or UDS_ALIGNLEFT lays it into its buddy, UDS_AUTOBUDDY takes the
    // control made before it.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CWnd::Create(UPDOWN_CLASSA, nullptr, style, rect, parent, id);
    }
    // The position stays as it is until the next change.
    void SetRange(int low, int high) { SendMessage(UDM_SETRANGE32, static_cast<WPARAM>(low), high); }
    void SetRange32(int low, int high) { SetRange(low, high); }
    // As they were set, in this order.
    void GetRange32(int& low, int& high) const
    {
        SendMessage(UDM_GETRANGE32, reinterpret_cast<WPARAM>(&low), reinterpret_cast<LPARAM>(&high));
    }
    // Held within the range, or with UDS_WRAP carried round. Answers the former position.
    int SetPos(int position) { return static_cast<int>(SendMessage(UDM_SETPOS32, 0, position)); }
    // With UDS_SETBUDDYINT that of the buddy's text, if it is a number within the range.
    int GetPos() const { return static_cast<int>(SendMessage(UDM_GETPOS32, 0, 0)); }
    // Null for none. Answers the former as a temporary object.
    CWnd* SetBuddy(CWnd* buddy)
    {
        return FromHandle(reinterpret_cast<HWND>(
            SendMessage(UDM_SETBUDDY, reinterpret_cast<WPARAM>(buddy->GetSafeHwnd()), 0)));
    }
    // Temporary; null without one.
    CWnd* GetBuddy() const { return FromHandle(reinterpret_cast<HWND>(SendMessage(UDM_GETBUDDY, 0, 0))); }
};
