#include "Commands.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/Version.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <exception>

namespace {

constexpr int failed = 2; // the exit code for wrong arguments and for work that could not be done

int Complain(std::string text)
{
    for (char& c : text)
        if (c == '\n' || c == '\r') c = ' ';
    std::fprintf(stderr, "corekit: %s\n", text.c_str());
    return failed;
}

int Run(CLI::App& app, int argc, char** argv)
{
    try {
        app.parse(argc, argv);
        return 0;
    } catch (const CLI::CallForHelp&) {
        std::fputs(app.help().c_str(), stdout);
        return 0;
    } catch (const CLI::Success& request) { // --version and the like
        return app.exit(request);
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
    AddFontsCommand(app);
    AddKeyboardsCommand(app);
    AddTypeCommand(app);
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
    return Run(app, argc, argv);
}
