#include "PropertyStoreBytes.h"

#include "corekit/framework/Geometry.h"
#include "corekit/platform/Runtime.h"

#include <atomic>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr GUID someGuid = {0x12345678, 0x9ABC, 0xDEF0, {1, 2, 3, 4, 5, 6, 7, 8}};

template <std::size_t n>
std::string Bytes(const char (&text)[n])
{
    return {text, n - 1};
}

int Int(const CPropertyStore& store, const std::string& name)
{
    int value = -1;
    return store.GetValue(name.c_str(), value) ? value : -1;
}

} // namespace

TEST(PropertyStore, NamesAndTextPassThroughTheCodePage)
{
    CPropertyStore store;
    store.SetValue("caf\xE9", "\x80uro");
    EXPECT_EQ(Written(store).substr(12), Bytes("\4\0c\0a\0f\0\xE9\0"
                                               "\0\0\0\0"
                                               "\x8\0\0\0"
                                               "\xAC\x20u\0r\0o\0"))
        << "code page 1252";
    CPropertyStore back;
    ASSERT_EQ(ReadFrom(back, Written(store)), "nothing");
    StringA narrow;
    CString text;
    StringW wide;
    ASSERT_TRUE(back.GetValue("CAF\xE9", narrow) && back.GetValue("caf\xE9", text) &&
                back.GetValue("caf\xE9", wide));
    EXPECT_STREQ(narrow, "\x80uro");
    EXPECT_STREQ(text, "\x80uro");
    EXPECT_TRUE(wide == u"\u20ACuro");
}

TEST(PropertyStore, SetKeepsTheTypeAndSizeThatAreThere)
{
    CPropertyStore store;
    store.SetValue("A", u"long text");
    store.SetValue("a", 0x00420041);
    StringW text;
    ASSERT_TRUE(store.GetValue("A", text));
    EXPECT_TRUE(text == u"ABng text");
    EXPECT_EQ(store.GetPropertyStoreValueType("A"), ePSString);
    store.SetValue("A", DWORDLONG{7});
    EXPECT_EQ(store.GetPropertyStoreValueType("A"), ePSString);
    EXPECT_EQ(store.GetPropertyStoreValueCount(), 1);
    store.SetBinaryValue("A", "xy", 2); // too short for what follows
    store.SetValue("A", -1);
    store.SetValue("A", someGuid);
    CByteArray bytes;
    ASSERT_TRUE(store.GetValue("A", bytes));
    ASSERT_EQ(bytes.GetSize(), 2);
    EXPECT_EQ(bytes[0], 0x78);
    EXPECT_EQ(Int(store, "A"), 0x5678);
}

TEST(PropertyStore, MissesLeaveTheOutputUntouched)
{
    CPropertyStore store;
    store.SetBinaryValue("three", "abc", 3);
    int number = 5;
    long wideNumber = 6;
    StringW text = u"kept";
    CByteArray bytes;
    bytes.Add(9);
    RECT rect = {1, 2, 3, 4};
    char four[5] = "keep";
    EXPECT_EQ(store.GetValue("none", number), 0);
    EXPECT_EQ(store.GetValue("none", wideNumber), 0);
    EXPECT_EQ(store.GetValue("none", text), 0);
    EXPECT_EQ(store.GetValue("none", bytes), 0);
    EXPECT_EQ(store.GetValue("three", rect), 0);
    EXPECT_EQ(store.GetBinaryValue("three", four, 4), 0);
    EXPECT_EQ(store.GetBinaryValue("three", four, 2), 0);
    EXPECT_TRUE(number == 5 && wideNumber == 6 && text == u"kept" && bytes.GetSize() == 1 &&
                rect.bottom == 4);
    EXPECT_STREQ(four, "keep");
    EXPECT_EQ(store.GetPropertyStoreValueType("none"), ePSNone);
    EXPECT_EQ(store.GetPropertyStoreValueType(1), ePSNone);
    EXPECT_TRUE(store.GetPropertyStoreName(-1).IsEmpty());
    ASSERT_EQ(store.GetValue("three", text), 1);
    EXPECT_TRUE(text == StringW(u"\u6261")) << "the odd byte is left out";
}

TEST(PropertyStore, EveryKindComesBackAsItWasSet)
{
    CPropertyStore store;
    store.SetValue("long", -5L);
    store.SetValue("ulong", 0xFFFFFFFEUL);
    store.SetValue("uint", 4000000000U);
    store.SetValue("big", DWORDLONG{1} << 40);
    store.SetValue("point", POINT{1, -2});
    store.SetValue("size", SIZE{3, 4});
    store.SetValue("rect", RECT{1, 2, 3, -4});
    long l = 0;
    unsigned long ul = 0;
    unsigned u = 0;
    DWORDLONG big = 0;
    CPoint point;
    CSize size;
    CRect rect;
    EXPECT_TRUE(store.GetValue("long", l) && store.GetValue("ulong", ul) && store.GetValue("uint", u) &&
                store.GetValue("big", big));
    EXPECT_TRUE(l == -5 && ul == 0xFFFFFFFE && u == 4000000000U && big == DWORDLONG{1} << 40);
    EXPECT_TRUE(store.GetValue("point", point) && store.GetValue("size", size) &&
                store.GetValue("rect", rect));
    EXPECT_TRUE(point == CPoint(1, -2) && size == CSize(3, 4) && rect == CRect(1, 2, 3, -4));
    EXPECT_EQ(store.GetPropertyStoreValueType("long"), ePSInteger);
    EXPECT_EQ(store.GetPropertyStoreValueType("rect"), ePSBinary);
}

// Against a plain list searched from its end, across the sizes at which the search changes its method. Copies
// stay what they were.
TEST(PropertyStore, LookUpsAgreeWithAListThroughSetsDeletesReadsAndCopies)
{
    struct Both {
        CPropertyStore store;
        std::vector<std::pair<unsigned, int>> list; // name, value

        int Last(unsigned name) const
        {
            for (std::size_t i = list.size(); i-- > 0;)
                if (list[i].first == name) return static_cast<int>(i);
            return -1;
        }
    };
    for (const unsigned names : {12u, 60u, 700u}) {
        std::mt19937 random(names);
        const auto text = [&](unsigned name) {
            std::string s = "Name" + std::string(name % 20, 'x') + std::to_string(name);
            for (char& c : s) c = random() % 2 ? static_cast<char>(std::toupper(c)) : c;
            return s;
        };
        const auto check = [&](const Both& both) {
            const unsigned asked = random() % names;
            const int found = both.Last(asked), count = both.store.GetPropertyStoreValueCount();
            ASSERT_EQ(Int(both.store, text(asked)),
                      found < 0 ? -1 : both.list[static_cast<std::size_t>(found)].second);
            ASSERT_EQ(count, static_cast<int>(both.list.size()));
            if (count == 0) return;
            const auto index = static_cast<int>(random() % static_cast<unsigned>(count));
            const std::string there = text(both.list[static_cast<std::size_t>(index)].first);
            ASSERT_EQ(_stricmp(both.store.GetPropertyStoreValueName(index), there.c_str()), 0);
        };
        Both now, before;
        for (int step = 0; step < 6000; ++step) {
            const unsigned name = random() % names;
            const int at = now.Last(name);
            // Now and then mostly deletes, so that the list shrinks through the sizes that it grew through.
            const auto what = random() % 100 + (step / 1500 % 2 ? 25 : 0);
            if (what < 65) {
                now.store.SetValue(text(name).c_str(), step);
                if (at >= 0)
                    now.list[static_cast<std::size_t>(at)].second = step;
                else
                    now.list.push_back({name, step});
            } else if (what > 66) {
                now.store.DeleteValue(text(name).c_str());
                if (at >= 0) now.list.erase(now.list.begin() + at);
            } else if (what == 65 && now.list.size() < names) {
                ASSERT_EQ(ReadFrom(now.store, Written(now.store)), "nothing");
                const auto half = static_cast<std::ptrdiff_t>(now.list.size());
                now.list.insert(now.list.end(), now.list.begin(), now.list.begin() + half);
            } else {
                before = now;
            }
            check(now);
            check(before);
        }
        while (now.store.GetPropertyStoreValueCount() > 0)
            now.store.DeleteValue(now.store.GetPropertyStoreValueName(0));
        now.list.clear();
        now.store.SetValue(text(1).c_str(), 1);
        now.list.push_back({1, 1});
        check(now);
        check(before);
    }
}

TEST(PropertyStore, NamesDifferOnlyByTheLettersAToZ)
{
    for (const char* name : {"@", "[", "`", "{", "\xC0", "abcdefg@", "abcdefghi[", "12345678`", "A", "z"}) {
        for (int flip : {0x20, 0x80, 0x01}) {
            CPropertyStore store;
            std::string other = name;
            other.back() = static_cast<char>(other.back() ^ flip);
            store.SetValue(name, 1);
            EXPECT_EQ(Int(store, other) == 1, _stricmp(name, other.c_str()) == 0) << name << " " << other;
        }
    }
}

TEST(PropertyStore, CopiesAreDeepAndIndependent)
{
    CPropertyStore inner, store;
    inner.SetValue("x", 1);
    store.SetPropertyStore("in", inner);
    store.SetPropertyStore("also", inner);
    CPropertyStore copy(store);
    inner.SetValue("x", 2);
    copy.SetPropertyStore("IN", inner);
    copy.SetValue("new", 1);
    copy.DeletePropertyStore(1);
    CPropertyStore first = store.GetPropertyStore("in"), second = store.GetPropertyStore(1),
                   changed = copy.GetPropertyStore(0);
    EXPECT_EQ(Int(first, "x"), 1);
    EXPECT_EQ(Int(second, "x"), 1);
    EXPECT_EQ(Int(changed, "x"), 2);
    EXPECT_EQ(store.GetPropertyStoreValueCount(), 0);
    EXPECT_EQ(store.GetPropertyStoreCount(), 2);
    EXPECT_EQ(copy.GetPropertyStoreCount(), 1);
    EXPECT_STREQ(copy.GetPropertyStoreName(0), "in");
    store.SetPropertyStore("itself", store);
    store.SetPropertyStore("itself", store); // the held one is replaced by a copy of its holder
    EXPECT_EQ(store.GetPropertyStore("itself").GetPropertyStore("itself").GetPropertyStoreCount(), 2);
    CPropertyStore& self = store;
    store = self;
    EXPECT_EQ(Written(store).size(), 12u) << "assigned to itself";
}

TEST(PropertyStore, NestedStoresAndListsOfNames)
{
    CPropertyStore store, nested;
    CArray<StringA, const char*> names;
    names.Add("there before");
    store.SetPropertyStore("b", nested);
    store.SetPropertyStore("a", nested);
    store.SetValue("v", 1);
    store.GetPropertyStoreNames(names);
    store.GetPropertyStoreValueNames(names);
    ASSERT_EQ(names.GetSize(), 4);
    EXPECT_TRUE(names[1] == "b" && names[2] == "a" && names[3] == "v");
    EXPECT_EQ(store.PropertyStoreExists("A"), 1);
    EXPECT_EQ(store.PropertyStoreExists("v"), 0);
    store.DeletePropertyStore("nobody");
    store.DeletePropertyStore(7);
    store.DeletePropertyStore("B");
    EXPECT_EQ(store.PropertyStoreExists("b"), 0);
    EXPECT_STREQ(store.GetPropertyStoreName(0), "a");
    EXPECT_EQ(store.GetPropertyStore("gone").GetPropertyStoreCount(), 0);
    store.Empty();
    EXPECT_EQ(store.GetPropertyStoreCount() + store.GetPropertyStoreValueCount(), 0);
}

TEST(PropertyStore, NestingTooDeepToReadAgainIsNotWritten)
{
    CPropertyStore store, back;
    for (int level = 0; level < 200000; ++level) {
        CPropertyStore outer;
        outer.SetPropertyStore("in", store);
        store = outer;
        if (level == CPropertyStore::deepestNesting - 1) {
            EXPECT_EQ(ReadFrom(back, Written(store)), "nothing");
        }
        if (level == CPropertyStore::deepestNesting || level == 199999) {
            CMemoryStream stream(0, 4096);
            EXPECT_EQ(Thrown([&] { store.WriteStream(stream); }), "Data is corrupt.");
            EXPECT_EQ(stream.GetSize(), 0u);
        }
    }
}

TEST(PropertyStore, EndOfAPathIsACopyLikeAnyOther)
{
    CPropertyStore a, b, c, store;
    c.SetValue("z", 3);
    b.SetValue("y", 2);
    b.SetPropertyStore("c", c);
    a.SetPropertyStore("b", b);
    store.SetPropertyStore("a", a);
    CPropertyStore end = store.GetPropertyStore("a").GetPropertyStore("B");
    CPropertyStore deep = store.GetPropertyStore(0).GetPropertyStore(0).GetPropertyStore("c");
    CPropertyStore kept = end, assigned;
    assigned = deep;
    EXPECT_EQ(store.GetPropertyStore("a").GetPropertyStore("none").GetPropertyStoreValueCount(), 0);
    EXPECT_EQ(store.GetPropertyStore("none").GetPropertyStore(5).GetPropertyStoreCount(), 0);

    end.SetValue("y", 20); // reaches neither the whole nor another copy
    deep.SetValue("z", 30);
    EXPECT_EQ(ReadFrom(deep, Written(a)), "nothing"); // behind what is there
    EXPECT_EQ(Int(deep, "z"), 30);
    CPropertyStore inside = store.GetPropertyStore("a").GetPropertyStore("b");
    EXPECT_EQ(Int(inside, "y"), 2);
    a.SetValue("x", 1);
    store.SetPropertyStore("a", a);
    store.Empty();
    EXPECT_EQ(Int(end, "y"), 20);
    EXPECT_EQ(Written(kept), Written(b));
    EXPECT_EQ(Written(inside), Written(b));
    EXPECT_EQ(Written(assigned), Written(c));
    CPropertyStore& same = inside;
    inside = same;
    EXPECT_EQ(inside.GetPropertyStoreCount(), 0);
}

TEST(PropertyStore, ThreadsMayShareAStoreAndItsCopies)
{
    CPropertyStore deeper, inner, store;
    deeper.SetValue("y", 1);
    inner.SetValue("x", 1);
    inner.SetPropertyStore("deeper", deeper);
    store.SetPropertyStore("in", inner);
    const auto work = [&](int thread) {
        for (int i = 0; i < 500; ++i) {
            const std::string name = "t" + std::to_string(thread) + "." + std::to_string(i);
            store.SetValue(name.c_str(), i);
            EXPECT_EQ(Int(store, name), i);
            CPropertyStore mine = store.GetPropertyStore("in");
            mine.SetValue("x", i);
            store.SetPropertyStore("in", mine);
            EXPECT_EQ(Int(mine, "x"), i);
            EXPECT_EQ(store.GetPropertyStore("in").GetPropertyStore("deeper").GetPropertyStoreValueType("y"),
                      ePSInteger);
            if (i % 3 == 0) store.DeleteValue(name.c_str());
        }
    };
    std::thread threads[] = {std::thread(work, 0), std::thread(work, 1), std::thread(work, 2)};
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(store.GetPropertyStoreValueCount(), 3 * (500 - 167));
}

// The thread that made a store needs no lock to look until another one changes it, and then does.
TEST(PropertyStore, WhoMadeAStoreMayLookWhileOthersChangeIt)
{
    CPropertyStore old;
    for (int i = 0; i < 40; ++i) old.SetValue(("name " + std::to_string(i)).c_str(), 0);
    for (int round = 0; round < 100; ++round) {
        CPropertyStore store = old;
        std::atomic<bool> isDone = false;
        std::thread other([&] {
            for (int i = 1; i <= 50; ++i) store.SetValue("name 7", i);
            store.Empty();
            store.SetValue("NAME 7", 51);
            isDone = true;
        });
        for (int last = 0, seen = 0; !isDone; last = seen) {
            seen = Int(store, "name 7"); // -1 between the last two
            EXPECT_TRUE(seen == -1 || seen >= last) << seen << " after " << last;
        }
        other.join();
        EXPECT_EQ(Int(store, "name 7"), 51);
        EXPECT_EQ(store.GetPropertyStoreValueCount(), 1);
    }
    EXPECT_EQ(Int(old, "name 7"), 0);
}
