// The search matcher of the suite: "*" stands for any text, "?" for one character.
//
// Double quotation marks in a pattern are ignored. Letter case is that of the character database, in every
// script. A result of 0 or above is a match, as a rule its position in the text; -1 is none.
//
// A "?" is tried at the start of the text and behind each separator (punctuation, white space, controls), so
// that several of them multiply. One call looks at no more than 2^26 units and at no more than 64 question
// marks between two stars; what is found within these bounds is exact, and beyond them nothing matches. A
// pattern without "?" has no such bound.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

// Finds the pattern's parts in their order anywhere in the text; only the head of a pattern that does not
// begin with a star is bound to the beginning of a word when a star follows. "*" alone matches every text,
// with 1.
COREKIT_API int MatchWildCardString(const WCHAR* text, const WCHAR* pattern, int caseSensitive);

// The same for whole words: the parts must stand between separators, and a star frees the side it stands on.
COREKIT_API int MatchNonWildCardString(const WCHAR* text, const WCHAR* pattern, int caseSensitive);

// Not 0 if the text holds "*" or "?".
COREKIT_API int IsWildCardString(const WCHAR* text);
