// What drawing a glyph covers.
#pragma once

#include <cstdint>
#include <memory>

namespace corekit::detail {

// Coverage of a glyph or word, 255 full. Rows are padded with zeros to a multiple of 16 bytes.
struct GlyphMask {
    int left = 0, top = 0; // of the first pixel, from pen and baseline, y downward
    int width = 0, height = 0, stride = 0;
    std::unique_ptr<std::uint8_t[]>
        coverage; // null where nothing is to be drawn, or in one too large to keep
};

} // namespace corekit::detail
