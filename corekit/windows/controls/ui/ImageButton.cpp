#include "corekit/windows/controls/ui/ImageButton.h"

#include "corekit/framework/ui/DC.h"
#include "corekit/platform/SystemColours.h"

IMPLEMENT_DYNAMIC(CImageButton, CButton)

BOOL CImageButton::SetImages(HBITMAP normal, HBITMAP pressed, HBITMAP disabled)
{
    for (CBitmap* const bitmap : {&m_normal, &m_pressed, &m_disabled}) bitmap->DeleteObject();
    if (!normal || !m_normal.Attach(normal)) return FALSE;
    if (pressed) m_pressed.Attach(pressed);
    if (disabled) m_disabled.Attach(disabled);
    if (m_hWnd) Invalidate();
    return TRUE;
}

CSize CImageButton::GetImageSize() const
{
    BITMAP measures{};
    if (!m_normal.m_hObject || !m_normal.GetObject(sizeof measures, &measures)) return {};
    return {static_cast<int>(measures.bmWidth), static_cast<int>(measures.bmHeight)};
}

void CImageButton::SizeToContent()
{
    const CSize size = GetImageSize();
    SetWindowPos(nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CImageButton::DrawItem(DRAWITEMSTRUCT* item)
{
    CDC& dc = *CDC::FromHandle(item->hDC);
    CRect rect(item->rcItem);
    dc.FillSolidRect(&rect, GetSysColor(COLOR_BTNFACE));
    const bool isPressed = item->itemState & ODS_SELECTED, isDisabled = item->itemState & ODS_DISABLED;
    CBitmap& wanted = isDisabled ? m_disabled : isPressed ? m_pressed : m_normal;
    CBitmap& shown = wanted.m_hObject ? wanted : m_normal;
    const int shift = isPressed && &shown == &m_normal ? 1 : 0;
    const CSize size = GetImageSize();
    CDC memory;
    if (shown.m_hObject && memory.CreateCompatibleDC(&dc)) {
        CBitmap* const former = memory.SelectObject(&shown);
        dc.BitBlt(rect.left + (rect.Width() - size.cx) / 2 + shift,
                  rect.top + (rect.Height() - size.cy) / 2 + shift, size.cx, size.cy, &memory, 0, 0, SRCCOPY);
        memory.SelectObject(former);
    }
    if (isDisabled && &shown == &m_normal)
        dc.Draw3dRect(&rect, GetSysColor(COLOR_BTNSHADOW), GetSysColor(COLOR_BTNSHADOW));
    if (item->itemState & ODS_FOCUS) {
        rect.DeflateRect(1, 1);
        dc.DrawFocusRect(&rect);
    }
}
