#include "corekit/platform/qt/drawing/StockObjects.h"

#include "corekit/platform/Errors.h"

#include <QApplication>
#include <QFont>
#include <QFontInfo>

using namespace corekit::detail;

namespace {

template <typename T>
std::shared_ptr<T> permanent(std::shared_ptr<T> object)
{
    keepForEver(object);
    return object;
}

std::shared_ptr<Brush> brushOf(BYTE grey)
{
    return permanent(std::make_shared<Brush>(BS_SOLID, RGB(grey, grey, grey)));
}

// The font of controls, at the size that the desktop chose. Before the toolkit runs nobody knows it.
std::shared_ptr<Font> controlFont()
{
    const QFont font = QApplication::font();
    const QFontInfo info(font);
    FontRequest request;
    request.face = info.family().toStdString();
    request.height = -std::max(info.pixelSize(), 1);
    request.bold = info.bold();
    request.italic = info.italic();
    return permanent(std::make_shared<Font>(std::move(request)));
}

const std::shared_ptr<Font>& fontOfControls()
{
    if (!QCoreApplication::instance()) return standInFont();
    static const auto font = controlFont();
    return font;
}

HGDIOBJ brushNumber(int which)
{
    static const std::shared_ptr<Brush> brushes[] = {
        whiteBrush(),  brushOf(0xC0), brushOf(0x80),
        brushOf(0x40), brushOf(0),    permanent(std::make_shared<Brush>(BS_NULL, 0)),
    };
    return static_cast<HGDIOBJ>(brushes[which]->handle);
}

HGDIOBJ penNumber(int which)
{
    static const std::shared_ptr<Pen> pens[] = {
        permanent(std::make_shared<Pen>(PS_SOLID, 1, RGB(255, 255, 255))),
        blackPen(),
        permanent(std::make_shared<Pen>(PS_NULL, 1, 0)),
    };
    return static_cast<HGDIOBJ>(pens[which]->handle);
}

} // namespace

namespace corekit::detail {

void keepForEver(const std::shared_ptr<GdiObject>& object)
{
    object->permanent = true;
    GdiTable::add(object);
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
        made->units = {1, 1};
        return permanent(std::move(made));
    }();
    return bitmap;
}

const std::shared_ptr<Pen>& blackPen()
{
    static const auto pen = permanent(std::make_shared<Pen>(PS_SOLID, 1, RGB(0, 0, 0)));
    return pen;
}

const std::shared_ptr<Brush>& whiteBrush()
{
    static const auto brush = brushOf(0xFF);
    return brush;
}

} // namespace corekit::detail

HGDIOBJ GetStockObject(int which)
{
    if (which >= WHITE_BRUSH && which <= NULL_BRUSH) return brushNumber(which - WHITE_BRUSH);
    if (which >= WHITE_PEN && which <= NULL_PEN) return penNumber(which - WHITE_PEN);
    if (which == ANSI_VAR_FONT || which == SYSTEM_FONT || which == DEFAULT_GUI_FONT)
        return static_cast<HGDIOBJ>(fontOfControls()->handle);
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
}
