#include "corekit/unicode/shaping/TamilShaping.h"

#include "corekit/unicode/shaping/ShapingStep.h"
#include "corekit/unicode/shaping/TamilSigns.h"

#include <iterator>

namespace corekit::detail {

namespace {

constexpr unsigned blockStart = 0x0B80, blockSize = 0x80;
constexpr WCHAR ka = 0x0B95, ra = 0x0BB0, ssa = 0x0BB7, signII = 0x0BC0, virama = 0x0BCD, anusvara = 0x0B82;
constexpr WCHAR sri = 0xE2FF;
constexpr int signCount = std::size(tamilSigns), consonantCount = std::size(tamilConsonants);
constexpr int noConsonant = 0, space = 1, kssa = consonantCount + 1; // places in Block::syllables
constexpr int alone = 0;                                             // the column of a letter without sign

struct Character {
    unsigned char consonant = noConsonant; // row of Block::syllables
    unsigned char sign = alone;            // column of Block::syllables
    GlyphList glyphs;                      // of what stands alone
};

// Everything of the block by code point, made from the tables.
struct Block {
    Character characters[blockSize];
    GlyphList syllables[kssa + 1][1 + signCount];
};

constexpr GlyphList withSign(const TamilConsonant& c, const TamilSign& sign)
{
    if (sign.joined && c.*sign.joined) return {c.*sign.joined};
    return GlyphList().Then(sign.before).Then(c.base).Then(sign.after);
}

constexpr void addConsonant(Block& block, int row, const TamilConsonant& c)
{
    block.syllables[row][alone] = {c.base};
    for (int sign = 0; sign < signCount; ++sign)
        block.syllables[row][1 + sign] = withSign(c, tamilSigns[sign]);
}

constexpr Block makeBlock()
{
    Block block{};
    for (unsigned i = 0; i < blockSize; ++i)
        block.characters[i].glyphs = {static_cast<WCHAR>(blockStart + i)};
    for (const TamilSingle& single : tamilSingles)
        block.characters[single.letter - blockStart].glyphs = single.glyphs;
    for (int i = 0; i < signCount; ++i)
        block.characters[tamilSigns[i].letter - blockStart].sign = static_cast<unsigned char>(1 + i);
    for (int i = 0; i < consonantCount; ++i) {
        const TamilConsonant& c = tamilConsonants[i];
        addConsonant(block, space + i, c);
        if (c.letter != u' ')
            block.characters[c.letter - blockStart].consonant = static_cast<unsigned char>(space + i);
    }
    addConsonant(block, kssa, tamilKssa);
    return block;
}

constexpr Block block = makeBlock();
constexpr Character elsewhere{};
constexpr Character spaceCharacter{space, alone, {u' '}};

const Character& of(WCHAR c)
{
    const unsigned place = c - blockStart;
    if (place < blockSize) return block.characters[place];
    return c == u' ' ? spaceCharacter : elsewhere;
}

// What a step writes, and how many characters it takes; none, if it does not apply.
struct Piece {
    GlyphList glyphs;
    int taken = 0;
};

Piece kssaSign(WCHAR sign)
{
    const unsigned column = sign == anusvara ? alone : of(sign).sign;
    return {block.syllables[kssa][column], column == alone ? 3 : 4};
}

Piece consonantSign(WCHAR c0, WCHAR c1, WCHAR c2, WCHAR c3)
{
    const unsigned row = of(c0).consonant, column = of(c1).sign;
    if (row == noConsonant || column == alone) return {};
    if (c1 == virama) {
        if (c0 == ka && c2 == ssa) return kssaSign(c3);
        if (c0 == ssa && c2 == ra && c3 == signII) return {{sri}, 4};
    }
    return {block.syllables[row][column], 2};
}

Piece syllable(WCHAR c0, WCHAR c1, WCHAR c2, WCHAR c3)
{
    const Character& first = of(c0);
    if (first.consonant != noConsonant) {
        const Piece piece = consonantSign(c0, c1, c2, c3);
        return piece.taken ? piece : Piece{block.syllables[first.consonant][alone], 1};
    }
    if (first.sign != alone) return {block.syllables[space][first.sign], 1};
    return {first.glyphs.Count() ? first.glyphs : GlyphList{c0}, 1};
}

int shapeSyllable(GlyphSink& sink, const WCHAR* text, int end, int index)
{
    const auto at = [&](int i) { return index + i < end ? text[index + i] : u'\0'; };
    const Piece piece = syllable(text[index], at(1), at(2), at(3));
    sink.Commit(piece.glyphs.Put(sink.Room(GlyphList::spill)));
    return index + piece.taken;
}

bool append(const Piece& piece, StringW& out, int& index)
{
    for (int i = 0; i < piece.glyphs.Count(); ++i) out += piece.glyphs[i];
    index += piece.taken;
    return piece.taken != 0;
}

WORD glyphOf(WORD consonant, WCHAR TamilConsonant::*column)
{
    const int row = of(consonant).consonant;
    return row == noConsonant ? WORD{0} : tamilConsonants[row - space].*column;
}

} // namespace

int shapeTamilRun(GlyphSink& sink, const WCHAR* text, int end, int index, int limit)
{
    do {
        index = shapeSyllable(sink, text, end, index);
    } while (index < limit && text[index] - blockStart < blockSize);
    return index;
}

} // namespace corekit::detail

using namespace corekit::detail;

void ConvertTamilSyllable(StringW& out, const WCHAR* text, int& index)
{
    takeStep(out, text, index, shapeSyllable);
}

bool ConvertTamilConsonantSign(WORD c0, WORD c1, WORD c2, WORD c3, StringW& out, int& index)
{
    return append(consonantSign(c0, c1, c2, c3), out, index);
}

void ConvertTamilKssaSign(WORD sign, StringW& out, int& index) { append(kssaSign(sign), out, index); }

WORD TamilBaseGlyph(WORD consonant) { return glyphOf(consonant, &TamilConsonant::base); }
WORD TamilSignIGlyph(WORD consonant) { return glyphOf(consonant, &TamilConsonant::i); }
WORD TamilSignIIGlyph(WORD consonant) { return glyphOf(consonant, &TamilConsonant::ii); }
WORD TamilSignUGlyph(WORD consonant) { return glyphOf(consonant, &TamilConsonant::u); }
WORD TamilSignUUGlyph(WORD consonant) { return glyphOf(consonant, &TamilConsonant::uu); }
WORD TamilViramaGlyph(WORD consonant) { return glyphOf(consonant, &TamilConsonant::virama); }
WORD TamilAnusvaraGlyph(WORD consonant) { return glyphOf(consonant, &TamilConsonant::anusvara); }
