// Bitmaps and icons of the drawing calls as pictures of the toolkit's.
#pragma once

#include "corekit/platform/Types.h"

#include <QImage>

namespace corekit::detail {

// type: IMAGE_. Both are empty for a handle that is null or of another kind.
QSize pictureSize(UINT type, HANDLE handle); // in units
QImage pictureOf(UINT type, HANDLE handle);

} // namespace corekit::detail
