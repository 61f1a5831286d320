// The levels of a line, in runs: everything here works on stretches of equal type, so that the cost of a
// rule is paid per word and not per character.
#pragma once

#include "corekit/platform/Types.h"

namespace corekit::detail {

// Characters up to `end`, from the end of the run before. The level counts from the even level at or below
// the base level: 0 stays, 1 is turned round, 2 is turned round twice.
struct BidiRun {
    int end;
    short type;
    short level;
};

// The runs of equal table type of a text. Both arrays of runs below hold at most one run per character.
int SplitByType(const WCHAR* text, int length, BidiRun* runs);

// Settles numbers, separators and terminators, which look at what stands beside and before them.
int ResolveNumbers(const BidiRun* runs, int count, int length, bool rightToLeft, BidiRun* resolved);

// Settles the neutrals between them, and sets the levels.
int ResolveNeutrals(const BidiRun* resolved, int count, bool rightToLeft, BidiRun* runs);

} // namespace corekit::detail
