// Arabic, on a United States or British keyboard: the letter of the key before 1 is on 0xC0 and on 0xDF.
#pragma once

#include "corekit/unicode/ui/keyboards/KeyTable.h"

namespace corekit::detail {

inline constexpr KeyTable arabic(R"(
key    C0    1     2     3     4     5     6     7     8     9     0
plain  0630  0661  0662  0663  0664  0665  0666  0667  0668  0669  0660
shift  0651  0021  0040  0023  0024  0025  005E  0026  002A  0028  0029

key    Q     W     E     R     T     Y     U     I     O     P     DB    DD
plain  0636  0635  062B  0642  0641  063A  0639  0647  062E  062D  062C  062F
shift  064E  064B  064F  064C  0641  0673  0639  00F7  00D7  061B  003E  003C

key    A     S     D     F     G          H     J     K     L     BA    DE
plain  0634  0633  064A  0628  0644       0627  062A  0646  0645  0643  0637
shift  0650  064D  064A  0628  0644+0623  0623  0640  060C  002F  003A  0022

key    Z     X     C     V     B          N     M     BC    BE    BF
plain  0626  0621  0624  0631  0644+0627  0649  0629  0648  0632  0638
shift  0626  0652  0624  0631  0644+0622  0622  0027  002C  002E  061F

key    60    61    62    63    64    65    66    67    68    69    DF
plain  0660  0661  0662  0663  0664  0665  0666  0667  0668  0669  0630
shift  0660  0661  0662  0663  0664  0665  0666  0667  0668  0669  0651
)");
static_assert(arabic.GetCount() == 55);

} // namespace corekit::detail
