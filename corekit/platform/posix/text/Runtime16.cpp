#include "corekit/platform/posix/text/CaseTables.h"
#include "corekit/platform/Runtime.h"
#include "corekit/platform/Vector16.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <cwchar>

using corekit::detail::anyBlock;
using corekit::detail::caseTables;
using corekit::detail::equalLanes;
using corekit::detail::firstLane;
using corekit::detail::isBlockInPage;
using corekit::detail::laneBits;
using corekit::detail::loadUnits;
using corekit::detail::spreadUnit;
using corekit::detail::Units;

namespace {

constexpr std::size_t lanes = 8;

// Bytes by which an address lies behind its block's start.
std::uintptr_t offsetInBlock(const WCHAR* p) { return reinterpret_cast<std::uintptr_t>(p) % sizeof(Units); }

bool isAlignedToUnit(const WCHAR* p) { return reinterpret_cast<std::uintptr_t>(p) % sizeof(WCHAR) == 0; }

COREKIT_READS_WHOLE_BLOCKS inline Units alignedBlock(const WCHAR* p)
{
    return *reinterpret_cast<const Units __attribute__((may_alias))*>(p);
}

// How many units from the start are equal and not the end.
COREKIT_READS_WHOLE_BLOCKS std::size_t equalPrefix(const WCHAR* a, const WCHAR* b)
{
    std::size_t i = 0;
    for (;;) {
        if (isBlockInPage(a + i) && isBlockInPage(b + i)) {
            const Units units = anyBlock(a + i);
            const unsigned same = laneBits(equalLanes(units, anyBlock(b + i)));
            const unsigned end = laneBits(equalLanes(units, Units{}));
            const unsigned stop = (~same & 0xFFFF) | end;
            if (stop != 0) return i + firstLane(stop);
            i += lanes;
        } else {
            for (const std::size_t next = i + lanes; i < next; ++i)
                if (a[i] != b[i] || a[i] == 0) return i;
        }
    }
}

// The first unit that is zero or equals `unit`.
COREKIT_READS_WHOLE_BLOCKS const WCHAR* findUnitOrEnd(const WCHAR* text, WCHAR unit)
{
    if (!isAlignedToUnit(text)) {
        while (*text != 0 && *text != unit) ++text;
        return text;
    }
    const Units wanted = spreadUnit(unit);
    const std::uintptr_t offset = offsetInBlock(text);
    const WCHAR* block = text - offset / sizeof(WCHAR);
    Units units = alignedBlock(block);
    unsigned bits = laneBits(equalLanes(units, Units{}) | equalLanes(units, wanted)) >> offset;
    if (bits != 0) return text + firstLane(bits);
    do {
        block += lanes;
        units = alignedBlock(block);
        bits = laneBits(equalLanes(units, Units{}) | equalLanes(units, wanted));
    } while (bits == 0);
    return block + firstLane(bits);
}

// A set small or large, asked once per unit: one bit per low byte sorts most units out at once.
class UnitSet {
public:
    explicit UnitSet(const WCHAR* set) : m_set(set, crt16::wcslen(set))
    {
        for (const WCHAR unit : m_set) m_lowBytes[(unit & 0xFF) / 64] |= std::uint64_t{1} << (unit & 63);
    }
    bool holds(WCHAR unit) const
    {
        return (m_lowBytes[(unit & 0xFF) / 64] >> (unit & 63) & 1) != 0 && m_set.find(unit) != crt16::npos;
    }

private:
    std::u16string_view m_set;
    std::uint64_t m_lowBytes[4] = {};
};

std::size_t findShortTail(std::u16string_view hay, std::u16string_view needle, std::size_t from)
{
    const std::size_t last = hay.size() - needle.size();
    for (; from <= last; ++from)
        if (hay[from] == needle[0] &&
            std::memcmp(&hay[from], needle.data(), needle.size() * sizeof(WCHAR)) == 0)
            return from;
    return crt16::npos;
}

} // namespace

namespace crt16 {

std::size_t wcslen(const WCHAR* text) { return static_cast<std::size_t>(findUnitOrEnd(text, 0) - text); }

int wcscmp(const WCHAR* a, const WCHAR* b)
{
    const std::size_t place = equalPrefix(a, b);
    return (a[place] > b[place]) - (a[place] < b[place]);
}

int wcsncmp(const WCHAR* a, const WCHAR* b, std::size_t count)
{
    for (; count > 0; ++a, ++b, --count)
        if (*a != *b || *a == 0) return (*a > *b) - (*a < *b);
    return 0;
}

int wcscoll(const WCHAR* a, const WCHAR* b) { return wcscmp(a, b); }

int _wcsicmp(const WCHAR* a, const WCHAR* b)
{
    const auto& lower = caseTables().lower;
    while (*a != 0 && (*a == *b || lower[*a] == lower[*b])) ++a, ++b;
    return static_cast<int>(lower[*a]) - static_cast<int>(lower[*b]);
}

const WCHAR* wcschr(const WCHAR* text, WCHAR unit)
{
    const WCHAR* place = findUnitOrEnd(text, unit);
    return *place == unit ? place : nullptr;
}

const WCHAR* wcsrchr(const WCHAR* text, WCHAR unit)
{
    for (const WCHAR* p = text + wcslen(text);; --p) {
        if (*p == unit) return p;
        if (p == text) return nullptr;
    }
}

const WCHAR* wcsstr(const WCHAR* text, const WCHAR* what)
{
    const std::size_t place = find({text, wcslen(text)}, {what, wcslen(what)});
    return place != npos ? text + place : nullptr;
}

std::size_t wcsspn(const WCHAR* text, const WCHAR* set)
{
    const UnitSet units(set);
    const WCHAR* p = text;
    while (*p != 0 && units.holds(*p)) ++p;
    return static_cast<std::size_t>(p - text);
}

std::size_t wcscspn(const WCHAR* text, const WCHAR* set)
{
    const UnitSet units(set);
    const WCHAR* p = text;
    while (*p != 0 && !units.holds(*p)) ++p;
    return static_cast<std::size_t>(p - text);
}

const WCHAR* wcspbrk(const WCHAR* text, const WCHAR* set)
{
    const WCHAR* p = text + wcscspn(text, set);
    return *p != 0 ? p : nullptr;
}

WCHAR* _wcsupr(WCHAR* text)
{
    const auto& upper = caseTables().upper;
    for (WCHAR* p = text; *p != 0; ++p) *p = upper[*p];
    return text;
}

WCHAR* _wcslwr(WCHAR* text)
{
    const auto& lower = caseTables().lower;
    for (WCHAR* p = text; *p != 0; ++p) *p = lower[*p];
    return text;
}

WCHAR* _wcsrev(WCHAR* text)
{
    std::reverse(text, text + wcslen(text));
    return text;
}

WCHAR towupper(WCHAR unit) { return caseTables().upper[unit]; }

WCHAR towlower(WCHAR unit) { return caseTables().lower[unit]; }

int iswspace(WCHAR unit)
{
    if (unit < 0x80) return (unit >= 9 && unit <= 13) || unit == ' ';
    switch (unit) {
    case 0x0085:
    case 0x00A0:
    case 0x1680:
    case 0x2028:
    case 0x2029:
    case 0x202F:
    case 0x205F:
    case 0x3000:
        return 1;
    default:
        return unit >= 0x2000 && unit <= 0x200A;
    }
}

int _wtoi(const WCHAR* text)
{
    while (iswspace(*text)) ++text;
    const bool negative = *text == u'-';
    if (negative || *text == u'+') ++text;
    long long value = 0;
    for (; *text >= u'0' && *text <= u'9'; ++text) value = std::min(value * 10 + (*text - u'0'), 1LL << 32);
    return static_cast<int>(std::clamp<long long>(negative ? -value : value, INT_MIN, INT_MAX));
}

std::size_t find(std::u16string_view hay, WCHAR unit, std::size_t from)
{
    const Units wanted = spreadUnit(unit);
    for (; from + lanes <= hay.size(); from += lanes)
        if (const unsigned bits = laneBits(equalLanes(loadUnits(&hay[from]), wanted)); bits != 0)
            return from + firstLane(bits);
    for (; from < hay.size(); ++from)
        if (hay[from] == unit) return from;
    return npos;
}

// A place is looked at only where the first and the last unit of the needle both fit; sixteen places a step.
std::size_t find(std::u16string_view hay, std::u16string_view needle, std::size_t from)
{
    if (from > hay.size() || needle.size() > hay.size() - from) return npos;
    if (needle.empty()) return from;
    if (needle.size() == 1) return find(hay, needle[0], from);
    const std::size_t span = needle.size() - 1;
    const std::size_t middle = (needle.size() - 2) * sizeof(WCHAR);
    const Units first = spreadUnit(needle.front());
    const Units last = spreadUnit(needle.back());
    const WCHAR* const text = hay.data();
    for (; from + span + 2 * lanes <= hay.size(); from += 2 * lanes) {
        const WCHAR* const p = text + from;
        const Units low = equalLanes(loadUnits(p), first) & equalLanes(loadUnits(p + span), last);
        const Units high =
            equalLanes(loadUnits(p + lanes), first) & equalLanes(loadUnits(p + span + lanes), last);
        for (unsigned bits = laneBits(low) | laneBits(high) << 16; bits != 0;) {
            const std::size_t lane = firstLane(bits);
            if (std::memcmp(p + lane + 1, needle.data() + 1, middle) == 0) return from + lane;
            bits &= ~(3u << (lane * 2));
        }
    }
    return from + span < hay.size() ? findShortTail(hay, needle, from) : npos;
}

} // namespace crt16
