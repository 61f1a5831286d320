#include "model/Recovery.h"

#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <memory>

using namespace prompter;

namespace {

TEST(Recovery, UnsavedTextIsOfferedToItsOwnScriptUntilItIsDropped)
{
    const TempFolder folder;
    const std::string store = folder / "state/unsaved";
    std::optional<Recovery> one(std::in_place, store, "/scripts/one.txt");
    const Recovery two(store, "/scripts/two.txt");
    EXPECT_EQ(one->Left(), std::nullopt);
    const std::u16string text = u"\u0633\u0644\u0627\u0645\n\xD800 odd\n";
    ASSERT_TRUE(one->Keep(u"first"));
    ASSERT_TRUE(one->Keep(text));
    EXPECT_EQ(one->Left(), text);
    EXPECT_EQ(two.Left(), std::nullopt);
    one.emplace(store, "/scripts/../scripts/one.txt");
    EXPECT_EQ(one->Left(), text) << "the same file by another name";
    one->Drop();
    EXPECT_EQ(one->Left(), std::nullopt);
}

TEST(Recovery, PromptersWithOneScriptKeepATextEach)
{
    const TempFolder folder;
    const auto open = [&] { return std::make_unique<Recovery>(folder.Path(), "a.txt"); };
    auto one = open();
    ASSERT_TRUE(one->Keep(u"one"));
    auto two = open();
    EXPECT_EQ(two->Left(), std::nullopt) << "the first one still runs";
    ASSERT_TRUE(two->Keep(u"two"));
    one->Drop(); // saved
    one.reset();
    two.reset(); // lost
    one = open();
    EXPECT_EQ(one->Left(), u"two");
    EXPECT_EQ(open()->Left(), std::nullopt);
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
