#include "corekit/stores/RecordFileSalvage.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/Files.h"
#include "corekit/stores/FileView.h"
#include "corekit/stores/RecordFileFormat.h"
#include "corekit/stores/VariableLengthRecordFile.h"

#include <algorithm>
#include <cstring>
#include <memory>

namespace {

using namespace corekit::detail;
using Progress = std::function<void(int done, int total)>;

constexpr UINT readFailed = 4094;
constexpr DWORD firstSectors = 64; // of the target; it grows

[[noreturn]] void ThrowAboutFile(const char* what, const char* name)
{
    CChainedException* const why = GetLastErrorException();
    ThrowChainedException(why, (CString(what) + name).GetString());
}

// The damaged file. Nothing in it is believed that its length does not bear out.
class Source {
public:
    explicit Source(const char* name)
    {
        m_file = CreateFileA(name, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                             FILE_ATTRIBUTE_NORMAL, nullptr);
        if (m_file == INVALID_HANDLE_VALUE) ThrowAboutFile("Cannot open file ", name);
        DWORD high = 0;
        const DWORD low = GetFileSize(m_file, &high);
        m_size = high ? 0xFFFFFFFF : low; // nothing of a record file lies beyond 32 bits
        const BYTE* const header = Has(0, sizeof m_header) ? At(0, sizeof m_header) : nullptr;
        if (header) std::memcpy(&m_header, header, sizeof m_header);
        if (!header || !m_header.HasMagic() || !m_header.HasUsableSectors()) {
            CloseHandle(m_file);
            ThrowChainedException(nullptr, (CString(name) + " is not a V.L.R. file").GetString());
        }
    }
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;
    ~Source() { CloseHandle(m_file); }

    const RecordFileHeader& Header() const { return m_header; }
    DWORD Size() const { return m_size; }
    bool Has(DWORD offset, std::uint64_t size) const { return offset + size <= m_size; }
    int EntryCount() const
    {
        if (m_header.indexOffset >= m_size) return 0;
        const DWORD room = (m_size - m_header.indexOffset) / static_cast<DWORD>(sizeof(VLRExtent));
        return static_cast<int>(std::min(room, m_header.indexEntries));
    }
    VLRExtent Entry(int record)
    {
        const DWORD place = m_header.indexOffset + static_cast<DWORD>(record) * DWORD{sizeof(VLRExtent)};
        VLRExtent entry;
        std::memcpy(&entry, At(place, sizeof entry), sizeof entry);
        return entry;
    }
    // The bytes at that place, which the file has; good until the next call.
    const BYTE* At(DWORD offset, DWORD size)
    {
        if (const BYTE* const seen = m_view.Find(m_file, m_size, offset, size)) return seen;
        m_read.resize(size);
        OVERLAPPED place;
        place.Offset = offset;
        DWORD moved = 0;
        if (!ReadFile(m_file, m_read.data(), size, &moved, &place) || moved != size)
            ThrowChainedException(GetLastErrorException(), readFailed);
        return m_read.data();
    }

private:
    HANDLE m_file;
    DWORD m_size;
    RecordFileHeader m_header{};
    FileView m_view;
    std::vector<BYTE> m_read;
};

// Which sectors have an owner.
class Claims {
public:
    Claims(DWORD fileSize, DWORD sectorSize) : m_sectorSize(sectorSize), m_taken(fileSize / sectorSize + 1) {}

    // Whether the bytes start a sector and nobody had any of theirs before.
    bool Take(DWORD offset, std::uint64_t size)
    {
        const std::size_t first = offset / m_sectorSize;
        const std::size_t end =
            std::min<std::size_t>(m_taken.size(), (offset + size + m_sectorSize - 1) / m_sectorSize);
        bool alone = offset % m_sectorSize == 0;
        for (std::size_t i = first; i < end; ++i) {
            if (m_taken[i]) return false; // the rest stays for whoever it belongs to
            m_taken[i] = true;
        }
        return alone;
    }

private:
    DWORD m_sectorSize;
    std::vector<bool> m_taken;
};

void CopyRecords(Source& from, CVariableLengthRecordFile& to, RecordFileSalvage& done,
                 const Progress& progress)
{
    const RecordFileHeader& header = from.Header();
    Claims claims(from.Size(), header.sectorSize);
    claims.Take(0, header.sectorSize);
    claims.Take(header.indexOffset, std::uint64_t{header.indexSectors} * header.sectorSize);
    std::uint64_t doubtfulBytes = 0;
    for (int i = 0; i < from.EntryCount(); ++i) {
        if (progress) progress(i, from.EntryCount());
        const VLRExtent entry = from.Entry(i);
        if (entry.nSize == 0) continue;
        if (!from.Has(entry.nOffset, entry.nSize)) {
            done.lost.push_back(i);
            continue;
        }
        const bool sound = claims.Take(entry.nOffset, entry.nSize);
        if (!sound) doubtfulBytes += entry.nSize;
        if (doubtfulBytes > from.Size()) {
            doubtfulBytes -= entry.nSize;
            done.lost.push_back(i);
            continue;
        }
        to.SetRecord(i, from.At(entry.nOffset, entry.nSize), entry.nSize, 0);
        (sound ? done.sound : done.doubtful).push_back(i);
    }
}

} // namespace

RecordFileSalvage SalvageRecordFile(const char* source, const char* target, const Progress& progress)
{
    Source from(source);
    CVariableLengthRecordFile to;
    const DWORD sectorSize = std::min(from.Header().sectorSize, DWORD{1} << 20);
    if (!to.CreateFileA(target, sectorSize, firstSectors * sectorSize))
        ThrowAboutFile("Cannot make file ", target);
    try {
        RecordFileSalvage done;
        CopyRecords(from, to, done, progress);
        to.Close(1);
        return done;
    } catch (...) {
        to.Close(0);
        DeleteFileA(target);
        throw;
    }
}
