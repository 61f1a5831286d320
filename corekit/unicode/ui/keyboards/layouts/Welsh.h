// The accented letters of Welsh, on right Alt.
#pragma once

#include "corekit/unicode/ui/keyboards/KeyTable.h"

namespace corekit::detail {

inline constexpr KeyTable welsh(R"(
key    W     E     Y     U     I     O
plain  0175  00EA  0177  00FB  00EE  00F4
shift  0174  00CA  0176  00DB  00CE  00D4

key    A     D     K
plain  00E2  00EB  00EF
shift  00C2  00CB  00CF
)");
static_assert(welsh.GetCount() == 9);

} // namespace corekit::detail
