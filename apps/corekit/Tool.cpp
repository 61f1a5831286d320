#include "Tool.h"

#include "CommandLine.h"
#include "Commands.h"
#include "Examples.h"
#include "Manual.h"
#include "Output.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/HarmlessText.h"
#include "corekit/Version.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <exception>
#include <string>

namespace {

constexpr int failed = 2; // the exit code for wrong arguments and for work that could not be done

int Complain(std::string text)
{
    text.resize(text.find_last_not_of(" \r\n") + 1);
    for (char& c : text)
        if (c == '\n' || c == '\r') c = ' ';
    text = corekit::HarmlessText(text, corekit::LineEnds::escaped);
    std::fprintf(stderr, "corekit: %s\n", text.c_str());
    return failed;
}

int Run(CLI::App& app, int argc, char** argv)
{
    try {
        RequireKnownCommand(app, argc, argv);
        app.parse(MarkedWords(argc, argv));
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

// Options that stand for the whole work, as --version does.
void AddSelfDescription(CLI::App& app)
{
    app.add_option_function<std::string>(
           "--manual",
           [&app](const std::string& folder) {
               WriteManualPages(app, folder);
               throw CLI::RuntimeError(0);
           },
           "Write the manual pages into this folder and exit")
        ->type_name("DIR")
        ->trigger_on_parse();
    app.add_option_function<std::string>(
           "--completion",
           [&app](const std::string& shell) {
               PrintBytes(CompletionScript(app, shell));
               throw CLI::RuntimeError(0);
           },
           "Print the completion script for bash or zsh and exit")
        ->type_name("SHELL")
        ->trigger_on_parse();
}

} // namespace

int RunTool(int argc, char** argv, const PictureParts& pictures)
{
    CLI::App app{"Text, pictures, settings and stores from the command line.", "corekit"};
    app.set_version_flag("--version", CoreKitVersion());
    app.require_subcommand(1);
    AddSelfDescription(app);
    if (pictures.addCommands) pictures.addCommands(app);
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
    AddDoctorCommand(app, pictures.findFaces);
    AddExamples(app);
    TakeMarks(app);
    const int code = Run(app, argc, argv);
    try {
        FinishOutput();
    } catch (const std::exception& error) {
        return code == failed ? failed : Complain(error.what());
    }
    return code;
}
