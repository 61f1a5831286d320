#include "corekit/platform/qt/text/Typeface.h"

#include "corekit/platform/qt/text/SubsetProbes.h"

#include <algorithm>
#include <QGlyphRun>
#include <QTextLayout>
#include <QTextOption>

namespace corekit::detail {

namespace {

constexpr int commonDesignSize = 1000;
constexpr int greatestDesignSize = 2048; // keeps the layout's 26.6 numbers from overflowing
constexpr std::size_t cachedUnits = 524288;
constexpr std::size_t entryUnits = 32; // what an entry of the cache takes beside its text
constexpr std::size_t longestCached = 512;
constexpr std::size_t cachedOutlines = 2048;

std::span<const BYTE> bytesOf(const QByteArray& table)
{
    return {reinterpret_cast<const BYTE*>(table.constData()), static_cast<std::size_t>(table.size())};
}

// The layout would break the line at some controls and stretch others; each takes the room of a blank.
QString layoutText(std::u16string_view text)
{
    QString out(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
    for (QChar& c : out) {
        const QChar::Category category = c.category();
        if (category == QChar::Other_Control || category == QChar::Separator_Line ||
            category == QChar::Separator_Paragraph)
            c = QLatin1Char(' ');
    }
    return out;
}

// Corrects the ranges that a face claims by the characters that it has.
void checkSubsets(const QRawFont& font, std::array<DWORD, 4>& subsets)
{
    for (const SubsetProbe& probe : subsetProbes()) {
        const bool has =
            std::ranges::all_of(probe.characters, [&](char16_t c) { return font.supportsCharacter(c); });
        DWORD& word = subsets[static_cast<std::size_t>(probe.bit / 32)];
        const DWORD bit = DWORD{1} << probe.bit % 32;
        word = has ? word | bit : word & ~bit;
    }
}

} // namespace

std::shared_ptr<Typeface> Typeface::load(const QString& family, bool bold, bool italic)
{
    auto face = std::make_shared<Typeface>();
    face->m_font.setFamily(family);
    face->m_font.setWeight(bold ? QFont::Bold : QFont::Normal);
    face->m_font.setItalic(italic);
    face->m_font.setKerning(false);
    face->m_font.setHintingPreference(QFont::PreferNoHinting);
    face->m_font.setStyleStrategy(QFont::NoFontMerging);
    face->m_font.setPixelSize(commonDesignSize);
    face->m_raw = QRawFont::fromFont(face->m_font);
    if (!face->m_raw.isValid() || face->m_raw.familyName().compare(family, Qt::CaseInsensitive) != 0)
        return nullptr;
    const int unitsPerEm = std::clamp(static_cast<int>(face->m_raw.unitsPerEm()), 16, 16384);
    face->m_designPixels = std::min(unitsPerEm, greatestDesignSize);
    if (face->m_designPixels != commonDesignSize) {
        face->m_font.setPixelSize(static_cast<int>(face->m_designPixels));
        face->m_raw = QRawFont::fromFont(face->m_font);
    }
    face->m_name = family.toStdString();
    face->m_tables.unitsPerEm = unitsPerEm;
    face->m_tables.read(bytesOf(face->m_raw.fontTable("OS/2")), bytesOf(face->m_raw.fontTable("hhea")),
                        bytesOf(face->m_raw.fontTable("post")));
    face->m_holdsPieces = face->m_tables.subsets == std::array<DWORD, 4>{};
    if (!face->m_holdsPieces) checkSubsets(face->m_raw, face->m_tables.subsets);
    return face;
}

// Joiners, direction marks and the like, which show nothing and take no room whatever ink a face has for
// them.
static bool isUnseen(unsigned unit)
{
    return (unit >= 0x200B && unit <= 0x200F) || (unit >= 0x202A && unit <= 0x202E) ||
           (unit >= 0x2060 && unit <= 0x206F) || unit == 0xFEFF;
}

void Typeface::lookUp(unsigned high, std::uint16_t (&glyphs)[256], double (&advances)[256]) const
{
    QChar units[256];
    quint32 indexes[256] = {};
    QPointF steps[256] = {};
    for (unsigned i = 0; i < 256; ++i) units[i] = QChar(high << 8 | i);
    int count = 256;
    // A lone surrogate has no glyph, and pairs would shift the answers.
    if (high < 0xD8 || high > 0xDF) m_raw.glyphIndexesForChars(units, 256, indexes, &count);
    m_raw.advancesForGlyphIndexes(indexes, steps, 256);
    const QChar blank(u' ');
    quint32 blankGlyph = 0;
    int blanks = 1;
    m_raw.glyphIndexesForChars(&blank, 1, &blankGlyph, &blanks);
    for (unsigned i = 0; i < 256; ++i) {
        const bool unseen = isUnseen(high << 8 | i);
        glyphs[i] = static_cast<std::uint16_t>(unseen ? blankGlyph : indexes[i]);
        advances[i] = unseen ? 0 : steps[i].x();
    }
}

const QPainterPath& Typeface::outline(std::uint16_t glyph)
{
    if (const auto found = m_outlines.find(glyph); found != m_outlines.end()) return found->second;
    if (m_outlines.size() >= cachedOutlines) m_outlines.clear();
    return m_outlines.emplace(glyph, m_raw.pathForGlyph(glyph)).first->second;
}

// What is measured is often not shown.
const ShapedText& Typeface::layOut(std::u16string_view text, bool rightToLeft, bool kerned, Wanted wanted)
{
    const auto anew = [&] { return layOutAnew(text, rightToLeft, kerned, wanted); };
    if (text.size() > longestCached) return m_uncached = anew();
    LayoutCache& cache = m_layouts[rightToLeft][kerned];
    if (const auto found = cache.layouts.find(text); found != cache.layouts.end()) {
        if (wanted == Wanted::glyphs && !found->second.isPlaced) found->second = anew();
        return found->second;
    }
    ShapedText shaped = anew();
    if (cache.units + text.size() > cachedUnits) cache = {};
    cache.units += text.size() + entryUnits;
    return cache.layouts.emplace(text, std::move(shaped)).first->second;
}

ShapedText Typeface::layOutAnew(std::u16string_view text, bool rightToLeft, bool kerned, Wanted wanted) const
{
    QFont font = m_font;
    font.setKerning(kerned);
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setTextDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    option.setWrapMode(QTextOption::NoWrap);
    option.setUseDesignMetrics(true);
    option.setFlags(QTextOption::IncludeTrailingSpaces);
    QTextLayout layout(layoutText(text), font);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setNumColumns(static_cast<int>(text.size()));
    layout.endLayout();

    ShapedText shaped;
    shaped.advance = line.horizontalAdvance();
    if (wanted == Wanted::advance) return shaped;
    shaped.isPlaced = true;
    const double baseline = line.y() + line.ascent();
    for (const QGlyphRun& run : layout.glyphRuns()) {
        const QList<quint32> glyphs = run.glyphIndexes();
        const QList<QPointF> positions = run.positions();
        for (qsizetype i = 0; i < glyphs.size(); ++i)
            shaped.glyphs.push_back({static_cast<std::uint16_t>(glyphs[i]),
                                     static_cast<float>(positions[i].x()),
                                     static_cast<float>(positions[i].y() - baseline)});
    }
    return shaped;
}

const KernTable& Typeface::kerning()
{
    if (!m_kerning) {
        const QByteArray bytes = table("kern");
        m_kerning = std::make_unique<const KernTable>(std::span(
            reinterpret_cast<const BYTE*>(bytes.constData()), static_cast<std::size_t>(bytes.size())));
    }
    return *m_kerning;
}

} // namespace corekit::detail
