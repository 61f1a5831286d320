#include "corekit/platform/qt/controls/OwnerDraw.h"

#include "corekit/platform/qt/controls/Control.h"
#include "corekit/platform/qt/drawing/ForeignPixels.h"

#include <QImage>
#include <QPaintEngine>

#include <cmath>

namespace corekit::detail {

namespace {

UINT idOf(const Window& control) { return static_cast<UINT>(control.id()); }

LRESULT askParent(const Window& control, UINT message, void* what)
{
    const HWND parent = control.parent();
    if (!parent) return 0;
    return SendMessageA(parent, message, control.id(), reinterpret_cast<LPARAM>(what));
}

// What the painter draws on, if that is a picture in memory of 32 bits a pixel.
QImage* pictureUnder(const QPainter& painter)
{
    const QPaintEngine* const engine = painter.paintEngine();
    QPaintDevice* const device = engine ? engine->paintDevice() : nullptr;
    if (!device || device->devType() != QInternal::Image) return nullptr;
    auto* const image = static_cast<QImage*>(device);
    return image->depth() == 32 ? image : nullptr;
}

ForeignPixels pixelsOf(QImage& image)
{
    ForeignPixels on;
    on.pixels = reinterpret_cast<std::uint32_t*>(image.bits());
    on.width = image.width();
    on.height = image.height();
    on.stride = image.bytesPerLine() / 4;
    return on;
}

void drawWith(const Window& control, const ForeignPixels& on, const QRect& item, DRAWITEMSTRUCT& parts)
{
    const HDC dc = makeForeignContext(on);
    if (!dc) return;
    parts.hDC = dc;
    parts.rcItem = documentedRect(item);
    askParent(control, WM_DRAWITEM, &parts);
    DeleteDC(dc);
}

void drawOnPicture(const Window& control, QPainter& painter, QImage& image, const QRect& item,
                   DRAWITEMSTRUCT& parts)
{
    const QTransform transform = painter.deviceTransform();
    const QPointF origin = transform.map(QPointF(0, 0));
    ForeignPixels on = pixelsOf(image);
    on.originX = static_cast<int>(std::lround(origin.x()));
    on.originY = static_cast<int>(std::lround(origin.y()));
    on.scale = transform.m11();
    QRegion clip(item);
    if (painter.hasClipping()) clip &= painter.clipRegion();
    const QRegion system = painter.paintEngine()->systemClip();
    if (!system.isEmpty()) {
        QRegion inUnits;
        for (const QRect& r : system) inUnits |= transform.inverted().mapRect(QRectF(r)).toAlignedRect();
        clip &= inUnits;
    }
    on.clip = clip;
    if (!clip.isEmpty()) drawWith(control, on, item, parts);
}

// For painters on anything else: a picture of the item by itself.
void drawByCopy(const Window& control, QPainter& painter, const QRect& item, DRAWITEMSTRUCT& parts)
{
    const double ratio = painter.device()->devicePixelRatioF();
    QImage image(item.size() * ratio, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) return;
    image.fill(control.widget()->palette().color(QPalette::Base));
    ForeignPixels on = pixelsOf(image);
    on.scale = ratio;
    on.originX = -static_cast<int>(std::lround(item.x() * ratio));
    on.originY = -static_cast<int>(std::lround(item.y() * ratio));
    drawWith(control, on, item, parts);
    painter.drawImage(item, image);
}

} // namespace

void sendDrawItem(const Window& control, QPainter& painter, const QRect& item, DRAWITEMSTRUCT parts)
{
    if (!control.isAlive()) return;
    parts.CtlID = idOf(control);
    parts.hwndItem = control.handle();
    if (QImage* const image = pictureUnder(painter))
        drawOnPicture(control, painter, *image, item, parts);
    else
        drawByCopy(control, painter, item, parts);
}

UINT drawStateOf(QStyle::State state)
{
    UINT answer = 0;
    if (state & QStyle::State_Selected) answer |= ODS_SELECTED;
    if (state & QStyle::State_HasFocus) answer |= ODS_FOCUS;
    if (!(state & QStyle::State_Enabled)) answer |= ODS_DISABLED;
    return answer;
}

ItemSize sendMeasureItem(const Window& control, UINT type, UINT item, UINT_PTR data, ItemSize proposal)
{
    MEASUREITEMSTRUCT measure{
        type, idOf(control), item, static_cast<UINT>(proposal.width), static_cast<UINT>(proposal.height),
        data};
    askParent(control, WM_MEASUREITEM, &measure);
    constexpr UINT most = 0x7FFF;
    return {static_cast<int>(std::min(measure.itemWidth, most)),
            std::max(1, static_cast<int>(std::min(measure.itemHeight, most)))};
}

int sendCompareItem(const Window& control, UINT type, UINT_PTR first, UINT_PTR second)
{
    constexpr UINT notInList = 0xFFFFFFFF;
    COMPAREITEMSTRUCT compare{type, idOf(control), control.handle(), notInList, first, notInList, second, 0};
    return static_cast<int>(askParent(control, WM_COMPAREITEM, &compare));
}

void sendDeleteItem(const Window& control, UINT type, UINT item, UINT_PTR data)
{
    DELETEITEMSTRUCT gone{type, idOf(control), item, control.handle(), data};
    askParent(control, WM_DELETEITEM, &gone);
}

} // namespace corekit::detail
