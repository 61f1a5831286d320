// From stored text to glyph codes.
//
// Glyph codes share the string with plain text: U+E000, U+E100 and U+E200 are blocks of 256 positions in the
// 8-bit Devanagari, Bengali and Tamil fonts, U+E300 is the Indic Urdu block, Arabic letters become
// presentation forms, and everything else is drawn as it stands. One character may give any number of
// glyphs. Nothing here fails or keeps state.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

class StringW;

// Appends the glyphs of a zero-terminated text in display order to `glyphs`. A `length` below zero is that
// of the whole text; a shorter one ends the conversion, but its last letters are still shaped by what follows
// them. Where the system shapes complex scripts itself, `glyphs` becomes the whole text instead. The text may
// lie in `glyphs`.
COREKIT_API void ConvertToGlyphs(const WCHAR* text, int length, StringW& glyphs, bool systemShapes);

// The code point that selects the same glyph in an 8-bit font: the position, but for the positions 0x80 to
// 0x9F of the Tamil font what code page 1252 has there. A gap of that code page, and what is no glyph code,
// comes back as it is.
COREKIT_API WORD OldDumbMapSpecialGlyph(WORD glyph);

// Makes `out` the Unicode text of one character: one or two characters for those of the Indic Urdu block,
// the character itself for all others.
COREKIT_API void UrduIndicToUnicode(StringW& out, const WCHAR* text, int index);
