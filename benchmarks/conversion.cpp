// Matchers, checksums and sorts beside those of the C library, SQLite and zlib.
#include "corekit/foundation/Blocks.h"
#include "corekit/foundation/Sorting.h"
#include "corekit/foundation/WildCards.h"
#include "corekit/platform/Runtime.h"
#include "workload.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <cstring>
#include <fnmatch.h>
#include <sqlite3.h>
#include <zlib.h>

namespace {

using benchmark::State;

// --- names against patterns. A matcher of parts finds "*aa*" and the like where fnmatch does; a pattern that
// does not end with a star is given one, for the end of a name is nothing to it.

const std::vector<std::string>& Names()
{
    static const auto names = workload::fileNames();
    return names;
}

bool BothUnderstand(const std::string& pattern)
{
    return pattern.find('?') == std::string::npos && pattern.front() == '*' && pattern.size() > 1;
}

const std::vector<std::string>& Patterns()
{
    static const auto patterns = [] {
        std::vector<std::string> all;
        for (std::string pattern : workload::namePatterns()) {
            if (pattern.back() != '*') pattern += '*';
            if (BothUnderstand(pattern)) all.push_back(pattern);
        }
        return all;
    }();
    return patterns;
}

template <class Text, class Match>
void MatchAll(State& state, const std::vector<Text>& names, const std::vector<Text>& patterns, Match match)
{
    std::size_t expected = 0, found = 0;
    for (const auto& p : Patterns())
        for (const auto& n : Names()) expected += fnmatch(p.c_str(), n.c_str(), 0) == 0;
    for (auto _ : state) {
        found = 0;
        for (const auto& p : patterns)
            for (const auto& n : names) found += match(p, n);
        benchmark::DoNotOptimize(found);
    }
    if (found != expected) state.SkipWithError("other names were found");
    state.SetItemsProcessed(std::int64_t(state.iterations()) * std::int64_t(names.size() * patterns.size()));
}

std::vector<std::u16string> Wide(const std::vector<std::string>& all)
{
    std::vector<std::u16string> wide;
    for (const auto& text : all) wide.push_back(workload::wide(text));
    return wide;
}

void CoreKitMatch(State& state)
{
    MatchAll(state, Wide(Names()), Wide(Patterns()),
             [](const std::u16string& pattern, const std::u16string& name) {
                 return MatchWildCardString(name.c_str(), pattern.c_str(), 1) >= 0;
             });
}

void FnMatch(State& state)
{
    MatchAll(state, Names(), Patterns(), [](const std::string& pattern, const std::string& name) {
        return fnmatch(pattern.c_str(), name.c_str(), 0) == 0;
    });
}

void SqliteGlob(State& state)
{
    MatchAll(state, Names(), Patterns(), [](const std::string& pattern, const std::string& name) {
        return sqlite3_strglob(pattern.c_str(), name.c_str()) == 0;
    });
}

// --- checksums of a mebibyte

template <class Sum>
void SumAll(State& state, Sum sum)
{
    static auto bytes = workload::randomBytes(1 << 20);
    for (auto _ : state) benchmark::DoNotOptimize(sum(bytes.data(), unsigned(bytes.size())));
    state.SetItemsProcessed(std::int64_t(state.iterations()) * std::int64_t(bytes.size()));
}

void CoreKitAdler(State& state)
{
    SumAll(state, [](unsigned char* data, unsigned size) { return Adler32Checksum(data, size); });
}

void ZlibAdler(State& state)
{
    SumAll(state, [](unsigned char* data, unsigned size) { return adler32(1, data, size); });
}

// --- sorts of 10,000 elements, each from the same disorder

const std::vector<int>& Numbers()
{
    static const auto numbers = [] {
        std::vector<int> all;
        for (const std::uint32_t n : workload::permutation(10000, 0x50F7)) all.push_back(int(n));
        return all;
    }();
    return numbers;
}

template <class Sort>
void SortAll(State& state, Sort sort)
{
    std::vector<int> numbers;
    for (auto _ : state) {
        numbers = Numbers();
        sort(numbers);
        benchmark::ClobberMemory();
    }
    if (!std::is_sorted(numbers.begin(), numbers.end())) state.SkipWithError("not sorted");
    state.SetItemsProcessed(std::int64_t(state.iterations()) * std::int64_t(numbers.size()));
}

int ByValue(const void* a, const void* b)
{
    return *static_cast<const int*>(a) - *static_cast<const int*>(b);
}
int ByValueR(const void* a, const void* b, void*) { return ByValue(a, b); }
int ByContext(void*, const void* a, const void* b) { return ByValue(a, b); }

void CoreKitSort(State& state)
{
    SortAll(state, [](std::vector<int>& n) {
        QuickSort(n.data(), unsigned(n.size()), sizeof(int), nullptr, ByContext);
    });
}

void QSortR(State& state)
{
    SortAll(state, [](std::vector<int>& n) { qsort_r(n.data(), n.size(), sizeof(int), ByValueR, nullptr); });
}

void CoreKitSortArray(State& state)
{
    CArray<int, int> array;
    SortAll(state, [&](std::vector<int>& n) {
        array.SetSize(int(n.size()));
        std::copy(n.begin(), n.end(), array.GetData());
        SortArray(array);
        std::copy_n(array.GetData(), n.size(), n.begin());
    });
}

void QSort(State& state)
{
    SortAll(state, [](std::vector<int>& n) { qsort(n.data(), n.size(), sizeof(int), ByValue); });
}

std::vector<std::string> Words()
{
    const auto words = workload::words(10000);
    std::vector<std::string> shuffled;
    for (const std::uint32_t i : workload::permutation(words.size(), 0x7E27)) shuffled.push_back(words[i]);
    return shuffled;
}

void CoreKitSortTexts(State& state)
{
    const auto words = Words();
    CArray<StringA, const char*> array;
    for (auto _ : state) {
        state.PauseTiming();
        array.RemoveAll();
        for (const auto& word : words) array.Add(word.c_str());
        state.ResumeTiming();
        SortArray(array);
    }
    state.SetItemsProcessed(std::int64_t(state.iterations()) * std::int64_t(words.size()));
}

void QSortTexts(State& state)
{
    const auto words = Words();
    std::vector<StringA> array;
    for (auto _ : state) {
        state.PauseTiming();
        array.clear();
        for (const auto& word : words) array.push_back(StringA(word.c_str()));
        state.ResumeTiming();
        qsort(array.data(), array.size(), sizeof(StringA), [](const void* a, const void* b) {
            return _stricmp(*static_cast<const StringA*>(a), *static_cast<const StringA*>(b));
        });
    }
    state.SetItemsProcessed(std::int64_t(state.iterations()) * std::int64_t(words.size()));
}

} // namespace

BENCHMARK(CoreKitMatch)->Name("conversion/wildcards/corekit");
BENCHMARK(FnMatch)->Name("conversion/wildcards/fnmatch");
BENCHMARK(SqliteGlob)->Name("conversion/wildcards/sqlite_strglob");
BENCHMARK(CoreKitAdler)->Name("conversion/adler32/corekit");
BENCHMARK(ZlibAdler)->Name("conversion/adler32/zlib");
BENCHMARK(CoreKitSort)->Name("conversion/quicksort/corekit");
BENCHMARK(QSortR)->Name("conversion/quicksort/qsort_r");
BENCHMARK(CoreKitSortArray)->Name("conversion/sort_integers/corekit");
BENCHMARK(QSort)->Name("conversion/sort_integers/qsort");
BENCHMARK(CoreKitSortTexts)->Name("conversion/sort_texts/corekit");
BENCHMARK(QSortTexts)->Name("conversion/sort_texts/qsort");
BENCHMARK_MAIN();
