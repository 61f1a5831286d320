// A region as the toolkit has it.
#pragma once

#include "corekit/platform/Types.h"

class QRegion;

namespace corekit::detail {

// Null with an error for what is no region.
const QRegion* regionOf(HGDIOBJ region);

} // namespace corekit::detail
