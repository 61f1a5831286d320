// The tool without the toolkit, which it loads for the commands that need it.
#include "PictureNames.h"
#include "Tool.h"

#include "corekit/platform/Libraries.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <string>

namespace {

// Where the module lies beside this program; empty where the toolkit's half is not installed.
std::string PictureModule()
{
    char program[4096];
    GetModuleFileNameA(nullptr, program, sizeof program);
    const auto module = std::filesystem::path(program).parent_path() / ".." / PICTURE_MODULE;
    std::error_code error;
    return std::filesystem::exists(module, error) ? module.string() : "";
}

// The doctor looks at faces, and what describes the tool describes all of its commands.
bool NeedsPictures(int argc, char** argv)
{
    const std::string_view first = argc > 1 ? argv[1] : "";
    return first == "doctor" || first.starts_with("--manual") || first.starts_with("--completion") ||
           std::ranges::find(pictureNames, first, &PictureName::name) != std::end(pictureNames);
}

void AddPictureNames(CLI::App& app)
{
    for (const PictureName& row : pictureNames) app.add_subcommand(row.name, row.description);
}

int RunInModule(const std::string& module, int argc, char** argv)
{
    const HMODULE library = LoadLibraryA(module.c_str());
    const FARPROC found = library ? GetProcAddress(library, "RunPictureTool") : nullptr;
    const auto run = reinterpret_cast<int (*)(int, char**)>(reinterpret_cast<void (*)()>(found));
    if (run) return run(argc, argv);
    std::fprintf(stderr, "corekit: %s does not load: is libcorekit-ui0 of this version installed?\n",
                 module.c_str());
    return 2;
}

} // namespace

int main(int argc, char** argv)
{
    const std::string module = PictureModule();
    if (!module.empty() && NeedsPictures(argc, argv)) return RunInModule(module, argc, argv);
    return RunTool(argc, argv, {module.empty() ? nullptr : AddPictureNames, nullptr});
}
