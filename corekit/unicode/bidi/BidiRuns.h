// The levels of a line, in runs: everything here works on stretches of equal type, so that the cost of a
// rule is paid per word and not per character.
#pragma once

#include "corekit/platform/Types.h"

namespace corekit::detail {

// Characters up to `end`, from the end of the run before.
struct TypeRun {
    int end;
    int type;
};

// The level counts from the even level at or below the base level: 0 stays, 1 is turned round, 2 is turned
// round twice.
struct LevelRun {
    int end;
    short type;
    short level;
};

// The runs of equal table type of a text, at most one per character; returns how many.
int splitByType(const WCHAR* text, int length, TypeRun* runs);

// Joins words of one direction with the neutrals between them, which always take that direction. Changes no
// result, and leaves few runs to the rules.
int joinWords(TypeRun* runs, int count);

// Settles numbers, separators and neutrals, and sets the levels; again at most one run per character.
int resolveRuns(const TypeRun* runs, int count, int length, bool rightToLeft, LevelRun* out);

} // namespace corekit::detail
