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

// What a step of several pixels leaves at the end of a row.
void decode24Rest(const std::byte* at, int count, std::uint32_t* out)
{
    for (; count > 0; --count, at += 3)
        *out++ = opaque | std::to_integer<std::uint32_t>(at[2]) << 16 |
                 std::to_integer<std::uint32_t>(at[1]) << 8 | std::to_integer<std::uint32_t>(at[0]);
}

// Four pixels a step, of which sixteen bytes are read.
[[gnu::always_inline]] inline void decode24By4(const std::byte* row, int from, int to, std::uint32_t* out)
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
    decode24Rest(at, left, out);
}

void decode24Anywhere(const DibRows&, const std::byte* row, int from, int to, std::uint32_t* out)
{
    decode24By4(row, from, to, out);
}

#if defined(__x86_64__)
// The shuffle is one instruction there.
[[gnu::target("ssse3")]] void decode24Shuffled(const DibRows&, const std::byte* row, int from, int to,
                                               std::uint32_t* out)
{
    decode24By4(row, from, to, out);
}

using Bytes32 [[gnu::vector_size(32)]] = std::uint8_t;
using Pixels8 [[gnu::vector_size(32)]] = std::uint32_t;

// Eight pixels from 24 bytes, of which none beyond them is read: the second half of a step begins with the
// byte behind eight, and leaves the first four of those alone.
[[gnu::always_inline, gnu::target("avx2")]] inline void spread8(const std::byte* at, std::uint32_t* out)
{
    constexpr int h = 16 + 4;
    Bytes16 first, second;
    std::memcpy(&first, at, sizeof first);
    std::memcpy(&second, at + 8, sizeof second);
    const Bytes32 both =
        __builtin_shufflevector(first, second, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17,
                                18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31);
    const Bytes32 spread = __builtin_shufflevector(both, both, 0, 1, 2, 2, 3, 4, 5, 5, 6, 7, 8, 8, 9, 10, 11,
                                                   11, h, h + 1, h + 2, h + 2, h + 3, h + 4, h + 5, h + 5,
                                                   h + 6, h + 7, h + 8, h + 8, h + 9, h + 10, h + 11, h + 11);
    const Pixels8 pixels = reinterpret_cast<Pixels8>(spread) | opaque;
    std::memcpy(out, &pixels, sizeof pixels);
}

// Eight pixels a step; the last eight may be partly those of the step before.
[[gnu::target("avx2")]] void decode24Wide(const DibRows&, const std::byte* row, int from, int to,
                                          std::uint32_t* out)
{
    const std::byte* at = row + static_cast<std::ptrdiff_t>(from) * 3;
    int left = to - from;
    if (left < 8) return decode24Rest(at, left, out);
    for (; left > 8; left -= 8, at += 24, out += 8) spread8(at, out);
    spread8(at + static_cast<std::ptrdiff_t>(left - 8) * 3, out + left - 8);
}

#endif

void decode32(const DibRows&, const std::byte* row, int from, int to, std::uint32_t* out)
{
    for (int x = from; x < to; ++x) *out++ = opaque | load(row + static_cast<std::ptrdiff_t>(x) * 4);
}

template <DibRows::DecodeRow decodeRow>
void decodeBlock(const DibRows& dib, const std::byte* row, std::ptrdiff_t step, int rows, int from, int to,
                 std::uint32_t* out, std::ptrdiff_t stride)
{
    for (int i = 0; i < rows; ++i, row += step, out += stride) decodeRow(dib, row, from, to, out);
}

#if defined(__x86_64__)
const auto decode24 = __builtin_cpu_supports("avx2")    ? decodeBlock<decode24Wide>
                      : __builtin_cpu_supports("ssse3") ? decodeBlock<decode24Shuffled>
                                                        : decodeBlock<decode24Anywhere>;
#else
const auto decode24 = decodeBlock<decode24Anywhere>;
#endif

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
        return decodeBlock<decodeIndexed<1>>;
    case 4:
        return decodeBlock<decodeIndexed<4>>;
    case 8:
        return decodeBlock<decodeIndexed<8>>;
    case 16:
        return decodeBlock<decode16>;
    case 24:
        return decode24;
    default:
        return decodeBlock<decode32>;
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

void DibRows::readBlock(int top, int rows, int from, int to, std::uint32_t* out, std::ptrdiff_t stride) const
{
    const int inMemory = (layout_.topDown ? top : layout_.height - 1 - top) - first_;
    const int direction = layout_.topDown ? 1 : -1, last = inMemory + direction * (rows - 1);
    const auto isThere = [this](int row) { return row >= 0 && row < count_; };
    if (isThere(inMemory) && isThere(last)) {
        const auto step = static_cast<std::ptrdiff_t>(layout_.stride);
        return decode_(*this, bits_ + inMemory * step, direction * step, rows, from, to, out, stride);
    }
    for (int i = 0; i < rows; ++i, out += stride)
        if (rows > 1)
            readBlock(top + i, 1, from, to, out, stride);
        else
            std::fill_n(out, to - from, opaque);
}

} // namespace corekit::detail
