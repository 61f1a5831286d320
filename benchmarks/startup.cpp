// How long programs take from their start to their end, and what a service holds in memory, beside one on
// Qt's core.
#include "workload.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace {

// What the program wrote to its standard output.
std::string outputOf(const char* program, const char* argument)
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC)) std::abort();
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], 1);
    char* const line[] = {const_cast<char*>(program), const_cast<char*>(argument), nullptr};
    pid_t id;
    if (::posix_spawn(&id, program, &actions, nullptr, line, environ)) std::abort();
    posix_spawn_file_actions_destroy(&actions);
    ::close(ends[1]);
    std::string text;
    char bytes[4096];
    for (ssize_t n; (n = ::read(ends[0], bytes, sizeof bytes)) > 0;)
        text.append(bytes, static_cast<std::size_t>(n));
    ::close(ends[0]);
    int code = 0;
    if (::waitpid(id, &code, 0) != id || code) std::abort();
    return text;
}

void start(benchmark::State& state, const char* program, const std::string& argument)
{
    for (auto _ : state) benchmark::DoNotOptimize(outputOf(program, argument.c_str()));
    state.SetItemsProcessed(state.iterations());
}

// The rate is how many of them fit into a GiB.
void memory(benchmark::State& state, const char* program, const std::string& argument)
{
    double kibibytes = 0;
    for (auto _ : state) {
        kibibytes = std::atof(outputOf(program, argument.c_str()).c_str());
        state.SetIterationTime(kibibytes / (1 << 20));
    }
    state.SetItemsProcessed(state.iterations());
}

void add(const std::string& who, const char* program)
{
    const std::string folder = workload::scratch("");
    benchmark::RegisterBenchmark(("startup/service/" + who).c_str(), start, program, folder)->UseRealTime();
    benchmark::RegisterBenchmark(("startup/services_in_a_gib/" + who).c_str(), memory, program, folder)
        ->UseManualTime();
}

} // namespace

int main(int argc, char** argv)
{
    ::setenv("COREKIT_HOME", workload::scratch("startup").c_str(), 1);
    benchmark::Initialize(&argc, argv);
    add("corekit", STARTUP_COREKIT);
    add("qt6_core", STARTUP_QT);
    benchmark::RegisterBenchmark("startup/tool_help/corekit", start, TOOL, std::string("--help"))
        ->UseRealTime();
    benchmark::RunSpecifiedBenchmarks();
}
