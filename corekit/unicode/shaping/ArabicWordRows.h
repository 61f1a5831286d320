// Fixes for fixed words, and the ligatures of lam and alef. In display order the alef stands before its
// lam: its own row drops it, and the row of the lam, which sees it on its left, writes the ligature. The
// first row that matches counts. A row may take more characters than it looks at.
#pragma once

#include "corekit/platform/Types.h"

namespace corekit::detail {

struct ArabicWordRow {
    WCHAR prev2, prev, cur, next, next2, next3; // 0 matches anything
    WCHAR glyphs[3];                            // up to the first 0
    WCHAR joined;                               // if set, the one glyph where the right neighbour connects
    int advance;
};

// clang-format off
inline constexpr ArabicWordRow arabicWordRows[] = {
    // prev2, prev,    cur,    next,   next2,  next3,  glyphs,                   joined, advance
    {0x0632, 0x0645, 0x06D5, 0,      0,      0,      {0xFBA8},                 0,      3},
    {0,      0,      0x0631, 0x06D5, 0x0645, 0,      {0xFEAE, 0xFBA8, 0xFEE3}, 0,      3},
    {0,      0,      0x06CC, 0x0643, 0,      0,      {0x06CC, 0xFE80},         0,      2},
    {0,      0,      0x06CC, 0x0633, 0x06CC, 0x062C, {0xFBFD, 0xFEB3, 0xFE9F}, 0,      4},
    {0,      0,      0x06D5, 0x06CC, 0,      0,      {0xFBFF},                 0,      2},
    {0,      0x062A, 0x06D5, 0,      0,      0,      {0xFBA8},                 0,      1},
    {0,      0,      0x0644, 0x06D5, 0x067E, 0,      {0x0644, 0xFBA8, 0xFB58}, 0,      3},
    {0,      0x0626, 0x0644, 0,      0,      0,      {0xFEF9},                 0xFEFA, 1},
    {0,      0x0627, 0x0644, 0,      0,      0,      {0xFEFB},                 0xFEFC, 1},
    {0,      0x0623, 0x0644, 0,      0,      0,      {0xFEF7},                 0xFEF8, 1},
    {0,      0x0622, 0x0644, 0,      0,      0,      {0xFEF5},                 0xFEF6, 1},
    {0,      0,      0x0627, 0x06D2, 0,      0,      {0xFE8E},                 0,      2},
    {0,      0,      0x0627, 0x0644, 0,      0,      {},                       0,      1},
    {0,      0,      0x0623, 0x0644, 0,      0,      {},                       0,      1},
    {0,      0,      0x0622, 0x0644, 0,      0,      {},                       0,      1},
    {0,      0,      0x0626, 0x0644, 0,      0,      {},                       0,      1},
};
// clang-format on

} // namespace corekit::detail
