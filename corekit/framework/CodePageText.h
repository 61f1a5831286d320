// Whole texts between the active code page and UTF-16.
//
// The active code page is that of GetACP (platform/CodePages.h). Any thread.
//
//     const std::u16string wide = wideText(name);
//     const std::string cut = narrowText(wide, 31); // whole characters, 31 bytes at most
#pragma once

#include "corekit/platform/Types.h"

#include <string>
#include <string_view>

namespace corekit::detail {

// Zeros included. The narrow one holds as many whole characters as fit `most` bytes; below 0, all. What
// stands for nothing becomes U+FFFD. Empty text gives empty text; throws std::bad_alloc for texts that no
// int can count.
std::u16string wideText(std::string_view text);
// A surrogate pair is one character and is never cut in two. What the page cannot hold becomes its
// replacement. `most` of 0 gives the empty text.
std::string narrowText(std::u16string_view text, int most = -1);

// Into the room that there is: how many were written, 0 where it is too little. `room` counts bytes, or
// 16-bit units for the wide form; no terminator is written. With room 0 the answer is the room that the text
// needs.
int narrowInto(std::u16string_view text, char* out, int room);
int widenInto(std::string_view text, WCHAR* out, int room);

// Characters above U+FFFF are two units, a high and a low one.
inline bool isHighSurrogate(WCHAR unit) { return (unit & 0xFC00) == 0xD800; } // the first half of a pair
inline bool isLowSurrogate(WCHAR unit) { return (unit & 0xFC00) == 0xDC00; }  // the second half

} // namespace corekit::detail
