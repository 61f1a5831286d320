// Nothing can be dropped here.
#pragma once

#include <string_view>

namespace corekit::detail {

// clang-format off
inline constexpr std::string_view noDropCursor = R"(/* XPM */
"24 24 3 1 12 12",
"  c None",
"# c #000000",
"o c #FFFFFF",
"                        ",
"                        ",
"       oooooooooo       ",
"      oo########oo      ",
"    ooo##########ooo    ",
"    o######oo######o    ",
"   oo###oooooooo###oo   ",
"  oo#####oo    oo###oo  ",
"  o###o###oo    oo###o  ",
"  o###oo###oo    o###o  ",
"  o###ooo###oo   o###o  ",
"  o##oo oo###oo  oo##o  ",
"  o##oo  oo###oo oo##o  ",
"  o###o   oo###ooo###o  ",
"  o###o    oo###oo###o  ",
"  o###oo    oo###o###o  ",
"  oo###oo    oo#####oo  ",
"   oo###oooooooo###oo   ",
"    o######oo######o    ",
"    ooo##########ooo    ",
"      oo########oo      ",
"       oooooooooo       ",
"                        ",
"                        "
)";
// clang-format on

} // namespace corekit::detail
