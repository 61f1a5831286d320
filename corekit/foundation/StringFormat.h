// printf-like formats for both string widths.
//
//   %[flags][width][.precision][size]conversion     width and precision may be *, flags are - + 0 # and blank
//
//   s c     text or character of the string's own width       hs hc   narrow         ls lc   wide
//   S C     wide, in both widths                              hS hC   narrow         lS lC   wide
//   d i o u x X   int; with h short, hh char, l long, ll j z t I64 64 bits           p   a pointer
//   e E f F g G a A   double; with L long double              n   takes its pointer and writes nothing
//
// Narrow text is in the active code page. A null text is written as (null). F and N before another conversion
// letter are accepted and mean nothing. What is no conversion is written as it stands.
#pragma once

#include "corekit/platform/Types.h"

#include <cstdarg>

namespace corekit::detail {

// The characters of a buffer, from the first up to the one that ends it.
template <class Ch>
struct BufferRange {
    Ch* begin = nullptr;
    Ch* end = nullptr;
};

struct FormatRoom {
    int bound;        // the room to reserve
    bool readsBuffer; // the format or a text among the arguments lies in the buffer to be written
};

// The room that a string reserves before it formats. It is a bound by rule, generous for plain characters
// (each counts as many as the format still has) and too small for a few forms, such as a width above the
// precision of a text.
FormatRoom MeasureFormat(const char* format, va_list args, BufferRange<char> buffer);
FormatRoom MeasureFormat(const WCHAR* format, va_list args, BufferRange<WCHAR> buffer);

// Formats into the range as much as fits, without a terminator. How many characters the whole text has.
int WriteFormat(BufferRange<char> out, const char* format, va_list args);
int WriteFormat(BufferRange<WCHAR> out, const WCHAR* format, va_list args);

} // namespace corekit::detail
