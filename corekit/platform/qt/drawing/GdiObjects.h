// The objects behind HFONT, HBITMAP, HPEN, HBRUSH, HRGN, and the table that turns a handle into one.
#pragma once

#include "corekit/platform/Gdi.h"
#include "corekit/platform/posix/handles/SlotTable.h"
#include "corekit/platform/qt/drawing/Area.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

class QRegion;

namespace corekit::detail {

class SizedFont;

enum class GdiKind : std::uint8_t {
    context = static_cast<std::uint8_t>(HandleKind::gdiObject),
    font,
    bitmap,
    pen,
    brush,
    region,
    icon
};

struct GdiObject {
    explicit GdiObject(GdiKind k) : kind(k) {}
    GdiObject(const GdiObject&) = delete;
    GdiObject& operator=(const GdiObject&) = delete;
    virtual ~GdiObject() = default;

    const GdiKind kind;
    void* handle = nullptr; // stays when the object leaves the table while a context still holds it
    bool permanent = false;
};

struct Bitmap final : GdiObject {
    static constexpr GdiKind kindOf = GdiKind::bitmap;
    Bitmap() : GdiObject(GdiKind::bitmap) {}

    std::uint32_t* row(int y) { return pixels + (topDown ? y : height - 1 - y) * stride; }

    int width = 0, height = 0; // in pixels
    std::ptrdiff_t stride = 0; // pixels from one row in memory to the next
    double scale = 1;          // pixels a unit: that of the context that it was made for
    SIZE units{};              // the size in units
    bool topDown = true;
    bool isSection = false;
    bool isMonochrome = false; // pixels are black or white, and stand for the colours of the context drawn on
    bool isOpaque = false;     // no pixel becomes transparent
    bool selected = false;
    WORD depth = 32;                 // bits a pixel where it came from
    std::vector<RGBQUAD> colours;    // its colour table there, for up to 8 bits
    std::uint32_t* pixels = nullptr; // null in the stand-in that a fresh context holds
    std::unique_ptr<std::uint32_t[], void (*)(std::uint32_t*)> block{nullptr, nullptr};
};

struct FontRequest {
    std::string face;
    int height = 0, width = 0;
    bool bold = false, italic = false, underline = false, strikeOut = false;
};

struct Font final : GdiObject {
    static constexpr GdiKind kindOf = GdiKind::font;
    explicit Font(FontRequest r) : GdiObject(GdiKind::font), request(std::move(r)) {}

    // The glyphs of this font, found at the first call; null with a last error if there are none.
    SizedFont* sized();
    // The same for a display with `scale` pixels a unit.
    SizedFont* scaled(double scale);

    const FontRequest request;

private:
    std::shared_ptr<SizedFont> m_sized, m_scaled;
    double m_scale = 0; // of m_scaled
};

// A bitmap of that many units, all 0. Null with a last error for a size that is refused.
std::shared_ptr<Bitmap> makeBitmap(int width, int height, double scale = 1);

struct Pen final : GdiObject {
    static constexpr GdiKind kindOf = GdiKind::pen;
    Pen(int s, int w, COLORREF c) : GdiObject(GdiKind::pen), style(s), width(w), colour(c) {}

    const int style, width;
    const COLORREF colour;
};

struct Brush final : GdiObject {
    static constexpr GdiKind kindOf = GdiKind::brush;
    Brush(UINT s, COLORREF c, LONG_PTR h = 0) : GdiObject(GdiKind::brush), style(s), colour(c), hatch(h) {}

    const UINT style; // BS_
    const COLORREF colour;
    const LONG_PTR hatch;            // HS_
    std::shared_ptr<Bitmap> pattern; // of BS_PATTERN
};

class GdiTable {
public:
    // Null if the table is full; the object's handle is set otherwise.
    static void* add(std::shared_ptr<GdiObject> object);
    // Null with ERROR_INVALID_HANDLE unless the handle stands for a live object of this type. The caller only
    // looks: that nobody deletes the object meanwhile is the program's care.
    template <typename T>
    static T* find(const void* handle)
    {
        const auto number = reinterpret_cast<HandleNumber>(handle);
        const ObjectSlot* const slot = table.at(number);
        if (kindOf(number) != static_cast<HandleKind>(T::kindOf) || slot == nullptr ||
            !slot->isOpenIn(turnOf(number))) [[unlikely]] {
            refuse();
            return nullptr;
        }
        return static_cast<T*>(slot->object.get());
    }
    // As find, for an object of any kind, with a share in it.
    static std::shared_ptr<GdiObject> share(const void* handle);
    // Takes the handle out of force and returns the table's share.
    static std::shared_ptr<GdiObject> remove(const void* handle);

private:
    struct ObjectSlot : Slot {
        void clear() { object.reset(); }

        std::shared_ptr<GdiObject> object;
    };
    static constinit SlotTable<ObjectSlot, 1u << 16> table;
    static ObjectSlot* enter(const void* handle);
    static void refuse();
};

} // namespace corekit::detail
