#include "corekit/platform/qt/drawing/DibRows.h"

#include <algorithm>
#include <cstring>
#if defined(__x86_64__)
#include <immintrin.h>
#endif

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

constexpr int wideStep = 8;         // pixels
constexpr int leastToAlign = 64;    // pixels of a row that is worth it
constexpr std::uintptr_t line = 32; // bytes of a store that does not cross two lines of the cache

// Eight pixels from 24 bytes, of which none beyond them is read: the second half begins eight bytes on, with
// four that the first half has.
[[gnu::always_inline, gnu::target("avx2")]] inline __m256i spread8(const std::byte* at)
{
    const auto half = [](const std::byte* bytes) {
        return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
    };
    const __m256i places = _mm256_setr_epi8(0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1, //
                                            4, 5, 6, -1, 7, 8, 9, -1, 10, 11, 12, -1, 13, 14, 15, -1);
    const __m256i both = _mm256_inserti128_si256(_mm256_castsi128_si256(half(at)), half(at + 8), 1);
    return _mm256_or_si256(_mm256_shuffle_epi8(both, places), _mm256_set1_epi32(static_cast<int>(opaque)));
}

[[gnu::always_inline, gnu::target("avx2")]] inline void store8(std::uint32_t* out, __m256i pixels)
{
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(out), pixels);
}

// Eight pixels a step; steps at the ends of a row may share some. Long rows are stored on line, and the row
// that comes next is fetched meanwhile.
[[gnu::target("avx2")]] void decode24Wide(const DibRows&, const std::byte* row, std::ptrdiff_t step, int rows,
                                          int from, int to, std::uint32_t* out, std::ptrdiff_t stride)
{
    const int count = to - from, last = count - wideStep;
    row += static_cast<std::ptrdiff_t>(from) * 3;
    for (; rows > 0; --rows, row += step, out += stride) {
        if (last < 0) {
            decode24Rest(row, count, out);
            continue;
        }
        int x = 0;
        if (count >= leastToAlign) {
            store8(out, spread8(row));
            x = static_cast<int>(-reinterpret_cast<std::uintptr_t>(out) % line / sizeof *out);
            const std::byte* const next = rows > 1 ? row + step : row;
            for (; x < last; x += wideStep) {
                __builtin_prefetch(next + std::ptrdiff_t{x} * 3);
                store8(out + x, spread8(row + std::ptrdiff_t{x} * 3));
            }
        }
        for (; x < last; x += wideStep) store8(out + x, spread8(row + std::ptrdiff_t{x} * 3));
        store8(out + last, spread8(row + std::ptrdiff_t{last} * 3));
    }
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
const auto decode24 = __builtin_cpu_supports("avx2")    ? decode24Wide
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
    : PixelRows(layout.width, layout.height), m_layout(layout), m_decode(decoderFor(layout.bits)),
      m_bits(bits), m_first(first), m_count(count)
{
    if (layout.bits > 8) return;
    m_colourCount = std::min<std::size_t>(layout.colours, std::size(m_colours));
    std::memcpy(m_colours, colours, m_colourCount * sizeof(RGBQUAD));
}

bool DibRows::readColumns(int y, int next, std::span<const std::uint32_t> columns, std::uint32_t* out) const
{
    const std::byte *const row = memoryOf(y), *const after = memoryOf(next);
    if (m_layout.bits != 24 || !row || !after) return false;
    constexpr std::size_t aLine = 8; // pixels, about, that lie on one line of the cache
    const auto edge = static_cast<std::uint32_t>(m_layout.width - 1);
    std::size_t i = 0, end = columns.size();
    const auto readEdge = [&](std::size_t at) { decode24Rest(row + std::size_t{edge} * 3, 1, out + at); };
    while (i < end && columns[i] == edge) readEdge(i++);
    while (i < end && columns[end - 1] == edge) readEdge(--end);
    // Four bytes of each, as the edge is not among them.
    const auto read = [&](std::size_t at) { out[at] = opaque | load(row + std::size_t{columns[at]} * 3); };
    for (; i + aLine <= end; i += aLine) {
        __builtin_prefetch(after + std::size_t{columns[i]} * 3);
        for (std::size_t k = 0; k < aLine; ++k) read(i + k);
    }
    for (; i < end; ++i) read(i);
    return true;
}

void DibRows::copyTo(DeviceContext& context, const Area& from, const Area& to) const
{
    Bitmap& bitmap = *context.bitmap;
    const std::ptrdiff_t stride = bitmap.topDown ? bitmap.stride : -bitmap.stride,
                         step = static_cast<std::ptrdiff_t>(m_layout.topDown ? m_layout.stride
                                                                             : -m_layout.stride);
    context.forEachPart(to, [&](const Area& part) {
        const std::int64_t left = from.left + part.left - to.left, top = from.top + part.top - to.top,
                           inMemory = (m_layout.topDown ? top : m_layout.height - 1 - top) - m_first;
        m_decode(*this, m_bits + inMemory * static_cast<std::ptrdiff_t>(m_layout.stride), step,
                 static_cast<int>(part.height()), static_cast<int>(left),
                 static_cast<int>(left + part.width()), bitmap.row(static_cast<int>(part.top)) + part.left,
                 stride);
    });
}

void DibRows::readBlock(int top, int rows, int from, int to, std::uint32_t* out, std::ptrdiff_t stride) const
{
    const int inMemory = (m_layout.topDown ? top : m_layout.height - 1 - top) - m_first;
    const int direction = m_layout.topDown ? 1 : -1, last = inMemory + direction * (rows - 1);
    const auto isThere = [this](int row) { return row >= 0 && row < m_count; };
    if (isThere(inMemory) && isThere(last)) {
        const auto step = static_cast<std::ptrdiff_t>(m_layout.stride);
        return m_decode(*this, m_bits + inMemory * step, direction * step, rows, from, to, out, stride);
    }
    for (int i = 0; i < rows; ++i, out += stride)
        if (rows > 1)
            readBlock(top + i, 1, from, to, out, stride);
        else
            std::fill_n(out, to - from, opaque);
}

} // namespace corekit::detail
