// What was read is unpacked at the first look: the memory before it, and what must not be seen of it.
#include "PropertyStoreBytes.h"

#include <algorithm>
#include <atomic>
#include <gtest/gtest.h>
#include <malloc.h>
#include <string>
#include <thread>
#include <vector>

namespace {

template <std::size_t n>
std::string Bytes(const char (&text)[n])
{
    return {text, n - 1};
}

std::string Number(DWORD value) { return {reinterpret_cast<const char*>(&value), sizeof value}; }

const std::string version = Number(256), none = Number(0);
const std::string emptyValue = Bytes("\0\0") + Number(ePSBinary) + none;
const std::string emptyStore = Bytes("\0\0") + version + none + none;
const std::string storeOfOne = Bytes("\0\0") + version + none + Number(1) + emptyValue;

std::string Repeated(const std::string& element, std::size_t times)
{
    std::string all;
    all.reserve(element.size() * times);
    for (std::size_t i = 0; i < times; ++i) all += element;
    return all;
}

std::size_t Allocated()
{
    const auto heap = ::mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

// Looks at the heap each time that somebody reads.
class WatchedStream : public CMemoryStream {
public:
    explicit WatchedStream(const std::string& bytes)
        : CMemoryStream(bytes.data(), static_cast<int>(bytes.size()))
    {
    }
    std::size_t most = 0;

protected:
    void InternalRead(void* buffer, DWORD count) override
    {
        most = std::max(most, Allocated());
        CMemoryStream::InternalRead(buffer, count);
    }
};

// Two levels of stores with values at each, and in a second place the same again.
void FillTree(CPropertyStore& store)
{
    CPropertyStore middle, inner;
    for (int i = 0; i < 40; ++i) {
        inner.SetValue(("inner " + std::to_string(i)).c_str(), i);
        middle.SetValue(("middle " + std::to_string(i)).c_str(), u"text");
        if (i % 10 == 0) middle.SetPropertyStore(("in " + std::to_string(i)).c_str(), inner);
    }
    store.SetPropertyStore("a", middle);
    store.SetPropertyStore("empty", CPropertyStore());
    store.SetPropertyStore("b", middle);
    store.SetValue("caf\xE9", 1);
}

} // namespace

TEST(PropertyStorePacked, ReadingTakesLittleMoreMemoryThanTheStreamHasBytes)
{
    const struct {
        const char* what;
        std::string bytes;
        const char* message;
    } cases[] = {
        {"values", version + none + Number(4000000) + Repeated(emptyValue, 4000000), "nothing"},
        {"stores", version + Number(1000000) + Repeated(emptyStore, 1000000) + none, "nothing"},
        {"stores of one value", version + Number(500000) + Repeated(storeOfOne, 500000) + none, "nothing"},
        {"values cut short", version + none + Number(4000001) + Repeated(emptyValue, 4000000),
         "[Memory Stream] Read past end of buffer"},
    };
    for (const auto& c : cases) {
        for (const bool filled : {false, true}) {
            CPropertyStore store;
            if (filled) store.SetValue("there before", 1);
            WatchedStream stream(c.bytes);
            const std::size_t before = Allocated();
            EXPECT_EQ(Thrown([&] { store.ReadStream(stream); }), c.message) << c.what;
            CPropertyStore copy = store;
            const std::size_t most = std::max(stream.most, Allocated());
            EXPECT_LT(most - before, c.bytes.size() + (16 << 20)) << c.what;
            EXPECT_EQ(stream.GetCurrentPos(), c.bytes.size()) << c.what;
        }
    }
}

TEST(PropertyStorePacked, WhatIsSeenDoesNotDependOnWhenOneLooks)
{
    CPropertyStore tree, packed;
    FillTree(tree);
    const std::string bytes = Written(tree);
    ReadFrom(packed, bytes);
    CPropertyStore copy = packed, changed = packed, twice = packed;
    ReadFrom(twice, bytes);
    changed.DeletePropertyStore("B");
    changed.SetValue("caf\xE9", 2);
    EXPECT_EQ(changed.GetPropertyStoreCount(), 2);
    EXPECT_EQ(twice.GetPropertyStoreCount(), 6);
    EXPECT_EQ(twice.GetPropertyStoreValueCount(), 2);
    CPropertyStore inner = packed.GetPropertyStore("b").GetPropertyStore("IN 30");
    packed.Empty(); // the inner one keeps what it needs
    int value = 0;
    ASSERT_TRUE(inner.GetValue("inner 29", value));
    EXPECT_EQ(value, 29);
    EXPECT_EQ(Written(copy), bytes);
}

TEST(PropertyStorePacked, ThreadsMayLookIntoCopiesAtOnce)
{
    CPropertyStore tree;
    FillTree(tree);
    const std::string bytes = Written(tree);
    for (int round = 0; round < 50; ++round) {
        CPropertyStore packed;
        ReadFrom(packed, bytes);
        CPropertyStore copies[] = {packed, packed, packed};
        std::atomic<int> ready = 0, found = 0;
        const auto look = [&](CPropertyStore& store) {
            for (++ready; ready < 3;) std::this_thread::yield();
            for (const char* name : {"a", "b"}) {
                CPropertyStore inner = store.GetPropertyStore(name).GetPropertyStore("in 20");
                int value = 0;
                if (inner.GetValue("inner 17", value) && value == 17) ++found;
            }
            store.DeletePropertyStore("a");
        };
        std::vector<std::thread> threads;
        for (CPropertyStore& copy : copies) threads.emplace_back([&] { look(copy); });
        for (std::thread& thread : threads) thread.join();
        EXPECT_EQ(found, 6);
        EXPECT_EQ(Written(packed), bytes);
    }
}
