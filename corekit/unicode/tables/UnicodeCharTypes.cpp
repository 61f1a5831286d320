// Expands the runs of facts into the pages and the flat lookup tables, all at compile time.
#include "corekit/unicode/tables/UnicodeCharTypes.h"

#include "corekit/foundation/StringW.h"

#include <utility>

namespace {

using namespace corekit::general;
using enum corekit::bidi::Code;
using Entry = CUnicodeCharTypes::__charEntry;

// Facts of the code points first, first + step, ... last.
struct TypeRun {
    int first, last, step;
    corekit::general::Code general;
    corekit::bidi::Code bidi;
};
struct CaseRun {
    int first, last, step;
    WORD upper, lower, title;
};
struct NumberRun {
    int first, last, step;
    int decimal, numeric;
};
struct MirrorRun {
    int first, last, step;
};

constexpr WORD None = 0xFFFF;

#include "corekit/unicode/tables/OwnRows.inc"
#include "corekit/unicode/tables/UnicodeRows.inc"

// Calls apply(run, code) for every code point of the runs that lies in [low, high].
template <class Runs, class F>
constexpr void forEach(const Runs& runs, int low, int high, F apply)
{
    for (const auto& run : runs) {
        if (run.first > high || run.last < low) continue;
        for (int code = run.first; code <= run.last; code += run.step)
            if (code >= low && code <= high) apply(run, code);
    }
}

constexpr WORD moved(WORD mapping, int distance)
{
    return mapping == None ? None : static_cast<WORD>(mapping + distance);
}

struct Page {
    Entry rows[256];
};

constexpr Page makePage(int high)
{
    const int low = high * 256;
    Page page{};
    for (Entry& e : page.rows) e = {-1, -1, -2, -2, 0, None, None, None};
    const auto types = [&](const TypeRun& r, int c) {
        page.rows[c - low] = {r.general, r.bidi, -1, -1, 0, None, None, None};
    };
    forEach(typeRuns, low, low + 255, types);
    forEach(ownRuns, low, low + 255, types);
    forEach(caseRuns, low, low + 255, [&](const CaseRun& r, int c) {
        Entry& e = page.rows[c - low];
        e.upperCase = moved(r.upper, c - r.first);
        e.lowerCase = moved(r.lower, c - r.first);
        e.titleCase = moved(r.title, c - r.first);
    });
    forEach(numberRuns, low, low + 255, [&](const NumberRun& r, int c) {
        Entry& e = page.rows[c - low];
        e.decimalValue = r.decimal < 0 ? -1 : r.decimal + c - r.first;
        e.digitValue = r.numeric < 0 ? -1 : r.numeric + c - r.first;
    });
    forEach(mirrorRuns, low, low + 255, [&](const MirrorRun&, int c) { page.rows[c - low].mirrored = 1; });
    return page;
}

template <int High>
constexpr Page page = makePage(High);

constexpr int noPage = 256; // a page beyond the last code point has no rows

constexpr bool hasRows(int high)
{
    bool found = false;
    const auto mark = [&](const TypeRun&, int) { found = true; };
    forEach(typeRuns, high * 256, high * 256 + 255, mark);
    forEach(ownRuns, high * 256, high * 256 + 255, mark);
    return found;
}

struct Index {
    const Entry* pages[256];
};

template <int... High>
constexpr Index makeIndex(std::integer_sequence<int, High...>)
{
    return {{page < hasRows(High) ? High : noPage >.rows...}};
}

constexpr Index pageIndex = makeIndex(std::make_integer_sequence<int, 256>());

template <class Table, class Value>
constexpr Table fromTypes(Value value)
{
    Table table{};
    for (auto& v : table.of) v = -1;
    const auto apply = [&](const TypeRun& r, int c) { table.of[c] = value(r); };
    forEach(typeRuns, 0, 0xFFFF, apply);
    forEach(ownRuns, 0, 0xFFFF, apply);
    return table;
}

template <class Table>
constexpr Table fromCase(WORD CaseRun::*mapping)
{
    Table table{};
    for (int c = 0; c < 0x10000; ++c) table.of[c] = static_cast<WORD>(c);
    forEach(caseRuns, 0, 0xFFFF, [&](const CaseRun& r, int c) {
        if (r.*mapping != None) table.of[c] = moved(r.*mapping, c - r.first);
    });
    return table;
}

} // namespace

// clang-format off
#define PAGE(n) constinit const CUnicodeCharTypes::__page& CUnicodeCharTypes::m_tbl##n = page<n>.rows;
PAGE(0) PAGE(1) PAGE(2) PAGE(3) PAGE(4) PAGE(5) PAGE(6) PAGE(9) PAGE(10) PAGE(11) PAGE(12) PAGE(13) PAGE(14)
PAGE(15) PAGE(16) PAGE(17) PAGE(30) PAGE(31) PAGE(32) PAGE(33) PAGE(34) PAGE(35) PAGE(36) PAGE(37) PAGE(38)
PAGE(39) PAGE(48) PAGE(49) PAGE(50) PAGE(51) PAGE(78) PAGE(159) PAGE(172) PAGE(215) PAGE(216) PAGE(219)
PAGE(220) PAGE(223) PAGE(224) PAGE(227) PAGE(240) PAGE(241) PAGE(242) PAGE(243) PAGE(248) PAGE(249) PAGE(250)
PAGE(251) PAGE(252) PAGE(253) PAGE(254) PAGE(255)
#undef PAGE
    // clang-format on
    constinit const CUnicodeCharTypes::__page& CUnicodeCharTypes::m_tblUnknown = page<noPage>.rows;

constinit const CUnicodeCharTypes::__charEntry* const (&CUnicodeCharTypes::m_tbl)[256] = pageIndex.pages;

constinit const CUnicodeCharTypes::Flat<signed char> CUnicodeCharTypes::m_generalTypes =
    fromTypes<Flat<signed char>>([](const TypeRun& r) { return r.general; });
constinit const CUnicodeCharTypes::Flat<signed char> CUnicodeCharTypes::m_bidiTypes =
    fromTypes<Flat<signed char>>([](const TypeRun& r) { return r.bidi; });
constinit const CUnicodeCharTypes::Flat<WORD> CUnicodeCharTypes::m_upper =
    fromCase<Flat<WORD>>(&CaseRun::upper);
constinit const CUnicodeCharTypes::Flat<WORD> CUnicodeCharTypes::m_lower =
    fromCase<Flat<WORD>>(&CaseRun::lower);

void CUnicodeCharTypes::MakeUpper(StringW& text)
{
    WCHAR* p = text.GetBuffer(text.GetLength());
    for (int i = text.GetLength(); i-- > 0;) p[i] = MakeUpper(p[i]);
}

void CUnicodeCharTypes::MakeLower(StringW& text)
{
    WCHAR* p = text.GetBuffer(text.GetLength());
    for (int i = text.GetLength(); i-- > 0;) p[i] = MakeLower(p[i]);
}
