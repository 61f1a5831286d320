#include "corekit/unicode/bidi/BidiRuns.h"

#include "corekit/unicode/tables/UnicodeCharTypes.h"

namespace corekit::detail {

using namespace corekit::bidi;

namespace {

constexpr int none = -1; // for a direction: no strong character so far

// Appends runs, joining those that do not differ.
class RunWriter {
public:
    explicit RunWriter(BidiRun* runs) : m_runs(runs) {}

    void Put(int end, int type, int level = 0)
    {
        if (m_count == 0 || m_runs[m_count - 1].type != type || m_runs[m_count - 1].level != level) {
            m_runs[m_count++] = {end, static_cast<short>(type), static_cast<short>(level)};
        } else {
            m_runs[m_count - 1].end = end;
        }
    }
    int Count() const { return m_count; }
    int LastType() const { return m_count ? m_runs[m_count - 1].type : int{NoRow}; }
    int LastEnd() const { return m_count ? m_runs[m_count - 1].end : 0; }

private:
    BidiRun* m_runs;
    int m_count = 0;
};

// Of several separators in a row, each but the first and the last stands between two of its kind.
void PutSeparators(RunWriter& out, int start, int end, int type, int before, int after)
{
    if (end - start == 1) {
        out.Put(end, before == after && before != NoRow ? before : ON);
        return;
    }
    out.Put(start + 1, ON);
    if (end - start > 2) out.Put(end - 1, type);
    out.Put(end, ON);
}

// Of several terminators in a row, only the outer ones can touch a number.
void PutTerminators(RunWriter& out, int start, int end, int before, int after)
{
    if (end - start == 1) {
        out.Put(end, before == EN || after == EN ? EN : ON);
        return;
    }
    if (before == EN) out.Put(start + 1, EN);
    if (after != EN) return out.Put(end, ON);
    if (end - 1 > out.LastEnd()) out.Put(end - 1, ON);
    out.Put(end, EN);
}

bool IsNeutral(int type) { return type == WS || type == ON; }

} // namespace

int SplitByType(const WCHAR* text, int length, BidiRun* runs)
{
    int last = -1, previous = 127;
    for (int i = 0; i < length; ++i) {
        const int type = CUnicodeCharTypes::GetBiDirectionalType(text[i]);
        last += type != previous;
        runs[last] = {i + 1, static_cast<short>(type), 0};
        previous = type;
    }
    return last + 1;
}

int ResolveNumbers(const BidiRun* runs, int count, int length, bool rightToLeft, BidiRun* resolved)
{
    RunWriter out(resolved);
    int strong = rightToLeft ? R : L; // the last one before; at the start, numbers follow the base
    for (int k = 0, start = 0; k < count; start = runs[k++].end) {
        const int end = runs[k].end, type = runs[k].type;
        const int before = k > 0 ? runs[k - 1].type : int{NoRow};
        const int after = end < length ? runs[k + 1].type : int{NoRow};
        switch (type) {
        case EN:
            out.Put(end, strong == R ? AN : EN);
            break;
        case ES:
        case CS:
            PutSeparators(out, start, end, type, before, after);
            break;
        case ET:
            PutTerminators(out, start, end, before, after);
            break;
        default:
            out.Put(end, type);
        }
        // A separator between two strong characters is one of them.
        if (out.LastType() == L || out.LastType() == R) strong = out.LastType();
    }
    return out.Count();
}

int ResolveNeutrals(const BidiRun* resolved, int count, bool rightToLeft, BidiRun* runs)
{
    // Levels by type, from NoRow on.
    static constexpr short levels[2][12] = {{0, 0, 1, 2, 0, 0, 2, 0, 0, 0, 0, 0}, {1, 2, 1, 2, 1, 1, 2, 1, 1, 1, 1, 1}};
    const short* const levelOf = levels[rightToLeft] + 1;
    const int base = rightToLeft ? R : L;
    RunWriter out(runs);

    int direction = none; // of the nearest strong character or Arabic number before
    int strong = none;    // the nearest strong character before
    int waiting = 0;      // the first run that is not written yet
    bool neutrals = false;

    const auto flush = [&](int until, int next) {
        const int settled = direction != none && direction == next ? direction : base;
        for (; waiting < until; ++waiting) {
            const BidiRun& run = resolved[waiting];
            const int type = IsNeutral(run.type) ? settled : run.type;
            out.Put(run.end, type, levelOf[type]);
        }
        if (neutrals) direction = strong = settled;
        neutrals = false;
    };

    for (int k = 0; k < count; ++k) {
        const int end = resolved[k].end, type = resolved[k].type;
        switch (type) {
        case WS:
        case ON:
            neutrals = true;
            break;
        case L:
        case R:
            flush(k, type);
            direction = strong = type;
            break;
        case AN:
            flush(k, R);
            direction = R;
            break;
        case EN:
            flush(k, strong);
            // Behind a left character the first digit belongs to it.
            if (!rightToLeft && out.LastType() == L) out.Put(out.LastEnd() + 1, EN, 0);
            if (out.LastEnd() < end) out.Put(end, EN, levelOf[EN]);
            waiting = k + 1;
            break;
        default:
            break;
        }
    }
    flush(count, none);
    return out.Count();
}

} // namespace corekit::detail
