#include "view/FramePainter.h"

#include "corekit/platform/Gdi.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <string>

namespace prompter {
namespace {

// How far the ink of a line may reach above its own lines' height and below it, in lines.
constexpr int reach = 1;

void Fill(HDC dc, const RECT& rect, COLORREF colour)
{
    SetBkColor(dc, colour);
    ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &rect, u"", 0);
}

// What is drawn between its beginning and its end stays within the rows.
class ClippedToRows {
public:
    ClippedToRows(HDC dc, int width, int from, int to) : m_dc(dc), m_state(SaveDC(dc))
    {
        IntersectClipRect(dc, 0, from, width, to);
    }
    ~ClippedToRows() { RestoreDC(m_dc, m_state); }
    ClippedToRows(const ClippedToRows&) = delete;
    ClippedToRows& operator=(const ClippedToRows&) = delete;

private:
    HDC m_dc;
    int m_state;
};

std::uint32_t* RowOf(const FrameBuffer& frame, int row)
{
    return frame.Pixels().data() + static_cast<std::ptrdiff_t>(row) * frame.Size().cx;
}

void MoveRows(const FrameBuffer& frame, int from, int to, int count)
{
    std::memmove(RowOf(frame, to), RowOf(frame, from),
                 static_cast<std::size_t>(count) * static_cast<std::size_t>(frame.Size().cx) *
                     sizeof(std::uint32_t));
}

// Copies a box between the frame and a vector of its rows.
template <class Copy>
void ForEachRow(const FrameBuffer& frame, const RECT& box, std::vector<std::uint32_t>& kept, Copy copy)
{
    const auto width = static_cast<std::size_t>(box.right - box.left);
    std::uint32_t* at = kept.data();
    for (int row = box.top; row < box.bottom; ++row, at += width)
        copy(RowOf(frame, row) + box.left, at, width);
}

} // namespace

void FramePainter::SetStyle(const PromptStyle& style)
{
    m_style = style;
    Forget();
}

int FramePainter::TextWidth(const PromptStyle& style, int frameWidth)
{
    return std::max(frameWidth - 2 * style.margin, 1);
}

int FramePainter::TextBottom(SIZE frame, const FrameState& state) const
{
    return std::max(state.status.empty() ? frame.cy : frame.cy - m_style.LineHeight(), 0);
}

void FramePainter::Paint(FrameBuffer& frame, const FrameState& state)
{
    const HDC dc = frame.Context();
    SetTextColor(dc, m_style.text);
    SetTextAlign(dc, TA_LEFT | TA_BASELINE);
    const int top = static_cast<int>(std::lround(TopOf(state.position, frame.Size().cy)));
    if (CanScroll(frame, state, top))
        Scroll(frame, state, top);
    else
        PaintWhole(frame, state, top);
    m_shown = frame.Pixels().data();
    m_state = state;
    m_top = top;
}

bool FramePainter::CanScroll(const FrameBuffer& frame, const FrameState& state, int top) const
{
    return m_shown == frame.Pixels().data() && state.ShowsText() && m_state.ShowsText() &&
           state.status.empty() == m_state.status.empty() && state.markers == m_state.markers &&
           std::abs(top - m_top) < TextBottom(frame.Size(), state);
}

void FramePainter::PaintWhole(FrameBuffer& frame, const FrameState& state, int top)
{
    const HDC dc = frame.Context();
    const SIZE size = frame.Size();
    Fill(dc, {0, 0, size.cx, size.cy}, m_style.back);
    m_markBox = {};
    if (state.countdown > 0) {
        const std::string digits = std::to_string(state.countdown);
        PaintCentred(dc, size, size.cy / 2 - m_style.size, std::u16string(digits.begin(), digits.end()));
        return;
    }
    const int bottom = TextBottom(size, state);
    if (!state.isBlank) {
        PaintRows(frame, state, top, {0, bottom});
        PaintMark(frame, top, bottom);
    }
    if (!state.status.empty()) PaintStatus(dc, size, state.status);
}

void FramePainter::Scroll(FrameBuffer& frame, const FrameState& state, int top)
{
    const int bottom = TextBottom(frame.Size(), state), by = top - m_top;
    if (by != 0) {
        RemoveMark(frame);
        MoveRows(frame, std::max(by, 0), std::max(-by, 0), bottom - std::abs(by));
        const Rows bare = by > 0 ? Rows{bottom - by, bottom} : Rows{0, -by};
        Fill(frame.Context(), {0, bare.from, frame.Size().cx, bare.to}, m_style.back);
        PaintRows(frame, state, top, bare);
        PaintMark(frame, top, bottom);
    }
    if (state.status != m_state.status) PaintStatus(frame.Context(), frame.Size(), state.status);
}

// Rows on which the text is to stand have the colour of the ground.
void FramePainter::PaintRows(FrameBuffer& frame, const FrameState& state, int top, Rows rows)
{
    const HDC dc = frame.Context();
    const SIZE size = frame.Size();
    const ClippedToRows clip(dc, size.cx, rows.from, rows.to);
    const int line = m_layout.LineHeight();
    m_layout.VisitLines(top + rows.from - (1 + reach) * line, top + rows.to + reach * line,
                        [&](std::u16string_view text, const PromptLine& laid, double y) {
                            const int x =
                                laid.rightToLeft ? size.cx - m_style.margin - laid.width : m_style.margin;
                            m_face.Draw(dc, x, static_cast<int>(y) - top + m_style.Baseline(), text,
                                        laid.rightToLeft ? 1 : 0);
                        });
    PaintMarkers(dc, size, state, top);
}

// A bar in either margin beside each marked line.
void FramePainter::PaintMarkers(HDC dc, SIZE frame, const FrameState& state, int top)
{
    const int width = m_style.margin / 4, height = m_style.size / 6;
    for (const double marker : state.markers) {
        const int y = static_cast<int>(std::lround(marker)) - top + (m_style.LineHeight() - height) / 2;
        if (y + height <= 0 || y >= frame.cy) continue;
        const int inner = m_style.margin * 5 / 8;
        Fill(dc, {inner - width, y, inner, y + height}, m_style.mark);
        Fill(dc, {frame.cx - inner, y, frame.cx - inner + width, y + height}, m_style.mark);
    }
}

bool FramePainter::IsMarkAtRight(int top, int frameHeight) const
{
    bool isAtRight = false;
    m_layout.VisitLines(top - m_layout.LineHeight(), top + MarkTop(frameHeight) + 1,
                        [&](std::u16string_view text, const PromptLine& line, double) {
                            if (!text.empty()) isAtRight = line.rightToLeft;
                        });
    return isAtRight;
}

RECT FramePainter::MarkBox(SIZE frame, bool atRight) const
{
    const int middle = MarkTop(frame.cy) + m_style.LineHeight() / 2, half = std::max(m_style.size / 3, 4);
    const int base = std::max(m_style.margin / 8, 2),
              tip = std::max(base + std::min(half * 3 / 2, m_style.margin - base), base);
    const RECT box = {base, middle - half, tip + 1, middle + half + 1};
    return atRight ? RECT{frame.cx - box.right, box.top, frame.cx - box.left, box.bottom} : box;
}

// A triangle in the margin whose point shows where the paragraph begins.
void FramePainter::PaintMark(FrameBuffer& frame, int top, int bottom)
{
    const SIZE size = frame.Size();
    const bool atRight = IsMarkAtRight(top, size.cy);
    const RECT box = MarkBox(size, atRight);
    m_markBox = {std::clamp(box.left, 0, size.cx), std::clamp(box.top, 0, bottom),
                 std::clamp(box.right, 0, size.cx), std::clamp(box.bottom, 0, bottom)};
    m_underMark.resize(static_cast<std::size_t>(m_markBox.right - m_markBox.left) *
                       static_cast<std::size_t>(m_markBox.bottom - m_markBox.top));
    ForEachRow(
        frame, m_markBox, m_underMark,
        [](const std::uint32_t* row, std::uint32_t* kept, std::size_t n) { std::copy_n(row, n, kept); });
    const HDC dc = frame.Context();
    const ClippedToRows clip(dc, size.cx, 0, bottom);
    const int base = atRight ? box.right - 1 : box.left, tip = atRight ? box.left : box.right - 1;
    const POINT points[] = {{base, box.top}, {tip, (box.top + box.bottom - 1) / 2}, {base, box.bottom - 1}};
    const HBRUSH brush = CreateSolidBrush(m_style.mark);
    const HGDIOBJ former = SelectObject(dc, brush);
    const HPEN pen = CreatePen(PS_NULL, 0, 0);
    const HGDIOBJ formerPen = SelectObject(dc, pen);
    Polygon(dc, points, 3);
    SelectObject(dc, formerPen);
    SelectObject(dc, former);
    DeleteObject(pen);
    DeleteObject(brush);
}

void FramePainter::RemoveMark(FrameBuffer& frame)
{
    ForEachRow(
        frame, m_markBox, m_underMark,
        [](std::uint32_t* row, const std::uint32_t* kept, std::size_t n) { std::copy_n(kept, n, row); });
}

void FramePainter::PaintStatus(HDC dc, SIZE frame, const std::u16string& text)
{
    const int top = frame.cy - m_style.LineHeight();
    const ClippedToRows clip(dc, frame.cx, std::max(top, 0), frame.cy);
    Fill(dc, {0, top, frame.cx, frame.cy}, m_style.back);
    PaintCentred(dc, frame, top, text);
}

void FramePainter::PaintCentred(HDC dc, SIZE frame, int y, std::u16string_view text)
{
    m_face.Draw(dc, (frame.cx - m_face.Width(text)) / 2, y + m_style.Baseline(), text, 0);
}

} // namespace prompter
