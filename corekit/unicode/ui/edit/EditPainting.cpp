// Painting: the frame, the ground, and each row in three parts: before, in and behind the selection.
#include "corekit/graphics/ui/SysColourMetricCache.h"
#include "corekit/platform/Gdi.h"
#include "corekit/unicode/ui/edit/MultilineUnicodeEditCtl.h"
#include "corekit/unicode/ui/UnicodeManager.h"

using namespace corekit::detail;

namespace {

constexpr int margin = 4, bothMargins = 8; // of a row, left and right
constexpr int topMargin = 2;
constexpr int longestWhole = 512, reserve = 64; // characters
constexpr UINT fillClipped = ETO_OPAQUE | ETO_CLIPPED;

// A control is painting for as long as it lives, also when painting throws.
class Painting {
public:
    explicit Painting(bool& is) : m_is(is) { m_is = true; }
    ~Painting() { m_is = false; }
    Painting(const Painting&) = delete;
    Painting& operator=(const Painting&) = delete;

private:
    bool& m_is;
};

class Paint {
public:
    explicit Paint(HWND window) : m_window(window) { BeginPaint(m_window, &m_paint); }
    ~Paint() { EndPaint(m_window, &m_paint); }
    Paint(const Paint&) = delete;
    Paint& operator=(const Paint&) = delete;

    HDC Context() const { return m_paint.hdc; }
    const RECT& Invalid() const { return m_paint.rcPaint; }

private:
    HWND m_window;
    PAINTSTRUCT m_paint{};
};

// Draws with a renderer for as long as it lives.
class Attached {
public:
    Attached(CUniRender& renderer, HDC dc) : m_renderer(renderer) { m_renderer.AttachDC(dc); }
    ~Attached() { m_renderer.DetachDC(); }
    Attached(const Attached&) = delete;
    Attached& operator=(const Attached&) = delete;

private:
    CUniRender& m_renderer;
};

void take(CArray<int, int>& part, const CArray<int, int>& all, int from, int count)
{
    count = std::clamp(all.GetSize() - from, 0, count);
    part.SetSize(count);
    std::copy_n(all.GetData() + from, count, part.GetData());
}

} // namespace

void CMultilineUnicodeEditCtl::OnPaint()
{
    if (m_inPaint) return;
    const Painting painting(m_inPaint);
    const Paint paint(m_hWnd);
    const HDC dc = paint.Context();
    LookAround();
    CRect frame;
    GetClientRect(&frame);
    DrawFrameControl(dc, &frame, DFC_BUTTON,
                     DFCS_ADJUSTRECT | (m_model.Border() ? DFCS_PUSHED | DFCS_BUTTONPUSH : DFCS_BUTTONCHECK));
    SetBkColor(dc, m_backColour);
    ExtTextOutW(dc, frame.left, frame.top, fillClipped, &frame, u"", 0);
    const Attached attached(m_paintRenderer, dc);
    PaintRows(dc, frame, paint.Invalid());
}

void CMultilineUnicodeEditCtl::PaintRows(HDC dc, const CRect& frame, const RECT& invalid)
{
    const int height = m_model.TextHeight();
    int y = topMargin;
    for (int line = m_model.TopLine();
         y + height <= frame.bottom && m_model.ConvertDataToDisplayLines().Has(line); ++line, y += height) {
        if (y >= invalid.bottom || y + height <= invalid.top) continue;
        m_model.GetRow(line, m_row);
        PaintRow(dc, frame, y, m_row);
    }
}

// Of a line that is not wrapped most lies beyond the frame; what is far out is not drawn.
void CMultilineUnicodeEditCtl::CutToFrame(const CRect& frame, EditRow& row)
{
    if (row.shown <= longestWhole) return;
    const WCHAR* const text = static_cast<const WCHAR*>(row.line.Text()) + row.first;
    int cut = 0;
    if (m_model.Alignment() == EditModel::left)
        row.shown = std::min(row.shown, leastBeyond(m_ruler, text, row.shown, frame.Width()) + reserve);
    else if (m_model.Alignment() == EditModel::right)
        cut = std::max(longestFittingEnd(m_ruler, text, row.shown, frame.Width()) - reserve, 0);
    row.first += cut;
    row.shown -= cut;
    row.from = std::clamp(row.from - cut, 0, row.shown);
    row.to = std::clamp(row.to - cut, 0, row.shown);
}

void CMultilineUnicodeEditCtl::PaintRow(HDC dc, const CRect& frame, int top, EditRow& row)
{
    CutToFrame(frame, row);
    const WCHAR* const text = static_cast<const WCHAR*>(row.line.Text()) + row.first;
    int x = frame.left;
    if (m_model.Alignment() != EditModel::left) {
        x = frame.right - m_ruler.Width(text, row.shown) - bothMargins;
        if (m_model.Alignment() == EditModel::centred) x /= 2;
    }
    x += margin;
    const int ends[] = {row.from, row.to, row.shown};
    int from = 0;
    for (int part = 0; part < 3; ++part) {
        const int count = ends[part] - from;
        m_portion.AssignCopy(count, text + from);
        take(m_portionTypes, row.line.Types(), row.first + from, count);
        const int right = part == 2 ? frame.right - margin : x + m_ruler.Width(m_portion, count);
        DrawStringPortion(dc, m_portion, part == 1, CRect(x, top, right, top + m_model.TextHeight()),
                          m_portionTypes);
        x = right;
        from = ends[part];
    }
}

void CMultilineUnicodeEditCtl::DrawStringPortion(HDC dc, StringW& text, int selected, const CRect& rect,
                                                 CArray<int, int>& types)
{
    const CSysColourMetricCache& system = SysColourMetricCache();
    SetTextColor(dc, selected ? system.m_highlightText : m_textColour);
    SetBkColor(dc, selected ? system.m_highlight : m_backColour);
    if (text.IsEmpty()) {
        ExtTextOutW(dc, rect.left, rect.top, fillClipped, &rect, u"", 0);
        return;
    }
    m_glyphs.Empty();
    m_manager->ConvertToGlyphs(text, text.GetLength(), m_glyphs);
    const CSize size = m_paintRenderer.CalcGlyphStringSize(m_glyphs, m_glyphs.GetLength(), 0);
    const int y = rect.top + (rect.Height() - size.cy) / 2;
    m_paintRenderer.DrawGlyphString(rect.left, y, fillClipped, rect, m_glyphs, types, m_glyphs.GetLength(),
                                    0);
}
