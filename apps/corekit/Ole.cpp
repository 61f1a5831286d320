#include "Commands.h"
#include "OutputFile.h"
#include "Table.h"
#include "Terminal.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/CodePages.h"
#include "corekit/platform/Storage.h"
#include "corekit/stores/OleFile.h"
#include "corekit/stores/OleStream.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <vector>

namespace {
constexpr UINT shareReading = 0x20, readWrite = 0x12;
constexpr std::size_t pieceSize = 65536;
constexpr int deepest = 64;

struct Options {
    std::string file, folder = ".", name, source;
};

std::string Utf8(const WCHAR* text)
{
    char buffer[3 * 32 + 1];
    WideCharToMultiByte(CP_UTF8, 0, text, -1, buffer, sizeof buffer, nullptr, nullptr);
    return buffer;
}

std::u16string Wide(const std::string& utf8)
{
    std::u16string wide(utf8.size() + 1, u'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.c_str(), -1, wide.data(), static_cast<int>(wide.size()));
    return wide.c_str();
}

// A name of one part that no folder minds: what is none, or would lead elsewhere, becomes %XX.
std::string FileName(const std::string& name)
{
    std::string safe;
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20 && byte != 0x7F && c != '/' && c != '\\' && c != '%') {
            safe += c;
            continue;
        }
        char code[4];
        std::snprintf(code, sizeof code, "%%%02X", byte);
        safe += code;
    }
    if (safe.empty() || safe == "." || safe == "..") return "%" + safe;
    return safe;
}

using Visit =
    std::function<void(IStorage* storage, const STATSTG& element, const std::vector<std::string>& path)>;

void Walk(IStorage* storage, const std::vector<std::string>& path, const Visit& visit)
{
    if (path.size() > deepest) throw std::runtime_error("storages too deep");
    STATSTG element;
    for (DWORD index = 0;; ++index) {
        const HRESULT result = storage->StatElement(index, &element);
        if (result == S_FALSE) return;
        if (result < 0) throw std::runtime_error("element " + std::to_string(index + 1) + " is damaged");
        std::vector<std::string> inner = path;
        inner.push_back(Utf8(element.pwcsName));
        visit(storage, element, inner);
        IStorage* below = nullptr;
        if (element.type != STGTY_STORAGE || storage->OpenStorage(element.pwcsName, 0, &below) < 0) continue;
        const std::unique_ptr<IStorage, void (*)(IStorage*)> owner(below, [](IStorage* s) { s->Release(); });
        Walk(below, inner, visit);
    }
}

void Open(COleFile& file, const std::string& name, UINT flags)
{
    if (!file.Open(name.c_str(), flags)) FailFor(name);
}

void List(const Options& options)
{
    COleFile file;
    Open(file, options.file, shareReading);
    TableRows rows = {{"kind", "bytes", "name"}};
    Walk(file.GetStorage(), {}, [&](IStorage*, const STATSTG& element, const std::vector<std::string>& path) {
        std::string name;
        for (const std::string& part : path) name += (name.empty() ? "" : "/") + FileName(part);
        const bool isStream = element.type == STGTY_STREAM;
        rows.push_back(
            {isStream ? "stream" : "storage", isStream ? std::to_string(element.cbSize) : "", name});
    });
    PrintTable(rows, {"bytes"});
}

void CopyOut(IStorage* storage, const STATSTG& element, const std::filesystem::path& target)
{
    IStream* opened = nullptr;
    if (storage->OpenStream(element.pwcsName, nullptr, STGM_SHARE_EXCLUSIVE, 0, &opened) < 0)
        throw std::runtime_error(target.filename().string() + ": cannot be read");
    const std::unique_ptr<IStream, void (*)(IStream*)> stream(opened, [](IStream* s) { s->Release(); });
    // Something that is a link already would be followed out of the folder.
    if (std::filesystem::is_symlink(target)) throw std::runtime_error(target.string() + ": is a link");
    OutputFile file(target);
    std::vector<char> piece(pieceSize);
    for (DWORD count = 1; count != 0;) {
        if (stream->Read(piece.data(), pieceSize, &count) < 0)
            throw std::runtime_error(target.filename().string() + ": is damaged");
        file.Write({piece.data(), count});
    }
    file.Commit();
}

void Extract(const Options& options)
{
    COleFile file;
    Open(file, options.file, shareReading);
    int count = 0;
    std::size_t total = 0;
    Walk(file.GetStorage(), {}, [&](IStorage*, const STATSTG&, const std::vector<std::string>&) { ++total; });
    ProgressBar progress("extracting", total);
    Walk(file.GetStorage(), {},
         [&](IStorage* storage, const STATSTG& element, const std::vector<std::string>& path) {
             progress.Advance();
             std::filesystem::path target = options.folder;
             for (const std::string& part : path) {
                 std::filesystem::create_directories(target);
                 target /= FileName(part);
                 if (std::filesystem::is_symlink(target))
                     throw std::runtime_error(target.string() + ": is a link");
             }
             if (element.type != STGTY_STREAM || (!options.name.empty() && options.name != path.back()))
                 return;
             CopyOut(storage, element, target);
             ++count;
         });
    if (count == 0 && !options.name.empty())
        throw std::runtime_error(options.file + ": no stream " + options.name);
    Print("%d streams written to %s\n", count, options.folder.c_str());
}

void Add(const Options& options)
{
    std::ifstream source(options.source, std::ios::binary);
    if (!source) throw std::runtime_error(options.source + ": cannot be read");
    const std::string name =
        options.name.empty() ? std::filesystem::path(options.source).filename().string() : options.name;
    COleFile file;
    if (std::filesystem::exists(options.file))
        Open(file, options.file, readWrite);
    else
        file.Create(options.file.c_str(), 0);
    {
        const std::unique_ptr<COleStream> stream(file.CreateStream(Wide(name).c_str()));
        std::vector<char> piece(pieceSize);
        while (source.read(piece.data(), pieceSize), source.gcount() > 0)
            stream->Write(piece.data(), static_cast<DWORD>(source.gcount()));
        if (source.bad()) throw std::runtime_error(options.source + ": cannot be read");
        stream->Flush();
    }
    file.Commit();
}
} // namespace

void AddOleCommand(CLI::App& app)
{
    const auto options = std::make_shared<Options>();
    CLI::App* ole = app.add_subcommand("ole", "List, extract and add the streams of a compound file");
    ole->require_subcommand(1);
    const auto add = [&](const char* name, const char* text, void (*run)(const Options&)) {
        CLI::App* command = ole->add_subcommand(name, text);
        command->add_option("file", options->file, "The compound file")->required();
        command->callback([options, run] { run(*options); });
        return command;
    };
    OfferJson(*add("list", "Print streams and storages", List));
    CLI::App* extract = add("extract", "Write streams into a folder", Extract);
    extract->add_option("name", options->name, "Only this stream");
    extract->add_option("-o,--output", options->folder, "The folder, by default this one");
    CLI::App* adding =
        add("add", "Put a file in as a stream, making the compound file if it is missing", Add);
    adding->add_option("source", options->source, "The file to put in")->required();
    adding->add_option("--name", options->name, "The stream's name, by default the file's");
}
