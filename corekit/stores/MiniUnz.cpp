#include "corekit/stores/MiniUnz.h"

#include "corekit/framework/MessageBox.h"
#include "corekit/framework/Module.h"
#include "corekit/framework/String.h"
#include "corekit/platform/FileAttributes.h"
#include "corekit/platform/Files.h"
#include "corekit/platform/ReplacedFile.h"
#include "corekit/resources/Messages.h"
#include "corekit/stores/EntryPath.h"
#include "corekit/stores/MemoryStream.h"
#include "corekit/stores/ZipDirectory.h"
#include "corekit/stores/ZipEntry.h"

#include <algorithm>
#include <memory>
#include <new>

IMPLEMENT_DYNAMIC(CMiniUnz, CObject)

namespace {
using namespace corekit;
using namespace corekit::detail;

std::string nativePath(std::string path)
{
    for (char& c : path)
        if (c == '\\') c = '/';
    return path;
}

void complain(UINT id) { StockMessageBox(nullptr, id, MB_OK | MB_ICONSTOP); }

void tell(UINT id, const std::string& name, UINT flags)
{
    CString text;
    AfxFormatString1(text, id, name.c_str());
    StockMessageBox(nullptr, text, flags);
}

bool isThere(const std::string& path) { return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

// Whether the entry was made by a system with links and is one.
bool isLink(const unz_file_info64& info)
{
    constexpr uLong unixSystem = 3, macSystem = 19, typeMask = 0170000, linkType = 0120000;
    const uLong system = info.version >> 8;
    return (system == unixSystem || system == macSystem) && (info.external_fa >> 16 & typeMask) == linkType;
}

// What the caller asked for.
struct Order {
    CMemoryStream& memory;
    bool toMemory;
    std::string folder;
    bool withoutPath;
    bool overwrite;
    const char* password;
};

class Extraction {
public:
    Extraction(const std::string& path, unzFile archive, const ZipDirectory& directory, Order order)
        : m_path(path), m_archive(archive), m_directory(directory), m_order(std::move(order))
    {
    }

    void All();
    bool One(const char* name); // whether it was found and extracted

private:
    struct Target {
        std::string name; // below the folder
        std::string path;
    };
    enum class Fate { extracted, refused };

    int Current(const ZipDirectoryEntry& entry, Fate* fate = nullptr); // nonzero ends the walk
    int TakeName(unz_file_info64& info, std::string& name);
    bool MayWrite(const std::string& name, const unz_file_info64& info);
    void MakeFolderEntry(const std::string& name, const unz_file_info64& info);
    bool UserKeeps(const std::string& path);
    std::unique_ptr<ReplacedFile> OpenOutput(const Target& target);
    int Copy(ZipEntry& entry, ReplacedFile* file);
    static int CloseChecked(ZipEntry& entry);
    int Write(ZipEntry& entry, const Target& target, const unz_file_info64& info, Fate* fate);

    const std::string& m_path;
    unzFile m_archive;
    const ZipDirectory& m_directory;
    const Order m_order;
    std::unique_ptr<BYTE[]> m_buffer;
};

constexpr unsigned bufferSize = 8192;
constexpr int noMemory = -104;

int Extraction::TakeName(unz_file_info64& info, std::string& name)
{
    if (const int code = unzGetCurrentFileInfo64(m_archive, &info, nullptr, 0, nullptr, 0, nullptr, 0))
        return code;
    name.assign(info.size_filename, '\0');
    const int code =
        unzGetCurrentFileInfo64(m_archive, nullptr, name.data(), info.size_filename, nullptr, 0, nullptr, 0);
    return code;
}

bool Extraction::MayWrite(const std::string& name, const unz_file_info64& info)
{
    if (IsInsideName(name) && !isLink(info) && !leadsThroughLink(m_order.folder, name)) return true;
    tell(message::unzipOpenFileFailed, pathBelow(m_order.folder, name), MB_OK | MB_ICONSTOP);
    return false;
}

void Extraction::MakeFolderEntry(const std::string& name, const unz_file_info64& info)
{
    const std::string bare = name.substr(0, name.find_last_not_of("/\\") + 1);
    if (m_order.withoutPath || !MayWrite(bare.empty() ? name : bare, info)) return;
    tell(message::unzipCreatingFolder, name, MB_OK | MB_ICONINFORMATION);
    makeFolders(m_order.folder, bare);
}

bool Extraction::UserKeeps(const std::string& path)
{
    if (m_order.overwrite || m_order.toMemory || !isThere(path)) return false;
    CString format, question;
    format.LoadString(message::unzipOverwrite);
    question.FormatMessage(format);
    return StockMessageBox(nullptr, question, MB_YESNO | MB_ICONQUESTION) == IDNO;
}

std::unique_ptr<ReplacedFile> Extraction::OpenOutput(const Target& target)
{
    auto file = std::make_unique<ReplacedFile>(target.path);
    const std::size_t cut = target.name.find_last_of("/\\");
    if (!*file && !m_order.withoutPath && cut != std::string::npos) {
        makeFolders(m_order.folder, target.name.substr(0, cut));
        file = std::make_unique<ReplacedFile>(target.path);
    }
    if (*file) return file;
    tell(message::unzipOpenFileFailed, target.path, MB_OK | MB_ICONSTOP);
    return nullptr;
}

int Extraction::Copy(ZipEntry& entry, ReplacedFile* file)
{
    while (true) {
        const int count = entry.Read(m_buffer.get(), bufferSize);
        if (count < 0) complain(message::unzipReadFailed);
        if (count <= 0) return count;
        const auto size = static_cast<unsigned>(count);
        m_order.memory.Write(m_buffer.get(), size);
        if (file && !file->Write({reinterpret_cast<const char*>(m_buffer.get()), size})) {
            complain(message::unzipWriteFailed);
            return -1;
        }
    }
}

int Extraction::CloseChecked(ZipEntry& entry)
{
    const int code = entry.Close();
    if (code != UNZ_OK) complain(message::unzipCloseEntryFailed);
    return code;
}

// A file takes its name when all of it is there and sound.
int Extraction::Write(ZipEntry& entry, const Target& target, const unz_file_info64& info, Fate* fate)
{
    std::unique_ptr<ReplacedFile> file;
    if (!m_order.toMemory && !(file = OpenOutput(target))) {
        *fate = Fate::refused;
        return UNZ_OK;
    }
    if (const int code = Copy(entry, file.get())) return code;
    if (const int code = CloseChecked(entry)) return code;
    if (!file) return UNZ_OK;
    // What is new can be unpacked again; what it replaces cannot be had back.
    if (!file->Commit(isThere(target.path) ? ReplacedFile::Sync::toDevice : ReplacedFile::Sync::none)) {
        complain(message::unzipWriteFailed);
        return -1;
    }
    changeFileDate(target.path, static_cast<DWORD>(info.dosDate));
    return UNZ_OK;
}

int Extraction::Current(const ZipDirectoryEntry& row, Fate* fate)
{
    Fate unused;
    if (!fate) fate = &unused;
    *fate = Fate::extracted;
    unz_file_info64 info;
    std::string name;
    int code = unzSetOffset64(m_archive, row.place);
    if (code == UNZ_OK) code = TakeName(info, name);
    if (code != UNZ_OK) return complain(message::unzipEntryInfoFailed), code;
    if (!m_buffer) m_buffer.reset(new (std::nothrow) BYTE[bufferSize]);
    if (!m_buffer) return complain(message::unzipNoMemory), noMemory;

    const std::string bare = LastPart(name);
    if (bare.empty()) return MakeFolderEntry(name, info), UNZ_OK;
    const std::string& used = m_order.withoutPath ? bare : name;
    const Target target{used, pathBelow(m_order.folder, used)};
    if (!m_order.toMemory && !MayWrite(used, info)) {
        *fate = Fate::refused;
        return UNZ_OK;
    }
    ZipEntry entry(m_archive, info, m_order.password);
    code = isConfirmed(m_path, row) ? entry.OpenCode() : UNZ_BADZIPFILE;
    if (code != UNZ_OK) return complain(message::unzipOpenEntryFailed), code;
    if (UserKeeps(target.path)) return UNZ_OK;
    return Write(entry, target, info, fate);
}

void Extraction::All()
{
    if (m_directory.HasOverlap()) return complain(message::unzipArchiveInfoFailed);
    for (const ZipDirectoryEntry& row : m_directory.Entries())
        if (Current(row) != UNZ_OK) return;
    if (!m_directory.IsWhole()) complain(message::unzipNextEntryFailed);
}

bool Extraction::One(const char* name)
{
    const auto& rows = m_directory.Entries();
    const auto row = std::ranges::find(rows, std::string_view(name), &ZipDirectoryEntry::name);
    Fate fate;
    return row != rows.end() && Current(*row, &fate) == UNZ_OK && fate == Fate::extracted;
}
} // namespace

bool CMiniUnz::unzip(bool bToMemory, CMemoryStream& memory, const char* zipName, const char* oneFile,
                     const char* outputPath, int bWithoutPath, int bOverwrite, const char* password)
{
    if (!zipName) return false;
    const std::string path = nativePath(zipName);
    const auto directory = ZipDirectory::Read(path);
    if (!directory) return false;
    if (directory->Entries().empty() && directory->IsWhole()) return !oneFile;
    const std::unique_ptr<void, int (*)(unzFile)> archive(openZip(path), &unzClose);
    if (!archive) return false;
    Extraction extraction(
        path, archive.get(), *directory,
        {memory, bToMemory, outputPath ? outputPath : "", bWithoutPath != 0, bOverwrite != 0, password});
    if (oneFile) return extraction.One(oneFile);
    extraction.All();
    return true;
}
