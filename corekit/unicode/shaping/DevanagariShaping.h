// The Devanagari step: a syllable of the block U+0900 to U+097F becomes glyph codes U+E000 to U+E0FF.
//
// A syllable is up to three consonants joined by virama, each with its marks, and at most one vowel sign; a
// longer cluster is cut. What has no glyph, such as a sign without its consonant, is taken and vanishes.
// Never fails; keeps no state from one syllable to the next.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

class StringW;

// Appends the glyphs of the syllable that begins at `index` of a zero-terminated text, which may be none, and
// moves the index behind it, at most to the end of the text. An index outside the text moves by one.
COREKIT_API void ConvertDevanagariSyllable(StringW& out, const WCHAR* text, int& index);

// A letter that virama joins: U+0915 to U+0939, U+0958 to U+095F, U+097C to U+097F.
COREKIT_API bool IsDevanagariConsonant(WCHAR c);
// A dependent vowel sign: U+093E to U+094C.
COREKIT_API bool IsDevanagariMatra(WCHAR c);

namespace corekit::detail {

class GlyphSink;

// The same for all syllables from `index` on that begin before `limit`, up to the first character of another
// block. `end` is the length of the text up to its zero. Returns the index that comes next, which may lie
// behind `limit`.
int shapeDevanagariRun(GlyphSink& sink, const WCHAR* text, int end, int index, int limit);

} // namespace corekit::detail
