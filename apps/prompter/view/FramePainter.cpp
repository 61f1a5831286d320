#include "view/FramePainter.h"

#include "corekit/platform/Gdi.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace prompter {
namespace {

void Fill(HDC dc, const RECT& rect, COLORREF colour)
{
    SetBkColor(dc, colour);
    ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &rect, u"", 0);
}

} // namespace

int FramePainter::TextWidth(const PromptStyle& style, int frameWidth)
{
    return std::max(frameWidth - 2 * style.margin, 1);
}

void FramePainter::Paint(HDC dc, SIZE frame, const FrameState& state)
{
    Fill(dc, {0, 0, frame.cx, frame.cy}, m_style.back);
    SetTextColor(dc, m_style.text);
    SetTextAlign(dc, TA_LEFT | TA_BASELINE);
    if (state.countdown > 0) {
        const std::string digits = std::to_string(state.countdown);
        PaintCentred(dc, frame, frame.cy / 2 - m_style.size, std::u16string(digits.begin(), digits.end()));
        return;
    }
    if (!state.isBlank) PaintLines(dc, frame, TopOf(state.position, frame.cy));
    if (state.status.empty()) return;
    const int top = frame.cy - m_style.LineHeight();
    Fill(dc, {0, top, frame.cx, frame.cy}, m_style.back);
    PaintCentred(dc, frame, top, state.status);
}

void FramePainter::PaintLines(HDC dc, SIZE frame, double top)
{
    const double readLine = top + MarkTop(frame.cy);
    bool markAtRight = false;
    m_layout.VisitLines(
        top - m_layout.LineHeight(), top + frame.cy,
        [&](std::u16string_view text, const PromptLine& line, double y) {
            const int x = line.rightToLeft ? frame.cx - m_style.margin - line.width : m_style.margin;
            if (y <= readLine && !text.empty()) markAtRight = line.rightToLeft;
            m_face.Draw(dc, x, static_cast<int>(std::lround(y - top)) + m_style.Baseline(), text);
        });
    PaintMark(dc, frame, markAtRight);
}

// A triangle in the margin whose point shows where the paragraph begins.
void FramePainter::PaintMark(HDC dc, SIZE frame, bool atRight)
{
    const int middle = MarkTop(frame.cy) + m_style.LineHeight() / 2, half = std::max(m_style.size / 3, 4);
    const int base = std::max(m_style.margin / 8, 2),
              tip = base + std::min(half * 3 / 2, m_style.margin - base);
    const auto place = [&](int x) { return atRight ? frame.cx - 1 - x : x; };
    const POINT points[] = {{place(base), middle - half}, {place(tip), middle}, {place(base), middle + half}};
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

void FramePainter::PaintCentred(HDC dc, SIZE frame, int y, std::u16string_view text)
{
    m_face.Draw(dc, (frame.cx - m_face.Width(text)) / 2, y + m_style.Baseline(), text);
}

} // namespace prompter
