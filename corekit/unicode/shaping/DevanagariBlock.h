// The tables of the Devanagari step by code point.
#pragma once

#include "corekit/unicode/shaping/DevanagariConsonants.h"
#include "corekit/unicode/shaping/DevanagariSigns.h"
#include "corekit/unicode/shaping/DevanagariVowels.h"

#include <iterator>

namespace corekit::detail::devanagari {

inline constexpr unsigned blockStart = 0x0900, blockSize = 0x80;
inline constexpr int firstSign = 0x093E, lastSign = 0x094C, firstLowSign = 0x0941;

// What a syllable can begin with. A vowel sign is a matter of its own: one of them also stands alone.
enum class Kind : unsigned char { other, consonant, vowel, single };

struct Character {
    Kind kind = Kind::other;
    unsigned char mark = 0; // its flag, if it is a mark
    unsigned char row = 0;  // in Block::letters, devanagariVowels or devanagariSingles
};

struct Letter {
    GlyphList full[2], half[2], rakar[2]; // the second with nukta
    GlyphList tail;
};

struct Block {
    Character characters[blockSize];
    Letter
        letters[1 + std::size(devanagariConsonants)]; // the first, of all that is no consonant, has no forms
    const DevanagariSign* signs[lastSign - firstSign + 1]; // null for the low ones
};

template <class Rows>
constexpr void numberRows(Block& block, const Rows& rows, Kind kind, unsigned char row)
{
    for (const auto& r : rows) block.characters[r.letter - blockStart] = {kind, 0, row++};
}

constexpr Block makeBlock()
{
    Block block{};
    numberRows(block, devanagariVowels, Kind::vowel, 0);
    numberRows(block, devanagariSingles, Kind::single, 0);
    numberRows(block, devanagariConsonants, Kind::consonant, 1);
    Letter* letter = block.letters;
    for (const DevanagariConsonant& c : devanagariConsonants)
        *++letter = {{c.full, c.fullNukta}, {c.half, c.halfNukta}, {c.rakar, c.rakarNukta}, {}};
    for (const DevanagariTail& t : devanagariTails)
        block.letters[block.characters[t.letter - blockStart].row].tail = {t.glyph};
    for (const DevanagariSign& sign : devanagariSigns) block.signs[sign.letter - firstSign] = &sign;
    block.characters[0x093C - blockStart].mark = nukta;
    block.characters[0x0902 - blockStart].mark = anusvara;
    block.characters[0x0901 - blockStart].mark = candrabindu;
    return block;
}

inline constexpr Block block = makeBlock();
inline constexpr Character elsewhere{};

inline const Character& characterOf(WCHAR c)
{
    const unsigned place = c - blockStart;
    return place < blockSize ? block.characters[place] : elsewhere;
}

} // namespace corekit::detail::devanagari
