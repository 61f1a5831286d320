// The controls of a progress dialog with one bar. Without a window nothing happens.
#pragma once

#include <climits>

class CWnd;

namespace corekit::detail {

// A range is never empty, but for one that begins at the greatest number.
constexpr int upperBound(int lower, int upper)
{
    return upper > lower || lower == INT_MAX ? upper : lower + 1;
}
// Where a position stands in its range; what is not 100 goes round at 100.
int percentage(long long position, int lower, int upper);

class ProgressParts {
public:
    explicit ProgressParts(const CWnd& dialog) : m_dialog(dialog) {}

    void begin(int lower, int upper, int step);
    void setStatus(const char* text);
    void setRange(int lower, int upper);
    void setStep(int step);
    // Each gives the bar's position before.
    int moveTo(int position, int lower, int upper);
    int moveBy(int delta, int lower, int upper);
    int step(int step, int lower, int upper);

private:
    void showPercentage(long long position, int lower, int upper);

    const CWnd& m_dialog;
};

} // namespace corekit::detail
