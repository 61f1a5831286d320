#include "corekit/platform/qt/text/SizedFont.h"

#include "corekit/platform/qt/text/OutlineFill.h"
#include "corekit/platform/qt/windows/NeverDestroyed.h"

#include <algorithm>

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

constexpr int wordRows = 8; // where glyphs overlap, their edges must not add up

void fillMask(GlyphMask& mask, const OutlineFill& outlines, int fineness)
{
    mask.stride = roundedUp(mask.width, maskPadding);
    mask.coverage = std::make_unique<std::uint8_t[]>(sizeOf(mask));
    outlines.fill(mask, fineness);
}

// The mask of a shape around pen and baseline; counted, and without coverage if it is too large to keep.
std::unique_ptr<GlyphMask> maskOf(const OutlineFill& outlines, int fineness)
{
    auto mask = std::make_unique<GlyphMask>();
    outlines.measure(*mask);
    if (mask->width <= 0 || mask->height <= 0) return std::make_unique<GlyphMask>();
    if (std::int64_t{roundedUp(mask->width, maskPadding)} * mask->height <= largestMask) {
        fillMask(*mask, outlines, fineness);
        allMaskBytes += sizeOf(*mask);
    }
    return mask;
}

} // namespace

SizedFont::SizedFont(std::shared_ptr<Typeface> face, int height, int width, double scale)
    : m_face(std::move(face))
{
    const FontTables& t = m_face->tables();
    const double cell = t.cellAscent + t.cellDescent;
    m_em = height > 0 ? height * t.unitsPerEm / cell : height < 0 ? -static_cast<double>(height) : 16.0;
    m_em *= scale;
    m_scaleX = m_scaleY = m_em / m_face->designPixels();
    m_ascent = down(t.cellAscent);
    m_descent = height > 0 ? static_cast<int>(std::lround(height * scale)) - m_ascent : down(t.cellDescent);
    if (width > 0 && t.averageWidth > 0)
        m_scaleX = width * scale * t.unitsPerEm / t.averageWidth / m_face->designPixels();
    allFonts().push_back(this);
}

SizedFont::~SizedFont()
{
    dropMasks();
    std::erase(allFonts(), this);
}

void SizedFont::dropMasks()
{
    for (auto& block : m_blocks) {
        if (!block) continue;
        for (const auto& positions : block->masks)
            for (const auto& m : positions)
                if (m) allMaskBytes -= sizeOf(*m);
        block.reset();
    }
    for (const auto& [key, m] : m_words) allMaskBytes -= wordOverhead + sizeOf(*m);
    m_words.clear();
}

int SizedFont::across(int designUnits) const
{
    return static_cast<int>(
        std::lround(designUnits * m_scaleX * m_face->designPixels() / m_face->tables().unitsPerEm));
}

int SizedFont::down(int designUnits) const
{
    return static_cast<int>(std::lround(designUnits * m_em / m_face->tables().unitsPerEm));
}

const SizedFont::Page& SizedFont::loadPage(unsigned high)
{
    auto page = std::make_unique<Page>();
    double advances[256];
    m_face->lookUp(high, page->glyphs, advances);
    for (unsigned i = 0; i < 256; ++i)
        page->advances[i] = static_cast<std::int32_t>(
            std::clamp(std::round(advances[i] * m_scaleX * wholePixel), -0x1p30, 0x1p30));
    return *(m_pages[high] = std::move(page));
}

void SizedFont::addOutline(OutlineFill& to, std::uint16_t glyph, double x, double y) const
{
    QTransform place = QTransform::fromTranslate(x, y);
    place.scale(m_scaleX, m_scaleY);
    to.add(m_face->outline(glyph), place);
}

GlyphMask SizedFont::maskPart(std::uint16_t glyph, unsigned quarter, int left, int top, int right,
                              int bottom) const
{
    GlyphMask mask;
    mask.left = left;
    mask.top = top;
    mask.width = right - left;
    mask.height = bottom - top;
    OutlineFill outlines;
    addOutline(outlines, glyph, quarter / 4.0, 0);
    if (mask.width > 0 && mask.height > 0) fillMask(mask, outlines, 1);
    return mask;
}

const GlyphMask& SizedFont::makeMask(std::uint16_t glyph, unsigned quarter)
{
    std::unique_ptr<MaskBlock>& block = m_blocks[glyph >> 6];
    if (!block) block = std::make_unique<MaskBlock>();
    OutlineFill outlines;
    addOutline(outlines, glyph, quarter / 4.0, 0);
    return *(block->masks[glyph & 63][quarter] = maskOf(outlines, 1));
}

const GlyphMask& SizedFont::wordMask(std::span<const PlacedGlyph> word, unsigned quarter)
{
    m_key.assign(1, quarter);
    for (const PlacedGlyph& g : word) {
        m_key += char32_t{g.glyph};
        m_key += static_cast<char32_t>(g.x - word.front().x);
        m_key += static_cast<char32_t>(g.y);
    }
    if (const auto found = m_words.find(std::u32string_view(m_key)); found != m_words.end())
        return *found->second;
    OutlineFill all;
    for (const PlacedGlyph& g : word)
        addOutline(all, g.glyph, quarter / 4.0 + static_cast<double>(g.x - word.front().x) / wholePixel, g.y);
    allMaskBytes += wordOverhead;
    return *m_words.emplace(m_key, maskOf(all, wordRows)).first->second;
}

void SizedFont::trimMasks()
{
    if (allMaskBytes <= maskLimit) return;
    for (SizedFont* const font : allFonts()) font->dropMasks();
}

} // namespace corekit::detail
