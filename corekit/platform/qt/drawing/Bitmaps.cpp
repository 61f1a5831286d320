#include "corekit/platform/Errors.h"
#include "corekit/platform/PngFile.h"
#include "corekit/platform/qt/drawing/DeviceContext.h"
#include "corekit/platform/ReplacedFile.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <QBuffer>
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
std::shared_ptr<Bitmap> makeBitmap(int width, int height, double scale)
{
    const auto pixels = [scale](int units) {
        return scale == 1 ? std::int64_t{units} : std::llround(units * scale);
    };
    if (width < 1 || height < 1 || pixels(width) > largestBitmap / 4 / std::max(pixels(height), 1LL)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    auto bitmap = std::make_shared<Bitmap>();
    bitmap->width = std::max(static_cast<int>(pixels(width)), 1);
    bitmap->height = std::max(static_cast<int>(pixels(height)), 1);
    bitmap->stride = bitmap->width;
    bitmap->scale = scale;
    bitmap->units = {width, height};
    const auto count = static_cast<std::size_t>(bitmap->width) * static_cast<std::size_t>(bitmap->height);
    bitmap->block = {static_cast<std::uint32_t*>(std::calloc(count, 4)),
                     [](std::uint32_t* p) { std::free(p); }};
    if (!bitmap->block) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    bitmap->pixels = bitmap->block.get();
    return bitmap;
}

} // namespace corekit::detail

HBITMAP CreateCompatibleBitmap(HDC dc, int width, int height)
{
    const DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context) return nullptr;
    auto bitmap = makeBitmap(width, height, context->scale);
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
    auto bitmap = makeBitmap(info->bmiHeader.biWidth, height < 0 ? -height : height);
    if (!bitmap) return nullptr;
    bitmap->topDown = height < 0;
    bitmap->isSection = true;
    std::uint32_t* const pixels = bitmap->pixels;
    void* const handle = GdiTable::add(std::move(bitmap));
    if (handle && bits) *bits = pixels;
    return static_cast<HBITMAP>(handle);
}

BOOL SaveBitmapAsPng(HBITMAP handle, const char* path)
{
    return SaveBitmapAsPng(handle, path, PngEffort::quick);
}

BOOL SaveBitmapAsPng(HBITMAP handle, const char* path, PngEffort effort)
{
    Bitmap* const bitmap = GdiTable::find<Bitmap>(handle);
    if (!bitmap) return FALSE;
    if (!path || !bitmap->pixels) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const auto bytes = reinterpret_cast<const uchar*>(bitmap->pixels);
    QImage image(bytes, bitmap->width, bitmap->height, std::ptrdiff_t{4} * bitmap->stride,
                 QImage::Format_RGB32);
    if (!bitmap->topDown) image = image.mirrored();
    QBuffer picture;
    picture.open(QIODevice::WriteOnly);
    QImageWriter writer(&picture, "png");
    // In hundredths of the way from none to all; the writer's own level is in the middle.
    writer.setCompression(effort == PngEffort::quick ? 15 : 100);
    if (!writer.write(image)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    corekit::ReplacedFile file(path);
    const QByteArray& png = picture.data();
    return file && file.Write({png.data(), static_cast<std::size_t>(png.size())}) && file.Commit();
}

HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void* bits)
{
    if (planes != 1 || (bitsPerPixel != 1 && bitsPerPixel != 32)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    auto bitmap = makeBitmap(width, height);
    if (!bitmap) return nullptr;
    bitmap->isMonochrome = bitsPerPixel == 1;
    const auto* bytes = static_cast<const BYTE*>(bits);
    const std::size_t stride = bitmap->isMonochrome ? (static_cast<std::size_t>(width) + 15) / 16 * 2
                                                    : static_cast<std::size_t>(width) * 4;
    for (int y = 0; bytes && y < height; ++y, bytes += stride) {
        std::uint32_t* const row = bitmap->row(y);
        if (!bitmap->isMonochrome)
            std::memcpy(row, bytes, stride);
        else
            for (int x = 0; x < width; ++x)
                row[x] = bytes[x / 8] >> (7 - x % 8) & 1 ? 0xFFFFFFFFu : 0xFF000000u;
    }
    return static_cast<HBITMAP>(GdiTable::add(std::move(bitmap)));
}
