// Looking up a code unit's general type, direction and upper case, over real text and over every unit in
// random order.
#include "corekit/unicode/tables/UnicodeCharTypes.h"
#include "workload.h"

#include <benchmark/benchmark.h>
#include <fribidi.h>
#include <QChar>
#include <unicode/uchar.h>
#include <utf8proc.h>

namespace {

template <class F>
void Add(const std::string& what, const std::string& peer, F lookup)
{
    static const auto text = workload::textPoints(), bmp = workload::randomBmp();
    for (const auto* corpus : {&text, &bmp}) {
        const std::string name = "chardata/" + what + (corpus == &bmp ? "_random_bmp/" : "_text/") + peer;
        benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
            for (auto _ : state) {
                std::uint64_t sum = 0;
                for (const char16_t c : *corpus) sum += static_cast<std::uint64_t>(lookup(c));
                benchmark::DoNotOptimize(sum);
            }
            state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(corpus->size()));
        });
    }
}

// What no table can pass: one byte for each unit, read where it stands.
template <class F>
void AddLimit(const std::string& what, F lookup)
{
    static const auto flat = [&] {
        std::vector<std::uint8_t> all;
        for (std::uint32_t c = 0; c < 0x10000; ++c)
            all.push_back(static_cast<std::uint8_t>(lookup(char16_t(c))));
        return all;
    }();
    Add(what, "limit_flat_table", [table = flat.data()](char16_t c) { return table[c]; });
}

} // namespace

int main(int argc, char** argv)
{
    Add("general_type", "corekit", [](char16_t c) { return CUnicodeCharTypes::GetGeneralType(c); });
    Add("general_type", "icu", [](char16_t c) { return u_charType(c); });
    Add("general_type", "utf8proc", [](char16_t c) { return utf8proc_category(c); });
    Add("general_type", "qt6", [](char16_t c) { return QChar::category(c); });

    AddLimit("general_type", [](char16_t c) { return CUnicodeCharTypes::GetGeneralType(c); });

    Add("bidi_type", "corekit", [](char16_t c) { return CUnicodeCharTypes::GetBiDirectionalType(c); });
    Add("bidi_type", "icu", [](char16_t c) { return u_charDirection(c); });
    Add("bidi_type", "fribidi", [](char16_t c) { return fribidi_get_bidi_type(c); });
    Add("bidi_type", "qt6", [](char16_t c) { return QChar::direction(c); });

    AddLimit("bidi_type", [](char16_t c) { return CUnicodeCharTypes::GetBiDirectionalType(c); });

    Add("to_upper", "corekit", [](char16_t c) { return CUnicodeCharTypes::MakeUpper(c); });
    Add("to_upper", "icu", [](char16_t c) { return u_toupper(c); });
    Add("to_upper", "utf8proc", [](char16_t c) { return utf8proc_toupper(c); });
    Add("to_upper", "qt6", [](char16_t c) { return QChar::toUpper(char32_t(c)); });

    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
