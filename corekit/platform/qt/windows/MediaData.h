// What a clipboard or a drag holds, by the numbers of formats.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

class QMimeData;

namespace corekit::detail {

COREKIT_API bool mediaHas(const QMimeData& data, UINT format);
// For the caller to free; null if there is none of that format.
COREKIT_API HGLOBAL blockOfMedia(const QMimeData& data, UINT format);

} // namespace corekit::detail
