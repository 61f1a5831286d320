#include "model/Recovery.h"

#include "../TempFolder.h"

#include <gtest/gtest.h>

using namespace prompter;

namespace {

TEST(Recovery, UnsavedTextIsOfferedToItsOwnScriptUntilItIsDropped)
{
    const TempFolder folder;
    const std::string store = folder / "state/unsaved";
    const Recovery one(store, "/scripts/one.txt"), two(store, "/scripts/two.txt");
    EXPECT_EQ(one.Left(), std::nullopt);
    const std::u16string text = u"\u0633\u0644\u0627\u0645\n\xD800 odd\n";
    ASSERT_TRUE(one.Keep(u"first"));
    ASSERT_TRUE(one.Keep(text));
    EXPECT_EQ(one.Left(), text);
    EXPECT_EQ(two.Left(), std::nullopt);
    EXPECT_EQ(Recovery(store, "/scripts/../scripts/one.txt").Left(), text) << "the same file by another name";
    one.Drop();
    EXPECT_EQ(one.Left(), std::nullopt);
}

TEST(Recovery, ADamagedFileIsNoOffer)
{
    const TempFolder folder;
    const Recovery recovery(folder.Path(), "a.txt");
    ASSERT_TRUE(recovery.Keep(u"text"));
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path()))
        std::filesystem::resize_file(entry.path(), std::filesystem::file_size(entry.path()) / 2);
    EXPECT_EQ(recovery.Left(), std::nullopt);
}

} // namespace
