#include "corekit/framework/Array.h"
#include "tests/support/Thrown.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {
// Counts the objects alive, and moves badly if moved by bytes.
struct Counted {
    Counted() { ++alive; }
    Counted(const Counted& other) : text(other.text) { ++alive; }
    Counted(Counted&& other) noexcept : text(std::move(other.text)) { ++alive; }
    Counted& operator=(const Counted&) = default;
    Counted& operator=(Counted&&) = default;
    Counted& operator=(const char* value)
    {
        text = std::string(value);
        return *this;
    }
    ~Counted() { --alive; }
    std::string text;
    static inline int alive = 0;
};

template <class Array>
std::vector<int> Values(const Array& array)
{
    std::vector<int> values;
    for (int i = 0; i < array.GetSize(); ++i) values.push_back(array[i]);
    return values;
}
} // namespace

// The store moves exactly when the capacity is passed.
TEST(Array, GrowsByAnEighthWithinFourAndAThousandAndTwentyFour)
{
    struct {
        int size, growBy, step;
    } const cases[] = {{8, 0, 4}, {800, 0, 100}, {16000, 0, 1024}, {8, 3, 3}};
    for (const auto& c : cases) {
        CArray<Counted, const Counted&> array;
        array.SetSize(1);
        array.SetSize(c.size, c.growBy);
        array.FreeExtra();
        array.SetSize(c.size + 1);
        const Counted* store = array.GetData();
        array.SetSize(c.size + c.step);
        EXPECT_EQ(array.GetData(), store) << c.size;
        array.SetSize(c.size + c.step + 1);
        EXPECT_NE(array.GetData(), store) << c.size;
    }
    EXPECT_LE(Counted::alive, 1); // the spare element may exist
}

TEST(Array, NewElementsAreZeroAlsoAfterShrinking)
{
    CArray<int, int> array;
    array.SetSize(50);
    for (int i = 0; i < 50; ++i) array[i] = i + 1;
    array.SetSize(10);
    array.SetSize(50);
    EXPECT_EQ(array[9], 10);
    for (int i = 10; i < 50; ++i) EXPECT_EQ(array[i], 0);
}

TEST(Array, IndicesOutsideReachNoMemory)
{
    CArray<int, int> array;
    array.Add(5);
    for (int index : {-1, 1, INT_MIN, INT_MAX}) {
        array[index] = 99;
        array.SetAt(index, 99);
        EXPECT_EQ(array.GetAt(index), 0) << index;
        array.RemoveAt(index);
    }
    array.SetAtGrow(-1, 7);
    array.InsertAt(-1, 7);
    array.InsertAt(0, 7, -1);
    EXPECT_EQ(Values(array), std::vector{5});
    array.RemoveAt(0, INT_MAX);
    EXPECT_TRUE(array.IsEmpty());
}

TEST(Array, InsertAndRemoveShift)
{
    CArray<int, int> array;
    for (int i = 1; i <= 3; ++i) array.Add(i);
    array.InsertAt(1, 9, 2);
    EXPECT_EQ(Values(array), (std::vector{1, 9, 9, 2, 3}));
    array.InsertAt(7, 4);
    EXPECT_EQ(Values(array), (std::vector{1, 9, 9, 2, 3, 0, 0, 4}));
    array.RemoveAt(1, 2);
    array.InsertAt(2, &array);
    EXPECT_EQ(Values(array), (std::vector{1, 2, 1, 2, 3, 0, 0, 4, 3, 0, 0, 4}));
    EXPECT_EQ(array.Append(array), 12);
    EXPECT_EQ(array.GetUpperBound(), 23);
    EXPECT_EQ(array[23], 4);
}

TEST(Array, OwnElementAsArgumentWhileTheStoreMoves)
{
    CArray<Counted, const Counted&> array;
    array.SetSize(1);
    array[0] = "a text that is too long to lie inside the object";
    for (int i = 0; i < 40; ++i) array.Add(array[0]);
    array.InsertAt(0, array[40], 30);
    for (int i = 0; i < array.GetSize(); ++i) ASSERT_EQ(array[i].text, array[70].text) << i;
    EXPECT_FALSE(array[0].text.empty());
}

TEST(Array, EveryElementIsDestroyedOnce)
{
    const int before = Counted::alive;
    {
        CArray<Counted, const char*> array;
        for (int i = 0; i < 100; ++i) array.Add("x");
        array.InsertAt(50, "y", 10);
        array.RemoveAt(20, 30);
        array.SetSize(40);
        EXPECT_EQ(Counted::alive - before, 40);
        CArray<Counted, const char*> other;
        other.Copy(array);
        array.RemoveAll();
        EXPECT_EQ(Counted::alive - before, 40);
        EXPECT_EQ(array.GetData(), nullptr);
    }
    EXPECT_EQ(Counted::alive, before);
}

TEST(Array, ImpossibleSizesThrowAndChangeNothing)
{
    struct Huge {
        char bytes[1LL << 33];
    };
    CArray<Huge, const Huge&> large; // the byte count would pass 64 bits
    CDWordArray array;
    array.Add(1);
    EXPECT_EQ(ThrownClass([&] { large.SetSize(INT_MAX); }), RUNTIME_CLASS(CMemoryException));
    EXPECT_EQ(ThrownClass([&] { array.SetAtGrow(INT_MAX, 1); }), RUNTIME_CLASS(CMemoryException));
    EXPECT_EQ(ThrownClass([&] { array.InsertAt(0, 1, INT_MAX); }), RUNTIME_CLASS(CMemoryException));
    EXPECT_EQ(large.GetSize(), 0);
    EXPECT_EQ(array.GetSize(), 1);
}
