// What GetObjectA tells of each kind of object.
#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/drawing/GdiObjects.h"
#include "corekit/platform/qt/text/FontList.h"

#include <cstring>

using namespace corekit::detail;

namespace {

BITMAP factsOf(const Bitmap& bitmap)
{
    const int bits = bitmap.isMonochrome ? 1 : bitmap.depth;
    BITMAP facts{};
    facts.bmWidth = bitmap.units.cx;
    facts.bmHeight = bitmap.units.cy;
    facts.bmWidthBytes = static_cast<LONG>((std::int64_t{bitmap.units.cx} * bits + 15) / 16 * 2);
    facts.bmPlanes = 1;
    facts.bmBitsPixel = static_cast<WORD>(bits);
    facts.bmBits = bitmap.isSection ? bitmap.pixels : nullptr;
    return facts;
}

LOGFONTA factsOf(const Font& font)
{
    const FontRequest& r = font.request;
    LOGFONTA facts{};
    facts.lfHeight = r.height;
    facts.lfWidth = r.width;
    facts.lfWeight = r.bold ? FW_BOLD : FW_NORMAL;
    facts.lfItalic = r.italic;
    facts.lfUnderline = r.underline;
    facts.lfStrikeOut = r.strikeOut;
    facts.lfCharSet = static_cast<BYTE>(DEFAULT_CHARSET);
    const std::string name = cutFaceName(r.face);
    std::memcpy(facts.lfFaceName, name.c_str(), name.size() + 1);
    return facts;
}

LOGPEN factsOf(const Pen& pen) { return {static_cast<UINT>(pen.style), {pen.width, 0}, pen.colour}; }

LOGBRUSH factsOf(const Brush& brush)
{
    return {brush.style, brush.colour, static_cast<UINT_PTR>(brush.hatch)};
}

template <typename Object>
int tell(const GdiObject& object, int size, void* out)
{
    const auto facts = factsOf(static_cast<const Object&>(object));
    constexpr int needed = sizeof facts;
    if (out && size < needed) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    if (out) std::memcpy(out, &facts, sizeof facts);
    return needed;
}

} // namespace

int GetObjectA(HGDIOBJ handle, int size, void* out)
{
    const std::shared_ptr<GdiObject> object = GdiTable::share(handle);
    if (!object) return 0;
    switch (object->kind) {
    case GdiKind::bitmap:
        return tell<Bitmap>(*object, size, out);
    case GdiKind::font:
        return tell<Font>(*object, size, out);
    case GdiKind::pen:
        return tell<Pen>(*object, size, out);
    case GdiKind::brush:
        return tell<Brush>(*object, size, out);
    default:
        SetLastError(ERROR_INVALID_HANDLE);
        return 0;
    }
}
