// The shaping steps by block, to walk a text one step at a time as ConvertToGlyphs does in one call.
#pragma once

#include "corekit/foundation/StringW.h"
#include "corekit/unicode/shaping/ArabicShaping.h"
#include "corekit/unicode/shaping/BengaliShaping.h"
#include "corekit/unicode/shaping/DevanagariShaping.h"
#include "corekit/unicode/shaping/TamilShaping.h"

#include <string>

struct ShapingStep {
    WCHAR first, last; // of its block
    void (*take)(StringW& out, const WCHAR* text, int& index);
};

inline constexpr ShapingStep shapingSteps[] = {
    {0x0600, 0x06FF, ConvertArabicGlyphs},
    {0x0900, 0x097F, ConvertDevanagariSyllable},
    {0x0980, 0x09FF, ConvertBengaliSyllable},
    {0x0B80, 0x0BFF, ConvertTamilSyllable},
};

inline std::u16string Units(const StringW& s) { return {s, static_cast<std::size_t>(s.GetLength())}; }

// The glyphs of the step at `index`, which moves on. A character of no step's block is copied.
inline std::u16string TakeShapingStep(const WCHAR* text, int& index)
{
    const WCHAR c = text[index];
    for (const ShapingStep& step : shapingSteps) {
        if (c < step.first || c > step.last) continue;
        StringW out;
        step.take(out, text, index);
        return Units(out);
    }
    ++index;
    return {c};
}
