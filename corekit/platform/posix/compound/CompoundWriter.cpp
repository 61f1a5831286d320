#include "corekit/platform/posix/compound/CompoundWriter.h"

#include "corekit/platform/posix/compound/CompoundFormat.h"
#include "corekit/platform/posix/Errno.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace corekit::detail {
using namespace compound;

namespace {
constexpr std::size_t copyPiece = 65536;
constexpr std::uint64_t mostOfSmallSectors = 0x7FFFFFFF; // bytes of a stream; beyond it sectors are large

// Once something could not be written, nothing more is.
class Sink {
public:
    explicit Sink(int descriptor) : m_descriptor(descriptor) {}

    void Write(const void* bytes, std::size_t count)
    {
        m_held.append(static_cast<const char*>(bytes), count);
        m_written += count;
        if (m_held.size() >= copyPiece) Flush();
    }
    void Number(std::uint64_t value)
    {
        unsigned char bytes[4];
        putNumber(bytes, static_cast<std::uint32_t>(value));
        Write(bytes, sizeof bytes);
    }
    void FillTo(std::uint64_t unit, char with = '\0')
    {
        const auto count = static_cast<std::size_t>((unit - m_written % unit) % unit);
        m_held.append(count, with);
        m_written += count;
    }
    void Fail(DWORD error)
    {
        if (m_error == ERROR_SUCCESS) m_error = error;
    }
    bool HasFailed() const { return m_error != ERROR_SUCCESS; }
    bool Finish()
    {
        Flush();
        return HasFailed() ? fail(m_error, false) : true;
    }

private:
    void Flush()
    {
        for (std::string_view left = m_held; !left.empty() && !HasFailed();) {
            const ssize_t now = ::write(m_descriptor, left.data(), left.size());
            if (now >= 0)
                left.remove_prefix(static_cast<std::size_t>(now));
            else if (errno != EINTR)
                Fail(errorFromErrno(errno));
        }
        m_held.clear();
    }

    const int m_descriptor;
    std::string m_held;
    std::uint64_t m_written = 0;
    DWORD m_error = ERROR_SUCCESS;
};

struct Entry {
    CompoundNode* node;
    std::uint32_t previous = noEntry, next = noEntry, child = noEntry;
    std::uint32_t start = endOfChain;
    bool isRed = false;
};

// The order of a storage's elements: shorter names first.
bool comesBefore(const CompoundNode* a, const CompoundNode* b)
{
    const std::size_t lengths[] = {a->Name().size(), b->Name().size()};
    return lengths[0] != lengths[1] ? lengths[0] < lengths[1] : a->Folded() < b->Folded();
}

class Writer {
public:
    Writer(CompoundNode& root, int descriptor) : m_sink(descriptor)
    {
        PlaceEntries(root);
        PlaceStreams();
    }

    bool Run()
    {
        if (m_small > lastSector || m_sectors > lastSector) return fail(ERROR_FILE_TOO_LARGE, false);
        WriteHeader();
        WriteStreams();
        WriteSmallFat();
        WriteDirectory();
        WriteFat();
        WriteFatList();
        return m_sink.Finish();
    }
    std::vector<CompoundNode*> Nodes() const
    {
        std::vector<CompoundNode*> nodes;
        for (const Entry& entry : m_entries) nodes.push_back(entry.node);
        return nodes;
    }

private:
    std::uint64_t SectorsOf(std::uint64_t bytes) const { return (bytes + SectorSize() - 1) >> m_shift; }
    std::uint64_t SectorSize() const { return std::uint64_t{1} << m_shift; }
    static std::uint64_t SmallSectorsOf(std::uint64_t bytes) { return (bytes + 63) >> smallSectorShift; }
    static bool IsSmall(const Entry& entry) { return entry.node->Size() < smallCutoff; }

    // The entries of one storage lie beside each other and form a balanced tree: the last level of it is red.
    void PlaceEntries(CompoundNode& root)
    {
        m_entries.push_back({.node = &root});
        for (std::size_t at = 0; at < m_entries.size(); ++at) {
            if (!m_entries[at].node->IsStorage()) continue;
            std::vector<CompoundNode*> below;
            for (const auto& child : m_entries[at].node->Children()) below.push_back(child.get());
            std::ranges::sort(below, comesBefore);
            const std::size_t first = m_entries.size();
            for (CompoundNode* node : below) m_entries.push_back({.node = node});
            m_entries[at].child = Balance(first, below.size(), std::bit_width(below.size()));
            if (below.size() == 1) m_entries[first].isRed = false;
        }
    }
    std::uint32_t Balance(std::size_t first, std::size_t count, int levels)
    {
        if (count == 0) return noEntry;
        const std::size_t half = count / 2;
        Entry& middle = m_entries[first + half];
        middle.previous = Balance(first, half, levels - 1);
        middle.next = Balance(first + half + 1, count - half - 1, levels - 1);
        middle.isRed = levels == 1;
        return static_cast<std::uint32_t>(first + half);
    }

    void PlaceStreams()
    {
        for (const Entry& entry : m_entries)
            if (entry.node->Size() > mostOfSmallSectors) m_shift = largeSectorShift;
        for (Entry& entry : m_entries) {
            const std::uint64_t size = entry.node->Size();
            if (size == 0) continue;
            std::uint64_t& next = IsSmall(entry) ? m_small : m_sectors;
            entry.start = static_cast<std::uint32_t>(next);
            next += IsSmall(entry) ? SmallSectorsOf(size) : SectorsOf(size);
        }
        m_smallStart = Place(m_small << smallSectorShift);
        m_smallFatStart = Place(m_small * 4);
        m_directoryStart = Place(DirectorySize());
        m_fatStart = m_sectors;
        const std::uint64_t perSector = SectorSize() / 4;
        for (std::uint64_t before = ~std::uint64_t{}; before != m_sectors;) {
            before = m_sectors;
            m_fatCount = (m_sectors + perSector - 1) / perSector;
            const std::uint64_t listed = m_fatCount - std::min<std::uint64_t>(m_fatCount, headerFatSlots);
            m_listCount = (listed + perSector - 2) / (perSector - 1);
            m_sectors = m_fatStart + m_fatCount + m_listCount;
        }
    }
    // Where a chain of so many bytes begins.
    std::uint64_t Place(std::uint64_t bytes)
    {
        const std::uint64_t start = m_sectors;
        m_sectors += SectorsOf(bytes);
        return bytes == 0 ? endOfChain : start;
    }

    void WriteHeader()
    {
        std::array<unsigned char, headerSize> header{};
        const auto put = [&](HeaderPlace place, std::uint64_t value) {
            putNumber(&header[place], static_cast<std::uint32_t>(value));
        };
        std::ranges::copy(signature, header.begin());
        const bool isLarge = m_shift == largeSectorShift;
        putShort(&header[minorVersionPlace], 0x3E);
        putShort(&header[majorVersionPlace], isLarge ? 4 : 3);
        putShort(&header[byteOrderPlace], 0xFFFE);
        putShort(&header[shiftPlace], static_cast<std::uint16_t>(m_shift));
        putShort(&header[smallShiftPlace], smallSectorShift);
        if (isLarge) put(directoryCountPlace, SectorsOf(DirectorySize()));
        put(fatCountPlace, m_fatCount);
        put(directoryPlace, m_directoryStart);
        put(cutoffPlace, smallCutoff);
        put(smallFatPlace, m_smallFatStart);
        put(smallFatCountPlace, SectorsOf(m_small * 4));
        put(fatListPlace, m_listCount == 0 ? endOfChain : m_fatStart + m_fatCount);
        put(fatListCountPlace, m_listCount);
        for (std::size_t i = 0; i < headerFatSlots; ++i) putNumber(&header[fatPlace + 4 * i], FatSectorAt(i));
        m_sink.Write(header.data(), header.size());
        m_sink.FillTo(SectorSize());
    }
    std::uint32_t FatSectorAt(std::uint64_t slot) const
    {
        return slot < m_fatCount ? static_cast<std::uint32_t>(m_fatStart + slot) : freeSector;
    }
    std::uint64_t DirectorySize() const { return m_entries.size() * entrySize; }

    void WriteStreams()
    {
        for (const bool small : {false, true}) {
            for (const Entry& entry : m_entries)
                if (IsSmall(entry) == small) {
                    Copy(*entry.node);
                    m_sink.FillTo(small ? 1U << smallSectorShift : SectorSize());
                }
        }
        m_sink.FillTo(SectorSize());
    }
    void Copy(CompoundNode& node)
    {
        const std::uint64_t size = node.Size();
        for (std::uint64_t at = 0; at < size && !m_sink.HasFailed();) {
            const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(copyPiece, size - at));
            if (!node.Read(at, m_piece.data(), count)) m_sink.Fail(ERROR_INVALID_DATA);
            m_sink.Write(m_piece.data(), count);
            at += count;
        }
        if (!node.isOpen) node.Forget();
    }

    void WriteChain(std::uint64_t start, std::uint64_t count)
    {
        for (std::uint64_t i = 1; i < count; ++i) m_sink.Number(start + i);
        if (count > 0) m_sink.Number(endOfChain);
    }
    void WriteSmallFat()
    {
        for (const Entry& entry : m_entries)
            if (IsSmall(entry)) WriteChain(entry.start, SmallSectorsOf(entry.node->Size()));
        m_sink.FillTo(SectorSize(), '\xFF');
    }

    void WriteDirectory()
    {
        for (const Entry& entry : m_entries) WriteEntry(entry);
        std::array<unsigned char, entrySize> unused{};
        for (const auto place : {previousPlace, nextPlace, childPlace}) putNumber(&unused[place], noEntry);
        for (std::uint64_t at = DirectorySize(); at % SectorSize() != 0; at += entrySize)
            m_sink.Write(unused.data(), unused.size());
    }
    void WriteEntry(const Entry& entry)
    {
        std::array<unsigned char, entrySize> bytes{};
        const bool isRoot = &entry == m_entries.data();
        const std::u16string_view name = isRoot ? std::u16string_view(u"Root Entry") : entry.node->Name();
        for (std::size_t i = 0; i < name.size(); ++i) putShort(&bytes[2 * i], name[i]);
        putShort(&bytes[nameLengthPlace], static_cast<std::uint16_t>(2 * (name.size() + 1)));
        bytes[typePlace] = isRoot ? rootEntry : entry.node->IsStorage() ? storageEntry : streamEntry;
        bytes[colourPlace] = entry.isRed ? 0 : 1;
        putNumber(&bytes[previousPlace], entry.previous);
        putNumber(&bytes[nextPlace], entry.next);
        putNumber(&bytes[childPlace], entry.child);
        if (entry.node->IsStorage()) std::memcpy(&bytes[classPlace], &entry.node->classId, sizeof(CLSID));
        const std::uint64_t size = isRoot ? m_small << smallSectorShift : entry.node->Size();
        putNumber(&bytes[startPlace], isRoot ? static_cast<std::uint32_t>(m_smallStart) : entry.start);
        putNumber(&bytes[sizePlace], static_cast<std::uint32_t>(size));
        putNumber(&bytes[sizePlace + 4], static_cast<std::uint32_t>(size >> 32));
        m_sink.Write(bytes.data(), bytes.size());
    }

    void WriteFat()
    {
        for (const Entry& entry : m_entries)
            if (!IsSmall(entry)) WriteChain(entry.start, SectorsOf(entry.node->Size()));
        WriteChain(m_smallStart, SectorsOf(m_small << smallSectorShift));
        WriteChain(m_smallFatStart, SectorsOf(m_small * 4));
        WriteChain(m_directoryStart, SectorsOf(DirectorySize()));
        for (std::uint64_t i = 0; i < m_fatCount; ++i) m_sink.Number(fatSector);
        for (std::uint64_t i = 0; i < m_listCount; ++i) m_sink.Number(fatListSector);
        m_sink.FillTo(SectorSize(), '\xFF');
    }
    // What the header has no room for; the last number of each sector leads to the next.
    void WriteFatList()
    {
        const std::uint64_t perSector = SectorSize() / 4 - 1;
        std::uint64_t slot = headerFatSlots;
        for (std::uint64_t list = 1; list <= m_listCount; ++list) {
            for (std::uint64_t i = 0; i < perSector; ++i) m_sink.Number(FatSectorAt(slot++));
            m_sink.Number(list < m_listCount ? m_fatStart + m_fatCount + list : std::uint64_t{endOfChain});
        }
    }

    Sink m_sink;
    int m_shift = sectorShift;
    std::vector<Entry> m_entries;
    std::vector<char> m_piece = std::vector<char>(copyPiece);
    std::uint64_t m_sectors = 0, m_small = 0; // how many
    std::uint64_t m_smallStart = 0, m_smallFatStart = 0, m_directoryStart = 0, m_fatStart = 0;
    std::uint64_t m_fatCount = 0, m_listCount = 0;
};
} // namespace

bool writeCompoundFile(CompoundNode& root, int descriptor, std::vector<CompoundNode*>& nodes)
{
    Writer writer(root, descriptor);
    nodes = writer.Nodes();
    return writer.Run();
}

} // namespace corekit::detail
