// What follows the base of a Devanagari syllable: marks and dependent vowel signs.
#pragma once

#include "corekit/unicode/shaping/GlyphList.h"

namespace corekit::detail {

// The marks that a consonant carries, or'ed together, and their glyphs.
namespace devanagari {
inline constexpr unsigned nukta = 1, anusvara = 2, candrabindu = 4;
inline constexpr WCHAR viramaGlyph = 0xE0C2, candrabinduGlyph = 0xE0C4, anusvaraGlyph = 0xE0C6, reph = 0xE0C7,
                       rephAnusvara = 0xE0C8;
} // namespace devanagari

// What a vowel sign meets on its consonant: marks, or a reph, which has no form with candrabindu.
enum class SignOn : unsigned char { plain, anusvara, candrabindu, bothMarks, reph, rephAnusvara };

enum class SignPlace : unsigned char { first, beforeTail, behindTail };

struct DevanagariSign {
    WCHAR letter;
    SignPlace place;     // in the syllable, or towards the tail of the letter
    GlyphList glyphs[6]; // by SignOn
};

// The signs below. What they meet stands between them and the tail. On ra they are one glyph with the
// letter, which has tails of its own.
struct DevanagariLowSign {
    WCHAR letter;
    WCHAR glyph;
    WCHAR withNukta; // on a letter written without its nukta
    WCHAR withRakar; // on tta and dda, written without their rakar
    WCHAR onRa, raTail, raTailBehindReph;
};

// clang-format off
inline constexpr DevanagariSign devanagariSigns[] = {
    //                               plain             anusvara                  candrabindu               both                              reph              reph, anusvara
    {0x093E, SignPlace::behindTail, {{0xE0C9},         {0xE0C9, 0xE0C6},         {0xE0C9, 0xE0C4},         {0xE0C9, 0xE0C6, 0xE0C4},         {0xE0C9, 0xE0C7}, {0xE0C9, 0xE0C8}}},
    {0x093F, SignPlace::first,      {{0xE0CA},         {0xE0CB},                 {0xE0CA},                 {0xE0CB},                         {0xE0CC},         {0xE0CD}}},
    {0x0940, SignPlace::behindTail, {{0xE0D2},         {0xE0D3},                 {0xE0D2},                 {0xE0D3},                         {0xE0D4},         {0xE0D5}}},
    {0x0943, SignPlace::behindTail, {{0xE0DE},         {0xE0DE, 0xE0C6},         {0xE0DE, 0xE0C4},         {0xE0DE, 0xE0C6, 0xE0C4},         {0xE0DE, 0xE0D4}, {0xE0DE, 0xE0D5}}},
    {0x0944, SignPlace::behindTail, {{0xE0DF},         {0xE0DF, 0xE0C6},         {0xE0DF, 0xE0C4},         {0xE0DF, 0xE0C6, 0xE0C4},         {0xE0DF, 0xE0D4}, {0xE0DF, 0xE0D5}}},
    {0x0945, SignPlace::behindTail, {{0xE0EC},         {0xE0ED},                 {0xE0ED},                 {0xE0ED},                         {0xE0EE},         {0xE0EF}}},
    {0x0946, SignPlace::behindTail, {{0xE0E0},         {0xE0E1},                 {0xE0E1},                 {0xE0E1},                         {0xE0E2},         {0xE0E3}}},
    {0x0947, SignPlace::beforeTail, {{0xE0E4},         {0xE0E5},                 {0xE0E5},                 {0xE0E5},                         {0xE0E6},         {0xE0E7}}},
    {0x0948, SignPlace::behindTail, {{0xE0E8},         {0xE0E9},                 {0xE0E9},                 {0xE0E9},                         {0xE0EA},         {0xE0EB}}},
    {0x0949, SignPlace::behindTail, {{0xE0C9, 0xE0EC}, {0xE0C9, 0xE0ED},         {0xE0C9, 0xE0ED},         {0xE0C9, 0xE0ED},                 {0xE0C9, 0xE0EE}, {0xE0C9, 0xE0EF}}},
    {0x094A, SignPlace::behindTail, {{0xE0C9, 0xE0E0}, {0xE0C9, 0xE0E1},         {0xE0C9, 0xE0E1},         {0xE0C9, 0xE0E1},                 {0xE0C9, 0xE0E2}, {0xE0C9, 0xE0E3}}},
    {0x094B, SignPlace::behindTail, {{0xE0C9, 0xE0E4}, {0xE0C9, 0xE0E5},         {0xE0C9, 0xE0E5},         {0xE0C9, 0xE0E5},                 {0xE0C9, 0xE0E6}, {0xE0C9, 0xE0E7}}},
    {0x094C, SignPlace::behindTail, {{0xE0C9, 0xE0E8}, {0xE0C9, 0xE0E9},         {0xE0C9, 0xE0E9},         {0xE0C9, 0xE0E9},                 {0xE0C9, 0xE0EA}, {0xE0C9, 0xE0EB}}},
};

inline constexpr DevanagariLowSign devanagariLowSigns[] = {
    {0x0941, 0xE0D6, 0xE0D7, 0xE0D8, 0xE0AF, 0xE0FA, 0xE0FA},
    {0x0942, 0xE0DA, 0xE0DB, 0xE0DC, 0xE0B0, 0xE0FC, 0},
};
// clang-format on

// What a low sign meets, by SignOn.
inline constexpr GlyphList devanagariBesideLowSign[] = {
    {},
    {devanagari::anusvaraGlyph},
    {devanagari::candrabinduGlyph},
    {devanagari::anusvaraGlyph, devanagari::candrabinduGlyph},
    {devanagari::reph},
    {devanagari::rephAnusvara}};

} // namespace corekit::detail
