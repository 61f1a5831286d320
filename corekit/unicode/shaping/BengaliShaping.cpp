#include "corekit/unicode/shaping/BengaliShaping.h"

#include "corekit/unicode/shaping/BengaliTrie.h"
#include "corekit/unicode/shaping/ShapingStep.h"

#include <algorithm>
#include <cstring>

namespace corekit::detail {

namespace {

constexpr BengaliTrie trie = [] {
    BengaliTrieBuilder builder;
    builder.Add(bengaliLetterRows);
    builder.Add(bengaliMarkRows);
    builder.Add(bengaliConjunctRows);
    return builder.Build();
}();

constexpr WCHAR wordSeparator = 0x09FF, ya = 0x09AF, lowerNa = 0x09A9;
constexpr WCHAR signE = 0xE110, signEInitial = 0xE109, signAi = 0xE113, signAiInitial = 0xE105;
constexpr WCHAR signI = 0xE177, signAa = 0xE176, auMark = 0xE102, yaPhala = 0xE193, naPhala = 0xE19D;

struct ConsonantSet {
    bool has[bengaliSize] = {};

    constexpr void Give(int first, int last)
    {
        for (int c = first; c <= last; ++c) has[c - bengaliStart] = true;
    }
};

constexpr ConsonantSet consonants = [] {
    ConsonantSet set;
    set.Give(0x0995, 0x09B0);
    set.Give(0x09B6, 0x09B9);
    for (const int c : {0x0980, 0x0984, 0x098D, 0x09B2, 0x09D3, 0x09D4, 0x09DF, 0x09F4}) set.Give(c, c);
    return set;
}();

unsigned placeOf(WCHAR c) { return static_cast<unsigned>(c - bengaliStart); }
bool isBengali(WCHAR c) { return placeOf(c) < bengaliSize; }

// A text of which nothing is read at or behind `end`.
struct BoundedText {
    const WCHAR* units;
    int end;

    WCHAR operator[](int i) const { return i < end ? units[i] : u'\0'; }
};

const BengaliLeaf& findLeaf(const BoundedText& text, int index)
{
    const unsigned first = placeOf(text[index]);
    if (first >= bengaliSize) return trie.leaves[0];
    BengaliCell at = trie.cells[first];
    while (at.branches != 0) {
        const unsigned place = placeOf(text[++index]);
        if (place >= bengaliSize) break;
        const BengaliCell& next = trie.cells[at.branches + place];
        if (next.owner != at.branches) break;
        at = next;
    }
    return trie.leaves[at.leaf];
}

// Writes all units of the leaf, whatever the count, and gives the place behind those that count.
WCHAR* put(WCHAR* out, const BengaliLeaf& leaf)
{
    std::memcpy(out, leaf.glyphs, sizeof leaf.glyphs);
    return out + leaf.count;
}

// What a vowel sign puts before and behind its cluster.
struct SignGlyphs {
    WCHAR before = 0, behind = 0;
    int taken = 1;
};

SignGlyphs glyphsOfSign(WCHAR sign, bool atWordStart)
{
    const WCHAR e = atWordStart ? signEInitial : signE;
    switch (sign) {
    case 0x09CC:
        return {e, auMark};
    case 0x09CB:
        return {e, signAa};
    case 0x09D1:
        return {atWordStart ? signAiInitial : signAi};
    case 0x09D5:
        return {e};
    case 0x09BF:
        return {signI};
    case 0x09BE:
        return {0, signAa};
    default:
        return {0, 0, 0};
    }
}

constexpr int mostOfSyllable = BengaliLeaf::most + 3; // with a lower letter and two parts of a vowel sign

int shapeSyllable(GlyphSink& sink, const WCHAR* units, int end, int index)
{
    const BoundedText text{units, end};
    const BengaliLeaf& leaf = findLeaf(text, index);
    WCHAR* out = sink.Room(mostOfSyllable);
    if (!IsBengaliConsonant(text[index])) {
        sink.Commit(put(out, leaf));
        return index + leaf.advance;
    }

    const bool atWordStart = index == 0 || units[index - 1] == wordSeparator;
    index += leaf.advance;
    WCHAR lower = 0;
    if (text[index] == bengaliVirama) {
        const WCHAR next = text[index + 1];
        lower = next == ya ? yaPhala : next == lowerNa ? naPhala : WCHAR{0};
        if (lower) index += 2;
    }
    const SignGlyphs sign = glyphsOfSign(text[index], atWordStart);
    if (sign.before) *out++ = sign.before;
    out = put(out, leaf);
    if (lower) *out++ = lower;
    if (sign.behind) *out++ = sign.behind;
    sink.Commit(out);
    return index + sign.taken;
}

int shapeCluster(GlyphSink& sink, const WCHAR* units, int end, int index)
{
    const BengaliLeaf& leaf = findLeaf({units, end}, index);
    sink.Commit(put(sink.Room(BengaliLeaf::most), leaf));
    return index + leaf.advance;
}

} // namespace

int shapeBengaliRun(GlyphSink& sink, const WCHAR* text, int end, int index, int limit)
{
    if (index >= end) end = limit; // behind a zero within the text
    const int stop = std::min(limit, end);
    do {
        index = shapeSyllable(sink, text, end, index);
    } while (index < stop && isBengali(text[index]));
    return index;
}

} // namespace corekit::detail

using namespace corekit::detail;

bool IsBengaliConsonant(WORD c)
{
    const unsigned place = placeOf(c);
    return place < bengaliSize && consonants.has[place];
}

void ConvertBengaliCluster(StringW& out, const WCHAR* text, int& index)
{
    takeStep(out, text, index, shapeCluster);
}

void ConvertBengaliSyllable(StringW& out, const WCHAR* text, int& index)
{
    takeStep(out, text, index, shapeSyllable);
}
