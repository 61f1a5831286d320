// Copying from context to context.
#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/drawing/Fill.h"
#include "corekit/platform/qt/drawing/PixelRows.h"

#include <algorithm>
#include <cstdlib>

using namespace corekit::detail;

namespace {

BOOL refuse()
{
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
}

// A bitmap of two colours, in those of the context that it is drawn to.
class MonochromeRows final : public PixelRows {
public:
    MonochromeRows(Bitmap& bitmap, const DeviceContext& to)
        : PixelRows(bitmap.width, bitmap.height), m_bitmap(bitmap), m_zero(pixelOf(to.textColour)),
          m_one(pixelOf(to.backColour))
    {
    }
    void read(int y, int from, int to, std::uint32_t* out) const override
    {
        const std::uint32_t* const row = m_bitmap.row(y);
        for (int x = from; x < to; ++x) *out++ = row[x] & 0xFFFFFF ? m_one : m_zero;
    }

private:
    Bitmap& m_bitmap;
    const std::uint32_t m_zero, m_one;
};

struct Extent {
    int x, y, width, height;

    Area area() const { return orderedArea(x, y, std::int64_t{x} + width, std::int64_t{y} + height); }
};

// Equal numbers of units at an equal scale are equal numbers of pixels, wherever their edges are rounded to.
void matchSizes(Area& from, const Area& to)
{
    from.right = from.left + to.width();
    from.bottom = from.top + to.height();
}

BOOL copyFrom(DeviceContext& from, DeviceContext& to, const Copying& how)
{
    Bitmap& source = *from.bitmap;
    if (!source.pixels) return TRUE;
    if (source.isMonochrome && !to.bitmap->isMonochrome)
        return copyPixels(to, MonochromeRows(source, to), how);
    const bool isSame = &source == to.bitmap.get();
    if (!isSame || (!how.isStretched() && !how.mirrorX && !how.mirrorY && to.parts.empty()))
        return copyPixels(to, BitmapRows(source), how);
    const auto copy = makeBitmap(source.width, source.height);
    if (!copy) return FALSE;
    for (int y = 0; y < source.height; ++y) std::copy_n(source.row(y), source.width, copy->row(y));
    return copyPixels(to, BitmapRows(*copy), how);
}

BOOL copy(HDC toHandle, const Extent& to, HDC fromHandle, const Extent& from, Copying how)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(toHandle);
    DeviceContext* const source = context ? GdiTable::find<DeviceContext>(fromHandle) : nullptr;
    if (!source) return FALSE;
    if (needsBrush(how.operation) && context->brush->style == BS_NULL) return TRUE;
    how.to = context->pixelsOf(to.area());
    how.from = source->pixelsOf(from.area());
    const bool isStretched = std::abs(std::int64_t{to.width}) != std::abs(std::int64_t{from.width}) ||
                             std::abs(std::int64_t{to.height}) != std::abs(std::int64_t{from.height});
    if (!isStretched && context->scale == source->scale) matchSizes(how.from, how.to);
    how.mirrorX = (to.width < 0) != (from.width < 0);
    how.mirrorY = (to.height < 0) != (from.height < 0);
    how.smooth = context->stretchMode == HALFTONE;
    return copyFrom(*source, *context, how);
}

} // namespace

BOOL StretchBlt(HDC to, int x, int y, int width, int height, HDC from, int fromX, int fromY, int fromWidth,
                int fromHeight, DWORD operation)
{
    if (!needsSource(operation)) return PatBlt(to, x, y, width, height, operation);
    Copying how;
    how.operation = operation;
    return copy(to, {x, y, width, height}, from, {fromX, fromY, fromWidth, fromHeight}, how);
}

BOOL BitBlt(HDC to, int x, int y, int width, int height, HDC from, int fromX, int fromY, DWORD operation)
{
    return StretchBlt(to, x, y, width, height, from, fromX, fromY, width, height, operation);
}

BOOL PatBlt(HDC dc, int x, int y, int width, int height, DWORD operation)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context) return FALSE;
    if (needsSource(operation)) return refuse();
    const bool hasBrush = needsBrush(operation);
    if (hasBrush && context->brush->style == BS_NULL) return TRUE;
    const Area area = context->pixelsOf(Extent{x, y, width, height}.area());
    if (operation == PATCOPY) {
        fillArea(*context, area, *context->brush);
        return TRUE;
    }
    std::vector<std::uint32_t> brush;
    context->forEachPart(area, [&](const Area& part) {
        const auto count = static_cast<std::size_t>(part.width());
        if (hasBrush) brush.resize(count);
        for (std::int64_t row = part.top; row < part.bottom; ++row) {
            if (hasBrush) brushRow(*context, *context->brush, part.left, row, brush);
            combineRow(operation, context->bitmap->row(static_cast<int>(row)) + part.left, nullptr,
                       hasBrush ? brush.data() : nullptr, count);
        }
    });
    return TRUE;
}
