#include "Commands.h"
#include "Output.h"
#include "Table.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/resources/Messages.h"
#include "corekit/stores/RegistryKey.h"
#include "corekit/stores/RegistryText.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <stdexcept>

namespace {
struct Options {
    std::string key, name, value, file;
    std::optional<std::string> unwanted; // a value
    bool whole = false;
};

[[noreturn]] void Fail(const std::string& text) { throw std::runtime_error(text); }

CRegistryKey& Opened(CRegistryKey& key, const Options& options, DWORD access)
{
    std::string path;
    const HKEY hive = SplitRegistryPath(options.key, path);
    if (!key.Open(hive, path.c_str(), access)) {
        HKEY ignored = nullptr;
        const LONG code = RegOpenKeyExA(hive, path.c_str(), 0, access, &ignored);
        Fail(options.key + ": " + GetSystemErrorString(static_cast<DWORD>(code)).GetString());
    }
    return key;
}

void Get(const Options& options)
{
    CRegistryKey key;
    RegistryItem item;
    if (!ReadRegistryItem(Opened(key, options, KEY_READ), options.name.c_str(), item))
        Fail(options.key + ": no value \"" + options.name + "\"");
    PrintLine(FormatRegistryValue(item));
}

void Set(const Options& options)
{
    const RegistryItem item = ParseRegistryValue(options.value);
    std::string path;
    const HKEY hive = SplitRegistryPath(options.key, path);
    CRegistryKey key;
    key.Create(hive, path.c_str());
    const auto* data = reinterpret_cast<const BYTE*>(item.data.data());
    const LONG code =
        RegSetValueExA(key, options.name.c_str(), 0, item.type, data, static_cast<DWORD>(item.data.size()));
    if (code != 0)
        ThrowChainedException(GetLastErrorException(static_cast<DWORD>(code)), message::setValueFailed);
}

void ListAsJson(CRegistryKey& key)
{
    TableRows rows = {{"kind", "name", "value"}};
    for (const std::string& name : RegistryKeyNames(key)) rows.push_back({"key", name, ""});
    for (const std::string& name : RegistryValueNames(key)) {
        RegistryItem item;
        if (ReadRegistryItem(key, name.c_str(), item))
            rows.push_back({"value", name, FormatRegistryValue(item)});
    }
    PrintTable(rows);
}

void List(const Options& options)
{
    CRegistryKey key;
    Opened(key, options, KEY_READ);
    if (IsJsonWanted()) return ListAsJson(key);
    for (const std::string& name : RegistryKeyNames(key)) Print("[%s]\n", name.c_str());
    for (const std::string& name : RegistryValueNames(key)) {
        RegistryItem item;
        if (ReadRegistryItem(key, name.c_str(), item))
            Print("\"%s\" = %s\n", name.c_str(), FormatRegistryValue(item).c_str());
    }
}

void Delete(const Options& options)
{
    if (!options.unwanted && !options.whole) Fail("registry delete needs a value's name, or --key");
    CRegistryKey key;
    Opened(key, options, 0x2001F);
    LONG code = 0;
    if (options.unwanted) {
        code = RegDeleteValueA(key, options.unwanted->c_str());
    } else {
        std::string path;
        const HKEY hive = SplitRegistryPath(options.key, path);
        if (path.empty()) Fail("a whole hive cannot be deleted");
        key.DeleteContents();
        code = RegDeleteKeyA(hive, path.c_str());
    }
    if (code != 0) Fail(options.key + ": " + GetSystemErrorString(static_cast<DWORD>(code)).GetString());
}

void Export(const Options& options)
{
    const std::string text = ExportRegistry(options.key);
    if (options.file.empty()) {
        PrintBytes(text);
        return;
    }
    WriteOutput(options.file, text);
}

void Import(const Options& options)
{
    std::ifstream file(options.file, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    if (!file.is_open() || file.bad()) Fail(options.file + ": cannot be read");
    Print("%d values set\n", ImportRegistry(text));
}
} // namespace

void AddRegistryCommand(CLI::App& app)
{
    const auto options = std::make_shared<Options>();
    CLI::App* registry = app.add_subcommand("registry", "Look at and change the machine's settings");
    registry->require_subcommand(1);
    const auto add = [&](const char* name, const char* text, void (*run)(const Options&)) {
        CLI::App* command = registry->add_subcommand(name, text);
        command->callback([options, run] { run(*options); });
        return command;
    };
    const auto withKey = [&](CLI::App* command) {
        command->add_option("key", options->key, "HKLM\\..., HKCU\\... or a path below HKLM")->required();
        return command;
    };
    CLI::App* get = withKey(add("get", "Print one value", Get));
    get->add_option("name", options->name, "The value's name; empty for the default value")->required();
    CLI::App* set = withKey(add("set", "Set one value, making its key", Set));
    set->add_option("name", options->name, "The value's name")->required();
    set->add_option("value", options->value, "As get prints it: 'text \"abc\"', 'number 1', 'binary 0A FF'")
        ->required();
    OfferJson(*withKey(add("list", "Print the keys below a key, and its values", List)));
    CLI::App* remove = withKey(add("delete", "Delete a value, or with --key a key and all below it", Delete));
    CLI::Option* name = remove->add_option("name", options->unwanted, "The value's name");
    remove->add_flag("--key", options->whole, "Delete the key")->excludes(name);
    CLI::App* exported = withKey(add("export", "Print a key and all below it as text", Export));
    exported->add_option("-o,--output", options->file, "Write to this file");
    add("import", "Set all that an exported text holds", Import)
        ->add_option("file", options->file, "The text")
        ->required();
}
