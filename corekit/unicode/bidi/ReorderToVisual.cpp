#include "corekit/unicode/bidi/ReorderToVisual.h"

#include "corekit/unicode/bidi/BidiRuns.h"
#include "corekit/unicode/ScratchBuffer.h"
#include "corekit/unicode/tables/UnicodeCharTypes.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <numeric>

using namespace corekit::bidi;
using corekit::detail::BidiRun;

namespace {

constexpr int ordinaryLine = 256;
constexpr WCHAR firstRightToLeft = 0x0591;

int TypeOf(WCHAR c) { return CUnicodeCharTypes::GetBiDirectionalType(c); }

bool MayHoldRightToLeft(const WCHAR* text, int length)
{
    WCHAR found = 0;
    for (int i = 0; i < length; ++i) found |= static_cast<WCHAR>(text[i] >= firstRightToLeft);
    return found != 0;
}

// --- lines in which nothing runs from right to left: every neutral becomes left, nothing moves

int LeftToRightType(const WCHAR* text, int length, int i)
{
    int type = TypeOf(text[i]);
    const int before = i > 0 ? TypeOf(text[i - 1]) : int{NoRow};
    const int after = i + 1 < length ? TypeOf(text[i + 1]) : int{NoRow};
    if (type == ES || type == CS) {
        type = before == after && before != NoRow ? before : ON;
    } else if (type == ET) {
        type = before == EN || after == EN ? EN : ON;
    }
    return type == WS || type == ON ? L : type;
}

// Whether a character needs a look: all but those ASCII characters that are left or neutral. What remains
// are the two stretches #$% and +,-./0123456789: and what is not ASCII.
constexpr bool NeedsLook(WCHAR c)
{
    return static_cast<WCHAR>(c - u'#') < 3 || static_cast<WCHAR>(c - u'+') < 16 || c >= 0x80;
}

void ResolveLeftToRight(const WCHAR* text, int length, int* types)
{
    constexpr int step = 8;
    std::fill_n(types, length, int{L});
    int i = 0;
    for (; i + step <= length; i += step) {
        unsigned char flags[step];
        for (int j = 0; j < step; ++j) flags[j] = NeedsLook(text[i + j]);
        for (auto look = std::bit_cast<std::uint64_t>(flags); look; look &= look - 1) {
            const int at = i + std::countr_zero(look) / 8;
            types[at] = LeftToRightType(text, length, at);
        }
    }
    for (; i < length; ++i)
        if (NeedsLook(text[i])) types[i] = LeftToRightType(text, length, i);
}

// --- lines that are turned round, in part or wholly

class VisualWriter {
public:
    VisualWriter(const WCHAR* logical, WCHAR* text, int* order, int* types)
        : m_logical(logical), m_text(text), m_order(order), m_types(types)
    {
    }

    // The characters of a run, in logical order.
    void Forward(int start, int end, int type)
    {
        const int count = end - start;
        std::copy_n(m_logical + start, count, m_text + m_at);
        std::iota(m_order + m_at, m_order + m_at + count, start);
        Advance(count, type);
    }
    // The characters of a run, last to first.
    void Backward(int start, int end, int type)
    {
        const int count = end - start;
        for (int i = 0; i < count; ++i) {
            m_text[m_at + i] = m_logical[end - 1 - i];
            m_order[m_at + i] = end - 1 - i;
        }
        Advance(count, type);
    }

private:
    void Advance(int count, int type)
    {
        std::fill_n(m_types + m_at, count, type);
        m_at += count;
    }

    const WCHAR* m_logical;
    WCHAR* m_text;
    int* m_order;
    int* m_types;
    int m_at = 0;
};

// A stretch of runs of level 1 and above comes last run first. Within it, runs of level 2 that stand
// together have been turned twice and keep their order.
void WriteVisual(const BidiRun* runs, int count, VisualWriter& out)
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

bool HasRightToLeft(const BidiRun* runs, int count)
{
    return std::any_of(runs, runs + count, [](const BidiRun& r) { return r.type == R || r.type == AN; });
}

} // namespace

void ReorderToVisual(StringW& text, CArray<int, int>& order, CArray<int, int>& types, int baseLevel)
{
    const int length = text.GetLength();
    if (length == 0) return;
    order.SetSize(length);
    types.SetSize(length);

    const bool rightToLeft = (baseLevel & 1) != 0;
    if (rightToLeft || MayHoldRightToLeft(text, length)) {
        using Runs = corekit::detail::ScratchBuffer<BidiRun, ordinaryLine>;
        Runs runs(static_cast<std::size_t>(length));
        int count = corekit::detail::SplitByType(text, length, runs.Get());
        if (rightToLeft || HasRightToLeft(runs.Get(), count)) {
            Runs resolved(static_cast<std::size_t>(length));
            count = corekit::detail::ResolveNumbers(runs.Get(), count, length, rightToLeft, resolved.Get());
            count = corekit::detail::ResolveNeutrals(resolved.Get(), count, rightToLeft, runs.Get());

            corekit::detail::ScratchBuffer<WCHAR, ordinaryLine> logical(static_cast<std::size_t>(length));
            WCHAR* visual = text.GetBuffer(length);
            std::copy_n(visual, length, logical.Get());
            VisualWriter out(logical.Get(), visual, order.GetData(), types.GetData());
            WriteVisual(runs.Get(), count, out);
            return;
        }
    }
    ResolveLeftToRight(text, length, types.GetData());
    std::iota(order.GetData(), order.GetData() + length, 0);
}

int GetBaseLevel(const WCHAR* text, int count)
{
    for (int i = 0; count < 0 ? text[i] != 0 : i < count; ++i) {
        const int type = TypeOf(text[i]);
        if (type == L || type == R) return type;
    }
    return 0;
}
