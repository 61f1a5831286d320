// Copies it between two others.
#pragma once

#include <string_view>

namespace corekit::detail {

// clang-format off
inline constexpr std::string_view copyingBetweenCursor = R"(/* XPM */
"24 24 3 1 0 0",
"  c None",
"# c #000000",
"o c #FFFFFF",
"#                       ",
"##                      ",
"#o#                     ",
"#oo#             #######",
"#ooo#            #ooooo#",
"#oooo#           #oo#oo#",
"#ooooo#          #o###o#",
"#oooooo#         #oo#oo#",
"#ooooooo#        #ooooo#",
"#oooooooo#       #######",
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
