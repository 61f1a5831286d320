// Twelve dots on a circle, of which each fades as the turn goes on: an icon for the time in which something
// is under way, by its twelve steps.
#pragma once

#include <string_view>

namespace corekit::detail {

inline constexpr int turningSteps = 12;
inline constexpr int firstTurningIcon = 4021; // the number of the first step

// clang-format off
// Each dot has a letter of its own, clockwise from the top.
inline constexpr std::string_view turningDots = R"(
"                                ",
"                                ",
"               aa               ",
"              aaaa              ",
"        ll    aaaa    bb        ",
"       llll   aaaa   bbbb       ",
"       llll    aa    bbbb       ",
"       llll          bbbb       ",
"        ll            bb        ",
"   kk                      cc   ",
"  kkkk                    cccc  ",
"  kkkk                    cccc  ",
"  kkkk                    cccc  ",
"   kk                      cc   ",
"                                ",
" jj                          dd ",
"jjjj                        dddd",
"jjjj                        dddd",
" jj                          dd ",
"   ii                      ee   ",
"  iiii                    eeee  ",
"  iiii                    eeee  ",
"  iiii                    eeee  ",
"   ii                      ee   ",
"        hh            ff        ",
"       hhhh          ffff       ",
"       hhhh    gg    ffff       ",
"       hhhh   gggg   ffff       ",
"        hh    gggg    ff        ",
"              gggg              ",
"               gg               ",
"                                "
)";
// clang-format on

// One step of the turn, from 0 to 11, as a picture in XPM form.
std::string_view turningIcon(int step);

} // namespace corekit::detail
