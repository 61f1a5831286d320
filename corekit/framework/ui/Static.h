// A static control: text, picture or line.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// Statics.h. User-interface thread only.
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/Statics.h"

class COREKIT_API CStatic : public CWnd {
    DECLARE_DYNAMIC(CStatic)

    BOOL Create(const char* text, DWORD style, const RECT& rect, CWnd* parent, UINT id = 0xFFFF)
    {
        return CWnd::Create(WC_STATICA, text, style, rect, parent, id);
    }
    HICON SetIcon(HICON icon)
    {
        return reinterpret_cast<HICON>(SendMessage(STM_SETICON, reinterpret_cast<WPARAM>(icon), 0));
    }
    HICON GetIcon() const { return reinterpret_cast<HICON>(SendMessage(STM_GETICON, 0, 0)); }
    HBITMAP SetBitmap(HBITMAP bitmap)
    {
        return reinterpret_cast<HBITMAP>(
            SendMessage(STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(bitmap)));
    }
    HBITMAP GetBitmap() const
    {
        return reinterpret_cast<HBITMAP>(SendMessage(STM_GETIMAGE, IMAGE_BITMAP, 0));
    }
};
