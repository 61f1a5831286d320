// Narrow text as the calls that draw take it.
#pragma once

#include "corekit/platform/CodePages.h"

#include <string>

namespace corekit::detail {

// From the active code page; `count` bytes, not negative.
inline std::u16string wideText(const char* text, int count)
{
    std::u16string wide;
    if (count == 0) return wide;
    wide.resize(static_cast<std::size_t>(count));
    // No code page makes more units than it has bytes.
    const int made = MultiByteToWideChar(CP_ACP, 0, text, count, wide.data(), count);
    wide.resize(static_cast<std::size_t>(made > 0 ? made : 0));
    return wide;
}

} // namespace corekit::detail
