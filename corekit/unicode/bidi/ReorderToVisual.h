// The library's own bidirectional pass: from logical text to the order in which it is drawn.
//
// It knows no explicit embeddings, and marks are strong like their letters. Linear in the length of the
// text, on any input; text up to a few hundred characters takes no memory beyond that of the arrays.
#pragma once

#include "corekit/foundation/StringW.h"
#include "corekit/framework/Array.h"
#include "corekit/platform/Export.h"

// Puts `text` into display order. `order` gets the logical index of each place, `types` the resolved
// bidirectional type of the character there (corekit::bidi); both get the length of the text. An odd
// `baseLevel` is a right-to-left line. An empty text leaves both arrays as they were.
COREKIT_API void ReorderToVisual(StringW& text, CArray<int, int>& order, CArray<int, int>& types,
                                 int baseLevel);

// The base level of a line: 1 if its first strong character is a right-to-left one, else 0. A negative
// count means up to the terminating zero.
COREKIT_API int GetBaseLevel(const WCHAR* text, int count);

// The Arabic marks that are drawn on top of a run and take no room in it.
constexpr bool IsTashkeel(WORD ch) { return (ch >= 0x064B && ch <= 0x065E) || ch == 0x0670; }
