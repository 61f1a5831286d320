// The display lines of a text: where each begins, how long it is, which cursor positions it offers.
//
// Wrapped, a line ends behind the last word that fits, behind a newline, or within a word that is too wide
// for any line; every character of the text stands in a line, a newline as a blank. Not wrapped, the newlines
// part the lines and stand in none; nothing stands behind the last.
//
// A cursor position counts the characters of all lines before its own, one more for each of them, and its
// offset in the line: a line of n characters offers n + 1 positions.
//
// Lines that a change of the text cannot have touched are kept. What a line depends on is the text from its
// start up to the last character that was looked at to end it, so an edit starts anew at the first line that
// has looked at it, and ends where an old line begins at a place behind the edit.
#pragma once

#include "corekit/unicode/ui/edit/TextRuler.h"

#include <string>
#include <string_view>
#include <vector>

namespace corekit::detail {

enum class Wrapping { off, on };

class COREKIT_API DisplayLines {
public:
    // No lines yet. The ruler must outlive the object; it is asked only for wrapped lines. One thread at a
    // time.
    explicit DisplayLines(TextRuler& ruler) : m_ruler(ruler) {}

    // The lines of another text, mode, room or font; `room` in pixels. Nothing happens where all is the same.
    void SetMode(Wrapping wrapping, int room);
    // All lines are made anew by the next update: another font, or a text that has nothing in common.
    void Forget() { m_head = m_tail = 0; }
    // The text changes, but for `head` characters at its beginning and `tail` at its end.
    void TextChanges(int head, int tail);
    // Makes the lines those of the text, which is all that the operations below tell of.
    void Update(std::u16string_view text);

    int Count() const { return static_cast<int>(m_lines.size()); }
    // A line's characters: first and number. One beyond the last is empty.
    int StartOf(int line) const { return line < Count() ? m_lines[At(line)].start : m_length; }
    int LengthOf(int line) const { return line < Count() ? m_lines[At(line)].length : 0; }
    // The characters in all lines before one, which may be one beyond the last.
    int LengthBefore(int line) const;
    // The cursor position of a line's start.
    int PositionOf(int line) const { return LengthBefore(line) + line; }
    // The first line in which the cursor position lies; Count() if there is none.
    int LineAt(int position) const;

private:
    // A display line. Characters are counted in UTF-16 units.
    struct Line {
        int start, length;
        int seen; // behind the last character looked at, in this line or one before
    };
    static std::size_t At(int line) { return static_cast<std::size_t>(line); }

    Line Delimited(int start); // up to the next newline
    Line Wrapped(int start);   // the words that fit
    int Fitting(int start, int end);
    Line Cut(int start, int length, int beyond);
    int HardEnd(int start);
    int BreakAt(int from, int limit) const;
    int LastThatFits(int start, int fits, int& beyond);
    bool Fits(int start, int end); // with a newline as a blank
    int NextStart(const Line& line) const;
    void Replace(std::size_t first, std::size_t old, int delta);

    TextRuler& m_ruler;
    Wrapping m_wrapping = Wrapping::on;
    int m_room = 0;
    int m_head = 0, m_tail = 0; // characters that have not changed since the last update
    int m_length = 0;           // of the text
    std::vector<Line> m_lines;
    // While lines are made.
    std::u16string_view m_text;
    std::vector<Line> m_made;
    std::vector<int> m_breaks;
    std::u16string m_blanked;
    int m_hardEnd = 0, m_usual = 0;
};

} // namespace corekit::detail
