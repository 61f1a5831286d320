#include "corekit/stores/MiniUnz.h"

#include "corekit/framework/MessageBox.h"
#include "corekit/framework/Module.h"
#include "corekit/framework/String.h"
#include "corekit/resources/Messages.h"
#include "corekit/stores/EntryPath.h"
#include "corekit/stores/MemoryStream.h"
#include "corekit/stores/ZipEntry.h"

#include <cstdio>
#include <memory>
#include <new>

IMPLEMENT_DYNAMIC(CMiniUnz, CObject)

namespace {
using namespace corekit::detail;

using CFile = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

CFile OpenFile(std::string path, const char* mode)
{
    for (char& c : path)
        if (c == '\\') c = '/';
    return {std::fopen(path.c_str(), (std::string(mode) + "e").c_str()), &std::fclose};
}

// As unzOpen64, but for this process alone.
unzFile OpenArchive(const std::string& path)
{
    zlib_filefunc64_def calls;
    fill_fopen64_filefunc(&calls);
    calls.zopen64_file = [](voidpf, const void* name, int) -> voidpf {
        return std::fopen(static_cast<const char*>(name), "rbe");
    };
    return unzOpen2_64(path.c_str(), &calls);
}

void Complain(UINT id) { StockMessageBox(nullptr, id, MB_OK | MB_ICONSTOP); }

void Tell(UINT id, const std::string& name, UINT flags)
{
    CString text;
    AfxFormatString1(text, id, name.c_str());
    StockMessageBox(nullptr, text, flags);
}

// Whether the entry was made by a system with links and is one.
bool IsLink(const unz_file_info64& info)
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
    Extraction(unzFile archive, Order order) : m_archive(archive), m_order(std::move(order)) {}

    void All();
    bool One(const char* name); // whether it was found and extracted

private:
    struct Target {
        std::string name; // below the folder
        std::string path;
    };
    enum class Fate { extracted, refused };

    int Current(Fate* fate = nullptr); // nonzero ends the walk
    int TakeName(unz_file_info64& info, std::string& name);
    bool MayWrite(const std::string& name, const unz_file_info64& info);
    void MakeFolderEntry(const std::string& name, const unz_file_info64& info);
    bool UserKeeps(const std::string& path);
    CFile OpenOutput(const Target& target);
    int Copy(ZipEntry& entry, std::FILE* file);
    int Write(ZipEntry& entry, const Target& target, const unz_file_info64& info, Fate* fate);

    unzFile m_archive;
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
    name.resize(std::min(name.find('\0'), name.size()));
    return code;
}

bool Extraction::MayWrite(const std::string& name, const unz_file_info64& info)
{
    if (IsInsideName(name) && !IsLink(info) && !LeadsThroughLink(m_order.folder, name)) return true;
    Tell(message::unzipOpenFileFailed, PathBelow(m_order.folder, name), MB_OK | MB_ICONSTOP);
    return false;
}

void Extraction::MakeFolderEntry(const std::string& name, const unz_file_info64& info)
{
    const std::string bare = name.substr(0, name.find_last_not_of("/\\") + 1);
    if (m_order.withoutPath || !MayWrite(bare.empty() ? name : bare, info)) return;
    Tell(message::unzipCreatingFolder, name, MB_OK | MB_ICONINFORMATION);
    MakeFolders(m_order.folder, bare);
}

bool Extraction::UserKeeps(const std::string& path)
{
    if (m_order.overwrite || m_order.toMemory || !OpenFile(path, "rb")) return false;
    CString format, question;
    format.LoadString(message::unzipOverwrite);
    question.FormatMessage(format);
    return StockMessageBox(nullptr, question, MB_YESNO | MB_ICONQUESTION) == IDNO;
}

CFile Extraction::OpenOutput(const Target& target)
{
    CFile file = OpenFile(target.path, "wb");
    const std::size_t cut = target.name.find_last_of("/\\");
    if (!file && !m_order.withoutPath && cut != std::string::npos) {
        MakeFolders(m_order.folder, target.name.substr(0, cut));
        file = OpenFile(target.path, "wb");
    }
    if (!file) Tell(message::unzipOpenFileFailed, target.path, MB_OK | MB_ICONSTOP);
    return file;
}

int Extraction::Copy(ZipEntry& entry, std::FILE* file)
{
    while (true) {
        const int count = entry.Read(m_buffer.get(), bufferSize);
        if (count < 0) Complain(message::unzipReadFailed);
        if (count <= 0) return count;
        m_order.memory.Write(m_buffer.get(), static_cast<DWORD>(count));
        if (file && std::fwrite(m_buffer.get(), 1, static_cast<unsigned>(count), file) !=
                        static_cast<unsigned>(count)) {
            Complain(message::unzipWriteFailed);
            return -1;
        }
    }
}

int Extraction::Write(ZipEntry& entry, const Target& target, const unz_file_info64& info, Fate* fate)
{
    if (m_order.toMemory) return Copy(entry, nullptr);
    CFile file = OpenOutput(target);
    if (!file) {
        *fate = Fate::refused;
        return UNZ_OK;
    }
    int code = Copy(entry, file.get());
    if (std::fclose(file.release()) != 0 && code == UNZ_OK) {
        Complain(message::unzipWriteFailed);
        code = -1;
    }
    if (code == UNZ_OK) ChangeFileDate(target.path, static_cast<DWORD>(info.dosDate));
    return code;
}

int Extraction::Current(Fate* fate)
{
    Fate unused;
    if (!fate) fate = &unused;
    *fate = Fate::extracted;
    unz_file_info64 info;
    std::string name;
    if (const int code = TakeName(info, name)) return Complain(message::unzipEntryInfoFailed), code;
    if (!m_buffer) m_buffer.reset(new (std::nothrow) BYTE[bufferSize]);
    if (!m_buffer) return Complain(message::unzipNoMemory), noMemory;

    const std::string bare = name.substr(name.find_last_of("/\\") + 1);
    if (bare.empty()) return MakeFolderEntry(name, info), UNZ_OK;
    const std::string& used = m_order.withoutPath ? bare : name;
    const Target target{used, PathBelow(m_order.folder, used)};
    if (!m_order.toMemory && !MayWrite(used, info)) {
        *fate = Fate::refused;
        return UNZ_OK;
    }
    ZipEntry entry(m_archive, info, m_order.password);
    if (const int code = entry.OpenCode()) return Complain(message::unzipOpenEntryFailed), code;
    if (UserKeeps(target.path)) return UNZ_OK;
    if (const int code = Write(entry, target, info, fate)) return code;
    const int code = entry.Close();
    if (code != UNZ_OK) Complain(message::unzipCloseEntryFailed);
    return code;
}

void Extraction::All()
{
    unz_global_info64 info;
    if (unzGetGlobalInfo64(m_archive, &info) != UNZ_OK) return Complain(message::unzipArchiveInfoFailed);
    for (ZPOS64_T i = 0; i < info.number_entry; ++i) {
        if (i != 0 && unzGoToNextFile(m_archive) != UNZ_OK) return Complain(message::unzipNextEntryFailed);
        if (Current() != UNZ_OK) return;
    }
}

bool Extraction::One(const char* name)
{
    Fate fate;
    return unzLocateFile(m_archive, name, 0) == UNZ_OK && Current(&fate) == UNZ_OK && fate == Fate::extracted;
}
} // namespace

bool CMiniUnz::unzip(bool bToMemory, CMemoryStream& memory, const char* zipName, const char* oneFile,
                     const char* outputPath, int bWithoutPath, int bOverwrite, const char* password)
{
    if (!zipName) return false;
    std::string path = zipName;
    for (char& c : path)
        if (c == '\\') c = '/';
    const std::unique_ptr<void, int (*)(unzFile)> archive(OpenArchive(path), &unzClose);
    if (!archive) return false;
    Extraction extraction(archive.get(), {memory, bToMemory, outputPath ? outputPath : "", bWithoutPath != 0,
                                          bOverwrite != 0, password});
    if (oneFile) return extraction.One(oneFile);
    extraction.All();
    return true;
}
