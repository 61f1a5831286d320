// Fast loops over zero-terminated text. Where a length is given, the terminator stands at that index, the
// text ends at its first zero, and nothing behind the terminator is read.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <algorithm>
#include <bit>
#include <climits>
#include <cstddef>
#include <cstring>
#include <new>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace corekit::detail {

// A length as the strings keep it; texts that no int can count do not fit into memory that a string may have.
inline int CountedLength(std::size_t n)
{
    if (n > INT_MAX) throw std::bad_alloc();
    return static_cast<int>(n);
}

inline std::size_t TextLength(const char* p) { return std::strlen(p); }
COREKIT_API std::size_t TextLength(const WCHAR* p);

// The index of the first zero, at most n.
inline int TextLength(const char* p, int n)
{
    return static_cast<int>(strnlen(p, static_cast<std::size_t>(n)));
}
COREKIT_API int TextLength(const WCHAR* p, int n);

// The index of a character or a text in text[0, n), -1 if there is none.
COREKIT_API int FindInText(const char* text, int n, char ch);
COREKIT_API int FindInText(const WCHAR* text, int n, WCHAR ch);
COREKIT_API int FindInText(const char* text, int n, const char* what);
COREKIT_API int FindInText(const WCHAR* text, int n, const WCHAR* what);

// Where two texts part: the index of the first difference, or of the terminator at which both end.
inline std::size_t MismatchInText(const WCHAR* a, int lengthA, const WCHAR* b, int lengthB)
{
    const std::size_t last = static_cast<std::size_t>(std::min(lengthA, lengthB));
    std::size_t i = 0;
#ifdef __SSE2__
    if (last >= 7) {
        const __m128i zero = _mm_setzero_si128();
        for (;;) {
            const __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(a + i));
            const __m128i y = _mm_loadu_si128(reinterpret_cast<const __m128i*>(b + i));
            const __m128i goesOn = _mm_andnot_si128(_mm_cmpeq_epi16(x, zero), _mm_cmpeq_epi16(x, y));
            const unsigned stop = static_cast<unsigned>(_mm_movemask_epi8(goesOn)) ^ 0xFFFFu;
            if (stop) return i + static_cast<unsigned>(std::countr_zero(stop)) / 2;
            if (i == last - 7) return last;
            i = std::min(i + 8, last - 7); // the last block overlaps the one before
        }
    }
#endif
    while (i < last && a[i] == b[i] && a[i]) ++i;
    return i;
}

// Whether n units are the same; a zero is a unit like any other.
inline bool SameUnits(const WCHAR* a, const WCHAR* b, std::size_t n)
{
#ifdef __SSE2__
    const auto differ = [a, b](std::size_t i) {
        return _mm_xor_si128(_mm_loadu_si128(reinterpret_cast<const __m128i*>(a + i)),
                             _mm_loadu_si128(reinterpret_cast<const __m128i*>(b + i)));
    };
    const auto isZero = [](__m128i v) {
        return _mm_movemask_epi8(_mm_cmpeq_epi8(v, _mm_setzero_si128())) == 0xFFFF;
    };
    if (n >= 16) {
        for (std::size_t i = 0; i + 16 <= n; i += 16) {
            if (!isZero(_mm_or_si128(differ(i), differ(i + 8)))) return false;
        }
        return isZero(_mm_or_si128(differ(n - 16), differ(n - 8)));
    }
    if (n >= 8) return isZero(_mm_or_si128(differ(0), differ(n - 8)));
#endif
    return std::equal(a, a + n, b);
}

inline bool SameText(const char* a, int, const char* b, int) { return std::strcmp(a, b) == 0; }
inline bool SameText(const WCHAR* a, int lengthA, const WCHAR* b, int lengthB)
{
    // Texts that are equal are mostly so to the end, without a zero in between.
    if (lengthA == lengthB && SameUnits(a, b, static_cast<std::size_t>(lengthA))) return true;
    const std::size_t i = MismatchInText(a, lengthA, b, lengthB);
    return a[i] == b[i];
}

// -1, 0 or 1, by unsigned values.
inline int CompareText(const char* a, int, const char* b)
{
    const int difference = std::strcmp(a, b);
    return (difference > 0) - (difference < 0);
}
COREKIT_API int CompareText(const WCHAR* a, int lengthA, const WCHAR* b);

} // namespace corekit::detail
