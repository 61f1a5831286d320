#include "corekit/windows/BarRecords.h"

#include "corekit/stores/PropertyStore.h"

#include <gtest/gtest.h>

using namespace corekit::detail;

namespace {

const auto everyBar = [](UINT) { return true; };

TEST(BarRecords, ALayoutComesBackScaledToTheScreenOfToday)
{
    BarRecord toolbar;
    toolbar.id = 100;
    toolbar.floating = true;
    toolbar.horizontal = false;
    toolbar.position = {50, 60};
    toolbar.mruWidth = 77;
    toolbar.hasDocking = true;
    toolbar.docking = {59419, {0, 0, 200, 40}, 0x1000, {500, 400}};
    BarRecord dockBar;
    dockBar.id = 59419;
    dockBar.isDockBar = true;
    dockBar.children = {0, 100, 0};
    CPropertyStore store;
    store.SetValue("stale", 1);
    saveBarLayout(store, {{1000, 800}, {toolbar, dockBar}});
    EXPECT_EQ(store.GetPropertyStoreValueCount(), 2);

    BarLayout read;
    ASSERT_TRUE(loadBarLayout(store, {2000, 400}, everyBar, read));
    ASSERT_EQ(read.bars.size(), 2u);
    const BarRecord& bar = read.bars[0];
    EXPECT_TRUE(bar.floating && !bar.horizontal && bar.visible && bar.hasDocking);
    EXPECT_EQ(bar.position, CPoint(100, 30));
    EXPECT_EQ(bar.mruWidth, 77u);
    EXPECT_EQ(bar.docking.rect, CRect(0, 0, 400, 20));
    EXPECT_EQ(bar.docking.floatPosition, CPoint(1000, 200));
    EXPECT_EQ(read.bars[1].children, dockBar.children);
    EXPECT_EQ(read.bars[1].position, CPoint(-1, -1)) << "no position is none on any screen";
}

TEST(BarRecords, EmptyDockBarsAreNotKeptAndNotCounted)
{
    BarRecord empty, moved;
    empty.isDockBar = moved.isDockBar = true;
    empty.id = 1;
    moved.id = 2;
    moved.position = {0, 0};
    CPropertyStore store;
    saveBarLayout(store, {{10, 10}, {empty, moved}});
    int count = 0;
    EXPECT_TRUE(store.GetValue("Count", count));
    EXPECT_EQ(count, 1);
    UINT id = 0;
    EXPECT_TRUE(store.GetPropertyStore("Bar 0").GetValue("ID", id));
    EXPECT_EQ(id, 2u);
}

TEST(BarRecords, BarsThatAreGoneAndRecordsWithoutAnIdAreSkipped)
{
    CPropertyStore store, bar;
    const auto add = [&](const char* name, int id) {
        CPropertyStore one;
        if (id) one.SetValue("ID", id);
        store.SetPropertyStore(name, one);
    };
    add("Bar 0", 5);
    add("Bar 1", 0);
    add("Bar 2", 59393);
    add("Bar 3", 7);
    add("Bar 9", 8); // behind a gap
    BarLayout read;
    EXPECT_FALSE(loadBarLayout(store, {10, 10}, everyBar, read)) << "no count, no screen";
    store.SetValue("Count", 2147483647);
    store.SetValue("Screen Size", SIZE{0, 0});
    ASSERT_TRUE(loadBarLayout(
        store, {10, 10}, [](UINT id) { return id != 5; }, read));
    ASSERT_EQ(read.bars.size(), 2u);
    EXPECT_EQ(read.bars[0].id, 7u);
    EXPECT_EQ(read.bars[1].id, 8u);
    EXPECT_EQ(read.bars[0].mruWidth, 32767u);
    EXPECT_TRUE(read.bars[0].visible && read.bars[0].horizontal);
}

} // namespace
