// The wide string beside the strings of Qt, ICU and the standard library, on lines of mixed text.
#include "corekit/foundation/StringA.h"
#include "corekit/foundation/StringW.h"
#include "workload.h"

#include <atomic>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <fmt/format.h>
#include <QByteArray>
#include <QString>
#include <thread>
#include <unicode/unistr.h>

namespace {

const std::vector<std::u16string>& Lines()
{
    static const auto lines = workload::shortStrings();
    return lines;
}

struct CoreKit {
    using T = StringW;
    static T make(const std::u16string& s) { return T(s.data(), int(s.size())); }
    static void poke(T& t) { t.SetAt(0, u'x'); }
    static void join(T& t, const T& o) { t += o; }
    static long find(const T& a, const T& b) { return a.Find(b); }
    static T part(const T& a, int n) { return a.Left(n); }
};

struct Std {
    using T = std::u16string;
    static T make(const std::u16string& s) { return s; }
    static void poke(T& t) { t[0] = u'x'; }
    static void join(T& t, const T& o) { t += o; }
    static long find(const T& a, const T& b) { return long(a.find(b)); }
    static T part(const T& a, int n) { return a.substr(0, std::size_t(n)); }
};

struct QtText {
    using T = QString;
    static T make(const std::u16string& s) { return QStringView(s).toString(); }
    static void poke(T& t) { t[0] = QChar(u'x'); }
    static void join(T& t, const T& o) { t += o; }
    static long find(const T& a, const T& b) { return long(a.indexOf(b)); }
    static T part(const T& a, int n) { return a.left(n); }
};

struct Icu {
    using T = icu::UnicodeString;
    static T make(const std::u16string& s) { return T(s.data(), std::int32_t(s.size())); }
    static void poke(T& t) { t.setCharAt(0, u'x'); }
    static void join(T& t, const T& o) { t.append(o); }
    static long find(const T& a, const T& b) { return long(a.indexOf(b)); }
    static T part(const T& a, int n) { return T(a, 0, n); }
};

template <class S>
std::vector<typename S::T> All()
{
    std::vector<typename S::T> all;
    for (const auto& line : Lines()) all.push_back(S::make(line));
    return all;
}

void Done(benchmark::State& state, std::size_t n = Lines().size())
{
    state.SetItemsProcessed(state.iterations() * std::int64_t(n));
}

template <class S>
void Make(benchmark::State& state)
{
    for (auto _ : state) {
        for (const auto& line : Lines()) {
            typename S::T text = S::make(line);
            benchmark::DoNotOptimize(text);
        }
    }
    Done(state);
}

template <class S>
void Copy(benchmark::State& state)
{
    const auto all = All<S>();
    for (auto _ : state) {
        for (const auto& one : all) {
            typename S::T text = one;
            benchmark::DoNotOptimize(text);
        }
    }
    Done(state);
}

template <class S>
void CopyThenWrite(benchmark::State& state)
{
    const auto all = All<S>();
    for (auto _ : state) {
        for (const auto& one : all) {
            typename S::T text = one;
            S::poke(text);
            benchmark::DoNotOptimize(text);
        }
    }
    Done(state);
}

// What sharing costs at least: one count up and one down, and of a copy that is written to the text besides.
enum class Write { no, yes };

template <Write write>
void CountTwice(benchmark::State& state)
{
    const auto all = All<Std>();
    std::atomic<int> count = 1;
    for (auto _ : state) {
        for (const auto& one : all) {
            count.fetch_add(1);
            if constexpr (write == Write::yes) {
                std::u16string text = one;
                text[0] = u'x';
                benchmark::DoNotOptimize(text);
            }
            if (count.fetch_sub(1) == 1) state.SkipWithError("count");
        }
    }
    Done(state);
}

template <class S>
void Equal(benchmark::State& state)
{
    const auto a = All<S>(), b = All<S>();
    for (auto _ : state) {
        std::size_t n = 0;
        for (std::size_t i = 0; i < a.size(); ++i) n += a[i] == b[i];
        if (n != a.size()) state.SkipWithError("unequal");
    }
    Done(state);
}

template <class S>
void Order(benchmark::State& state)
{
    const auto a = All<S>();
    for (auto _ : state) {
        std::size_t n = 0;
        for (std::size_t i = 1; i < a.size(); ++i) n += a[i - 1] < a[i];
        benchmark::DoNotOptimize(n);
    }
    Done(state);
}

template <class Narrow>
void OrderNarrow(benchmark::State& state)
{
    std::vector<Narrow> all;
    for (const auto& line : Lines()) all.push_back(Narrow(workload::utf8(line).c_str()));
    for (auto _ : state) {
        std::size_t n = 0;
        for (std::size_t i = 1; i < all.size(); ++i) n += all[i - 1] < all[i];
        benchmark::DoNotOptimize(n);
    }
    Done(state);
}

// Hundred texts of six units in a hundred lines.
template <class S>
void Find(benchmark::State& state)
{
    typename S::T hay;
    std::size_t units = 0;
    std::vector<typename S::T> needles;
    for (std::size_t i = 0; i < 100; ++i) {
        S::join(hay, S::make(Lines()[i]));
        units += Lines()[i].size();
        needles.push_back(S::part(S::make(Lines()[100 + i]), 6));
    }
    for (auto _ : state) {
        long sum = 0;
        for (const auto& needle : needles) sum += S::find(hay, needle);
        benchmark::DoNotOptimize(sum);
    }
    Done(state, units * needles.size());
}

// A line with a text, a number and eight hexadecimal digits.
void FormatHere(benchmark::State& state)
{
    StringA text;
    for (int i = 0; auto _ : state) {
        text.Format("%s %d of %08X", "a short text", ++i, 77u);
        benchmark::DoNotOptimize(text);
    }
    Done(state, 1);
}

void FormatQt(benchmark::State& state)
{
    QString text;
    for (int i = 0; auto _ : state) {
        text = QString::asprintf("%s %d of %08X", "a short text", ++i, 77u);
        benchmark::DoNotOptimize(text);
    }
    Done(state, 1);
}

void FormatRuntime(benchmark::State& state)
{
    char text[128];
    for (int i = 0; auto _ : state) {
        std::snprintf(text, sizeof text, "%s %d of %08X", "a short text", ++i, 77u);
        benchmark::DoNotOptimize(std::string(text));
    }
    Done(state, 1);
}

void FormatFmt(benchmark::State& state)
{
    for (int i = 0; auto _ : state)
        benchmark::DoNotOptimize(fmt::format("{} {} of {:08X}", "a short text", ++i, 77u));
    Done(state, 1);
}

template <class S>
void Register(const std::string& name)
{
    const struct {
        const char* group;
        void (*run)(benchmark::State&);
    } groups[] = {{"make", Make<S>},   {"copy", Copy<S>},   {"copy_then_write", CopyThenWrite<S>},
                  {"equal", Equal<S>}, {"order", Order<S>}, {"find_units", Find<S>}};
    for (const auto& group : groups) {
        benchmark::RegisterBenchmark((std::string("strings/") + group.group + '/' + name).c_str(), group.run);
    }
}

} // namespace

int main(int argc, char** argv)
{
    std::thread([] {}).join(); // counts are atomic only once there was a second thread
    Register<CoreKit>("corekit");
    Register<QtText>("qt6_qstring");
    Register<Icu>("icu_unicode_string");
    Register<Std>("std_u16string");
    benchmark::RegisterBenchmark("strings/copy/limit_two_counts", CountTwice<Write::no>);
    benchmark::RegisterBenchmark("strings/copy_then_write/limit_two_counts", CountTwice<Write::yes>);
    benchmark::RegisterBenchmark("strings/order_narrow/corekit", OrderNarrow<StringA>);
    benchmark::RegisterBenchmark("strings/order_narrow/std_string", OrderNarrow<std::string>);
    benchmark::RegisterBenchmark("strings/order_narrow/qt6_qbytearray", OrderNarrow<QByteArray>);
    benchmark::RegisterBenchmark("strings/format/corekit", FormatHere);
    benchmark::RegisterBenchmark("strings/format/qt6_qstring", FormatQt);
    benchmark::RegisterBenchmark("strings/format/c_runtime", FormatRuntime);
    benchmark::RegisterBenchmark("strings/format/fmt", FormatFmt);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
