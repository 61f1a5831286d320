// Bengali as typists in Bangladesh have it: G links consonants, and with a vowel sign makes the vowel.
//
// Signs before a consonant are typed before it. The space bar is the separator U+09FF; a candrabindu is
// U+09FA, a danda U+09F7 and the sign of the taka U+E124, which are what the shaping shows as such.
#pragma once

#include "corekit/unicode/ui/keyboards/KeyTable.h"

namespace corekit::detail {

inline constexpr KeyTable bengali(R"(
key    1     2     3     4     5     6     7     8     9     0     BD    BB
plain  09E7  09E8  09E9  09EA  09EB  09EC  09ED  09EE  09EF  09E6  002D  003D
shift  0021  0040  0023  E124  0025  00F7  09FA  00D7  0028  0029  005F  002B

key    Q     W     E     R     T     Y     U     I     O     P     DB    DD
plain  0999  09AF  09A1  09AA  099F  099A  099C  09B9  0997  09DC  005B  005D
shift  0982  09DF  09A2  09AB  09A0  099B  099D  099E  0998  09DD  007B  007D

key    A     S     D     F     G     H     J     K     L     BA    C0    DE
plain  09C3  09C1  09BF  09BE  09CD  09AC  0995  09A4  09A6  003B  0027  0027
shift  09F4  09C2  09C0  0985  09F7  09AD  0996  09A5  09A7  003A  0022  0022

key    DC    Z     X     C     V     B     N     M     BC    BE    BF
plain  09FC  09FD  0993  09C7  09B0  09A8  09B8  09AE  002C  002E  002F
shift  0983  09FE  09D7  09C8  09B2  09A3  09B7  09B6  003C  003E  003F

key    20
plain  09FF
shift  09FF
)");
static_assert(bengali.GetCount() == 48);

} // namespace corekit::detail
