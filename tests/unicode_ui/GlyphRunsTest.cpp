// Cutting of glyph strings into runs, from tables of cases: glyph_runs.tsv and measure_runs.tsv.
#include "corekit/unicode/ui/GlyphRuns.h"
#include "tests/support/TabbedCases.h"

#include <gtest/gtest.h>
#include <sstream>

using namespace corekit::detail;

namespace {

using Columns = std::vector<std::string>;

std::u16string unescaped(const std::string& text)
{
    std::u16string out;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] == '\\') {
            out += static_cast<char16_t>(std::stoi(text.substr(i + 2, 4), nullptr, 16));
            i += 5;
        } else {
            out += static_cast<char16_t>(text[i]);
        }
    return out;
}

std::string escaped(std::u16string_view text)
{
    std::string out;
    for (const char16_t c : text) {
        char code[8];
        std::snprintf(code, sizeof code, c > 0x20 && c < 0x7F ? "%c" : "\\u%04X", static_cast<unsigned>(c));
        out += code;
    }
    return out;
}

std::string described(const GlyphRun& run)
{
    std::ostringstream out;
    out << run.slot << ' ' << std::hex << run.options << std::dec << ' ' << escaped(run.text);
    if (run.extra) out << " +" << run.extra;
    for (const auto& mark : run.marks) out << ' ' << escaped({&mark.text, 1}) << '@' << mark.x;
    return out.str();
}

CFontSignature covering(std::initializer_list<int> ranges, DWORD custom)
{
    DWORD usb[4] = {};
    for (const int range : ranges) usb[(range - 128) / 32] |= DWORD{1} << (range % 32);
    CFontSignature signature;
    signature.SetFromUsb(usb);
    signature.SetCustomSignature(custom);
    return signature;
}

void fillOne(FontCoverage& fonts)
{
    constexpr DWORD all[4] = {0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF};
    CFontSignature everything;
    everything.SetFromUsb(all);
    everything.SetCustomSignature(15);
    fonts.Add(everything);
}

// 0 Latin, 1 Hebrew and Arabic, 2 Devanagari glyphs, 3 Tamil glyphs, 4 the Urdu block. None has Thai.
void fillMany(FontCoverage& fonts)
{
    fonts.Add(covering({128, 129, 159}, 0));
    fonts.Add(covering({139, 140, 141, 142, 191, 195}, 0));
    CFontSignature devanagari = covering({}, 1);
    devanagari.AddZone(0xE000, 0xE0FF, 0xE000);
    devanagari.AddMultimap(0xE0FF, StringW(u"xy"));
    devanagari.AddMultimap(0xE0FE, StringW());
    fonts.Add(devanagari);
    CFontSignature tamil = covering({}, 4);
    tamil.AddZone(0xE200, 0xE2FF, 0xE200);
    tamil.AddMapping(0xE282, 0x201A);
    tamil.AddMapping(0xE299, 0x2122);
    tamil.AddMapping(0xE29A, 0x0161);
    fonts.Add(tamil);
    fonts.Add(covering({}, 8));
}

struct Setting {
    FontCoverage fonts;
    RunRules rules;
    UINT options = 0;

    Setting(const std::string& stack, std::string flags)
    {
        if (stack == "one")
            fillOne(fonts);
        else
            fillMany(fonts);
        for (bool* const rule : {&rules.bidi, &rules.expandSpace})
            if (!flags.empty() && flags[0] == (rule == &rules.bidi ? 'b' : 's')) {
                *rule = true;
                flags.erase(0, 1);
            }
        if (!flags.empty()) options = static_cast<UINT>(std::stoul(flags, nullptr, 16));
    }
};

class TenPixels final : public RunRuler {
public:
    int Width(const WCHAR*, int count, UINT) override { return 10 * count; }
};

void expectRuns(const Columns& row, std::size_t firstRun, const std::vector<std::string>& got)
{
    const std::vector<std::string> wanted(
        row.begin() + static_cast<std::ptrdiff_t>(std::min(firstRun, row.size())), row.end());
    EXPECT_EQ(got, wanted) << row[0];
}

TEST(GlyphRuns, RunsOfTheTableAreDrawnInTheirFonts)
{
    const auto rows = TabbedCases(TEST_DATA "/glyph_runs.tsv");
    ASSERT_GT(rows.size(), 40u);
    for (const Columns& row : rows) {
        const Setting s(row[1], row[2]);
        const std::u16string glyphs = unescaped(row[3]);
        CArray<int, int> types;
        std::istringstream numbers(row[4]);
        for (int type; numbers >> type;) types.Add(type);
        std::vector<std::string> got;
        TenPixels ruler;
        GlyphRun run;
        GlyphRunBuilder builder(s.fonts, s.rules, glyphs.data(), static_cast<int>(glyphs.size()), types,
                                s.options);
        for (int x = 0; builder.Next(x, ruler, run); x += 10 * static_cast<int>(run.text.size()) + run.extra)
            got.push_back(described(run));
        expectRuns(row, 5, got);
    }
}

TEST(GlyphRuns, RunsOfTheTableHaveTheirWidths)
{
    const auto rows = TabbedCases(TEST_DATA "/measure_runs.tsv");
    ASSERT_GT(rows.size(), 8u);
    for (const Columns& row : rows) {
        const Setting s(row[1], row[2]);
        const std::u16string glyphs = unescaped(row[3]);
        std::vector<std::string> got;
        GlyphRun run;
        MeasureRunBuilder builder(s.fonts, s.rules, glyphs.data(), static_cast<int>(glyphs.size()));
        while (builder.Next(run)) got.push_back(described(run));
        expectRuns(row, 4, got);
    }
}

TEST(GlyphRuns, MarkIsMeasuredWithTheFlagItWillBeDrawnWith)
{
    class Recorder final : public RunRuler {
    public:
        std::vector<std::pair<std::u16string, UINT>> asked;
        int Width(const WCHAR* text, int count, UINT options) override
        {
            asked.emplace_back(std::u16string(text, static_cast<std::size_t>(count)), options);
            return 7;
        }
    } ruler;
    const Setting s("one", "b");
    CArray<int, int> types;
    GlyphRun run;
    GlyphRunBuilder builder(s.fonts, s.rules, u"\uFE91\u064E\uFE8D", 3, types, 0);
    ASSERT_TRUE(builder.Next(100, ruler, run));
    ASSERT_EQ(ruler.asked.size(), 1u);
    EXPECT_EQ(ruler.asked[0], std::make_pair(std::u16string(u"\uFE91"), UINT{0x1000}));
    EXPECT_EQ(run.marks, std::vector<GlyphRun::Mark>({{u'\u064E', 107}}));
}

// Expansion grows `types` by the doubled entry at the glyph's own index.
TEST(GlyphRuns, GrownTypesKeepStepWithTheExpandedRun)
{
    const Setting s("many", "b");
    CArray<int, int> types;
    for (const int type : {1, 5, 0}) types.Add(type);
    TenPixels ruler;
    GlyphRun run;
    GlyphRunBuilder builder(s.fonts, s.rules, u"\uE301\uE358\uE302", 3, types, 0);
    while (builder.Next(0, ruler, run)) {
    }
    const std::vector<int> got(types.GetData(), types.GetData() + types.GetSize());
    EXPECT_EQ(got, std::vector<int>({1, 5, 5, 0}));
}

} // namespace
