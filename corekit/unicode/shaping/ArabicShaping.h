// The Arabic step: letters of the block U+0600 to U+06FF become the presentation forms that their
// neighbours ask for.
//
// The text is in display order: the character behind another is drawn to its right. Marks and the tilde are
// passed over when neighbours are looked for. Fixed words and the ligatures of lam and alef have rows of
// their own, ArabicWordRows.h. Never fails; keeps no state.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

class StringW;

// Appends the glyphs of the character at `index` of a zero-terminated text, which may be none, and moves the
// index on, by more than one where a word row takes several characters, even past the end.
COREKIT_API void ConvertArabicGlyphs(StringW& out, const WCHAR* text, int& index);

namespace corekit::detail {

class GlyphSink;

// The same for all Arabic characters from `index` on, and for those below U+0600 among them, which stay what
// they are: up to `limit` or the first character above the block. `end` is the length of the text up to its
// zero. Returns the index that comes next.
int shapeArabicRun(GlyphSink& out, const WCHAR* text, int end, int index, int limit);

} // namespace corekit::detail
