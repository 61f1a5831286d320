// Text between the active code page and UTF-16.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <string>
#include <string_view>

// Convert up to a zero. At most `count` characters are written, the terminator included; where the text needs
// more, whole characters are left out at its end. How many were written with the terminator; 0 for a count of
// 0.
COREKIT_API int _wcstombsz(char* dest, const WCHAR* src, std::size_t count);
COREKIT_API int _mbstowcsz(WCHAR* dest, const char* src, std::size_t count);

namespace corekit::detail {

// Whole texts, zeros included. The narrow one holds as many whole characters as fit `most` bytes; below 0,
// all.
std::u16string WideText(std::string_view text);
std::string NarrowText(std::u16string_view text, int most = -1);

} // namespace corekit::detail
