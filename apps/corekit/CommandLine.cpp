#include "CommandLine.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <numeric>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace {

constexpr char mark = '\0'; // no argument can hold one

// Letters to put in, take out or exchange to make one word of the other.
std::size_t Distance(std::string_view a, std::string_view b)
{
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t k = 0; k < b.size(); ++k) {
            const std::size_t exchanged = diagonal + (a[i] != b[k]);
            diagonal = row[k + 1];
            row[k + 1] = std::min({exchanged, row[k] + 1, row[k + 1] + 1});
        }
    }
    return row.back();
}

const CLI::App* Named(const CLI::App& app, const std::string& word)
{
    for (const CLI::App* const command : app.get_subcommands({}))
        if (command->get_name() == word) return command;
    return nullptr;
}

std::string MostLike(const CLI::App& app, const std::string& word)
{
    constexpr std::size_t longest = 40; // no command is
    std::string best;
    std::size_t least = std::min(word.size(), longest) / 2 + 1;
    if (word.size() > longest) return best;
    for (const CLI::App* const command : app.get_subcommands({})) {
        const std::string& name = command->get_name();
        const std::size_t distance = name.starts_with(word) ? 0 : Distance(word, name);
        if (distance >= least) continue;
        least = distance;
        best = name;
    }
    return best;
}

} // namespace

std::vector<std::string> MarkedWords(int count, char** words)
{
    std::vector<std::string> marked;
    for (int i = count - 1; i > 0; --i) {
        marked.emplace_back(words[i]);
        if (marked.back().starts_with('[') && marked.back().ends_with(']')) marked.back() += mark;
    }
    return marked;
}

void TakeMarks(CLI::App& app)
{
    for (CLI::Option* option : app.get_options())
        option->transform(CLI::Validator(
            [](std::string& value) {
                if (value.ends_with(mark)) value.pop_back();
                return std::string();
            },
            ""));
    for (CLI::App* command : app.get_subcommands({})) TakeMarks(*command);
}

void RequireKnownCommand(const CLI::App& app, int count, char** words)
{
    const CLI::App* at = &app;
    for (int i = 1; i < count && at->get_require_subcommand_min() > 0; ++i) {
        const std::string word = words[i];
        if (word.starts_with('-')) return; // the parser knows which of them take a value
        const CLI::App* const next = Named(*at, word);
        if (!next) {
            const std::string like = MostLike(*at, word);
            throw std::runtime_error("there is no command '" + word + "'" +
                                     (like.empty() ? " (see --help)" : "; did you mean '" + like + "'?"));
        }
        at = next;
    }
}
