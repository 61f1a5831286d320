// Bitmap files that other programs wrote, and one built byte by byte.
#pragma once

#include "corekit/platform/GdiBitmaps.h"

#include <cstring>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <vector>

using Bytes = std::vector<BYTE>;

inline constexpr int pictureWidth = 7, pictureHeight = 5;

inline Bytes readBytes(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    EXPECT_TRUE(in) << path;
    return {std::istreambuf_iterator<char>(in), {}};
}

// In tests/graphics/bitmaps.
inline std::string bitmapPath(const std::string& name)
{
    return (std::string(TEST_DATA).ends_with("_ui") ? TEST_DATA "/../graphics/bitmaps/"
                                                    : TEST_DATA "/bitmaps/") +
           name;
}

struct BitmapFile {
    const char* name;
    WORD bits;
    DWORD colours;
    const char* picture; // red, green and blue of each pixel from the top
};
inline constexpr BitmapFile bitmapFiles[] = {
    {"pal1-pil.bmp", 1, 2, "mono.raw"},        {"core1-netpbm.bmp", 1, 2, "mono.raw"},
    {"pal4-netpbm.bmp", 4, 16, "colours.raw"}, {"core4-netpbm.bmp", 4, 16, "colours.raw"},
    {"pal8-pil.bmp", 8, 16, "colours.raw"},    {"core8-netpbm.bmp", 8, 256, "colours.raw"},
    {"rgb24-pil.bmp", 24, 0, "colours.raw"},   {"core24-netpbm.bmp", 24, 0, "colours.raw"},
    {"rgb32-pil.bmp", 32, 0, "colours.raw"},
};

// The coloured picture with five bits a colour, behind the file's own header; top-down for a height below 0.
inline Bytes fifteenBitDib(int height)
{
    BITMAPINFOHEADER header{sizeof header, pictureWidth, height, 1, 16, BI_RGB, 0, 0, 0, 0, 0};
    Bytes dib(sizeof header + 16 * pictureHeight);
    std::memcpy(dib.data(), &header, sizeof header);
    const Bytes rgb = readBytes(bitmapPath("colours.raw"));
    for (int y = 0; y < pictureHeight; ++y)
        for (int x = 0; x < pictureWidth; ++x) {
            const BYTE* const pixel = &rgb[static_cast<std::size_t>((y * pictureWidth + x) * 3)];
            const auto value = static_cast<WORD>(pixel[0] >> 3 << 10 | pixel[1] >> 3 << 5 | pixel[2] >> 3);
            const int row = height < 0 ? y : pictureHeight - 1 - y;
            std::memcpy(&dib[sizeof header + static_cast<std::size_t>(row * 16 + x * 2)], &value, 2);
        }
    return dib;
}
