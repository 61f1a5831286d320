#include "corekit/unicode/shaping/ArabicShaping.h"

#include "corekit/foundation/StringW.h"
#include "corekit/unicode/shaping/ArabicWordRows.h"
#include "corekit/unicode/shaping/GlyphSink.h"
#include "corekit/unicode/tables/ArabicJoiningRows.h"

#include <algorithm>
#include <iterator>

namespace corekit::detail {

namespace {

constexpr WCHAR noNeighbour = 0xFFFF;
constexpr int largestRow = 3; // glyphs of a word row

// What a character is to itself and to its neighbours, in one word:
//   bits 0 to 2    how it joins
//   bits 16 to 31  the word rows' names for it as a neighbour: low byte as the next, high byte as the
//                  previous one
//   bits 32 to 47  the neighbours that a word row for it begins to look at, by the same names
using Traits = std::uint64_t;
constexpr Traits joinCausing = 1, leftJoinCausing = 2, transparent = 4;
constexpr Traits asNext = 0x00FF0000, asPrevious = 0xFF000000;

// Distinct neighbours get distinct bits.
class NeighbourNames {
public:
    constexpr Traits Bit(WCHAR neighbour)
    {
        int k = 0;
        while (k < m_count && m_known[k] != neighbour) ++k;
        if (k == m_count) m_known[m_count++] = neighbour;
        return Traits{1} << k;
    }

private:
    WCHAR m_known[8] = {};
    int m_count = 0;
};

struct ArabicTable {
    Traits traits[256];
    WCHAR forms[256][4]; // by leftJoinCausing(next) + 2 * joinCausing(previous)
};

constexpr void AddForms(WCHAR (&forms)[4], const JoiningEntry& row, WCHAR c)
{
    const WCHAR nominal = row.baseForm == 0 ? c : row.baseForm;
    const bool right = row.joiningType == joining::Right || row.joiningType == joining::Dual;
    const bool left = row.joiningType == joining::Dual;
    for (int k = 0; k < 4; ++k) {
        const int shift = (right && (k & 1) ? 1 : 0) + (left && (k & 2) ? 2 : 0);
        forms[k] = static_cast<WCHAR>(row.baseForm == 0 ? nominal : nominal + shift);
    }
}

constexpr ArabicTable MakeArabicTable()
{
    constexpr WORD block = 0x0600;
    const JoiningTable joins = MakeJoiningTable(block);
    ArabicTable table{};
    for (int c = 0; c < 256; ++c) {
        const JoiningEntry& row = joins.rows[c];
        const bool causing = row.joiningType >= joining::Right && row.joiningType <= joining::Causing;
        if (causing) table.traits[c] |= joinCausing;
        if (causing && row.joiningType != joining::Right) table.traits[c] |= leftJoinCausing;
        if (row.joiningType == joining::Transparent) table.traits[c] |= transparent;
        AddForms(table.forms[c], row, static_cast<WCHAR>(block + c));
    }
    NeighbourNames next, previous;
    for (const ArabicWordRow& row : arabicWordRows) {
        const WCHAR neighbour = row.next ? row.next : row.prev;
        const Traits bit = row.next ? next.Bit(neighbour) << 16 : previous.Bit(neighbour) << 24;
        table.traits[neighbour & 0xFF] |= bit;
        table.traits[row.cur & 0xFF] |= bit << 16;
    }
    return table;
}

constexpr ArabicTable arabic = MakeArabicTable();

bool IsArabic(WCHAR c) { return (c & 0xFF00) == 0x0600; }

Traits TraitsOf(WCHAR c)
{
    if (IsArabic(c)) return arabic.traits[c & 0xFF];
    return c == u'~' ? transparent : c == 0x200D ? joinCausing | leftJoinCausing : 0;
}

// A text as its neighbours see it. Nothing stands at or behind `end`.
class Neighbourhood {
public:
    Neighbourhood(const WCHAR* text, int end) : m_text(text), m_end(end) {}

    // The first character at or behind, or at or before, a place that is not passed over.
    WCHAR Behind(int i) const
    {
        while (i < m_end && (TraitsOf(m_text[i]) & transparent)) ++i;
        return i < m_end ? m_text[i] : noNeighbour;
    }
    WCHAR Before(int i) const
    {
        while (i >= 0 && (TraitsOf(m_text[i]) & transparent)) --i;
        return i >= 0 ? m_text[i] : noNeighbour;
    }

private:
    const WCHAR* m_text;
    int m_end;
};

// The first word row that matches at i, or null.
const ArabicWordRow* FindWordRow(const Neighbourhood& around, WCHAR cur, int i)
{
    const WCHAR previous = around.Before(i - 1), next = around.Behind(i + 1);
    const auto matches = [&](const ArabicWordRow& r) {
        return r.cur == cur && (r.prev == 0 || r.prev == previous) && (r.next == 0 || r.next == next) &&
               (r.prev2 == 0 || r.prev2 == around.Before(i - 2)) &&
               (r.next2 == 0 || r.next2 == around.Behind(i + 2)) &&
               (r.next3 == 0 || r.next3 == around.Behind(i + 3));
    };
    const auto* row = std::find_if(std::begin(arabicWordRows), std::end(arabicWordRows), matches);
    return row == std::end(arabicWordRows) ? nullptr : row;
}

WCHAR* PutWordRow(WCHAR* out, const ArabicWordRow& row, bool joined)
{
    if (joined && row.joined) {
        *out++ = row.joined;
        return out;
    }
    for (const WCHAR glyph : row.glyphs)
        if (glyph) *out++ = glyph;
    return out;
}

} // namespace

// A step never writes more glyphs than it takes characters, but a word row may take some behind the limit.
int ShapeArabicRun(GlyphSink& sink, const WCHAR* text, int end, int index, int limit)
{
    const bool behindEnd = index >= end; // behind a zero within the text nothing has a next
    const Neighbourhood around(text, end);
    const int stop = behindEnd ? limit : std::min(limit, end);
    WCHAR* out = sink.Room(stop - index + largestRow);

    // Marks come first, so that none of them looks for a neighbour: a long run of them costs its length.
    int i = index;
    for (; i < stop && (TraitsOf(text[i]) & transparent) && IsArabic(text[i]); ++i) *out++ = text[i];
    Traits previous = i < stop && IsArabic(text[i]) ? TraitsOf(around.Before(i - 1)) : 0;
    while (i < stop && IsArabic(text[i])) {
        const WCHAR cur = text[i];
        const Traits own = arabic.traits[cur & 0xFF];
        if (own & transparent) {
            *out++ = cur;
            ++i;
            continue;
        }
        Traits next = behindEnd ? 0 : TraitsOf(text[i + 1]);
        if (next & transparent) next = TraitsOf(around.Behind(i + 2));

        if (((next & asNext) | (previous & asPrevious)) & (own >> 16)) {
            if (const ArabicWordRow* row = FindWordRow(around, cur, i)) {
                out = PutWordRow(out, *row, (next & leftJoinCausing) != 0);
                i += row->advance;
                previous = i < stop ? TraitsOf(around.Before(i - 1)) : 0;
                continue;
            }
        }
        *out++ = arabic.forms[cur & 0xFF][(next & leftJoinCausing) / 2 + (previous & joinCausing) * 2];
        previous = own;
        ++i;
    }
    sink.Commit(out);
    return i;
}

} // namespace corekit::detail

void ConvertArabicGlyphs(StringW& out, const WCHAR* text, int& index)
{
    using namespace corekit::detail;
    const int end = CountedLength(TextLength(text));
    if (index < 0 || index >= end) {
        ++index;
        return;
    }
    StringW keeper;
    text = GlyphSink::KeepApart(text, out, keeper);
    GlyphSink sink(out);
    if (IsArabic(text[index])) {
        index = ShapeArabicRun(sink, text, end, index, index + 1);
    } else {
        sink.Append(text[index++]);
    }
}
