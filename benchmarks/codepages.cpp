// Conversion of text between code pages beside ICU, iconv and Qt, line by line.
#include "corekit/platform/CodePages.h"
#include "corekit/unicode/codepages/CodePageConversion.h"
#include "workload.h"

#include <benchmark/benchmark.h>
#include <iconv.h>
#include <memory>
#include <QString>
#include <unicode/ucnv.h>
#include <unicode/unistr.h>

namespace {

using Wide = std::vector<std::u16string>;
using Narrow = std::vector<std::string>;

// A place that every line's result fits, so that only converting is measured.
constexpr int room = 1024;

// --- UTF-8, strings made anew

const Wide& MixedLines()
{
    static const auto lines = workload::shortStrings();
    return lines;
}

const Narrow& MixedBytes()
{
    static const auto bytes = [] {
        Narrow all;
        for (const auto& line : MixedLines()) all.push_back(workload::utf8(line));
        return all;
    }();
    return bytes;
}

template <class Texts, class Convert>
void Each(benchmark::State& state, const Texts& texts, const Wide& wide, Convert convert)
{
    for (auto _ : state)
        for (const auto& text : texts) convert(text);
    state.SetItemsProcessed(std::int64_t(state.iterations()) * std::int64_t(workload::units(wide)));
}

template <class Text, class Make>
void ReadUtf8(benchmark::State& state, Make make)
{
    Each(state, MixedBytes(), MixedLines(), [&](const std::string& bytes) {
        Text text = make(bytes);
        benchmark::DoNotOptimize(text);
    });
}

template <class Source, class Write>
void WriteUtf8(benchmark::State& state, Write write)
{
    std::vector<Source> texts;
    for (const auto& line : MixedLines()) texts.emplace_back(line.data(), int(line.size()));
    Each(state, texts, MixedLines(), [&](const Source& text) {
        auto bytes = write(text);
        benchmark::DoNotOptimize(bytes);
    });
}

void OwnRead(benchmark::State& state)
{
    ReadUtf8<StringW>(state, [](const std::string& bytes) {
        StringW text;
        UTF8toUnicode(bytes.data(), int(bytes.size()), text);
        return text;
    });
}

void PlatformRead(benchmark::State& state)
{
    ReadUtf8<StringW>(state, [](const std::string& bytes) {
        StringW text;
        AnsiToUnicode(CP_UTF8, text, bytes.data(), int(bytes.size()));
        return text;
    });
}

void QtRead(benchmark::State& state)
{
    ReadUtf8<QString>(state, [](const std::string& bytes) {
        return QString::fromUtf8(bytes.data(), qsizetype(bytes.size()));
    });
}

void IcuRead(benchmark::State& state)
{
    ReadUtf8<icu::UnicodeString>(
        state, [](const std::string& bytes) { return icu::UnicodeString::fromUTF8(bytes); });
}

void OwnWrite(benchmark::State& state)
{
    WriteUtf8<StringW>(state, [](const StringW& text) {
        StringA bytes;
        UnicodeToUTF8(text, text.GetLength(), bytes);
        return bytes;
    });
}

void PlatformWrite(benchmark::State& state)
{
    WriteUtf8<StringW>(state, [](const StringW& text) {
        StringA bytes;
        UnicodeToAnsi(CP_UTF8, bytes, text, text.GetLength());
        return bytes;
    });
}

struct QtText : QString {
    QtText(const char16_t* text, int length) : QString(QStringView(text, length).toString()) {}
};

void QtWrite(benchmark::State& state)
{
    WriteUtf8<QtText>(state, [](const QtText& text) { return text.toUtf8(); });
}

void IcuWrite(benchmark::State& state)
{
    WriteUtf8<icu::UnicodeString>(state, [](const icu::UnicodeString& text) {
        std::string bytes;
        text.toUTF8String(bytes);
        return bytes;
    });
}

// --- code pages, into one place

struct Page {
    UINT number;
    const char* icu;
    const char* iconv;
    Wide lines;
    Narrow bytes;
};

Narrow NarrowLines(UINT page, const Wide& lines)
{
    Narrow all;
    for (const auto& line : lines) {
        char to[room];
        const int length =
            WideCharToMultiByte(page, 0, line.data(), int(line.size()), to, room, nullptr, nullptr);
        all.emplace_back(to, std::size_t(length));
    }
    return all;
}

const Page& ArabicPage()
{
    static const Page page = [] {
        Page p{1256, "windows-1256", "CP1256", {}, {}};
        for (auto& line : workload::lines(workload::Script::Arabic)) {
            for (char16_t& c : line)
                if (c >= 0x0660 && c <= 0x0669) c = char16_t(c - 0x0660 + u'0'); // the page has no others
            p.lines.push_back(line);
        }
        p.bytes = NarrowLines(p.number, p.lines);
        return p;
    }();
    return page;
}

// Kana with a character of two in three, some Latin words and numbers.
const Page& JapanesePage()
{
    static const Page page = [] {
        Page p{932, "windows-932", "CP932", {}, {}};
        static const char16_t kanji[] =
            u"日本語放送番組原稿時間天気予報東京大阪政府経済選挙会議発表今年国際交通事故警察学校病院地震情報";
        workload::Rng random(0x932);
        for (const auto& latin : workload::lines(workload::Script::Latin)) {
            std::u16string line;
            while (line.size() < latin.size()) {
                const auto kind = random.below(100);
                if (kind < 55)
                    line += char16_t(u'ぁ' + random.below(83));
                else if (kind < 93)
                    line += kanji[random.below(std::size(kanji) - 1)];
                else
                    line += latin.substr(line.size(), random.range(1, 6));
            }
            p.lines.push_back(line);
        }
        p.bytes = NarrowLines(p.number, p.lines);
        return p;
    }();
    return page;
}

template <const Page& (*page)()>
void CoreKitPageRead(benchmark::State& state)
{
    WCHAR to[room];
    Each(state, page().bytes, page().lines, [&](const std::string& bytes) {
        benchmark::DoNotOptimize(
            MultiByteToWideChar(page().number, 0, bytes.data(), int(bytes.size()), to, room));
        benchmark::ClobberMemory();
    });
}

template <const Page& (*page)()>
void CoreKitPageWrite(benchmark::State& state)
{
    char to[room];
    Each(state, page().lines, page().lines, [&](const std::u16string& line) {
        benchmark::DoNotOptimize(
            WideCharToMultiByte(page().number, 0, line.data(), int(line.size()), to, room, nullptr, nullptr));
        benchmark::ClobberMemory();
    });
}

std::unique_ptr<UConverter, void (*)(UConverter*)> IcuConverter(const Page& page)
{
    UErrorCode error = U_ZERO_ERROR;
    return {ucnv_open(page.icu, &error), ucnv_close};
}

template <const Page& (*page)()>
void IcuPageRead(benchmark::State& state)
{
    const auto converter = IcuConverter(page());
    UChar to[room];
    Each(state, page().bytes, page().lines, [&](const std::string& bytes) {
        UErrorCode error = U_ZERO_ERROR;
        benchmark::DoNotOptimize(
            ucnv_toUChars(converter.get(), to, room, bytes.data(), int(bytes.size()), &error));
        benchmark::ClobberMemory();
    });
}

template <const Page& (*page)()>
void IcuPageWrite(benchmark::State& state)
{
    const auto converter = IcuConverter(page());
    char to[room];
    Each(state, page().lines, page().lines, [&](const std::u16string& line) {
        UErrorCode error = U_ZERO_ERROR;
        benchmark::DoNotOptimize(
            ucnv_fromUChars(converter.get(), to, room, line.data(), int(line.size()), &error));
        benchmark::ClobberMemory();
    });
}

template <class Text>
void Iconv(benchmark::State& state, const char* to, const char* from, const std::vector<Text>& texts,
           const Wide& wide)
{
    const iconv_t descriptor = iconv_open(to, from);
    char result[2 * room];
    std::size_t failed = 0;
    Each(state, texts, wide, [&](const Text& text) {
        char* in = const_cast<char*>(reinterpret_cast<const char*>(text.data()));
        char* out = result;
        std::size_t inLeft = text.size() * sizeof text[0], outLeft = sizeof result;
        failed += iconv(descriptor, &in, &inLeft, &out, &outLeft) == std::size_t(-1);
        benchmark::ClobberMemory();
    });
    iconv_close(descriptor);
    if (failed) state.SkipWithError("a line could not be converted");
}

template <const Page& (*page)()>
void IconvPageRead(benchmark::State& state)
{
    Iconv(state, "UTF-16LE", page().iconv, page().bytes, page().lines);
}

template <const Page& (*page)()>
void IconvPageWrite(benchmark::State& state)
{
    Iconv(state, page().iconv, "UTF-16LE", page().lines, page().lines);
}

} // namespace

BENCHMARK(OwnRead)->Name("codepages/read_utf8/corekit");
BENCHMARK(QtRead)->Name("codepages/read_utf8/qt6_qstring");
BENCHMARK(IcuRead)->Name("codepages/read_utf8/icu");
BENCHMARK(OwnWrite)->Name("codepages/write_utf8/corekit");
BENCHMARK(QtWrite)->Name("codepages/write_utf8/qt6_qstring");
BENCHMARK(IcuWrite)->Name("codepages/write_utf8/icu");
BENCHMARK(PlatformRead)->Name("codepages/read_65001/corekit");
BENCHMARK(QtRead)->Name("codepages/read_65001/qt6_qstring");
BENCHMARK(IcuRead)->Name("codepages/read_65001/icu");
BENCHMARK(PlatformWrite)->Name("codepages/write_65001/corekit");
BENCHMARK(QtWrite)->Name("codepages/write_65001/qt6_qstring");
BENCHMARK(IcuWrite)->Name("codepages/write_65001/icu");
BENCHMARK(CoreKitPageRead<ArabicPage>)->Name("codepages/read_1256/corekit");
BENCHMARK(IcuPageRead<ArabicPage>)->Name("codepages/read_1256/icu");
BENCHMARK(IconvPageRead<ArabicPage>)->Name("codepages/read_1256/iconv");
BENCHMARK(CoreKitPageWrite<ArabicPage>)->Name("codepages/write_1256/corekit");
BENCHMARK(IcuPageWrite<ArabicPage>)->Name("codepages/write_1256/icu");
BENCHMARK(IconvPageWrite<ArabicPage>)->Name("codepages/write_1256/iconv");
BENCHMARK(CoreKitPageRead<JapanesePage>)->Name("codepages/read_932/corekit");
BENCHMARK(IcuPageRead<JapanesePage>)->Name("codepages/read_932/icu");
BENCHMARK(IconvPageRead<JapanesePage>)->Name("codepages/read_932/iconv");
BENCHMARK(CoreKitPageWrite<JapanesePage>)->Name("codepages/write_932/corekit");
BENCHMARK(IcuPageWrite<JapanesePage>)->Name("codepages/write_932/icu");
BENCHMARK(IconvPageWrite<JapanesePage>)->Name("codepages/write_932/iconv");
BENCHMARK_MAIN();
