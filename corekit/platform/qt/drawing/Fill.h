// Filling: areas with a colour or a brush, in a bitmap or through the clip of a context.
#pragma once

#include "corekit/platform/qt/drawing/DeviceContext.h"

namespace corekit::detail {

Area areaOf(const Bitmap& bitmap); // empty for a bitmap without pixels
std::uint32_t pixelOf(COLORREF colour);
// Fills what of `area` lies in the bitmap.
void fillArea(Bitmap& bitmap, const Area& area, std::uint32_t pixel);
// Fills what of an area in pixels the context may draw on.
void fillArea(DeviceContext& context, const Area& area, std::uint32_t pixel);
void fillArea(DeviceContext& context, const Area& area, const Brush& brush);
// The brush's pixels for `to.size()` places of a row from (x, y) on; a gap of a hatch that leaves its ground
// alone has alpha 0. Not for a brush that paints nothing.
void brushRow(const DeviceContext& context, const Brush& brush, std::int64_t x, std::int64_t y,
              std::span<std::uint32_t> to);

} // namespace corekit::detail
