// Random text of the shaped blocks: every step at every place, and one conversion against all steps in turn.
#include "corekit/unicode/shaping/GlyphConversion.h"
#include "tests/unicode/ShapingSteps.h"

#include <iterator>
#include <vector>

// Two bytes a character: three of four pick one of a block, the others are any 16-bit value but zero.
static std::vector<WCHAR> TextOf(const std::uint8_t* data, std::size_t size)
{
    std::vector<WCHAR> text;
    for (std::size_t i = 0; i + 1 < size; i += 2) {
        const ShapingStep& block = shapingSteps[data[i] % std::size(shapingSteps)];
        const int any = data[i] << 8 | data[i + 1], within = data[i + 1] % (block.last - block.first + 1);
        text.push_back(static_cast<WCHAR>(data[i] < 0xC0 ? block.first + within : any));
    }
    text.push_back(0);
    return text;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::vector<WCHAR> text = TextOf(data, size < 512 ? size : 512);
    const int length = static_cast<int>(text.size()) - 1;
    for (const ShapingStep& step : shapingSteps)
        for (int from = 0; from <= length; ++from) {
            StringW out;
            int index = from;
            step.take(out, text.data(), index);
            if (index <= from) __builtin_trap();
            // Only the word rows of Arabic, and Bengali cha with a virama, take more than they look at.
            const bool mayPass = step.take == ConvertArabicGlyphs || step.take == ConvertBengaliSyllable;
            if (from < length && index > length && !mayPass) __builtin_trap();
        }

    std::u16string whole;
    for (int index = 0; index < length;) whole += TakeShapingStep(text.data(), index);
    StringW glyphs;
    ConvertToGlyphs(text.data(), -1, glyphs, false);
    if (Units(glyphs) != whole) __builtin_trap();
    return 0;
}
