// Any bytes as the icon or cursor of a module.
#include "corekit/platform/qt/drawing/IconObject.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto icon = corekit::detail::iconOfBytes(std::as_bytes(std::span(data, size)));
    if (!icon) return 0;
    const QSize full = icon->size();
    if (full.isEmpty() || full.width() > 1024 || full.height() > 1024) std::abort();
    if (!QRect(QPoint(), full).contains(icon->hotSpot)) std::abort();
    if (icon->at(QSize(16, 16), 1.5).size() != QSize(24, 24)) std::abort();
    return 0;
}
