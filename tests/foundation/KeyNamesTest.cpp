#include "corekit/foundation/KeyNames.h"
#include "corekit/platform/Keyboard.h"
#include "tests/support/TabbedCases.h"

#include <gtest/gtest.h>

namespace {

struct NameCase {
    std::string flags;
    WORD key;
    std::string name;
};

std::vector<NameCase> casesOf(const std::string& kind)
{
    std::vector<NameCase> cases;
    for (const auto& fields : TabbedCases(TEST_DATA "/key_names.tsv")) {
        if (fields.at(0) != kind) continue;
        cases.push_back({fields.at(1), static_cast<WORD>(std::stoul(fields.at(2))),
                         fields.size() > 3 ? fields[3] : std::string()});
    }
    EXPECT_GT(cases.size(), 10u);
    return cases;
}

BYTE flagsOf(const std::string& names)
{
    int flags = 0;
    for (const std::string& name : Split(names, '+'))
        flags |= name == "virtkey" ? FVIRTKEY : name == "alt" ? FALT : name == "control" ? FCONTROL : FSHIFT;
    return static_cast<BYTE>(flags);
}

} // namespace

TEST(KeyNames, EveryVirtualKeyHasItsNameAndUse)
{
    for (const NameCase& c : casesOf("virtual")) {
        CString name;
        EXPECT_EQ(GetKeyNameFromVirtual(c.key, name) != 0, c.flags == "usable") << c.key;
        EXPECT_EQ(name, c.name.c_str()) << c.key;
    }
}

TEST(KeyNames, AcceleratorsAreNamedWithTheirModifiers)
{
    for (const NameCase& c : casesOf("accelerator"))
        EXPECT_EQ(GetAcceleratorKeyName({flagsOf(c.flags), c.key, 0}), c.name.c_str()) << c.key;
}

TEST(KeyNames, ANameIsCutToItsBuffer)
{
    char name[6] = "xxxxx";
    EXPECT_EQ(GetKeyNameTextA(0x53 << 16 | 1 << 24, name, 4), 3);
    EXPECT_STREQ(name, "Del");
    EXPECT_EQ(GetKeyNameTextA(0x7F << 16, name, 4), 0);
}
