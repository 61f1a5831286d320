#include "KeyboardPicture.h"

#include "ShownText.h"
#include "TextFile.h"

#include <cmath>

namespace {

// Pixels.
constexpr int unit = 96, gap = 8, margin = 40, titleHeight = 76, captionHeight = 56, noteHeight = 48;
constexpr int plainSize = 36, shiftedSize = 27, legendSize = 17, nameSize = 18;

constexpr COLORREF paper = RGB(232, 236, 241), capColour = RGB(255, 255, 255),
                   plateColour = RGB(214, 220, 228);
constexpr COLORREF edge = RGB(186, 194, 206), quiet = RGB(246, 248, 250);
constexpr COLORREF ink = RGB(24, 31, 42), shiftedInk = RGB(28, 92, 168), thirdInk = RGB(190, 84, 12);
constexpr COLORREF faint = RGB(140, 149, 162);

struct Face {
    char16_t first, last;
    const char* name;
};
constexpr const char* latinFace = "Noto Sans";
constexpr Face faces[] = {
    {0x0590, 0x05FF, "Noto Sans Hebrew"},     {0x0600, 0x06FF, "Noto Naskh Arabic"},
    {0x0900, 0x097F, "Noto Sans Devanagari"}, {0x0980, 0x09FF, "Noto Sans Bengali"},
    {0x0B80, 0x0BFF, "Noto Sans Tamil"},      {0xFB50, 0xFDFF, "Noto Naskh Arabic"},
    {0x2400, 0x243F, "DejaVu Sans"},
};

const char* FaceFor(std::u16string_view text)
{
    for (const char16_t c : text)
        for (const Face& face : faces)
            if (c >= face.first && c <= face.last) return face.name;
    return latinFace;
}

class Artist {
public:
    Artist(const Board& board, int width, int height)
        : m_board(board), m_picture(std::make_unique<PixelCanvas>(width, height, paper)), m_canvas(*m_picture)
    {
    }

    // Gives the number of texts that found no room on their keys and stand below.
    int Draw(const std::string& name, const std::vector<KeyboardView>& views)
    {
        Title(name);
        int y = margin + titleHeight;
        for (const KeyboardView& view : views) {
            if (!view.title.empty()) {
                m_canvas.Text(margin, y + 34, Utf16(view.title), {latinFace, 24}, ink);
                y += captionHeight;
            }
            for (std::size_t i = 0; i < m_board.caps.size(); ++i) Key(y, m_board.caps[i], view.faces[i]);
            y += boardRows * unit;
        }
        Notes(y);
        return static_cast<int>(m_notes.size());
    }
    std::unique_ptr<PixelCanvas> Take() { return std::move(m_picture); }

private:
    void Title(const std::string& name)
    {
        const int baseline = margin + 40;
        const int width = m_canvas.Text(margin, baseline, Utf16(name), {latinFace, 38, FW_BOLD}, ink);
        m_canvas.Text(margin + width + 20, baseline, Utf16(m_board.title), {latinFace, 22}, faint);
    }

    void Notes(int y)
    {
        for (std::size_t i = 0; i < m_notes.size(); ++i, y += noteHeight) {
            const std::u16string number = Utf16("(" + std::to_string(i + 1) + ")");
            const int width = m_canvas.Text(margin, y + 32, number, {latinFace, 20}, faint);
            m_canvas.Text(margin + width + 16, y + 32, m_notes[i], {FaceFor(m_notes[i]), 28}, ink);
        }
    }

    void Key(int y, const Cap& cap, const KeyFace& face)
    {
        const int left = margin + static_cast<int>(std::lround(cap.x * unit)),
                  right = margin + static_cast<int>(std::lround((cap.x + cap.width) * unit)) - gap,
                  top = y + cap.row * unit, bottom = top + unit - gap;
        const bool types = face.plain.consumed || face.shifted.consumed;
        m_canvas.RoundedRect({left, top + 3, right, bottom + 3}, 10, edge);
        m_canvas.RoundedRect({left, top, right, bottom}, 10,
                             cap.key == 0 ? plateColour
                             : types      ? capColour
                                          : quiet);
        const int inset = 12;
        if (cap.key == 0 || (!cap.name.empty() && !types)) {
            m_canvas.Text(left + inset, bottom - 16, Utf16(cap.name), {latinFace, nameSize}, faint);
            return;
        }
        Legend(cap, right - inset, bottom - 13);
        const int third =
            Typed(face.third, right - inset, top + 33, shiftedSize, thirdInk, -(right - left) / 2);
        Typed(face.shifted, left + inset, top + 33, shiftedSize, shiftedInk,
              right - left - 2 * inset - third);
        Typed(face.plain, left + inset, bottom - 18, plainSize, ink, right - left - 2 * inset - 20);
    }

    void Legend(const Cap& cap, int right, int baseline)
    {
        const char16_t letter = cap.plain >= u'a' && cap.plain <= u'z' ? cap.shifted : cap.plain;
        const std::u16string text = cap.name.empty() ? std::u16string(1, letter) : Utf16(cap.name);
        const Lettering lettering{latinFace, legendSize};
        m_canvas.Text(right - m_canvas.WidthOf(text, lettering), baseline, text, lettering, faint);
    }

    // Draws what a key types and gives its width. A negative room is to the left of x.
    int Typed(const Typist::Typed& typed, int x, int baseline, int size, COLORREF colour, int room)
    {
        if (typed.characters.empty()) return 0;
        std::u16string text = ShownText(typed.characters);
        Lettering lettering{FaceFor(text), size};
        constexpr int smallest = 17;
        while (m_canvas.WidthOf(text, lettering) > std::abs(room) && lettering.size > smallest)
            --lettering.size;
        if (m_canvas.WidthOf(text, lettering) > std::abs(room)) {
            m_notes.push_back(text);
            text = Utf16("(" + std::to_string(m_notes.size()) + ")");
            lettering = {latinFace, 20};
        }
        const int width = m_canvas.WidthOf(text, lettering);
        m_canvas.Text(room < 0 ? x - width : x, baseline, text, lettering, colour);
        return width;
    }

    const Board& m_board;
    std::unique_ptr<PixelCanvas> m_picture;
    PixelCanvas& m_canvas;
    std::vector<std::u16string> m_notes;
};

} // namespace

std::unique_ptr<PixelCanvas> DrawKeyboard(const std::string& name, const Board& board,
                                          const std::vector<KeyboardView>& views)
{
    int height = 2 * margin + titleHeight;
    for (const KeyboardView& view : views)
        height += boardRows * unit + (view.title.empty() ? 0 : captionHeight);
    const int width = 2 * margin - gap + static_cast<int>(boardWidth) * unit;
    Artist draft(board, width, height);
    const int notes = draft.Draw(name, views); // which depend on how wide the letters are
    Artist artist(board, width, height + notes * noteHeight);
    artist.Draw(name, views);
    return artist.Take();
}
