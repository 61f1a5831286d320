#include "corekit/commands/KeyAssignments.h"

#include "corekit/platform/Keyboard.h"

#include <gtest/gtest.h>

#include <string>

using namespace corekit::detail;

namespace {

constexpr ACCEL defaults[] = {{FVIRTKEY, 'A', 1}, {FVIRTKEY, 'B', 1}, {FVIRTKEY, 'C', 2}};
constexpr ACCEL everywhere[] = {{FVIRTKEY, 'G', 9}};

std::string KeysOf(const KeyAssignments& keys, UINT table, WORD command)
{
    std::string text;
    for (const ACCEL& key : keys.KeysOf(table, command, defaults)) text += static_cast<char>(key.key);
    return text;
}

int Holder(const KeyAssignments& keys, WORD key, bool sameCategory = true)
{
    const ACCEL wanted{FVIRTKEY | FNOINVERT, key, 3};
    return keys.HolderOf(500, wanted, defaults, everywhere, [=](WORD) { return sameCategory; }).value_or(0);
}

} // namespace

TEST(KeyAssignments, TheFirstNewKeyBringsTheDefaultOnesAlong)
{
    KeyAssignments keys;
    EXPECT_EQ(KeysOf(keys, 500, 1), "AB");
    keys.Assign(500, {FVIRTKEY | FNOINVERT, 'X', 1}, defaults);
    EXPECT_EQ(KeysOf(keys, 500, 1), "XBA"); // the newest first
    EXPECT_EQ(KeysOf(keys, 501, 1), "AB");
    keys.Assign(500, {FVIRTKEY | FNOINVERT | FCONTROL, 'Y', 1}, defaults);
    EXPECT_EQ(KeysOf(keys, 500, 1), "YXBA");
    EXPECT_TRUE(keys.Remove(500, 1, "Ctrl + Y"));
    EXPECT_FALSE(keys.Remove(500, 1, "Ctrl + Y"));
    EXPECT_FALSE(keys.Remove(500, 2, "C")); // a default key stays
    EXPECT_EQ(KeysOf(keys, 500, 1), "XBA");
    keys.Assign(501, {FVIRTKEY, 'Z', 2}, defaults);
    keys.ResetAll();
    EXPECT_EQ(KeysOf(keys, 500, 1) + KeysOf(keys, 501, 2), "ABC");
}

TEST(KeyAssignments, AKeyThatIsTakenHasAHolder)
{
    KeyAssignments keys;
    EXPECT_EQ(Holder(keys, 'A'), 1);
    EXPECT_EQ(Holder(keys, 'G'), 9);
    EXPECT_EQ(Holder(keys, 'Q'), 0);
    keys.Assign(500, {FVIRTKEY, 'Q', 1}, {});
    EXPECT_EQ(Holder(keys, 'Q'), 1);
    EXPECT_EQ(Holder(keys, 'Q', false), 0); // a command of another category
    EXPECT_EQ(Holder(keys, 'A'), 0);        // its command has other keys now
    EXPECT_EQ(Holder(keys, 'C'), 2);
}
