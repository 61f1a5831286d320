// Hebrew by the Israeli standard (SI 1452), on a British keyboard.
#pragma once

#include "corekit/unicode/ui/keyboards/KeyTable.h"

namespace corekit::detail {

inline constexpr KeyTable hebrew(R"(
key    DF    2
plain  003B  0032
shift  007E  0040

key    Q     W     E     R     T     Y     U     I     O     P     DB    DD
plain  002F  0027  05E7  05E8  05D0  05D8  05D5  05DF  05DD  05E4  005D  005B
shift  002F  0027  05E7  05E8  05D0  05D8  05D5  05DF  05DD  05E4  007B  007D

key    A     S     D     F     G     H     J     K     L     BA    C0
plain  05E9  05D3  05D2  05DB  05E2  05D9  05D7  05DC  05DA  05E3  0027
shift  05E9  05D3  05D2  05DB  05E2  05D9  05D7  05DC  05DA  003A  0022

key    Z     X     C     V     B     N     M     BC    BE    BF
plain  05D6  05E1  05D1  05D4  05E0  05DE  05E6  05EA  05E5  002E
shift  05D6  05E1  05D1  05D4  05E0  05DE  05E6  002C  05C0  003F
)");
static_assert(hebrew.GetCount() == 35);

} // namespace corekit::detail
