// Device-independent bitmaps become bitmaps of our own.
#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/drawing/DibRows.h"
#include "corekit/platform/Resources.h"

#include <cstring>
#include <optional>

using namespace corekit::detail;

namespace {

using Bytes = std::span<const std::byte>;

// A block taken apart; everything lies within it.
struct Dib {
    corekit::DibLayout layout;
    std::vector<RGBQUAD> colours;
    Bytes rows;
};

std::optional<Dib> takeApart(Bytes block)
{
    BITMAPINFOHEADER header;
    if (block.size() < sizeof header) return std::nullopt;
    std::memcpy(&header, block.data(), sizeof header);
    Dib dib;
    if (header.biSize > block.size() || !ReadDibLayout(header, dib.layout)) return std::nullopt;
    const unsigned bits = dib.layout.bits;
    if (bits <= 8 && dib.layout.colours > std::size_t{1} << bits) return std::nullopt;
    const Bytes behind = block.subspan(header.biSize);
    if (dib.layout.colours > behind.size() / sizeof(RGBQUAD)) return std::nullopt;
    dib.rows = behind.subspan(dib.layout.colours * sizeof(RGBQUAD));
    if (dib.rows.size() / dib.layout.stride < static_cast<std::size_t>(dib.layout.height))
        return std::nullopt;
    dib.colours.resize(dib.layout.colours);
    if (!dib.colours.empty())
        std::memcpy(dib.colours.data(), behind.data(), dib.colours.size() * sizeof(RGBQUAD));
    return dib;
}

std::shared_ptr<Bitmap> bitmapOf(const Dib& dib)
{
    auto bitmap = makeBitmap(dib.layout.width, dib.layout.height);
    if (!bitmap) return nullptr;
    const DibRows rows(dib.layout, dib.colours.data(), dib.rows.data(), 0, dib.layout.height);
    for (int y = 0; y < dib.layout.height; ++y) rows.read(y, 0, dib.layout.width, bitmap->row(y));
    return bitmap;
}

HBITMAP refuse()
{
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
}

} // namespace

HBITMAP CreateBitmapFromDib(std::span<const std::byte> block)
{
    const auto dib = takeApart(block);
    if (!dib) return refuse();
    auto bitmap = bitmapOf(*dib);
    if (!bitmap) return nullptr;
    bitmap->isSection = true;
    return static_cast<HBITMAP>(GdiTable::add(std::move(bitmap)));
}

HBITMAP LoadBitmapA(HINSTANCE, const char* name)
{
    HBITMAP loaded = nullptr;
    const bool isThere = UseResource(name, RT_BITMAP, [&](Bytes block) {
        auto dib = takeApart(block);
        auto bitmap = dib ? bitmapOf(*dib) : nullptr;
        if (!bitmap) return static_cast<void>(refuse());
        bitmap->depth = static_cast<WORD>(dib->layout.bits);
        if (bitmap->depth <= 8) bitmap->colours = std::move(dib->colours);
        loaded = static_cast<HBITMAP>(GdiTable::add(std::move(bitmap)));
    });
    if (!isThere) SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
    return loaded;
}
