// Where contexts draw: foreign pixels, the origin of coordinates, kept states.
#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/drawing/DeviceContext.h"
#include "corekit/platform/qt/drawing/ForeignPixels.h"

#include <utility>

using namespace corekit::detail;

namespace {

constexpr std::size_t mostSaved = 1000;
constexpr double greatestScale = 16;

bool isSound(const ForeignPixels& on)
{
    const bool isThere = on.pixels && on.width > 0 && on.height > 0 && on.stride >= on.width;
    return (isThere || !on.pixels) && on.scale >= 1.0 / greatestScale && on.scale <= greatestScale;
}

std::shared_ptr<Bitmap> bitmapOn(const ForeignPixels& on)
{
    auto bitmap = std::make_shared<Bitmap>();
    bitmap->pixels = on.pixels;
    bitmap->width = on.width;
    bitmap->height = on.height;
    bitmap->stride = on.stride;
    bitmap->scale = on.scale;
    bitmap->units = {static_cast<LONG>(std::lround(on.width / on.scale)),
                     static_cast<LONG>(std::lround(on.height / on.scale))};
    bitmap->isOpaque = true;
    bitmap->selected = true;
    return bitmap;
}

void target(DeviceContext& context, const ForeignPixels& on)
{
    context.bitmap = bitmapOn(on);
    context.scale = on.scale;
    context.baseX = on.originX;
    context.baseY = on.originY;
    context.systemClip = on.clip;
    context.isForeign = true;
    context.updateClip();
}

// The change of an origin, the former one told.
template <typename Change>
BOOL changeOrigin(HDC dc, POINT* before, Change change)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context) return FALSE;
    const POINT former = context->viewport;
    context->viewport = change(former);
    if (before) *before = former;
    return TRUE;
}

LONG sum(LONG a, LONG b) { return static_cast<LONG>(static_cast<DWORD>(a) + static_cast<DWORD>(b)); }

} // namespace

namespace corekit::detail {

HDC makeForeignContext(const ForeignPixels& on)
{
    if (!isSound(on)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    auto context = makeContext();
    target(*context, on);
    return static_cast<HDC>(GdiTable::add(std::move(context)));
}

bool retargetForeignContext(HDC dc, const ForeignPixels& on)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context) return false;
    if (!context->isForeign || !isSound(on)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return false;
    }
    target(*context, on);
    return true;
}

} // namespace corekit::detail

BOOL SetViewportOrgEx(HDC dc, int x, int y, POINT* before)
{
    return changeOrigin(dc, before, [&](POINT) { return POINT{x, y}; });
}

BOOL OffsetViewportOrgEx(HDC dc, int dx, int dy, POINT* before)
{
    return changeOrigin(dc, before, [&](POINT from) { return POINT{sum(from.x, dx), sum(from.y, dy)}; });
}

BOOL GetViewportOrgEx(HDC dc, POINT* origin)
{
    if (!origin) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    return changeOrigin(dc, origin, [](POINT same) { return same; });
}

int SaveDC(HDC dc)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context) return 0;
    if (context->saved.size() >= mostSaved) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return 0;
    }
    context->saved.push_back(*context);
    return static_cast<int>(context->saved.size());
}

BOOL RestoreDC(HDC dc, int number)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context) return FALSE;
    const auto kept = static_cast<std::int64_t>(context->saved.size());
    const std::int64_t index = number < 0 ? kept + number : std::int64_t{number} - 1;
    if (index < 0 || index >= kept) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    static_cast<ContextState&>(*context) = std::move(context->saved[static_cast<std::size_t>(index)]);
    context->saved.resize(static_cast<std::size_t>(index));
    context->updateClip();
    return TRUE;
}

int GetDeviceCaps(HDC dc, int index)
{
    const DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context) return 0;
    switch (index) {
    case HORZRES:
        return context->bitmap->units.cx;
    case VERTRES:
        return context->bitmap->units.cy;
    case BITSPIXEL:
        return 32;
    case PLANES:
        return 1;
    case NUMCOLORS:
        return -1;
    case LOGPIXELSX:
    case LOGPIXELSY:
        return 96;
    default:
        return 0;
    }
}
