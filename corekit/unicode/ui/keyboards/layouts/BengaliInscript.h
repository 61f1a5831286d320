// Bengali by the Indian standard (INSCRIPT), on a British keyboard.
//
// The signs e and ai, the letter ba that joins below, the vowel r, candrabindu, danda and the conjuncts of
// the digit row have the private codes that the shaping knows them by. Keys of letters that Bengali lacks
// type nothing.
#pragma once

#include "corekit/unicode/ui/keyboards/KeyTable.h"

namespace corekit::detail {

inline constexpr KeyTable bengaliInscript(R"(
key    1     2     3          4     5     6     7     8     9     0     BD    BB
plain  09E7  09E8  09E9       09EA  09EB  09EC  09ED  09EE  09EF  09E6  002D  09C3
shift  098E  -     09CD+09B0  09F4  09B1  0984  0980  098D  0028  0029  0983  09D4

key    Q     W     E     R     T     Y     U     I     O     P     DB    DD
plain  09CC  09D1  09BE  09C0  09C2  09AC  09B9  0997  09A6  099C  09A1  09BC
shift  0994  0990  0986  0988  098A  09AD  0999  0998  09A7  099D  09A2  099E

key    A     S     D     F     G     H     J     K     L     BA    C0    DE
plain  09CB  09D5  09CD  09BF  09C1  09AA  09B0  0995  09A4  099A  099F  0023
shift  0993  098F  0985  0987  0989  09AB  -     0996  09A5  099B  09A0  007E

key    Z     X     C     V     B     N     M     BC    BE    BF
plain  -     0982  09AE  09A8  09D3  09B2  09B8  002C  002E  09DF
shift  -     09FA  09A3  -     -     -     09B6  09B7  09F7  09AF

key    20
plain  09FF
shift  09FF
)");
static_assert(bengaliInscript.GetCount() == 47);

} // namespace corekit::detail
