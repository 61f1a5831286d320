#include "corekit/unicode/ui/fonts/GlyphFont.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/PairKerning.h"
#include "corekit/unicode/ui/FontMapInfo.h"
#include "tests/platform_ui/Canvas.h"
#include "tests/support/CaseRows.h"
#include "tests/support/RegistryHome.h"

#include <gtest/gtest.h>
#include <map>

namespace {

constexpr int em = 1000;

// One font of each script, built and taken into the process once.
struct BuiltFont {
    GlyphScript script;
    const char *base, *name;
    BuiltGlyphFont built;

    BuiltFont(GlyphScript s, const char* b, const char* n) : script(s), base(b), name(n)
    {
        const ShapingFace face(base);
        if (!face.IsFound()) return;
        built = BuildGlyphFont(script, face, name);
        const TempFolder folder;
        const std::string path = folder / "glyphs.ttf";
        WriteWhole(path, std::string(built.file.begin(), built.file.end()));
        EXPECT_EQ(AddFontResourceA(path.c_str()), 1) << name;
    }
};

const BuiltFont& Font(GlyphScript script)
{
    static const BuiltFont fonts[] = {{GlyphScript::Devanagari, "Noto Sans Devanagari", "Test Devanagari"},
                                      {GlyphScript::Bengali, "Noto Sans Bengali", "Test Bengali"},
                                      {GlyphScript::Tamil, "Noto Sans Tamil", "Test Tamil"}};
    return fonts[static_cast<int>(script)];
}

int WidthOf(const char* face, std::u16string_view text, UINT options)
{
    const HDC dc = CreateCompatibleDC(nullptr);
    const HFONT font = CreateFontA(-em, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, face);
    SelectObject(dc, font);
    SIZE size{};
    GetTextExtentPoint32W(dc, text.data(), static_cast<int>(text.size()), &size, options);
    DeleteDC(dc);
    DeleteObject(font);
    return size.cx;
}

TEST(GlyphFont, PiecesTogetherAreAsWideAsTheBaseFacesText)
{
    const std::map<std::string, GlyphScript> scripts = {{"Devanagari", GlyphScript::Devanagari},
                                                        {"Bengali", GlyphScript::Bengali},
                                                        {"Tamil", GlyphScript::Tamil}};
    for (CaseRow row : CaseRows(TEST_DATA "/glyph_pieces.tsv")) {
        const BuiltFont& font = Font(scripts.at(row.Word()));
        const int ours = WidthOf(font.name, row.Units(), ETO_IGNORELANGUAGE);
        EXPECT_NEAR(ours, WidthOf(font.base, row.Units(), 0), 2) << row.Line();
    }
}

TEST(GlyphFont, PairsAreKernedWhereItIsAskedFor)
{
    const BuiltFont& font = Font(GlyphScript::Devanagari);
    constexpr std::u16string_view halfNaAndYa = u"\u0010\u00AA\u00C9";
    const int platforms = WidthOf(font.base, u"\u0928\u094D\u092F", 0);
    EXPECT_GT(WidthOf(font.name, halfNaAndYa, ETO_IGNORELANGUAGE), platforms + 10);
    EXPECT_NEAR(WidthOf(font.name, halfNaAndYa, ETO_IGNORELANGUAGE | ETO_PAIRKERNING), platforms, 2);
}

TEST(GlyphFont, MarksTakeNoRoom)
{
    const struct {
        GlyphScript script;
        std::u16string_view positions;
    } cases[] = {
        {GlyphScript::Devanagari,
         u"\u00C2\u00C3\u00C4\u00C5\u00C6\u00C7\u00C8\u00D6\u00D7\u00D8\u00DA\u00E0\u00E4\u00E8\u00EC\u00EF"},
        {GlyphScript::Bengali, u"\u0001\u0012\u0026\u0079\u0081\u009F\u00A1\u00A9\u00AA\u00AD\u00D6"},
    };
    for (const auto& c : cases) EXPECT_EQ(WidthOf(Font(c.script).name, c.positions, ETO_IGNORELANGUAGE), 0);
}

TEST(GlyphFont, LettersStandOnTheLineOfLatinOnes)
{
    const int latin = ShapingFace("Noto Sans").CellAscent();
    for (const GlyphScript script : {GlyphScript::Devanagari, GlyphScript::Bengali, GlyphScript::Tamil})
        EXPECT_EQ(ShapingFace(Font(script).name).CellAscent(), latin) << Font(script).name;
}

// Some positions are control characters, which a layout of text would swallow.
TEST(GlyphFont, EveryPositionHasInk)
{
    Canvas canvas;
    canvas.use(Font(GlyphScript::Bengali).name, -48);
    for (const char16_t position : {u'\u0009', u'\u0012', u'\u008C', u'\u00AD'}) {
        canvas.clear();
        EXPECT_TRUE(canvas.draw({&position, 1}, 100, 40));
        EXPECT_GT(canvas.inkedPixels(), 0) << static_cast<int>(position);
    }
}

// The sum over all words of a font file is this number, which shows that every table is where its entry says.
TEST(GlyphFont, TheFilesChecksumIsThatOfASoundFont)
{
    const std::vector<BYTE>& file = Font(GlyphScript::Devanagari).built.file;
    ASSERT_EQ(file.size() % 4, 0U);
    DWORD sum = 0;
    for (std::size_t i = 0; i < file.size(); i += 4)
        sum += static_cast<DWORD>(file[i]) << 24 | static_cast<DWORD>(file[i + 1]) << 16 |
               static_cast<DWORD>(file[i + 2]) << 8 | file[i + 3];
    EXPECT_EQ(sum, 0xB1B0AFBAU);
}

TEST(GlyphFont, PieceThatTheFaceDoesNotHaveIsNamedAndLeftOut)
{
    const ShapingFace latin("Noto Sans");
    ASSERT_TRUE(latin.IsFound());
    const BuiltGlyphFont built = BuildGlyphFont(GlyphScript::Tamil, latin, "Test Nothing");
    EXPECT_EQ(built.pieces, 0);
    EXPECT_EQ(built.withoutPart.size(), static_cast<std::size_t>(Font(GlyphScript::Tamil).built.pieces));
    EXPECT_FALSE(ShapingFace("No Such Face").IsFound());
}

class GlyphFontMapping : public RegistryHome {};

TEST_F(GlyphFontMapping, RegisteredFaceHoldsTheCodesOfItsScript)
{
    RegisterGlyphFont(GlyphScript::Tamil, "Test Tamil");
    CFontMapInfo info("Test Tamil");
    info.Load(nullptr);
    EXPECT_TRUE(info.GetSignature().CoversRange(258));
    EXPECT_FALSE(info.GetSignature().CoversRange(256));
    std::u16string position;
    info.GetSignature().Convert(0xE2E8, position);
    EXPECT_EQ(position, u"\u00E8");
}

TEST(AddFontResource, RefusesWhatIsNoFont)
{
    const TempFolder folder;
    WriteWhole(folder / "text.ttf", "no font");
    EXPECT_EQ(AddFontResourceA((folder / "text.ttf").c_str()), 0);
    EXPECT_EQ(AddFontResourceA((folder / "missing.ttf").c_str()), 0);
    EXPECT_EQ(AddFontResourceA(nullptr), 0);
}

} // namespace
