#include "corekit/platform/qt/drawing/ToolkitPainter.h"

#include "corekit/platform/qt/drawing/Fill.h"

#include <QBrush>
#include <QPen>
#include <QTransform>

namespace corekit::detail {

namespace {

constexpr int patternSize = 8;

QRegion regionOf(const DeviceContext& context, int flippedHeight)
{
    QRegion region;
    context.forEachPart(context.box, [&](const Area& a) {
        const auto top = flippedHeight ? flippedHeight - a.bottom : a.top;
        region += QRect(static_cast<int>(a.left), static_cast<int>(top), static_cast<int>(a.width()),
                        static_cast<int>(a.height()));
    });
    return region;
}

QImage patternOf(const DeviceContext& context, const Brush& brush)
{
    const int width = brush.pattern ? brush.pattern->width : patternSize;
    const int height = brush.pattern ? brush.pattern->height : patternSize;
    QImage picture(width, height, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < height; ++y) {
        auto* const row = reinterpret_cast<std::uint32_t*>(picture.scanLine(y));
        brushRow(context, brush, context.baseX, context.baseY + y, {row, static_cast<std::size_t>(width)});
    }
    return picture;
}

} // namespace

QImage pictureOf(Bitmap& bitmap)
{
    if (!bitmap.pixels) return {};
    return QImage(reinterpret_cast<uchar*>(bitmap.pixels), bitmap.width, bitmap.height, bitmap.stride * 4,
                  QImage::Format_ARGB32_Premultiplied);
}

ToolkitPainter::ToolkitPainter(DeviceContext& context)
    : context_(context), picture_(pictureOf(*context.bitmap))
{
    if (picture_.isNull()) picture_ = QImage(1, 1, QImage::Format_ARGB32_Premultiplied); // all of it clipped
    painter_.begin(&picture_);
    const bool flip = !context.bitmap->topDown;
    painter_.setClipRegion(regionOf(context, flip ? context.bitmap->height : 0));
    QTransform place;
    if (flip) place = QTransform(1, 0, 0, -1, 0, context.bitmap->height);
    place.translate(static_cast<double>(context.baseX), static_cast<double>(context.baseY));
    place.scale(context.scale, context.scale);
    place.translate(context.viewport.x, context.viewport.y);
    painter_.setTransform(place);
}

void ToolkitPainter::useContextPen()
{
    const Pen& pen = *context_.pen;
    if (pen.style == PS_NULL) return painter_.setPen(Qt::NoPen);
    QPen made(QColor::fromRgb(pixelOf(pen.colour)), std::max(pen.width, 1));
    made.setCapStyle(pen.width > 1 ? Qt::RoundCap : Qt::SquareCap);
    made.setJoinStyle(pen.width > 1 ? Qt::RoundJoin : Qt::MiterJoin);
    painter_.setPen(made);
}

void ToolkitPainter::useContextBrush()
{
    const Brush& brush = *context_.brush;
    if (brush.style == BS_NULL) return painter_.setBrush(Qt::NoBrush);
    if (brush.style == BS_SOLID) return painter_.setBrush(QColor::fromRgb(pixelOf(brush.colour)));
    painter_.setBrush(QBrush(patternOf(context_, brush)));
    painter_.setBrushOrigin(-context_.viewport.x, -context_.viewport.y);
}

} // namespace corekit::detail
