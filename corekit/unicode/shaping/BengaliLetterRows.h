// Rows of the Bengali step for letters without a partner: each alone, with a sign that changes it, with a
// bare virama, with the reph, and in words that have a spelling of their own.
//
// A character of the block without a row vanishes. A letter without a row for its virama leaves the virama to
// the next step.
#pragma once

#include "corekit/unicode/shaping/BengaliRow.h"

namespace corekit::detail {

// clang-format off
inline constexpr BengaliRow bengaliLetterRows[] = {
    {"0980", 1, "E1B6 E19A E19A"}, // k-ss in one letter
    {"0982", 1, "E173"},           {"0983", 1, "E174"},
    {"0984", 1, "E1CE"},           // t-r in one letter
    {"0985", 1, "E141"},           {"0986", 1, "E141 E176"},      {"0987", 1, "E16E E1D6 E19A"},
    {"0988", 1, "E143"},           {"0989", 1, "E144"},           {"098A", 1, "E145"},
    {"098D", 1, "E16B E1AB"},      {"098E", 1, "E141 E1A8 E176"},
    {"098F", 1, "E147"},           {"0990", 1, "E148"},           {"0993", 1, "E149"},
    {"0994", 1, "E14A"},
    {"0995", 1, "E14B E19A"},      {"0996", 1, "E14C"},           {"0997", 1, "E14D"},
    {"0998", 1, "E14E"},           {"0999", 1, "E14F"},           {"099A", 1, "E150 E19A"},
    {"099B", 1, "E151 E19A"},      {"099C", 1, "E152"},           {"099D", 1, "E153"},
    {"099E", 1, "E154"},           {"099F", 1, "E185 E158 E19A E1D6"},
    {"09A0", 1, "E156"},           {"09A1", 1, "E157 E19A"},      {"09A2", 1, "E158"},
    {"09A3", 1, "E159"},           {"09A4", 1, "E15A E19A"},      {"09A5", 1, "E15F"},
    {"09A6", 1, "E160"},           {"09A7", 1, "E161 E19A"},      {"09A8", 1, "E162"},
    {"09AA", 1, "E163"},           {"09AB", 1, "E164 E19A"},      {"09AC", 1, "E165 E19A"},
    {"09AD", 1, "E166 E19A"},      {"09AE", 1, "E167"},           {"09AF", 1, "E168"},
    {"09B0", 1, "E169 E19A"},
    {"09B1", 1, "E1C1 E19A E19A"}, // j-ny in one letter
    {"09B2", 1, "E16A"},           {"09B6", 1, "E16B"},           {"09B7", 1, "E16C"},
    {"09B8", 1, "E16D"},           {"09B9", 1, "E16E E19A"},
    {"09BC", 1, "E19F"},           {"09BE", 1, "E176"},           {"09BF", 1, "E177"},
    {"09C0", 1, "E178"},           {"09C1", 1, "E179"},           {"09C2", 1, "E181"},
    {"09C3", 1, "E112"},           {"09C7", 1, "E110"},           {"09C8", 1, "E113"},
    {"09CB", 1, "E109 E176"},      {"09CC", 1, "E109 E102"},      {"09CD", 1, "E126"},
    {"09D1", 1, "E105"},           // ai and e that are stored behind their cluster
    {"09D5", 1, "E109"},
    {"09D2", 1, "E142"},
    {"09D3", 1, "E165 E19A"},      // ba as a lower member
    {"09D4", 1, "E146"},
    {"09D7", 1, "E102"},           {"09DC", 1, "E16F"},           {"09DD", 1, "E170"},
    {"09DF", 1, "E171"},
    {"09E6", 1, "E130"},           {"09E7", 1, "E131"},           {"09E8", 1, "E132"},
    {"09E9", 1, "E133"},           {"09EA", 1, "E134"},           {"09EB", 1, "E135"},
    {"09EC", 1, "E136"},           {"09ED", 1, "E137"},           {"09EE", 1, "E138"},
    {"09EF", 1, "E139"},
    {"09F0", 1, "E1A0"},           {"09F1", 1, "E15C"},
    {"09F4", 1, "E169 E19A E126"}, // reph
    {"09F7", 1, "E17C"},           {"09FA", 1, "E175"},           {"09FB", 1, "E1D1"},
    {"09FC", 1, "E172"},           // khanda ta
    {"09FD", 1, "E1AA"},           {"09FE", 1, "E1A8"}, // ra-phala and ya-phala as marks
    {"09FF", 1, "E120"},           // word separator; e and ai behind it begin a word
    {"09FF 09C7", 2, "E120 E109"}, {"09FF 09C8", 2, "E120 E105"},

    // Virama carries a vowel that has no consonant.
    {"09CD 09BE", 2, "E141 E176"}, {"09CD 09BF", 2, "E142"},      {"09CD 09C0", 2, "E143"},
    {"09CD 09C1", 2, "E144"},      {"09CD 09C2", 2, "E145"},      {"09CD 09C3", 2, "E146"},
    {"09CD 09C7", 2, "E147"},      {"09CD 09C8", 2, "E148"},      {"09CD 09D7", 2, "E14A"},
    {"09CD 09CD", 2, "E126"},

    // The sign between a letter and its filler, or both in one piece.
    {"0985 09BE", 2, "E141 E176"}, {"0987 09C1", 2, "E16E E1D6 E179 E19A"},
    {"098D 09C0", 2, "E16B E1D0 E178"},
    {"098E 098E", 2, "E147 E1A8 E176"},
    {"0995 09C1", 2, "E14B E179 E19A"},
    {"0997 09C1", 2, "E1B8"},
    {"099F 09C1", 2, "E185 E158 E179 E19A E1D6"},
    {"09A1 09BC", 2, "E157 E19F E19A"},
    {"09B0 09C1", 2, "E169 E19A E180"}, {"09B0 09C2", 2, "E169 E117"},
    {"09F0 09C1", 2, "E1A0 E180"}, {"09F0 09C2", 2, "E1A0 E117"},
    {"09B6 09C1", 2, "E1EF"},      {"09B6 09C2", 2, "E16B E181"},
    {"09B9 09C1", 2, "E1FB"},      {"09B9 09C3", 2, "E1FC"},      {"09B9 09D4", 2, "E1FC"},

    // Virama without a partner, where it does not wait for the next step.
    {"0980 09CD", 2, "E1B6 E126 E19A E19A"},
    {"0987 09CD", 2, "E16E E1D6 E126 E19A"},
    {"0995 09CD", 2, "E14B E126 E19A"},
    {"0997 09CD", 2, "E14D E126"},
    {"099B 09CD", 3, "E151 E126 E19A"}, // takes whatever follows
    {"099F 09CD", 1, "E155"},
    {"09A4 09CD", 2, "E172"},           // khanda ta

    // Reph is typed before the few letters that bear it.
    {"09F4 0998", 2, "E14E E19A E1A9"}, {"09F4 09A9", 2, "E162 E1A9"},
    {"09F4 09AC", 2, "E19A E165 E1A9"}, {"09F4 09D3", 2, "E165 E19A E1A9"},
    {"09F4 09D3 09CD 09D3", 4, "E165 E19A E165 E19A E1A9"},
    {"09B0 09CD 0998", 3, "E14E E19A E1A9"}, {"09B0 09CD 09A9", 3, "E162 E1A9"},
    {"09B0 09CD 09D3", 3, "E165 E19A E1A9"},

    // Whole words.
    {"0995 09CD 09B2 09BE 09AC 09D5", 6, "E184 E19A E176 E110 E165 E19A"},
    {"099A 09AC", 2, "E185 E150 E19A E19A E165 E19A"},
    {"099E 09CD 099D 099F", 4, "E1C5 E19A E185 E19A E158 E1EC E1D6"},
    {"099F 09CD 099F 09CB", 4, "E109 E1C6 E1EC E176"},
    {"09A1 09AC 09CD 09B2 09C1", 5, "E157 E19A E165 E19A E1AD E179"},
    {"09AE 09D5 09A9 099F", 4, "E109 E167 E115 E158 E1EC E1D6"},
    {"09B8 09CD 09A4 09CD 09B0 09C0", 6, "E1AF E190 E19A E178"},
    {"09D3 09BE 0999 09B2 09BE", 5, "E165 E19A E176 E14F E19A E16A E176"},
    {"09D3 09D3 09CD 09D3 09F4 09B0", 6, "E165 E19A E165 E165 E19A E169 E19A"},
    {"09B7 09CD 0995 09FD", 4, "E1AE 0152"}, {"09B8 09CD 0995 09FD", 4, "E1AF 0152"},
};
// clang-format on

} // namespace corekit::detail
