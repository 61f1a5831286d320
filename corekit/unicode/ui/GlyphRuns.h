// How a string of glyph codes is cut into runs of one font: the part of the renderer that needs no surface.
//
// Both builders are read like a file: Next() makes the next run in a run object that keeps its memory, so
// that a line costs no allocation once its buffers have grown. One thread at a time.
#pragma once

#include "corekit/foundation/StringW.h"
#include "corekit/framework/Array.h"
#include "corekit/platform/Export.h"
#include "corekit/unicode/ui/FontSignature.h"
#include "corekit/unicode/ui/UsbRanges.h"

#include <array>
#include <string>
#include <vector>

namespace corekit::detail {

// Which fonts of an ordered list hold which characters. At most 16 fonts; the slot is the place in the list.
class COREKIT_API FontCoverage {
public:
    static constexpr int maxFonts = 16;

    FontCoverage() { Clear(); }
    // No fonts: nothing is covered.
    void Clear();
    // The next slot; a font beyond the sixteenth is left out. Where fonts cover the same range the first
    // one counts.
    void Add(const CFontSignature& signature);

    int Count() const { return m_count; }

    // The first slot that covers the character's range, -1 if none does.
    int SlotOf(WCHAR c) const { return m_slotOfRange[static_cast<std::size_t>(rangeIndexOf(c))]; }
    // Appends what the slot's font must be given for the character. The slot must exist.
    void Convert(int slot, WCHAR c, std::u16string& out) const
    {
        m_signatures[static_cast<std::size_t>(slot)].Convert(c, out);
    }

private:
    int m_count = 0;
    std::array<signed char, rangeIndexCount> m_slotOfRange; // -1: no font covers it
    std::array<CFontSignature, maxFonts> m_signatures;      // copies
};

// Stored Indic Urdu, expanded to its text when it is drawn or measured.
constexpr bool isUrduBlock(WCHAR c) { return c >= 0xE300 && c <= 0xE3FF; }
// Text that this library has ordered and joined, which the platform must leave as it is. The tail of the
// Tamil block, from U+E29A, counts as ordinary text.
constexpr bool isShaped(WCHAR c)
{
    return (c >= 0xE000 && c <= 0xE299) || c >= 0xE400 || (c >= 0x0900 && c <= 0x09FF) ||
           (c >= 0x0600 && c <= 0x06FF) || (c >= 0x0B80 && c <= 0x0BFF);
}

// What the rules of cutting ask of their surroundings.
struct RunRules {
    bool bidi = false;        // this library orders and joins the text
    bool expandSpace = false; // stored Indic Urdu is set wider
};

// The width of text in whatever font is selected at the moment.
class RunRuler {
public:
    // In pixels; `options` are those that the text will be drawn with.
    virtual int Width(const WCHAR* text, int count, UINT options) = 0;

protected:
    ~RunRuler() = default;
};

// One call of the platform: text of one font, with the marks that are drawn over it.
struct GlyphRun {
    // An Arabic mark, as the run's font has it, at a place of its own.
    struct Mark {
        WCHAR text; // the font's code of the mark
        int x;      // in the units of the drawing

        friend bool operator==(const Mark&, const Mark&) = default;
    };

    int slot = 0;            // the font
    std::u16string text;     // as the font is given it
    UINT options = 0;        // of ExtTextOutW
    int extra = 0;           // pixels to add to the measured width
    std::vector<Mark> marks; // drawn over the run, each at the run's y
};

// The caller's list of directions with some entries doubled. They are doubled from left to right, so all up
// to the last one is settled and the rest still stands in the caller's list: linear, however many there are.
class DoubledTypes {
public:
    explicit DoubledTypes(CArray<int, int>& types) : m_types(types) {}

    // Entries, the doubled ones included.
    int Count() const { return static_cast<int>(m_settled.size()) + m_types.GetSize() - m_rest; }
    // -1 beyond the end.
    int At(int index) const
    {
        const int settled = static_cast<int>(m_settled.size());
        if (index < settled) return m_settled[static_cast<std::size_t>(index)];
        index += m_rest - settled;
        return index < m_types.GetSize() ? m_types.GetData()[index] : -1;
    }
    // Not before the entry doubled last; nothing happens beyond the end.
    void Double(int index);
    // Gives the caller the whole list.
    void Store();

private:
    CArray<int, int>& m_types;  // the caller's, changed by Store alone
    std::vector<int> m_settled; // entries that no longer stand there
    int m_rest = 0;             // the first of m_types that is not settled
};

// Cuts a string in display order into the runs that are drawn one after the other.
class COREKIT_API GlyphRunBuilder {
public:
    // All referred to for the builder's life. `types` has the resolved direction of each glyph and may be
    // empty; beyond its end a glyph has none. At the end it has grown by an entry for each character that
    // a glyph expanded to beside its first.
    GlyphRunBuilder(const FontCoverage& fonts, RunRules rules, const WCHAR* glyphs, int count,
                    CArray<int, int>& types, UINT options);

    // Makes the next run, which will be drawn at `x`. False at the end of the glyphs; a run is never empty.
    bool Next(int x, RunRuler& ruler, GlyphRun& run);

private:
    // Where a run ends for the sake of order: not here, in front of the character, or behind it.
    enum class Cut { none, before, behind };

    void Fill(int x, RunRuler& ruler, GlyphRun& run); // up to where the run ends
    Cut CutByType(WCHAR c, bool runIsEmpty);          // by strong and neutral characters
    void Append(WCHAR c, GlyphRun& run);              // as the font has it
    void AppendExpanded(WCHAR c, GlyphRun& run);      // stored Indic Urdu, as its text
    // Takes an Arabic mark out of the run, to be drawn over it where the text before it ends.
    void LiftMark(WCHAR c, int x, RunRuler& ruler, GlyphRun& run);
    // Turns right-to-left stretches back into logical order, for the platform to reverse.
    void RestoreRightStretches(GlyphRun& run) const;

    const FontCoverage& m_fonts; // in the order of the font list
    const RunRules m_rules;      // as they were when it was made
    const WCHAR* const m_glyphs; // the caller's
    const int m_count;           // of glyphs
    DoubledTypes m_types;        // the caller's list, as it grows
    UINT m_options;              // of the next run
    int m_next = 0;              // the next glyph
    int m_runStart = -1;         // the first glyph of the run
    bool m_betweenStrong = false;
    bool m_drawn = false;       // a run has gone out whose options are to be cleared
    bool m_plain = true;        // no shaped text in the run
    bool m_expanded = false;    // stored Indic Urdu in the run
    std::u16string m_converted; // scratch
    StringW m_expansion;        // scratch
};

// Cuts a string of glyphs by font only, for measuring. Arabic marks take no room and are left out.
//
// A run with shaped text gets ETO_IGNORELANGUAGE, so that it is measured unit by unit as it will be drawn:
// the platform would otherwise join, stack and kern it again and give the width of another picture.
class COREKIT_API MeasureRunBuilder {
public:
    // All referred to for the builder's life.
    MeasureRunBuilder(const FontCoverage& fonts, RunRules rules, const WCHAR* glyphs, int count);

    // False at the end; a run is never empty.
    bool Next(GlyphRun& run);

private:
    void AppendExpanded(WCHAR c, GlyphRun& run);

    const FontCoverage& m_fonts;
    const RunRules m_rules;
    const WCHAR* const m_glyphs;
    const int m_count;
    int m_next = 0;
    StringW m_expansion; // scratch
};

} // namespace corekit::detail
