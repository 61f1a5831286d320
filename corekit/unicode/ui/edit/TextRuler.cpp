#include "corekit/unicode/ui/edit/TextRuler.h"

#include <algorithm>

namespace corekit::detail {

namespace {

constexpr int firstStep = 16; // characters, and below
constexpr int usualLine = 256;
constexpr int longestJoin = 16;

// Scripts in which a letter changes the ones before it.
bool joins(WCHAR c) { return c >= 0x0590 && c < 0x2000; }

// `low` characters fit and `high` do not.
struct Bounds {
    int low, high;
};

// `fits` is asked for a number of characters. 0 always fits; the upper bound is count + 1 if all do.
template <class Fits>
Bounds findBounds(int count, Fits fits)
{
    Bounds b{0, count + 1};
    if (count <= usualLine && fits(count)) return {count, count + 1};
    for (int n = std::min(firstStep, count); n > b.low; n = std::min(n * 2, count)) {
        if (!fits(n)) {
            b.high = n;
            break;
        }
        b.low = n;
    }
    while (b.high <= count && b.high - b.low > 1) {
        const int middle = b.low + (b.high - b.low) / 2;
        (fits(middle) ? b.low : b.high) = middle;
    }
    return b;
}

} // namespace

int LongestFitting(TextRuler& ruler, const WCHAR* text, int count, int room)
{
    if (room < 0) return -1;
    const auto fits = [&](int n) { return ruler.Width(text, n) <= room; };
    const Bounds b = findBounds(count, fits);
    const int last = std::min(count, b.low + longestJoin);
    if (std::any_of(text + b.low, text + last, joins))
        for (int n = last; n > b.low; --n)
            if (fits(n)) return n;
    return b.low;
}

int LeastBeyond(TextRuler& ruler, const WCHAR* text, int count, int room)
{
    if (room < 0) return 0;
    const auto fits = [&](int n) { return ruler.Width(text, n) <= room; };
    const Bounds b = findBounds(count, fits);
    const int first = std::max(1, b.high - longestJoin);
    if (std::any_of(text + first - 1, text + std::min(b.high, count), joins))
        for (int n = first; n < b.high; ++n)
            if (!fits(n)) return n;
    return b.high;
}

int LongestFittingEnd(TextRuler& ruler, const WCHAR* text, int count, int room)
{
    if (room < 0) return count;
    return count - findBounds(count, [&](int n) { return ruler.Width(text + count - n, n) <= room; }).low;
}

} // namespace corekit::detail
