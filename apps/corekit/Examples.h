// What to try first with each command: stands in its help and on its manual page.
#pragma once

#include <span>
#include <string_view>

namespace CLI {
class App;
}

struct Example {
    std::string_view command; // the subcommand
    std::string_view line, effect;
};

std::span<const Example> AllExamples();
// Puts the examples of each subcommand at the end of its help.
void AddExamples(CLI::App& app);
