// One frame of the prompt view: the lines in sight, the reading mark, the clocks.
//
// A frame that has only moved is scrolled: rows that stay in sight are moved, and the others drawn, so that a
// step costs the same however many lines and scripts are in sight. It is the same frame, pixel by pixel, as
// one that is drawn anew. User-interface thread.
#pragma once

#include "view/FrameBuffer.h"
#include "view/PromptFace.h"

#include <vector>

namespace prompter {

struct FrameState {
    double position = 0; // pixels of the layout that have passed the reading mark
    bool isBlank = false;
    int countdown = 0;             // seconds that are left until the start; 0 for none
    std::u16string status{};       // a line at the bottom, empty for none
    std::vector<double> markers{}; // heights of the layout at which a marked line begins

    bool ShowsText() const { return !isBlank && countdown == 0; }
};

class FramePainter {
public:
    FramePainter(const PromptLayout& layout, PromptFace& face) : m_layout(layout), m_face(face) {}

    void SetStyle(const PromptStyle& style);
    // The pixels that lines may take of a frame's width.
    static int TextWidth(const PromptStyle& style, int frameWidth);
    // The layout's height that stands at the top of a frame.
    double TopOf(double position, int frameHeight) const
    {
        return position - static_cast<double>(MarkTop(frameHeight));
    }
    // Makes the frame show the state. Of a frame that it painted last it draws only what has changed.
    void Paint(FrameBuffer& frame, const FrameState& state);
    // The layout is no longer what the last frame shows.
    void Forget() { m_shown = nullptr; }

private:
    struct Rows {
        int from, to;
    };
    int MarkTop(int frameHeight) const { return frameHeight * m_style.readingMark / 100; }
    // Rows of the text; the status line has those below.
    int TextBottom(SIZE frame, const FrameState& state) const;
    bool CanScroll(const FrameBuffer& frame, const FrameState& state, int top) const;
    void PaintWhole(FrameBuffer& frame, const FrameState& state, int top);
    void Scroll(FrameBuffer& frame, const FrameState& state, int top);
    void PaintRows(FrameBuffer& frame, const FrameState& state, int top, Rows rows);
    void PaintMarkers(HDC dc, SIZE frame, const FrameState& state, int top);
    void PaintMark(FrameBuffer& frame, int top, int bottom);
    void RemoveMark(FrameBuffer& frame);
    bool IsMarkAtRight(int top, int frameHeight) const;
    RECT MarkBox(SIZE frame, bool atRight) const;
    void PaintCentred(HDC dc, SIZE frame, int y, std::u16string_view text);
    void PaintStatus(HDC dc, SIZE frame, const std::u16string& text);

    const PromptLayout& m_layout;
    PromptFace& m_face;
    PromptStyle m_style;
    // What the last frame shows.
    const std::uint32_t* m_shown = nullptr; // its pixels, null for none
    FrameState m_state;
    int m_top = 0;
    RECT m_markBox{};
    std::vector<std::uint32_t> m_underMark; // pixels of the box without the mark
};

} // namespace prompter
