// An up-down control.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// UpDowns.h. User-interface thread only.
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/UpDowns.h"

class COREKIT_API CSpinButtonCtrl : public CWnd {
    DECLARE_DYNAMIC(CSpinButtonCtrl)

    // A child of `parent`.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CWnd::Create(UPDOWN_CLASSA, nullptr, style, rect, parent, id);
    }
    void SetRange(int low, int high) { SendMessage(UDM_SETRANGE32, static_cast<WPARAM>(low), high); }
    void SetRange32(int low, int high) { SetRange(low, high); }
    void GetRange32(int& low, int& high) const
    {
        SendMessage(UDM_GETRANGE32, reinterpret_cast<WPARAM>(&low), reinterpret_cast<LPARAM>(&high));
    }
    int SetPos(int position) { return static_cast<int>(SendMessage(UDM_SETPOS32, 0, position)); }
    int GetPos() const { return static_cast<int>(SendMessage(UDM_GETPOS32, 0, 0)); }
    CWnd* SetBuddy(CWnd* buddy)
    {
        return FromHandle(reinterpret_cast<HWND>(
            SendMessage(UDM_SETBUDDY, reinterpret_cast<WPARAM>(buddy->GetSafeHwnd()), 0)));
    }
    CWnd* GetBuddy() const { return FromHandle(reinterpret_cast<HWND>(SendMessage(UDM_GETBUDDY, 0, 0))); }
};
