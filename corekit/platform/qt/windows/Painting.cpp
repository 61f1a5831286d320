// Paints of the toolkit become WM_PAINT, and contexts for windows.
#include "corekit/platform/Painting.h"

#include "corekit/platform/Gdi.h"
#include "corekit/platform/qt/drawing/DeviceContext.h"
#include "corekit/platform/qt/drawing/ForeignPixels.h"
#include "corekit/platform/qt/drawing/Region.h"
#include "corekit/platform/qt/windows/BareWindow.h"
#include "corekit/platform/qt/windows/PaintInHand.h"
#include "corekit/platform/qt/windows/ToolkitThread.h"
#include "corekit/platform/qt/windows/WindowState.h"
#include "corekit/platform/qt/windows/WindowTables.h"

#include <QBackingStore>
#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QRegion>
#include <QWindow>

namespace corekit::detail {
namespace {

constinit PaintInHand* innermost = nullptr;

bool isUsable(const QImage& image)
{
    return image.format() == QImage::Format_RGB32 || image.format() == QImage::Format_ARGB32_Premultiplied;
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

int toPixel(double value) { return static_cast<int>(std::lround(value)); }

} // namespace

PaintInHand::PaintInHand(Window& window, QWidget& receiver, const QRegion& region)
    : m_window(window.handle()), m_receiver(&receiver), m_region(region), m_outer(innermost)
{
    innermost = this;
}

PaintInHand::~PaintInHand()
{
    end();
    innermost = m_outer;
}

PaintInHand* PaintInHand::of(HWND window)
{
    for (PaintInHand* paint = innermost; paint; paint = paint->m_outer)
        if (paint->m_window == window) return paint;
    return nullptr;
}

bool PaintInHand::isAny() { return innermost != nullptr; }

HDC PaintInHand::begin(const QRect& client)
{
    if (m_dc || !m_receiver) return m_dc;
    m_painter = std::make_unique<QPainter>(m_receiver);
    QPaintDevice* const device =
        m_painter->isActive() && m_painter->paintEngine() ? m_painter->paintEngine()->paintDevice() : nullptr;
    const QTransform toDevice = m_painter->deviceTransform();
    ForeignPixels on;
    if (device && device->devType() == QInternal::Image && isUsable(*static_cast<QImage*>(device)) &&
        toDevice.type() <= QTransform::TxScale) {
        on = pixelsOf(*static_cast<QImage*>(device));
        on.scale = toDevice.m11();
        const QPointF origin = toDevice.map(QPointF(client.topLeft()));
        on.originX = toPixel(origin.x());
        on.originY = toPixel(origin.y());
    } else { // a printer or a picture of the toolkit's own kind: it gets a copy
        on.scale = m_receiver->devicePixelRatioF();
        m_copy = QImage((QSizeF(client.size()) * on.scale).toSize(), QImage::Format_ARGB32_Premultiplied);
        m_copy.fill(Qt::transparent);
        m_copyPlace = client.topLeft();
        if (!m_copy.isNull()) on = pixelsOf(m_copy);
        on.scale = m_receiver->devicePixelRatioF();
    }
    on.clip = (m_region & client).translated(-client.topLeft());
    m_dc = makeForeignContext(on);
    return m_dc;
}

void PaintInHand::end()
{
    if (m_dc) DeleteDC(m_dc);
    m_dc = nullptr;
    if (m_painter && !m_copy.isNull()) {
        m_copy.setDevicePixelRatio(m_receiver ? m_receiver->devicePixelRatioF() : 1);
        m_painter->setClipRegion(m_region);
        m_painter->drawImage(m_copyPlace, m_copy);
        m_copy = QImage();
    }
    m_painter.reset();
}

namespace {

// What a window waits to have painted, and how much of it keeps its background.
struct Invalid {
    QRegion all, kept;
};
std::unordered_map<HWND, Invalid>& invalidParts()
{
    static auto* const parts = new std::unordered_map<HWND, Invalid>;
    return *parts;
}

// A context that was given out to draw at any time.
struct GivenContext {
    HWND window = nullptr;
    QPointer<QWidget> widget;
    QRegion region; // in the widget
    bool isOnScreen = false;
};
std::unordered_map<HDC, GivenContext>& givenContexts()
{
    static auto* const contexts = new std::unordered_map<HDC, GivenContext>;
    return *contexts;
}

} // namespace

// One without a size has no picture, which the toolkit does not look out for where it scales windows.
QPaintDevice* shownBy(QBackingStore* store)
{
    return store && !store->size().isEmpty() ? store->paintDevice() : nullptr;
}

namespace {

// The picture of the window on the screen; null while there is none that can be drawn on.
QImage* pictureOf(const QWidget& widget)
{
    QPaintDevice* const device = shownBy(widget.backingStore());
    if (!device || device->devType() != QInternal::Image) return nullptr;
    auto* const image = static_cast<QImage*>(device);
    return isUsable(*image) && !image->isNull() ? image : nullptr;
}

HDC give(Window* window, const QRect& part, const QRegion* clip)
{
    GivenContext given;
    ForeignPixels on;
    QWidget* const widget = window ? window->widget() : nullptr;
    if (QImage* const image = widget && widget->isVisible() ? pictureOf(*widget) : nullptr) {
        given.window = window->handle();
        given.widget = widget;
        given.region = widget->visibleRegion() & part;
        if (clip) given.region &= clip->translated(part.topLeft());
        given.isOnScreen = true;
        on = pixelsOf(*image);
        on.scale = widget->devicePixelRatioF();
        const QPoint origin = widget->mapTo(widget->window(), part.topLeft());
        on.originX = toPixel(origin.x() * on.scale);
        on.originY = toPixel(origin.y() * on.scale);
        on.clip = given.region.translated(-part.topLeft());
    } else if (window) {
        given.window = window->handle();
    }
    const HDC dc = makeForeignContext(on);
    if (dc) givenContexts()[dc] = given;
    return dc;
}

void show(const GivenContext& given)
{
    if (!given.isOnScreen || !given.widget || PaintInHand::isAny()) return;
    QWidget* const top = given.widget->window();
    if (QBackingStore* const store = given.widget->backingStore(); store && top->windowHandle())
        store->flush(given.region.translated(given.widget->mapTo(top, QPoint())), top->windowHandle());
}

QRegion clientPart(const Window& window, const RECT* rect)
{
    const QRect client = window.client();
    if (!rect) return client;
    return QRect(client.left() + rect->left, client.top() + rect->top, rect->right - rect->left,
                 rect->bottom - rect->top) &
           client;
}

// A widget and those that belong to it, such as the viewport of a list: the toolkit leaves out what covers
// it.
void updateWithParts(const Window& window, QWidget& widget, const QRegion& part)
{
    widget.update(part);
    for (QObject* const child : widget.children()) {
        auto* const inner = qobject_cast<QWidget*>(child);
        if (inner && !inner->isWindow() && Window::of(inner) == &window)
            updateWithParts(window, *inner, part.translated(-inner->pos()));
    }
}

void invalidate(Window& window, const QRegion& part, bool erase)
{
    if (part.isEmpty() || !window.widget()) return;
    Invalid& invalid = invalidParts()[window.handle()];
    invalid.kept = erase ? invalid.kept - part : invalid.kept + (part - invalid.all);
    invalid.all += part;
    updateWithParts(window, *window.widget(), part);
}

RECT boundsIn(const Window& window, const QRegion& region)
{
    const QRect bounds = region.boundingRect().translated(-window.client().topLeft());
    return {bounds.left(), bounds.top(), bounds.left() + bounds.width(), bounds.top() + bounds.height()};
}

// Bounds, and whether the background goes.
PAINTSTRUCT startPaint(Window& window, PaintInHand& paint)
{
    PAINTSTRUCT told{};
    Invalid& invalid = invalidParts()[window.handle()];
    const QRegion part = paint.region() & window.client();
    told.fErase = !(part - invalid.kept).isEmpty();
    invalid.all -= paint.region();
    invalid.kept -= paint.region();
    told.rcPaint = boundsIn(window, part);
    told.hdc = paint.begin(window.client());
    return told;
}

} // namespace

bool isPainting(HWND window) { return PaintInHand::of(window) != nullptr; }

void forgetPainting(HWND window) { invalidParts().erase(window); }

void paintWindow(Window& window, QWidget& receiver, const QRegion& region)
{
    const auto held = windowTables().share(window.handle());
    const HWND handle = window.handle();
    {
        PaintInHand paint(window, receiver, region);
        SendMessageA(handle, WM_PAINT, 0, 0);
    }
    if (!held->isAlive()) return;
    if (auto found = invalidParts().find(handle); found != invalidParts().end()) {
        found->second.all -= region;
        found->second.kept -= region;
    }
    if (held->paintsItself()) return;
    QPainter painter(&receiver);
    static_cast<BareWindow&>(*held).paintBorder(painter);
    painter.setClipRegion(region);
    paintCaret(*held, painter);
}

} // namespace corekit::detail

using namespace corekit::detail;

HDC BeginPaint(HWND handle, PAINTSTRUCT* paint)
{
    Window* const window = requireWindow(handle);
    if (!window || !paint) return nullptr;
    const auto held = windowTables().share(handle);
    PaintInHand* const inHand = PaintInHand::of(handle);
    if (!inHand || inHand->isBegun()) {
        *paint = {give(window, {}, nullptr), FALSE, {}};
        return paint->hdc;
    }
    *paint = startPaint(*window, *inHand);
    if (paint->fErase && paint->hdc)
        paint->fErase = !SendMessageA(handle, WM_ERASEBKGND, reinterpret_cast<WPARAM>(paint->hdc), 0);
    return paint->hdc;
}

BOOL EndPaint(HWND handle, const PAINTSTRUCT* paint)
{
    if (!paint) return FALSE;
    PaintInHand* const inHand = PaintInHand::of(handle);
    if (inHand && inHand->dc() == paint->hdc)
        inHand->end();
    else
        ReleaseDC(handle, paint->hdc);
    return TRUE;
}

HDC GetDC(HWND handle) { return GetDCEx(handle, nullptr, 0); }
HDC GetWindowDC(HWND handle) { return GetDCEx(handle, nullptr, DCX_WINDOW); }

HDC GetDCEx(HWND handle, HRGN clip, DWORD flags)
{
    if (!handle || handle == GetDesktopWindow())
        return onToolkitThread() ? give(nullptr, {}, nullptr) : nullptr;
    Window* const window = requireWindow(handle);
    if (!window) return nullptr;
    const QRect part = flags & DCX_WINDOW && window->widget() ? window->widget()->rect() : window->client();
    const QRegion* const region = flags & DCX_INTERSECTRGN ? regionOf(clip) : nullptr;
    return give(window, part, region);
}

int ReleaseDC(HWND, HDC dc)
{
    if (!onToolkitThread()) return 0;
    const auto found = givenContexts().find(dc);
    if (found == givenContexts().end()) return 0;
    const GivenContext given = std::move(found->second);
    givenContexts().erase(found);
    const DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    const bool isTouched = context && context->touched;
    DeleteDC(dc);
    if (isTouched) show(given);
    return 1;
}

BOOL InvalidateRect(HWND handle, const RECT* rect, BOOL erase)
{
    if (!handle) { // all windows
        if (!onToolkitThread()) return FALSE;
        for (const HWND each : windowTables().handles())
            if (Window* const window = windowTables().find(each))
                invalidate(*window, window->client(), erase);
        return TRUE;
    }
    Window* const window = requireWindow(handle);
    if (!window) return FALSE;
    invalidate(*window, clientPart(*window, rect), erase);
    return TRUE;
}

BOOL ValidateRect(HWND handle, const RECT* rect)
{
    Window* const window = requireWindow(handle);
    if (!window) return FALSE;
    const auto found = invalidParts().find(handle);
    if (found == invalidParts().end()) return TRUE;
    found->second.all -= clientPart(*window, rect);
    found->second.kept -= clientPart(*window, rect);
    return TRUE;
}

BOOL InvalidateRgn(HWND handle, HRGN region, BOOL erase)
{
    if (!region) return InvalidateRect(handle, nullptr, erase);
    Window* const window = requireWindow(handle);
    const QRegion* const part = regionOf(region);
    if (!window || !part) return FALSE;
    const QRect client = window->client();
    invalidate(*window, part->translated(client.topLeft()) & client, erase);
    return TRUE;
}

BOOL UpdateWindow(HWND handle)
{
    Window* const window = requireWindow(handle);
    if (!window || !window->widget()) return FALSE;
    const auto found = invalidParts().find(handle);
    if (found == invalidParts().end() || found->second.all.isEmpty()) return TRUE;
    if (!window->widget()->isVisible() || isPainting(handle)) return TRUE;
    window->widget()->repaint(QRegion(found->second.all));
    return TRUE;
}

BOOL GetUpdateRect(HWND handle, RECT* rect, BOOL)
{
    if (rect) *rect = {};
    const Window* const window = requireWindow(handle);
    if (!window) return FALSE;
    const auto found = invalidParts().find(handle);
    if (found == invalidParts().end() || found->second.all.isEmpty()) return FALSE;
    if (rect) *rect = boundsIn(*window, found->second.all);
    return TRUE;
}

BOOL RedrawWindow(HWND handle, const RECT* rect, HRGN region, UINT flags)
{
    Window* const window = requireWindow(handle);
    if (!window) return FALSE;
    if (flags & RDW_VALIDATE) return ValidateRect(handle, rect);
    const bool erase = flags & RDW_ERASE;
    if (flags & RDW_INVALIDATE) {
        region ? InvalidateRgn(handle, region, erase) : InvalidateRect(handle, rect, erase);
        if (flags & RDW_FRAME && window->widget()) window->widget()->update();
        if (flags & RDW_ALLCHILDREN || (!(flags & RDW_NOCHILDREN) && !rect && !region))
            for (const HWND child : childrenOf(*window))
                RedrawWindow(child, nullptr, nullptr, flags & ~RDW_UPDATENOW);
    }
    if (!(flags & (RDW_UPDATENOW | RDW_ERASENOW))) return TRUE;
    UpdateWindow(handle);
    const auto still = windowTables().share(handle);
    if (still && !(flags & RDW_NOCHILDREN))
        for (const HWND child : childrenOf(*still)) UpdateWindow(child);
    return TRUE;
}

int ScrollWindowEx(HWND handle, int dx, int dy, const RECT* part, const RECT* clip, HRGN, RECT* update,
                   UINT flags)
{
    if (update) *update = {};
    Window* const window = requireWindow(handle);
    if (!window || !window->widget()) return 0;
    const QRegion limits = clientPart(*window, clip);
    const QRect moved = (clientPart(*window, part) & limits).boundingRect();
    if (moved.isEmpty() || (dx == 0 && dy == 0)) return 1;
    const CaretHidden hidden(handle);
    const QRegion uncovered = QRegion(moved) - QRegion(moved).translated(dx, dy);
    if (flags & SW_SCROLLCHILDREN)
        for (const HWND child : childrenOf(*window))
            if (QWidget* const widget = windowTables().find(child)->widget())
                widget->move(widget->pos() + QPoint(dx, dy));
    window->widget()->scroll(dx, dy, moved);
    if (flags & (SW_INVALIDATE | SW_ERASE)) invalidate(*window, uncovered, flags & SW_ERASE);
    if (update) *update = boundsIn(*window, uncovered);
    return 2;
}

BOOL ScrollWindow(HWND handle, int dx, int dy, const RECT* part, const RECT* clip)
{
    const UINT flags = SW_INVALIDATE | SW_ERASE | (part ? 0 : SW_SCROLLCHILDREN);
    return ScrollWindowEx(handle, dx, dy, part, clip, nullptr, nullptr, flags) != 0;
}
