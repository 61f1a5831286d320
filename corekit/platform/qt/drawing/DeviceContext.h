// The object behind an HDC: what is selected, and where on which pixels it draws.
#pragma once

#include "corekit/platform/qt/drawing/GdiObjects.h"

#include <cmath>
#include <optional>
#include <QRegion>
#include <vector>

namespace corekit::detail {

// What SaveDC keeps.
struct ContextState {
    std::shared_ptr<Font> font;
    std::shared_ptr<Pen> pen;
    std::shared_ptr<Brush> brush;
    SizedFont* sized = nullptr;
    COLORREF textColour = 0;
    COLORREF backColour = 0xFFFFFF;
    int backMode = OPAQUE;
    UINT align = TA_LEFT | TA_TOP;
    int stretchMode = COLORONCOLOR;
    POINT viewport{};              // added to coordinates
    POINT position{};              // where LineTo starts
    std::optional<QRegion> chosen; // the caller's clip, in units of the device
};

// Coordinates count units. A unit is a pixel, or, on a display with a device pixel ratio, `scale` of them.
// Edges are rounded to whole pixels, so that areas which touch in units touch in pixels.
struct DeviceContext final : GdiObject, ContextState {
    static constexpr GdiKind kindOf = GdiKind::context;
    DeviceContext() : GdiObject(GdiKind::context) {}

    SizedFont* glyphs() { return sized ? sized : (sized = font->sized()); }
    // The font at the size in pixels.
    SizedFont* drawnGlyphs() { return scale == 1 ? glyphs() : font->scaled(scale); }

    std::int64_t pixelX(std::int64_t x) const { return baseX + inPixels(x + viewport.x); }
    std::int64_t pixelY(std::int64_t y) const { return baseY + inPixels(y + viewport.y); }
    Area pixelsOf(const Area& a) const
    {
        return {pixelX(a.left), pixelY(a.top), pixelX(a.right), pixelY(a.bottom)};
    }
    // The same counted from the surface's corner instead of the origin.
    Area devicePixelsOf(const Area& a) const
    {
        return {baseX + inPixels(a.left), baseY + inPixels(a.top), baseX + inPixels(a.right),
                baseY + inPixels(a.bottom)};
    }

    // Calls with each part of the area that may be drawn on.
    template <typename Use>
    void forEachPart(const Area& area, Use use) const
    {
        const Area seen = area.cut(box);
        if (seen.isEmpty()) return;
        touched = true;
        if (parts.empty()) return use(seen);
        for (const Area& part : parts)
            if (const Area common = seen.cut(part); !common.isEmpty()) use(common);
    }

    // Brings box and parts up to date; whoever changes bitmap, base, scale or a clip calls it.
    void updateClip();

    std::shared_ptr<Bitmap> bitmap;
    double scale = 1;
    std::int64_t baseX = 0, baseY = 0; // the pixel of unit 0, 0
    std::optional<QRegion> systemClip; // what the window leaves to be drawn on, in units
    bool isForeign = false;            // its pixels are a window's
    Area box{};                        // what may be drawn on lies in here
    std::vector<Area> parts;           // and is these, or all of it if there are none
    std::vector<ContextState> saved;
    mutable bool touched = false; // something may have been drawn

private:
    std::int64_t inPixels(std::int64_t units) const
    {
        return scale == 1 ? units : std::llround(static_cast<double>(units) * scale);
    }
};

// With the attributes and objects of a fresh one, drawing into nothing.
std::shared_ptr<DeviceContext> makeContext();

} // namespace corekit::detail
