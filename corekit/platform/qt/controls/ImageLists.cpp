#include "corekit/platform/ImageLists.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/controls/ImageListObject.h"
#include "corekit/platform/qt/controls/Picture.h"
#include "corekit/platform/qt/drawing/ToolkitPainter.h"
#include "corekit/platform/Statics.h"
#include "corekit/platform/SystemColours.h"

#include <QPixmap>

#include <utility>

namespace corekit::detail {

namespace {

constexpr int largestSide = 4096;

ImageListUser require(HIMAGELIST handle)
{
    auto list = ImageLists::Find(handle);
    if (!list) SetLastError(ERROR_INVALID_HANDLE);
    return list;
}

constexpr QRgb rgbOf(COLORREF colour)
{
    return qRgb(static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
                static_cast<int>(colour >> 16 & 0xFF));
}

// Pixels for which `hides` is true show nothing.
template <typename Hides>
QImage withHoles(const QImage& picture, Hides hides)
{
    QImage holed = picture.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < holed.height(); ++y) {
        auto* const row = reinterpret_cast<QRgb*>(holed.scanLine(y));
        for (int x = 0; x < holed.width(); ++x)
            if (hides(x, y, row[x] & RGB_MASK)) row[x] = 0;
    }
    return holed;
}

QImage masked(const QImage& strip, HBITMAP mask)
{
    const QImage holes = pictureOf(IMAGE_BITMAP, mask);
    if (holes.size() != strip.size()) return strip.convertToFormat(QImage::Format_ARGB32);
    return withHoles(strip, [&](int x, int y, QRgb) { return qRed(holes.pixel(x, y)) >= 128; });
}

int append(ImageList& list, const QImage& strip)
{
    const int first = static_cast<int>(list.pictures.size());
    for (int x = 0; x + list.width <= strip.width(); x += list.width)
        list.pictures.push_back(strip.copy(x, 0, list.width, list.height));
    return static_cast<int>(list.pictures.size()) > first ? first : -1;
}

} // namespace

QIcon iconFrom(HIMAGELIST handle, int index)
{
    const auto list = ImageLists::Find(handle);
    if (!list || !list->has(index)) return {};
    return QIcon(QPixmap::fromImage(list->pictures[static_cast<std::size_t>(index)]));
}

QSize iconSizeOf(HIMAGELIST handle)
{
    const auto list = ImageLists::Find(handle);
    return list ? QSize(list->width, list->height) : QSize();
}

} // namespace corekit::detail

using namespace corekit::detail;

HIMAGELIST ImageList_Create(int width, int height, UINT, int initial, int)
{
    if (width < 1 || height < 1 || width > largestSide || height > largestSide) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    auto list = std::make_unique<ImageList>();
    list->width = width;
    list->height = height;
    if (initial > 0 && initial < largestSide) list->pictures.reserve(static_cast<std::size_t>(initial));
    return ImageLists::Open(std::move(list));
}

BOOL ImageList_Destroy(HIMAGELIST handle)
{
    if (ImageLists::Close(handle)) return TRUE;
    SetLastError(ERROR_INVALID_HANDLE);
    return FALSE;
}

int ImageList_Add(HIMAGELIST handle, HBITMAP strip, HBITMAP mask)
{
    const auto list = require(handle);
    const QImage picture = pictureOf(IMAGE_BITMAP, strip);
    return list && !picture.isNull() ? append(*list, masked(picture, mask)) : -1;
}

int ImageList_AddMasked(HIMAGELIST handle, HBITMAP strip, COLORREF mask)
{
    const auto list = require(handle);
    const QImage picture = pictureOf(IMAGE_BITMAP, strip);
    if (!list || picture.isNull()) return -1;
    const QRgb hole = (mask == CLR_DEFAULT ? picture.pixel(0, 0) : rgbOf(mask)) & RGB_MASK;
    return append(*list, withHoles(picture, [hole](int, int, QRgb colour) { return colour == hole; }));
}

int ImageList_ReplaceIcon(HIMAGELIST handle, int index, HICON icon)
{
    const auto list = require(handle);
    const QImage picture = pictureOf(IMAGE_ICON, icon);
    if (!list || picture.isNull() || (index != -1 && !list->has(index))) return -1;
    QImage fitted =
        picture.scaled(list->width, list->height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    fitted.setDevicePixelRatio(1);
    if (index == -1) {
        list->pictures.push_back(std::move(fitted));
        return static_cast<int>(list->pictures.size()) - 1;
    }
    list->pictures[static_cast<std::size_t>(index)] = std::move(fitted);
    return index;
}

BOOL ImageList_Remove(HIMAGELIST handle, int index)
{
    const auto list = require(handle);
    if (!list || (index != -1 && !list->has(index))) return FALSE;
    if (index == -1)
        list->pictures.clear();
    else
        list->pictures.erase(list->pictures.begin() + index);
    return TRUE;
}

int ImageList_GetImageCount(HIMAGELIST handle)
{
    const auto list = require(handle);
    return list ? static_cast<int>(list->pictures.size()) : 0;
}

BOOL ImageList_GetIconSize(HIMAGELIST handle, int* width, int* height)
{
    const auto list = require(handle);
    if (!list || !width || !height) return FALSE;
    *width = list->width;
    *height = list->height;
    return TRUE;
}

COLORREF ImageList_SetBkColor(HIMAGELIST handle, COLORREF colour)
{
    const auto list = require(handle);
    return list ? std::exchange(list->background, colour) : CLR_NONE;
}

BOOL ImageList_Draw(HIMAGELIST handle, int index, HDC dc, int x, int y, UINT style)
{
    const auto list = require(handle);
    DeviceContext* const context = list ? GdiTable::find<DeviceContext>(dc) : nullptr;
    if (!context || !list->has(index)) return FALSE;
    ToolkitPainter painter(*context);
    const QRect place(x, y, list->width, list->height);
    const bool isOpaque = !(style & ILD_TRANSPARENT) && list->background != CLR_NONE;
    if (isOpaque) painter->fillRect(place, QColor(rgbOf(list->background)));
    QImage picture = list->pictures[static_cast<std::size_t>(index)];
    if (style & (ILD_BLEND25 | ILD_BLEND50)) {
        QPainter over(&picture);
        over.setCompositionMode(QPainter::CompositionMode_SourceAtop);
        QColor selection(rgbOf(GetSysColor(COLOR_HIGHLIGHT)));
        selection.setAlphaF(style & ILD_BLEND50 ? 0.5F : 0.25F);
        over.fillRect(picture.rect(), selection);
    }
    painter->drawImage(place, picture);
    return TRUE;
}
