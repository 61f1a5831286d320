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
constexpr std::size_t wordOverhead = 256; // of a word in the map, about

std::size_t allMaskBytes = 0;

std::vector<SizedFont*>& allFonts()
{
    static NeverDestroyed<std::vector<SizedFont*>> fonts;
    return fonts.get();
}

int roundedUp(int v, int step) { return (v + step - 1) / step * step; }

std::size_t sizeOf(const GlyphMask& mask)
{
    return static_cast<std::size_t>(mask.stride) * static_cast<std::size_t>(mask.height);
}

// The filler adds up what overlapping outlines cover of a pixel, which darkens the edge of a stroke where
// two glyphs meet. Words are filled in rows this many times finer, so that the excess all but vanishes.
constexpr int wordRows = 8;

void fillMask(GlyphMask& mask, const QPainterPath& path, int fineness = 1)
{
    mask.stride = roundedUp(mask.width, maskPadding);
    mask.coverage = std::make_unique<std::uint8_t[]>(sizeOf(mask));
    std::vector<std::uint8_t> fine(fineness > 1 ? sizeOf(mask) * static_cast<std::size_t>(fineness) : 0);
    std::uint8_t* const to = fineness > 1 ? fine.data() : mask.coverage.get();
    QImage image(to, mask.width, mask.height * fineness, mask.stride, QImage::Format_Alpha8);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(1, fineness);
    painter.translate(-mask.left, -mask.top);
    painter.fillPath(path, Qt::black);
    const auto stride = static_cast<std::size_t>(mask.stride);
    const auto rows = static_cast<std::size_t>(fineness);
    for (std::size_t i = 0; i < sizeOf(mask) && rows > 1; ++i) {
        unsigned sum = 0;
        for (std::size_t r = 0; r < rows; ++r) sum += fine[(i / stride * rows + r) * stride + i % stride];
        mask.coverage[i] = static_cast<std::uint8_t>((sum + rows / 2) / rows);
    }
}

// The mask of a shape around pen and baseline; counted, and without coverage if it is too large to keep.
std::unique_ptr<GlyphMask> maskOf(const QPainterPath& path, int fineness = 1)
{
    auto mask = std::make_unique<GlyphMask>();
    if (path.isEmpty()) return mask;
    const QRect box = path.boundingRect().toAlignedRect();
    mask->left = box.left();
    mask->top = box.top();
    mask->width = box.width();
    mask->height = box.height();
    if (std::int64_t{roundedUp(mask->width, maskPadding)} * mask->height <= largestMask) {
        fillMask(*mask, path, fineness);
        allMaskBytes += sizeOf(*mask);
    }
    return mask;
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
    dropMasks();
    std::erase(allFonts(), this);
}

void SizedFont::dropMasks()
{
    for (auto& block : blocks_) {
        if (!block) continue;
        for (const auto& positions : block->masks)
            for (const auto& m : positions)
                if (m) allMaskBytes -= sizeOf(*m);
        block.reset();
    }
    for (const auto& [key, m] : words_) allMaskBytes -= wordOverhead + sizeOf(*m);
    words_.clear();
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

QPainterPath SizedFont::outlineAt(std::uint16_t glyph, double x, double y) const
{
    QTransform place = QTransform::fromTranslate(x, y);
    place.scale(scaleX_, scaleY_);
    return place.map(face_->outline(glyph));
}

GlyphMask SizedFont::maskPart(std::uint16_t glyph, unsigned quarter, int left, int top, int right,
                              int bottom) const
{
    GlyphMask mask;
    mask.left = left;
    mask.top = top;
    mask.width = right - left;
    mask.height = bottom - top;
    if (mask.width > 0 && mask.height > 0) fillMask(mask, outlineAt(glyph, quarter / 4.0, 0));
    return mask;
}

const GlyphMask& SizedFont::makeMask(std::uint16_t glyph, unsigned quarter)
{
    std::unique_ptr<MaskBlock>& block = blocks_[glyph >> 6];
    if (!block) block = std::make_unique<MaskBlock>();
    return *(block->masks[glyph & 63][quarter] = maskOf(outlineAt(glyph, quarter / 4.0, 0)));
}

const GlyphMask& SizedFont::wordMask(std::span<const PlacedGlyph> word, unsigned quarter)
{
    key_.assign(1, quarter);
    for (const PlacedGlyph& g : word) {
        key_ += g.glyph;
        key_ += static_cast<char32_t>(g.x - word.front().x);
        key_ += static_cast<char32_t>(g.y);
    }
    if (const auto found = words_.find(std::u32string_view(key_)); found != words_.end())
        return *found->second;
    QPainterPath all;
    all.setFillRule(Qt::WindingFill);
    for (const PlacedGlyph& g : word)
        all.addPath(
            outlineAt(g.glyph, quarter / 4.0 + static_cast<double>(g.x - word.front().x) / wholePixel, g.y));
    allMaskBytes += wordOverhead;
    return *words_.emplace(key_, maskOf(all, wordRows)).first->second;
}

void SizedFont::trimMasks()
{
    if (allMaskBytes <= maskLimit) return;
    for (SizedFont* const font : allFonts()) font->dropMasks();
}

} // namespace corekit::detail
