#include "Manual.h"

#include "Examples.h"
#include "Output.h"

#include "corekit/Version.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <string_view>
#include <vector>

namespace {

// Text as man(7) takes it: no hyphen becomes a dash, no line begins with a request.
std::string Escaped(std::string_view text)
{
    std::string escaped;
    for (const char c : text) {
        const bool startsLine = escaped.empty() || escaped.back() == '\n';
        if (startsLine && (c == '.' || c == '\'')) escaped += "\\&";
        if (c == '\\')
            escaped += "\\e";
        else if (c == '-')
            escaped += "\\-";
        else
            escaped += c;
    }
    return escaped;
}

// A blank line begins a paragraph; all others are filled.
std::string Paragraphs(const std::string& text)
{
    std::string page;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        page += line.empty() ? std::string(".PP\n") : Escaped(line) + "\n";
    return page;
}

std::string Heading(const std::string& title) { return ".SH " + title + "\n"; }

bool IsHelp(const CLI::Option& option)
{
    return option.check_lname("help") || option.check_lname("help-all");
}

std::string ValueOf(const CLI::Option& option)
{
    return option.get_items_expected_max() == 0 ? "" : option.get_type_name();
}

std::string NameOf(const CLI::Option& option)
{
    if (option.get_positional() && option.nonpositional() == false)
        return "\\fI" + Escaped(option.get_name(true)) + "\\fR";
    std::string names;
    for (const std::string& name : option.get_snames())
        names += (names.empty() ? "\\-" : ", \\-") + Escaped(name);
    for (const std::string& name : option.get_lnames())
        names += (names.empty() ? "\\-\\-" : ", \\-\\-") + Escaped(name);
    const std::string value = ValueOf(option);
    return "\\fB" + names + "\\fR" + (value.empty() ? "" : " \\fI" + Escaped(value) + "\\fR");
}

std::string Options(const CLI::App& command)
{
    std::string page;
    for (const CLI::Option* const option : command.get_options()) {
        if (IsHelp(*option)) continue;
        page += ".TP\n" + NameOf(*option) + "\n" + Escaped(option->get_description());
        if (option->get_required()) page += option->get_description().empty() ? "Needed." : " (needed)";
        page += "\n";
    }
    return page;
}

std::string Synopsis(const std::string& called, const CLI::App& command)
{
    std::string line = "\\fB" + Escaped(called) + "\\fR";
    if (command.get_require_subcommand_min() > 0) return line + " \\fICOMMAND\\fR [\\fIOPTIONS\\fR]";
    line += " [\\fIOPTIONS\\fR]";
    for (const CLI::Option* const option : command.get_options()) {
        if (!option->get_positional()) continue;
        std::string name = NameOf(*option);
        if (option->get_items_expected_max() > 1) name += "...";
        line += option->get_required() ? " " + name : " [" + name + "]";
    }
    return line;
}

std::string ExitCodes()
{
    return Heading("EXIT STATUS") +
           ".TP\n0\nAll was done.\n.TP\n1\nWhat was looked at is faulty (\\fBrecords check\\fR, \\fBrecords "
           "salvage\\fR).\n.TP\n2\nThe arguments are wrong, or the work could not be done; the reason stands "
           "on "
           "standard error, in one line.\n";
}

std::string Title(const std::string& name)
{
    return ".TH " + Escaped(name) + " 1 \"\" \"CoreKit " + CoreKitVersion() + "\" \"CoreKit\"\n";
}

std::string ExamplesOf(const std::string& command)
{
    std::string page;
    for (const Example& example : AllExamples()) {
        if (example.command != command) continue;
        page += ".TP\n\\fB" + Escaped(example.line) + "\\fR\n" + Escaped(example.effect) + "\n";
    }
    return page.empty() ? page : Heading("EXAMPLES") + page;
}

std::string NotesOf(const CLI::App& command)
{
    std::string notes = command.get_footer();
    notes.resize(std::min(notes.size(), notes.find("Examples:")));
    return notes.empty() ? notes : Heading("NOTES") + Paragraphs(notes);
}

std::string PageOf(const CLI::App& command)
{
    const std::string& name = command.get_name();
    const std::string called = "corekit " + name;
    std::string page = Title("corekit-" + name) + Heading("NAME") + Escaped("corekit-" + name) + " \\- " +
                       Escaped(command.get_description()) + "\n" + Heading("SYNOPSIS") +
                       Synopsis(called, command) + "\n" + Heading("DESCRIPTION") +
                       Escaped(command.get_description()) + ".\n";
    if (const std::string options = Options(command); !options.empty()) page += Heading("OPTIONS") + options;
    for (const CLI::App* const below : command.get_subcommands({}))
        page += ".SH " + Escaped(called + " " + below->get_name()) + "\n" +
                Synopsis(called + " " + below->get_name(), *below) + "\n.PP\n" +
                Escaped(below->get_description()) + ".\n" + Options(*below) + Paragraphs(below->get_footer());
    return page + NotesOf(command) + ExamplesOf(name) + ExitCodes() + Heading("SEE ALSO") +
           "\\fBcorekit\\fR(1)\n";
}

std::string Overview(const CLI::App& app)
{
    std::string page = Title("corekit") + Heading("NAME") + "corekit \\- " + Escaped(app.get_description()) +
                       "\n" + Heading("SYNOPSIS") + Synopsis("corekit", app) + "\n" + Heading("OPTIONS") +
                       Options(app) + Heading("COMMANDS");
    for (const CLI::App* const command : app.get_subcommands({}))
        page += ".TP\n\\fBcorekit\\-" + Escaped(command->get_name()) + "\\fR(1)\n" +
                Escaped(command->get_description()) + "\n";
    return page + ExitCodes();
}

} // namespace

void WriteManualPages(const CLI::App& app, const std::string& folder)
{
    const std::filesystem::path in = folder;
    WriteOutput(in / "corekit.1", Overview(app));
    for (const CLI::App* const command : app.get_subcommands({}))
        WriteOutput(in / ("corekit-" + command->get_name() + ".1"), PageOf(*command));
}
