// The binary resources of this library.
#pragma once

#include "corekit/framework/BinaryResource.h"

#include <span>

namespace corekit::detail {
std::span<const BinaryResource> binaryResources();
} // namespace corekit::detail
