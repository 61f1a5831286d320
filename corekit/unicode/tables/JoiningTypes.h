// How a letter joins its neighbours: on which side of the screen, if at all.
#pragma once

#include "corekit/platform/Types.h"

namespace corekit::joining {
enum Type : signed char { Right, Left, Dual, Causing, Non, Transparent, NoRow = -1 };
} // namespace corekit::joining

namespace corekit::detail {

struct JoiningEntry {
    int joiningType; // a corekit::joining::Type
    WORD baseForm;   // first of the four forms, or the code point itself, 0 for no form, 0xFFFF without a row

    friend constexpr bool operator==(const JoiningEntry&, const JoiningEntry&) = default;
};

} // namespace corekit::detail
