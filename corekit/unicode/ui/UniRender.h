// Draws and measures wide text with an ordered stack of fonts, so that one line can hold writing systems
// that no font has all of, and that the platform need not order or join.
//
//     CUniRender render;
//     render.CreateFromDescriptor(font, FALSE, FALSE, FALSE);
//     render.AttachDC(dc);
//     render.DrawLogicalString(0, 0, ETO_OPAQUE, rect, text, -1, 0);
//     render.DetachDC();
//
// Text goes into display order, then to glyph codes, then run by run to the platform, left to right; Arabic
// marks follow on top of their run. All lengths are device units, y is as the context's alignment says.
// A negative count means up to the terminating zero. `options` are those of ExtTextOutW; only the first run
// paints the background. Without an attached context, drawing does nothing and measures are 0.
//
// A renderer belongs to the user-interface thread, owns its fonts and not the context.
#pragma once

#include "corekit/foundation/StringW.h"
#include "corekit/framework/Array.h"
#include "corekit/framework/Geometry.h"
#include "corekit/framework/Object.h"
#include "corekit/framework/String.h"
#include "corekit/platform/Export.h"
#include "corekit/unicode/ui/GlyphRuns.h"

#include <array>

class CFontDescriptor;

enum class PairKerning : BYTE { off, on };

class COREKIT_API CUniRender : public CObject {
    DECLARE_DYNAMIC(CUniRender)
public:
    CUniRender();
    ~CUniRender() override;

    // Appends a font, to be created by the next Create. Throws CChainedException, and changes nothing, at
    // the seventeenth font and for a face that the machine does not have.
    void AddFont(const char* face);
    // No fonts.
    void Reset();
    // Makes all fonts; the height is as CreateFontA takes it. Throws CChainedException if one cannot be
    // made; those before it stay.
    void Create(int height, int bold, int underline, int italic);
    // Reset, AddFont for every face, Create with the descriptor's size.
    void CreateFromDescriptor(const CFontDescriptor& font, int bold, int underline, int italic);

    // Whether pairs of glyph codes are kerned where the font has values for them. Off at first: widths are
    // sums.
    void UsePairKerning(PairKerning kerning) { m_kerning = kerning; }

    // The greatest height of all fonts. Needs no attached context.
    int GetHeight();

    // The context's font belongs to the renderer from here to DetachDC, which puts the former one back.
    void AttachDC(HDC dc);
    void DetachDC();

    // The whole road from text in logical order. `extraSpacing` non-zero sets stored Indic Urdu wider.
    void DrawLogicalString(int x, int y, unsigned options, const CRect& rect, const WCHAR* text, int count,
                           int extraSpacing);
    // The part for glyph codes in display order. `types` has the direction of each position, may be empty,
    // and grows where a glyph expands to several characters.
    void DrawGlyphString(int x, int y, unsigned options, const CRect& rect, const WCHAR* glyphs,
                         CArray<int, int>& types, int count, int extraSpacing);

    // The size of text in logical order, which is not reordered for it. Height is that of the tallest font
    // used plus 2.
    CSize CalcLogicalStringSize(const WCHAR* text, int count, int extraSpacing);
    CSize CalcGlyphStringSize(const WCHAR* glyphs, int count, int extraSpacing);

private:
    struct FontSlot {
        CString face;
        HFONT font = nullptr; // until Create
        int height = 0;
    };

    void SelectFont(int slot);
    void LetGoOfFonts();
    void DrawMarks(const corekit::detail::GlyphRun& run, int y, const CRect& rect);

    int m_fontCount = 0;
    std::array<FontSlot, corekit::detail::FontCoverage::maxFonts> m_fonts;
    corekit::detail::FontCoverage m_coverage; // the slots' signatures
    HDC m_dc = nullptr;
    UINT Options(UINT options) const;

    PairKerning m_kerning = PairKerning::off;
    int m_height = 0;       // 0: to be computed
    int m_currentFont = -1; // slot selected into the context
    HGDIOBJ m_savedFont = nullptr;
    // Scratch, kept from call to call.
    corekit::detail::GlyphRun m_run;
    StringW m_text, m_glyphs;
    CArray<int, int> m_order, m_types;
};
