// Moves what is dragged.
#pragma once

#include <string_view>

namespace corekit::detail {

// clang-format off
inline constexpr std::string_view movingCursor = R"(/* XPM */
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
"##  #oo#    ##########  ",
"#    #oo#   #oooooooo#  ",
"     #oo#   #o####ooo#  ",
"      ##    #oooooooo#  ",
"            #o######o#  ",
"            #oooooooo#  ",
"            #o######o#  ",
"            #oooooooo#  ",
"            ##########  ",
"                        ",
"                        "
)";
// clang-format on

} // namespace corekit::detail
