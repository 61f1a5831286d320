// The tool with the commands that need the toolkit: a module that the program loads for them.
#include "Commands.h"
#include "Tool.h"

#include "corekit/platform/Export.h"

namespace {

void AddPictureCommands(CLI::App& app)
{
    AddDrawCommand(app);
    AddDibCommand(app);
    AddFontsCommand(app);
    AddKeyboardsCommand(app);
    AddTypeCommand(app);
    AddAppletCommand(app);
}

} // namespace

extern "C" COREKIT_API int RunPictureTool(int argc, char** argv)
{
    return RunTool(argc, argv, {AddPictureCommands, FindFacesAndDisplay});
}
