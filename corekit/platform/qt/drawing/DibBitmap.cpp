// Device-independent bitmaps become bitmaps of our own.
#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/drawing/GdiObjects.h"

#include <algorithm>
#include <cstring>
#include <optional>

using namespace corekit::detail;

namespace {

using Bytes = std::span<const std::byte>;

constexpr std::uint32_t opaque = 0xFF000000u;

// The little-endian number of `size` bytes at an offset within the bytes.
std::uint32_t numberAt(Bytes bytes, std::size_t offset, std::size_t size)
{
    std::uint32_t value = 0;
    for (std::size_t i = size; i-- > 0;)
        value = value << 8 | std::to_integer<std::uint32_t>(bytes[offset + i]);
    return value;
}

// A block taken apart; everything lies within it.
struct Dib {
    int width, height;
    bool topDown;
    unsigned bits;
    Bytes colours; // four bytes each
    Bytes rows;
    std::size_t stride;
};

std::optional<BITMAPINFOHEADER> headerOf(Bytes dib)
{
    BITMAPINFOHEADER header;
    if (dib.size() < sizeof header) return std::nullopt;
    std::memcpy(&header, dib.data(), sizeof header);
    const bool isSized = header.biSize >= sizeof header && header.biSize <= dib.size();
    const bool isPlain = header.biPlanes == 1 && header.biCompression == BI_RGB;
    const bool hasArea = header.biWidth > 0 && header.biHeight != 0 && header.biHeight != INT32_MIN;
    if (!isSized || !isPlain || !hasArea) return std::nullopt;
    return header;
}

std::optional<Dib> takeApart(Bytes dib)
{
    const auto header = headerOf(dib);
    if (!header) return std::nullopt;
    const unsigned bits = header->biBitCount;
    constexpr unsigned known[] = {1, 4, 8, 16, 24, 32};
    if (std::ranges::find(known, bits) == std::end(known)) return std::nullopt;
    const std::size_t most = bits <= 8 ? std::size_t{1} << bits : 0;
    // A deeper picture may have colours, too, as a hint; they are passed over.
    const std::size_t colours = header->biClrUsed || bits > 8 ? header->biClrUsed : most;
    const std::size_t stride = (static_cast<std::size_t>(header->biWidth) * bits + 31) / 32 * 4;
    const bool topDown = header->biHeight < 0;
    const int height = topDown ? -header->biHeight : header->biHeight;
    const Bytes behind = dib.subspan(header->biSize);
    if ((bits <= 8 && colours > most) || colours > behind.size() / 4) return std::nullopt;
    const Bytes rows = behind.subspan(colours * 4);
    if (rows.size() / stride < static_cast<std::size_t>(height)) return std::nullopt;
    return Dib{header->biWidth, height, topDown, bits, behind.first(bits <= 8 ? colours * 4 : 0), rows,
               stride};
}

// A pixel's number in its row.
std::uint32_t pixelIn(Bytes row, std::size_t x, unsigned bits)
{
    if (bits >= 8) return numberAt(row, x * (bits / 8), bits / 8);
    const std::size_t perByte = 8 / bits;
    const auto shift = 8 - bits - x % perByte * bits;
    return std::to_integer<std::uint32_t>(row[x / perByte]) >> shift & ((1u << bits) - 1);
}

// Five bits of a colour spread over eight.
std::uint32_t widened(std::uint32_t five) { return five << 3 | five >> 2; }

std::uint32_t colourOf(const Dib& dib, std::uint32_t pixel)
{
    if (dib.bits > 16) return opaque | (pixel & 0xFFFFFF);
    if (dib.bits == 16)
        return opaque | widened(pixel >> 10 & 31) << 16 | widened(pixel >> 5 & 31) << 8 | widened(pixel & 31);
    // A number without a colour is black.
    return pixel < dib.colours.size() / 4 ? opaque | numberAt(dib.colours, pixel * 4, 3) : opaque;
}

} // namespace

HBITMAP CreateBitmapFromDib(std::span<const std::byte> block)
{
    const auto dib = takeApart(block);
    if (!dib) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    auto bitmap = MakeBitmap(dib->width, dib->height);
    if (!bitmap) return nullptr;
    bitmap->isSection = true;
    for (int y = 0; y < dib->height; ++y) {
        const auto inFile = static_cast<std::size_t>(dib->topDown ? y : dib->height - 1 - y);
        const Bytes row = dib->rows.subspan(inFile * dib->stride, dib->stride);
        std::uint32_t* const to = bitmap->row(y);
        for (int x = 0; x < dib->width; ++x)
            to[x] = colourOf(*dib, pixelIn(row, static_cast<std::size_t>(x), dib->bits));
    }
    return static_cast<HBITMAP>(GdiTable::add(std::move(bitmap)));
}
