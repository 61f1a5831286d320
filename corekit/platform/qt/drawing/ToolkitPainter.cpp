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
    : m_context(context), m_picture(pictureOf(*context.bitmap))
{
    if (m_picture.isNull())
        m_picture = QImage(1, 1, QImage::Format_ARGB32_Premultiplied); // all of it clipped
    m_painter.begin(&m_picture);
    const bool flip = !context.bitmap->topDown;
    m_painter.setClipRegion(regionOf(context, flip ? context.bitmap->height : 0));
    QTransform place;
    if (flip) place = QTransform(1, 0, 0, -1, 0, context.bitmap->height);
    place.translate(static_cast<double>(context.baseX), static_cast<double>(context.baseY));
    place.scale(context.scale, context.scale);
    place.translate(context.viewport.x, context.viewport.y);
    m_painter.setTransform(place);
}

void ToolkitPainter::useContextPen()
{
    const Pen& pen = *m_context.pen;
    if (pen.style == PS_NULL) return m_painter.setPen(Qt::NoPen);
    QPen made(QColor::fromRgb(pixelOf(pen.colour)), std::max(pen.width, 1));
    made.setCapStyle(pen.width > 1 ? Qt::RoundCap : Qt::SquareCap);
    made.setJoinStyle(pen.width > 1 ? Qt::RoundJoin : Qt::MiterJoin);
    m_painter.setPen(made);
}

void ToolkitPainter::useContextBrush()
{
    const Brush& brush = *m_context.brush;
    if (brush.style == BS_NULL) return m_painter.setBrush(Qt::NoBrush);
    if (brush.style == BS_SOLID) return m_painter.setBrush(QColor::fromRgb(pixelOf(brush.colour)));
    m_painter.setBrush(QBrush(patternOf(m_context, brush)));
    m_painter.setBrushOrigin(-m_context.viewport.x, -m_context.viewport.y);
}

} // namespace corekit::detail
