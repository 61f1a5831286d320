// A button: push button, check box, radio button or group box.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// Buttons.h. User-interface thread only.
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/Buttons.h"
#include "corekit/platform/Statics.h"

class COREKIT_API CButton : public CWnd {
    DECLARE_DYNAMIC(CButton)

    BOOL Create(const char* text, DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CWnd::Create(WC_BUTTONA, text, style, rect, parent, id);
    }
    UINT GetState() const { return static_cast<UINT>(SendMessage(BM_GETSTATE, 0, 0)); }
    void SetState(BOOL pushed) { SendMessage(BM_SETSTATE, static_cast<WPARAM>(pushed), 0); }
    int GetCheck() const { return static_cast<int>(SendMessage(BM_GETCHECK, 0, 0)); }
    void SetCheck(int check) { SendMessage(BM_SETCHECK, static_cast<WPARAM>(check), 0); }
    UINT GetButtonStyle() const { return GetStyle() & 0xFFFF; }
    void SetButtonStyle(UINT style, BOOL redraw = TRUE) { SendMessage(BM_SETSTYLE, style, redraw); }
    void Click() { SendMessage(BM_CLICK, 0, 0); }
    HICON SetIcon(HICON icon)
    {
        return reinterpret_cast<HICON>(SendMessage(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon)));
    }
    HBITMAP SetBitmap(HBITMAP bitmap)
    {
        return reinterpret_cast<HBITMAP>(
            SendMessage(BM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(bitmap)));
    }

    // Of a button that its owner draws; does nothing here.
    virtual void DrawItem(DRAWITEMSTRUCT*) {}

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
};
