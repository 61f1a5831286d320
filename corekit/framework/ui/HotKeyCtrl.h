// A hot key control.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// HotKeys.h. User-interface thread only.
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/HotKeys.h"

class COREKIT_API CHotKeyCtrl : public CWnd {
    DECLARE_DYNAMIC(CHotKeyCtrl)

    // A child of `parent`.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CWnd::Create(HOTKEY_CLASSA, nullptr, style, rect, parent, id);
    }
    void SetHotKey(WORD key, WORD held)
    {
        SendMessage(HKM_SETHOTKEY, MAKEWORD(LOBYTE(key), LOBYTE(held)), 0);
    }
    DWORD GetHotKey() const { return static_cast<DWORD>(SendMessage(HKM_GETHOTKEY, 0, 0)); }
    void GetHotKey(WORD& key, WORD& held) const
    {
        key = LOBYTE(GetHotKey());
        held = HIBYTE(GetHotKey());
    }
    void SetRules(WORD refused, WORD instead) { SendMessage(HKM_SETRULES, refused, instead); }
};
