// From logical to display order: the text, the order and the types of each line.
#include "corekit/unicode/bidi/ReorderToVisual.h"
#include "workload.h"

#include <benchmark/benchmark.h>
#include <fribidi.h>
#include <unicode/ubidi.h>

namespace {

using workload::Script;

struct Corpus {
    std::vector<std::u16string> lines;
    std::size_t units;
    bool rightToLeft;

    explicit Corpus(Script s)
        : lines(workload::lines(s)), units(workload::units(lines)), rightToLeft(s == Script::MixedRtl)
    {
    }
};

void Done(benchmark::State& state, const Corpus& corpus)
{
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(corpus.units));
}

// The line is copied into a string, which is turned round in place; string and arrays are used again.
void CoreKit(benchmark::State& state, const Corpus& corpus)
{
    CArray<int, int> order, types;
    StringW text;
    for (auto _ : state)
        for (const auto& line : corpus.lines) {
            text.AssignCopy(static_cast<int>(line.size()), line.data());
            ReorderToVisual(text, order, types, corpus.rightToLeft ? 1 : 0);
            benchmark::DoNotOptimize(order.GetData());
            benchmark::DoNotOptimize(types.GetData());
            benchmark::ClobberMemory();
        }
    Done(state, corpus);
}

template <bool Map>
void Icu(benchmark::State& state, const Corpus& corpus)
{
    UErrorCode error = U_ZERO_ERROR;
    UBiDi* bidi = ubidi_openSized(256, 256, &error);
    std::vector<char16_t> out(512);
    std::vector<std::int32_t> map(256);
    for (auto _ : state)
        for (const auto& line : corpus.lines) {
            ubidi_setPara(bidi, line.data(), static_cast<std::int32_t>(line.size()), corpus.rightToLeft,
                          nullptr, &error);
            if constexpr (Map) {
                ubidi_getVisualMap(bidi, map.data(), &error);
            } else {
                ubidi_writeReordered(bidi, out.data(), static_cast<std::int32_t>(out.size()), 0, &error);
            }
            benchmark::DoNotOptimize(map.data());
            benchmark::DoNotOptimize(out.data());
        }
    if (U_FAILURE(error)) state.SkipWithError(u_errorName(error));
    ubidi_close(bidi);
    Done(state, corpus);
}

void Fribidi(benchmark::State& state, const Corpus& corpus)
{
    std::vector<FriBidiChar> text(256);
    std::vector<FriBidiCharType> types(256);
    std::vector<FriBidiBracketType> brackets(256);
    std::vector<FriBidiLevel> levels(256);
    for (auto _ : state)
        for (const auto& line : corpus.lines) {
            const auto n = static_cast<FriBidiStrIndex>(line.size());
            std::copy(line.begin(), line.end(), text.begin());
            FriBidiParType par = corpus.rightToLeft ? FRIBIDI_PAR_RTL : FRIBIDI_PAR_LTR;
            fribidi_get_bidi_types(text.data(), n, types.data());
            fribidi_get_bracket_types(text.data(), n, types.data(), brackets.data());
            benchmark::DoNotOptimize(
                fribidi_get_par_embedding_levels_ex(types.data(), brackets.data(), n, &par, levels.data()));
            benchmark::DoNotOptimize(fribidi_reorder_line(FRIBIDI_FLAGS_DEFAULT, types.data(), n, 0, par,
                                                          levels.data(), text.data(), nullptr));
        }
    Done(state, corpus);
}

} // namespace

int main(int argc, char** argv)
{
    static const Corpus latin(Script::Latin), mixedLtr(Script::MixedLtr), mixedRtl(Script::MixedRtl);
    for (const auto& [name, corpus] :
         {std::pair{"latin", &latin}, std::pair{"mixed_ltr", &mixedLtr}, std::pair{"mixed_rtl", &mixedRtl}}) {
        const auto add = [&, c = corpus](const char* peer, void (*run)(benchmark::State&, const Corpus&)) {
            const std::string full = std::string("bidi/") + name + "/" + peer;
            benchmark::RegisterBenchmark(full.c_str(), [=](benchmark::State& state) { run(state, *c); });
        };
        add("corekit", CoreKit);
        add("icu_write_reordered", Icu<false>);
        add("icu_visual_map", Icu<true>);
        add("fribidi", Fribidi);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
