// One frame of the prompt view, drawn into a context: the lines in sight, the reading mark, the clocks.
#pragma once

#include "view/PromptFace.h"

namespace prompter {

struct FrameState {
    double position = 0; // pixels of the layout that have passed the reading mark
    bool isBlank = false;
    int countdown = 0;       // seconds that are left until the start; 0 for none
    std::u16string status{}; // a line at the bottom, empty for none
};

class FramePainter {
public:
    FramePainter(const PromptLayout& layout, PromptFace& face) : m_layout(layout), m_face(face) {}

    void SetStyle(const PromptStyle& style) { m_style = style; }
    // The pixels that lines may take of a frame's width.
    static int TextWidth(const PromptStyle& style, int frameWidth);
    // The layout's height that stands at the top of a frame.
    double TopOf(double position, int frameHeight) const
    {
        return position - static_cast<double>(MarkTop(frameHeight));
    }
    void Paint(HDC dc, SIZE frame, const FrameState& state);

private:
    int MarkTop(int frameHeight) const { return frameHeight * m_style.readingMark / 100; }
    void PaintLines(HDC dc, SIZE frame, double top);
    void PaintMark(HDC dc, SIZE frame, bool atRight);
    void PaintCentred(HDC dc, SIZE frame, int y, std::u16string_view text);

    const PromptLayout& m_layout;
    PromptFace& m_face;
    PromptStyle m_style;
};

} // namespace prompter
