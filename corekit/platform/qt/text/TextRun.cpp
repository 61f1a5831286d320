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

bool isMark(char16_t c) { return textClasses()[c] & textMark; }

// What of a right-to-left run turns round: all of it, or in a left-to-right base only what lies between
// the outermost strong letters; the neutrals outside follow the base.
Span turnedPart(const TextRun& run)
{
    const std::uint8_t* const table = textClasses();
    Span part{0, run.units.size()};
    if (run.rightToLeft) return part;
    while (part.from < part.to && !(table[run.units[part.from]] & textRight)) ++part.from;
    while (part.to > part.from && !(table[run.units[part.to - 1]] & textRight)) --part.to;
    while (part.to > part.from && part.to < run.units.size() && isMark(run.units[part.to])) ++part.to;
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

enum class Order { asIs, turned };

// Calls with every letter, its marks behind it, in the order in which they are shown, from left to right.
template <typename Show>
void forEachLetter(const TextRun& run, Road road, Show show)
{
    const std::size_t count = run.units.size();
    const auto [from, to] = road == Road::reversed ? turnedPart(run) : Span{count, count};
    const auto forward = [&](std::size_t i, std::size_t stop) {
        for (std::size_t next; i < stop; i = next) {
            next = i + 1;
            while (next < stop && isMark(run.units[next])) ++next;
            show(run.units.substr(i, next - i), Order::asIs);
        }
    };
    forward(0, from);
    for (std::size_t i = to, end; i > from;) {
        end = i--;
        while (i > from && isMark(run.units[i])) --i;
        show(run.units.substr(i, end - i), Order::turned);
    }
    forward(to, count);
}

Subpixels scaled(const SizedFont& font, double designPixels)
{
    return std::llround(designPixels * font.scaleX() * wholePixel);
}

// A letter of one unit stands for itself; one with marks is laid out, as it is in any text.
bool isPlain(std::u16string_view letter) { return letter.size() == 1 && !isMark(letter.front()); }

char16_t shown(char16_t c, Order order) { return order == Order::turned ? mirrored(c) : c; }

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

// Adds glyphs to a run, each where the one before it ends.
class Pen {
public:
    Pen(SizedFont& font, PlacedRun& placed) : m_font(font), m_glyphs(placed.glyphs) {}

    Subpixels X() const { return m_x; } // from the start of the run

    void Write(char16_t c)
    {
        const SizedFont::Page& page = m_font.page(c >> 8);
        m_glyphs.push_back({m_x, 0, page.glyphs[c & 0xFF]});
        m_x += page.advances[c & 0xFF];
    }
    void Write(const ShapedText& shaped)
    {
        for (const ShapedGlyph& g : shaped.glyphs)
            m_glyphs.push_back(
                {m_x + scaled(m_font, g.x), static_cast<int>(std::lround(g.y * m_font.scaleY())), g.glyph});
        m_x += scaled(m_font, shaped.advance);
    }
    void WriteUnits(std::u16string_view units, bool kerned)
    {
        for (std::size_t i = 0; i < units.size(); ++i) {
            if (kerned && i > 0) m_x += kernBetween(m_font, units[i - 1], units[i]);
            Write(units[i]);
        }
    }
    void WriteApart(std::u16string_view units, std::span<const int> distances)
    {
        for (std::size_t i = 0; i < units.size(); ++i) {
            const Subpixels start = m_x;
            Write(units[i]);
            m_x = start + distances[i] * wholePixel;
        }
    }

private:
    SizedFont& m_font;
    std::vector<PlacedGlyph>& m_glyphs;
    Subpixels m_x = 0;
};

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
        return scaled(font, font.face().advance(run.units, run.rightToLeft, run.kerned));
    if (!(classes & textMark) && (road == Road::straight || !(classes & textMirrored))) return width;
    width = 0;
    forEachLetter(run, road, [&](std::u16string_view letter, Order order) {
        const char16_t c = shown(letter.front(), order);
        width += isPlain(letter) ? font.page(c >> 8).advances[c & 0xFF]
                                 : scaled(font, font.face().advance(letter, order == Order::turned));
    });
    return width;
}

void placeRun(SizedFont& font, const TextRun& run, PlacedRun& placed)
{
    const unsigned classes = classesIn(run.units);
    placed.glyphs.clear();
    placed.joins = ((classes & textJoins) != 0 || font.face().holdsPieces()) && run.distances.empty();
    Pen pen(font, placed);
    const Road road = roadOf(run, classes);
    if (!run.distances.empty())
        pen.WriteApart(run.units, run.distances);
    else if (isOneToOne(font, run))
        pen.WriteUnits(run.units, run.kerned);
    else if (road == Road::shaped)
        pen.Write(font.face().shape(run.units, run.rightToLeft, run.kerned));
    else
        forEachLetter(run, road, [&](std::u16string_view letter, Order order) {
            if (isPlain(letter))
                pen.Write(shown(letter.front(), order));
            else
                pen.Write(font.face().shape(letter, order == Order::turned));
        });
    placed.width = pen.X();
}

} // namespace corekit::detail
