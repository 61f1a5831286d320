// The start of the Unicode manager on a machine with hundreds of fonts, against listing the fonts with
// fontconfig. Both are done once in the life of a program, so each sample is a new process of this program,
// with the toolkit running and nothing known of fonts.
#include "corekit/platform/Toolkit.h"
#include "corekit/unicode/ui/UnicodeManager.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fontconfig/fontconfig.h>
#include <string>
#include <string_view>
#include <unistd.h>

namespace {

// What a process tells of its start.
struct Sample {
    double seconds = 0; // of the processor: neither waits for anything
    int fonts = 0;
};

int StartManager()
{
    const CUnicodeManager* const manager = CUnicodeManager::Initialise(TRUE);
    return manager->GetFirstFontPosition() ? 1 : 0;
}

int ListFonts()
{
    FcPattern* const any = FcPatternCreate();
    FcObjectSet* const wanted =
        FcObjectSetBuild(FC_FAMILY, FC_STYLE, FC_FILE, FC_INDEX, FC_SCALABLE, static_cast<char*>(nullptr));
    FcFontSet* const fonts = FcFontList(nullptr, any, wanted); // reads the configuration first
    return fonts ? fonts->nfont : 0;
}

// What a new process of this program does when it is given a name of these.
struct Starter {
    const char* name;
    int (*start)();
};
constexpr Starter starters[] = {{"manager", StartManager}, {"list", ListFonts}};

int StartAndTell(const Starter& starter)
{
    if (!StartToolkit(ToolkitDisplay::offscreen)) return 1;
    Sample sample;
    const std::clock_t began = std::clock();
    sample.fonts = starter.start();
    sample.seconds = static_cast<double>(std::clock() - began) / CLOCKS_PER_SEC;
    std::fwrite(&sample, sizeof sample, 1, stdout);
    std::fflush(stdout);
    _exit(0); // the end is not measured
}

Sample InNewProcess(const std::string& name)
{
    static const std::string self = std::filesystem::read_symlink("/proc/self/exe").string();
    Sample sample;
    if (std::FILE* const told = popen(("exec '" + self + "' " + name).c_str(), "r")) {
        if (std::fread(&sample, sizeof sample, 1, told) != 1) sample = {};
        pclose(told);
    }
    return sample;
}

void Start(benchmark::State& state, const std::string& name)
{
    InNewProcess(name); // makes the registry, and fontconfig's cache where that is missing
    for (auto _ : state) {
        const Sample sample = InNewProcess(name);
        if (sample.fonts == 0) state.SkipWithError("no fonts");
        state.SetIterationTime(sample.seconds);
    }
    state.SetItemsProcessed(state.iterations());
}

} // namespace

BENCHMARK_CAPTURE(Start, manager, "manager")->Name("manager/start/corekit")->UseManualTime();
BENCHMARK_CAPTURE(Start, fontconfig, "list")->Name("manager/start/fontconfig_list")->UseManualTime();

int main(int count, char** arguments)
{
    for (const Starter& starter : starters)
        if (count == 2 && arguments[1] == std::string_view(starter.name)) return StartAndTell(starter);
    const char* const scratch = std::getenv("BENCH_SCRATCH");
    setenv("COREKIT_HOME", (std::string(scratch ? scratch : "/tmp") + "/manager").c_str(), 1);
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
