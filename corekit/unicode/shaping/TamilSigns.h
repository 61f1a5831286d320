// The signs that follow a Tamil consonant, and the characters that take none.
#pragma once

#include "corekit/unicode/shaping/GlyphList.h"
#include "corekit/unicode/shaping/TamilConsonants.h"

namespace corekit::detail {

struct TamilSign {
    WCHAR letter;
    WCHAR before, after;                     // glyphs beside the base, 0 for none
    WCHAR TamilConsonant::*joined = nullptr; // the column of those in one piece with the letter
};

struct TamilSingle {
    WCHAR letter;
    GlyphList glyphs;
};

// clang-format off
inline constexpr TamilSign tamilSigns[] = {
    {0x0B82, 0,      0x0020, &TamilConsonant::anusvara}, // a plain space where the font has nothing
    {0x0BBE, 0,      0xE2A3},
    {0x0BBF, 0,      0xE2A4, &TamilConsonant::i},
    {0x0BC0, 0,      0xE2A6, &TamilConsonant::ii},
    {0x0BC1, 0,      0xE2A7, &TamilConsonant::u},
    {0x0BC2, 0,      0xE2A8, &TamilConsonant::uu},
    {0x0BC6, 0xE2AA, 0},
    {0x0BC7, 0xE2AB, 0},
    {0x0BC8, 0xE2AC, 0},
    {0x0BCA, 0xE2AA, 0xE2A3},
    {0x0BCB, 0xE2AB, 0xE2A3},
    {0x0BCC, 0xE2AA, 0xE2F7}, // the right half is the letter lla
    {0x0BCD, 0,      0xE2A2, &TamilConsonant::virama},
};

inline constexpr TamilSingle tamilSingles[] = {
    {0x0B83, {0xE2E7}},
    {0x0B85, {0xE2DC}}, {0x0B86, {0xE2DD}}, {0x0B87, {0xE2DE}}, {0x0B88, {0xE2DF}}, {0x0B89, {0xE2E0}},
    {0x0B8A, {0xE2E1}}, {0x0B8E, {0xE2E2}}, {0x0B8F, {0xE2E3}}, {0x0B90, {0xE2E4}}, {0x0B92, {0xE2E5}},
    {0x0B93, {0xE2E6}}, {0x0B94, {0xE2E5, 0xE2F7}},
    {0x0BD7, {0xE230}}, // au length mark, where the digit zero would be
    {0x0BE7, {0xE231}}, {0x0BE8, {0xE232}}, {0x0BE9, {0xE233}}, {0x0BEA, {0xE234}}, {0x0BEB, {0xE235}},
    {0x0BEC, {0xE236}}, {0x0BED, {0xE237}}, {0x0BEE, {0xE238}}, {0x0BEF, {0xE239}},
};
// clang-format on

} // namespace corekit::detail
