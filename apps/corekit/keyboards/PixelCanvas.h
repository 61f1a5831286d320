// A picture in memory to draw plain shapes and text on.
#pragma once

#include "corekit/framework/Geometry.h"
#include "corekit/framework/ui/DC.h"

#include <string>
#include <string_view>

struct Lettering {
    const char* face;
    int size; // of the em, in pixels
    int weight = FW_NORMAL;
};

class PixelCanvas {
public:
    // Throws std::runtime_error if there is no memory for it.
    PixelCanvas(int width, int height, COLORREF paper);
    ~PixelCanvas();
    PixelCanvas(const PixelCanvas&) = delete;
    PixelCanvas& operator=(const PixelCanvas&) = delete;

    // A filled rectangle with round corners, smoothed; it must lie within the picture.
    void RoundedRect(const CRect& rect, int radius, COLORREF colour);
    // Text on a baseline, shaped by the platform. Gives its width.
    int Text(int x, int baseline, std::u16string_view text, const Lettering& lettering, COLORREF colour);
    int WidthOf(std::u16string_view text, const Lettering& lettering);

    HBITMAP Bitmap() const { return m_bitmap; } // selected into Context()
    HDC Context() const { return m_dc; }
    SIZE Size() const { return {m_width, m_height}; }

private:
    class Font;

    CDC m_dc;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_before = nullptr;
    DWORD* m_pixels = nullptr;
    int m_width, m_height;
};
