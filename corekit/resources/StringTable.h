// The string table of this library.
#pragma once

#include "corekit/framework/ResourceString.h"

#include <span>

namespace corekit::detail {
// Numbers ascend, none twice.
std::span<const ResourceString> stringTable();
} // namespace corekit::detail
