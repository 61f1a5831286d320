#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/GdiObjects.h"

#include <utility>

using namespace corekit::detail;

namespace {

// What a fresh context holds: one font and one empty bitmap for all of them, which nobody can free.
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
    if (shared->kind == GdiKind::font) {
        const auto former = std::exchange(context->font, std::static_pointer_cast<Font>(std::move(shared)));
        context->sized = nullptr;
        return static_cast<HGDIOBJ>(former->handle);
    }
    if (shared->kind != GdiKind::bitmap) {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    auto bitmap = std::static_pointer_cast<Bitmap>(std::move(shared));
    if (bitmap->selected && bitmap != context->bitmap) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    context->bitmap->selected = false;
    bitmap->selected = !bitmap->permanent;
    return static_cast<HGDIOBJ>(std::exchange(context->bitmap, std::move(bitmap))->handle);
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
