// Bitmaps of our own become device-independent ones.
#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/drawing/DibRows.h"
#include "corekit/platform/qt/drawing/Fill.h"

#include <algorithm>
#include <cstring>
#include <unordered_map>

using namespace corekit::detail;

namespace {

constexpr BYTE darkLevel = 0x80, fullLevel = 0xFF;

// Sixteen colours: the dark ones, grey, then the light ones.
std::vector<RGBQUAD> sixteenColours()
{
    std::vector<RGBQUAD> colours;
    for (const BYTE level : {darkLevel, fullLevel})
        for (unsigned i = 0; i < 8; ++i) {
            const auto channel = [&](unsigned bit) { return i & bit ? level : BYTE{0}; };
            colours.push_back({channel(4), channel(2), channel(1), 0});
        }
    colours[8] = colours[7];
    colours[7] = {0xC0, 0xC0, 0xC0, 0};
    return colours;
}

// Six steps of each colour, then greys.
std::vector<RGBQUAD> cubeOfColours()
{
    constexpr unsigned steps = 6, step = 0x33, all = 256;
    std::vector<RGBQUAD> colours;
    for (unsigned i = 0; i < steps * steps * steps; ++i)
        colours.push_back({static_cast<BYTE>(i % steps * step), static_cast<BYTE>(i / steps % steps * step),
                           static_cast<BYTE>(i / steps / steps * step), 0});
    const std::size_t greys = all - colours.size();
    for (std::size_t i = 1; i <= greys; ++i) {
        const auto level = static_cast<BYTE>(i * fullLevel / (greys + 1));
        colours.push_back({level, level, level, 0});
    }
    return colours;
}

std::vector<RGBQUAD> coloursFor(const Bitmap& bitmap, unsigned bits)
{
    std::vector<RGBQUAD> colours;
    if (bitmap.depth == bits && !bitmap.colours.empty())
        colours = bitmap.colours;
    else if (bits == 1)
        colours = {{0, 0, 0, 0}, {fullLevel, fullLevel, fullLevel, 0}};
    else
        colours = bits == 4 ? sixteenColours() : cubeOfColours();
    colours.resize(std::size_t{1} << bits);
    return colours;
}

int distance(const RGBQUAD& colour, std::uint32_t pixel)
{
    const auto square = [](int a, std::uint32_t b) {
        return (a - static_cast<int>(b)) * (a - static_cast<int>(b));
    };
    return square(colour.rgbRed, pixel >> 16 & 255) + square(colour.rgbGreen, pixel >> 8 & 255) +
           square(colour.rgbBlue, pixel & 255);
}

class RowWriter {
public:
    RowWriter(unsigned bits, std::vector<RGBQUAD> colours) : m_bits(bits), m_colours(std::move(colours)) {}

    void write(std::span<const std::uint32_t> pixels, std::byte* to)
    {
        for (std::size_t x = 0; x < pixels.size(); ++x) {
            if (m_bits >= 16) {
                const std::uint32_t value = m_bits == 16 ? fifteenBits(pixels[x]) : pixels[x] & 0xFFFFFF;
                std::memcpy(to + x * (m_bits / 8), &value, m_bits / 8);
                continue;
            }
            const std::size_t perByte = 8 / m_bits;
            const unsigned shift = static_cast<unsigned>(8 - m_bits - x % perByte * m_bits);
            to[x / perByte] |= static_cast<std::byte>(indexOf(pixels[x] & 0xFFFFFF) << shift);
        }
    }

private:
    static std::uint32_t fifteenBits(std::uint32_t pixel)
    {
        return (pixel >> 19 & 31) << 10 | (pixel >> 11 & 31) << 5 | (pixel >> 3 & 31);
    }
    unsigned indexOf(std::uint32_t pixel)
    {
        const auto [place, isNew] = m_indexes.try_emplace(pixel, 0);
        if (isNew) {
            const auto nearest = std::ranges::min_element(
                m_colours, {}, [pixel](const RGBQUAD& colour) { return distance(colour, pixel); });
            place->second = static_cast<unsigned>(nearest - m_colours.begin());
        }
        return place->second;
    }

    const unsigned m_bits;
    const std::vector<RGBQUAD> m_colours;
    std::unordered_map<std::uint32_t, unsigned> m_indexes;
};

int fillHeader(const Bitmap& bitmap, BITMAPINFOHEADER& header)
{
    header = {sizeof header, bitmap.width, bitmap.height, 1, bitmap.depth, BI_RGB, 0, 0, 0, 0, 0};
    corekit::DibLayout layout;
    if (ReadDibLayout(header, layout)) header.biSizeImage = static_cast<DWORD>(layout.dataSize());
    return 1;
}

} // namespace

int GetDIBits(HDC dc, HBITMAP handle, UINT firstRow, UINT rowCount, void* bits, BITMAPINFO* info, UINT usage)
{
    if (dc && !GdiTable::find<DeviceContext>(dc)) return 0;
    Bitmap* const bitmap = GdiTable::find<Bitmap>(handle);
    if (!bitmap) return 0;
    if (info && !bits && info->bmiHeader.biSize == sizeof info->bmiHeader)
        return fillHeader(*bitmap, info->bmiHeader);
    corekit::DibLayout layout;
    if (!info || !bits || !bitmap->pixels || usage != DIB_RGB_COLORS ||
        !ReadDibLayout(info->bmiHeader, layout)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    const auto rows = static_cast<UINT>(layout.height);
    if (firstRow >= rows) return 0;
    rowCount = std::min(rowCount, rows - firstRow);
    std::vector<RGBQUAD> colours;
    if (layout.bits <= 8) {
        colours = coloursFor(*bitmap, layout.bits);
        colours.resize(layout.colours);
        std::memcpy(reinterpret_cast<std::byte*>(info) + info->bmiHeader.biSize, colours.data(),
                    colours.size() * sizeof(RGBQUAD));
    }
    RowWriter writer(layout.bits, std::move(colours));
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(layout.width));
    auto* to = static_cast<std::byte*>(bits);
    for (UINT i = 0; i < rowCount; ++i, to += layout.stride) {
        const auto inMemory = static_cast<int>(firstRow + i);
        const int y = layout.topDown ? inMemory : layout.height - 1 - inMemory;
        std::ranges::fill(pixels, 0);
        if (y < bitmap->height)
            std::copy_n(bitmap->row(y), std::min(layout.width, bitmap->width), pixels.begin());
        std::memset(to, 0, layout.stride);
        writer.write(pixels, to);
    }
    return static_cast<int>(rowCount);
}
