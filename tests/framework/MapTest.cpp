#include "corekit/framework/Map.h"

#include <gtest/gtest.h>

#include <map>
#include <vector>

namespace {
using WordMap = CMap<WORD, WORD, WORD, WORD>;

std::vector<int> Walk(const WordMap& map)
{
    std::vector<int> keys;
    for (POSITION at = map.GetStartPosition(); at;) {
        WORD key = 0, value = 0;
        map.GetNextAssoc(at, key, value);
        keys.push_back(key);
    }
    return keys;
}
} // namespace

TEST(Map, WalkGoesByBucketNewestFirst)
{
    WordMap map;
    for (WORD key : {0x20, 0x10, 0x11, 0x130, 0x00}) map.SetAt(key, key);
    // Buckets are (key >> 4) modulo 17: 0x130 falls into that of 0x20.
    EXPECT_EQ(Walk(map), (std::vector{0x00, 0x11, 0x10, 0x130, 0x20}));
}

TEST(Map, AgreesWithAnOrderedMapUnderRandomUse)
{
    WordMap map(3);
    map.InitHashTable(5);
    std::map<WORD, WORD> model;
    unsigned seed = 1;
    for (int i = 0; i < 20000; ++i) {
        seed = seed * 1664525u + 1013904223u;
        const WORD key = static_cast<WORD>(seed >> 20 & 0x1FF);
        if (seed & 0x80000000u) {
            map[key] = static_cast<WORD>(i);
            model[key] = static_cast<WORD>(i);
        } else {
            ASSERT_EQ(map.RemoveKey(key), model.erase(key) == 1);
        }
    }
    ASSERT_EQ(map.GetCount(), static_cast<int>(model.size()));
    for (const auto& [key, expected] : model) {
        WORD value = 0;
        ASSERT_TRUE(map.Lookup(key, value));
        EXPECT_EQ(value, expected);
    }
    EXPECT_EQ(Walk(map).size(), model.size());
}

TEST(Map, ElementJustReturnedMayBeRemoved)
{
    WordMap map;
    for (WORD key = 0; key < 300; ++key) map[key] = 1;
    int visited = 0;
    for (POSITION at = map.GetStartPosition(); at; ++visited) {
        WORD key = 0, value = 0;
        map.GetNextAssoc(at, key, value);
        EXPECT_TRUE(map.RemoveKey(key));
    }
    EXPECT_EQ(visited, 300);
    EXPECT_TRUE(map.IsEmpty());
    EXPECT_EQ(map.GetStartPosition(), nullptr);
}

TEST(Map, TableIsNotChangedOnceItHoldsSomething)
{
    WordMap map;
    map[1] = 2;
    map.InitHashTable(0);
    EXPECT_EQ(map.GetHashTableSize(), 17u);
    map.RemoveAll();
    map.InitHashTable(0, FALSE);
    EXPECT_EQ(map.GetHashTableSize(), 1u);
    EXPECT_EQ(map[7], 0);
}

TEST(Map, TextKeysCompareByContent)
{
    CMapStringToOb map;
    const std::string first = "Arial", second = "Arial";
    CObject* found = &map;
    map.SetAt(first.c_str(), &map);
    map[nullptr] = nullptr;
    EXPECT_TRUE(map.Lookup(second.c_str(), found));
    EXPECT_EQ(found, &map);
    EXPECT_FALSE(map.Lookup("arial", found));
    EXPECT_TRUE(map.Lookup("", found));
    EXPECT_EQ(map.GetCount(), 2);
}
