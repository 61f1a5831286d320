// The bitmaps of macro buttons between memory and the profile.
#pragma once

#include "corekit/graphics/Dib.h"

#include <memory>
#include <span>
#include <vector>

namespace corekit::detail {

inline constexpr int largestMacroBitmap = 32; // pixels, in either direction

// From the stream form; null for bytes that are no bitmap.
COREKIT_API std::unique_ptr<CDib> dibOf(std::span<const BYTE> bytes);
COREKIT_API std::vector<BYTE> bytesOf(const CDib* bitmap); // none for null

} // namespace corekit::detail
