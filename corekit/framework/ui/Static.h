// A static control: text, picture or line.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// Statics.h. User-interface thread only.
//
// SS_ styles say what it shows. Without SS_NOTIFY clicks go to what lies below it. A text control names the
// control that is made right behind it, also for those who have the screen read out.
//
//     CStatic label;
//     label.Create("&Name:", WS_CHILD | WS_VISIBLE | SS_LEFT, CRect(10, 10, 60, 25), this);
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/Statics.h"

class COREKIT_API CStatic : public CWnd {
    DECLARE_DYNAMIC(CStatic)

    // An ampersand underlines the letter behind it, unless SS_NOPREFIX is set.
    BOOL Create(const char* text, DWORD style, const RECT& rect, CWnd* parent, UINT id = 0xFFFF)
    {
        return CWnd::Create(WC_STATICA, text, style, rect, parent, id);
    }
    // Of SS_ICON and SS_BITMAP; the control takes the picture's size unless SS_CENTERIMAGE or
    // SS_REALSIZECONTROL is set. Returns the former, null without one or for another style. Not owned.
    HICON SetIcon(HICON icon)
    {
        return reinterpret_cast<HICON>(SendMessage(STM_SETICON, reinterpret_cast<WPARAM>(icon), 0));
    }
    // Null without one.
    HICON GetIcon() const { return reinterpret_cast<HICON>(SendMessage(STM_GETICON, 0, 0)); }
    HBITMAP SetBitmap(HBITMAP bitmap)
    {
        return reinterpret_cast<HBITMAP>(
            SendMessage(STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(bitmap)));
    }
    // Null without one.
    HBITMAP GetBitmap() const
    {
        return reinterpret_cast<HBITMAP>(SendMessage(STM_GETIMAGE, IMAGE_BITMAP, 0));
    }
};
