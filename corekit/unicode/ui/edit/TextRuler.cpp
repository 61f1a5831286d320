#include "corekit/unicode/ui/edit/TextRuler.h"

#include <algorithm>

namespace corekit::detail {

namespace {

constexpr int usualLine = 256; // characters, and below
constexpr int leastStep = 4;
constexpr int longestJoin = 8;

// Scripts in which a letter changes the ones before it.
bool joins(WCHAR c) { return c >= 0x0590 && c < 0x2000; }

// `low` characters fit and `high` do not.
struct Bounds {
    int low, high;
};

// `fits` is asked for a number of characters, first about as many as guessed. 0 always fits; the upper bound
// is count + 1 if all do.
template <class Fits>
Bounds findBounds(int count, int guess, Fits fits)
{
    Bounds b{0, count + 1};
    int step = leastStep;
    const auto ask = [&](int n) { (fits(n) ? b.low : b.high) = n; };
    for (int n = std::clamp(guess, 1, std::max(count, 1)); n > b.low && n < b.high; step *= 2) {
        ask(n);
        n = b.low == n ? std::min(n + step, count) : n - step;
    }
    while (b.high <= count && b.high - b.low > 1) ask(b.low + (b.high - b.low) / 2);
    return b;
}

} // namespace

int longestFitting(TextRuler& ruler, const WCHAR* text, int count, int room, int guess)
{
    if (room < 0) return -1;
    const auto fits = [&](int n) { return ruler.Width(text, n) <= room; };
    const Bounds b = findBounds(count, guess, fits);
    const int last = std::min(count, b.low + longestJoin);
    if (std::any_of(text + b.low, text + last, joins))
        for (int n = last; n > b.low; --n)
            if (fits(n)) return n;
    return b.low;
}

int leastBeyond(TextRuler& ruler, const WCHAR* text, int count, int room)
{
    if (room < 0) return 0;
    const auto fits = [&](int n) { return ruler.Width(text, n) <= room; };
    const Bounds b = findBounds(count, usualLine / 8, fits);
    const int first = std::max(1, b.high - longestJoin);
    if (std::any_of(text + first - 1, text + std::min(b.high, count), joins))
        for (int n = first; n < b.high; ++n)
            if (!fits(n)) return n;
    return b.high;
}

int longestFittingEnd(TextRuler& ruler, const WCHAR* text, int count, int room)
{
    if (room < 0) return count;
    const auto fits = [&](int n) { return ruler.Width(text + count - n, n) <= room; };
    return count - findBounds(count, usualLine, fits).low;
}

} // namespace corekit::detail
