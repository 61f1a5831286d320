// corekit deflate, inflate and unzip.
#include "Commands.h"
#include "Terminal.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/framework/MessageBox.h"
#include "corekit/platform/Files.h"
#include "corekit/stores/Deflator.h"
#include "corekit/stores/FileStream.h"
#include "corekit/stores/Inflator.h"
#include "corekit/stores/MemoryStream.h"
#include "corekit/stores/MiniUnz.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <minizip/unzip.h>
#include <stdexcept>

namespace {
namespace fs = std::filesystem;

constexpr std::uintmax_t largest = 0xFFFFFFFF; // bytes that a stream reaches to
constexpr std::size_t block = 65536;

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

void Open(CFileStream& stream, const std::string& path, DWORD access, DWORD disposition)
{
    if (!stream.Open(path.c_str(), access, FILE_SHARE_READ, disposition, 0))
        throw std::runtime_error(path + ": " + static_cast<const char*>(GetLastErrorString()));
}

// Runs one of the two over the files. The result takes its name only when it is whole.
template <class Work>
void Pass(const Files& files, const char* what, Work work)
{
    std::error_code unknown;
    const std::uintmax_t size = fs::file_size(files.in, unknown);
    if (!unknown && size > largest) throw std::runtime_error(files.in + ": longer than 4 GiB");
    const std::string partial = files.out + ".part";
    WatchedFile in(what, unknown ? 0 : size);
    CFileStream out;
    Open(in, files.in, GENERIC_READ, OPEN_EXISTING);
    Open(out, partial, GENERIC_READ | GENERIC_WRITE, CREATE_ALWAYS);
    try {
        work(in, out);
        out.Flush();
        out.Close();
        fs::rename(partial, files.out);
    } catch (...) {
        out.Close();
        fs::remove(partial, unknown);
        throw;
    }
}

void Deflate(const Files& files)
{
    CDeflator deflator;
    Pass(files, "deflating", [&](CStream& in, CStream& out) { deflator.Deflate(in, out); });
    std::printf("%ju of %ju bytes, checksum %08X\n", fs::file_size(files.out), fs::file_size(files.in),
                deflator.GetChecksum());
}

void Inflate(const Files& files)
{
    Pass(files, "inflating", [](CStream& in, CStream& out) { CInflator().Inflate(in, out); });
    std::printf("%ju bytes\n", fs::file_size(files.out));
}

struct Archive {
    std::string file, entry, folder = ".", password;
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

std::size_t BlocksOf(const Archive& archive)
{
    const std::unique_ptr<void, int (*)(unzFile)> zip(unzOpen64(archive.file.c_str()), &unzClose);
    std::size_t blocks = 0;
    unz_file_info64 info;
    for (int code = zip ? unzGoToFirstFile(zip.get()) : UNZ_ERRNO; code == UNZ_OK;
         code = unzGoToNextFile(zip.get()))
        if (unzGetCurrentFileInfo64(zip.get(), &info, nullptr, 0, nullptr, 0, nullptr, 0) == UNZ_OK)
            blocks += static_cast<std::size_t>((info.uncompressed_size + 8191) / 8192);
    return blocks;
}

std::string complaints;
int kept = 0;

int Collect(CWnd*, const char* text, UINT flags)
{
    if ((flags & MB_TYPEMASK) == MB_YESNO) return ++kept, IDNO;
    if ((flags & MB_ICONMASK) == MB_ICONSTOP && complaints.size() < 2000)
        complaints += (complaints.empty() ? "" : "; ") + std::string(text);
    return IDOK;
}

void Unzip(const Archive& archive)
{
    Passage passage(archive.entry.empty() ? BlocksOf(archive) : 0);
    fs::create_directories(archive.folder);
    SetMessageBoxHandler(&Collect);
    const bool done = CMiniUnz().unzip(false, passage, archive.file.c_str(),
                                       archive.entry.empty() ? nullptr : archive.entry.c_str(),
                                       archive.folder.c_str(), archive.flat, archive.overwrite,
                                       archive.password.empty() ? nullptr : archive.password.c_str());
    SetMessageBoxHandler(nullptr);
    if (!complaints.empty()) throw std::runtime_error(complaints);
    if (!done)
        throw std::runtime_error(
            archive.file + (archive.entry.empty() ? ": no zip archive" : ": no entry " + archive.entry));
    std::printf("%ju bytes to %s\n", passage.bytes, archive.folder.c_str());
    if (kept) std::printf("%d files were there already and stayed; --overwrite replaces them\n", kept);
}

void AddPass(CLI::App& app, const char* name, const char* text, void (*run)(const Files&))
{
    const auto files = std::make_shared<Files>();
    CLI::App* command = app.add_subcommand(name, text);
    command->add_option("in", files->in, "The file to read")->required();
    command->add_option("out", files->out, "The file to write")->required();
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
    unzip->add_option("--password", archive->password, "For encrypted entries");
    unzip->add_flag("--flat", archive->flat, "Leave the folders of the archive out");
    unzip->add_flag("--overwrite", archive->overwrite, "Replace files that are there already");
    unzip->callback([archive] { Unzip(*archive); });
}
