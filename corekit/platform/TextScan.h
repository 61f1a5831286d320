// Fast loops over zero-terminated text. Where a length is given, the terminator stands at that index, the
// text ends at its first zero, and nothing behind the terminator is read.
//
// All of them may read whole blocks of 16 bytes around the text, never beyond its page. Any thread.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/TextVector.h"
#include "corekit/platform/Types.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstring>
#include <new>
#include <string_view>

namespace corekit::detail {

// A length as the strings keep it; texts that no int can count do not fit into memory that a string may have.
inline int countedLength(std::size_t n)
{
    if (n > INT_MAX) throw std::bad_alloc();
    return static_cast<int>(n);
}

// Units before the terminator.
inline std::size_t textLength(const char* p) { return std::strlen(p); }
COREKIT_API std::size_t textLength(const WCHAR* p);

// The index of the first zero, at most n.
inline int textLength(const char* p, int n)
{
    return static_cast<int>(strnlen(p, static_cast<std::size_t>(n)));
}
COREKIT_API int textLength(const WCHAR* p, int n);

// The index of a character or a text in text[0, n), -1 if there is none. Case counts. Of several places the
// first. An empty text is found at 0.
COREKIT_API int findInText(const char* text, int n, char ch);
COREKIT_API int findInText(const WCHAR* text, int n, WCHAR ch);
COREKIT_API int findInText(const char* text, int n, const char* what);
COREKIT_API int findInText(const WCHAR* text, int n, const WCHAR* what);

// The first unit that equals `unit`, or the terminator.
COREKIT_API const WCHAR* findUnitOrEnd(const WCHAR* text, WCHAR unit);

// Where two texts part: the index of the first difference, or of the terminator at which both end.
COREKIT_API std::size_t mismatchInText(const WCHAR* a, const WCHAR* b);

// Whether n units are the same; a zero is a unit like any other.
inline bool sameUnits(const WCHAR* a, const WCHAR* b, std::size_t n)
{
    const auto differ = [a, b](std::size_t i) { return loadUnits(a + i) ^ loadUnits(b + i); };
    const auto isZero = [](Units units) { return markBits(zeroUnits(units)) == 0xFFFF; };
    if (n >= 16) {
        for (std::size_t i = 0; i + 16 <= n; i += 16) {
            if (!isZero(differ(i) | differ(i + 8))) return false;
        }
        return isZero(differ(n - 16) | differ(n - 8));
    }
    if (n >= 8) return isZero(differ(0) | differ(n - 8));
    return std::equal(a, a + n, b);
}

// Whether two texts with their terminators are the same; the lengths only make it faster.
inline bool sameText(const char* a, int, const char* b, int) { return std::strcmp(a, b) == 0; }
inline bool sameText(const WCHAR* a, int lengthA, const WCHAR* b, int lengthB)
{
    // Texts that are equal are mostly so to the end, without a zero in between.
    if (lengthA == lengthB && sameUnits(a, b, static_cast<std::size_t>(lengthA))) return true;
    if (*a != *b) return false;
    const std::size_t i = mismatchInText(a, b);
    return a[i] == b[i];
}

// -1, 0 or 1, by unsigned values. Most texts differ in their first character.
inline int compareText(const char* a, const char* b)
{
    const auto x = static_cast<unsigned char>(*a), y = static_cast<unsigned char>(*b);
    if (x != y) return x < y ? -1 : 1;
    const int difference = std::strcmp(a, b);
    return (difference > 0) - (difference < 0);
}
inline int compareText(const WCHAR* a, const WCHAR* b)
{
    if (*a != *b) return *a < *b ? -1 : 1;
    const std::size_t i = mismatchInText(a, b);
    return (a[i] > b[i]) - (a[i] < b[i]);
}

// The first place of a text or a unit at or behind `from`, npos if there is none; the terminator counts for
// nothing. An empty text is found at `from` if that lies within.
COREKIT_API std::size_t findInUnits(std::u16string_view text, std::u16string_view what, std::size_t from);
COREKIT_API std::size_t findInUnits(std::u16string_view text, WCHAR unit, std::size_t from);

} // namespace corekit::detail
