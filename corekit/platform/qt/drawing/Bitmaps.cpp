#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/drawing/GdiObjects.h"

#include <cstdlib>
#include <cstring>
#include <QImage>
#include <QImageWriter>

using namespace corekit::detail;

namespace {

constexpr std::int64_t largestBitmap = std::int64_t{1} << 30; // bytes

bool isPlain(const BITMAPINFOHEADER& h)
{
    return h.biSize >= sizeof h && h.biPlanes == 1 && h.biBitCount == 32 && h.biCompression == BI_RGB &&
           h.biHeight != INT32_MIN;
}

} // namespace

namespace corekit::detail {

// Fresh pages from calloc cost nothing until they are drawn on.
std::shared_ptr<Bitmap> MakeBitmap(int width, int height)
{
    if (width < 1 || height < 1 || std::int64_t{width} * height > largestBitmap / 4) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    auto bitmap = std::make_shared<Bitmap>();
    bitmap->block = {static_cast<std::uint32_t*>(std::calloc(count, 4)),
                     [](std::uint32_t* p) { std::free(p); }};
    if (!bitmap->block) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    bitmap->pixels = bitmap->block.get();
    bitmap->width = width;
    bitmap->height = height;
    return bitmap;
}

} // namespace corekit::detail

HBITMAP CreateCompatibleBitmap(HDC dc, int width, int height)
{
    if (!GdiTable::find<DeviceContext>(dc)) return nullptr;
    auto bitmap = MakeBitmap(width, height);
    return bitmap ? static_cast<HBITMAP>(GdiTable::add(std::move(bitmap))) : nullptr;
}

HBITMAP CreateDIBSection(HDC dc, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section,
                         DWORD offset)
{
    if (bits) *bits = nullptr;
    if (dc && !GdiTable::find<DeviceContext>(dc)) return nullptr;
    if (!info || !isPlain(info->bmiHeader) || usage != DIB_RGB_COLORS || section || offset) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const int height = info->bmiHeader.biHeight;
    auto bitmap = MakeBitmap(info->bmiHeader.biWidth, height < 0 ? -height : height);
    if (!bitmap) return nullptr;
    bitmap->topDown = height < 0;
    bitmap->isSection = true;
    std::uint32_t* const pixels = bitmap->pixels;
    void* const handle = GdiTable::add(std::move(bitmap));
    if (handle && bits) *bits = pixels;
    return static_cast<HBITMAP>(handle);
}

int GetObjectA(HGDIOBJ object, int size, void* out)
{
    Bitmap* const bitmap = GdiTable::find<Bitmap>(object);
    constexpr int needed = sizeof(BITMAP);
    if (!bitmap || (out && size < needed)) {
        if (bitmap) SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    const BITMAP described{0,
                           bitmap->width,
                           bitmap->height,
                           bitmap->width * 4,
                           1,
                           32,
                           bitmap->isSection ? bitmap->pixels : nullptr};
    if (out) std::memcpy(out, &described, sizeof described);
    return needed;
}

BOOL SaveBitmapAsPng(HBITMAP handle, const char* path)
{
    Bitmap* const bitmap = GdiTable::find<Bitmap>(handle);
    if (!bitmap) return FALSE;
    if (!path || !bitmap->pixels) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const auto bytes = reinterpret_cast<const uchar*>(bitmap->pixels);
    QImage image(bytes, bitmap->width, bitmap->height, std::ptrdiff_t{4} * bitmap->width,
                 QImage::Format_RGB32);
    if (!bitmap->topDown) image = image.mirrored();
    QImageWriter writer(QString::fromLocal8Bit(path), "png");
    if (writer.write(image)) return TRUE;
    SetLastError(writer.error() == QImageWriter::DeviceError ? ERROR_ACCESS_DENIED : ERROR_INVALID_PARAMETER);
    return FALSE;
}
