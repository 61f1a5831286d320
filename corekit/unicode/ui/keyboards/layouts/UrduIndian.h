// Indic Urdu: the private block, key by key through the rows of a British keyboard. Shift adds 0x30.
#pragma once

#include "corekit/unicode/ui/keyboards/KeyTable.h"

namespace corekit::detail {

inline constexpr KeyTable urduIndian(R"(
key    DF    1     2     3     4     5     6     7     8     9     0     BD    BB
plain  E324  E325  E326  E327  E328  E329  E32A  E32B  E32C  E32D  E32E  E32F  E330
shift  E354  E355  E356  E357  E358  E359  E35A  E35B  E35C  E35D  E35E  E35F  E360

key    Q     W     E     R     T     Y     U     I     O     P     DB    DD
plain  E301  E302  E303  E304  E305  E306  E307  E308  E309  E30A  E30B  E30C
shift  E331  E332  E333  E334  E335  E336  E337  E338  E339  E33A  E33B  E33C

key    A     S     D     F     G     H     J     K     L     BA    C0    DE
plain  E30D  E30E  E30F  E310  E311  E312  E313  E314  E315  E316  E317  E318
shift  E33D  E33E  E33F  E340  E341  E342  E343  E344  E345  E346  E347  E348

key    DC    Z     X     C     V     B     N     M     BC    BE    BF
plain  E319  E31A  E31B  E31C  E31D  E31E  E31F  E320  E321  E322  E323
shift  E349  E34A  E34B  E34C  E34D  E34E  E34F  E350  E351  E352  E353
)");
static_assert(urduIndian.GetCount() == 48);

} // namespace corekit::detail
