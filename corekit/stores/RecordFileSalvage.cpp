#include "corekit/stores/RecordFileSalvage.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/Files.h"
#include "corekit/resources/Messages.h"
#include "corekit/stores/RecordFileFormat.h"
#include "corekit/stores/VariableLengthRecordFile.h"

#include <algorithm>
#include <memory>

namespace {

using namespace corekit::detail;
using Progress = std::function<void(int done, int total)>;

constexpr DWORD firstSectors = 64; // of the target; it grows

[[noreturn]] void throwAboutFile(const char* what, const char* name)
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
        if (m_file == INVALID_HANDLE_VALUE) throwAboutFile("Cannot open file ", name);
        DWORD high = 0;
        const DWORD low = GetFileSize(m_file, &high);
        m_size = high ? 0xFFFFFFFF : low; // nothing of a record file lies beyond 32 bits
        const bool hasHeader = Has(0, sizeof m_header) && TryRead(0, &m_header, sizeof m_header);
        if (!hasHeader || !m_header.HasMagic() || !m_header.HasUsableSectors()) {
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
    // Numbers come in order.
    VLRExtent Entry(int record)
    {
        const auto at = static_cast<std::size_t>(record) % entriesAtOnce;
        if (at == 0) {
            m_entries.resize(std::min(entriesAtOnce, static_cast<std::size_t>(EntryCount() - record)));
            Read(m_header.indexOffset + static_cast<DWORD>(record) * DWORD{sizeof(VLRExtent)},
                 m_entries.data(), static_cast<DWORD>(m_entries.size() * sizeof(VLRExtent)));
        }
        return m_entries[at];
    }
    // The bytes at that place, which the file has; good until the next call.
    const BYTE* At(DWORD offset, DWORD size)
    {
        m_bytes.resize(size);
        Read(offset, m_bytes.data(), size);
        return m_bytes.data();
    }

private:
    static constexpr std::size_t entriesAtOnce = 4096;

    bool TryRead(DWORD offset, void* to, DWORD size)
    {
        OVERLAPPED place;
        place.Offset = offset;
        DWORD moved = 0;
        return ReadFile(m_file, to, size, &moved, &place) && moved == size;
    }
    void Read(DWORD offset, void* to, DWORD size)
    {
        if (!TryRead(offset, to, size))
            ThrowChainedException(GetLastErrorException(), message::recordFileReadFailed);
    }

    HANDLE m_file;
    DWORD m_size;
    RecordFileHeader m_header{};
    std::vector<VLRExtent> m_entries; // of the index, some
    std::vector<BYTE> m_bytes;        // of one record
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

void copyRecords(Source& from, CVariableLengthRecordFile& to, RecordFileSalvage& done,
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
        throwAboutFile("Cannot make file ", target);
    try {
        RecordFileSalvage done;
        copyRecords(from, to, done, progress);
        to.Close(1);
        return done;
    } catch (...) {
        to.Close(0);
        DeleteFileA(target);
        throw;
    }
}
