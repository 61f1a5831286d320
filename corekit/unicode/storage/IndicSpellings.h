// Devanagari and Bengali: plain spellings and the codes that are kept for them.
#pragma once

#include "corekit/unicode/storage/Spelling.h"

namespace corekit::detail {

// clang-format off
inline constexpr Spelling devanagariSpellings[] = {
    {u"\u0924\u094D\u0930", u"\u097C"}, // t-r
    {u"\u0936\u094D\u0930", u"\u097D"}, // sh-r
    {u"\u091C\u094D\u091E", u"\u097E"}, // j-ny
    {u"\u0915\u094D\u0937", u"\u097F"}, // k-ss
    {u"\u0965", u"\uE0D9"},             // the double danda
};

inline constexpr Spelling bengaliSpellings[] = {
    {u"\u0981",       u"\u09FA"},       // candrabindu
    {u"\u098B",       u"\u09D4"},       // vocalic r
    {u"\u09CE",       u"\u09FC"},       // khanda ta
    {u"\u09A2\u09BC", u"\u09DD"},       // rha and yya, as one letter
    {u"\u09AF\u09BC", u"\u09DF"},
    {u"\u09F3",       u"\uE124"},       // sign of the taka
    {u"\u09A8\u09CD\u09A8", u"\u09A8\u09CD\u09A9"}, // n-n, by the second spelling of na
    {u"\u09C7",       u"\u09D5"},       // e and ai behind their cluster
    {u"\u09C8",       u"\u09D1"},
};

// Behind Tamil the dandas are glyph codes of its own fonts.
inline constexpr Spelling tamilDandas[] = {
    {u"\u0964", u"\uE27C"},
    {u"\u0965", u"\uE27D"},
};

// What our keyboards type and nobody else writes: read on the way out only.
inline constexpr Spelling bengaliTyped[] = {
    {u"\u0995\u09CD\u09B7",       u"\u0980"}, // k-ss, t-r, sh-r, j-ny
    {u"\u09A4\u09CD\u09B0",       u"\u0984"},
    {u"\u09B6\u09CD\u09B0",       u"\u098D"},
    {u"\u099C\u09CD\u099E",       u"\u09B1"},
    {u"\u0985\u09CD\u09AF\u09BE", u"\u098E"}, // a with ya-phala and aa
    {u"\u0987",                   u"\u09D2"}, // i
    {u"\u09CD\u09AC",             u"\u09D3"}, // ba, ra and ya as lower members
    {u"\u09CD\u09B0",             u"\u09FD"},
    {u"\u09CD\u09AF",             u"\u09FE"},
    {u"\u09B0\u09CD",             u"\u09F4"}, // reph
    {u"\u0964",                   u"\u09F7"}, // danda
    {u" ",                        u"\u09FF"}, // the word separator
};
// clang-format on

// Signs with a part in front of the letter, which the shaping puts there for most letters but not for
// `bengaliPlainLetters`: kept as glyph codes in front of these, with the rest of the sign behind.
inline constexpr std::u16string_view bengaliPlainLetters = u"\u09DD\u09F0\u09F1";
struct SplitSign {
    char16_t sign;
    char16_t front, frontOfWord; // glyph codes, in a word and at its beginning
    char16_t rest;               // 0 for none
};
inline constexpr SplitSign bengaliSplitSigns[] = {
    {0x09BF, 0xE177, 0xE177, 0},      {0x09C7, 0xE110, 0xE109, 0},      {0x09C8, 0xE113, 0xE105, 0},
    {0x09CB, 0xE110, 0xE109, 0x09BE}, {0x09CC, 0xE110, 0xE109, 0x09D7},
};

} // namespace corekit::detail
