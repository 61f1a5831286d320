#include "corekit/platform/qt/SizedFont.h"

#include "corekit/platform/qt/NeverDestroyed.h"

#include <algorithm>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

namespace corekit::detail {

namespace {

constexpr std::size_t maskLimit = std::size_t{32} << 20;
constexpr int largestMask = 256 << 10; // bytes; larger ones are drawn afresh, as far as they are seen
constexpr int maskPadding = 16;

std::size_t allMaskBytes = 0;

std::vector<SizedFont*>& allFonts()
{
    static NeverDestroyed<std::vector<SizedFont*>> fonts;
    return fonts.get();
}

int roundedUp(int v, int step) { return (v + step - 1) / step * step; }

void fillMask(GlyphMask& mask, const QPainterPath& path)
{
    mask.stride = roundedUp(mask.width, maskPadding);
    const auto bytes = static_cast<std::size_t>(mask.stride) * static_cast<std::size_t>(mask.height);
    mask.coverage = std::make_unique<std::uint8_t[]>(bytes);
    QImage image(mask.coverage.get(), mask.width, mask.height, mask.stride, QImage::Format_Alpha8);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(-mask.left, -mask.top);
    painter.fillPath(path, Qt::black);
}

} // namespace

SizedFont::SizedFont(std::shared_ptr<Typeface> face, int height, int width) : face_(std::move(face))
{
    const FontTables& t = face_->tables();
    const double cell = t.cellAscent + t.cellDescent;
    em_ = height > 0 ? height * t.unitsPerEm / cell : height < 0 ? -static_cast<double>(height) : 16.0;
    scaleX_ = scaleY_ = em_ / face_->designPixels();
    ascent_ = down(t.cellAscent);
    descent_ = height > 0 ? height - ascent_ : down(t.cellDescent);
    if (width > 0 && t.averageWidth > 0)
        scaleX_ = static_cast<double>(width) * t.unitsPerEm / t.averageWidth / face_->designPixels();
    allFonts().push_back(this);
}

SizedFont::~SizedFont()
{
    for (const auto& block : blocks_) {
        if (!block) continue;
        for (const auto& quarters : block->masks)
            for (const auto& m : quarters)
                if (m)
                    allMaskBytes -= static_cast<std::size_t>(m->stride) * static_cast<std::size_t>(m->height);
    }
    std::erase(allFonts(), this);
}

int SizedFont::across(int designUnits) const
{
    return static_cast<int>(
        std::lround(designUnits * scaleX_ * face_->designPixels() / face_->tables().unitsPerEm));
}

int SizedFont::down(int designUnits) const
{
    return static_cast<int>(std::lround(designUnits * em_ / face_->tables().unitsPerEm));
}

const SizedFont::Page& SizedFont::loadPage(unsigned high)
{
    auto page = std::make_unique<Page>();
    double advances[256];
    face_->lookUp(high, page->glyphs, advances);
    for (unsigned i = 0; i < 256; ++i)
        page->advances[i] = static_cast<std::int32_t>(
            std::clamp(std::round(advances[i] * scaleX_ * wholePixel), -0x1p30, 0x1p30));
    return *(pages_[high] = std::move(page));
}

GlyphMask SizedFont::maskPart(std::uint16_t glyph, unsigned quarter, int left, int top, int right,
                              int bottom) const
{
    GlyphMask mask;
    mask.left = left;
    mask.top = top;
    mask.width = right - left;
    mask.height = bottom - top;
    QTransform place = QTransform::fromTranslate(quarter / 4.0, 0);
    place.scale(scaleX_, scaleY_);
    if (mask.width > 0 && mask.height > 0) fillMask(mask, place.map(face_->outline(glyph)));
    return mask;
}

const GlyphMask& SizedFont::makeMask(std::uint16_t glyph, unsigned quarter)
{
    QTransform place = QTransform::fromTranslate(quarter / 4.0, 0);
    place.scale(scaleX_, scaleY_);
    const QPainterPath path = place.map(face_->outline(glyph));
    auto mask = std::make_unique<GlyphMask>();
    if (!path.isEmpty()) {
        const QRect box = path.boundingRect().toAlignedRect();
        mask->left = box.left();
        mask->top = box.top();
        mask->width = box.width();
        mask->height = box.height();
        if (std::int64_t{roundedUp(mask->width, maskPadding)} * mask->height <= largestMask) {
            fillMask(*mask, path);
            allMaskBytes += static_cast<std::size_t>(mask->stride) * static_cast<std::size_t>(mask->height);
        }
    }
    std::unique_ptr<MaskBlock>& block = blocks_[glyph >> 6];
    if (!block) block = std::make_unique<MaskBlock>();
    return *(block->masks[glyph & 63][quarter] = std::move(mask));
}

void SizedFont::trimMasks()
{
    if (allMaskBytes <= maskLimit) return;
    for (SizedFont* const font : allFonts())
        for (auto& block : font->blocks_) block.reset();
    allMaskBytes = 0;
}

std::size_t SizedFont::maskBytes() { return allMaskBytes; }

} // namespace corekit::detail
