#include "corekit/foundation/KeyNames.h"
#include "corekit/platform/Keyboard.h"

#include <gtest/gtest.h>

TEST(KeyNames, VirtualKeysAndWhetherAcceleratorsCanUseThem)
{
    const struct {
        unsigned key;
        int usable;
        const char* name;
    } cases[] = {
        {'A', 1, "A"},
        {'Z', 1, "Z"},
        {'0', 1, "0"},
        {'9', 1, "9"},
        {1, 0, "Left Mouse Button"},
        {3, 1, "Control-Break"},
        {13, 1, "Enter"},
        {20, 1, "Caps Lock"},
        {40, 1, "Down Arrow"},
        {41, 0, "Select"},
        {42, 0, "Virtual Key - 42"},
        {47, 0, "Help"},
        {93, 0, "Applications Key"},
        {105, 1, "Numeric 9"},
        {108, 1, "Separator"},
        {111, 1, "Numeric /"},
        {112, 1, "F1"},
        {135, 1, "F24"},
        {136, 0, "Virtual Key - 136"},
        {145, 1, "Scroll Lock"},
        {165, 0, "Right Alt"},
        {186, 1, ";"},
        {192, 1, "'"},
        {219, 1, "["},
        {220, 1, "\\"},
        {222, 1, R"(" or #)"},
        {223, 1, "`"},
        {0, 0, "Virtual Key - 0"},
        {'a', 1, "Numeric 1"},
        {256 + 'A', 0, "Virtual Key - 321"},
        {256 + 13, 0, "Virtual Key - 269"},
    };
    for (const auto& c : cases) {
        CString name;
        EXPECT_EQ(GetKeyNameFromVirtual(c.key, name) != 0, c.usable != 0) << c.key;
        EXPECT_STREQ(name, c.name) << c.key;
    }
}

TEST(KeyNames, Accelerators)
{
    const struct {
        int flags;
        WORD key;
        const char* name;
    } cases[] = {
        {FVIRTKEY | FALT | FCONTROL | FSHIFT, 112, "Shift + Ctrl + Alt + F1"},
        {FVIRTKEY | FALT, 123, "Alt + F12"},
        {FVIRTKEY, 8, "BackSpace"},
        {FVIRTKEY, 27, "Esc"},
        {FVIRTKEY, 40, "Down Arrow"},
        {FVIRTKEY, 46, "Delete"},
        {FVIRTKEY, 96, "Num 0"},
        {FVIRTKEY, 106, "' * '"},
        {FVIRTKEY, 108, "Enter"},
        {FVIRTKEY, 145, "Scroll Lock"},
        {FVIRTKEY | FCONTROL, 'Q', "Ctrl + Q"},
        {FVIRTKEY, 124, "F13"},
        {FVIRTKEY, 17, "Right Ctrl"},
        {FVIRTKEY, 0xFF, ""},
        {FVIRTKEY, 0x141, ""},
        {FSHIFT, 'x', "Shift + 'x'"},
    };
    for (const auto& c : cases)
        EXPECT_STREQ(GetAcceleratorKeyName({static_cast<BYTE>(c.flags), c.key, 0}), c.name) << c.key;
}

TEST(KeyNames, ANameIsCutToItsBuffer)
{
    char name[6] = "xxxxx";
    EXPECT_EQ(GetKeyNameTextA(0x53 << 16 | 1 << 24, name, 4), 3);
    EXPECT_STREQ(name, "Del");
    EXPECT_EQ(GetKeyNameTextA(0x7F << 16, name, 4), 0);
}
