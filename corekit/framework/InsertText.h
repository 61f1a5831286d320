// Inserts in message texts.
#pragma once

#include "corekit/framework/String.h"

#include <span>

namespace corekit::detail {
// %1 to %9 become the insert of that number, "?" where there is none of it; all else stays. Null is empty.
CString replaceInserts(const char* format, std::span<const char* const> inserts);
} // namespace corekit::detail
