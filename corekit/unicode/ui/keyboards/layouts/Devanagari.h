// Devanagari by the Indian standard (INSCRIPT), on a British keyboard, with European digits and conjuncts
// above them.
//
// The second table has the keys that type something else after a consonant: the signs in place of the vowels.
#pragma once

#include "corekit/unicode/ui/keyboards/KeyTable.h"

namespace corekit::detail {

inline constexpr KeyTable devanagari(R"(
key    1     2     3     4     5     6     7     8     9     0     BD    BB
plain  0031  0032  0033  0034  0035  0036  0037  0038  0039  0030  002D  090B
shift  090D  0945  097A  097B  097E  097C  097F  097D  0028  0029  0903  090B

key    Q     W     E     R     T     Y     U     I     O     P     DB    DD
plain  0914  0910  0906  0908  090A  092C  0939  0917  0926  091C  0921  093C
shift  0914  0910  0906  0908  090A  092D  0919  0918  0927  091D  0922  091E

key    A     S     D     F     G     H     J     K     L     BA    C0    DE
plain  0913  090F  0905  0907  0909  092A  0930  0915  0924  091A  091F  0911
shift  0913  090F  0905  0907  0909  092B  0931  0916  0925  091B  0920  0911

key    DC    Z     X     C     V     B     N     M     BC    BE    BF
plain  0912  090E  0902  092E  0928  0935  0932  0938  002C  002E  092F
shift  0912  090E  0901  0923  0929  0934  0933  0936  0937  0964  095F
)");
static_assert(devanagari.GetCount() == 47);

inline constexpr KeyTable devanagariAfterConsonant(R"(
key    1     BB
plain  0031  0943
shift  0945  090B

key    Q     W     E     R     T     Y
plain  094C  0948  093E  0940  0942  092D
shift  0914  0910  0906  0908  090A  092C

key    A     S     D     F     G     DE
plain  094B  0947  094D  093F  0941  0949
shift  0913  090F  0905  0907  0909  0911

key    DC    Z
plain  094A  0946
shift  0912  090E
)");

} // namespace corekit::detail
