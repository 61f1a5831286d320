#include "Commands.h"
#include "Output.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/HarmlessText.h"
#include "corekit/Version.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

namespace {

constexpr int failed = 2; // the exit code for wrong arguments and for work that could not be done

int Complain(std::string text)
{
    for (char& c : text)
        if (c == '\n' || c == '\r') c = ' ';
    text = corekit::detail::HarmlessText(text, corekit::detail::LineEnds::escaped);
    std::fprintf(stderr, "corekit: %s\n", text.c_str());
    return failed;
}

// The parser takes "[a,b]" for a list of values. An argument of that look goes past it with a last byte that
// no argument can have, and every option takes that off again: what is typed is what arrives.
constexpr char guard = '\0';

std::vector<std::string> Guarded(int argc, char** argv)
{
    std::vector<std::string> arguments;
    for (int i = argc - 1; i > 0; --i) { // the last first, as the parser takes them
        arguments.emplace_back(argv[i]);
        if (arguments.back().starts_with('[') && arguments.back().ends_with(']')) arguments.back() += guard;
    }
    return arguments;
}

void Unguard(CLI::App& app)
{
    for (CLI::Option* option : app.get_options())
        option->transform(CLI::Validator(
            [](std::string& value) {
                if (value.ends_with(guard)) value.pop_back();
                return std::string();
            },
            ""));
    for (CLI::App* command : app.get_subcommands({})) Unguard(*command);
}

int Run(CLI::App& app, int argc, char** argv)
{
    try {
        app.parse(Guarded(argc, argv));
        return 0;
    } catch (const CLI::CallForHelp&) {
        PrintBytes(app.help());
        return 0;
    } catch (const CLI::CallForVersion& version) {
        PrintLine(version.what());
        return 0;
    } catch (const CLI::RuntimeError& told) { // the command has said all and chosen its exit code
        return told.get_exit_code();
    } catch (const CLI::ParseError& error) {
        return Complain(std::string(error.what()) + " (see --help)");
    } catch (CException* error) {
        const std::string text = static_cast<const char*>(GetExceptionMsg(error));
        error->Delete();
        return Complain(text);
    } catch (const std::exception& error) {
        return Complain(error.what());
    }
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app{"Text, pictures, settings and stores from the command line.", "corekit"};
    app.set_version_flag("--version", CoreKitVersion());
    app.require_subcommand(1);
#ifdef COREKIT_WITH_UI
    AddDrawCommand(app);
    AddDibCommand(app);
    AddFontsCommand(app);
    AddKeyboardsCommand(app);
    AddTypeCommand(app);
    AddAppletCommand(app);
#endif
    AddShapeCommand(app);
    AddCharCommand(app);
    AddRegistryCommand(app);
    AddIniCommand(app);
    AddLogCommand(app);
    AddOleCommand(app);
    AddRecordsCommand(app);
    AddPackingCommands(app);
    AddWordsCommand(app);
    AddSettingsCommand(app);
    AddFtpCommand(app);
    AddConvertCommand(app);
    AddSerialCommand(app);
    AddScsiCommand(app);
    Unguard(app);
    const int code = Run(app, argc, argv);
    try {
        FinishOutput();
    } catch (const std::exception& error) {
        return code == failed ? failed : Complain(error.what());
    }
    return code;
}
