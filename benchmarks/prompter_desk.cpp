// The prompter's desk with a script of ten mebibytes, as one story and as five hundred: how long it takes to
// open, and a key press in the editor up to the painted editor and the frame of the prompt that shows it.
#include "desk/Desk.h"

#include "corekit/platform/Input.h"
#include "corekit/platform/InputTest.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/Toolkit.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

using namespace prompter;
using namespace corekit::test;

namespace {

constexpr std::size_t mib = 1024 * 1024;
constexpr std::string_view samples[] = {
    "Good evening. The council voted tonight to rebuild the old harbour bridge, closed in 1998.\n",
    "مساء الخير. صوت المجلس الليلة على إعادة بناء الجسر القديم في الميناء (1998).\n",
    "The mayor said: «سيبدأ العمل في الربيع» and then took questions from the press.\n",
};

std::filesystem::path Scratch()
{
    const char* const given = std::getenv("BENCH_SCRATCH");
    return std::filesystem::path(given ? given : "/tmp") / "prompter-desk";
}

DeskOptions OptionsWith(std::size_t stories)
{
    const std::filesystem::path folder = Scratch();
    std::filesystem::create_directories(folder);
    DeskOptions options;
    options.script = folder / (std::to_string(stories) + ".txt");
    options.settingsPath = folder / "settings";
    options.recoveryFolder = folder / "state";
    options.listDisplays = [] { return std::vector<Display>{{"DP-1", "One", {0, 0, 1920, 1080}}}; };
    std::ofstream script(options.script, std::ios::binary);
    std::size_t written = 0;
    for (std::size_t line = 0, story = 0; written < 10 * mib; ++line) {
        if (written * stories >= 10 * mib * (story + 1)) {
            script << "---\n";
            ++story;
        }
        script << samples[line % std::size(samples)];
        written += samples[line % std::size(samples)].size();
    }
    return options;
}

void Open(benchmark::State& state)
{
    const DeskOptions options = OptionsWith(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        Desk desk(options);
        desk.Open();
        desk.Tick();
        RunWaiting();
        state.PauseTiming();
        desk.DestroyWindow();
        state.ResumeTiming();
    }
}

// In the tenth line, which has all the others behind it; there and back, so that the script stays as long as
// it is.
void Key(benchmark::State& state)
{
    Desk desk(OptionsWith(static_cast<std::size_t>(state.range(0))));
    desk.Open();
    desk.StartPrompt(false);
    ::SetFocus(desk.Editor());
    RunWaiting();
    PressKey(VK_HOME, {VK_CONTROL});
    for (int line = 0; line < 10; ++line) PressKey(VK_DOWN);
    bool isThere = false;
    for (auto _ : state) {
        isThere = !isThere;
        PressKey(isThere ? 'X' : VK_BACK);
        desk.Tick();
        UpdateWindow(desk.Editor());
    }
    desk.DestroyWindow();
}

BENCHMARK(Open)->Name("prompter/open_10_mib")->Arg(1)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK(Key)->Name("prompter/key_in_10_mib")->Arg(1)->Arg(500)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    if (!StartToolkit(ToolkitDisplay::offscreen)) return EXIT_FAILURE;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
