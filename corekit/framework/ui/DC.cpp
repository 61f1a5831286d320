#include "corekit/framework/ui/DC.h"

#include <utility>

IMPLEMENT_DYNAMIC(CDC, CObject)

CDC::~CDC() { DeleteDC(); }

BOOL CDC::Attach(HDC dc)
{
    if (!dc || m_hDC) return FALSE;
    m_hDC = dc;
    return TRUE;
}

HDC CDC::Detach() { return std::exchange(m_hDC, nullptr); }

BOOL CDC::DeleteDC()
{
    const HDC dc = Detach();
    return dc ? ::DeleteDC(dc) : FALSE;
}

BOOL CDC::CreateCompatibleDC(CDC* like)
{
    return m_hDC ? FALSE : Attach(::CreateCompatibleDC(like ? like->m_hDC : nullptr));
}

void CDC::FillSolidRect(const RECT* rect, COLORREF colour)
{
    SetBkColor(colour);
    ::ExtTextOutW(m_hDC, 0, 0, ETO_OPAQUE, rect, nullptr, 0);
}

void CDC::FillSolidRect(int x, int y, int width, int height, COLORREF colour)
{
    const CRect rect(CPoint(x, y), CSize(width, height));
    FillSolidRect(&rect, colour);
}
