// Measures the curves whose names begin with one of the arguments, all without any, and prints them for
// growth.py: name, goal, entries, microseconds.
#include "growth.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace {

// The best of some runs; a long one is sure enough.
double Best(const growth::Curve& curve, std::size_t count)
{
    constexpr int mostRuns = 5;
    constexpr double enough = 3.0; // seconds
    const std::clock_t start = std::clock();
    double best = curve.At(count);
    for (int run = 1; run < mostRuns; ++run) {
        if (static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC > enough) break;
        best = std::min(best, curve.At(count));
    }
    return best;
}

} // namespace

int main(int argc, char** argv)
{
    auto curves = growth::Curve::All();
    std::ranges::stable_sort(curves, {},
                             [](const growth::Curve* curve) { return std::string_view(curve->Of().name); });
    for (const growth::Curve* const curve : curves) {
        const growth::About& about = curve->Of();
        const auto isAsked = [&](const char* head) { return std::string_view(about.name).starts_with(head); };
        if (argc > 1 && std::none_of(argv + 1, argv + argc, isAsked)) continue;
        for (std::size_t count = 1000; count <= about.most; count *= 10) {
            std::printf("%s\t%g\t%zu\t%.4g\n", about.name, about.goal, count, Best(*curve, count));
            std::fflush(stdout);
        }
    }
}
