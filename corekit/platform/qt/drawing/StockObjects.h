// Objects that are always there and that nobody can free: what fresh contexts hold, and what GetStockObject
// gives.
#pragma once

#include "corekit/platform/qt/drawing/GdiObjects.h"

namespace corekit::detail {

const std::shared_ptr<Font>& standInFont();     // the default face, an em of 16
const std::shared_ptr<Bitmap>& standInBitmap(); // has no pixels
const std::shared_ptr<Pen>& blackPen();
const std::shared_ptr<Brush>& whiteBrush();
// Makes an object permanent and gives it a handle.
void keepForEver(const std::shared_ptr<GdiObject>& object);

} // namespace corekit::detail
