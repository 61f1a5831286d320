// Whole texts between the active code page and UTF-16.
#pragma once

#include "corekit/platform/Types.h"

#include <string>
#include <string_view>

namespace corekit::detail {

// Zeros included. The narrow one holds as many whole characters as fit `most` bytes; below 0, all.
std::u16string WideText(std::string_view text);
std::string NarrowText(std::u16string_view text, int most = -1);

// Into the room that there is: how many were written, 0 where it is too little.
int ToNarrow(std::u16string_view text, char* out, int room);
int ToWide(std::string_view text, WCHAR* out, int room);

inline bool IsHighSurrogate(WCHAR unit) { return (unit & 0xFC00) == 0xD800; }
inline bool IsLowSurrogate(WCHAR unit) { return (unit & 0xFC00) == 0xDC00; }

} // namespace corekit::detail
