// How a letter joins its neighbours: on which side of the screen, if at all.
#pragma once

#include "corekit/platform/Types.h"

namespace corekit::joining {
// On its right side only; on its left side only; on both; none of its own, but it lets neighbours join; not
// at all; passed over by its neighbours. NoRow is a code point that the tables do not have.
enum Type : signed char { Right, Left, Dual, Causing, Non, Transparent, NoRow = -1 };
} // namespace corekit::joining

namespace corekit::detail {

// One row of a joining table.
struct JoiningEntry {
    int joiningType; // a corekit::joining::Type
    WORD baseForm;   // first of the four forms, or the code point itself, 0 for no form, 0xFFFF without a row

    friend constexpr bool operator==(const JoiningEntry&, const JoiningEntry&) = default;
};

} // namespace corekit::detail
