#include "corekit/platform/posix/text/Utf8Windows.h"

#include "corekit/platform/posix/text/Utf8Shuffles.h"
#include "corekit/platform/TextVector.h"

#include <algorithm>

#ifdef __x86_64__
#include <immintrin.h>

#define WITH_SHUFFLES gnu::target("avx2,popcnt")

namespace corekit::detail {
namespace {

constexpr std::size_t readBytes = 24; // by a window of sixteen
constexpr std::size_t readUnits = 8;

// A mask of all ones for what is text and zeros behind it begins so many bytes before the middle.
constexpr std::size_t maskHalf = readBytes;
constexpr auto textMask = [] {
    std::array<std::uint8_t, 2 * maskHalf> mask{};
    std::fill_n(mask.begin(), maskHalf, std::uint8_t{0xFF});
    return mask;
}();

[[WITH_SHUFFLES, gnu::always_inline]] inline __m128i load(const void* p)
{
    return _mm_loadu_si128(static_cast<const __m128i*>(p));
}
[[WITH_SHUFFLES, gnu::always_inline]] inline void store(void* p, __m128i v)
{
    _mm_storeu_si128(static_cast<__m128i*>(p), v);
}
[[WITH_SHUFFLES, gnu::always_inline]] inline __m256i joined(__m128i low, __m128i high)
{
    return _mm256_inserti128_si256(_mm256_castsi128_si256(low), high, 1);
}
[[WITH_SHUFFLES, gnu::always_inline]] inline __m256i spread16(int value)
{
    return _mm256_set1_epi16(static_cast<short>(value));
}
[[WITH_SHUFFLES, gnu::always_inline]] inline unsigned topBits(__m256i bytes)
{
    return static_cast<unsigned>(_mm256_movemask_epi8(bytes));
}
[[WITH_SHUFFLES, gnu::always_inline]] inline __m256i orders(const std::array<Shuffle, 256>& table,
                                                            unsigned low, unsigned high)
{
    return joined(load(table[low].data()), load(table[high].data()));
}

// Bytes 0 to 15 and bytes 8 to 23, with zeros behind the text.
[[WITH_SHUFFLES]] COREKIT_READS_WHOLE_BLOCKS inline __m256i windowOf(const char* from, std::size_t left)
{
    if (left >= readBytes) [[likely]]
        return joined(load(from), load(from + 8));
    char piece[readBytes] = {};
    if (!isInOnePage(from, readBytes)) {
        std::memcpy(piece, from, left);
        return joined(load(piece), load(piece + 8));
    }
    const std::uint8_t* const mask = textMask.data() + maskHalf - left;
    return _mm256_and_si256(joined(load(from), load(from + 8)), joined(load(mask), load(mask + 8)));
}

// The bytes from 80 up to this limit.
[[WITH_SHUFFLES, gnu::always_inline]] inline unsigned bytesBelow(unsigned limit, __m256i bytes)
{
    return topBits(_mm256_cmpgt_epi8(_mm256_set1_epi8(static_cast<char>(limit)), bytes));
}

// Which trail bytes stand in a window of 16 bytes, and which its characters want of the bytes behind it, a
// bit each; of the last window's, `open` ones are wanted at the front.
struct Kinds {
    unsigned trails;
    unsigned open;
    bool isPlain; // nothing else is there
};

template <Utf8Forms forms>
[[WITH_SHUFFLES, gnu::always_inline]] inline Kinds kindsOf(__m256i bytes, unsigned high, unsigned open)
{
    const unsigned belowC0 = bytesBelow(0xC0, bytes), belowE0 = bytesBelow(0xE0, bytes);
    const unsigned trails = (belowC0 & 0xFFFF) | (belowC0 >> 8 & 0x30000);
    const unsigned firsts = high & ~belowC0 & 0xFFFF, firstsOf3 = high & ~belowE0 & 0xFFFF;
    const unsigned wanted = firsts << 1 | firstsOf3 << 2 | open;
    unsigned wrong = (high & ~bytesBelow(0xF0, bytes)) | (trails ^ wanted);
    if constexpr (forms == Utf8Forms::proper) wrong |= bytesBelow(0xC2, bytes) & ~belowC0;
    return {trails & 0xFFFF, wanted >> 16, (wrong & 0xFFFF) == 0 && (wanted & ~trails) == 0};
}

struct WideWindow {
    __m256i units;
    bool isPlain;
};

// The characters whose first two bytes `order` brings into each place.
template <Utf8Forms forms>
[[WITH_SHUFFLES, gnu::always_inline]] inline WideWindow unitsOf(__m256i bytes, __m256i order)
{
    const __m256i behind = _mm256_or_si256(
        _mm256_add_epi16(_mm256_and_si256(order, spread16(0xFF)), spread16(2)), spread16(0x8000));
    const __m256i pairs = _mm256_shuffle_epi8(bytes, order);
    const __m256i third = _mm256_and_si256(_mm256_shuffle_epi8(bytes, behind), spread16(0x3F));
    const __m256i second = _mm256_and_si256(_mm256_srli_epi16(pairs, 8), spread16(0x3F));
    const __m256i of1 = _mm256_and_si256(pairs, spread16(0x7F));
    const __m256i of2 =
        _mm256_or_si256(_mm256_slli_epi16(_mm256_and_si256(pairs, spread16(0x1F)), 6), second);
    const __m256i of3 = _mm256_or_si256(_mm256_slli_epi16(of2, 6), third);
    const __m256i isLong = _mm256_srai_epi16(_mm256_slli_epi16(pairs, 8), 15);
    const __m256i is3 = _mm256_cmpeq_epi16(_mm256_and_si256(pairs, spread16(0xE0)), spread16(0xE0));
    const __m256i units = _mm256_blendv_epi8(_mm256_blendv_epi8(of1, of2, isLong), of3, is3);
    bool isPlain = true;
    if constexpr (forms == Utf8Forms::proper) {
        const __m256i top = _mm256_and_si256(units, spread16(0xF800));
        const __m256i improper = _mm256_or_si256(_mm256_cmpeq_epi16(top, _mm256_setzero_si256()),
                                                 _mm256_cmpeq_epi16(top, spread16(0xD800)));
        isPlain = _mm256_testz_si256(improper, is3) != 0;
    }
    return {units, isPlain};
}

[[WITH_SHUFFLES]] COREKIT_READS_WHOLE_BLOCKS inline __m128i unitsAt(const WCHAR* from, std::size_t left)
{
    if (left >= readUnits) [[likely]]
        return load(from);
    WCHAR piece[readUnits] = {};
    if (!isInOnePage(from, sizeof piece)) {
        std::memcpy(piece, from, left * sizeof(WCHAR));
        return load(piece);
    }
    return _mm_and_si128(load(from), load(textMask.data() + maskHalf - left * sizeof(WCHAR)));
}

// Each unit's character in the low bytes of a number.
[[WITH_SHUFFLES, gnu::always_inline]] inline __m256i charactersOf(__m256i units, __m256i isOne,
                                                                  __m256i upToTwo)
{
    const auto six = _mm256_set1_epi32(0x3F);
    const __m256i last = _mm256_and_si256(units, six), upper = _mm256_srli_epi32(units, 6);
    const __m256i of2 =
        _mm256_or_si256(_mm256_or_si256(upper, _mm256_slli_epi32(last, 8)), _mm256_set1_epi32(0x80C0));
    const __m256i of3 = _mm256_or_si256(
        _mm256_or_si256(_mm256_srli_epi32(units, 12), _mm256_slli_epi32(_mm256_and_si256(upper, six), 8)),
        _mm256_or_si256(_mm256_slli_epi32(last, 16), _mm256_set1_epi32(0x8080E0)));
    return _mm256_blendv_epi8(_mm256_blendv_epi8(of3, of2, upToTwo), units, isOne);
}

// Windows follow each other at once: where the next one begins does not depend on what is in this one.
template <Utf8Forms forms>
[[WITH_SHUFFLES]] Widening widen(Widening at, const char* end, const WCHAR* toEnd)
{
    unsigned open = 0;
    for (; at.from < end && toEnd - at.to >= std::ptrdiff_t{widenedRoom}; at.from += 16) {
        const auto left = static_cast<std::size_t>(end - at.from);
        const __m256i bytes = windowOf(at.from, left);
        const unsigned high = topBits(bytes);
        if (((high & 0xFFFF) | open) == 0) {
            _mm256_storeu_si256(reinterpret_cast<__m256i*>(at.to),
                                _mm256_cvtepu8_epi16(_mm256_castsi256_si128(bytes)));
            at.to += 16;
        } else {
            const Kinds kinds = kindsOf<forms>(bytes, high, open);
            const unsigned low = kinds.trails & 0xFF, up = kinds.trails >> 8;
            const WideWindow window = unitsOf<forms>(bytes, orders(characterBytes, low, up));
            if (!kinds.isPlain || !window.isPlain) break;
            open = kinds.open;
            store(at.to, _mm256_castsi256_si128(window.units));
            at.to += 8 - std::popcount(low);
            store(at.to, _mm256_extracti128_si256(window.units, 1));
            at.to += 8 - std::popcount(up);
        }
    }
    if (at.from >= end) return {end, at.to - (at.from - end)}; // without the zeros behind the text
    return {at.from + std::popcount(open), at.to};
}

template <Utf8Forms forms>
[[WITH_SHUFFLES]] Narrowing narrow(Narrowing at, const WCHAR* end, const char* toEnd)
{
    while (at.from < end && toEnd - at.to >= std::ptrdiff_t{narrowedRoom}) {
        const auto left = static_cast<std::size_t>(end - at.from);
        const __m128i eight = unitsAt(at.from, left);
        std::size_t written = 8;
        if (_mm_testz_si128(eight, _mm_set1_epi16(static_cast<short>(0xFF80)))) {
            _mm_storel_epi64(reinterpret_cast<__m128i*>(at.to), _mm_packus_epi16(eight, eight));
        } else {
            if constexpr (forms == Utf8Forms::proper) {
                const __m128i top = _mm_and_si128(eight, _mm_set1_epi16(static_cast<short>(0xF800)));
                if (_mm_movemask_epi8(_mm_cmpeq_epi16(top, _mm_set1_epi16(static_cast<short>(0xD800)))))
                    break;
            }
            const __m256i units = _mm256_cvtepu16_epi32(eight);
            const __m256i isOne = _mm256_cmpgt_epi32(_mm256_set1_epi32(0x80), units);
            const __m256i upToTwo = _mm256_cmpgt_epi32(_mm256_set1_epi32(0x800), units);
            const auto ones = static_cast<unsigned>(_mm256_movemask_ps(_mm256_castsi256_ps(isOne)));
            const auto twos = static_cast<unsigned>(_mm256_movemask_ps(_mm256_castsi256_ps(upToTwo)));
            const unsigned low = (ones & 0xF) | (twos & 0xF) << 4, up = ones >> 4 | (twos & 0xF0);
            const __m256i bytes =
                _mm256_shuffle_epi8(charactersOf(units, isOne, upToTwo), orders(numberBytes, low, up));
            const auto front = static_cast<std::size_t>(12 - std::popcount(low));
            store(at.to, _mm256_castsi256_si128(bytes));
            store(at.to + front, _mm256_extracti128_si256(bytes, 1));
            written = front + static_cast<std::size_t>(12 - std::popcount(up));
        }
        const std::size_t over = readUnits > left ? readUnits - left : 0; // zeros behind the text
        at = {at.from + readUnits - over, at.to + written - over};
    }
    return at;
}

} // namespace

const bool hasUtf8Windows = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("popcnt");

template <Utf8Forms forms>
Widening widenWindows(Widening at, const char* end, const WCHAR* toEnd)
{
    return widen<forms>(at, end, toEnd);
}
template <Utf8Forms forms>
Narrowing narrowWindows(Narrowing at, const WCHAR* end, const char* toEnd)
{
    return narrow<forms>(at, end, toEnd);
}

#else // without shuffles, the steps do it all

namespace corekit::detail {

const bool hasUtf8Windows = false;

template <Utf8Forms>
Widening widenWindows(Widening at, const char*, const WCHAR*)
{
    return at;
}
template <Utf8Forms>
Narrowing narrowWindows(Narrowing at, const WCHAR*, const char*)
{
    return at;
}

#endif

template Widening widenWindows<Utf8Forms::any>(Widening, const char*, const WCHAR*);
template Widening widenWindows<Utf8Forms::proper>(Widening, const char*, const WCHAR*);
template Narrowing narrowWindows<Utf8Forms::any>(Narrowing, const WCHAR*, const char*);
template Narrowing narrowWindows<Utf8Forms::proper>(Narrowing, const WCHAR*, const char*);

} // namespace corekit::detail
