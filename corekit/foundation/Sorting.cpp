#include "corekit/foundation/Sorting.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t shortSortLimit = 8;
constexpr int stackLimit = 30; // the smaller part is always done first, so this is never reached

template <class Word>
void swapAs(std::byte* a, std::byte* b)
{
    Word x, y;
    std::memcpy(&x, a, sizeof x);
    std::memcpy(&y, b, sizeof y);
    std::memcpy(a, &y, sizeof y);
    std::memcpy(b, &x, sizeof x);
}

class Sorter {
public:
    Sorter(std::size_t width, void* context, int (*compare)(void*, const void*, const void*))
        : m_width(width), m_context(context), m_compare(compare)
    {
    }

    // From the first to the last element, both included.
    void Sort(std::byte* lo, std::byte* hi)
    {
        std::pair<std::byte*, std::byte*> later[stackLimit];
        int depth = 0;
        for (;;) {
            if (static_cast<std::size_t>(hi - lo) / m_width + 1 <= shortSortLimit) {
                ShortSort(lo, hi);
                if (depth == 0) return;
                std::tie(lo, hi) = later[--depth];
                continue;
            }
            const auto [lowEnd, highStart] = Partition(lo, hi);
            std::pair<std::byte*, std::byte*> smaller{lo, lowEnd}, greater{highStart, hi};
            if (lowEnd - lo >= hi - highStart) std::swap(smaller, greater);
            if (greater.first < greater.second) later[depth++] = greater;
            if (smaller.first < smaller.second) {
                std::tie(lo, hi) = smaller;
            } else if (depth > 0) {
                std::tie(lo, hi) = later[--depth];
            } else {
                return;
            }
        }
    }

private:
    int Compare(const std::byte* a, const std::byte* b) const { return m_compare(m_context, a, b); }

    void Swap(std::byte* a, std::byte* b) const
    {
        if (a == b) return;
        if (m_width == 4) return swapAs<std::uint32_t>(a, b);
        if (m_width == 8) return swapAs<std::uint64_t>(a, b);
        std::swap_ranges(a, a + m_width, b);
    }

    void ShortSort(std::byte* lo, std::byte* hi) const
    {
        for (; hi > lo; hi -= m_width) {
            std::byte* greatest = lo;
            for (std::byte* p = lo + m_width; p <= hi; p += m_width)
                if (Compare(p, greatest) > 0) greatest = p;
            Swap(greatest, hi);
        }
    }

    // The last element of the low part and the first of the high part; the pivot lies between them.
    std::pair<std::byte*, std::byte*> Partition(std::byte* lo, std::byte* hi) const
    {
        const std::size_t size = static_cast<std::size_t>(hi - lo) / m_width + 1;
        Swap(lo + size / 2 * m_width, lo);
        std::byte *up = lo, *down = hi + m_width;
        for (;;) {
            do up += m_width;
            while (up <= hi && Compare(up, lo) <= 0);
            do down -= m_width;
            while (down > lo && Compare(down, lo) >= 0);
            if (down < up) break;
            Swap(up, down);
        }
        Swap(lo, down);
        return {down > lo ? down - m_width : lo, up};
    }

    std::size_t m_width;
    void* m_context;
    int (*m_compare)(void*, const void*, const void*);
};

// Sorts pointers to the strings, by few comparisons rather than few moves, then moves each string once.
template <class Array>
void sortTexts(Array& array)
{
    using Text = std::remove_reference_t<decltype(array[0])>;
    Text* const texts = array.GetData();
    std::vector<Text*> order;
    order.reserve(static_cast<std::size_t>(array.GetSize()));
    for (int i = 0; i < array.GetSize(); ++i) order.push_back(texts + i);
    std::stable_sort(order.begin(), order.end(),
                     [](const Text* a, const Text* b) { return a->CompareNoCase(*b) < 0; });
    std::vector<Text> sorted;
    sorted.reserve(order.size());
    for (Text* text : order) sorted.push_back(std::move(*text));
    std::move(sorted.begin(), sorted.end(), texts);
}

int compareByDifference(void*, const void* a, const void* b)
{
    return static_cast<int>(*static_cast<const UINT*>(a) - *static_cast<const UINT*>(b));
}

} // namespace

void QuickSort(void* base, unsigned count, unsigned width, void* context,
               int (*compare)(void*, const void*, const void*))
{
    if (count < 2 || width == 0) return;
    auto* first = static_cast<std::byte*>(base);
    Sorter(width, context, compare).Sort(first, first + static_cast<std::size_t>(count - 1) * width);
}

void SortArray(CByteArray& array) { std::sort(array.GetData(), array.GetData() + array.GetSize()); }

void SortArray(CArray<int, int>& array)
{
    QuickSort(array.GetData(), static_cast<unsigned>(array.GetSize()), sizeof(int), nullptr,
              compareByDifference);
}

void SortArray(CStringArray& array) { sortTexts(array); }
void SortArray(CArray<StringA, const char*>& array) { sortTexts(array); }
void SortArray(CArray<StringW, const WCHAR*>& array) { sortTexts(array); }
