#include "corekit/commands/KeyTables.h"

#include "corekit/stores/PropertyStore.h"

#include <gtest/gtest.h>

#include <string>

using namespace corekit::detail;

namespace {

// Rows as text: the key's letter and the command's number.
std::vector<ACCEL> Keys(const char* text)
{
    std::vector<ACCEL> keys;
    for (; *text; text += text[2] ? 3 : 2)
        keys.push_back({1, static_cast<WORD>(text[0]), static_cast<WORD>(text[1] - '0')});
    return keys;
}

std::string TextOf(std::span<const ACCEL> keys)
{
    std::string text;
    for (const ACCEL& key : keys) {
        if (!text.empty()) text += ' ';
        text += static_cast<char>(key.key);
        text += static_cast<char>('0' + key.cmd);
    }
    return text;
}

CCustomAcceleratorTable Table(UINT id, const char* keys)
{
    CCustomAcceleratorTable table(id);
    for (ACCEL key : Keys(keys)) table.m_entries.Add(key);
    return table;
}

TEST(KeyTables, CustomKeysReplaceThenAddAndFixedOnesStayLast)
{
    const struct {
        const char *defaults, *custom, *fixed, *merged;
    } cases[] = {
        {"A1 B2", "", "", "A1 B2"},
        {"A1 B2", "X1", "", "X1 B2"},
        {"A1 B2", "X1 Y1", "", "Y1 B2 X1"}, // the last one takes the default's place
        {"A1 C1", "X1", "", "A1 X1"},       // the last default key of the command goes
        {"A1 C1", "X1 Y1", "", "A1 Y1 X1"},
        {"A1", "X3", "", "A1"}, // no such command
        {"A1", "A1", "", "A1"},
        {"A1", "X1", "F1 G2", "X1 F1 G2"},
        {"", "X1", "F1", "F1"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(TextOf(mergedKeys(Keys(c.defaults), Keys(c.custom), Keys(c.fixed))), c.merged)
            << c.defaults << " + " << c.custom << " + " << c.fixed;
}

TEST(KeyTables, WhatIsSavedIsLoadedBehindWhatIsThere)
{
    CustomAcceleratorTables saved, loaded;
    CCustomAcceleratorTable first = Table(7, "A1 B2"), second = Table(9, "");
    saved.Add(first);
    saved.Add(second);
    CPropertyStore store;
    saveCustomKeys(store, saved);
    CByteArray bytes;
    ASSERT_TRUE(store.GetValue("Custom Key Table 0 Data", bytes));
    const BYTE expected[] = {1, 0, 'A', 0, 1, 0, 1, 0, 'B', 0, 2, 0};
    ASSERT_EQ(bytes.GetSize(), 12);
    EXPECT_TRUE(std::equal(expected, expected + 12, bytes.GetData()));

    loaded.Add(second);
    loadCustomKeys(store, loaded);
    ASSERT_EQ(loaded.GetSize(), 3);
    EXPECT_EQ(loaded[1].m_nTableID, 7u);
    EXPECT_EQ(TextOf({loaded[1].m_entries.GetData(), 2}), "A1 B2");
    EXPECT_EQ(loaded[2].m_entries.GetSize(), 0);
}

TEST(KeyTables, WildCountsAndSizesAreCutToWhatIsStored)
{
    const struct {
        int count, size, stored, tables, keys;
    } cases[] = {{0, 6, 6, 0, 0},   {-5, 6, 6, 0, 0}, {2147483647, 6, 6, 1, 1}, {1, 2147483647, 13, 1, 2},
                 {1, -6, 12, 1, 0}, {1, 5, 6, 1, 0},  {1, 6, 12, 1, 1}};
    for (const auto& c : cases) {
        CPropertyStore store;
        store.SetValue("Custom Key Table Count", c.count);
        store.SetValue("Custom Key Table 0 ID", 7);
        store.SetValue("Custom Key Table 0 Data Size", c.size);
        const std::string data(static_cast<std::size_t>(c.stored), 'x');
        store.SetBinaryValue("Custom Key Table 0 Data", data.data(), static_cast<DWORD>(data.size()));
        CustomAcceleratorTables tables;
        loadCustomKeys(store, tables);
        ASSERT_EQ(tables.GetSize(), c.tables) << c.count;
        if (c.tables) {
            EXPECT_EQ(tables[0].m_entries.GetSize(), c.keys) << c.size;
        }
    }
}

} // namespace
