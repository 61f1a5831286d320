#include "Commands.h"
#include "Output.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/Profiles.h"
#include "corekit/stores/IniFile.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>
#include <vector>

namespace {
struct Options {
    std::string file, section, key, value;
};

void Get(const Options& options)
{
    CIniFile ini;
    ini.Attach(options.file.c_str(), 1);
    CString value;
    if (!ini.GetString(options.section.c_str(), options.key.c_str(), value))
        throw std::runtime_error(options.file + ": no value [" + options.section + "] " + options.key);
    Print("%s\n", value.GetString());
}

void Set(const Options& options)
{
    if (WritePrivateProfileStringA(options.section.c_str(), options.key.c_str(), options.value.c_str(),
                                   options.file.c_str()))
        return;
    if (GetLastError() != ERROR_INVALID_PARAMETER) FailFor(options.file);
    throw std::runtime_error(options.file + ": this name or value would not be read back");
}
} // namespace

void AddIniCommand(CLI::App& app)
{
    const auto options = std::make_shared<Options>();
    CLI::App* ini = app.add_subcommand("ini", "Read and change a line of an INI file");
    ini->require_subcommand(1);
    const auto add = [&](const char* name, const char* text, void (*run)(const Options&)) {
        CLI::App* command = ini->add_subcommand(name, text);
        command->add_option("file", options->file, "The INI file")->required();
        command->add_option("section", options->section, "The section's name")->required();
        command->add_option("key", options->key, "The key's name")->required();
        command->callback([options, run] { run(*options); });
        return command;
    };
    add("get", "Print a value", Get);
    add("set", "Set a value; all else in the file stays as it is", Set)
        ->add_option("value", options->value, "The new value")
        ->required();
}
