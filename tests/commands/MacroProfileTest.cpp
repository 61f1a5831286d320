#include "corekit/commands/MacroProfile.h"
#include "corekit/commands/CmdItem.h"

#include "corekit/stores/PropertyStore.h"

#include <gtest/gtest.h>

using namespace corekit;
using namespace corekit::detail;

namespace {

TEST(MacroProfile, ButtonsComeBackAsTheyWereSavedAndReplaceWhatStood)
{
    std::vector<MacroButton> buttons(12);
    buttons[0].name = "Blank";
    buttons[0].command = "blank screen";
    buttons[0].bitmap = {1, 2, 3};
    buttons[11].description = "last";
    CPropertyStore store;
    store.SetValue("Name 77", "stale");
    SaveMacroButtons(store, buttons);
    EXPECT_EQ(store.GetPropertyStoreValueCount(), 60);

    const std::vector<MacroButton> read = LoadMacroButtons(store);
    ASSERT_EQ(read.size(), 12u);
    EXPECT_STREQ(read[0].name, "Blank");
    EXPECT_STREQ(read[0].command, "blank screen");
    EXPECT_EQ(read[0].bitmap, buttons[0].bitmap);
    EXPECT_TRUE(read[1].bitmap.empty());
    EXPECT_STREQ(read[11].description, "last");
}

TEST(MacroProfile, AProfileHasAsManyButtonsAsItsValuesFill)
{
    CPropertyStore store;
    for (const char* name : {"Name 0", "Cmd 0", "Desc 0", "Has Bmp 0"}) store.SetValue(name, "x");
    EXPECT_TRUE(LoadMacroButtons(store).empty());
    store.SetValue("Bmp 0", "x");
    ASSERT_EQ(LoadMacroButtons(store).size(), 1u);
    EXPECT_TRUE(LoadMacroButtons(store)[0].bitmap.empty()) << "a flag that is not 1 announces no bitmap";
}

TEST(CmdItem, TheCategoryIsWhatStandsInFrontOfTheFirstMark)
{
    const struct {
        const char *path, *category;
    } cases[] = {{"File!Open!Recent", "File"}, {"File", ""}, {"!x", ""}, {"", ""}};
    for (const auto& c : cases) {
        CCmdItem item;
        item.m_strCategory = c.path;
        EXPECT_STREQ(item.GetCatagory(), c.category);
    }
}

} // namespace
