// Text between the active code page and UTF-16.
#pragma once

#include "corekit/framework/CodePageText.h"
#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <cstddef>

// Convert up to a zero. At most `count` characters of the destination's width are written, the terminator
// included; where the text needs more, whole characters are left out at its end. How many were written with
// the terminator; 0 for a count of 0, when nothing is written. Source and destination must not overlap.
COREKIT_API int _wcstombsz(char* dest, const WCHAR* src, std::size_t count);
COREKIT_API int _mbstowcsz(WCHAR* dest, const char* src, std::size_t count); // from the active code page
