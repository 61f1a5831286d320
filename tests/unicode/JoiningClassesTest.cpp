#include "corekit/unicode/tables/ArabicJoiningClasses.h"
#include "corekit/unicode/tables/UrduIndicJoiningClasses.h"
#include "tests/support/CaseRows.h"

#include <gtest/gtest.h>
#include <map>

namespace {

using Arabic = CArabicJoiningClasses;
using Urdu = CUrduIndicJoiningClasses;

TEST(JoiningClasses, FormsFollowTheJoiningType)
{
    for (CaseRow row : CaseRows(TEST_DATA "/joining.tsv", "forms")) {
        const WORD c = row.Number<WORD>();
        for (const auto form : {Arabic::NominalForm, Arabic::RightForm, Arabic::LeftForm, Arabic::MedialForm})
            EXPECT_EQ(form(c), row.Number()) << row.Line();
    }
}

TEST(JoiningClasses, EachTypeJoinsOnItsOwnSides)
{
    for (CaseRow row : CaseRows(TEST_DATA "/joining.tsv", "type")) {
        const WORD c = row.Number<WORD>();
        EXPECT_EQ(Arabic::GetJoiningType(c), row.Number()) << row.Line();
        EXPECT_EQ(Arabic::IsJoinCausing(c), row.Number()) << row.Line();
        EXPECT_EQ(Arabic::IsRightJoinCausing(c), row.Number()) << row.Line();
        EXPECT_EQ(Arabic::IsLeftJoinCausing(c), row.Number()) << row.Line();
        EXPECT_EQ(Arabic::IsTransparent(c), row.Number()) << row.Line();
    }
    EXPECT_TRUE(Urdu::IsTransparent(0x007E));
    EXPECT_EQ(Urdu::GetJoiningType(0x0628), 4);
}

TEST(JoiningClasses, UrduIsArabicMovedToThePrivateBlock)
{
    std::map<int, int> types, forms;
    for (int i = 0; i < 256; ++i) {
        const auto &a = Arabic::m_tbl[i], &u = Urdu::m_tbl[i];
        ++types[a.joiningType];
        const bool own = a.baseForm == 0x0600 + i;
        ++forms[own ? 1 : a.baseForm == 0 ? 0 : a.baseForm == 0xFFFF ? -1 : 2];
        EXPECT_EQ(u.joiningType, a.joiningType) << i;
        EXPECT_EQ(u.baseForm, own ? 0xE300 + i : a.baseForm) << i;
    }
    EXPECT_EQ(types, (std::map<int, int>{{-1, 62}, {0, 49}, {2, 79}, {3, 1}, {4, 56}, {5, 9}}));
    EXPECT_EQ(forms, (std::map<int, int>{{-1, 62}, {0, 73}, {1, 46}, {2, 75}}));
}

} // namespace
