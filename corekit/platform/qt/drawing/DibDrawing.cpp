// Device-independent bitmaps drawn on contexts.
#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/drawing/DibRows.h"
#include "corekit/platform/qt/drawing/Fill.h"

#include <algorithm>

using namespace corekit::detail;

namespace {

struct Part {
    std::int64_t x, y, width, height;
};

// A part counted from the first row in memory, as an area counted from the top.
inline Area areaFromTop(const corekit::DibLayout& layout, const Part& part)
{
    const std::int64_t end = part.y + part.height, top = layout.topDown ? part.y : layout.height - end;
    return {part.x, top, part.x + part.width, top + part.height};
}

// The same for a part whose sizes may be below 0.
Area orderedAreaFromTop(const corekit::DibLayout& layout, const Part& part)
{
    const Area a = areaFromTop(layout, part);
    return orderedArea(a.left, a.top, a.right, a.bottom);
}

// The picture of a header, or none with a last error.
bool layoutOf(const void* bits, const BITMAPINFO* info, UINT usage, corekit::DibLayout& layout)
{
    if (bits && info && usage == DIB_RGB_COLORS && ReadDibLayout(info->bmiHeader, layout)) return true;
    SetLastError(ERROR_INVALID_PARAMETER);
    return false;
}

const RGBQUAD* coloursOf(const BITMAPINFO& info)
{
    return reinterpret_cast<const RGBQUAD*>(reinterpret_cast<const std::byte*>(&info) +
                                            info.bmiHeader.biSize);
}

DWORD cutToInt(DWORD v) { return std::min<DWORD>(v, INT32_MAX); }

} // namespace

int SetDIBitsToDevice(HDC dc, int x, int y, DWORD width, DWORD height, int fromX, int fromY, UINT firstRow,
                      UINT rowCount, const void* bits, const BITMAPINFO* info, UINT usage)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    corekit::DibLayout layout;
    if (!context || !layoutOf(bits, info, usage, layout)) return 0;
    const auto all = static_cast<UINT>(layout.height);
    if (firstRow >= all) return 0;
    const auto rows = static_cast<int>(std::min(rowCount, all - firstRow));
    const DibRows source(layout, coloursOf(*info), static_cast<const std::byte*>(bits),
                         static_cast<int>(firstRow), rows);
    // Rows that the call does not bring are left alone.
    const Area given = areaFromTop(layout, {0, firstRow, layout.width, rows});
    const Area part = areaFromTop(layout, {fromX, fromY, cutToInt(width), cutToInt(height)});
    const Area from = part.cut(given);
    if (from.isEmpty()) return static_cast<int>(rowCount);
    const std::int64_t left = std::int64_t{x} + from.left - part.left,
                       top = std::int64_t{y} + from.top - part.top;
    const Area to = context->pixelsOf({left, top, left + from.width(), top + from.height()});
    if (context->scale == 1) {
        source.copyTo(*context, from, to);
        return static_cast<int>(rowCount);
    }
    Copying how;
    how.from = from;
    how.to = to;
    return copyPixels(*context, source, how) ? static_cast<int>(rowCount) : 0;
}

int StretchDIBits(HDC dc, int x, int y, int width, int height, int fromX, int fromY, int fromWidth,
                  int fromHeight, const void* bits, const BITMAPINFO* info, UINT usage, DWORD operation)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    corekit::DibLayout layout;
    if (!context || !layoutOf(bits, info, usage, layout)) return 0;
    if (needsBrush(operation) && context->brush->style == BS_NULL) return layout.height;
    const DibRows source(layout, coloursOf(*info), static_cast<const std::byte*>(bits), 0, layout.height);
    Copying how;
    how.operation = operation;
    how.from = orderedAreaFromTop(layout, {fromX, fromY, fromWidth, fromHeight});
    how.to = context->pixelsOf(orderedArea(x, y, std::int64_t{x} + width, std::int64_t{y} + height));
    how.mirrorX = (width < 0) != (fromWidth < 0);
    how.mirrorY = (height < 0) != (fromHeight < 0);
    how.smooth = context->stretchMode == HALFTONE;
    return copyPixels(*context, source, how) ? layout.height : 0;
}
