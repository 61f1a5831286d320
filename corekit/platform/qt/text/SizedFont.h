// A typeface at one size: widths in fractions of a pixel and the masks of glyphs already drawn.
#pragma once

#include "corekit/platform/qt/text/GlyphMask.h"
#include "corekit/platform/qt/text/Typeface.h"

#include <array>
#include <cmath>
#include <span>

namespace corekit::detail {

class OutlineFill;

// Pen positions and widths count in 1/1024 pixel.
using Subpixels = std::int64_t;
inline constexpr int subpixelBits = 10;
inline constexpr Subpixels wholePixel = Subpixels{1} << subpixelBits;
constexpr Subpixels toPixels(Subpixels v) { return (v + wholePixel / 2) >> subpixelBits; }

struct PlacedGlyph {
    Subpixels x; // from the start of the run
    int y;       // pixels below the baseline
    std::uint16_t glyph;
};

class SizedFont {
public:
    // Height and width as a font request has them, in units of `scale` pixels.
    SizedFont(std::shared_ptr<Typeface> face, int height, int width, double scale = 1);
    ~SizedFont();
    SizedFont(const SizedFont&) = delete;
    SizedFont& operator=(const SizedFont&) = delete;

    struct Page {
        std::uint16_t glyphs[256];
        std::int32_t advances[256];
    };
    const Page& page(unsigned high)
    {
        const std::unique_ptr<Page>& p = m_pages[high];
        return p ? *p : loadPage(high);
    }

    // The mask of a glyph whose pen stands `quarter` quarters of a pixel right of a whole one.
    const GlyphMask& mask(std::uint16_t glyph, unsigned quarter)
    {
        const std::unique_ptr<MaskBlock>& block = m_blocks[glyph >> 6];
        if (block)
            if (const GlyphMask* const m = block->masks[glyph & 63][quarter].get()) return *m;
        return makeMask(glyph, quarter);
    }
    // One mask for glyphs that touch, filled as one shape; the pen is that of the first.
    const GlyphMask& wordMask(std::span<const PlacedGlyph> word, unsigned quarter);
    // The part of a mask that covers these columns and rows, counted from pen and baseline.
    GlyphMask maskPart(std::uint16_t glyph, unsigned quarter, int left, int top, int right, int bottom) const;

    Typeface& face() { return *m_face; }
    const Typeface& face() const { return *m_face; }
    int ascent() const { return m_ascent; }
    int descent() const { return m_descent; }
    int height() const { return m_ascent + m_descent; }
    double em() const { return m_em; }
    double scaleX() const { return m_scaleX; } // from design pixels
    double scaleY() const { return m_scaleY; }
    int across(int designUnits) const; // rounded
    int down(int designUnits) const;

    // Frees masks of all fonts when they have grown beyond the limit. Between calls only: masks in use go,
    // too.
    static void trimMasks();

private:
    struct MaskBlock {
        std::array<std::array<std::unique_ptr<GlyphMask>, 4>, 64> masks;
    };

    // Glyphs with their distances from the first, and the quarter.
    using WordKey = std::u32string;
    struct WordHash {
        using is_transparent = void;
        std::size_t operator()(std::u32string_view s) const { return std::hash<std::u32string_view>()(s); }
    };

    void dropMasks();
    const Page& loadPage(unsigned high);
    void addOutline(OutlineFill& to, std::uint16_t glyph, double x, double y) const;
    const GlyphMask& makeMask(std::uint16_t glyph, unsigned quarter);

    std::shared_ptr<Typeface> m_face;
    double m_em = 0, m_scaleX = 0, m_scaleY = 0;
    int m_ascent = 0, m_descent = 0;
    std::array<std::unique_ptr<Page>, 256> m_pages;
    std::array<std::unique_ptr<MaskBlock>, 1024> m_blocks;
    std::unordered_map<WordKey, std::unique_ptr<GlyphMask>, WordHash, std::equal_to<>> m_words;
    WordKey m_key; // of the last word asked for
};

} // namespace corekit::detail
