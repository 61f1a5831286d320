// A button that is a picture, with one each for when it is pressed and when it is disabled.
#pragma once

#include "corekit/framework/ui/Button.h"
#include "corekit/framework/ui/GdiObject.h"

class COREKIT_API CImageButton : public CButton {
    DECLARE_DYNAMIC(CImageButton)
public:
    BOOL Create(const char* text, DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CButton::Create(text, style | BS_OWNERDRAW, rect, parent, id);
    }
    // Takes the bitmaps over; those for pressed and disabled may be null: the first one then stands for them,
    // moved by a pixel or in a grey frame. False for a null first one.
    BOOL SetImages(HBITMAP normal, HBITMAP pressed = nullptr, HBITMAP disabled = nullptr);
    CSize GetImageSize() const;
    void SizeToContent(); // the window becomes as large as the picture

    void DrawItem(DRAWITEMSTRUCT* item) override;

private:
    CBitmap m_normal, m_pressed, m_disabled;
};
