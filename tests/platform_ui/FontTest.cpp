// Fonts by name, their metrics and signatures.
#include "Canvas.h"

#include <map>
#include <string>

namespace {

std::string faceOf(const char* asked)
{
    Canvas c;
    c.use(asked, 20);
    char name[64] = "";
    const int copied = GetTextFaceA(c.dc, sizeof name, name);
    EXPECT_EQ(copied, static_cast<int>(std::string(name).size()) + 1);
    EXPECT_EQ(GetTextFaceA(c.dc, 0, nullptr), copied);
    return name;
}

TEST(Fonts, AreFoundByNameOrReplacedByTheDefaultFace)
{
    EXPECT_EQ(faceOf("Noto Sans Hebrew"), "Noto Sans Hebrew");
    EXPECT_EQ(faceOf("nOTO sANS hEBREW"), "Noto Sans Hebrew");
    for (const char* unknown : {"No Such Face", "", "Serif", "Noto Sans Heb"})
        EXPECT_EQ(faceOf(unknown), latin);
    EXPECT_EQ(faceOf("Noto Sans Inscriptional Parthia"), "Noto Sans Inscriptional Parthian")
        << "cut to 31 bytes";
}

TEST(Fonts, PositiveHeightIsTheCellExactly)
{
    for (const char* face : {latin, hebrew, arabic, devanagari, "DejaVu Sans"})
        for (int height = 1; height < 130; height += 3) {
            Canvas c;
            c.use(face, height);
            TEXTMETRICA m;
            ASSERT_TRUE(GetTextMetricsA(c.dc, &m));
            EXPECT_EQ(m.tmHeight, height);
            EXPECT_EQ(m.tmAscent + m.tmDescent, height);
            EXPECT_GE(m.tmDescent, 0);
            EXPECT_EQ(c.measure(u"x").cy, height);
        }
}

TEST(Fonts, NegativeHeightIsTheEm)
{
    Canvas c;
    c.use("DejaVu Sans", -2048);
    TEXTMETRICA m;
    ASSERT_TRUE(GetTextMetricsA(c.dc, &m));
    // The face's own numbers at 2048 units an em.
    EXPECT_EQ(m.tmAscent, 1901);
    EXPECT_EQ(m.tmDescent, 483);
    EXPECT_EQ(m.tmInternalLeading, 1901 + 483 - 2048);
    EXPECT_EQ(c.measure(u"n").cx, 1298);
    EXPECT_TRUE(m.tmPitchAndFamily & 1) << "variable pitch";
    c.use("DejaVu Sans Mono", -20);
    ASSERT_TRUE(GetTextMetricsA(c.dc, &m));
    EXPECT_FALSE(m.tmPitchAndFamily & 1);
}

TEST(Fonts, EveryStyleShowsInThePicture)
{
    const auto picture = [](FontStyle style) {
        Canvas c;
        c.use(latin, 40, style);
        c.draw(u"nnnn", 10, 10);
        return std::make_pair(c.inkedPixels(), c.ink().right - c.ink().left);
    };
    const auto plain = picture({});
    EXPECT_GT(picture({.weight = 700}).first, plain.first * 11 / 10);
    EXPECT_EQ(picture({.weight = 599}), plain);
    EXPECT_NE(picture({.italic = 1}), plain);
    EXPECT_GT(picture({.underline = 1}).first, plain.first + plain.second / 2);
    EXPECT_GT(picture({.strikeOut = 1}).first, plain.first + 10);
    EXPECT_GT(picture({.width = 40}).second, plain.second * 3 / 2);
}

TEST(Fonts, SenselessRequestsAreRefused)
{
    struct Case {
        int height, width, escapement, orientation;
    };
    for (const Case& k : {Case{INT32_MIN, 0, 0, 0},
                          {INT32_MAX, 0, 0, 0},
                          {4097, 0, 0, 0},
                          {20, -1, 0, 0},
                          {20, 5000, 0, 0},
                          {20, 0, 900, 0},
                          {20, 0, 0, 1}})
        EXPECT_EQ(
            CreateFontA(k.height, k.width, k.escapement, k.orientation, 400, 0, 0, 0, 1, 7, 32, 1, 0, latin),
            nullptr);
    const HFONT fallback = CreateFontA(0, 0, 0, 0, 400, 0, 0, 0, 1, 7, 32, 1, 0, nullptr);
    EXPECT_NE(fallback, nullptr);
    EXPECT_TRUE(DeleteObject(fallback));
}

TEST(Fonts, SignatureIsThatOfTheFace)
{
    struct Case {
        const char* face;
        int bit;
        bool set;
    };
    constexpr Case cases[] = {{latin, 0, true},
                              {latin, 9, true},
                              {latin, 11, false},
                              {hebrew, 11, true},
                              {hebrew, 15, false},
                              {arabic, 13, true},
                              {devanagari, 15, true},
                              {devanagari, 16, false},
                              {"Noto Sans Bengali", 16, true},
                              {"Noto Sans Tamil", 20, true},
                              {arabic, 67, true}};
    for (const Case& k : cases) {
        Canvas c;
        c.use(k.face, 10);
        FONTSIGNATURE s;
        const int charSet = GetTextCharsetInfo(c.dc, &s, 0);
        EXPECT_EQ((s.fsUsb[k.bit / 32] >> (k.bit % 32) & 1) != 0, k.set) << k.face << ' ' << k.bit;
        EXPECT_EQ(GetTextCharsetInfo(c.dc, nullptr, 0), charSet);
    }
    FONTSIGNATURE s{{1, 1, 1, 1}, {1, 1}};
    EXPECT_EQ(GetTextCharsetInfo(nullptr, &s, 0), static_cast<int>(DEFAULT_CHARSET));
    EXPECT_EQ(s.fsUsb[0] | s.fsUsb[3] | s.fsCsb[0], 0u);
}

// A face may claim what it does not have, and have what it does not claim.
TEST(Fonts, EveryInstalledFaceCanDrawTheRangesOfItsSignature)
{
    constexpr struct {
        int bit;
        char16_t letter;
    } letters[] = {{0, u'A'},       {1, u'\u00E9'},  {9, u'\u042F'},  {11, u'\u05D0'},
                   {13, u'\u0628'}, {14, u'\u06F4'}, {14, u'\u06D4'}, {15, u'\u0915'},
                   {16, u'\u0995'}, {20, u'\u0B95'}, {31, u'\u201C'}, {67, u'\uFE91'}};
    std::vector<std::string> faces;
    const auto collect = [](const LOGFONTA* font, const TEXTMETRICA*, DWORD, LPARAM to) {
        reinterpret_cast<std::vector<std::string>*>(to)->push_back(font->lfFaceName);
        return 1;
    };
    Canvas canvas(48, 64);
    ASSERT_EQ(EnumFontsA(canvas.dc, nullptr, collect, reinterpret_cast<LPARAM>(&faces)), 1);
    const auto drawn = [&canvas](char16_t unit) {
        canvas.clear();
        canvas.draw(std::u16string_view(&unit, 1), 8, 8, ETO_IGNORELANGUAGE);
        return canvas.pixels();
    };
    for (const std::string& face : faces) {
        canvas.use(face.c_str(), -24);
        FONTSIGNATURE signature;
        GetTextCharsetInfo(canvas.dc, &signature, 0);
        const auto missing = drawn(u'\uFFFE');
        for (const auto& [bit, letter] : letters) {
            const bool claims = signature.fsUsb[bit / 32] >> bit % 32 & 1;
            EXPECT_FALSE(claims && drawn(letter) == missing)
                << face << " has no U+" << std::hex << int{letter};
        }
    }
}

TEST(Fonts, EnumerationNamesEveryFaceOnceAndStopsAtZero)
{
    const HDC dc = CreateCompatibleDC(nullptr);
    std::map<std::string, int> seen;
    const auto collect = [](const LOGFONTA* font, const TEXTMETRICA* metrics, DWORD type, LPARAM to) {
        EXPECT_EQ(type, TRUETYPE_FONTTYPE);
        EXPECT_EQ(metrics->tmHeight, font->lfHeight); // 0 in a list of all
        ++(*reinterpret_cast<std::map<std::string, int>*>(to))[font->lfFaceName];
        return 7;
    };
    EXPECT_EQ(EnumFontsA(dc, nullptr, collect, reinterpret_cast<LPARAM>(&seen)), 7);
    for (const char* face : {latin, hebrew, arabic, devanagari}) EXPECT_EQ(seen[face], 1) << face;
    EXPECT_EQ(seen.count("Serif"), 0u) << "a generic name is no face";
    for (const auto& [face, count] : seen) {
        char real[64] = {};
        const HFONT font = CreateFontA(20, 0, 0, 0, 400, 0, 0, 0, 1, 0, 0, 0, 0, face.c_str());
        const HGDIOBJ before = SelectObject(dc, font);
        GetTextFaceA(dc, sizeof real, real);
        EXPECT_EQ(std::string(real).substr(0, face.size()), face) << "a face that cannot be loaded is listed";
        SelectObject(dc, before);
        DeleteObject(font);
    }
    seen.clear();
    EXPECT_EQ(EnumFontsA(dc, "dejavu sans", collect, reinterpret_cast<LPARAM>(&seen)), 7);
    EXPECT_EQ(seen["DejaVu Sans"], 4);
    const auto measure = [](const LOGFONTA* font, const TEXTMETRICA* metrics, DWORD, LPARAM) {
        return font->lfHeight > 32 && metrics->tmAscent > 16 ? 9 : 0;
    };
    EXPECT_EQ(EnumFontsA(dc, "DejaVu Sans", measure, 0), 9);
    int calls = 0;
    const auto stop = [](const LOGFONTA*, const TEXTMETRICA*, DWORD, LPARAM to) {
        return ++*reinterpret_cast<int*>(to) == 3 ? 0 : 1;
    };
    EXPECT_EQ(EnumFontsA(dc, nullptr, stop, reinterpret_cast<LPARAM>(&calls)), 0);
    EXPECT_EQ(calls, 3);
    EXPECT_EQ(EnumFontsA(dc, "No Such Face", collect, 0), 0);
    DeleteDC(dc);
}

} // namespace
