// Buttons and signs of frames, from edges and a table of outlines.
#include "corekit/platform/Errors.h"
#include "corekit/platform/GdiFrames.h"
#include "corekit/platform/GdiShapes.h"
#include "corekit/platform/qt/drawing/Fill.h"
#include "corekit/platform/qt/drawing/FrameSigns.h"
#include "corekit/platform/qt/drawing/ToolkitPainter.h"
#include "corekit/platform/SystemColours.h"

#include <algorithm>
#include <cmath>
#include <QPolygonF>

using namespace corekit::detail;

namespace {

// The square in the middle of the rectangle that signs are drawn to.
struct Square {
    double x, y, side;
};

Square squareIn(const Area& a)
{
    const auto side = static_cast<double>(std::min(a.width(), a.height()));
    return {static_cast<double>(a.left) + (static_cast<double>(a.width()) - side) / 2,
            static_cast<double>(a.top) + (static_cast<double>(a.height()) - side) / 2, side};
}

void drawSign(DeviceContext& context, const Square& at, const FrameSign& sign, int colour, int shift = 0)
{
    ToolkitPainter painter(context);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(QColor::fromRgb(pixelOf(GetSysColor(colour))));
    const auto place = [&](const FramePoint& p) {
        return QPointF(at.x + shift + p.x * at.side / frameSignSize,
                       at.y + shift + p.y * at.side / frameSignSize);
    };
    if (sign.isRound) {
        painter->drawEllipse(QRectF(place(sign.points[0]), place(sign.points[1])));
        return;
    }
    QPolygonF outline;
    for (const FramePoint& p : sign.points) outline << place(p);
    painter->drawPolygon(outline, Qt::WindingFill);
}

// A sign that is not to be used has a light edge below it.
void drawStatefulSign(DeviceContext& context, const Area& room, const FrameSign& sign, UINT state)
{
    const int shift = state & DFCS_PUSHED ? 1 : 0;
    const Square at = squareIn(room);
    if (state & DFCS_INACTIVE) drawSign(context, at, sign, COLOR_BTNHIGHLIGHT, shift + 1);
    drawSign(context, at, sign, state & DFCS_INACTIVE ? COLOR_GRAYTEXT : COLOR_BTNTEXT, shift);
}

UINT looksOf(UINT state) { return (state & DFCS_FLAT ? BF_FLAT : 0) | (state & DFCS_MONO ? BF_MONO : 0); }

// The raised or sunken face; the rectangle becomes what is left of it.
void drawFace(HDC dc, DeviceContext& context, RECT& rect, UINT state)
{
    const bool isDown = (state & (DFCS_PUSHED | DFCS_CHECKED)) != 0;
    DrawEdge(dc, &rect, isDown ? EDGE_SUNKEN : EDGE_RAISED,
             BF_RECT | BF_MIDDLE | BF_SOFT | BF_ADJUST | looksOf(state));
    if ((state & DFCS_CHECKED) && !(state & DFCS_PUSHED))
        fillArea(context, context.pixelsOf(areaOf(rect)), pixelOf(GetSysColor(COLOR_3DLIGHT)));
}

void drawCheckBox(HDC dc, DeviceContext& context, RECT rect, UINT state)
{
    const Square at = squareIn(areaOf(rect));
    rect = {static_cast<LONG>(std::lround(at.x)), static_cast<LONG>(std::lround(at.y)),
            static_cast<LONG>(std::lround(at.x + at.side)), static_cast<LONG>(std::lround(at.y + at.side))};
    DrawEdge(dc, &rect, EDGE_SUNKEN, BF_RECT | BF_ADJUST | looksOf(state));
    const bool isFaint = (state & (DFCS_PUSHED | DFCS_INACTIVE | DFCS_BUTTON3STATE)) != 0;
    fillArea(context, context.pixelsOf(areaOf(rect)),
             pixelOf(GetSysColor(isFaint ? COLOR_BTNFACE : COLOR_WINDOW)));
    const bool isGrey = (state & (DFCS_INACTIVE | DFCS_BUTTON3STATE)) != 0;
    if (state & DFCS_CHECKED)
        drawSign(context, squareIn(areaOf(rect)), checkSign, isGrey ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT);
}

void drawRadio(DeviceContext& context, const Area& room, UINT state)
{
    const Square at = squareIn(room);
    const bool isFaint = (state & (DFCS_PUSHED | DFCS_INACTIVE)) != 0;
    drawSign(context, at, roundSign, COLOR_BTNSHADOW);
    drawSign(context, at, roundInsideSign, isFaint ? COLOR_BTNFACE : COLOR_WINDOW);
    if (state & DFCS_CHECKED)
        drawSign(context, at, bulletSign, state & DFCS_INACTIVE ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT);
}

bool drawButton(HDC dc, DeviceContext& context, RECT& rect, UINT state)
{
    if (state & DFCS_BUTTONPUSH) {
        RECT inside = rect;
        drawFace(dc, context, inside, state);
        if (state & DFCS_ADJUSTRECT) rect = inside;
    } else if (state & DFCS_BUTTONRADIO) {
        drawRadio(context, areaOf(rect), state);
    } else {
        drawCheckBox(dc, context, rect, state);
    }
    return true;
}

bool drawFacedSign(HDC dc, DeviceContext& context, RECT rect, const FrameSign* sign, UINT state)
{
    if (!sign) return false;
    drawFace(dc, context, rect, state);
    drawStatefulSign(context, areaOf(rect), *sign, state);
    return true;
}

bool drawMenuSign(DeviceContext& context, const RECT& rect, UINT state)
{
    const FrameSign& sign = state & DFCS_MENUCHECK        ? checkSign
                            : state & DFCS_MENUBULLET     ? bulletSign
                            : state & DFCS_MENUARROWRIGHT ? arrowSigns[DFCS_SCROLLLEFT]
                                                          : arrowSigns[DFCS_SCROLLRIGHT];
    drawSign(context, squareIn(areaOf(rect)), sign, state & DFCS_INACTIVE ? COLOR_GRAYTEXT : COLOR_MENUTEXT);
    return true;
}

constexpr UINT signMask = 0xFF;

bool drawScroll(HDC dc, DeviceContext& context, const RECT& rect, UINT state)
{
    const UINT which = state & signMask;
    if (which == DFCS_SCROLLSIZEGRIP) {
        drawSign(context, squareIn(areaOf(rect)), gripSign, COLOR_BTNSHADOW);
        return true;
    }
    const UINT arrow = which == DFCS_SCROLLCOMBOBOX ? DFCS_SCROLLDOWN : which;
    return drawFacedSign(dc, context, rect, arrow < std::size(arrowSigns) ? &arrowSigns[arrow] : nullptr,
                         state);
}

bool drawCaption(HDC dc, DeviceContext& context, const RECT& rect, UINT state)
{
    const UINT which = state & signMask;
    return drawFacedSign(dc, context, rect, which < std::size(captionSigns) ? &captionSigns[which] : nullptr,
                         state);
}

bool drawControl(HDC dc, DeviceContext& context, RECT& rect, UINT kind, UINT state)
{
    switch (kind) {
    case DFC_BUTTON:
        return drawButton(dc, context, rect, state);
    case DFC_SCROLL:
        return drawScroll(dc, context, rect, state);
    case DFC_CAPTION:
        return drawCaption(dc, context, rect, state);
    case DFC_MENU:
        return drawMenuSign(context, rect, state);
    default:
        return false;
    }
}

} // namespace

BOOL DrawFrameControl(HDC dc, RECT* rect, UINT kind, UINT state)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context) return FALSE;
    if (rect && drawControl(dc, *context, *rect, kind, state)) return TRUE;
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
}
