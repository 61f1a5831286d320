#include "corekit/unicode/tables/ArabicJoiningClasses.h"
#include "corekit/unicode/tables/UrduIndicJoiningClasses.h"

#include <gtest/gtest.h>
#include <map>

namespace {

using Arabic = CArabicJoiningClasses;
using Urdu = CUrduIndicJoiningClasses;

TEST(JoiningClasses, FormsFollowTheJoiningType)
{
    const struct {
        WORD c, nominal, right, left, medial;
        const char* why;
    } cases[] = {
        {0x0628, 0xFE8F, 0xFE90, 0xFE91, 0xFE92, "dual joining"},
        {0x0627, 0xFE8D, 0xFE8E, 0xFE8D, 0xFE8D, "right joining"},
        {0x0621, 0xFE80, 0xFE80, 0xFE80, 0xFE80, "non-joining with a form"},
        {0x0640, 0x0640, 0x0640, 0x0640, 0x0640, "join causing"},
        {0x06CC, 0x06CC, 0x06CC, 0x06CC, 0x06CC, "dual joining without forms"},
        {0x0676, 0x0676, 0x0677, 0x0676, 0x0676, "right joining, its own form"},
        {0x0600, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, "no row"},
        {0x06D5, 0x06D5, 0x06D5, 0x06D5, 0x06D5, "non-joining without forms"},
        {0x0041, 0x0041, 0x0041, 0x0041, 0x0041, "outside the block"},
        {0x0728, 0x0728, 0x0728, 0x0728, 0x0728, "same low byte, outside the block"},
    };
    for (const auto& t : cases) {
        EXPECT_EQ(Arabic::NominalForm(t.c), t.nominal) << t.why;
        EXPECT_EQ(Arabic::RightForm(t.c), t.right) << t.why;
        EXPECT_EQ(Arabic::LeftForm(t.c), t.left) << t.why;
        EXPECT_EQ(Arabic::MedialForm(t.c), t.medial) << t.why;
    }
}

TEST(JoiningClasses, TypesAndWhatTheyCause)
{
    const struct {
        WORD c;
        int type;
        bool causing, right, left, transparent;
    } cases[] = {
        {0x0627, 0, true, true, false, false},   {0x0628, 2, true, true, true, false},
        {0x0640, 3, true, true, true, false},    {0x200D, 3, true, true, true, false},
        {0x200C, 4, false, false, false, false}, {0x064B, 5, false, false, false, true},
        {0x007E, 4, false, false, false, true},  {0x0600, 4, false, false, false, false},
        {0xFFFF, 4, false, false, false, false}, {0x0653, 4, false, false, false, false},
    };
    for (const auto& t : cases) {
        EXPECT_EQ(Arabic::GetJoiningType(t.c), t.type) << t.c;
        EXPECT_EQ(Arabic::IsJoinCausing(t.c), t.causing) << t.c;
        EXPECT_EQ(Arabic::IsRightJoinCausing(t.c), t.right) << t.c;
        EXPECT_EQ(Arabic::IsLeftJoinCausing(t.c), t.left) << t.c;
        EXPECT_EQ(Arabic::IsTransparent(t.c), t.transparent) << t.c;
    }
    EXPECT_TRUE(Urdu::IsTransparent(0x007E));
    EXPECT_EQ(Urdu::GetJoiningType(0x0628), 4);
}

TEST(JoiningClasses, CountsByTypeAndTheMovedBlock)
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
