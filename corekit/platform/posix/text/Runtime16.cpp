#include "corekit/platform/posix/text/CaseTables.h"
#include "corekit/platform/Runtime.h"
#include "corekit/platform/TextScan.h"

#include <algorithm>
#include <climits>

using corekit::detail::caseTables;

namespace {

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

} // namespace

namespace crt16 {

std::size_t wcslen(const WCHAR* text) { return corekit::detail::textLength(text); }

int wcscmp(const WCHAR* a, const WCHAR* b) { return corekit::detail::compareText(a, b); }

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
    return corekit::detail::findInUnits(hay, unit, from);
}

std::size_t find(std::u16string_view hay, std::u16string_view needle, std::size_t from)
{
    return corekit::detail::findInUnits(hay, needle, from);
}

} // namespace crt16
