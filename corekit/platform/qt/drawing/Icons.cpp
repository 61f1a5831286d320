#include "corekit/platform/qt/drawing/IconObject.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/drawing/CursorShapes.h"
#include "corekit/platform/qt/drawing/StockObjects.h"
#include "corekit/platform/qt/drawing/ToolkitPainter.h"
#include "corekit/platform/qt/windows/NeverDestroyed.h"
#include "corekit/platform/SystemColours.h"
#include "corekit/platform/Toolkit.h"

#include <charconv>
#include <map>
#include <QApplication>
#include <QBuffer>
#include <QImageReader>
#include <QPixmap>
#include <QStyle>

using namespace corekit::detail;

namespace {

constexpr int largestXpm = 256, largestPng = 1024;
constexpr int mostXpmColours = 256;
constexpr int iconSize = 32;

struct SystemIcon {
    WORD number;
    QStyle::StandardPixmap picture;
};
constexpr SystemIcon systemIcons[] = {
    {32512, QStyle::SP_TitleBarMenuButton},    {32513, QStyle::SP_MessageBoxCritical},
    {32514, QStyle::SP_MessageBoxQuestion},    {32515, QStyle::SP_MessageBoxWarning},
    {32516, QStyle::SP_MessageBoxInformation},
};

template <typename Value>
Value refuse(DWORD error)
{
    SetLastError(error);
    return Value{};
}

template <typename Value>
bool refuseWithoutToolkit(Value)
{
    if (ToolkitIsRunning()) return false;
    SetLastError(ERROR_DEV_NOT_EXIST);
    return true;
}

// The numbers of the first text within quotes: width, height, colours, characters a pixel, and perhaps a hot
// spot.
struct XpmFacts {
    int values[6] = {0, 0, 0, 0, 0, 0};
};

std::optional<XpmFacts> xpmFacts(std::string_view xpm)
{
    XpmFacts facts;
    const std::size_t quote = xpm.find('"');
    if (quote == std::string_view::npos) return std::nullopt;
    const char* at = xpm.data() + quote + 1;
    const char* const end = xpm.data() + xpm.size();
    int count = 0;
    for (int& value : facts.values) {
        while (at != end && *at == ' ') ++at;
        const auto [next, error] = std::from_chars(at, end, value);
        if (error != std::errc()) break;
        at = next;
        ++count;
    }
    const auto [width, height, colours, characters, x, y] = facts.values;
    const bool isSound = width > 0 && width <= largestXpm && height > 0 && height <= largestXpm &&
                         colours > 0 && colours <= mostXpmColours && characters > 0 && characters <= 2;
    const bool hasSpot = x >= 0 && x < width && y >= 0 && y < height;
    if ((count != 4 && count != 6) || !isSound || !hasSpot) return std::nullopt;
    return facts;
}

// Null of a picture that is damaged, or larger than any icon.
QImage pictureIn(std::string_view bytes, const char* format, int largest)
{
    QByteArray data = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&data);
    QImageReader reader(&buffer, format);
    const QSize size = reader.size();
    if (size.width() > largest || size.height() > largest) return {};
    return reader.read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

std::shared_ptr<Icon> systemCursor(WORD number)
{
    const auto shape = shapeOfNumber(number);
    if (!shape) return nullptr;
    auto icon = std::make_shared<Icon>();
    icon->shape = *shape;
    return icon;
}

std::shared_ptr<Icon> systemIcon(WORD number)
{
    for (const SystemIcon& known : systemIcons) {
        if (known.number != number) continue;
        auto icon = std::make_shared<Icon>();
        icon->themed = QApplication::style()->standardIcon(known.picture);
        return icon;
    }
    return nullptr;
}

// What has been loaded, by type and name; it stays for the life of the process.
using Loaded = std::map<std::pair<WORD, std::string>, std::shared_ptr<Icon>>;

Loaded& loaded()
{
    static NeverDestroyed<Loaded> all;
    return all.get();
}

HICON load(const char* name, WORD type)
{
    if (refuseWithoutToolkit(name)) return nullptr;
    if (!name) return refuse<HICON>(ERROR_INVALID_PARAMETER);
    const auto number = reinterpret_cast<UINT_PTR>(name);
    const bool isNumber = number < 0x10000;
    std::shared_ptr<Icon>& icon = loaded()[{type, isNumber ? "#" + std::to_string(number) : name}];
    if (!icon) {
        if (isNumber)
            icon = type == RT_CURSOR ? systemCursor(static_cast<WORD>(number))
                                     : systemIcon(static_cast<WORD>(number));
        if (!icon)
            UseResource(name, type, [&](std::span<const std::byte> bytes) { icon = iconOfBytes(bytes); });
        if (icon) keepForEver(icon);
    }
    return icon ? static_cast<HICON>(icon->handle) : refuse<HICON>(ERROR_RESOURCE_NAME_NOT_FOUND);
}

} // namespace

namespace corekit::detail {

std::shared_ptr<Icon> iconOfBytes(std::span<const std::byte> bytes)
{
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    auto icon = std::make_shared<Icon>();
    if (text.starts_with("\x89PNG")) {
        icon->picture = pictureIn(text, "PNG", largestPng);
    } else if (const auto facts = xpmFacts(text)) {
        const auto [width, height, colours, characters, x, y] = facts->values;
        icon->picture = pictureIn(text, "XPM", largestXpm);
        icon->hotSpot = {x, y};
        if (icon->picture.size() != QSize(width, height)) return nullptr; // read from another place
    }
    return icon->picture.isNull() ? nullptr : icon;
}

QSize Icon::size() const { return picture.isNull() ? QSize(iconSize, iconSize) : picture.size(); }

QImage Icon::at(QSize units, double scale) const
{
    const QSize pixels(std::max(qRound(units.width() * scale), 1),
                       std::max(qRound(units.height() * scale), 1));
    if (picture.isNull())
        return themed.pixmap(pixels).toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    return pixels == picture.size() ? picture
                                    : picture.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QIcon toolkitIcon(HICON handle)
{
    const Icon* const icon = GdiTable::find<Icon>(handle);
    if (!icon) return {};
    return icon->picture.isNull() ? icon->themed : QIcon(QPixmap::fromImage(icon->picture));
}

} // namespace corekit::detail

HCURSOR LoadCursorA(HINSTANCE, const char* name) { return load(name, RT_CURSOR); }
HICON LoadIconA(HINSTANCE, const char* name) { return load(name, RT_ICON); }

BOOL DrawIconEx(HDC dc, int x, int y, HICON handle, int width, int height, UINT, HBRUSH, UINT flags)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    const Icon* const icon = context ? GdiTable::find<Icon>(handle) : nullptr;
    if (!icon) return FALSE;
    constexpr int largest = 4096;
    if (width < 0 || height < 0 || width > largest || height > largest)
        return refuse<BOOL>(ERROR_INVALID_PARAMETER);
    const QSize own = flags & DI_DEFAULTSIZE ? QSize(iconSize, iconSize) : icon->size();
    const QSize size(width ? width : own.width(), height ? height : own.height());
    ToolkitPainter painter(*context);
    painter->drawImage(QRectF(QPointF(x, y), QSizeF(size)), icon->at(size, context->scale));
    return TRUE;
}

BOOL DrawIcon(HDC dc, int x, int y, HICON icon)
{
    return DrawIconEx(dc, x, y, icon, 0, 0, 0, nullptr, DI_NORMAL | DI_DEFAULTSIZE);
}
