#include "corekit/platform/qt/controls/Picture.h"

#include "corekit/platform/qt/drawing/IconObject.h"
#include "corekit/platform/Statics.h"

#include <QGuiApplication>

namespace corekit::detail {

QImage pictureOf(UINT type, HANDLE handle)
{
    if (type == IMAGE_ICON) {
        const Icon* const icon = handle ? GdiTable::find<Icon>(handle) : nullptr;
        return icon ? icon->at(icon->size(), qGuiApp->devicePixelRatio()) : QImage();
    }
    Bitmap* const bitmap = handle ? GdiTable::find<Bitmap>(handle) : nullptr;
    if (!bitmap || !bitmap->pixels) return {};
    const QImage shared(reinterpret_cast<const uchar*>(bitmap->pixels), bitmap->width, bitmap->height,
                        bitmap->stride * 4, QImage::Format_RGB32);
    QImage picture = bitmap->topDown ? shared.copy() : shared.mirrored();
    picture.setDevicePixelRatio(bitmap->scale);
    return picture;
}

QSize pictureSize(UINT type, HANDLE handle)
{
    if (type == IMAGE_ICON) {
        const Icon* const icon = handle ? GdiTable::find<Icon>(handle) : nullptr;
        return icon ? icon->size() : QSize();
    }
    const Bitmap* const bitmap = handle ? GdiTable::find<Bitmap>(handle) : nullptr;
    return bitmap ? QSize(bitmap->units.cx, bitmap->units.cy) : QSize();
}

} // namespace corekit::detail
