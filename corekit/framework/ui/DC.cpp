#include "corekit/framework/ui/DC.h"

#include "corekit/framework/ui/TemporaryObjects.h"
#include "corekit/platform/MulDiv.h"

#include <algorithm>
#include <utility>

IMPLEMENT_DYNAMIC(CDC, CObject)

CDC::~CDC() { DeleteDC(); }

CDC* CDC::FromHandle(HDC dc)
{
    // Kept until the process ends: a handle may be asked for while other libraries go.
    static auto* const objects = new corekit::detail::TemporaryObjects<CDC, HDC, &CDC::m_hDC>;
    return objects->of(dc);
}

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

CPoint CDC::SetViewportOrg(int x, int y)
{
    CPoint before;
    ::SetViewportOrgEx(m_hDC, x, y, &before);
    return before;
}

CPoint CDC::OffsetViewportOrg(int dx, int dy)
{
    CPoint before;
    ::OffsetViewportOrgEx(m_hDC, dx, dy, &before);
    return before;
}

CPoint CDC::GetViewportOrg() const
{
    CPoint origin;
    ::GetViewportOrgEx(m_hDC, &origin);
    return origin;
}

CPoint CDC::GetCurrentPosition() const
{
    CPoint position;
    if (::MoveToEx(m_hDC, 0, 0, &position)) ::MoveToEx(m_hDC, position.x, position.y, nullptr);
    return position;
}

CPoint CDC::MoveTo(int x, int y)
{
    CPoint before;
    ::MoveToEx(m_hDC, x, y, &before);
    return before;
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

void CDC::Draw3dRect(const RECT* rect, COLORREF topLeft, COLORREF bottomRight)
{
    const CRect r(rect);
    Draw3dRect(r.left, r.top, r.Width(), r.Height(), topLeft, bottomRight);
}

void CDC::Draw3dRect(int x, int y, int width, int height, COLORREF topLeft, COLORREF bottomRight)
{
    FillSolidRect(x, y, width - 1, 1, topLeft);
    FillSolidRect(x, y, 1, height - 1, topLeft);
    FillSolidRect(x + width - 1, y, 1, height, bottomRight);
    FillSolidRect(x, y + height - 1, width, 1, bottomRight);
}

CSize CDC::GetTextExtent(const char* text, int count) const
{
    CSize size;
    ::GetTextExtentPoint32A(m_hDC, text, count, &size);
    return size;
}

// --- objects made to suit a context

BOOL CFont::CreatePointFont(int tenths, const char* face, CDC* dc)
{
    constexpr int tenthsPerInch = 720, pixelsPerInch = 96;
    const int inch = dc ? dc->GetDeviceCaps(LOGPIXELSY) : pixelsPerInch;
    LOGFONTA font{};
    font.lfHeight = -MulDiv(tenths, inch, tenthsPerInch);
    font.lfCharSet = static_cast<BYTE>(DEFAULT_CHARSET);
    const CString name(face);
    std::copy_n(static_cast<const char*>(name), std::min(name.GetLength(), LF_FACESIZE - 1), font.lfFaceName);
    return CreateFontIndirect(&font);
}

BOOL CBitmap::CreateCompatibleBitmap(CDC* like, int width, int height)
{
    return Attach(::CreateCompatibleBitmap(like ? like->m_hDC : nullptr, width, height));
}
