#include "corekit/unicode/bidi/BidiRuns.h"

#include "corekit/unicode/tables/UnicodeCharTypes.h"

#include <algorithm>
#include <climits>

namespace corekit::detail {

using namespace corekit::bidi;

namespace {

constexpr int none = -1; // for a direction: no strong character so far

bool isStrong(int type) { return (type & ~1) == 0; } // L or R
bool isNeutral(int type) { return type >= WS; }      // or ON, the last

// Takes the runs of a line in order, their numbers settled, and settles the neutrals among them. Neutrals
// wait for the next character that has a direction, and all that wait for the same one become the same.
class NeutralResolver {
public:
    NeutralResolver(LevelRun* out, bool rightToLeft)
        : m_out(out), m_levelOf(levels[rightToLeft] + 1), m_base(rightToLeft ? R : L)
    {
    }

    // A neutral run that becomes what the strong run behind it is needs no record: that run begins earlier.
    void Strong(int end, int type)
    {
        const int settled = Settled(type);
        if (m_patchFrom < m_count) Patch(settled);
        if (m_waiting && settled != type) Put(m_waiting, settled);
        m_waiting = 0;
        m_direction = m_strong = type;
        Put(end, type);
    }
    void Neutral(int end) { m_waiting = end; }
    void ArabicNumber(int end)
    {
        Settle(R);
        m_direction = R;
        Put(end, AN);
    }
    void EuropeanNumber(int start, int end)
    {
        Settle(m_strong);
        // Behind a left character the first digit belongs to it.
        if (m_base == L && m_count > 0 && m_out[m_count - 1].type == L) Put(++start, EN, 0);
        if (start < end) Put(end, EN);
    }
    // A type that is neither neutral nor gives a direction. Neutrals before it wait on, in records that are
    // patched later.
    void Inert(int end, int type)
    {
        const int from = m_patchFrom < m_count || m_waiting ? std::min(m_patchFrom, m_count) : INT_MAX;
        if (m_waiting) Put(m_waiting, ON);
        m_waiting = 0;
        Put(end, type);
        m_patchFrom = from;
    }
    int Finish()
    {
        Settle(none);
        return m_count;
    }

private:
    // Levels by type, from NoRow on, on an even and on an odd base.
    static constexpr short levels[2][12] = {{0, 0, 1, 2, 0, 0, 2, 0, 0, 0, 0, 0},
                                            {1, 2, 1, 2, 1, 1, 2, 1, 1, 1, 1, 1}};

    void Put(int end, int type) { Put(end, type, m_levelOf[type]); }
    void Put(int end, int type, short level) { m_out[m_count++] = {end, static_cast<short>(type), level}; }

    int Settled(int next) const { return m_direction == next && next != none ? next : m_base; }

    void Settle(int next)
    {
        const int settled = Settled(next);
        const bool patched = m_patchFrom < m_count;
        if (patched) Patch(settled);
        if (m_waiting) Put(m_waiting, settled);
        if (m_waiting || patched) m_direction = m_strong = settled;
        m_waiting = 0;
    }

    void Patch(int settled)
    {
        for (int k = m_patchFrom; k < m_count; ++k)
            if (m_out[k].type == ON)
                m_out[k] = {m_out[k].end, static_cast<short>(settled), m_levelOf[settled]};
        m_patchFrom = INT_MAX;
    }

    LevelRun* m_out;
    const short* m_levelOf;
    int m_base;
    int m_count = 0;
    int m_waiting = 0;         // end of the neutrals that wait, 0 if there are none
    int m_patchFrom = INT_MAX; // the first record that waits
    int m_direction = none;    // of the nearest strong character or Arabic number before
    int m_strong = none;       // the nearest strong character before
};

// A run of separators or terminators, as what its characters become: the outer ones may differ.
struct Pieces {
    int first, middle, last;
};

Pieces settleNumberSigns(int type, bool single, int before, int after)
{
    if (type == ET) {
        const int first = before == EN || (single && after == EN) ? EN : ON;
        return {first, ON, after == EN ? EN : ON};
    }
    // Of several separators in a row, each but the first and the last stands between two of its kind.
    return {single && before == after && before != NoRow ? before : ON, type, ON};
}

// The runs of a line with their numbers settled, handed on one by one.
class NumberResolver {
public:
    NumberResolver(LevelRun* out, bool rightToLeft) : m_strong(rightToLeft ? R : L), m_next(out, rightToLeft)
    {
    }

    void Take(int start, int end, int type, int before, int after)
    {
        if (isStrong(type) || isNeutral(type)) return Give(start, end, type);
        if (type == EN) return Give(start, end, m_strong == R ? AN : EN);
        if (type != ES && type != CS && type != ET) return Give(start, end, type);
        const Pieces p = settleNumberSigns(type, end - start == 1, before, after);
        Give(start, start + 1, p.first);
        if (end - start > 2) Give(start + 1, end - 1, p.middle);
        if (end - start > 1) Give(end - 1, end, p.last);
    }
    int Finish() { return m_next.Finish(); }

private:
    void Give(int start, int end, int type)
    {
        if (isStrong(type)) {
            m_strong = type; // a separator between two strong characters counts, too
            m_next.Strong(end, type);
        } else if (isNeutral(type)) {
            m_next.Neutral(end);
        } else if (type == EN) {
            m_next.EuropeanNumber(start, end);
        } else if (type == AN) {
            m_next.ArabicNumber(end);
        } else {
            m_next.Inert(end, type);
        }
    }

    int m_strong; // the last one before; at the start, numbers follow the base
    NeutralResolver m_next;
};

} // namespace

int splitByType(const WCHAR* text, int length, TypeRun* runs)
{
    TypeRun* last = runs;
    int previous = CUnicodeCharTypes::GetBiDirectionalType(text[0]);
    for (int i = 0; i < length; ++i) {
        const int type = CUnicodeCharTypes::GetBiDirectionalType(text[i]);
        last += type != previous;
        *last = {i + 1, type};
        previous = type;
    }
    return static_cast<int>(last - runs) + 1;
}

// Without branches: which words have one direction, nobody can predict.
int joinWords(TypeRun* runs, int count)
{
    int out = 0;
    int word = NoRow; // the direction of the last word, if nothing but neutrals stands behind it
    int behind = 1;   // it, and the runs behind it
    for (int k = 0; k < count; ++k) {
        const int end = runs[k].end, type = runs[k].type;
        const bool strong = isStrong(type), joins = strong & (type == word);
        out -= behind & -static_cast<int>(joins);
        runs[out].end = end;
        runs[out++].type = type;
        behind = (behind & (static_cast<int>(strong) - 1)) + 1;
        word = (strong | !isNeutral(type)) ? strong ? type : int{NoRow} : word;
    }
    return out;
}

int resolveRuns(const TypeRun* runs, int count, int length, bool rightToLeft, LevelRun* out)
{
    NumberResolver resolver(out, rightToLeft);
    int start = 0, before = NoRow;
    for (int k = 0; k < count; ++k) {
        const TypeRun run = runs[k];
        resolver.Take(start, run.end, run.type, before, run.end < length ? runs[k + 1].type : int{NoRow});
        start = run.end;
        before = run.type;
    }
    return resolver.Finish();
}

} // namespace corekit::detail
