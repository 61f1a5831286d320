#include "corekit/unicode/tables/UnicodeCharTypes.h"

#include "corekit/foundation/StringW.h"
#include "tests/support/CaseRows.h"
#include "tests/support/Digest.h"

#include <gtest/gtest.h>
#include <set>

namespace {

using Types = CUnicodeCharTypes;

const Types::__charEntry& Row(int c) { return Types::m_tbl[c >> 8][c & 0xFF]; }

TEST(UnicodeCharTypes, NoFactOfTheTableHasChanged)
{
    Digest digest;
    int rows = 0, mirrored = 0;
    for (int c = 0; c < 0x10000; ++c) {
        const Types::__charEntry& e = Row(c);
        for (const int field : {e.generalType, e.biDirectionalType, e.decimalValue, e.digitValue, e.mirrored,
                                int{e.upperCase}, int{e.lowerCase}, int{e.titleCase}})
            digest.Add(field);
        rows += Row(c).generalType != -1;
        mirrored += Row(c).mirrored;
    }
    EXPECT_EQ(digest.Value(), 0xAC5638822A2CB93F);
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
TEST(UnicodeCharTypes, CharactersClassedApartFromUnicodeStaySo)
{
    for (CaseRow row : CaseRows(TEST_DATA "/char_types.tsv", "class")) {
        const WORD c = row.Number<WORD>();
        EXPECT_EQ(Types::GetGeneralType(c), row.Number()) << row.Line();
        EXPECT_EQ(Types::GetBiDirectionalType(c), row.Number()) << row.Line();
    }
    for (CaseRow row : CaseRows(TEST_DATA "/char_types.tsv", "digit")) {
        const int c = row.Number();
        EXPECT_EQ(Row(c).digitValue, row.Number()) << row.Line();
    }
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
