#include "corekit/Version.h"

#include <CLI/CLI.hpp>

int main(int argc, char** argv)
{
    CLI::App app{"CoreKit's command-line tool", "corekit"};
    app.set_version_flag("--version", CoreKitVersion());
    app.require_subcommand(1);
    CLI11_PARSE(app, argc, argv);
    return 0;
}
