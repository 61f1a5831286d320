// The renderer on a surface: what it draws is compared, pixel by pixel, with plain platform output.
#include "corekit/unicode/ui/UniRender.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/Gdi.h"
#include "corekit/unicode/ui/FontDescriptor.h"
#include "corekit/unicode/ui/UnicodeManager.h"
#include "tests/support/Thrown.h"

#include <functional>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr int width = 400, height = 60;

class Surface {
public:
    Surface() : m_dc(CreateCompatibleDC(nullptr))
    {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        m_bitmap = CreateDIBSection(m_dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        m_pixels = static_cast<DWORD*>(bits);
        SelectObject(m_dc, m_bitmap);
        SetTextColor(m_dc, RGB(255, 255, 255));
        SetBkColor(m_dc, RGB(0, 0, 255));
        SetBkMode(m_dc, TRANSPARENT);
    }
    ~Surface()
    {
        DeleteDC(m_dc);
        DeleteObject(m_bitmap);
    }
    HDC dc() const { return m_dc; }
    using Picture = std::vector<DWORD>;
    Picture picture() const { return Picture(m_pixels, m_pixels + width * height); }

private:
    HDC m_dc;
    HBITMAP m_bitmap = nullptr;
    DWORD* m_pixels = nullptr;
};

// The renderer's font, selected by hand.
class PlainFont {
public:
    explicit PlainFont(HDC dc)
        : m_dc(dc), m_font(CreateFontA(24, 0, 0, 0, FW_NORMAL, 0, 0, 0, 1, 0, 0, 0, 0, "DejaVu Sans")),
          m_before(SelectObject(dc, m_font))
    {
    }
    ~PlainFont()
    {
        SelectObject(m_dc, m_before);
        DeleteObject(m_font);
    }
    HFONT handle() const { return m_font; }
    int widthOf(std::u16string_view text, UINT options) const
    {
        SIZE size{};
        GetTextExtentPoint32W(m_dc, text.data(), static_cast<int>(text.size()), &size, options);
        return size.cx;
    }

private:
    HDC m_dc;
    HFONT m_font;
    HGDIOBJ m_before;
};

class UniRender : public testing::Test {
protected:
    CUnicodeManager& manager = *CUnicodeManager::Initialise(TRUE);
    CUniRender render;
    const CRect whole{0, 0, width, height};

    void SetUp() override
    {
        manager.SetBIDIEnabled(TRUE);
        render.CreateFromDescriptor(CFontDescriptor(u"24\n1\nDejaVu Sans\n"), FALSE, FALSE, FALSE);
    }
    void TearDown() override
    {
        manager.SetBIDIEnabled(FALSE);
        manager.SetWindowsComplexLanguageHandling(FALSE);
    }
    Surface::Picture drawn(const WCHAR* text, int x = 5, UINT options = 0)
    {
        Surface surface;
        render.AttachDC(surface.dc());
        render.DrawLogicalString(x, 5, options, whole, text, -1, 0);
        render.DetachDC();
        return surface.picture();
    }
    // The same text by hand, in pieces of one call each from left to right.
    Surface::Picture byHand(std::initializer_list<std::pair<std::u16string, UINT>> pieces, int x = 5)
    {
        Surface surface;
        const PlainFont font(surface.dc());
        for (const auto& [text, options] : pieces) {
            ExtTextOutW(surface.dc(), x, 5, options, nullptr, text.data(), static_cast<UINT>(text.size()));
            x += font.widthOf(text, options);
        }
        return surface.picture();
    }
};

constexpr UINT asIs = ETO_IGNORELANGUAGE;

TEST_F(UniRender, HebrewIsTheSameAsThePlatformsOwn)
{
    EXPECT_EQ(drawn(u"\u05E9\u05DC\u05D5\u05DD"), byHand({{u"\u05E9\u05DC\u05D5\u05DD", 0}}));
    EXPECT_EQ(drawn(u"\u05E9\u05DC\u05D5\u05DD"),
              byHand({{u"\u05DD\u05D5\u05DC\u05E9", asIs}})); // letters from the right
}

TEST_F(UniRender, NumbersKeepTheirOrderInRightToLeftLines)
{
    EXPECT_EQ(drawn(u"\u05D0\u05D1 12:30"),
              byHand({{u"12", 0}, {u":", 0}, {u"30", 0}, {u" ", 0}, {u"\u05D0\u05D1", 0}}));
    EXPECT_EQ(drawn(u"ab \u05D0\u05D1 12"),
              byHand({{u"ab", 0}, {u" ", 0}, {u"12", 0}, {u" ", 0}, {u"\u05D0\u05D1", 0}}));
}

TEST_F(UniRender, ArabicIsJoinedAndReadsFromTheRight)
{
    EXPECT_EQ(drawn(u"\u0628\u062A\u0628"), byHand({{u"\uFE90\uFE98\uFE91", asIs}}));
    EXPECT_EQ(drawn(u"\u0644\u0627"), byHand({{u"\uFEFB", asIs}}));
}

TEST_F(UniRender, MarkLiesOverTheLetterThatFollowsItOnTheSurface)
{
    Surface surface;
    const PlainFont font(surface.dc());
    for (const WCHAR c : {u'\uFE8F', u'\u064E'}) ExtTextOutW(surface.dc(), 5, 5, asIs, nullptr, &c, 1);
    EXPECT_EQ(drawn(u"\u0628\u064E"), surface.picture());
}

TEST_F(UniRender, ComplexModeLeavesTheLineToThePlatform)
{
    manager.SetWindowsComplexLanguageHandling(TRUE);
    const char16_t line[] = u"ab \u0628\u062A \u05D0\u05D1";
    EXPECT_EQ(drawn(line), byHand({{line, 0}}));
}

TEST_F(UniRender, OnlyTheFirstRunPaintsTheBackground)
{
    const auto plain = drawn(u"ab cd"), opaque = drawn(u"ab cd", 5, ETO_OPAQUE);
    int background = 0, text = 0;
    for (std::size_t i = 0; i < plain.size(); ++i) {
        background += (plain[i] & 0xFFFFFF) == 0 && (opaque[i] & 0xFFFFFF) == 0x0000FF;
        text += (plain[i] & 0xFFFFFF) == 0xFFFFFF && (opaque[i] & 0xFFFFFF) == 0xFFFFFF;
    }
    const auto empty = std::count(plain.begin(), plain.end(), 0u);
    EXPECT_EQ(background, empty);
    EXPECT_GT(text, 50);

    const auto blank = drawn(u"", 5, ETO_OPAQUE);
    EXPECT_EQ(std::count_if(blank.begin(), blank.end(), [](DWORD p) { return (p & 0xFFFFFF) == 0x0000FF; }),
              width * height);
    const auto nothing = drawn(u"");
    EXPECT_EQ(std::count(nothing.begin(), nothing.end(), 0u), width * height);
}

TEST_F(UniRender, MeasuresWhatThePlatformDraws)
{
    Surface surface;
    const PlainFont font(surface.dc());
    const auto widthOf = [&](const WCHAR* glyphs, int spacing) {
        return render.CalcGlyphStringSize(glyphs, -1, spacing).cx;
    };
    render.AttachDC(surface.dc());
    EXPECT_EQ(render.CalcLogicalStringSize(u"Hallo and more", 5, 0),
              CSize(font.widthOf(u"Hallo", 0), 24 + 2));
    EXPECT_EQ(render.CalcLogicalStringSize(u"", -1, 0), CSize(0, 0));
    EXPECT_EQ(widthOf(u"\uFE91\u064E\uFE90", 0), font.widthOf(u"\uFE91\uFE90", asIs));
    EXPECT_EQ(widthOf(u"\uE301\uE302", 1), widthOf(u"\uE301\uE302", 0) + 4);
    render.DetachDC();
    EXPECT_EQ(render.CalcLogicalStringSize(u"detached", -1, 0), CSize(0, 0));
}

TEST_F(UniRender, HeightIsThatOfTheTallestFontUntilTheNextCreate)
{
    const int alone = render.GetHeight();
    EXPECT_EQ(alone, 24);
    render.Create(-24, FALSE, FALSE, FALSE);
    const int latin = render.GetHeight();
    render.AddFont("Noto Sans Tamil");
    render.AddFont("Noto Sans Devanagari");
    EXPECT_EQ(render.GetHeight(), latin); // cached
    render.Create(-24, FALSE, FALSE, FALSE);
    EXPECT_GT(render.GetHeight(), latin);
}

TEST_F(UniRender, ContextGetsItsFontBack)
{
    Surface surface;
    const PlainFont own(surface.dc());
    const std::function<void()> lettingGo[] = {
        [&] { render.DetachDC(); }, [&] { render.Create(20, FALSE, FALSE, FALSE); }, [&] { render.Reset(); }};
    for (const auto& letGo : lettingGo) {
        render.AttachDC(surface.dc());
        render.DrawLogicalString(0, 0, 0, whole, u"ab", -1, 0);
        letGo();
        EXPECT_EQ(SelectObject(surface.dc(), own.handle()), own.handle());
    }
}

TEST_F(UniRender, FontsThatCannotBeHadAreNamed)
{
    EXPECT_EQ(ThrownLine([&] { render.AddFont("No Such Face"); }),
              "[UniRender] Font \"No Such Face\" is not supported on this machine.");
    EXPECT_EQ(ThrownLine([&] { render.Create(-30000, FALSE, FALSE, FALSE); }),
              "[UniRender] CreateFont() call failed.");
    for (int i = 1; i < 16; ++i) render.AddFont("Noto Sans");
    EXPECT_EQ(ThrownLine([&] { render.AddFont("Noto Sans"); }), "[UniRender] Too many fonts added to object");
    CFontDescriptor many;
    many.SetSize(10);
    for (int i = 0; i < 17; ++i) many.AddFont("DejaVu Sans");
    EXPECT_EQ(ThrownLine([&] { render.CreateFromDescriptor(many, FALSE, FALSE, FALSE); }),
              "[UniRender] Too many fonts added to object");
    render.Create(10, FALSE, FALSE, FALSE); // sixteen are still there
    EXPECT_EQ(render.GetHeight(), 10);
}

// A renderer without fonts or with fonts that were not created draws with what the context has.
TEST_F(UniRender, WithoutFontsTextIsDrawnInTheFaceThatIsThere)
{
    render.Reset();
    EXPECT_EQ(render.GetHeight(), 0);
    const auto none = drawn(u"ab \u0628\u064E");
    EXPECT_LT(std::count(none.begin(), none.end(), 0u), width * height);
    render.AddFont("DejaVu Sans");
    EXPECT_EQ(drawn(u"ab \u0628\u064E"), none);
}

TEST_F(UniRender, AnyGlyphsAndTypesStayInsideTheirArrays)
{
    Surface surface;
    std::mt19937 random(7);
    render.AddFont("Noto Sans Tamil");
    render.Create(12, FALSE, FALSE, FALSE);
    render.AttachDC(surface.dc());
    const std::u16string alphabet =
        u"ab 1.-\u05D0\u05B0\u0628\u064B\u0670\uFE91\uE301\uE358\uE352\uE3FF\uE29A\u0B95\u0E01\uFFFF\n\xD800";
    const auto pick = [&](std::size_t n) { return random() % n; };
    for (int round = 0; round < 100; ++round) {
        std::u16string glyphs;
        CArray<int, int> types;
        for (std::size_t n = pick(40); n; --n) glyphs += alphabet[pick(alphabet.size())];
        for (std::size_t n = pick(50); n; --n) types.Add(static_cast<int>(pick(12)) - 1);
        manager.SetBIDIEnabled(round % 3 != 0);
        render.DrawGlyphString(static_cast<int>(pick(500)) - 50, 0, static_cast<UINT>(pick(4) * 2), whole,
                               glyphs.data(), types, static_cast<int>(glyphs.size()),
                               static_cast<int>(pick(2)));
        render.DrawLogicalString(0, 0, 0, whole, glyphs.data(), static_cast<int>(glyphs.size()), 0);
        const CSize size = render.CalcLogicalStringSize(glyphs.data(), static_cast<int>(glyphs.size()), 0);
        EXPECT_GE(size.cx, 0);
    }
    render.DetachDC();
}

} // namespace
