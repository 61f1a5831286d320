// All keyboards: one for each layout of the platform, in its order, then those of this library.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/unicode/ui/keyboards/KBLayout.h"

#include <memory>
#include <span>
#include <vector>

namespace corekit::detail {

using KeyboardList = std::vector<std::unique_ptr<CKBLayout>>;

COREKIT_API KeyboardList makeKeyboards(std::span<const HKL> layouts);

} // namespace corekit::detail
