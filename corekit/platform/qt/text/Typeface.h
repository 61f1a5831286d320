// One face in one style, at its design size: glyph numbers, widths, outlines, and laid-out text.
// All sizes of the face share it; nothing is hinted, so everything scales in proportion.
#pragma once

#include "corekit/platform/qt/text/FontTables.h"
#include "corekit/platform/qt/text/KernTable.h"

#include <cstdint>
#include <memory>
#include <QFont>
#include <QPainterPath>
#include <QRawFont>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace corekit::detail {

struct ShapedGlyph {
    std::uint16_t glyph;
    float x, y; // design pixels from the start of the baseline, y downward
};

struct ShapedText {
    std::vector<ShapedGlyph> glyphs;
    double advance = 0;    // design pixels
    bool isPlaced = false; // else the glyphs are not there yet
};

class Typeface {
public:
    // Null if the toolkit does not give a scalable font of exactly this family.
    static std::shared_ptr<Typeface> load(const QString& family, bool bold, bool italic);

    const std::string& name() const { return m_name; }
    const FontTables& tables() const { return m_tables; }
    QByteArray table(const char* tag) const { return m_raw.fontTable(tag); } // as it stands in the font file
    // A face that claims no Unicode range has pieces of writing at its codes, not characters: each is drawn
    // for itself and may touch the next.
    bool holdsPieces() const { return m_holdsPieces; }
    const KernTable& kerning();                            // read when it is asked for
    double designPixels() const { return m_designPixels; } // per em

    // Glyphs and advances (in design pixels) of the 256 code units high * 256 ...
    void lookUp(unsigned high, std::uint16_t (&glyphs)[256], double (&advances)[256]) const;
    const QPainterPath& outline(std::uint16_t glyph); // stands until the next call
    bool isBlank(std::uint16_t glyph) { return outline(glyph).isEmpty(); }

    // Lays logical text out with full shaping and ordering. The result stands until the next call.
    const ShapedText& shape(std::u16string_view text, bool rightToLeft, bool kerned = false)
    {
        return layOut(text, rightToLeft, kerned, Wanted::glyphs);
    }
    // How wide that is, in design pixels, at half the cost.
    double advance(std::u16string_view text, bool rightToLeft, bool kerned = false)
    {
        return layOut(text, rightToLeft, kerned, Wanted::advance).advance;
    }

private:
    struct TextHash {
        using is_transparent = void;
        std::size_t operator()(std::u16string_view s) const { return std::hash<std::u16string_view>()(s); }
    };
    struct LayoutCache {
        std::unordered_map<std::u16string, ShapedText, TextHash, std::equal_to<>> layouts;
        std::size_t units = 0; // of all its texts
    };

    enum class Wanted { advance, glyphs };
    const ShapedText& layOut(std::u16string_view text, bool rightToLeft, bool kerned, Wanted wanted);
    ShapedText layOutAnew(std::u16string_view text, bool rightToLeft, bool kerned, Wanted wanted) const;

    std::string m_name;
    QFont m_font;
    QRawFont m_raw;
    FontTables m_tables;
    bool m_holdsPieces = false;
    double m_designPixels = 0;
    std::unordered_map<std::uint16_t, QPainterPath> m_outlines;
    LayoutCache m_layouts[2][2]; // by direction and kerning
    ShapedText m_uncached;
    std::unique_ptr<const KernTable> m_kerning;
};

} // namespace corekit::detail
