// The Bengali step: a syllable of the block U+0980 to U+09FF becomes glyph codes U+E100 to U+E1FF.
//
// What is written for which characters stands in tables of rows: BengaliLetterRows.h, BengaliMarkRows.h,
// BengaliConjunctRows.h. Around a cluster the step puts the vowel signs that are stored behind it and drawn
// in front of it; U+09C7 and U+09C8 are not among them and stay where they are typed. A character without a
// row vanishes. Never fails; keeps no state.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

class StringW;

// A letter whose vowel sign may go in front of it: U+0995 to U+09B9 but for the gaps and U+09B1, U+09DF, and
// the letters with a meaning of this system's own: U+0980, U+0984, U+098D, U+09D3, U+09D4, U+09F4.
COREKIT_API bool IsBengaliConsonant(WORD c);

// Appends the glyphs of the longest row that matches at `index` of a zero-terminated text, which may have
// none, and moves the index on by one to six; a row may pass the end by one. An index outside the text moves
// by one and gives nothing.
COREKIT_API void ConvertBengaliCluster(StringW& out, const WCHAR* text, int& index);

// The same with the lower ya or na and the vowel sign that follow a consonant. At the start of the text and
// behind the word separator U+09FF, not behind a space, the signs e and ai have their initial shapes.
COREKIT_API void ConvertBengaliSyllable(StringW& out, const WCHAR* text, int& index);

namespace corekit::detail {

class GlyphSink;

// ConvertBengaliSyllable for all syllables from `index` on that begin before `limit`, up to the first
// character of another block. `end` is the length of the text up to its zero. Returns the index that comes
// next, which may lie behind `limit`.
int shapeBengaliRun(GlyphSink& sink, const WCHAR* text, int end, int index, int limit);

} // namespace corekit::detail
