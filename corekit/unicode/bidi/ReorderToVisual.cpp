#include "corekit/unicode/bidi/ReorderToVisual.h"

#include "corekit/platform/TextVector.h"
#include "corekit/unicode/bidi/BidiRuns.h"
#include "corekit/unicode/ScratchBuffer.h"
#include "corekit/unicode/tables/UnicodeCharTypes.h"

#include <algorithm>
#include <bit>

using namespace corekit::bidi;
using namespace corekit::detail;

namespace {

constexpr int ordinaryLine = 256;

int typeOf(WCHAR c) { return CUnicodeCharTypes::GetBiDirectionalType(c); }

// --- lines in which nothing runs from right to left: every neutral becomes left, nothing moves

int leftToRightType(const WCHAR* text, int length, int i)
{
    int type = typeOf(text[i]);
    if (type == ES || type == CS || type == ET) {
        const int before = i > 0 ? typeOf(text[i - 1]) : int{NoRow};
        const int after = i + 1 < length ? typeOf(text[i + 1]) : int{NoRow};
        if (type == ET) {
            type = before == EN || after == EN ? EN : ON;
        } else {
            type = before == after && before != NoRow ? before : ON;
        }
    }
    return type == WS || type == ON ? L : type;
}

// Of ASCII, all is left or neutral but the digits and the signs that may belong to a number. Those signs, and
// what is not ASCII, need a look.
Units areDigits(Units c) { return unitsInRange(c, u'0', u'9'); }
Units needLook(Units c)
{
    return unitsInRange(c, u'#', u'%') | unitsInRange(c, u'+', u'/') | unitsInRange(c, u':', u':') |
           unitsInRange(c, 0x0080, 0xFFFF);
}

// Marks all that may run from right to left: Hebrew and Arabic, the mark, and what lies above the surrogates.
Units mayRunRightToLeft(Units c)
{
    return unitsInRange(c, 0x0590, 0x06FF) | unitsInRange(c, 0x200F, 0x200F) |
           unitsInRange(c, 0xE000, 0xFFFF);
}

bool mayTurn(const WCHAR* text, int length)
{
    if (length < unitsAtOnce)
        return std::any_of(text, text + length, [](WCHAR c) { return typeOf(c) == R || typeOf(c) == AN; });
    Units found{};
    for (int i = 0; i < length; i += unitsAtOnce)
        found |= mayRunRightToLeft(loadUnits(text + std::min(i, length - unitsAtOnce)));
    return markBits(found) != 0;
}

void reorderLeftToRight(const WCHAR* text, int length, int* order, int* types)
{
    if (length < unitsAtOnce) {
        for (int i = 0; i < length; ++i) {
            order[i] = i;
            types[i] = leftToRightType(text, length, i);
        }
        return;
    }
    for (int i = 0; i < length; i += unitsAtOnce) {
        const int at = std::min(i, length - unitsAtOnce); // the last step may overlap the one before
        const Units units = loadUnits(text + at);
        storeSeries(order + at, at, 1);
        storeAsNumbers(types + at, areDigits(units) & std::uint16_t{EN});
        const Units marks = needLook(units);
        if (markBits(marks) == 0) [[likely]]
            continue;
        forEachMark(marks, [&](int k) { types[at + k] = leftToRightType(text, length, at + k); });
    }
}

// --- lines that are turned round, in part or wholly

// Writes runs in display order, in steps of eight: what a step writes behind its run, the next run writes
// anew, and only at the end of the line characters go one by one.
class VisualWriter {
public:
    // Keeps a copy of the text, which is then written over.
    VisualWriter(WCHAR* text, int length, int* order, int* types)
        : m_logical(static_cast<std::size_t>(length) + 2 * unitsAtOnce), m_text(text), m_order(order),
          m_types(types), m_length(length)
    {
        std::copy_n(text, length, Logical());
    }

    // The characters of a run, in logical order.
    void Forward(int start, int end, int type)
    {
        Write(end - start, type, start, 1, [&](int i) { return loadUnits(Logical() + start + i); });
    }
    // The characters of a run, last to first.
    void Backward(int start, int end, int type)
    {
        Write(end - start, type, end - 1, -1,
              [&](int i) { return reversedUnits(loadUnits(Logical() + end - i - unitsAtOnce)); });
    }

private:
    // With room for a step on both sides.
    WCHAR* Logical() { return m_logical.Get() + unitsAtOnce; }

    template <class Load>
    void Write(int count, int type, int first, int direction, Load load)
    {
        const int end = m_at + count;
        for (; m_at < end && m_at <= m_length - unitsAtOnce;
             m_at += unitsAtOnce, first += direction * unitsAtOnce) {
            storeUnits(m_text + m_at, load(count - (end - m_at)));
            storeSeries(m_order + m_at, first, direction);
            storeSeries(m_types + m_at, type, 0);
        }
        for (; m_at < end; ++m_at, first += direction) {
            m_text[m_at] = Logical()[first];
            m_order[m_at] = first;
            m_types[m_at] = type;
        }
        m_at = end;
    }

    ScratchBuffer<WCHAR, ordinaryLine> m_logical;
    WCHAR* m_text;
    int* m_order;
    int* m_types;
    int m_length;
    int m_at = 0;
};

// A stretch of runs of level 1 and above comes last run first. Within it, runs of level 2 that stand
// together have been turned twice and keep their order.
void writeVisual(const LevelRun* runs, int count, VisualWriter& out)
{
    const auto start = [&](int k) { return k > 0 ? runs[k - 1].end : 0; };
    for (int k = 0; k < count;) {
        if (runs[k].level == 0) {
            out.Forward(start(k), runs[k].end, runs[k].type);
            ++k;
            continue;
        }
        int stop = k + 1;
        while (stop < count && runs[stop].level > 0) ++stop;
        for (int last = stop; last > k;) {
            int first = last - 1;
            if (runs[first].level == 1) {
                out.Backward(start(first), runs[first].end, runs[first].type);
            } else {
                while (first > k && runs[first - 1].level == 2) --first;
                for (int j = first; j < last; ++j) out.Forward(start(j), runs[j].end, runs[j].type);
            }
            last = first;
        }
        k = stop;
    }
}

void reorderBothWays(StringW& text, int* order, int* types, bool rightToLeft)
{
    const int length = text.GetLength();
    const auto room = static_cast<std::size_t>(length);
    ScratchBuffer<TypeRun, ordinaryLine> byType(room);
    ScratchBuffer<LevelRun, ordinaryLine> runs(room);
    int count = splitByType(text, length, byType.Get());
    count = joinWords(byType.Get(), count);
    count = resolveRuns(byType.Get(), count, length, rightToLeft, runs.Get());

    VisualWriter out(text.GetBuffer(length), length, order, types);
    writeVisual(runs.Get(), count, out);
}

} // namespace

void ReorderToVisual(StringW& text, CArray<int, int>& order, CArray<int, int>& types, int baseLevel)
{
    const int length = text.GetLength();
    if (length == 0) return;
    order.SetSize(length);
    types.SetSize(length);
    const bool rightToLeft = (baseLevel & 1) != 0;
    if (rightToLeft || mayTurn(text, length))
        reorderBothWays(text, order.GetData(), types.GetData(), rightToLeft);
    else
        reorderLeftToRight(text, length, order.GetData(), types.GetData());
}

int GetBaseLevel(const WCHAR* text, int count)
{
    for (int i = 0; count < 0 ? text[i] != 0 : i < count; ++i) {
        const int type = typeOf(text[i]);
        if (type == L || type == R) return type;
    }
    return 0;
}
