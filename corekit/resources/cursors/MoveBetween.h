// Moves it between two others.
#pragma once

#include <string_view>

namespace corekit::detail {

// clang-format off
inline constexpr std::string_view movingBetweenCursor = R"(/* XPM */
"24 24 3 1 0 0",
"  c None",
"# c #000000",
"o c #FFFFFF",
"#                       ",
"##                      ",
"#o#                     ",
"#oo#                    ",
"#ooo#                   ",
"#oooo#                  ",
"#ooooo#                 ",
"#oooooo#                ",
"#ooooooo#               ",
"#oooooooo#              ",
"#ooooo####              ",
"#oo#oo#                 ",
"#o# #oo#                ",
"##  #oo# #############  ",
"#    #oo##o##oooooooo#  ",
"     #oo##o##o####ooo#  ",
"      ## #o##oooooooo#  ",
"         #o##o######o#  ",
"         #o##oooooooo#  ",
"         #o##o######o#  ",
"         #o##oooooooo#  ",
"         #############  ",
"                        ",
"                        "
)";
// clang-format on

} // namespace corekit::detail
