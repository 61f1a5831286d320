#include "corekit/platform/qt/drawing/DeviceContext.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/drawing/Fill.h"
#include "corekit/platform/qt/drawing/StockObjects.h"

#include <utility>

using namespace corekit::detail;

namespace {

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
    if (context.isForeign || (bitmap.selected && &bitmap != context.bitmap.get())) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    context.bitmap->selected = false;
    bitmap.selected = !bitmap.permanent;
    const HGDIOBJ before = put(context.bitmap, std::move(next));
    context.scale = context.bitmap->scale;
    context.updateClip();
    return before;
}

HGDIOBJ handleOf(const GdiObject& object) { return static_cast<HGDIOBJ>(object.handle); }

template <typename Value>
Value exchangeOf(HDC dc, Value ContextState::*member, Value value, Value failure)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    return context ? std::exchange(context->*member, value) : failure;
}

template <typename Value>
Value valueOf(HDC dc, Value ContextState::*member, Value failure)
{
    const DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    return context ? context->*member : failure;
}

bool alignIsKnown(UINT align)
{
    const UINT horizontal = align & 6, vertical = align & 24;
    return (align & ~(UINT{6} | UINT{24} | TA_RTLREADING)) == 0 && horizontal != 4 && vertical != 16;
}

template <typename Value>
Value refuse(Value failure)
{
    SetLastError(ERROR_INVALID_PARAMETER);
    return failure;
}

} // namespace

namespace corekit::detail {

std::shared_ptr<DeviceContext> makeContext()
{
    auto context = std::make_shared<DeviceContext>();
    context->font = standInFont();
    context->bitmap = standInBitmap();
    context->pen = blackPen();
    context->brush = whiteBrush();
    context->updateClip();
    return context;
}

void DeviceContext::updateClip()
{
    box = areaOf(*bitmap);
    parts.clear();
    if (!systemClip && !chosen) return;
    const QRegion clip = !systemClip ? *chosen : !chosen ? *systemClip : systemClip->intersected(*chosen);
    Area around{};
    for (const QRect& r : clip) {
        const Area whole{r.x(), r.y(), std::int64_t{r.x()} + r.width(), std::int64_t{r.y()} + r.height()};
        const Area part = devicePixelsOf(whole).cut(box);
        if (part.isEmpty()) continue;
        around = parts.empty() ? part : joined(around, part);
        parts.push_back(part);
    }
    box = around;
    if (parts.size() == 1) parts.clear();
}

} // namespace corekit::detail

HDC CreateCompatibleDC(HDC like)
{
    if (like && !GdiTable::find<DeviceContext>(like)) return nullptr;
    return static_cast<HDC>(GdiTable::add(makeContext()));
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
    case GdiKind::region:
        return reinterpret_cast<HGDIOBJ>(static_cast<UINT_PTR>(SelectClipRgn(dc, object)));
    default:
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
}

HGDIOBJ GetCurrentObject(HDC dc, UINT kind)
{
    const DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context) return nullptr;
    switch (kind) {
    case OBJ_PEN:
        return handleOf(*context->pen);
    case OBJ_BRUSH:
        return handleOf(*context->brush);
    case OBJ_FONT:
        return handleOf(*context->font);
    case OBJ_BITMAP:
        return handleOf(*context->bitmap);
    default:
        return refuse(HGDIOBJ{});
    }
}

BOOL DeleteObject(HGDIOBJ object)
{
    const std::shared_ptr<GdiObject> shared = GdiTable::share(object);
    if (!shared) return FALSE;
    if (shared->permanent) return TRUE;
    const bool held = shared->kind == GdiKind::bitmap && static_cast<const Bitmap&>(*shared).selected;
    const bool other = shared->kind == GdiKind::context || shared->kind == GdiKind::icon;
    if (held || other) {
        SetLastError(held ? ERROR_INVALID_PARAMETER : ERROR_INVALID_HANDLE);
        return FALSE;
    }
    return GdiTable::remove(object) ? TRUE : FALSE;
}

COLORREF SetTextColor(HDC dc, COLORREF colour)
{
    return exchangeOf(dc, &ContextState::textColour, colour, CLR_INVALID);
}

COLORREF GetTextColor(HDC dc) { return valueOf(dc, &ContextState::textColour, CLR_INVALID); }

COLORREF SetBkColor(HDC dc, COLORREF colour)
{
    return exchangeOf(dc, &ContextState::backColour, colour, CLR_INVALID);
}

COLORREF GetBkColor(HDC dc) { return valueOf(dc, &ContextState::backColour, CLR_INVALID); }

int SetBkMode(HDC dc, int mode)
{
    if (mode != TRANSPARENT && mode != OPAQUE) return refuse(0);
    return exchangeOf(dc, &ContextState::backMode, mode, 0);
}

int GetBkMode(HDC dc) { return valueOf(dc, &ContextState::backMode, 0); }

UINT SetTextAlign(HDC dc, UINT align)
{
    if (!alignIsKnown(align)) return refuse(GDI_ERROR);
    return exchangeOf(dc, &ContextState::align, align, GDI_ERROR);
}

UINT GetTextAlign(HDC dc) { return valueOf(dc, &ContextState::align, GDI_ERROR); }

int SetStretchBltMode(HDC dc, int mode)
{
    if (mode != COLORONCOLOR && mode != HALFTONE) return refuse(0);
    return exchangeOf(dc, &ContextState::stretchMode, mode, 0);
}
