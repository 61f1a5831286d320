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
//
// Lines are made when they are asked for, and those before them; the last one, or their number, makes all.
#pragma once

#include "corekit/unicode/ui/edit/TextRuler.h"

#include <algorithm>
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
    void Forget() { TextChanges(0, 0); }
    // The text changes, but for `head` characters at its beginning and `tail` at its end. No line is made
    // until the next update.
    void TextChanges(int head, int tail);
    // The lines are those of the text, which must stand as it is until the next change or update.
    void Update(std::u16string_view text);
    // Makes some more lines; false if there are all.
    bool MakeSome();

    int Count()
    {
        while (MakeSome()) {
        }
        return Made();
    }
    bool Has(int line);
    // A line's characters: first and number. One beyond the last is empty.
    int StartOf(int line) { return Has(line) ? m_lines[At(line)].start : m_length; }
    int LengthOf(int line) { return Has(line) ? m_lines[At(line)].length : 0; }
    // The characters in all lines before one, which may be one beyond the last.
    int LengthBefore(int line);
    // The cursor position of a line's start.
    int PositionOf(int line) { return LengthBefore(line) + line; }
    // The first line in which the cursor position lies; Count() if there is none.
    int LineAt(int position);
    // The line of an index into the text; the last one beyond its end.
    int LineOfIndex(int index);
    // The last line with no more than so many characters in the lines before it.
    int LineBehind(int characters);
    // The line, or the first or last if there is none of the number; 0 without any.
    int Nearest(int line) { return Has(line) || line < 0 ? std::max(line, 0) : std::max(Made() - 1, 0); }

private:
    // A display line. Characters are counted in UTF-16 units.
    struct Line {
        int start, length;
        int seen; // behind the last character looked at, in this line or one before
    };
    // A line of the text before the last changes, counted from the end of the text.
    struct FormerLine {
        int start, length;
        int seen; // atEnd: the end of the text itself
    };
    static std::size_t At(int line) { return static_cast<std::size_t>(line); }
    int Made() const { return static_cast<int>(m_lines.size()); }
    template <class IsBefore>
    int LastLine(IsBefore isBefore);

    void KeepFrom(std::size_t first); // takes lines that were touched, and those behind, for former ones
    void Add(Line line);
    bool TakeFormer(int start); // one that begins there, and those that follow it
    void MakeLine();            // the next one, and all others where former ones can be taken
    Line Delimited(int start);  // up to the next newline
    Line Wrapped(int start);    // the words that fit
    int Fitting(int start, int end);
    Line Cut(int start, int length, int beyond);
    int HardEnd(int start);
    int BreakAt(int from, int limit) const;
    int LastThatFits(int start, int fits, int& beyond);
    bool Fits(int start, int end); // with a newline as a blank
    int NextStart() const;         // of the line behind the last that is made

    TextRuler& m_ruler;
    Wrapping m_wrapping = Wrapping::on;
    int m_room = 0;
    std::u16string_view m_text; // the caller's; empty from a change to the next update
    int m_length = 0;           // of the text at the last update
    std::vector<Line> m_lines;  // as far as they are made
    // The last first. Those whose start lies in the last m_tail characters may be taken again.
    std::vector<FormerLine> m_former;
    int m_head = 0; // characters that have not changed since the last update
    int m_tail = 0; // and at the end, since the former lines were made
    // While lines are made.
    std::vector<int> m_breaks;
    std::u16string m_blanked;
    int m_hardEnd = 0, m_usual = 0;
};

} // namespace corekit::detail
