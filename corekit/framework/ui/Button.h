// A button: push button, check box, radio button or group box.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// Buttons.h. User-interface thread only.
//
// What it is and how it looks are BS_ styles given to Create. Clicks arrive at the parent as WM_COMMAND with
// BN_CLICKED (ON_BN_CLICKED), or in the control's own map by ON_CONTROL_REFLECT.
//
//     CButton check;
//     check.Create("&Loop", WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_AUTOCHECKBOX, place, this, idLoop);
//     check.SetCheck(BST_CHECKED);
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/Buttons.h"
#include "corekit/platform/Statics.h"

class COREKIT_API CButton : public CWnd {
    DECLARE_DYNAMIC(CButton)

    // A child of `parent` with its id, in pixels of the parent's client area. 0 if it could not be made. An
    // ampersand in the text underlines the letter behind it.
    BOOL Create(const char* text, DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CWnd::Create(WC_BUTTONA, text, style, rect, parent, id);
    }
    // The check state with BST_PUSHED and BST_FOCUS or-ed to it.
    UINT GetState() const { return static_cast<UINT>(SendMessage(BM_GETSTATE, 0, 0)); }
    // Draws it pressed or not; the parent is not told.
    void SetState(BOOL pushed) { SendMessage(BM_SETSTATE, static_cast<WPARAM>(pushed), 0); }
    // BST_UNCHECKED, BST_CHECKED or BST_INDETERMINATE; 0 for push buttons.
    int GetCheck() const { return static_cast<int>(SendMessage(BM_GETCHECK, 0, 0)); }
    // Push buttons ignore it, and two-state kinds take every value but 0 as checked. Others of a radio group
    // keep their state, and the parent is not told.
    void SetCheck(int check) { SendMessage(BM_SETCHECK, static_cast<WPARAM>(check), 0); }
    // The BS_ part of the style.
    UINT GetButtonStyle() const { return GetStyle() & 0xFFFF; }
    // Only within its family: a push button does not become a check box. `redraw` is not looked at.
    void SetButtonStyle(UINT style, BOOL redraw = TRUE) { SendMessage(BM_SETSTYLE, style, redraw); }
    // As if the user had clicked: automatic kinds change their state and the parent gets BN_CLICKED. Nothing
    // happens to a disabled one.
    void Click() { SendMessage(BM_CLICK, 0, 0); }
    // For BS_ICON and BS_BITMAP; shown in place of the text, which is still read out. Returns the former
    // picture, null without one or for another style. Neither is owned.
    HICON SetIcon(HICON icon)
    {
        return reinterpret_cast<HICON>(SendMessage(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon)));
    }
    HBITMAP SetBitmap(HBITMAP bitmap)
    {
        return reinterpret_cast<HBITMAP>(
            SendMessage(BM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(bitmap)));
    }

    // Of a button that its owner draws; does nothing here. The rectangle, state (ODS_) and context are in
    // the structure, good during the call.
    virtual void DrawItem(DRAWITEMSTRUCT*) {}

protected:
    // Sends WM_DRAWITEM to DrawItem.
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
};
