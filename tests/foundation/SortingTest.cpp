#include "corekit/foundation/Sorting.h"
#include "corekit/foundation/KeyedArrays.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace {

// Compares by the first letter alone, so that equal elements stay distinguishable by the second.
int ByFirstLetter(void* calls, const void* a, const void* b)
{
    ++*static_cast<int*>(calls);
    return *static_cast<const char*>(a) - *static_cast<const char*>(b);
}

std::string SortedPairs(std::string pairs)
{
    int calls = 0;
    QuickSort(pairs.data(), static_cast<unsigned>(pairs.size() / 2), 2, &calls, ByFirstLetter);
    return pairs;
}

int Contrary(void*, const void*, const void*) { return 1; }

} // namespace

TEST(Sorting, EqualElementsComeOutInTheOrderTheStepsGive)
{
    const struct {
        const char *given, *sorted;
    } cases[] = {
        {"", ""},
        {"a1", "a1"},
        {"b1a1b2", "a1b2b1"},                         // short: the first greatest goes last
        {"a1a2a3a4", "a2a3a4a1"},                     // short: an element is swapped with the end each time
        {"c1c2c3c4c5c6c7c8c9", "c5c2c3c4c1c6c7c8c9"}, // nine: the middle one becomes the pivot
        {"b1a1b2a2b3a3b4a4b5a5", "a3a1a2a4a5b4b1b5b3b2"}, // a partition and two short parts
    };
    for (const auto& c : cases) EXPECT_EQ(SortedPairs(c.given), c.sorted) << c.given;
}

TEST(Sorting, EveryWidthAndShapeOfDataIsSorted)
{
    std::mt19937 random(7);
    for (const int count : {2, 8, 9, 100, 5000}) {
        std::vector<std::uint64_t> wide(static_cast<std::size_t>(count));
        for (auto& v : wide) v = random() % 50;
        auto expected = wide;
        std::sort(expected.begin(), expected.end());
        for (int shape = 0; shape < 3; ++shape) {
            if (shape == 1) std::sort(wide.begin(), wide.end());
            if (shape == 2) std::sort(wide.rbegin(), wide.rend());
            QuickSort(wide.data(), static_cast<unsigned>(count), sizeof wide[0], nullptr,
                      [](void*, const void* a, const void* b) {
                          const auto x = *static_cast<const std::uint64_t*>(a),
                                     y = *static_cast<const std::uint64_t*>(b);
                          return x < y ? -1 : x > y;
                      });
            EXPECT_EQ(wide, expected);
        }
    }
}

TEST(Sorting, AnInconsistentComparisonStaysInsideTheArray)
{
    std::vector<char> bytes(1000, 'x');
    QuickSort(bytes.data(), 1000, 1, nullptr, Contrary);
    QuickSort(bytes.data(), 100, 10, nullptr, Contrary);
    CArray<int, int> numbers;
    for (int i = 0; i < 100; ++i) numbers.Add(i % 2 ? INT_MIN + i : INT_MAX - i); // differences that wrap
    SortArray(numbers);
    EXPECT_EQ(numbers.GetSize(), 100);
}

TEST(Sorting, TextsSortWithoutRegardToCase)
{
    CStringArray narrow;
    for (const char* text : {"C", "b", "", "a"}) narrow.Add(text);
    SortArray(narrow);
    EXPECT_STREQ(narrow[0] + narrow[1] + narrow[2] + narrow[3], "abC");
    CArray<StringW, const WCHAR*> wide;
    for (const WCHAR* text : {u"Č", u"c", u"B"}) wide.Add(text);
    SortArray(wide);
    EXPECT_EQ(wide[0] + wide[1], u"Bc");
}

TEST(KeyedArrays, ALaterPairShadowsAnEarlierOne)
{
    CStringIntArray numbers;
    int found = 99;
    EXPECT_EQ(numbers.FindString("a", found), 0);
    EXPECT_EQ(found, 99);
    numbers.Add("a", 1);
    numbers.Add("A", 3);
    numbers.Add("a", 2);
    EXPECT_EQ(numbers.FindString("a", found), 1);
    EXPECT_EQ(found, 2);
    EXPECT_EQ(numbers.GetSize(), 3);
    CString name;
    EXPECT_EQ(numbers.FindInteger(3, name), 1);
    EXPECT_STREQ(name, "A");
}

TEST(KeyedArrays, RemovingMovesTheRestDown)
{
    const _GUID first{1, 2, 3, {4}}, second{1, 2, 3, {5}};
    CStringCLSIDArray classes;
    classes.Add("one", first);
    classes.Add("two", second);
    classes.RemoveAt(0);
    CString name;
    EXPECT_EQ(classes.FindClassID(first, name), 0);
    EXPECT_EQ(classes.FindClassID(second, name), 1);
    EXPECT_STREQ(classes.GetString(0), "two");
    EXPECT_TRUE(classes.IsKindOf(RUNTIME_CLASS(CObject)));
}
