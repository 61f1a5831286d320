// Lines with the pen of a context.
#pragma once

#include "corekit/platform/qt/drawing/DeviceContext.h"

namespace corekit::detail {

enum class LineEnd { drawn, leftOut };

// From a to b, in units. The same pixels whichever of them comes first, apart from an end that is left out.
void drawLine(DeviceContext& context, POINT a, POINT b, LineEnd end);

} // namespace corekit::detail
