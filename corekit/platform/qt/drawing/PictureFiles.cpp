#include "corekit/platform/PictureFiles.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/drawing/ToolkitPainter.h"

#include <QFile>
#include <QImageReader>

using namespace corekit::detail;

HBITMAP LoadPictureFile(const char* path)
{
    if (!path) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    QFile file(QFile::decodeName(path));
    if (!file.open(QIODevice::ReadOnly)) {
        SetLastError(ERROR_FILE_NOT_FOUND);
        return nullptr;
    }
    QImageReader reader(&file);
    const QImage picture = reader.read();
    auto bitmap = picture.isNull() ? nullptr : makeBitmap(picture.width(), picture.height());
    if (!bitmap) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    QImage target = pictureOf(*bitmap);
    QPainter painter(&target);
    painter.fillRect(target.rect(), Qt::white);
    painter.drawImage(0, 0, picture);
    painter.end();
    return static_cast<HBITMAP>(GdiTable::add(std::move(bitmap)));
}
