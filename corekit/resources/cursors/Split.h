// Between two panes: drags to both sides.
#pragma once

#include <string_view>

namespace corekit::detail {

// clang-format off
inline constexpr std::string_view splitCursor = R"(/* XPM */
"24 24 3 1 12 12",
"  c None",
"# c #000000",
"o c #FFFFFF",
"                        ",
"                        ",
"         oooooo         ",
"         o#oo#o         ",
"         o#oo#o         ",
"         o#oo#o         ",
"         o#oo#o         ",
"     ooo o#oo#o ooo     ",
"    oo#o o#oo#o o#oo    ",
"   oo##o o#oo#o o##oo   ",
"  oo###ooo#oo#ooo###oo  ",
" oo########oo########oo ",
" o#########oo#########o ",
" oo####ooo#oo#ooo####oo ",
"  oo###o o#oo#o o###oo  ",
"   oo##o o#oo#o o##oo   ",
"    oo#o o#oo#o o#oo    ",
"     ooo o#oo#o ooo     ",
"         o#oo#o         ",
"         o#oo#o         ",
"         o#oo#o         ",
"         oooooo         ",
"                        ",
"                        "
)";
// clang-format on

} // namespace corekit::detail
