#include "corekit/platform/posix/processor/VersionRecord.h"

#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/files/File.h"
#include "corekit/platform/VersionInfo.h"

#include <algorithm>
#include <cstring>
#include <elf.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {
using namespace corekit::detail;

constexpr std::size_t mostNotes = 1 << 20; // bytes of all note segments together that are looked at
constexpr char owner[] = "CoreKit";        // with its terminator a whole number of words
constexpr DWORD recordType = 1, layout = 1;

struct RecordHead {
    DWORD layout;
    DWORD fileVersion[2];
    DWORD productVersion[2];
    DWORD translation;
};

class ElfFile {
public:
    explicit ElfFile(Descriptor file) : m_file(std::move(file)) {}

    std::string Record() const
    {
        Elf64_Ehdr head;
        if (!Read(0, &head, sizeof head) || std::memcmp(head.e_ident, ELFMAG, SELFMAG) != 0) return "";
        if (head.e_ident[EI_CLASS] != ELFCLASS64 || head.e_ident[EI_DATA] != ELFDATA2LSB) return "";
        if (head.e_phentsize != sizeof(Elf64_Phdr)) return "";
        std::size_t left = mostNotes;
        for (std::uint64_t i = 0; i < head.e_phnum; ++i) {
            Elf64_Phdr segment;
            if (!Read(head.e_phoff + i * sizeof segment, &segment, sizeof segment)) return "";
            if (segment.p_type != PT_NOTE || segment.p_filesz > left) continue;
            left -= segment.p_filesz;
            if (std::string found = InNotes(segment); !found.empty()) return found;
        }
        return "";
    }

private:
    // All of count bytes, at an offset that may be anything.
    bool Read(std::uint64_t offset, void* to, std::size_t count) const
    {
        struct stat facts;
        if (::fstat(m_file.get(), &facts) != 0) return false;
        const auto size = static_cast<std::uint64_t>(facts.st_size);
        if (offset > size || count > size - offset) return false;
        return ::pread(m_file.get(), to, count, static_cast<off_t>(offset)) == static_cast<ssize_t>(count);
    }

    std::string InNotes(const Elf64_Phdr& segment) const
    {
        std::string notes(segment.p_filesz, '\0');
        if (!Read(segment.p_offset, notes.data(), notes.size())) return "";
        const std::uint64_t step = segment.p_align == 8 ? 8 : 4;
        const auto rounded = [step](std::uint64_t n) { return (n + step - 1) / step * step; };
        for (std::uint64_t at = 0; notes.size() - at >= sizeof(Elf64_Nhdr);) {
            Elf64_Nhdr note;
            std::memcpy(&note, notes.data() + at, sizeof note);
            const std::uint64_t name = at + sizeof note, data = rounded(name + note.n_namesz),
                                end = data + note.n_descsz;
            if (end > notes.size()) return "";
            if (note.n_type == recordType && note.n_namesz == sizeof owner &&
                std::memcmp(notes.data() + name, owner, sizeof owner) == 0)
                return notes.substr(data, note.n_descsz);
            at = std::min<std::uint64_t>(rounded(end), notes.size());
        }
        return "";
    }

    Descriptor m_file;
};

// Pairs of terminated texts, and perhaps filling.
bool areSound(const std::string& texts)
{
    return std::ranges::count(texts, '\0') % 2 == 0 && (texts.empty() || texts.back() == '\0');
}
} // namespace

namespace corekit::detail {

std::optional<VersionRecord> readVersionRecord(const char* path)
{
    Descriptor file(::open(nativePath(path).c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
    if (!file) return setLastErrorFromErrno(), std::nullopt;
    const std::string bytes = ElfFile(std::move(file)).Record();
    RecordHead head;
    if (bytes.size() < sizeof head) return fail(ERROR_RESOURCE_DATA_NOT_FOUND, std::nullopt);
    std::memcpy(&head, bytes.data(), sizeof head);
    std::string texts = bytes.substr(sizeof head);
    if (head.layout != layout || !areSound(texts)) return fail(ERROR_RESOURCE_DATA_NOT_FOUND, std::nullopt);
    VersionRecord record;
    std::ranges::copy(head.fileVersion, record.fileVersion);
    std::ranges::copy(head.productVersion, record.productVersion);
    record.translation = head.translation;
    record.texts = std::move(texts);
    return record;
}

} // namespace corekit::detail
