#include "corekit/platform/qt/drawing/DibRows.h"

#include <algorithm>
#include <cstring>

namespace corekit::detail {

namespace {

constexpr std::uint32_t opaque = 0xFF000000u;

std::uint32_t load(const std::byte* at)
{
    std::uint32_t value;
    std::memcpy(&value, at, sizeof value);
    return value;
}

// Five bits of a colour spread over eight.
std::uint32_t widened(std::uint32_t five) { return five << 3 | five >> 2; }

void decode16(const DibRows&, const std::byte* row, int from, int to, std::uint32_t* out)
{
    for (int x = from; x < to; ++x) {
        std::uint16_t pixel;
        std::memcpy(&pixel, row + static_cast<std::ptrdiff_t>(x) * 2, sizeof pixel);
        *out++ =
            opaque | widened(pixel >> 10 & 31) << 16 | widened(pixel >> 5 & 31) << 8 | widened(pixel & 31);
    }
}

using Bytes16 [[gnu::vector_size(16)]] = std::uint8_t;
using Pixels4 [[gnu::vector_size(16)]] = std::uint32_t;

// Four pixels a step, of which sixteen bytes are read: the last ones of a row go one by one.
[[gnu::always_inline]] inline void decode24Body(const std::byte* row, int from, int to, std::uint32_t* out)
{
    const std::byte* at = row + static_cast<std::ptrdiff_t>(from) * 3;
    int left = to - from;
    for (; left >= 6; left -= 4, at += 12, out += 4) {
        Bytes16 bytes;
        std::memcpy(&bytes, at, sizeof bytes);
        const Bytes16 spread =
            __builtin_shufflevector(bytes, bytes, 0, 1, 2, 2, 3, 4, 5, 5, 6, 7, 8, 8, 9, 10, 11, 11);
        const Pixels4 pixels = reinterpret_cast<Pixels4>(spread) | opaque;
        std::memcpy(out, &pixels, sizeof pixels);
    }
    for (; left > 0; --left, at += 3)
        *out++ = opaque | std::to_integer<std::uint32_t>(at[2]) << 16 |
                 std::to_integer<std::uint32_t>(at[1]) << 8 | std::to_integer<std::uint32_t>(at[0]);
}

void decode24Anywhere(const DibRows&, const std::byte* row, int from, int to, std::uint32_t* out)
{
    decode24Body(row, from, to, out);
}

#if defined(__x86_64__)
// The shuffle is one instruction there.
[[gnu::target("ssse3")]] void decode24Shuffled(const DibRows&, const std::byte* row, int from, int to,
                                               std::uint32_t* out)
{
    decode24Body(row, from, to, out);
}
const auto decode24 = __builtin_cpu_supports("ssse3") ? decode24Shuffled : decode24Anywhere;
#else
const auto decode24 = decode24Anywhere;
#endif

void decode32(const DibRows&, const std::byte* row, int from, int to, std::uint32_t* out)
{
    for (int x = from; x < to; ++x) *out++ = opaque | load(row + static_cast<std::ptrdiff_t>(x) * 4);
}

} // namespace

template <unsigned bits>
void DibRows::decodeIndexed(const DibRows& dib, const std::byte* row, int from, int to, std::uint32_t* out)
{
    constexpr int perByte = 8 / bits;
    for (int x = from; x < to; ++x) {
        const unsigned shift = 8 - bits - static_cast<unsigned>(x % perByte) * bits;
        *out++ = dib.colour(std::to_integer<unsigned>(row[x / perByte]) >> shift & ((1u << bits) - 1));
    }
}

DibRows::Decode DibRows::decoderFor(unsigned bits)
{
    switch (bits) {
    case 1:
        return decodeIndexed<1>;
    case 4:
        return decodeIndexed<4>;
    case 8:
        return decodeIndexed<8>;
    case 16:
        return decode16;
    case 24:
        return decode24;
    default:
        return decode32;
    }
}

DibRows::DibRows(const DibLayout& layout, const RGBQUAD* colours, const std::byte* bits, int first, int count)
    : PixelRows(layout.width, layout.height), layout_(layout), decode_(decoderFor(layout.bits)), bits_(bits),
      first_(first), count_(count)
{
    if (layout.bits > 8) return;
    colourCount_ = std::min<std::size_t>(layout.colours, std::size(colours_));
    std::memcpy(colours_, colours, colourCount_ * sizeof(RGBQUAD));
}

void DibRows::read(int y, int from, int to, std::uint32_t* out) const
{
    const int inMemory = (layout_.topDown ? y : layout_.height - 1 - y) - first_;
    if (inMemory < 0 || inMemory >= count_)
        std::fill_n(out, to - from, opaque);
    else
        decode_(*this, bits_ + static_cast<std::size_t>(inMemory) * layout_.stride, from, to, out);
}

} // namespace corekit::detail
