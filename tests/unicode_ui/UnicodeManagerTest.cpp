#include "corekit/unicode/ui/UnicodeManager.h"

#include "corekit/foundation/KeyedArrays.h"
#include "corekit/unicode/ui/FontMapInfo.h"
#include "tests/support/CaseRows.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

namespace {

class UnicodeManager : public testing::Test {
protected:
    CUnicodeManager& manager = *CUnicodeManager::Initialise(TRUE);

    void TearDown() override { manager.OverrideSettings({}); }
};

// The table of ranges, searched row by row, is the rule; the flat table only makes it fast.
TEST_F(UnicodeManager, RangeNumberIsThatOfTheFirstRow)
{
    for (int c = 0; c <= 0xFFFF; ++c) {
        int expected = 128;
        if (c >= 0xE000 && c <= 0xF8FF) {
            expected = c <= 0xE3FF ? 256 + (c - 0xE000) / 256 : 128;
        } else {
            for (int row = CUnicodeManager::m_usbRangeCount; row-- > 0;) {
                WORD first, last;
                CUnicodeManager::GetUsbRangeExtent(128 + row, first, last);
                if (first <= c && c <= last) expected = 128 + row;
            }
        }
        ASSERT_EQ(CUnicodeManager::GetCharacterUsbRangeNumber(static_cast<WORD>(c)), expected)
            << std::hex << c;
    }
    for (CaseRow row : CaseRows(TEST_DATA "/usb_ranges.tsv")) {
        const WORD c = row.Number<WORD>();
        EXPECT_EQ(CUnicodeManager::GetCharacterUsbRangeNumber(c), row.Number()) << row.Line();
    }
    WORD first = 1, last = 1;
    for (const int range : {-1, 127, 198, 256}) {
        CUnicodeManager::GetUsbRangeExtent(range, first, last);
        EXPECT_EQ(first | last, 0) << range;
    }
}

TEST_F(UnicodeManager, ComplexScriptsAreThoseThatAreShapedOrOrdered)
{
    for (const WORD c :
         {0x05D0, 0x0627, 0x0915, 0x0985, 0x0B95, 0x0D05, 0x20D0, 0xFB50, 0xFE80, 0xE000, 0xE3FF})
        EXPECT_TRUE(CUnicodeManager::IsCharInComplexScript(static_cast<WORD>(c))) << std::hex << c;
    for (const WORD c : {0x0041, 0x0E01, 0x0535, 0xFB1D, 0xFE20, 0xF000, 0x1200})
        EXPECT_FALSE(CUnicodeManager::IsCharInComplexScript(static_cast<WORD>(c))) << std::hex << c;
}

TEST_F(UnicodeManager, ComplexLanguageSettingOverridesGlyphsAndDirection)
{
    manager.SetBIDIEnabled(TRUE);
    EXPECT_TRUE(manager.IsBIDIEnabled(TRUE));
    EXPECT_TRUE(manager.IsLocaleRTL(0x0401));
    EXPECT_TRUE(manager.IsLocaleRTL(0x0820));
    EXPECT_FALSE(manager.IsLocaleRTL(0x0429)); // Persian is not in the list
    EXPECT_FALSE(manager.IsLocaleRTL(0x0409));

    manager.SetWindowsComplexLanguageHandling(TRUE);
    EXPECT_FALSE(manager.IsBIDIEnabled(TRUE));
    EXPECT_TRUE(manager.IsBIDIEnabled(FALSE));
    EXPECT_FALSE(manager.IsLocaleRTL(0x0401));
}

TEST_F(UnicodeManager, GlyphsAreMadeOrLeftToThePlatform)
{
    StringW glyphs(u"<");
    manager.ConvertToGlyphs(u"\u0628\u0628", -1, glyphs);
    EXPECT_EQ(glyphs.GetLength(), 3);
    EXPECT_NE(glyphs.GetAt(1), 0x0628); // joined
    manager.SetWindowsComplexLanguageHandling(TRUE);
    manager.ConvertToGlyphs(u"\u0628\u0628", 1, glyphs);
    EXPECT_TRUE(glyphs == StringW(u"\u0628\u0628"));
    EXPECT_EQ(CUnicodeManager::OldDumbMapSpecialGlyph(0xE141), 0x41);
}

TEST_F(UnicodeManager, EveryLanguageHasAName)
{
    CStringIntArray list;
    list.Add("former", 1);
    CUnicodeManager::BuildAvailableLocaleList(list);
    ASSERT_EQ(list.GetSize(), 56);
    EXPECT_EQ(CUnicodeManager::GetAvailableLocaleCount(), 56);
    std::set<std::string> names;
    for (int i = 0; i < list.GetSize(); ++i) names.insert(list.GetString(i).GetString());
    EXPECT_EQ(names.size(), 56u);
    EXPECT_EQ(names.count(""), 0u);
    constexpr std::pair<int, const char*> known[] = {{0x0400, "No language"},
                                                     {0x0409, "English (U.S.)"},
                                                     {0x0425, "Farsi (Persian)"},
                                                     {0x0820, "Indic Urdu"}};
    for (const auto& [locale, name] : known) {
        CString found;
        EXPECT_TRUE(list.FindInteger(locale, found));
        EXPECT_STREQ(found, name);
    }
}

TEST_F(UnicodeManager, FacesAreFoundInAnyCaseAndLoadedOnce)
{
    EXPECT_TRUE(manager.IsFontValid("dejavu SANS"));
    CFontMapInfo* const info = manager.GetFontMapInfo("DEJAVU sans");
    ASSERT_NE(info, nullptr);
    EXPECT_TRUE(info->IsLoaded());
    EXPECT_STREQ(info->GetFaceName(), "DejaVu Sans");
    EXPECT_EQ(manager.GetFontMapInfo("DejaVu Sans"), info);
    for (const char* none : {"", "No Such Face", "DejaVu Sans "}) {
        EXPECT_FALSE(manager.IsFontValid(none));
        EXPECT_EQ(manager.GetFontMapInfo(none), nullptr);
    }
    int walked = 0;
    bool seen = false;
    for (POSITION at = manager.GetFirstFontPosition(); at; ++walked) {
        const CString face = manager.GetNextFont(at);
        EXPECT_TRUE(manager.IsFontValid(face));
        seen |= face == "DejaVu Sans";
    }
    EXPECT_GT(walked, 2);
    EXPECT_TRUE(seen);
}

TEST_F(UnicodeManager, SignaturesAreWhatTheFacesHold)
{
    struct {
        const char* face;
        std::initializer_list<int> covered, missing;
    } const faces[] = {
        {"DejaVu Sans", {128, 129, 137, 139, 141, 191, 195}, {143, 144, 148, 256}},
        {"Noto Sans Devanagari", {143}, {128, 139, 141, 144, 148}},
        {"Noto Sans Bengali", {144}, {139, 141, 148}},
        {"Noto Sans Tamil", {148}, {139, 141, 144}},
    };
    for (const auto& f : faces) {
        CFontMapInfo* const info = manager.GetFontMapInfo(f.face);
        ASSERT_NE(info, nullptr) << f.face;
        for (const int range : f.covered)
            EXPECT_TRUE(info->GetSignature().CoversRange(range)) << f.face << range;
        for (const int range : f.missing)
            EXPECT_FALSE(info->GetSignature().CoversRange(range)) << f.face << range;
    }
}

TEST_F(UnicodeManager, PrivateLanguagesNeedTheirGlyphs)
{
    constexpr std::pair<WORD, DWORD> languages[] = {{513, 1}, {0x2202, 2}, {517, 4}, {0x0E07, 8}};
    for (const auto& [locale, custom] : languages) {
        CFontSignature signature;
        signature.AddZone(1, 2, 1);
        manager.GetLocaleFontSignature(locale, signature);
        DWORD usb[4];
        signature.GetUsb(usb);
        EXPECT_EQ(signature.GetCustomSignature(), custom) << locale;
        EXPECT_TRUE(usb[0] == 0 && usb[1] == 0x10000000 && usb[2] == 0 && usb[3] == 0) << locale;
    }
    CFontSignature kept;
    kept.SetCustomSignature(64);
    manager.GetLocaleFontSignature(515, kept);
    EXPECT_EQ(kept.GetCustomSignature(), 64u);
}

TEST_F(UnicodeManager, FaceForALanguageIsTheFirstThatHoldsIt)
{
    CFontSignature arabic;
    manager.GetLocaleFontSignature(0x0401, arabic);
    EXPECT_TRUE(arabic.CoversRange(141));

    const CFontDescriptor fonts(u"20\n2\nNoto Sans Tamil\nDejaVu Sans\n");
    EXPECT_STREQ(fonts.GetFontForLocale(0x0401), "DejaVu Sans");
    EXPECT_STREQ(fonts.GetFontForLocale(513), "Noto Sans Tamil"); // nobody has it: the primary face
    const CFontDescriptor unknown(u"20\n3\nNoto Sans Tamil\nNo Such Face\nDejaVu Sans\n");
    EXPECT_STREQ(unknown.GetFontForLocale(0x0401), "Noto Sans Tamil"); // an unknown face ends the search
    EXPECT_TRUE(CFontDescriptor().GetFontForLocale(0x0401).IsEmpty());
}

} // namespace
