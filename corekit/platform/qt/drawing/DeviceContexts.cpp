#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/drawing/GdiObjects.h"

#include <utility>

using namespace corekit::detail;

namespace {

// What a fresh context holds: one object of each kind for all of them, the bitmap an empty one, which nobody
// can free.
template <typename T>
std::shared_ptr<T> permanent(std::shared_ptr<T> object)
{
    object->permanent = true;
    GdiTable::add(object);
    return object;
}

const std::shared_ptr<Font>& standInFont()
{
    static const auto font = permanent(std::make_shared<Font>(FontRequest{}));
    return font;
}

const std::shared_ptr<Bitmap>& standInBitmap()
{
    static const auto bitmap = [] {
        auto made = std::make_shared<Bitmap>();
        made->width = made->height = 1;
        return permanent(std::move(made));
    }();
    return bitmap;
}

const std::shared_ptr<Pen>& standInPen()
{
    static const auto pen = permanent(std::make_shared<Pen>(true, RGB(0, 0, 0)));
    return pen;
}

const std::shared_ptr<Brush>& standInBrush()
{
    static const auto brush = permanent(std::make_shared<Brush>(RGB(255, 255, 255)));
    return brush;
}

// Puts an object in the place of the one selected and returns that one's handle.
template <typename T>
HGDIOBJ put(std::shared_ptr<T>& selected, std::shared_ptr<GdiObject> next)
{
    return static_cast<HGDIOBJ>(
        std::exchange(selected, std::static_pointer_cast<T>(std::move(next)))->handle);
}

HGDIOBJ putBitmap(DeviceContext& context, std::shared_ptr<GdiObject> next)
{
    auto& bitmap = static_cast<Bitmap&>(*next);
    if (bitmap.selected && &bitmap != context.bitmap.get()) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    context.bitmap->selected = false;
    bitmap.selected = !bitmap.permanent;
    return put(context.bitmap, std::move(next));
}

template <typename Value>
Value exchangeOf(HDC dc, Value DeviceContext::*member, Value value, Value failure)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    return context ? std::exchange(context->*member, value) : failure;
}

bool alignIsKnown(UINT align)
{
    const UINT horizontal = align & 6, vertical = align & 24;
    return (align & ~(UINT{6} | UINT{24} | TA_RTLREADING)) == 0 && horizontal != 4 && vertical != 16;
}

} // namespace

HDC CreateCompatibleDC(HDC like)
{
    if (like && !GdiTable::find<DeviceContext>(like)) return nullptr;
    auto context = std::make_shared<DeviceContext>();
    context->font = standInFont();
    context->bitmap = standInBitmap();
    context->pen = standInPen();
    context->brush = standInBrush();
    return static_cast<HDC>(GdiTable::add(std::move(context)));
}

BOOL DeleteDC(HDC dc)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context) return FALSE;
    context->bitmap->selected = false;
    GdiTable::remove(dc);
    return TRUE;
}

HGDIOBJ SelectObject(HDC dc, HGDIOBJ object)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context) return nullptr;
    std::shared_ptr<GdiObject> shared = GdiTable::share(object);
    if (!shared) return nullptr;
    switch (shared->kind) {
    case GdiKind::font:
        context->sized = nullptr;
        return put(context->font, std::move(shared));
    case GdiKind::pen:
        return put(context->pen, std::move(shared));
    case GdiKind::brush:
        return put(context->brush, std::move(shared));
    case GdiKind::bitmap:
        return putBitmap(*context, std::move(shared));
    default:
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
}

BOOL DeleteObject(HGDIOBJ object)
{
    const std::shared_ptr<GdiObject> shared = GdiTable::share(object);
    if (!shared) return FALSE;
    if (shared->permanent) return TRUE;
    const bool held = shared->kind == GdiKind::bitmap && static_cast<const Bitmap&>(*shared).selected;
    if (held || shared->kind == GdiKind::context) {
        SetLastError(held ? ERROR_INVALID_PARAMETER : ERROR_INVALID_HANDLE);
        return FALSE;
    }
    return GdiTable::remove(object) ? TRUE : FALSE;
}

COLORREF SetTextColor(HDC dc, COLORREF colour)
{
    return exchangeOf(dc, &DeviceContext::textColour, colour, CLR_INVALID);
}

COLORREF GetTextColor(HDC dc)
{
    const DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    return context ? context->textColour : CLR_INVALID;
}

COLORREF SetBkColor(HDC dc, COLORREF colour)
{
    return exchangeOf(dc, &DeviceContext::backColour, colour, CLR_INVALID);
}

int SetBkMode(HDC dc, int mode)
{
    if (mode != TRANSPARENT && mode != OPAQUE) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    return exchangeOf(dc, &DeviceContext::backMode, mode, 0);
}

UINT SetTextAlign(HDC dc, UINT align)
{
    if (!alignIsKnown(align)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return GDI_ERROR;
    }
    return exchangeOf(dc, &DeviceContext::align, align, GDI_ERROR);
}
