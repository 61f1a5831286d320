#pragma once

#include "corekit/platform/Types.h"

#include <optional>
#include <Qt>

namespace corekit::detail {

// The toolkit's shape for a cursor number of the system.
std::optional<Qt::CursorShape> shapeOfNumber(WORD number);

} // namespace corekit::detail
