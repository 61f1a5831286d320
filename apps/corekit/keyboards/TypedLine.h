// A line of text as it grows under a typist's keys.
#pragma once

#include "Board.h"

#include <string>

class CKBLayout;

class TypedLine {
public:
    // Both must outlive it.
    TypedLine(CKBLayout& keyboard, const Board& board) : m_board(board), m_typist(keyboard) {}

    // What a key did: the characters that came into the line, from the keyboard or from the platform.
    struct Change {
        bool consumed;
        std::u16string characters;
    };
    // Backspace takes the last character away. The platform's own translation is that of the board, or
    // `platform` where that is known better.
    Change Press(const KeyStroke& stroke, char16_t platform = 0);

    const std::u16string& GetText() const { return m_text; }
    void Clear() { m_text.clear(); }

    // The glyph codes of the line in display order, as it would be drawn.
    std::u16string GetGlyphs() const;

private:
    const Board& m_board;
    Typist m_typist;
    std::u16string m_text;
};

// A line of glyph codes as a terminal can show it: the glyphs themselves if none is a private code, else the
// text in its standard spelling.
std::u16string TerminalText(const std::u16string& glyphs, const std::u16string& text);
