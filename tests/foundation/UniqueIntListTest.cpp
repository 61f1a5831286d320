#include "corekit/foundation/UniqueIntList.h"

#include <gtest/gtest.h>
#include <thread>

TEST(UniqueIntList, RemovingAnAbsentValueDropsTheLastOne)
{
    CUniqueIntList list;
    for (const int value : {5, 6, 5, 7}) list.Add(value);
    list.Remove(5); // the first of them
    EXPECT_EQ(list.GetTopItem(), 6);
    EXPECT_TRUE(list.IsPresent(5));
    list.Remove(99);
    EXPECT_FALSE(list.IsPresent(7));
    EXPECT_TRUE(list.IsPresent(6) && list.IsPresent(5));
}

TEST(UniqueIntList, AnEmptyListMayCountBelowNone)
{
    CUniqueIntList list;
    list.Remove(1);
    EXPECT_FALSE(list.IsEmpty());
    EXPECT_FALSE(list.IsPresent(0));
    EXPECT_EQ(list.GetTopItem(), 0);
    list.Add(3);
    EXPECT_TRUE(list.IsEmpty());
    list.Add(4);
    EXPECT_EQ(list.GetTopItem(), 4);
}

TEST(UniqueIntList, GrowthAndCopiesKeepEveryNumber)
{
    CUniqueIntList list;
    for (int i = 0; i < 130; ++i) list.Add(i);
    CUniqueIntList copy(list), assigned;
    list.Empty();
    assigned = copy;
    copy.Remove(0);
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(copy.GetTopItem(), 1);
    for (const int value : {0, 63, 64, 65, 128, 129}) EXPECT_TRUE(assigned.IsPresent(value)) << value;
}

TEST(UniqueIntList, ThreadsMayShareAList)
{
    CUniqueIntList list;
    const auto work = [&](int thread) {
        for (int i = 0; i < 1000; ++i) {
            list.Add(thread * 1000 + i);
            if (i % 2) list.Remove(thread * 1000 + i);
        }
    };
    std::thread other(work, 1);
    work(2);
    other.join();
    for (int i = 0; i < 1000; ++i)
        EXPECT_EQ(list.IsPresent(1000 + i) && list.IsPresent(2000 + i), i % 2 == 0) << i;
}
