#include "corekit/unicode/tables/UnicodeCharTypes.h"

#include "corekit/foundation/StringW.h"

#include <gtest/gtest.h>
#include <set>

namespace {

using Types = CUnicodeCharTypes;

const Types::__charEntry& Row(int c) { return Types::m_tbl[c >> 8][c & 0xFF]; }

// FNV-1a over every field of every row, a 32-bit value at a time.
std::uint64_t Digest()
{
    std::uint64_t digest = 0xCBF29CE484222325;
    for (int c = 0; c < 0x10000; ++c) {
        const Types::__charEntry& e = Row(c);
        for (const int field : {e.generalType, e.biDirectionalType, e.decimalValue, e.digitValue, e.mirrored,
                                int{e.upperCase}, int{e.lowerCase}, int{e.titleCase}}) {
            digest = (digest ^ static_cast<std::uint32_t>(field)) * 0x100000001B3;
        }
    }
    return digest;
}

TEST(UnicodeCharTypes, NoFactOfTheTableHasChanged)
{
    EXPECT_EQ(Digest(), 0xAC5638822A2CB93F);
    int rows = 0, mirrored = 0;
    for (int c = 0; c < 0x10000; ++c) {
        rows += Row(c).generalType != -1;
        mirrored += Row(c).mirrored;
    }
    EXPECT_EQ(rows, 6740);
    EXPECT_EQ(mirrored, 198);
}

TEST(UnicodeCharTypes, SlotsWithoutRowsShareOnePage)
{
    std::set<int> pages;
    for (int high = 0; high < 256; ++high)
        if (Types::m_tbl[high] != Types::m_tblUnknown) pages.insert(high);
    EXPECT_EQ(pages, (std::set<int>{0,   1,   2,   3,   4,   5,   6,   9,   10,  11,  12,  13,  14,
                                    15,  16,  17,  30,  31,  32,  33,  34,  35,  36,  37,  38,  39,
                                    48,  49,  50,  51,  78,  159, 172, 215, 216, 219, 220, 223, 224,
                                    227, 240, 241, 242, 243, 248, 249, 250, 251, 252, 253, 254, 255}));
    EXPECT_EQ(Types::m_tbl[5], Types::m_tbl5);
    EXPECT_EQ(Types::m_tbl[227], Types::m_tbl227);
    for (const Types::__charEntry& e : Types::m_tblUnknown)
        EXPECT_EQ(e, (Types::__charEntry{-1, -1, -2, -2, 0, 0xFFFF, 0xFFFF, 0xFFFF}));
}

TEST(UnicodeCharTypes, FastLookupsAgreeWithTheRows)
{
    for (int code = 0; code < 0x10000; ++code) {
        const WORD c = static_cast<WORD>(code);
        const Types::__charEntry& e = Row(code);
        const int type = e.generalType;
        ASSERT_EQ(Types::GetGeneralType(c), type) << code;
        ASSERT_EQ(Types::GetBiDirectionalType(c), e.biDirectionalType) << code;
        ASSERT_EQ(Types::MakeUpper(c), e.upperCase == 0xFFFF ? c : e.upperCase) << code;
        ASSERT_EQ(Types::MakeLower(c), e.lowerCase == 0xFFFF ? c : e.lowerCase) << code;
        ASSERT_EQ(Types::IsUpper(c), type == 10) << code;
        ASSERT_EQ(Types::IsLower(c), type == 11) << code;
        ASSERT_EQ(Types::IsWhiteSpace(c), e.biDirectionalType == 9) << code;
        ASSERT_EQ(Types::IsAlphanumeric(c), type == 2 || type == 3 || (type >= 10 && type <= 14)) << code;
    }
}

// A wrong rule of the generator shows here by name; the digest only says that something is wrong.
TEST(UnicodeCharTypes, DeparturesFromThePublishedData)
{
    const struct {
        WORD c;
        int general, bidi;
    } cases[] = {{0x0009, 7, 10},  {0x09FF, 4, 9},  {0x200B, 4, 9},   {0xFEFF, 4, 10}, {0x20A8, 12, 4},
                 {0x3390, 12, 0},  {0x206A, 7, 10}, {0x202A, 7, 10},  {0x06DD, 0, 1},  {0x005F, 18, 10},
                 {0x005E, 21, 10}, {0x2160, 3, 0},  {0xDB80, 8, 0},   {0xDB7F, 9, 0},  {0xF8FF, 9, 0},
                 {0x20AC, 20, 4},  {0x4E00, 14, 0}, {0x4E01, -1, -1}, {0x9FA5, 14, 0}, {0xFFFC, -1, -1},
                 {0xE301, 14, 1},  {0xF100, 5, 10}, {0x2007, 4, 3},   {0x0660, 2, 5},  {0x06F0, 2, 2}};
    for (const auto& t : cases) {
        EXPECT_EQ(Types::GetGeneralType(t.c), t.general) << std::hex << t.c;
        EXPECT_EQ(Types::GetBiDirectionalType(t.c), t.bidi) << std::hex << t.c;
    }
    EXPECT_EQ(Row(0x2160).digitValue, 1);
    EXPECT_EQ(Row(0x0BF0).digitValue, 10);
    EXPECT_EQ(Row(0x00BC).digitValue, 0);
    EXPECT_EQ(Row(0x09F8).digitValue, -1);
    EXPECT_EQ(Row(0x2182).digitValue, 10000);
    EXPECT_EQ(Row(0x01C5).titleCase, 0xFFFF);
}

TEST(UnicodeCharTypes, MappingAStringLeavesItsOtherHoldersAlone)
{
    StringW text(u"stra\u00DFe \u0131\u00FF \u0448"), other(text);
    Types::MakeUpper(text);
    EXPECT_EQ(text, StringW(u"STRA\u00DFE I\u0178 \u0428"));
    EXPECT_EQ(other, StringW(u"stra\u00DFe \u0131\u00FF \u0448"));
    Types::MakeLower(text);
    EXPECT_EQ(text, StringW(u"stra\u00DFe i\u00FF \u0448"));
    StringW empty;
    Types::MakeUpper(empty);
    EXPECT_TRUE(empty.IsEmpty());
}

} // namespace
