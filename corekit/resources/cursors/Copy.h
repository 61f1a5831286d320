// Copies what is dragged.
#pragma once

#include <string_view>

namespace corekit::detail {

// clang-format off
inline constexpr std::string_view copyingCursor = R"(/* XPM */
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
