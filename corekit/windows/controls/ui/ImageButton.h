// A button that is a picture, with one each for when it is pressed and when it is disabled. It works as any
// button for the keyboard and its parent; a button with the focus has the usual dotted frame.
// User-interface thread.
#pragma once

#include "corekit/framework/ui/Button.h"
#include "corekit/framework/ui/GdiObject.h"

class COREKIT_API CImageButton : public CButton {
    DECLARE_DYNAMIC(CImageButton)
public:
    // The style gets what a drawn button needs. The text is not shown. 0 on failure.
    BOOL Create(const char* text, DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CButton::Create(text, style | BS_OWNERDRAW, rect, parent, id);
    }
    // Takes the bitmaps over; those for pressed and disabled may be null: the first one then stands for
    // them, moved by a pixel or in a grey frame. False for a null first one. The former bitmaps are deleted
    // in any case.
    BOOL SetImages(HBITMAP normal, HBITMAP pressed = nullptr, HBITMAP disabled = nullptr);
    CSize GetImageSize() const; // of the first picture in pixels; (0, 0) without one
    void SizeToContent();       // the window becomes as large as the picture

    // The picture in the middle of the button's face.
    void DrawItem(DRAWITEMSTRUCT* item) override;

private:
    CBitmap m_normal, m_pressed, m_disabled; // owned; null where there is none
};
