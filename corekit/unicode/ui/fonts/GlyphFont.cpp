#include "corekit/unicode/ui/fonts/GlyphFont.h"

#include "corekit/stores/RegistryKey.h"
#include "corekit/unicode/ui/FontMapInfo.h"
#include "corekit/unicode/ui/FontRegistry.h"
#include "corekit/unicode/ui/fonts/GlyphKerning.h"
#include "corekit/unicode/ui/fonts/GlyphPieces.h"
#include "corekit/unicode/ui/fonts/TrueTypeFile.h"

#include <algorithm>

namespace {

using namespace corekit::detail;

struct Script {
    const char* name;
    DWORD customSignature;
    GlyphFontRules rules;
};

Script scriptOf(GlyphScript script)
{
    switch (script) {
    case GlyphScript::Bengali:
        return {"Bengali", 2, {bengaliFontRows(), u"\u09B2", u"\u09B2\u09C1", u"\u09B2\u09BE"}};
    case GlyphScript::Tamil:
        return {"Tamil", 4, {tamilFontRows(), u"\u0B95", u"\u0B95\u0BCD", u"\u0B95\u0BBE"}};
    default:
        return {"Devanagari", 1, {devanagariFontRows(), u"\u092A", u"\u092A\u0902", u"\u092A\u093E"}};
    }
}

// Where the drawing looks for a position: at the code of its number and, as some mappings go by the western
// code page, at the character that has this number there.
std::vector<TrueTypeCode> codesOf(int position, WORD glyph)
{
    static constexpr WORD western[32] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                         0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                         0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                         0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};
    std::vector<TrueTypeCode> codes{{static_cast<WORD>(position), glyph}};
    if (position >= 0x80 && position < 0xA0 && western[position - 0x80] != 0)
        codes.push_back({western[position - 0x80], glyph});
    return codes;
}

constexpr int blankPosition = 0x20, lastPosition = 0xFF;

// Thousandths of an em above the letters' line, as the usual Latin face has it: text that is drawn from the
// top of its cells stands on one line with that, and the signs above have room.
constexpr int latinAscent = 1069;

// Measures and licence of the face, with the blank and what stands for a missing glyph.
TrueTypeFile fileLike(const ShapingFace& base, const std::string& faceName)
{
    TrueTypeFile file;
    file.unitsPerEm = base.UnitsPerEm();
    file.ascent = std::max(base.CellAscent(), file.unitsPerEm * latinAscent / 1000);
    file.descent = base.CellDescent();
    file.family = faceName;
    file.copyright = base.Name(0);
    file.licence = base.Name(13);
    file.licenceAddress = base.Name(14);
    file.glyphs.push_back({{}, file.unitsPerEm / 2});
    file.glyphs.push_back({{}, static_cast<int>(base.Shape(u" ").advance)});
    file.codes = codesOf(blankPosition, 1);
    return file;
}

} // namespace

const char* NameOf(GlyphScript script) { return scriptOf(script).name; }

BuiltGlyphFont BuildGlyphFont(GlyphScript script, const ShapingFace& base, const std::string& faceName)
{
    const GlyphFontRules rules = scriptOf(script).rules;
    const GlyphPieces pieces(base, rules);
    BuiltGlyphFont built;
    TrueTypeFile file = fileLike(base, faceName);
    WORD glyphOf[lastPosition + 1] = {};
    for (int position = 1; position <= lastPosition; ++position) {
        if (position == blankPosition) continue;
        GlyphPieceShape shape;
        switch (pieces.Make(static_cast<BYTE>(position), shape)) {
        case GlyphPieceState::none:
            continue;
        case GlyphPieceState::inseparable:
            built.withoutPart.push_back(static_cast<WORD>(position));
            continue;
        case GlyphPieceState::made:
            break;
        }
        glyphOf[position] = static_cast<WORD>(file.glyphs.size());
        for (const TrueTypeCode& code : codesOf(position, static_cast<WORD>(file.glyphs.size())))
            file.codes.push_back(code);
        file.glyphs.push_back({std::move(shape.outline), static_cast<int>(shape.advance)});
        ++built.pieces;
    }
    for (const GlyphPair& pair : kerningOf(base, rules.rows, pieces))
        file.pairs.push_back({glyphOf[pair.left & 0xFF], glyphOf[pair.right & 0xFF], pair.move});
    std::erase_if(file.pairs, [](const TrueTypePair& p) { return p.left == 0 || p.right == 0; });
    built.file = file.Write();
    return built;
}

void RegisterGlyphFont(GlyphScript script, const std::string& faceName)
{
    constexpr BYTE noUnicodeRange[16] = {};
    CRegistryKey key;
    key.Create(HKEY_LOCAL_MACHINE, ("Software\\Corvane\\Unicode Support\\Font Mapping\\" + faceName).c_str());
    key.SetValue("USB Signature", noUnicodeRange, sizeof(noUnicodeRange));
    key.SetValue("Custom Signature", static_cast<unsigned>(scriptOf(script).customSignature));
}

bool UseAsGlyphFont(const std::string& faceName)
{
    constexpr struct {
        GlyphScript script;
        int letters; // the range of its characters, which a glyph font has at none
    } scripts[] = {{GlyphScript::Devanagari, 128 + 15},
                   {GlyphScript::Bengali, 128 + 16},
                   {GlyphScript::Tamil, 128 + 20}};
    for (const auto& [script, letters] : scripts) {
        if (!faceName.ends_with(NameOf(script))) continue;
        CFontMapInfo* const info = FontRegistry::OfProcess().Find(faceName.c_str());
        if (info == nullptr || info->GetSignature().CoversRange(letters)) return false;
        info->BecomeGlyphFont(scriptOf(script).customSignature);
        return true;
    }
    return false;
}
