// corekit deflate, inflate and unzip.
#include "Commands.h"
#include "OutputFile.h"
#include "Terminal.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/framework/MessageBox.h"
#include "corekit/platform/Files.h"
#include "corekit/resources/Messages.h"
#include "corekit/stores/Deflator.h"
#include "corekit/stores/FileStream.h"
#include "corekit/stores/Inflator.h"
#include "corekit/stores/MemoryStream.h"
#include "corekit/stores/MiniUnz.h"
#include "corekit/stores/ZipDirectory.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <utility>

namespace {
namespace fs = std::filesystem;

constexpr std::uintmax_t largest = 0xFFFFFFFF; // bytes that a stream reaches to
constexpr std::size_t block = 65536;
constexpr std::uintmax_t usualSize = 1 << 30, usualRatio = 100; // of what an archive becomes

// A file that moves a bar on with every block read.
class WatchedFile : public CFileStream {
public:
    WatchedFile(const char* what, std::uintmax_t size)
        : m_bar(what, static_cast<std::size_t>(size / block + 1))
    {
    }

protected:
    void InternalRead(void* buffer, DWORD count) override
    {
        CFileStream::InternalRead(buffer, count);
        m_bar.Advance();
    }

private:
    ProgressBar m_bar;
};

struct Files {
    std::string in, out;
};

constexpr const char* standardStream = "-";

// A file without a name, for what cannot be sought in: standard input and output.
class Spool {
public:
    Spool() : m_file(std::tmpfile())
    {
        if (!m_file) FailFor("the folder of temporary files");
    }
    ~Spool() { std::fclose(m_file); }
    Spool(const Spool&) = delete;
    Spool& operator=(const Spool&) = delete;

    std::string Path() const { return "/proc/self/fd/" + std::to_string(fileno(m_file)); }
    void TakeInput()
    {
        char piece[block];
        while (const std::size_t count = std::fread(piece, 1, sizeof piece, stdin))
            if (std::fwrite(piece, 1, count, m_file) != count) FailFor("the folder of temporary files");
        if (std::ferror(stdin) || std::fflush(m_file) != 0) FailFor("standard input");
    }
    void GiveOut()
    {
        std::rewind(m_file);
        char piece[block];
        while (const std::size_t count = std::fread(piece, 1, sizeof piece, m_file))
            PrintBytes({piece, count});
        if (std::ferror(m_file)) FailFor("the folder of temporary files");
    }

private:
    std::FILE* m_file;
};

// Runs one of the two over the files and returns how many bytes were read and written. The result takes its
// name only when it is whole.
template <class Work>
std::pair<std::uintmax_t, std::uintmax_t> Pass(const Files& files, const char* what, Work work)
{
    Spool input;
    const bool isPiped = files.in == standardStream;
    if (isPiped) input.TakeInput();
    const std::string source = isPiped ? input.Path() : files.in;
    std::error_code unknown;
    const std::uintmax_t size = fs::file_size(source, unknown);
    if (!unknown && size > largest) throw std::runtime_error(files.in + ": longer than 4 GiB");
    WatchedFile in(what, unknown ? 0 : size);
    if (!in.Open(source.c_str(), GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING, 0)) FailFor(files.in);
    CFileStream out;
    const auto run = [&] {
        work(in, out);
        out.Flush();
        const DWORD written = out.GetSize();
        out.Close();
        return std::pair<std::uintmax_t, std::uintmax_t>(in.GetSize(), written);
    };
    if (files.out == standardStream) {
        Spool output;
        if (!out.Open(output.Path().c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, OPEN_EXISTING, 0))
            FailFor("the folder of temporary files");
        const auto sizes = run();
        output.GiveOut();
        return sizes;
    }
    OutputFile target(files.out);
    target.Open(out);
    const auto sizes = run();
    target.Commit();
    return sizes;
}

void Deflate(const Files& files)
{
    CDeflator deflator;
    const auto [read, written] =
        Pass(files, "deflating", [&](CStream& in, CStream& out) { deflator.Deflate(in, out); });
    if (files.out != standardStream)
        Print("%ju of %ju bytes, checksum %08X\n", written, read, deflator.GetChecksum());
}

void Inflate(const Files& files)
{
    const auto [read, written] =
        Pass(files, "inflating", [](CStream& in, CStream& out) { CInflator().Inflate(in, out); });
    if (files.out != standardStream) Print("%ju bytes\n", written);
}

struct Archive {
    std::string file, entry, folder = ".", password, passwordFile;
    std::uintmax_t maxSize = 0;
    bool flat = false, overwrite = false;
};

// Counts what passes and keeps none of it.
class Passage : public CMemoryStream {
public:
    explicit Passage(std::size_t blocks) : m_bar("extracting", blocks) {}
    std::uintmax_t bytes = 0;

protected:
    void InternalWrite(const void*, DWORD count) override
    {
        bytes += count;
        m_bar.Advance();
    }

private:
    ProgressBar m_bar;
};

std::string complaints;
int kept = 0;

int Collect(CWnd*, const char* text, UINT flags)
{
    if ((flags & MB_TYPEMASK) == MB_YESNO) return ++kept, IDNO;
    if ((flags & MB_ICONMASK) != MB_ICONSTOP || complaints.size() >= 2000) return IDOK;
    const bool hasReason = LoadResourceString(message::unzipWriteFailed) == text;
    complaints += (complaints.empty() ? "" : "; ") + std::string(text);
    if (hasReason) complaints += std::string(": ") + static_cast<const char*>(GetLastErrorString());
    return IDOK;
}

// An archive may unpack to a gigabyte, or to a hundred times its own size, and to no more than there is room
// for.
void CheckSize(const Archive& archive, std::uintmax_t unpacked)
{
    std::error_code unknown;
    const std::uintmax_t packed = fs::file_size(archive.file, unknown);
    const std::uintmax_t usual = std::max(usualSize, unknown ? 0 : std::min(packed, largest) * usualRatio);
    const std::uintmax_t most = archive.maxSize ? archive.maxSize : usual;
    if (unpacked > most)
        throw std::runtime_error(archive.file + ": would become " + std::to_string(unpacked) +
                                 " bytes, more than " + std::to_string(most) + " (see --max-size)");
    const fs::space_info room = fs::space(archive.folder, unknown);
    if (!unknown && unpacked > room.available)
        throw std::runtime_error(archive.folder + ": has room for " + std::to_string(room.available) +
                                 " bytes, not " + std::to_string(unpacked));
}

// The password given, of a file's first line, or of the environment, in this order; empty for none.
std::string PasswordFor(const Archive& archive)
{
    if (!archive.password.empty()) return archive.password;
    std::string password;
    if (!archive.passwordFile.empty()) {
        std::ifstream file(archive.passwordFile);
        if (!std::getline(file, password))
            throw std::runtime_error(archive.passwordFile + ": has no password");
        if (password.ends_with('\r')) password.pop_back();
    } else if (const char* const variable = std::getenv("COREKIT_ZIP_PASSWORD")) {
        password = variable;
    }
    return password;
}

void Unzip(const Archive& archive)
{
    const auto directory = corekit::ZipDirectory::Read(archive.file);
    if (!directory) throw std::runtime_error(archive.file + ": no zip archive");
    const std::string password = PasswordFor(archive);
    fs::create_directories(archive.folder);
    if (archive.entry.empty()) CheckSize(archive, directory->UnpackedSize());
    Passage passage(archive.entry.empty() ? static_cast<std::size_t>(directory->UnpackedSize() / 8192) : 0);
    SetMessageBoxHandler(&Collect);
    const bool done =
        CMiniUnz().unzip(false, passage, archive.file.c_str(),
                         archive.entry.empty() ? nullptr : archive.entry.c_str(), archive.folder.c_str(),
                         archive.flat, archive.overwrite, password.empty() ? nullptr : password.c_str());
    SetMessageBoxHandler(nullptr);
    if (!complaints.empty()) throw std::runtime_error(complaints);
    if (!done)
        throw std::runtime_error(
            archive.file + (archive.entry.empty() ? ": no zip archive" : ": no entry " + archive.entry));
    Print("%ju bytes to %s\n", passage.bytes, archive.folder.c_str());
    if (kept) Print("%d files were there already and stayed; --overwrite replaces them\n", kept);
}

void AddPass(CLI::App& app, const char* name, const char* text, void (*run)(const Files&))
{
    const auto files = std::make_shared<Files>();
    CLI::App* command = app.add_subcommand(name, text);
    command->add_option("in", files->in, "The file to read; - is standard input")->required();
    command->add_option("out", files->out, "The file to write; - is standard output")->required();
    command->callback([files, run] { run(*files); });
}
} // namespace

void AddPackingCommands(CLI::App& app)
{
    AddPass(app, "deflate", "Compress a file into a zlib stream", &Deflate);
    AddPass(app, "inflate", "Expand a zlib stream", &Inflate);
    const auto archive = std::make_shared<Archive>();
    CLI::App* unzip = app.add_subcommand("unzip", "Extract a zip archive");
    unzip->add_option("archive", archive->file, "The archive")->required();
    unzip->add_option("entry", archive->entry, "Only this entry");
    unzip->add_option("-o,--output", archive->folder, "The folder to extract to, by default this one");
    unzip->add_option("--password", archive->password,
                      "For encrypted entries, for others to see in the list of processes");
    unzip->add_option("--password-file", archive->passwordFile, "A file with the password in its first line");
    unzip->add_option("--max-size", archive->maxSize, "Bytes that the archive may become")
        ->transform(CLI::AsSizeValue(false));
    unzip->footer(
        "A password comes from COREKIT_ZIP_PASSWORD, too. Without --max-size an archive may become 1 GiB or "
        "100 times its\nsize.");
    unzip->add_flag("--flat", archive->flat, "Leave the folders of the archive out");
    unzip->add_flag("--overwrite", archive->overwrite, "Replace files that are there already");
    unzip->callback([archive] { Unzip(*archive); });
}
