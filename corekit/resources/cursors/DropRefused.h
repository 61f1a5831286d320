// What is dragged would be refused.
#pragma once

#include <string_view>

namespace corekit::detail {

// clang-format off
inline constexpr std::string_view dropRefusedCursor = R"(/* XPM */
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
"            #o########  ",
"            #o#o#o#o##  ",
"            #o#oo#oo##  ",
"            #o#o#o#o##  ",
"            ##########  ",
"                        ",
"                        "
)";
// clang-format on

} // namespace corekit::detail
