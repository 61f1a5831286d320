// The fast half of the UTF-8 loops: windows of characters of one to three bytes in any mixture, where the
// machine can shuffle bytes.
#pragma once

#include "corekit/platform/Utf8Text.h"

namespace corekit::detail {

// What a window writes at most.
inline constexpr std::size_t widenedRoom = 16;  // units
inline constexpr std::size_t narrowedRoom = 32; // bytes

using Widening = TextPlace<char, WCHAR>;
using Narrowing = TextPlace<WCHAR, char>;

extern const bool hasUtf8Windows; // without them nothing is taken

// Both go on to the end of the text, up to a window with a character that they leave or one for which the
// room is short.
template <Utf8Forms forms>
Widening widenWindows(Widening at, const char* end, const WCHAR* toEnd);
template <Utf8Forms forms>
Narrowing narrowWindows(Narrowing at, const WCHAR* end, const char* toEnd);

} // namespace corekit::detail
