#include "PixelCanvas.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

// A font in force.
class PixelCanvas::Font {
public:
    Font(CDC& dc, const Lettering& lettering)
        : m_dc(dc), m_font(CreateFontA(-lettering.size, 0, 0, 0, lettering.weight, 0, 0, 0, DEFAULT_CHARSET,
                                       0, 0, 0, 0, lettering.face)),
          m_before(dc.SelectObject(m_font))
    {
    }
    ~Font()
    {
        m_dc.SelectObject(m_before);
        DeleteObject(m_font);
    }
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;

private:
    CDC& m_dc;
    HFONT m_font;
    HGDIOBJ m_before;
};

namespace {

// A colour part of the way from one to another, each 0xRRGGBB.
DWORD Mixed(DWORD below, DWORD above, double share)
{
    DWORD mixed = 0xFF000000;
    for (const int shift : {0, 8, 16}) {
        const double a = below >> shift & 0xFF, b = above >> shift & 0xFF;
        mixed |= static_cast<DWORD>(std::lround(a + (b - a) * share)) << shift;
    }
    return mixed;
}

DWORD PixelOf(COLORREF colour) { return (colour & 0xFF) << 16 | (colour & 0xFF00) | (colour >> 16 & 0xFF); }

} // namespace

PixelCanvas::PixelCanvas(int width, int height, COLORREF paper) : m_width(width), m_height(height)
{
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    m_dc.CreateCompatibleDC(nullptr);
    m_bitmap = CreateDIBSection(m_dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (!m_bitmap) throw std::runtime_error("no memory for the picture");
    m_pixels = static_cast<DWORD*>(bits);
    m_before = m_dc.SelectObject(m_bitmap);
    m_dc.FillSolidRect(0, 0, width, height, paper);
    m_dc.SetBkMode(TRANSPARENT);
    m_dc.SetTextAlign(TA_LEFT | TA_BASELINE);
}

PixelCanvas::~PixelCanvas()
{
    m_dc.SelectObject(m_before);
    DeleteObject(m_bitmap);
}

void PixelCanvas::RoundedRect(const CRect& rect, int radius, COLORREF colour)
{
    const double middleX = (rect.left + rect.right) / 2.0, middleY = (rect.top + rect.bottom) / 2.0,
                 innerX = rect.Width() / 2.0 - radius, innerY = rect.Height() / 2.0 - radius;
    const DWORD above = PixelOf(colour);
    for (LONG y = rect.top; y < rect.bottom; ++y) {
        DWORD* const row = m_pixels + static_cast<std::ptrdiff_t>(y) * m_width;
        for (LONG x = rect.left; x < rect.right; ++x) {
            const double outX = std::max(0.0, std::abs(x + 0.5 - middleX) - innerX),
                         outY = std::max(0.0, std::abs(y + 0.5 - middleY) - innerY);
            const double covered = std::clamp(radius + 0.5 - std::hypot(outX, outY), 0.0, 1.0);
            row[x] = Mixed(row[x], above, covered);
        }
    }
}

int PixelCanvas::Text(int x, int baseline, std::u16string_view text, const Lettering& lettering,
                      COLORREF colour)
{
    const int width = WidthOf(text, lettering);
    const Font font(m_dc, lettering);
    m_dc.SetTextColor(colour);
    ExtTextOutW(m_dc, x, baseline, 0, nullptr, text.data(), static_cast<UINT>(text.size()));
    return width;
}

int PixelCanvas::WidthOf(std::u16string_view text, const Lettering& lettering)
{
    const Font font(m_dc, lettering);
    SIZE size{};
    GetTextExtentPoint32W(m_dc, text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
}
