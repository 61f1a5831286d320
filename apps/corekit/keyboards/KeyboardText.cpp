#include "KeyboardText.h"

#include "Output.h"
#include "ShownText.h"
#include "TextFile.h"

#include "corekit/unicode/tables/CharacterCodes.h"
#include "corekit/unicode/tables/UnicodeCharTypes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace {

constexpr int keyColumns = 5; // with one border
constexpr int keyLines = 3;
constexpr int columns = static_cast<int>(boardWidth) * keyColumns + 1;
constexpr int lines = boardRows * keyLines + 1;

// A combining mark shares the column of its letter.
bool TakesColumn(char16_t c) { return CUnicodeCharTypes::GetGeneralType(c) != 0; }
int ColumnsOf(std::u16string_view text) { return static_cast<int>(std::ranges::count_if(text, TakesColumn)); }

// Characters of one terminal column each, and boxes whose lines join where they meet.
class Canvas {
public:
    // Where letters run to the left, marks keep the borders between them in their places.
    explicit Canvas(bool rightToLeft) : m_upright(rightToLeft ? "\u200E│\u200E" : "│")
    {
        for (auto& line : m_cells) line.fill(" ");
    }

    void Box(int left, int top, int right, int bottom)
    {
        for (int x = left; x < right; ++x)
            for (const int y : {top, bottom}) {
                Join(x, y, toRight);
                Join(x + 1, y, toLeft);
            }
        for (int y = top; y < bottom; ++y)
            for (const int x : {left, right}) {
                Join(x, y, down);
                Join(x, y + 1, up);
            }
    }

    void Write(int x, int y, std::u16string_view text)
    {
        for (std::size_t i = 0; i < text.size(); ++x) {
            std::size_t end = i + 1;
            while (end < text.size() && !TakesColumn(text[end])) ++end;
            At(x, y) = Utf8(text.substr(i, end - i));
            i = end;
        }
    }

    void Print() const
    {
        for (const auto& line : m_cells) {
            std::string text;
            for (const std::string& cell : line) text += cell;
            text.erase(text.find_last_not_of(' ') + 1);
            PrintLine(text);
        }
    }

private:
    static constexpr unsigned up = 1, down = 2, toLeft = 4, toRight = 8;

    std::string& At(int x, int y)
    {
        return m_cells[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
    }

    void Join(int x, int y, unsigned direction)
    {
        constexpr const char* joints[16] = {" ", "│", "│", "│", "─", "┘", "┐", "┤",
                                            "─", "└", "┌", "├", "─", "┴", "┬", "┼"};
        unsigned& directions = m_joints[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
        directions |= direction;
        At(x, y) = directions == (up | down) ? m_upright : joints[directions];
    }

    const char* m_upright;

    std::array<std::array<std::string, columns>, lines> m_cells;
    std::array<std::array<unsigned, columns>, lines> m_joints{};
};

int ColumnAt(double keys) { return static_cast<int>(std::lround(keys * keyColumns)); }

// Writes the keys of a view; what is too wide for its key becomes a note with a number.
class KeyWriter {
public:
    KeyWriter(Canvas& canvas, std::vector<std::u16string>& notes) : m_canvas(canvas), m_notes(notes) {}

    void Write(const Cap& cap, const KeyFace& face)
    {
        const int left = ColumnAt(cap.x), right = ColumnAt(cap.x + cap.width), top = cap.row * keyLines;
        m_canvas.Box(left, top, right, top + keyLines);
        const int room = right - left - 1;
        if (cap.key == 0 || !cap.name.empty()) {
            const std::u16string name = Utf16(cap.name);
            const auto shown = std::u16string_view(name).substr(0, static_cast<std::size_t>(room));
            m_canvas.Write(right - static_cast<int>(shown.size()), top + 2, shown);
        } else {
            const char16_t legend = cap.plain >= u'a' && cap.plain <= u'z' ? cap.shifted : cap.plain;
            m_canvas.Write(right - 1, top + 2, {&legend, 1});
        }
        const std::u16string third = Shown(face.third, 2);
        m_canvas.Write(left + 1, top + 1, Shown(face.shifted, third.empty() ? room : room - 2));
        m_canvas.Write(right - ColumnsOf(third), top + 1, third);
        m_canvas.Write(left + 1, top + 2, Shown(face.plain, room - 1));
    }

private:
    std::u16string Shown(const Typist::Typed& typed, int room)
    {
        std::u16string text = ShownText(typed.characters);
        if (ColumnsOf(text) <= room) return text;
        m_notes.push_back(text);
        return Utf16("*" + std::to_string(m_notes.size()));
    }

    Canvas& m_canvas;
    std::vector<std::u16string>& m_notes;
};

bool RunsToTheLeft(const KeyboardView& view)
{
    return std::ranges::any_of(view.faces, [](const KeyFace& face) {
        return std::ranges::any_of(StandardText(face.plain.characters), [](char16_t c) {
            return CUnicodeCharTypes::GetBiDirectionalType(c) == corekit::bidi::R;
        });
    });
}

} // namespace

void PrintKeyboard(const std::string& name, const Board& board, const std::vector<KeyboardView>& views)
{
    Print("%s, %s\n", name.c_str(), board.title.c_str());
    for (const KeyboardView& view : views) {
        if (!view.title.empty()) Print("\n%s:\n", view.title.c_str());
        Canvas canvas(RunsToTheLeft(view));
        std::vector<std::u16string> notes;
        KeyWriter writer(canvas, notes);
        for (std::size_t i = 0; i < board.caps.size(); ++i) writer.Write(board.caps[i], view.faces[i]);
        canvas.Print();
        for (std::size_t i = 0; i < notes.size(); ++i) Print("*%zu  %s\n", i + 1, Utf8(notes[i]).c_str());
    }
}
