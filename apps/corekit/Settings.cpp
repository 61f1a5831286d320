// corekit settings: property-store files.
#include "Commands.h"
#include "Output.h"
#include "OutputFile.h"
#include "Table.h"
#include "TextFile.h"

#include "corekit/platform/Files.h"
#include "corekit/platform/ReplacedFile.h"
#include "corekit/stores/FileStream.h"
#include "corekit/stores/MemoryStream.h"
#include "corekit/stores/PropertyStore.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <stdexcept>

namespace {

struct Options {
    std::string file, type;
    std::vector<std::string> names; // of the nested stores, then of the value
    std::string value;
};

StringA Narrow(const std::string& utf8) { return StringA(Utf16(utf8).c_str()); }
std::string Shown(const StringW& text)
{
    return Utf8({static_cast<const WCHAR*>(text), static_cast<std::size_t>(text.GetLength())});
}
std::string Shown(const StringA& text) { return Shown(StringW(static_cast<const char*>(text))); }

CPropertyStore Load(const std::string& file)
{
    CFileStream stream;
    if (!stream.Open(file.c_str(), GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING, 0)) FailFor(file);
    CPropertyStore store;
    store.ReadStream(stream);
    return store;
}

// Puts the whole new file in the old one's place, so that a failure leaves that one alone.
void Save(CPropertyStore& store, const std::string& file)
{
    OutputFile out(file);
    CFileStream stream;
    out.Open(stream);
    store.WriteStream(stream);
    stream.Flush();
    stream.Close();
    out.Commit();
}

std::string Hex(const CByteArray& bytes)
{
    std::string text;
    for (int i = 0; i < bytes.GetSize(); ++i) {
        char digits[4];
        std::snprintf(digits, sizeof digits, "%02x", bytes[i]);
        text += digits;
    }
    return text;
}

std::string TypeName(ePSEntryType type)
{
    switch (type) {
    case ePSString:
        return "string";
    case ePSInteger:
        return "integer";
    case ePSGuid:
        return "guid";
    case ePSBinary:
        return "binary";
    default:
        return "type " + std::to_string(type);
    }
}

// As the type has it, or in hexadecimal where the bytes do not fit the type.
std::string ValueText(CPropertyStore& store, const char* name)
{
    CByteArray bytes;
    store.GetValue(name, bytes);
    const ePSEntryType type = store.GetPropertyStoreValueType(name);
    if (type == ePSString && bytes.GetSize() % 2 == 0) {
        StringW text;
        store.GetValue(name, text);
        return Shown(text);
    }
    if (type == ePSInteger && bytes.GetSize() == 4) {
        int number = 0;
        store.GetValue(name, number);
        return std::to_string(number);
    }
    if (type == ePSGuid && bytes.GetSize() == sizeof(GUID)) {
        GUID g = {};
        store.GetValue(name, g);
        char text[40];
        std::snprintf(text, sizeof text, "{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}", g.Data1,
                      g.Data2, g.Data3, g.Data4[0], g.Data4[1], g.Data4[2], g.Data4[3], g.Data4[4],
                      g.Data4[5], g.Data4[6], g.Data4[7]);
        return text;
    }
    return Hex(bytes);
}

void AddRows(CPropertyStore& store, const std::string& indent, std::vector<std::vector<std::string>>& rows)
{
    CArray<StringA, const char*> names;
    store.GetPropertyStoreValueNames(names);
    for (int i = 0; i < names.GetSize(); ++i)
        rows.push_back({indent + Shown(names[i]), TypeName(store.GetPropertyStoreValueType(names[i])),
                        ValueText(store, names[i])});
    for (int i = 0; i < store.GetPropertyStoreCount(); ++i) {
        CPropertyStore nested = store.GetPropertyStore(i);
        rows.push_back({indent + Shown(store.GetPropertyStoreName(i)) + "/", "store", ""});
        AddRows(nested, indent + "  ", rows);
    }
}

void Show(const Options& options)
{
    CPropertyStore store = Load(options.file);
    TableRows rows = {{"name", "type", "value"}};
    AddRows(store, "", rows);
    PrintTable(rows);
}

void Get(const Options& options)
{
    CPropertyStore store = Load(options.file);
    for (std::size_t i = 0; i + 1 < options.names.size(); ++i) {
        const StringA name = Narrow(options.names[i]);
        if (!store.PropertyStoreExists(name)) throw std::runtime_error("no store '" + options.names[i] + "'");
        store = CPropertyStore(store.GetPropertyStore(name));
    }
    const StringA name = Narrow(options.names.back());
    if (store.GetPropertyStoreValueType(name) == ePSNone)
        throw std::runtime_error("no value '" + options.names.back() + "'");
    PrintLine(ValueText(store, name));
}

int Number(const std::string& text)
{
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        throw std::runtime_error("'" + text + "' is no 32-bit number");
    return number;
}

std::vector<BYTE> BytesOfHex(const std::string& text)
{
    std::vector<BYTE> bytes;
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const auto pair = std::string_view(text).substr(i, 2);
        BYTE value = 0;
        const auto [end, error] = std::from_chars(pair.data(), pair.data() + pair.size(), value, 16);
        if (error != std::errc() || end != pair.data() + 2)
            throw std::runtime_error("'" + text + "' is not in pairs of hexadecimal digits");
        bytes.push_back(value);
    }
    return bytes;
}

// A set keeps the type of a value that is there, so one of another type is taken out first.
void SetValue(CPropertyStore& store, const char* name, const Options& options)
{
    const auto makeWay = [&](ePSEntryType type) {
        if (store.GetPropertyStoreValueType(name) != type) store.DeleteValue(name);
    };
    if (options.type == "integer") {
        const int number = Number(options.value);
        makeWay(ePSInteger);
        store.SetValue(name, number);
    } else if (options.type == "binary") {
        const std::vector<BYTE> bytes = BytesOfHex(options.value);
        makeWay(ePSBinary);
        store.SetBinaryValue(name, bytes.data(), static_cast<DWORD>(bytes.size()));
    } else {
        makeWay(ePSString);
        store.SetValue(name, Utf16(options.value).c_str());
    }
}

void SetBelow(CPropertyStore& store, const Options& options, std::size_t level)
{
    const StringA name = Narrow(options.names[level]);
    if (level + 1 == options.names.size()) return SetValue(store, name, options);
    CPropertyStore nested = store.GetPropertyStore(name);
    SetBelow(nested, options, level + 1);
    store.SetPropertyStore(name, nested);
}

void Set(const Options& given)
{
    Options options = given;
    if (options.names.size() < 2) throw std::runtime_error("a name and a value are wanted");
    if (options.names.size() > static_cast<std::size_t>(CPropertyStore::deepestNesting))
        throw std::runtime_error("too many nested stores");
    options.value = options.names.back();
    options.names.pop_back();
    const corekit::FileTurn turn(options.file); // another one's change is not lost
    CPropertyStore store;
    if (std::filesystem::exists(options.file)) store = CPropertyStore(Load(options.file));
    SetBelow(store, options, 0);
    Save(store, options.file);
}

} // namespace

void AddSettingsCommand(CLI::App& app)
{
    const auto options = std::make_shared<Options>();
    CLI::App* settings = app.add_subcommand("settings", "Show and change property-store files");
    settings->require_subcommand(1);
    const auto add = [&](const char* name, const char* text, void (*run)(const Options&)) {
        CLI::App* command = settings->add_subcommand(name, text);
        command->add_option("file", options->file, "The file")->required();
        command->callback([options, run] { run(*options); });
        return command;
    };
    OfferJson(*add("show", "Print the tree as a table", Show));
    add("get", "Print a value", Get)
        ->add_option("name", options->names, "The nested stores on the way, then the value's name")
        ->required();
    CLI::App* set = add("set", "Set a value, making the file and the stores on the way if need be", Set);
    set->add_option("name", options->names, "The nested stores on the way, the value's name, then the value")
        ->required();
    set->add_option("--type", options->type, "string, integer (decimal) or binary (hexadecimal)")
        ->default_val("string")
        ->check(CLI::IsMember({"string", "integer", "binary"}));
}
