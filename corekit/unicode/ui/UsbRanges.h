// The ranges of code points that a font's signature tells apart, and the range of every code point.
//
// Row n is bit n of the signature's four usb words and carries the range number 128 + n. Four private
// ranges, 256 to 259, hold the glyph codes of this library's own 8-bit fonts. Constants, for any thread.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <array>

namespace corekit::detail {

inline constexpr int usbRangeCount = 70;    // rows of the table
inline constexpr int privateRangeCount = 4; // of 256 code points each
inline constexpr int rangeIndexCount = usbRangeCount + privateRangeCount;
inline constexpr int firstUsbRange = 128;     // number of row 0
inline constexpr int firstPrivateRange = 256; // U+E000 to U+E0FF; three more follow

// First code point in the high word, last in the low word.
COREKIT_API extern const DWORD usbRangeTable[usbRangeCount];

// For each code point, its place in the list of all ranges: 0 to 69 are the rows above, 70 to 73 the
// private ranges. What lies in no range counts as row 0.
COREKIT_API extern const std::array<BYTE, 0x10000> rangeIndexTable;

inline int rangeIndexOf(WCHAR c) { return rangeIndexTable[c]; }

constexpr int rangeNumberOfIndex(int index)
{
    return index < usbRangeCount ? firstUsbRange + index : firstPrivateRange + index - usbRangeCount;
}

} // namespace corekit::detail
