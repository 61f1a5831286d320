// Tamil by the Indian standard (INSCRIPT), on a British keyboard, with European digits and conjuncts above
// them.
//
// Keys of letters that Tamil lacks type nothing, or with Shift the signs that other keys have no room for.
// The danda is the one of the Tamil glyph fonts: U+0964 is drawn by those of Devanagari only.
#pragma once

#include "corekit/unicode/ui/keyboards/KeyTable.h"

namespace corekit::detail {

inline constexpr KeyTable tamil(R"(
key    1     2     3          4          5               6
plain  0031  0032  0033       0034       0035            0036
shift  0021  0040  0BCD+0BB0  0BB0+0BCD  0B9C+0BCD+0B9E  0BA4+0BCD+0BB0

key    7               8               9     0     BD    BB
plain  0037            0038            0039  0030  002D  0BCD+0BB0+0BBF
shift  0B95+0BCD+0BB7  0BB7+0BCD+0BB0  0028  0029  0B83  0BB0+0BBF

key    Q          W     E     R     T     Y     U     I     O     P     DD
plain  0BCC       0BC8  0BBE  0BC0  0BC2  -     0BB9  -     -     0B9C  0B9E
shift  0B92+0BB3  0B90  0B86  0B88  0B8A  -     0B99  002B  003D  005F  0B9E

key    A     S     D     F     G     H     J     K     L     BA    C0
plain  0BCB  0BC7  0BCD  0BBF  0BC1  0BAA  0BB0  0B95  0BA4  0B9A  0B9F
shift  0B93  0B8F  0B85  0B87  0B89  -     0BB1  0027  003B  003A  0022

key    DC    Z     X     C     V     B     N     M     BC    BE    BF
plain  0BCA  0BC6  -     0BAE  0BA8  0BB5  0BB2  0BB8  002C  002E  0BAF
shift  0B92  0B8E  -     0BA3  0BA9  0BB4  0BB3  002F  0BB7  E27C  003F
)");
static_assert(tamil.GetCount() == 45);

} // namespace corekit::detail
