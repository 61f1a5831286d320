#include "Manual.h"

#include <CLI/CLI.hpp>

#include <stdexcept>

// Both scripts hold one table: what may follow "corekit", "corekit ole", "corekit ole list" and so on. Where
// a word is none of these, and after them, names of files are completed.
namespace {

std::string WordsAfter(const CLI::App& app)
{
    std::string words;
    const auto add = [&words](const std::string& word) { words += (words.empty() ? "" : " ") + word; };
    for (const CLI::App* const command : app.get_subcommands({})) add(command->get_name());
    for (const CLI::Option* const option : app.get_options()) {
        for (const std::string& name : option->get_lnames()) add("--" + name);
        for (const std::string& name : option->get_snames()) add("-" + name);
    }
    return words;
}

std::string Rows(const CLI::App& app, const std::string& called)
{
    std::string rows = "    ['" + called + "']='" + WordsAfter(app) + "'\n";
    for (const CLI::App* const command : app.get_subcommands({}))
        rows += Rows(*command, called + " " + command->get_name());
    return rows;
}

constexpr const char* bash = R"(
_corekit() {
    local called=corekit word i
    for ((i = 1; i < COMP_CWORD; ++i)); do
        word=${COMP_WORDS[i]}
        [ -n "${_corekit_words["$called $word"]+x}" ] && called+=" $word"
    done
    local current=${COMP_WORDS[COMP_CWORD]} words=${_corekit_words[$called]}
    COMPREPLY=($(compgen -W "$words" -- "$current"))
    # Names of files where a command takes them, and none of the words above fits.
    [ ${#COMPREPLY[@]} -gt 0 ] || COMPREPLY=($(compgen -f -- "$current"))
}
complete -o filenames -F _corekit corekit
)";

constexpr const char* zsh = R"(
_corekit() {
    local called=corekit word
    for word in "${(@)words[2,CURRENT-1]}"; do
        (( ${+_corekit_words[$called $word]} )) && called+=" $word"
    done
    local -a choices=(${(s: :)_corekit_words[$called]})
    compadd -a choices
    _files
}
_corekit "$@"
)";

} // namespace

std::string CompletionScript(const CLI::App& app, const std::string& shell)
{
    const std::string table = "    " + Rows(app, "corekit").substr(4) + ")\n";
    if (shell == "bash")
        return "# Completion of corekit for bash.\ndeclare -gA _corekit_words=(\n" + table + bash;
    if (shell == "zsh") return "#compdef corekit\ntypeset -gA _corekit_words=(\n" + table + zsh;
    throw std::runtime_error("completion is there for bash and zsh");
}
