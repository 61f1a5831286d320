#include "corekit/unicode/shaping/ArabicShaping.h"

#include "corekit/foundation/StringW.h"
#include "corekit/unicode/shaping/ArabicWordRows.h"
#include "corekit/unicode/shaping/ShapingStep.h"
#include "corekit/unicode/tables/ArabicJoiningRows.h"

#include <algorithm>
#include <iterator>

namespace corekit::detail {

namespace {

constexpr WCHAR noNeighbour = 0xFFFF;
constexpr int largestRow = 3; // glyphs of a word row

// What a character is to itself and to its neighbours, in one word:
//   bits 0 to 4    how it joins, and which neighbours change its form
//   bits 8 to 19   the word rows' names for it as a neighbour: the lower six as the next, the upper six as
//   the
//                  previous one
//   bits 20 to 31  the neighbours that a word row for it begins to look at, by the same names
using Traits = std::uint32_t;
constexpr Traits joinCausing = 1, leftJoinCausing = 2, transparent = 4, takesRight = 8, takesLeft = 16;
constexpr Traits asNext = 0x00003F00, asPrevious = 0x000FC000;
constexpr int nextShift = 8, previousShift = 14, wantedShift = 12;

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
    WCHAR m_known[6] = {};
    int m_count = 0;
};

// The Arabic block and all that lies below it, so that spaces and digits between words are nothing special.
constexpr WCHAR tableEnd = 0x0700, blockStart = 0x0600;

struct ArabicTable {
    Traits traits[tableEnd];
    WCHAR nominal[tableEnd];
};

constexpr Traits joiningTraits(const JoiningEntry& row)
{
    const bool causing = row.joiningType >= joining::Right && row.joiningType <= joining::Causing;
    const bool hasForms = row.baseForm != 0;
    Traits traits = row.joiningType == joining::Transparent ? transparent : 0;
    if (causing) traits |= joinCausing;
    if (causing && row.joiningType != joining::Right) traits |= leftJoinCausing;
    if (hasForms && (row.joiningType == joining::Right || row.joiningType == joining::Dual))
        traits |= takesRight;
    if (hasForms && row.joiningType == joining::Dual) traits |= takesLeft;
    return traits;
}

constexpr ArabicTable makeArabicTable()
{
    const JoiningTable joins = makeJoiningTable(blockStart);
    ArabicTable table{};
    for (int c = 0; c < tableEnd; ++c) {
        table.nominal[c] = static_cast<WCHAR>(c);
        if (c < blockStart) continue;
        const JoiningEntry& row = joins.rows[c - blockStart];
        table.traits[c] = joiningTraits(row);
        if (row.baseForm != 0) table.nominal[c] = row.baseForm;
    }
    table.traits[u'~'] = transparent;

    NeighbourNames next, previous;
    for (const ArabicWordRow& row : arabicWordRows) {
        const WCHAR neighbour = row.next ? row.next : row.prev;
        const Traits bit =
            row.next ? next.Bit(neighbour) << nextShift : previous.Bit(neighbour) << previousShift;
        table.traits[neighbour] |= bit;
        table.traits[row.cur] |= bit << wantedShift;
    }
    return table;
}

constexpr ArabicTable arabic = makeArabicTable();

Traits traitsOf(WCHAR c)
{
    if (c < tableEnd) [[likely]]
        return arabic.traits[c];
    return c == 0x200D ? joinCausing | leftJoinCausing : 0;
}

// The form that connects to the neighbours it takes: one on for the right, two on for the left.
WCHAR formOf(WCHAR c, Traits own, Traits next, Traits previous)
{
    static_assert(takesRight == leftJoinCausing << 2 && takesLeft == joinCausing << 4);
    const Traits right = next << 2 & own & takesRight, left = previous << 4 & own & takesLeft;
    return static_cast<WCHAR>(arabic.nominal[c] + right / takesRight + left / takesLeft * 2);
}

// A text as its neighbours see it. Nothing stands at or behind `end`.
class Neighbourhood {
public:
    Neighbourhood(const WCHAR* text, int end) : m_text(text), m_end(end) {}

    // The first character at or behind, or at or before, a place that is not passed over.
    WCHAR Behind(int i) const
    {
        while (i < m_end && (traitsOf(m_text[i]) & transparent)) ++i;
        return i < m_end ? m_text[i] : noNeighbour;
    }
    WCHAR Before(int i) const
    {
        while (i >= 0 && (traitsOf(m_text[i]) & transparent)) --i;
        return i >= 0 ? m_text[i] : noNeighbour;
    }

private:
    const WCHAR* m_text;
    int m_end;
};

// The first word row that matches at i, or null.
const ArabicWordRow* findWordRow(const Neighbourhood& around, WCHAR cur, int i)
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

WCHAR* putWordRow(WCHAR* out, const ArabicWordRow& row, bool joined)
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
int shapeArabicRun(GlyphSink& sink, const WCHAR* text, int end, int index, int limit)
{
    const bool behindEnd = index >= end; // behind a zero within the text nothing has a next
    const Neighbourhood around(text, end);
    const int stop = behindEnd ? limit : std::min(limit, end);
    WCHAR* out = sink.Room(stop - index + largestRow);

    Traits previous = traitsOf(around.Before(index - 1));
    int i = index;
    while (i < stop && text[i] < tableEnd) {
        const WCHAR cur = text[i];
        const Traits own = arabic.traits[cur];
        Traits next = behindEnd ? 0 : traitsOf(text[i + 1]);
        // Marks themselves do not look on, so that a long run of them costs no more than its length.
        if (next & ~own & transparent) next = traitsOf(around.Behind(i + 2));

        if (((next & asNext) | (previous & asPrevious)) & (own >> wantedShift)) [[unlikely]] {
            if (const ArabicWordRow* row = findWordRow(around, cur, i)) {
                out = putWordRow(out, *row, (next & leftJoinCausing) != 0);
                i += row->advance;
                previous = i < stop ? traitsOf(around.Before(i - 1)) : 0;
                continue;
            }
        }
        *out++ = formOf(cur, own, next, previous);
        previous = own & transparent ? previous : own;
        ++i;
    }
    sink.Commit(out);
    return i;
}

} // namespace corekit::detail

void ConvertArabicGlyphs(StringW& out, const WCHAR* text, int& index)
{
    using namespace corekit::detail;
    takeStep(out, text, index, [](GlyphSink& sink, const WCHAR* from, int end, int i) {
        if (from[i] < tableEnd) return shapeArabicRun(sink, from, end, i, i + 1);
        sink.Append(from[i]);
        return i + 1;
    });
}
