// Persian: the Arabic layout on a British keyboard, with the eastern digits but for the seven.
#pragma once

#include "corekit/unicode/ui/keyboards/KeyTable.h"

namespace corekit::detail {

inline constexpr KeyTable persian(R"(
key    DF    1     2     3     4     5     6     7     8     9     0
plain  0630  06F1  06F2  06F3  06F4  06F5  06F6  0667  06F8  06F9  06F0
shift  0651  0021  0040  0023  0024  0025  005E  0026  002A  0028  0029

key    Q     W     E     R     T     Y     U     I     O     P     DB    DD
plain  0636  0635  062B  0642  0641  063A  0639  0647  062E  062D  062C  062F
shift  064E  064B  064F  064C  0641  0673  0639  00F7  00D7  061B  003E  003C

key    A     S     D     F     G          H     J     K     L     BA    C0
plain  0634  0633  064A  0628  0644       0627  062A  0646  0645  0643  0637
shift  0650  064D  064A  0628  0644+0623  0623  0640  060C  002F  003A  0022

key    Z     X     C     V     B          N     M     BC    BE    BF
plain  0626  0621  0624  0631  0644+0627  0649  0629  0648  0632  0638
shift  0626  0621  0624  0631  0644+0622  0622  0027  002C  002E  061F
)");
static_assert(persian.GetCount() == 44);

} // namespace corekit::detail
