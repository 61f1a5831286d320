#include "corekit/platform/qt/drawing/Blend.h"

#include <algorithm>
#include <cstring>

namespace corekit::detail {

namespace {

using Bytes16 [[gnu::vector_size(16)]] = std::uint8_t;

// Vectors of four pixels fit every machine, of eight those with wide registers. `spread` repeats a mask byte
// over the four bytes of its pixel, each half of the vector within itself.
struct Narrow {
    using Pixels [[gnu::vector_size(16)]] = std::uint32_t;
    using Halves [[gnu::vector_size(16)]] = std::uint16_t;
    using Coverage = std::uint32_t;
    [[gnu::always_inline]] static void spread(Pixels& out, Coverage coverage)
    {
        const Bytes16 once = reinterpret_cast<Bytes16>(Pixels{coverage});
        const Bytes16 twice =
            __builtin_shufflevector(once, once, 0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 5, 5, 6, 6, 7, 7);
        out = reinterpret_cast<Pixels>(
            __builtin_shufflevector(twice, twice, 0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 5, 5, 6, 6, 7, 7));
    }
};

struct Wide {
    using Pixels [[gnu::vector_size(32)]] = std::uint32_t;
    using Halves [[gnu::vector_size(32)]] = std::uint16_t;
    using Coverage = std::uint64_t;
    [[gnu::always_inline]] static void spread(Pixels& out, Coverage coverage)
    {
        using Bytes [[gnu::vector_size(32)]] = std::uint8_t;
        using Repeated [[gnu::vector_size(32)]] = std::uint64_t;
        const Repeated repeated = Repeated{} + coverage;
        const Bytes bytes = reinterpret_cast<Bytes>(repeated);
        out = reinterpret_cast<Pixels>(
            __builtin_shufflevector(bytes, bytes, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 3, //
                                    20, 20, 20, 20, 21, 21, 21, 21, 22, 22, 22, 22, 23, 23, 23, 23));
    }
};

// Two colour channels of every pixel, each in 16 bits. d * 255 + (c - d) * m wraps on the way, never in the
// end.
template <typename V>
[[gnu::always_inline]] inline void blendChannels(typename V::Pixels& pixels, const typename V::Pixels& colour,
                                                 const typename V::Pixels& mask)
{
    using Halves = typename V::Halves;
    const Halves d = reinterpret_cast<Halves>(pixels), c = reinterpret_cast<Halves>(colour);
    const Halves sum = (d << 8) - d + (c - d) * reinterpret_cast<Halves>(mask) + 128;
    pixels = reinterpret_cast<typename V::Pixels>((sum + (sum >> 8)) >> 8);
}

template <typename V>
[[gnu::always_inline]] inline void blendVector(std::uint32_t* to, typename V::Coverage coverage,
                                               const typename V::Pixels& evenColour,
                                               const typename V::Pixels& oddColour)
{
    constexpr std::uint32_t low = 0x00FF00FF;
    typename V::Pixels even, odd, mask;
    std::memcpy(&even, to, sizeof even);
    V::spread(mask, coverage);
    mask &= low;
    odd = even >> 8 & low;
    even &= low;
    blendChannels<V>(even, evenColour, mask);
    blendChannels<V>(odd, oddColour, mask);
    even |= odd << 8;
    std::memcpy(to, &even, sizeof even);
}

std::uint32_t blendOne(std::uint32_t d, std::uint32_t colour, std::uint32_t m)
{
    std::uint32_t out = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const std::uint32_t sum = (d >> shift & 255) * (255 - m) + (colour >> shift & 255) * m + 128;
        out |= ((sum + (sum >> 8)) >> 8) << shift;
    }
    return out;
}

struct Job {
    std::uint32_t* to;
    std::ptrdiff_t toStride;
    const std::uint8_t* mask;
    std::ptrdiff_t maskStride;
    int width, height;
    int wide; // columns, from the left, that go by whole vectors
    std::uint32_t colour;
};

template <typename V>
[[gnu::always_inline]] inline void blendRows(Job job)
{
    constexpr int step = sizeof(typename V::Coverage);
    const typename V::Pixels evenColour = typename V::Pixels{} + (job.colour & 0x00FF00FFu);
    const typename V::Pixels oddColour = typename V::Pixels{} + ((job.colour >> 8) & 0x00FF00FFu);
    for (int y = 0; y < job.height; ++y, job.to += job.toStride, job.mask += job.maskStride) {
        int x = 0;
        for (; x < job.wide; x += step) {
            typename V::Coverage coverage;
            std::memcpy(&coverage, job.mask + x, sizeof coverage);
            if (coverage) blendVector<V>(job.to + x, coverage, evenColour, oddColour);
        }
        for (; x < job.width; ++x) job.to[x] = blendOne(job.to[x], job.colour, job.mask[x]);
    }
}

void blendNarrow(const Job& job) { blendRows<Narrow>(job); }

#if defined(__x86_64__)
[[gnu::target("avx2")]] void blendWide(const Job& job) { blendRows<Wide>(job); }
const auto blendBest = __builtin_cpu_supports("avx2") ? blendWide : blendNarrow;
#else
const auto blendBest = blendNarrow;
#endif

} // namespace

void fillPixels(std::uint32_t* to, std::ptrdiff_t stride, int width, int height, std::uint32_t colour)
{
    for (int y = 0; y < height; ++y, to += stride) std::fill_n(to, width, colour);
}

void addMask(std::uint8_t* to, std::ptrdiff_t toStride, const std::uint8_t* from, std::ptrdiff_t fromStride,
             int width, int height)
{
    for (int y = 0; y < height; ++y, to += toStride, from += fromStride)
        for (int x = 0; x < width; x += blendStep) {
            Bytes16 sum, added;
            std::memcpy(&sum, to + x, sizeof sum);
            std::memcpy(&added, from + x, sizeof added);
            sum += added;
            sum |= reinterpret_cast<Bytes16>(sum < added);
            std::memcpy(to + x, &sum, sizeof sum);
        }
}

void addMaskExactly(std::uint8_t* to, std::ptrdiff_t toStride, const std::uint8_t* from,
                    std::ptrdiff_t fromStride, int width, int height)
{
    for (int y = 0; y < height; ++y, to += toStride, from += fromStride)
        for (int x = 0; x < width; ++x) to[x] = static_cast<std::uint8_t>(std::min(255, to[x] + from[x]));
}

void blendMask(std::uint32_t* to, std::ptrdiff_t toStride, const std::uint8_t* mask,
               std::ptrdiff_t maskStride, int width, int height, std::uint32_t colour, std::ptrdiff_t slack)
{
    const int padded = (width + blendStep - 1) / blendStep * blendStep;
    const int wide = padded - width <= slack ? padded : width / blendStep * blendStep;
    blendBest({to, toStride, mask, maskStride, width, height, wide, colour});
}

} // namespace corekit::detail
