// A picture in memory to draw into and to look at.
#pragma once

#include "corekit/platform/Gdi.h"

#include <cstdint>
#include <stdexcept>
#include <string>

class Raster {
public:
    // All pixels start as 0. Throws std::runtime_error if it is too large.
    Raster(int width, int height) : m_width(width), m_height(height)
    {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        m_bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        if (m_bitmap == nullptr)
            throw std::runtime_error("no memory for a picture of " + std::to_string(width) + " by " +
                                     std::to_string(height));
        m_pixels = static_cast<std::uint32_t*>(bits);
        m_dc = CreateCompatibleDC(nullptr);
        m_before = SelectObject(m_dc, m_bitmap);
    }
    ~Raster()
    {
        SelectObject(m_dc, m_before);
        DeleteDC(m_dc);
        DeleteObject(m_bitmap);
    }
    Raster(const Raster&) = delete;
    Raster& operator=(const Raster&) = delete;

    HDC Context() const { return m_dc; }
    HBITMAP Bitmap() const { return m_bitmap; }
    int Width() const { return m_width; }
    int Height() const { return m_height; }
    // 0xAARRGGBB, row by row from the top.
    const std::uint32_t* Pixels() const { return m_pixels; }

private:
    int m_width, m_height;
    HBITMAP m_bitmap = nullptr;
    HDC m_dc = nullptr;
    HGDIOBJ m_before = nullptr;
    std::uint32_t* m_pixels = nullptr;
};
