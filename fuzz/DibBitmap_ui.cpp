#include "corekit/platform/Gdi.h"

#include <cstdint>
#include <cstdlib>

// Whatever a picture's block holds, it becomes a bitmap of the size it tells, or is refused.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const HBITMAP bitmap = CreateBitmapFromDib(std::as_bytes(std::span(data, size)));
    if (!bitmap) return 0;
    BITMAP described{};
    GetObjectA(bitmap, sizeof described, &described);
    const auto* const bits = static_cast<const std::uint32_t*>(described.bmBits);
    for (int i = 0; i < described.bmWidth * described.bmHeight; ++i)
        if (bits[i] >> 24 != 0xFF) std::abort();
    if (!DeleteObject(bitmap)) std::abort();
    return 0;
}
