// Arabic letters to presentation forms, a line a call.
#include "corekit/foundation/StringW.h"
#include "corekit/unicode/shaping/GlyphConversion.h"
#include "workload.h"

#include <benchmark/benchmark.h>
#include <fribidi.h>
#include <unicode/ushape.h>

namespace {

using workload::Script;

const std::vector<std::u16string>& Lines()
{
    static const auto lines = workload::lines(Script::Arabic, 500);
    return lines;
}

void Done(benchmark::State& state)
{
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(workload::units(Lines())));
}

// A fresh string of glyphs for every line, as a drawing call makes one.
void CoreKit(benchmark::State& state)
{
    for (auto _ : state)
        for (const auto& line : Lines()) {
            StringW glyphs;
            ConvertToGlyphs(line.data(), static_cast<int>(line.size()), glyphs, false);
            benchmark::DoNotOptimize(static_cast<const WCHAR*>(glyphs));
            benchmark::ClobberMemory();
        }
    Done(state);
}

void Icu(benchmark::State& state)
{
    UErrorCode error = U_ZERO_ERROR;
    std::vector<char16_t> out(512);
    for (auto _ : state)
        for (const auto& line : Lines())
            benchmark::DoNotOptimize(u_shapeArabic(
                line.data(), static_cast<std::int32_t>(line.size()), out.data(),
                static_cast<std::int32_t>(out.size()),
                U_SHAPE_LETTERS_SHAPE | U_SHAPE_TEXT_DIRECTION_LOGICAL | U_SHAPE_LENGTH_GROW_SHRINK, &error));
    if (U_FAILURE(error)) state.SkipWithError(u_errorName(error));
    Done(state);
}

void Fribidi(benchmark::State& state)
{
    std::vector<FriBidiChar> text(256);
    std::vector<FriBidiCharType> types(256);
    std::vector<FriBidiArabicProp> props(256);
    const std::vector<FriBidiLevel> levels(256, 1);
    std::vector<char16_t> out(256);
    for (auto _ : state)
        for (const auto& line : Lines()) {
            const auto n = static_cast<FriBidiStrIndex>(line.size());
            std::copy(line.begin(), line.end(), text.begin());
            fribidi_get_bidi_types(text.data(), n, types.data());
            fribidi_get_joining_types(text.data(), n, props.data());
            fribidi_join_arabic(types.data(), n, levels.data(), props.data());
            fribidi_shape_arabic(FRIBIDI_FLAGS_ARABIC, levels.data(), n, props.data(), text.data());
            std::copy_n(text.begin(), n, out.begin());
            benchmark::DoNotOptimize(out.data());
        }
    Done(state);
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::RegisterBenchmark("shaping/arabic/corekit", CoreKit);
    benchmark::RegisterBenchmark("shaping/arabic/icu_shape_arabic", Icu);
    benchmark::RegisterBenchmark("shaping/arabic/fribidi_shape_arabic", Fribidi);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
