#include "corekit/platform/Dibs.h"

#include <cstdint>

namespace corekit {

namespace {

constexpr std::uint64_t largestPicture = std::uint64_t{1} << 31; // bytes

bool areKnownBits(unsigned bits)
{
    for (const unsigned known : {1u, 4u, 8u, 16u, 24u, 32u})
        if (bits == known) return true;
    return false;
}

} // namespace

bool ReadDibLayout(const BITMAPINFOHEADER& header, DibLayout& layout)
{
    const bool isPlain =
        header.biSize >= sizeof header && header.biPlanes == 1 && header.biCompression == BI_RGB;
    const bool hasArea = header.biWidth > 0 && header.biHeight != 0 && header.biHeight != INT32_MIN;
    if (!isPlain || !hasArea || !areKnownBits(header.biBitCount)) return false;
    layout.width = header.biWidth;
    layout.topDown = header.biHeight < 0;
    layout.height = layout.topDown ? -header.biHeight : header.biHeight;
    layout.bits = header.biBitCount;
    const std::uint32_t most = layout.bits <= 8 ? 1u << layout.bits : 0;
    // A deeper picture may have colours, too, as a hint; they are passed over.
    layout.colours = header.biClrUsed || layout.bits > 8 ? header.biClrUsed : most;
    const std::uint64_t stride = (static_cast<std::uint64_t>(layout.width) * layout.bits + 31) / 32 * 4;
    if (stride * static_cast<std::uint64_t>(layout.height) > largestPicture) return false;
    layout.stride = static_cast<std::size_t>(stride);
    return true;
}

} // namespace corekit
