// Urdu, letters by their sound as typists in Pakistan have them, on a British keyboard.
//
// The phrases and quotation marks take the keys where others have the tanwin marks, which moved to 0xDE
// and M. Brackets are sent by the side of the word that they stand on: the left one closes.
#pragma once

#include "corekit/unicode/ui/keyboards/KeyTable.h"

namespace corekit::detail {

inline constexpr KeyTable urdu(R"(
key    1     2     5     6     7     8     9     0
plain  06F1  06F2  06F5  06F6  06F7  06F8  06F9  06F0
shift  0021  0040  066A  FD3E  FD3F  002A  0029  0028

key    Q     W     E     R     T     Y     U     I     O     P     DB    DD
plain  0642  0648  0639  0631  062A  06D2  0621  06CC  06C1  067E  005D  005B
shift  0652  0651  0670  0691  0679  064E  0626  0650  06C3  064F  007D  007B
ctrl   .     0624  0626  .     .     06D3  .     .     .     .     .     .

key    A     S     D     F     G     H     J     K     L          BA    C0    DE
plain  0627  0633  062F  0641  06AF  062D  062C  06A9  0644       061B  201C  064B
shift  0622  0635  0688  0651  063A  06BE  0636  062E  0644+0627  003A  201D  064D
ctrl   0623  .     .     .     .     .     .     .     .          .     .     .

key    DC    Z     X     C     V     B     N     M     BC    BE    BF
plain  005C  0632  0634  0686  0637  0628  0646  0645  060C  06D4  002F
shift  007C  0630  0698  062B  0638  002E  06BA  064C  003C  003E  061F

key    3
plain  06F3
shift  0631+0636+064A+0020+0627+0644+0644+0647+0020+062A+0639+0627+0020+0644+0670+064A+0020+0639+0646+0647

key    4
plain  06F4
shift  062C+0644+0651+0020+062C+0644+0627+0644+0647

key    DF
plain  0635+0644+0649+0020+0627+0644+0644+0647+0020+0639+0644+064A+0647+0020+0648+0633+0644+0645
shift  0635+0644+0639+0645
)");
static_assert(urdu.GetCount() == 46);

} // namespace corekit::detail
