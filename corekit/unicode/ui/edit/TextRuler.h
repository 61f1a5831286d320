// How wide text is, and how much of it fits: what the layout of the edit control asks of a renderer.
//
//     const int fitting = longestFitting(ruler, text, count, 300); // characters in 300 pixels
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

namespace corekit::detail {

// Not owned by those who ask it.
class TextRuler {
public:
    // Pixels that a text takes as it stands, shaped; 0 for none.
    virtual int Width(const WCHAR* text, int count) = 0;

protected:
    ~TextRuler() = default;
};

// All three look at no more text than it takes: their cost grows with the room, not with the text. They take
// it that a longer text is no narrower but for the shape of its last letters, which joining may narrow.

// The greatest beginning, in characters, that is no wider than `room`; -1 if none is. A good guess saves
// time.
COREKIT_API int longestFitting(TextRuler& ruler, const WCHAR* text, int count, int room, int guess = 256);
// The least beginning that is wider than `room`; count + 1 if none is.
COREKIT_API int leastBeyond(TextRuler& ruler, const WCHAR* text, int count, int room);
// Where the longest end of the text begins that is no wider than `room`; `count` if none is.
COREKIT_API int longestFittingEnd(TextRuler& ruler, const WCHAR* text, int count, int room);

} // namespace corekit::detail
