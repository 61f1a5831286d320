#include "corekit/commands/ui/CommandList.h"

#include "corekit/foundation/AcceleratorResource.h"
#include "corekit/framework/Module.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/stores/PropertyStore.h"

#include <gtest/gtest.h>

namespace {

constexpr ACCEL defaultKeys[] = {{FVIRTKEY, 0x70, 1}, {FVIRTKEY, 0x71, 2}};
constexpr ACCEL fixedKeys[] = {{FVIRTKEY | FCONTROL, 'Q', 1}};
constexpr auto defaultTable = AcceleratorResource(defaultKeys);
constexpr auto fixedTable = AcceleratorResource(fixedKeys);
constexpr BinaryResource resources[] = {{"#9", "#500", defaultTable}, {"#9", "#501", fixedTable}};

// Key and command of each row.
std::string KeysIn(HACCEL table)
{
    ACCEL rows[16];
    std::string text;
    for (int i = 0, count = CopyAcceleratorTableA(table, rows, 16); i < count; ++i)
        text += std::to_string(rows[i].key) + ":" + std::to_string(rows[i].cmd) + " ";
    return text;
}

} // namespace

TEST(CommandList, BuildsTablesFromDefaultsAndTheUsersKeys)
{
    AfxSetResources(resources);
    CPropertyStore store;
    {
        CCommandList list;
        CCustomAcceleratorTable custom(500);
        ACCEL keys[] = {{FVIRTKEY, 'A', 1}, {FVIRTKEY, 'B', 1}, {FVIRTKEY, 'C', 99}};
        for (ACCEL& key : keys) custom.m_entries.Add(key);
        CCommandList::CustomTableArray tables;
        tables.Add(custom);
        list.SetCustomAccelTableArray(tables);
        EXPECT_EQ(list.SaveAcceleratorTables(&store), 1);
    }
    CCommandList list;
    EXPECT_EQ(list.LoadAcceleratorTables(nullptr), 0);
    list.RegisterAcceleratorTable("Main", 500, 501);
    list.RegisterAcceleratorTable("Other", 501, 502);
    EXPECT_EQ(list.LoadAcceleratorTables(&store), 1);
    HACCEL* const keys = list.GetAcceleratorTable(500);
    ASSERT_NE(keys, nullptr);
    EXPECT_EQ(KeysIn(*keys), "66:1 113:2 65:1 81:1 ");
    for (UINT id = 1000; id < 1100; ++id) list.RegisterAcceleratorTable("More", id, 0);
    EXPECT_EQ(list.GetAcceleratorTable(500), keys); // hosts keep the place
    EXPECT_EQ(*list.GetAcceleratorTable(1000), nullptr);
    EXPECT_EQ(list.GetAcceleratorTable(7), nullptr);
    CCommandList::AccelArray defaults;
    CCommandList::GetDefaultAccelTable(500, defaults);
    EXPECT_EQ(defaults.GetSize(), 2);
    AfxSetResources({});
}

TEST(CommandList, KeepsWhatWasRegisteredFirst)
{
    CCommandList list;
    list.RegisterCommand(5, 10, 11, 3, "Play!Speed", "Faster");
    list.RegisterCommand(5, 1, 1, 1, "x", "x");
    CCmdItem item;
    ASSERT_EQ(list.GetItemByCommand(5, item), 1);
    EXPECT_EQ(item.m_strName, "Faster");
    EXPECT_EQ(item.GetCatagory(), "Play");
    EXPECT_EQ(list.GetItemByCommand(6, item), 0);

    CUIntArray buttons, found;
    buttons.Add(5);
    list.RegisterDefaultToolbar(1, "Standard", buttons);
    list.RegisterDefaultToolbar(1, "Again", found);
    UINT id = 0;
    CString name;
    EXPECT_EQ(list.GetDefaultToolbarCount(), 1);
    EXPECT_EQ(list.GetDefaultToolbarByIndex(1, id, name, found), 0);
    EXPECT_EQ(list.GetDefaultToolbarByIndex(0, id, name, found), 1);
    EXPECT_EQ(name, "Standard");
    EXPECT_EQ(found.GetSize(), 1);
}
