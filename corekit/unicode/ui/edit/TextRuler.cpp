#include "corekit/unicode/ui/edit/TextRuler.h"

#include "corekit/unicode/ui/MarkCounter.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace corekit::detail {

namespace {

constexpr int usualLine = 256; // characters, and below
constexpr int mostEstimates = 4, mostSteps = 24;
constexpr int longestJoin = 5; // three letters that make one, with what joins them

struct Block {
    WCHAR first, last;
};
// Scripts in which a letter changes the ones before it: Arabic and its kin, those of India, Tibet and Burma,
// Korean letters, those of the south east and Mongolian.
constexpr std::array<Block, 5> joiningScripts = {
    {{0x0600, 0x0DFF}, {0x0F00, 0x109F}, {0x1100, 0x11FF}, {0x1700, 0x1AAF}, {0x1B00, 0x1CFF}}};

bool joins(WCHAR c)
{
    return std::ranges::any_of(joiningScripts, [c](Block b) { return c >= b.first && c <= b.last; });
}

// `low` characters fit and `high` do not.
struct Bounds {
    int low, high;
};

// On from there over the marks of a letter, at most to the stop.
template <class IsMark>
int pastMarks(int n, int step, int stop, IsMark isMark)
{
    for (int i = 0; i < MarkCounter::full && (stop - n) * step > 0 && isMark(n); ++i) n += step;
    return n;
}

// Asks for the width of so many characters, first about as many as guessed, and then for as many as the room
// would hold if all were like those so far. That may go astray where they are not: then the distance doubles,
// or is halved between the bounds. Marks, which mostly take no room, are asked for with what is before them,
// or wholly left out; `isMark` says what comes behind so many characters. 0 always fits; the upper bound is
// count + 1 if all do.
template <class WidthOf, class IsMark>
Bounds findBounds(int count, int guess, int room, WidthOf widthOf, IsMark isMark)
{
    Bounds b{0, count + 1};
    int n = std::clamp(guess, 1, std::max(count, 1));
    for (int asked = 1, step = 1; b.low < count && b.high - b.low > 1; ++asked) {
        const int width = widthOf(n);
        (width <= room ? b.low : b.high) = n;
        const std::int64_t like = std::int64_t{n} * room / std::max(width, 1);
        if (asked > mostEstimates && b.high <= count)
            n = b.low + (b.high - b.low) / 2;
        else if (width <= room)
            n = static_cast<int>(std::clamp<std::int64_t>(like, n + step, 2 * std::int64_t{n} + step));
        else
            n = static_cast<int>(std::min<std::int64_t>(like, n - step));
        if (asked > 2 && asked <= mostSteps) step *= 2;
        n = std::clamp(n, b.low + 1, std::max(b.low + 1, std::min(b.high - 1, count)));
        n = width <= room ? pastMarks(n, 1, std::min(b.high - 1, count), isMark)
                          : pastMarks(n, -1, b.low + 1, isMark);
    }
    return b;
}

} // namespace

int longestFitting(TextRuler& ruler, const WCHAR* text, int count, int room, int guess)
{
    if (room < 0) return -1;
    const auto widthOf = [&](int n) { return ruler.Width(text, n); };
    const auto isMark = [&](int n) { return MarkCounter::IsMark(text[n]); };
    const Bounds b = findBounds(count, guess, room, widthOf, isMark);
    const int last = std::min(count, b.low + longestJoin);
    if (std::any_of(text + b.low, text + last, joins))
        for (int n = last; n > b.low; --n)
            if ((n == last || !isMark(n)) && widthOf(n) <= room) return n;
    return b.low;
}

int leastBeyond(TextRuler& ruler, const WCHAR* text, int count, int room)
{
    if (room < 0) return 0;
    const auto widthOf = [&](int n) { return ruler.Width(text, n); };
    const auto isMark = [&](int n) { return MarkCounter::IsMark(text[n]); };
    const Bounds b = findBounds(count, usualLine / 8, room, widthOf, isMark);
    const int first = std::max(1, b.high - longestJoin);
    if (std::any_of(text + first - 1, text + std::min(b.high, count), joins))
        for (int n = first; n < b.high; ++n)
            if (widthOf(n) > room) return n;
    return b.high;
}

int longestFittingEnd(TextRuler& ruler, const WCHAR* text, int count, int room)
{
    if (room < 0) return count;
    const auto widthOf = [&](int n) { return ruler.Width(text + count - n, n); };
    const auto isMark = [&](int n) { return MarkCounter::IsMark(text[count - n]); };
    return count - findBounds(count, usualLine, room, widthOf, isMark).low;
}

} // namespace corekit::detail
