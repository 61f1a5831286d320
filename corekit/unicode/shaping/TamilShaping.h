// The Tamil step: letters of the block U+0B80 to U+0BFF, each with the sign that follows it, become glyph
// codes U+E200 to U+E2FF.
//
// There are two clusters, k-ss and the word sri. A sign without a consonant is written on a space; what has
// no glyph stays what it is. Never fails; keeps no state.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

class StringW;

// Appends the glyphs of the letter at `index` of a zero-terminated text and of its sign, and moves the index
// on by one to four, not past the end. An index outside the text moves by one and gives nothing.
COREKIT_API void ConvertTamilSyllable(StringW& out, const WCHAR* text, int& index);

// The same for the consonant c0, which may be a space, if its sign c1 follows: false, and nothing done, if
// not. c2 and c3 come behind them; 0 stands for the end of the text. The index moves on by two to four.
COREKIT_API bool ConvertTamilConsonantSign(WORD c0, WORD c1, WORD c2, WORD c3, StringW& out, int& index);

// Appends k-ss with its sign and moves the index on by four, or by three if `sign` is none.
COREKIT_API void ConvertTamilKssaSign(WORD sign, StringW& out, int& index);

// The glyph of a consonant alone, or in one piece with a sign; 0 where the font has none.
COREKIT_API WORD TamilBaseGlyph(WORD consonant);
COREKIT_API WORD TamilSignIGlyph(WORD consonant);
COREKIT_API WORD TamilSignIIGlyph(WORD consonant);
COREKIT_API WORD TamilSignUGlyph(WORD consonant);
COREKIT_API WORD TamilSignUUGlyph(WORD consonant);
COREKIT_API WORD TamilViramaGlyph(WORD consonant);
COREKIT_API WORD TamilAnusvaraGlyph(WORD consonant);

namespace corekit::detail {

class GlyphSink;

// ConvertTamilSyllable for all letters of the block from `index` on that begin before `limit`. `end` is the
// length of the text up to its zero. Returns the index that comes next, which may lie behind `limit`.
int shapeTamilRun(GlyphSink& sink, const WCHAR* text, int end, int index, int limit);

} // namespace corekit::detail
