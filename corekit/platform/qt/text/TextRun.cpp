#include "corekit/platform/qt/text/TextRun.h"

#include "corekit/platform/qt/text/TextClasses.h"

#include <cmath>
#include <QChar>

namespace corekit::detail {

namespace {

enum class Road { straight, reversed, shaped };

struct Span {
    std::size_t from, to;
};

// What of a right-to-left run turns round: all of it, or in a left-to-right base only what lies between
// the outermost strong letters; the neutrals outside follow the base.
Span turnedPart(const TextRun& run)
{
    const std::uint8_t* const table = textClasses();
    Span part{0, run.units.size()};
    if (run.rightToLeft) return part;
    while (part.from < part.to && !(table[run.units[part.from]] & textRight)) ++part.from;
    while (part.to > part.from && !(table[run.units[part.to - 1]] & textRight)) --part.to;
    return part;
}

unsigned classesIn(std::u16string_view units)
{
    const std::uint8_t* const table = textClasses();
    unsigned classes = 0;
    for (const char16_t c : units) classes |= table[c];
    return classes;
}

// A run of one direction without anything to join needs no layout. Brackets outside the outermost letters do:
// whether they belong to the letters depends on their partners.
Road roadOf(const TextRun& run, unsigned classes)
{
    if (classes & textComplex || (run.kerned && run.units.size() <= longestShaped)) return Road::shaped;
    if (!(classes & (textLeft | textDigit))) {
        if (run.rightToLeft) return Road::reversed;
        if (!(classes & textRight)) return Road::straight;
        if (!(classes & textMirrored)) return Road::reversed;
        const auto [from, to] = turnedPart(run);
        const unsigned outside = classesIn(run.units.substr(0, from)) | classesIn(run.units.substr(to));
        return outside & textMirrored ? Road::shaped : Road::reversed;
    }
    if (classes & textRight || (run.rightToLeft && classes & textNeutral)) return Road::shaped;
    return Road::straight;
}

char16_t mirrored(char16_t c)
{
    return textClasses()[c] & textMirrored ? static_cast<char16_t>(QChar::mirroredChar(c)) : c;
}

// Calls with every unit as it is shown, from left to right.
template <typename Show>
void showReversed(const TextRun& run, Show show)
{
    const auto [from, to] = turnedPart(run);
    for (std::size_t i = 0; i < from; ++i) show(run.units[i]);
    for (std::size_t i = to; i > from; --i) show(mirrored(run.units[i - 1]));
    for (std::size_t i = to; i < run.units.size(); ++i) show(run.units[i]);
}

Subpixels shapedWidth(const SizedFont& font, const ShapedText& shaped)
{
    return std::llround(shaped.advance * font.scaleX() * wholePixel);
}

bool isOneToOne(const SizedFont& font, const TextRun& run)
{
    return run.oneToOne || font.face().holdsPieces();
}

// How much further apart neighbours stand than their advances say.
Subpixels kernBetween(SizedFont& font, char16_t left, char16_t right)
{
    const auto glyph = [&](char16_t c) { return font.page(c >> 8).glyphs[c & 0xFF]; };
    const int units = font.face().kerning().Of(glyph(left), glyph(right));
    const double perUnit = font.face().designPixels() / font.face().tables().unitsPerEm * font.scaleX();
    return units == 0 ? 0 : std::llround(units * perUnit * wholePixel);
}

Subpixels kerningOf(SizedFont& font, std::u16string_view units)
{
    Subpixels sum = 0;
    for (std::size_t i = 1; i < units.size(); ++i) sum += kernBetween(font, units[i - 1], units[i]);
    return sum;
}

Subpixels sumOf(std::span<const int> distances)
{
    Subpixels sum = 0;
    for (const int d : distances) sum += d * wholePixel;
    return sum;
}

} // namespace

bool canPlace(const TextRun& run)
{
    if (run.units.size() > longestRun) return false;
    if (run.oneToOne || run.units.size() <= longestShaped) return true;
    return roadOf(run, classesIn(run.units)) != Road::shaped;
}

Subpixels measureRun(SizedFont& font, const TextRun& run)
{
    if (!run.distances.empty()) return sumOf(run.distances);
    const std::uint8_t* const table = textClasses();
    Subpixels width = 0;
    unsigned classes = 0;
    for (const char16_t c : run.units) {
        classes |= table[c];
        width += font.page(c >> 8).advances[c & 0xFF];
    }
    if (isOneToOne(font, run)) return run.kerned ? width + kerningOf(font, run.units) : width;
    const Road road = roadOf(run, classes);
    if (road == Road::shaped)
        return shapedWidth(font, font.face().shape(run.units, run.rightToLeft, run.kerned));
    if (road == Road::straight || !(classes & textMirrored)) return width;
    width = 0;
    showReversed(run, [&](char16_t c) { width += font.page(c >> 8).advances[c & 0xFF]; });
    return width;
}

void placeRun(SizedFont& font, const TextRun& run, PlacedRun& placed)
{
    const unsigned classes = classesIn(run.units);
    placed.glyphs.clear();
    placed.joins = ((classes & textJoins) != 0 || font.face().holdsPieces()) && run.distances.empty();
    Subpixels pen = 0;
    const auto show = [&](char16_t c) {
        const SizedFont::Page& page = font.page(c >> 8);
        placed.glyphs.push_back({pen, 0, page.glyphs[c & 0xFF]});
        pen += page.advances[c & 0xFF];
    };
    const bool single = isOneToOne(font, run) || !run.distances.empty();
    const Road road = single ? Road::straight : roadOf(run, classes);
    if (!run.distances.empty()) {
        for (std::size_t i = 0; i < run.units.size(); ++i) {
            const Subpixels start = pen;
            show(run.units[i]);
            pen = start + run.distances[i] * wholePixel;
        }
    } else if (run.kerned && isOneToOne(font, run)) {
        for (std::size_t i = 0; i < run.units.size(); ++i) {
            if (i > 0) pen += kernBetween(font, run.units[i - 1], run.units[i]);
            show(run.units[i]);
        }
    } else if (road == Road::straight) {
        for (const char16_t c : run.units) show(c);
    } else if (road == Road::reversed) {
        showReversed(run, show);
    } else {
        const ShapedText& shaped = font.face().shape(run.units, run.rightToLeft, run.kerned);
        for (const ShapedGlyph& g : shaped.glyphs)
            placed.glyphs.push_back({std::llround(g.x * font.scaleX() * wholePixel),
                                     static_cast<int>(std::lround(g.y * font.scaleY())), g.glyph});
        pen = shapedWidth(font, shaped);
    }
    placed.width = pen;
}

} // namespace corekit::detail
