#include "corekit/platform/TextScan.h"

#include <string>

namespace corekit::detail {
namespace {

constexpr std::size_t npos = std::u16string_view::npos;
constexpr std::size_t blockUnits = unitsAtOnce;
constexpr std::size_t lineUnits = 32; // of a cache line

std::uintptr_t addressOf(const WCHAR* p) { return reinterpret_cast<std::uintptr_t>(p); }

// A bit for each of 32 units that is 0.
COREKIT_READS_WHOLE_BLOCKS inline DWORD zerosInLine(const WCHAR* p)
{
    const auto zeros = [p](std::size_t i) { return zeroUnits(anyBlock(p + i)); };
    return markBits(zeros(0), zeros(8)) | markBits(zeros(16), zeros(24)) << 16;
}

// The place of the first zero among 64 units, or 64.
COREKIT_READS_WHOLE_BLOCKS inline std::size_t lengthUpTo64(const WCHAR* p)
{
    const DWORDLONG zeros = zerosInLine(p) | DWORDLONG{zerosInLine(p + lineUnits)} << 32;
    return static_cast<std::size_t>(std::countr_zero(zeros));
}

// Fewer places than two blocks, one by one.
std::size_t findShortTail(std::u16string_view text, std::u16string_view what, std::size_t from)
{
    const std::size_t last = text.size() - what.size();
    for (; from <= last; ++from)
        if (text[from] == what[0] && std::memcmp(&text[from], what.data(), what.size() * sizeof(WCHAR)) == 0)
            return from;
    return npos;
}

int placeOf(std::size_t found) { return found == npos ? -1 : static_cast<int>(found); }

} // namespace

// The first 64 units at once, since the end of a short text is hard to guess; then whole cache lines.
// Neither crosses into a page that the text is not in.
COREKIT_READS_WHOLE_BLOCKS std::size_t textLength(const WCHAR* p)
{
    std::size_t n = 0;
    if (isInOnePage(p, 2 * lineUnits * sizeof(WCHAR))) {
        n = lengthUpTo64(p);
        if (n < 2 * lineUnits) return n;
    }
    while ((addressOf(p + n) & 63) > 1) {
        if (!p[n]) return n;
        ++n;
    }
    if (addressOf(p) & 1) return n + std::char_traits<WCHAR>::length(p + n);
    for (;; n += lineUnits) {
        if (const DWORD zeros = zerosInLine(p + n))
            return n + static_cast<std::size_t>(std::countr_zero(zeros));
    }
}

// The text may end anywhere before n: nothing is read of a page that it does not reach.
COREKIT_READS_WHOLE_BLOCKS int textLength(const WCHAR* p, int n)
{
    for (int i = 0; i < n;) {
        if (isInOnePage(p + i, sizeof(Units))) {
            const unsigned zeros = markBits(zeroUnits(anyBlock(p + i)));
            if (zeros) return std::min(n, i + static_cast<int>(firstMark(zeros)));
            i += unitsAtOnce;
        } else {
            for (const int next = i + unitsAtOnce; i < next; ++i)
                if (i == n || !p[i]) return i;
        }
    }
    return n;
}

COREKIT_READS_WHOLE_BLOCKS const WCHAR* findUnitOrEnd(const WCHAR* text, WCHAR unit)
{
    const Units wanted = spreadUnit(unit);
    for (;;) {
        if (isInOnePage(text, sizeof(Units))) {
            const Units units = anyBlock(text);
            const unsigned bits = markBits(zeroUnits(units) | equalUnits(units, wanted));
            if (bits) return text + firstMark(bits);
            text += blockUnits;
        } else {
            for (const WCHAR* const next = text + blockUnits; text < next; ++text)
                if (*text == 0 || *text == unit) return text;
        }
    }
}

COREKIT_READS_WHOLE_BLOCKS std::size_t mismatchInText(const WCHAR* a, const WCHAR* b)
{
    for (std::size_t i = 0;;) {
        if (isInOnePage(a + i, sizeof(Units)) && isInOnePage(b + i, sizeof(Units))) {
            const Units units = anyBlock(a + i);
            const unsigned goesOn = markBits(equalUnits(units, anyBlock(b + i)) & ~zeroUnits(units));
            if (goesOn != 0xFFFF) return i + firstMark(~goesOn);
            i += blockUnits;
        } else {
            for (const std::size_t next = i + blockUnits; i < next; ++i)
                if (a[i] != b[i] || a[i] == 0) return i;
        }
    }
}

int findInText(const char* text, int n, char ch)
{
    const std::string_view all(text, static_cast<std::size_t>(textLength(text, n)));
    return placeOf(all.find(ch));
}

int findInText(const WCHAR* text, int, WCHAR ch)
{
    const WCHAR* const at = findUnitOrEnd(text, ch);
    return *at == ch && ch ? static_cast<int>(at - text) : -1;
}

int findInText(const char* text, int n, const char* what)
{
    const std::string_view all(text, static_cast<std::size_t>(textLength(text, n)));
    return placeOf(all.find(what));
}

int findInText(const WCHAR* text, int n, const WCHAR* what)
{
    const int at = placeOf(findInUnits({text, static_cast<std::size_t>(n)}, {what, textLength(what)}, 0));
    return textLength(text, at) < at ? -1 : at; // behind a zero there is nothing
}

std::size_t findInUnits(std::u16string_view text, WCHAR unit, std::size_t from)
{
    if (from >= text.size()) return npos;
    const Units wanted = spreadUnit(unit);
    for (; from + blockUnits <= text.size(); from += blockUnits)
        if (const unsigned bits = markBits(equalUnits(loadUnits(&text[from]), wanted)); bits != 0)
            return from + firstMark(bits);
    for (; from < text.size(); ++from)
        if (text[from] == unit) return from;
    return npos;
}

// A place is looked at only where the first and the last unit both fit; sixteen places a step.
COREKIT_READS_WHOLE_BLOCKS std::size_t findInUnits(std::u16string_view text, std::u16string_view what,
                                                   std::size_t from)
{
    if (from > text.size() || what.size() > text.size() - from) return npos;
    if (what.empty()) return from;
    if (what.size() == 1) return findInUnits(text, what[0], from);
    constexpr std::size_t stepPlaces = 2 * blockUnits, stepBytes = stepPlaces * sizeof(WCHAR);
    const std::size_t span = what.size() - 1, places = text.size() - span;
    const Units first = spreadUnit(what.front());
    const Units last = spreadUnit(what.back());
    for (; from < places; from += stepPlaces) {
        const WCHAR* const p = text.data() + from;
        const std::size_t left = places - from;
        if (left < stepPlaces && !(isInOnePage(p, stepBytes) && isInOnePage(p + span, stepBytes)))
            return findShortTail(text, what, from);
        const Units low = equalUnits(anyBlock(p), first) & equalUnits(anyBlock(p + span), last);
        const Units high =
            equalUnits(anyBlock(p + blockUnits), first) & equalUnits(anyBlock(p + span + blockUnits), last);
        unsigned bits = markBits(low, high);
        if (left < stepPlaces) bits &= (1u << left) - 1;
        for (; bits != 0; bits &= bits - 1) {
            const auto i = static_cast<std::size_t>(std::countr_zero(bits));
            if (sameUnits(p + i + 1, what.data() + 1, span - 1)) return from + i;
        }
    }
    return npos;
}

} // namespace corekit::detail
