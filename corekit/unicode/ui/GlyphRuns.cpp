#include "corekit/unicode/ui/GlyphRuns.h"

#include "corekit/framework/Geometry.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/Runtime.h"
#include "corekit/unicode/bidi/ReorderToVisual.h"
#include "corekit/unicode/shaping/GlyphConversion.h"
#include "corekit/unicode/tables/UnicodeCharTypes.h"
#include "corekit/unicode/ui/MarkCounter.h"

#include <algorithm>

namespace corekit::detail {

namespace {

constexpr int spacePerExpanded = 2; // pixels
// No screen shows a longer one. Each mark measures its run, which is what text of marks alone would wait for.
constexpr std::size_t longestRun = 4096;

bool isStrong(int type) { return type == bidi::L || type == bidi::R; }

} // namespace

void FontCoverage::Clear()
{
    for (int i = 0; i < m_count; ++i) m_signatures[static_cast<std::size_t>(i)] = CFontSignature();
    m_count = 0;
    m_slotOfRange.fill(-1);
}

void FontCoverage::Add(const CFontSignature& signature)
{
    if (m_count == maxFonts) return;
    m_signatures[static_cast<std::size_t>(m_count)] = signature;
    for (int i = 0; i < rangeIndexCount; ++i)
        if (signed char& slot = m_slotOfRange[static_cast<std::size_t>(i)];
            slot < 0 && signature.CoversRange(rangeNumberOfIndex(i)))
            slot = static_cast<signed char>(m_count);
    ++m_count;
}

void DoubledTypes::Double(int index)
{
    if (index >= Count()) return;
    const auto at = static_cast<std::size_t>(index);
    while (m_settled.size() <= at) m_settled.push_back(m_types.GetData()[m_rest++]);
    m_settled.push_back(m_settled[at]);
}

void DoubledTypes::Store()
{
    if (m_settled.empty()) return;
    const int* const all = m_types.GetData();
    m_settled.insert(m_settled.end(), all + m_rest, all + m_types.GetSize());
    m_types.SetSize(static_cast<int>(m_settled.size()));
    std::copy(m_settled.begin(), m_settled.end(), m_types.GetData());
    m_settled.clear();
    m_rest = 0;
}

GlyphRunBuilder::GlyphRunBuilder(const FontCoverage& fonts, RunRules rules, const WCHAR* glyphs, int count,
                                 CArray<int, int>& types, UINT options)
    : m_fonts(fonts), m_rules(rules), m_glyphs(glyphs), m_count(count), m_types(types), m_options(options)
{
}

bool GlyphRunBuilder::Next(int x, RunRuler& ruler, GlyphRun& run)
{
    if (m_drawn) {
        m_options &= ~ETO_OPAQUE; // only the first run paints the background
        if (m_rules.bidi) m_options &= ~ETO_IGNORELANGUAGE;
        m_drawn = false;
    }
    run.text.clear();
    while (m_next < m_count && run.text.empty()) {
        m_runStart = -1;
        m_plain = true;
        m_expanded = false;
        run.extra = 0;
        run.marks.clear();
        Fill(x, ruler, run);
    }
    if (run.text.empty()) {
        m_types.Store();
        return false;
    }
    if (m_rules.bidi && (m_plain || m_expanded) && run.text.size() > 1 && m_types.Count() > 0)
        RestoreRightStretches(run);
    run.options = m_options;
    m_drawn = true;
    return true;
}

void GlyphRunBuilder::Fill(int x, RunRuler& ruler, GlyphRun& run)
{
    MarkCounter marks;
    run.slot = std::max(m_fonts.SlotOf(m_glyphs[m_next]), 0);
    for (; m_next < m_count; ++m_next) {
        const WCHAR c = m_glyphs[m_next];
        if (m_runStart < 0) m_runStart = m_next;
        if (const int slot = m_fonts.SlotOf(c); slot != run.slot && slot >= 0) return;
        if (run.text.size() >= longestRun) return;
        Cut cut = Cut::none;
        if (m_rules.bidi) {
            if (isShaped(c)) {
                m_plain = false;
                m_options |= ETO_IGNORELANGUAGE;
            }
            if (IsTashkeel(c)) {
                LiftMark(c, x, ruler, run);
                continue;
            }
            if (m_plain || isUrduBlock(c)) cut = CutByType(c, run.text.empty());
            if (cut == Cut::before) return;
        }
        Append(c, run);
        if (cut == Cut::behind || marks.IsFullWith(c)) {
            ++m_next;
            return;
        }
    }
}

// Whatever stands between strong characters becomes a run of its own, so that the platform does not order
// it by its neighbours a second time.
GlyphRunBuilder::Cut GlyphRunBuilder::CutByType(WCHAR c, bool runIsEmpty)
{
    const int type = CUnicodeCharTypes::GetBiDirectionalType(c);
    if (isStrong(type) != m_betweenStrong) {
        if (!m_betweenStrong || type == bidi::EN || type == bidi::AN) return Cut::none;
        if (!runIsEmpty) return Cut::before;
        m_betweenStrong = false;
        return Cut::behind;
    }
    m_betweenStrong = !m_betweenStrong;
    return Cut::before;
}

void GlyphRunBuilder::LiftMark(WCHAR c, int x, RunRuler& ruler, GlyphRun& run)
{
    m_converted.clear();
    m_fonts.Convert(run.slot, c, m_converted);
    const int count = static_cast<int>(run.text.size());
    const int width = count ? ruler.Width(run.text.data(), count, m_options) : 0;
    if (!m_converted.empty()) run.marks.push_back({m_converted.front(), wrapAdd(x, width)});
}

void GlyphRunBuilder::Append(WCHAR c, GlyphRun& run)
{
    if (isUrduBlock(c))
        AppendExpanded(c, run);
    else
        m_fonts.Convert(run.slot, c, run.text);
}

void GlyphRunBuilder::AppendExpanded(WCHAR c, GlyphRun& run)
{
    UrduIndicToUnicode(m_expansion, &c, 0);
    m_expanded = true;
    for (int i = 0; i < m_expansion.GetLength(); ++i) {
        const WCHAR part = m_expansion.GetAt(i);
        if (i > 0) m_types.Double(m_next);
        if (m_rules.expandSpace && !IsTashkeel(part)) run.extra += spacePerExpanded;
        m_fonts.Convert(run.slot, part, run.text);
    }
}

// The platform reverses right-to-left text that it is given plain, so its stretches go back into logical
// order. White space outside a stretch neither opens nor closes one.
void GlyphRunBuilder::RestoreRightStretches(GlyphRun& run) const
{
    const auto at = [&](int k) { return run.text.begin() + k; };
    const int count = static_cast<int>(run.text.size());
    int open = -1;
    for (int k = 0; k < count; ++k) {
        if (open < 0 && crt16::iswspace(run.text[static_cast<std::size_t>(k)])) continue;
        if (m_types.At(m_runStart + k) == bidi::R) {
            if (open < 0) open = k;
        } else if (open >= 0) {
            std::reverse(at(open), at(k));
            open = -1;
        }
    }
    if (open >= 0) std::reverse(at(open), at(count));
}

MeasureRunBuilder::MeasureRunBuilder(const FontCoverage& fonts, RunRules rules, const WCHAR* glyphs,
                                     int count)
    : m_fonts(fonts), m_rules(rules), m_glyphs(glyphs), m_count(count)
{
}

bool MeasureRunBuilder::Next(GlyphRun& run)
{
    run.text.clear();
    run.marks.clear();
    while (m_next < m_count && run.text.empty()) {
        run.slot = std::max(m_fonts.SlotOf(m_glyphs[m_next]), 0);
        run.options = 0;
        run.extra = 0;
        MarkCounter marks;
        for (bool isFull = false; m_next < m_count && !isFull; ++m_next) {
            const WCHAR c = m_glyphs[m_next];
            if (const int slot = m_fonts.SlotOf(c); slot != run.slot && slot >= 0) break;
            if (m_rules.bidi && isShaped(c)) run.options = ETO_IGNORELANGUAGE;
            if (isUrduBlock(c))
                AppendExpanded(c, run);
            else if (!IsTashkeel(c))
                m_fonts.Convert(run.slot, c, run.text);
            isFull = marks.IsFullWith(c);
        }
    }
    return !run.text.empty();
}

void MeasureRunBuilder::AppendExpanded(WCHAR c, GlyphRun& run)
{
    UrduIndicToUnicode(m_expansion, &c, 0);
    if (m_rules.expandSpace) run.extra += spacePerExpanded * m_expansion.GetLength();
    for (int i = 0; i < m_expansion.GetLength(); ++i)
        m_fonts.Convert(run.slot, m_expansion.GetAt(i), run.text);
}

} // namespace corekit::detail
