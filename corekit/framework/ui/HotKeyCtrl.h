// A hot key control.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// HotKeys.h. User-interface thread only.
//
// It shows the last key that was pressed in it, with the keys held, "None" at first; Backspace or Delete
// alone clears it. The parent hears EN_CHANGE.
//
//     key.SetHotKey(VK_F5, HOTKEYF_CONTROL);
//     key.SetRules(HKCOMB_NONE | HKCOMB_S, HOTKEYF_CONTROL); // plain keys get Ctrl
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
    // A virtual key and HOTKEYF_ bits of the keys held; 0 is none. The parent is not told.
    void SetHotKey(WORD key, WORD held)
    {
        SendMessage(HKM_SETHOTKEY, MAKEWORD(LOBYTE(key), LOBYTE(held)), 0);
    }
    // The virtual key in the low byte, the keys held in the byte above.
    DWORD GetHotKey() const { return static_cast<DWORD>(SendMessage(HKM_GETHOTKEY, 0, 0)); }
    // Both apart.
    void GetHotKey(WORD& key, WORD& held) const
    {
        key = LOBYTE(GetHotKey());
        held = HIBYTE(GetHotKey());
    }
    // Combinations (HKCOMB_) that are not accepted as they are, and the HOTKEYF_ bits that are added to
    // those.
    void SetRules(WORD refused, WORD instead) { SendMessage(HKM_SETRULES, refused, instead); }
};
