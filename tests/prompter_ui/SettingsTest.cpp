#include "view/SettingsFile.h"

#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <fstream>

using namespace prompter;

namespace {

TEST(Settings, ComeBackFromTheFileAndKeepWithinTheirBounds)
{
    const TempFolder folder;
    const std::string path = folder / "corekit/prompter.settings";
    EXPECT_EQ(LoadSettings(path).session.style, PromptStyle{});
    Settings settings;
    settings.session.style.size = 100000;
    settings.session.style.faces = {"Amiri", "DejaVu Sans"};
    settings.session.style.brackets = Brackets::asTyped;
    settings.session.style.back = RGB(1, 2, 3);
    settings.session.rate.bySeconds = true;
    settings.outputs = {{"HDMI-1", {true, false, Turn::threeQuarters}}};
    settings.desk = {1, 2, 500, 400};
    settings.newsFolder = "/srv/news";
    settings.speed = -15;
    ASSERT_TRUE(SaveSettings(path, settings));
    const Settings read = LoadSettings(path);
    settings.session.style.size = 400;
    EXPECT_EQ(read.session.style, settings.session.style);
    EXPECT_TRUE(read.session.rate.bySeconds);
    ASSERT_EQ(read.outputs.size(), 1u);
    EXPECT_EQ(read.outputs[0].display, "HDMI-1");
    EXPECT_TRUE(read.outputs[0].form.mirrorLeftRight);
    EXPECT_EQ(read.outputs[0].form.turn, Turn::threeQuarters);
    EXPECT_EQ(read.desk.bottom, 400);
    EXPECT_EQ(read.newsFolder, "/srv/news");
    EXPECT_EQ(read.speed, -15);
    settings.desk = {1, 2, 300, 400}; // too narrow to work with
    ASSERT_TRUE(SaveSettings(path, settings));
    EXPECT_EQ(LoadSettings(path).desk.bottom, Settings().desk.bottom);
}

TEST(Settings, TwoPromptersWithOneFileKeepEachOthersChanges)
{
    const TempFolder folder;
    const std::string path = folder / "s";
    Settings start;
    start.session.style.faces = {"Amiri"};
    start.keys.SetValue("Custom Key Table Count", 0);
    ASSERT_TRUE(SaveSettings(path, start));
    Settings one = start, two = start;
    one.session.style.size = 96;
    one.remote = {"127.0.0.1", 4711, "sesame"};
    one.keys.SetValue("Custom Key Table Count", 7);
    ASSERT_TRUE(SaveSettings(path, one, start));
    two.newsFolder = "/srv/news";
    two.session.style.faces = {"Noto Sans", "Amiri"};
    ASSERT_TRUE(SaveSettings(path, two, start));
    Settings read = LoadSettings(path);
    EXPECT_EQ(read.session.style.size, 96);
    EXPECT_EQ(read.remote, one.remote);
    EXPECT_EQ(read.newsFolder, "/srv/news");
    EXPECT_EQ(read.session.style.faces, two.session.style.faces);
    int count = 0;
    EXPECT_TRUE(read.keys.GetValue("Custom Key Table Count", count) && count == 7);
}

TEST(Settings, ADamagedFileGivesDefaults)
{
    const TempFolder folder;
    std::ofstream(folder / "s", std::ios::binary) << "no settings at all, but bytes";
    EXPECT_EQ(LoadSettings(folder / "s").session.style, PromptStyle{});
}

} // namespace
