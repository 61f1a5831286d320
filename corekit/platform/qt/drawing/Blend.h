// The three loops that touch many pixels: filling, gathering glyph masks, blending colour through a mask.
// Callers clip; nothing here knows bounds.
#pragma once

#include <cstddef>
#include <cstdint>

namespace corekit::detail {

inline constexpr int blendStep = 16; // masks are read in steps of this many bytes

void fillPixels(std::uint32_t* to, std::ptrdiff_t stride, int width, int height, std::uint32_t colour);

// Adds coverage, at most 255. Reads and writes each row up to the next multiple of blendStep.
void addMask(std::uint8_t* to, std::ptrdiff_t toStride, const std::uint8_t* from, std::ptrdiff_t fromStride,
             int width, int height);
// The same for masks cut by a clip, to the byte.
void addMaskExactly(std::uint8_t* to, std::ptrdiff_t toStride, const std::uint8_t* from,
                    std::ptrdiff_t fromStride, int width, int height);

// Pixels become colour * m + pixel * (255 - m), over 255 and rounded. `colour` is opaque. Where `slack`
// further pixels exist behind each row, their mask must be 0 up to the next multiple of blendStep, and they
// keep their values.
void blendMask(std::uint32_t* to, std::ptrdiff_t toStride, const std::uint8_t* mask,
               std::ptrdiff_t maskStride, int width, int height, std::uint32_t colour, std::ptrdiff_t slack);

} // namespace corekit::detail
