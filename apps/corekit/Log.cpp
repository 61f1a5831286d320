// corekit log: writes lines to a log, and shows one as it grows.
#include "Commands.h"
#include "Output.h"
#include "TextFile.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/logging/LogFollower.h"
#include "corekit/logging/LogTarget.h"
#include "corekit/platform/Console.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/HarmlessText.h"
#include "corekit/platform/Waits.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <deque>
#include <iostream>
#include <memory>
#include <optional>
#include <stdexcept>

namespace {

constexpr DWORD lookAgainAfter = 200; // milliseconds

struct Options {
    std::string log, level, filter;
    std::vector<std::string> texts;
    std::size_t lines = 10;
    int days = 20;
    bool single = false, once = false;

    // "/var/log/prompter/Server" is the log Server in that folder.
    std::string Folder() const
    {
        const std::size_t cut = log.find_last_of("/\\");
        return cut == std::string::npos ? "." : log.substr(0, cut + 1);
    }
    std::string Name() const { return log.substr(log.find_last_of("/\\") + 1); }
};

DWORD LevelOf(const std::string& name)
{
    if (const DWORD level = corekit::LogLevelOfName(name)) return level;
    throw std::runtime_error("'" + name +
                             "' is no level; they are Debug, Trace, Information, Warning, MinorError, "
                             "MajorError and CriticalError");
}

void Write(const Options& o)
{
    const DWORD level = LevelOf(o.level);
    CLogTarget log;
    log.SetOldLogFileDays(o.days);
    if (!log.CreateLogFile(o.Name().c_str(), o.Folder().c_str(), !o.single))
        throw std::runtime_error(o.log + ": " + GetLastErrorString().GetString());
    const auto write = [&](const std::string& text) {
        log.LogMessage(level, Utf16(text).c_str());
        if (const DWORD reason = log.GetLossReason())
            throw std::runtime_error(o.log + ": " + GetSystemErrorString(reason).GetString());
    };
    if (o.texts != std::vector<std::string>{"-"}) {
        std::ranges::for_each(o.texts, write);
        return;
    }
    for (std::string line; std::getline(std::cin, line);) write(line);
}

WORD ColourOf(DWORD level)
{
    switch (level) {
    case logInformation:
        return FOREGROUND_GREEN | FOREGROUND_INTENSITY;
    case logWarning:
        return FOREGROUND_RED | FOREGROUND_GREEN | FOREGROUND_INTENSITY;
    case logMinorError:
    case logMajorError:
    case logCriticalError:
        return FOREGROUND_RED | FOREGROUND_INTENSITY;
    default:
        return 0;
    }
}

// A log may hold what others sent: nothing of it steers the terminal.
std::string Harmless(const std::string& line)
{
    const StringW wide(line.c_str());
    const std::string text = Utf8({wide, static_cast<std::size_t>(wide.GetLength())});
    return corekit::HarmlessText(text, corekit::LineEnds::escaped);
}

// A line as it is to be shown.
struct Shown {
    std::string text;
    WORD colour;
};

// Lets through what is grave enough and has the text; further lines go with their entry.
class Filter {
public:
    explicit Filter(const Options& o) : m_least(LevelOf(o.level)), m_text(o.filter) {}

    std::optional<Shown> operator()(const std::string& line)
    {
        const std::string text = Harmless(line);
        if (const DWORD level = ParseLogLine(line).level) {
            m_level = level;
            m_takes = level >= m_least && text.find(m_text) != std::string::npos;
        }
        return m_takes ? std::optional<Shown>({text, ColourOf(m_level)}) : std::nullopt;
    }

private:
    DWORD m_least, m_level = 0;
    std::string m_text;
    bool m_takes = false;
};

void Show(const Shown& shown)
{
    if (TerminalColumns(StandardStream::Output) > 0)
        return WriteConsoleText((shown.text + "\n").c_str(), shown.colour);
    PrintLine(shown.text);
    FinishOutput();
}

void Follow(const Options& o)
{
    CLogFollower log(o.Name().c_str(), o.Folder().c_str());
    Filter filter(o);
    std::deque<Shown> last;
    std::string line;
    while (log.Next(line)) {
        if (const auto shown = filter(line)) last.push_back(*shown);
        if (last.size() > o.lines) last.pop_front();
    }
    std::ranges::for_each(last, Show);
    if (o.once && log.CurrentFile().empty()) throw std::runtime_error(o.log + ": there is no such log");
    for (; !o.once; Sleep(lookAgainAfter))
        while (log.Next(line))
            if (const auto shown = filter(line)) Show(*shown);
}

} // namespace

void AddLogCommand(CLI::App& app)
{
    auto* const log = app.add_subcommand("log", "Write a log, or show one as it grows");
    log->require_subcommand(1);
    const auto options = std::make_shared<Options>();
    const auto command = [&](const char* name, const char* help, void (*run)(const Options&),
                             const char* level, const char* levelHelp) {
        auto* const added = log->add_subcommand(name, help);
        added->add_option("LOG", options->log, "Folder and name, as in /var/log/prompter/Server")->required();
        added->add_option("--level", options->level, levelHelp);
        added->callback([options, run, level] {
            if (options->level.empty()) options->level = level;
            run(*options);
        });
        return added;
    };
    auto* const write = command("write", "Add entries", Write, "Information", "Their level (Information)");
    write->add_option("TEXT", options->texts, "An entry each; - takes the lines of standard input")
        ->required();
    write->add_flag("--single", options->single, "One file without end, not one for each day");
    write->add_option("--keep", options->days, "Day files to keep when a day begins (20)");
    auto* const follow = command("follow", "Show the last entries and those that come, until Ctrl-C", Follow,
                                 "Debug", "Show this level and graver ones (Debug)");
    follow->add_option("-n,--lines", options->lines, "How many of the last ones (10)");
    follow->add_option("--filter", options->filter, "Only entries with this text in their first line");
    follow->add_flag("--once", options->once, "Stop where the log ends now");
    log->footer("Colours by level: green information, yellow warnings, red errors.");
}
