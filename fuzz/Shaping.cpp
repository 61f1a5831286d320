// Any 16-bit text through the bidirectional pass and the glyph conversion.
#include "corekit/unicode/bidi/ReorderToVisual.h"
#include "corekit/unicode/shaping/GlyphConversion.h"

#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0) return 0;
    const int base = data[0] & 1, length = static_cast<int>((size - 1) / sizeof(WCHAR));
    StringW text;
    if (length)
        std::memcpy(text.GetBufferSetLength(length), data + 1,
                    static_cast<std::size_t>(length) * sizeof(WCHAR));

    CArray<int, int> order, types;
    ReorderToVisual(text, order, types, base);
    long long sum = 0;
    for (int i = 0; i < order.GetSize(); ++i) sum += order[i];
    if (order.GetSize() != length || sum != 1LL * length * (length - 1) / 2) __builtin_trap();

    StringW glyphs;
    ConvertToGlyphs(text, data[0] & 2 ? length : length / 2, glyphs, false);
    if (glyphs.GetLength() > 4 * length + 2) __builtin_trap(); // the most is four for one, Bengali tta
    return 0;
}
