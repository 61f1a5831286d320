#include "corekit/platform/KeyboardLayouts.h"

#include "XServer.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/Locale.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

std::vector<HKL> layouts()
{
    std::vector<HKL> list(static_cast<std::size_t>(GetKeyboardLayoutList(0, nullptr)));
    EXPECT_EQ(GetKeyboardLayoutList(static_cast<int>(list.size()), list.data()),
              static_cast<int>(list.size()));
    return list;
}

std::vector<WORD> languages()
{
    std::vector<WORD> all;
    for (const HKL layout : layouts()) all.push_back(LOWORD(reinterpret_cast<UINT_PTR>(layout)));
    return all;
}

TEST(KeyboardLayouts, AreTheGroupsOfTheServer)
{
    XServer server;
    ASSERT_TRUE(server.IsRunning());
    const struct {
        const char* arguments;
        std::vector<WORD> languages;
    } cases[] = {
        {"-layout us,ru,br,th", {0x0409, 0x0419, 0x0416, 0x041E}},
        {"-layout in,in,in,in -variant ,ben,tam_tamilnet,urd-phonetic", {0x0439, 0x0445, 0x0449, 0x0820}},
        {"-layout ch,ch,us -variant fr,de_mac,dvorak", {0x100C, 0x0807, 0x0409}},
        {"-layout gb", {0x0809}},
        {"-layout epo", {LOWORD(GetSystemDefaultLCID())}}, // a language without a number
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(server.SetLayouts(c.arguments)) << c.arguments;
        EXPECT_EQ(languages(), c.languages) << c.arguments;
    }
}

TEST(KeyboardLayouts, ActivationSwitchesTheServerAndRefusesStrangers)
{
    XServer server;
    ASSERT_TRUE(server.IsRunning());
    ASSERT_TRUE(server.SetLayouts("-layout us,us,de -variant ,dvorak,"));
    const std::vector<HKL> list = layouts();
    ASSERT_EQ(list.size(), 3u);
    EXPECT_NE(list[0], list[1]); // one language, two layouts
    EXPECT_EQ(GetKeyboardLayout(0), list[0]);
    EXPECT_EQ(ActivateKeyboardLayout(list[2], 0), list[0]);
    EXPECT_EQ(ActivateKeyboardLayout(list[1], 0), list[2]);
    EXPECT_EQ(GetKeyboardLayout(0), list[1]);
    EXPECT_EQ(ActivateKeyboardLayout(nullptr, 0), list[1]);
    SetLastError(0);
    EXPECT_EQ(ActivateKeyboardLayout(reinterpret_cast<HKL>(0x04190419), 0), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_KEYBOARD_HANDLE);
    EXPECT_EQ(GetKeyboardLayout(0), list[1]);
    HKL two[2] = {};
    EXPECT_EQ(GetKeyboardLayoutList(2, two), 2);
    EXPECT_EQ(two[1], list[1]);
}

TEST(KeyboardLayouts, OneByLocaleWithoutADisplayOrOnceItIsGone)
{
    const std::vector<WORD> own{LOWORD(GetSystemDefaultLCID())};
    unsetenv("DISPLAY");
    EXPECT_EQ(languages(), own);
    EXPECT_EQ(GetKeyboardLayout(0), layouts().front());
    XServer server;
    ASSERT_TRUE(server.SetLayouts("-layout de,fr"));
    EXPECT_EQ(languages().size(), 2u);
    server.End();
    EXPECT_EQ(languages(), own);
    EXPECT_EQ(ActivateKeyboardLayout(layouts().front(), 0), layouts().front());
}

} // namespace
