// What views of files ask of those who change files.
#pragma once

#include "corekit/platform/Types.h"

#include <cstdint>

namespace corekit::detail {

// Offsets of views are multiples of it.
inline constexpr DWORD allocationGranularity = 65536;

// Cuts a file or extends it with zeros. An error number: 1224 where a view of this process shows what would
// be cut off.
DWORD setFileSize(int descriptor, std::int64_t size);

} // namespace corekit::detail
