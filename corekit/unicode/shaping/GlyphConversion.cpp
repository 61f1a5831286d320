#include "corekit/unicode/shaping/GlyphConversion.h"

#include "corekit/foundation/StringW.h"
#include "corekit/unicode/shaping/ArabicShaping.h"
#include "corekit/unicode/shaping/BengaliShaping.h"
#include "corekit/unicode/shaping/DevanagariShaping.h"
#include "corekit/unicode/shaping/GlyphSink.h"
#include "corekit/unicode/shaping/TamilShaping.h"
#include "corekit/unicode/shaping/UrduIndicText.h"

#include <array>
#include <iterator>

namespace {

using namespace corekit::detail;

// Which step a character goes to. The blocks of all steps begin and end at multiples of 128.
enum class Step : unsigned char { copy, arabic, devanagari, bengali, tamil };

constexpr int blockBits = 7;

struct StepTable {
    Step of[0x10000 >> blockBits] = {};

    constexpr void Give(int first, int last, Step step)
    {
        for (int block = first >> blockBits; block <= last >> blockBits; ++block) of[block] = step;
    }
};

constexpr StepTable steps = [] {
    StepTable table;
    table.Give(0x0600, 0x06FF, Step::arabic);
    table.Give(0x0900, 0x097F, Step::devanagari);
    table.Give(0x0980, 0x09FF, Step::bengali);
    table.Give(0x0B80, 0x0BFF, Step::tamil);
    return table;
}();

Step stepOf(WCHAR c) { return steps.of[c >> blockBits]; }

int copyRun(GlyphSink& sink, const WCHAR* text, int index, int length)
{
    WCHAR* out = sink.Room(length - index);
    do {
        *out++ = text[index++];
    } while (index < length && stepOf(text[index]) == Step::copy);
    sink.Commit(out);
    return index;
}

} // namespace

void ConvertToGlyphs(const WCHAR* text, int length, StringW& glyphs, bool systemShapes)
{
    if (systemShapes) {
        glyphs = text;
        return;
    }
    if (!text || length == 0) return;
    // The steps read on to the zero, whatever the length.
    const int end = countedLength(textLength(text));
    if (length < 0) length = end;
    if (length < 1) return;

    StringW keeper;
    text = GlyphSink::KeepApart(text, glyphs, keeper);
    GlyphSink sink(glyphs);
    sink.Room(length);
    for (int index = 0; index < length;) {
        switch (stepOf(text[index])) {
        case Step::copy:
            index = copyRun(sink, text, index, length);
            break;
        case Step::arabic:
            index = shapeArabicRun(sink, text, end, index, length);
            break;
        case Step::devanagari:
            index = shapeDevanagariRun(sink, text, end, index, length);
            break;
        case Step::bengali:
            index = shapeBengaliRun(sink, text, end, index, length);
            break;
        case Step::tamil:
            index = shapeTamilRun(sink, text, end, index, length);
            break;
        }
    }
}

WORD OldDumbMapSpecialGlyph(WORD glyph)
{
    // Code page 1252 from 0x80 on, 0 for its gaps.
    static constexpr WCHAR tamilSpecials[] = {0,      0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                              0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0,      0,
                                              0,      0,      0,      0,      0,      0,      0x2013, 0x2014,
                                              0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0,      0x0178};
    static_assert(std::size(tamilSpecials) == 0x20);

    if (glyph < 0xE000 || glyph > 0xE3FF) return glyph;
    if (glyph >= 0xE280 && glyph <= 0xE29F) {
        const WCHAR special = tamilSpecials[glyph - 0xE280];
        return special ? special : glyph;
    }
    return glyph & 0xFF;
}

void UrduIndicToUnicode(StringW& out, const WCHAR* text, int index)
{
    const WCHAR c = text[index];
    const auto row = static_cast<std::size_t>(c - firstUrduIndic);
    if (row >= std::size(urduIndicText)) {
        out = c;
        return;
    }
    const WCHAR* both = urduIndicText[row];
    out.AssignCopy(both[1] ? 2 : 1, both);
}
