#include "corekit/stores/RecordFileSpace.h"

#include "corekit/platform/Errors.h"
#include "corekit/resources/Messages.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace corekit::detail {

namespace {

constexpr DWORD growSectors = 64;      // the least by which a file grows
constexpr int maxRecords = 0x1FFFFFFF; // the index of a file of 4 GiB cannot hold more
constexpr int entriesOfPage = 64;      // of the index that are written together

[[noreturn]] void throwTooLarge()
{
    throwRecordFileError(ERROR_FILE_TOO_LARGE, message::recordFileSetLengthFailed);
}

DWORD entryBytes(DWORD count) { return count * static_cast<DWORD>(sizeof(VLRExtent)); }

bool overlap(DWORD offset, DWORD size, DWORD areaOffset, std::uint64_t areaSize)
{
    return offset < areaOffset + areaSize && areaOffset < std::uint64_t{offset} + size;
}

} // namespace

void RecordFileSpace::Make(VLRExtent free)
{
    m_list.Add(free);
    m_wholeMap = true;
    m_loaded = true;
}

void RecordFileSpace::Load()
{
    const RecordFileHeader& header = m_image.Header();
    LoadEntries(m_list, header.mapOffset, header.mapEntries);
    LoadEntries(m_index, header.indexOffset, header.indexEntries);
    const std::span entries(m_index.GetData(), static_cast<std::size_t>(m_index.GetSize()));
    m_inUse = static_cast<int>(
        std::ranges::count_if(entries, [](const VLRExtent& entry) { return entry.nSize != 0; }));
    m_loaded = true;
}

void RecordFileSpace::LoadEntries(CArray<VLRExtent>& to, DWORD offset, DWORD count)
{
    if (count == 0) return to.RemoveAll(); // wherever they would lie
    const std::uint64_t bytes = std::uint64_t{count} * sizeof(VLRExtent);
    if (offset + bytes > m_image.BytesOnDisk())
        throwRecordFileError(ERROR_HANDLE_EOF, message::recordFileReadFailed);
    to.SetSize(static_cast<int>(count));
    m_image.ReadOnce(offset, to.GetData(), static_cast<DWORD>(bytes));
}

void RecordFileSpace::Forget()
{
    m_index.RemoveAll();
    m_list.RemoveAll();
    m_free.reset();
    m_slots.reset();
    m_inUse = 0;
    m_changed.clear();
    m_firstChanged = m_endOfChanged = 0;
    m_wholeMap = m_loaded = false;
}

// --- the index

void RecordFileSpace::SetEntry(int record, VLRExtent entry)
{
    VLRExtent& held = m_index[record];
    m_inUse += (entry.nSize != 0) - (held.nSize != 0);
    held = entry;
    NoteEntries(record, record + 1);
    if (!m_slots) return;
    if (entry.nSize == 0)
        m_slots->Add(static_cast<std::size_t>(record));
    else
        m_slots->Remove(static_cast<std::size_t>(record));
}

void RecordFileSpace::ExtendTo(int record)
{
    if (record >= maxRecords) throwTooLarge();
    const int from = m_index.GetSize(), count = record + 1;
    m_index.SetSize(count);
    NoteEntries(from, count);
    if (!m_slots) return;
    for (int i = from; i < count; ++i) m_slots->Add(static_cast<std::size_t>(i));
}

int RecordFileSpace::FindFreeRecord()
{
    if (!m_slots) {
        m_slots = std::make_unique<FreeSlots>();
        for (int i = 0; i < m_index.GetSize(); ++i)
            if (m_index[i].nSize == 0) m_slots->Add(static_cast<std::size_t>(i));
    }
    if (const auto lowest = m_slots->Lowest(); lowest >= 0) return static_cast<int>(lowest);
    const int record = m_index.GetSize();
    ExtendTo(record);
    return record;
}

void RecordFileSpace::NoteEntries(int from, int to)
{
    if (from >= to) return;
    const auto first = static_cast<std::size_t>(from / entriesOfPage);
    const auto end = static_cast<std::size_t>((to - 1) / entriesOfPage) + 1;
    if (m_changed.size() < end) m_changed.resize(end);
    std::fill(m_changed.begin() + static_cast<std::ptrdiff_t>(first),
              m_changed.begin() + static_cast<std::ptrdiff_t>(end), true);
    if (m_firstChanged == m_endOfChanged) m_firstChanged = first;
    m_firstChanged = std::min(m_firstChanged, first);
    m_endOfChanged = std::max(m_endOfChanged, end);
}

// --- free space

int RecordFileSpace::sortHelper(const void* first, const void* second)
{
    const DWORD one = static_cast<const VLRExtent*>(first)->nOffset;
    const DWORD other = static_cast<const VLRExtent*>(second)->nOffset;
    return (one > other) - (one < other);
}

void RecordFileSpace::SortList()
{
    if (m_list.GetSize() < 2) return;
    std::qsort(m_list.GetData(), static_cast<std::size_t>(m_list.GetSize()), sizeof(VLRExtent), sortHelper);
}

void RecordFileSpace::MergeList()
{
    int last = 0;
    for (int i = 1; i < m_list.GetSize(); ++i) {
        const VLRExtent entry = m_list[i];
        if (m_list[last].nOffset + m_list[last].nSize == entry.nOffset)
            m_list[last].nSize += entry.nSize;
        else
            m_list[++last] = entry;
    }
    if (last + 1 < m_list.GetSize()) m_list.SetSize(last + 1);
}

// The map as an index, made from the list at the first need. A list that somebody else has written may not be
// as it should.
FreeSpaceIndex& RecordFileSpace::Index()
{
    if (!m_free) {
        const auto entries = [this] {
            return std::span<const VLRExtent>(m_list.GetData(), static_cast<std::size_t>(m_list.GetSize()));
        };
        const auto isOutOfOrder = [](const VLRExtent& one, const VLRExtent& next) {
            return std::uint64_t{one.nOffset} + one.nSize >= next.nOffset;
        };
        if (std::ranges::adjacent_find(entries(), isOutOfOrder) != entries().end()) {
            SortList();
            MergeList();
            m_wholeMap = true;
        }
        m_free.emplace(entries());
        m_list.RemoveAll();
    }
    return *m_free;
}

DWORD RecordFileSpace::MapCount() const
{
    return static_cast<DWORD>(m_free ? m_free->Count() : static_cast<std::size_t>(m_list.GetSize()));
}

VLRExtent RecordFileSpace::Find(DWORD size)
{
    const DWORD whole = m_image.WholeSectors(size);
    if (whole < size) throwTooLarge();
    for (;;) {
        if (const auto entry = Index().Find(whole)) return *entry;
        Grow(whole);
    }
}

void RecordFileSpace::Grow(DWORD wholeSize)
{
    RecordFileHeader& header = m_image.Header();
    const std::uint64_t chunk =
        std::max(std::uint64_t{wholeSize}, std::uint64_t{growSectors} * header.sectorSize);
    if (header.fileSize + chunk > 0xFFFFFFFF) throwTooLarge();
    const VLRExtent added{header.fileSize, static_cast<DWORD>(chunk)};
    m_image.SetSize(added.nOffset + added.nSize);
    header.fileSize += added.nSize;
    Free(added);
}

DWORD RecordFileSpace::Take(DWORD size)
{
    const VLRExtent entry = Find(size);
    Index().TakeFront(entry, m_image.WholeSectors(size));
    return entry.nOffset;
}

DWORD RecordFileSpace::Exchange(VLRExtent from, DWORD size)
{
    if (from.nSize == 0) return Take(size);
    Free(from);
    try {
        return Take(size);
    } catch (...) {
        Index().TakeOut(from);
        throw;
    }
}

// --- the areas

void RecordFileSpace::NoteOverwritten(DWORD offset, DWORD size)
{
    const RecordFileHeader& header = m_image.Header();
    const auto area = [&](DWORD sectors) { return std::uint64_t{sectors} * header.sectorSize; };
    if (overlap(offset, size, header.indexOffset, area(header.indexSectors))) NoteEntries(0, Count());
    if (overlap(offset, size, header.mapOffset, area(header.mapSectors))) m_wholeMap = true;
}

void RecordFileSpace::NoteAll()
{
    NoteEntries(0, Count());
    m_wholeMap = true;
}

void RecordFileSpace::WriteIndex()
{
    RecordFileHeader& header = m_image.Header();
    const auto count = static_cast<DWORD>(Count());
    const DWORD bytes = entryBytes(count);
    const std::uint64_t room = std::uint64_t{header.indexSectors} * header.sectorSize;
    if (bytes > room) {
        // Often it grows into free space behind it.
        const DWORD offset = Exchange({header.indexOffset, static_cast<DWORD>(room)}, bytes);
        if (std::exchange(header.indexOffset, offset) != offset) NoteEntries(0, Count());
        header.indexSectors = m_image.SectorCount(bytes);
    }
    const auto end = m_changed.begin() + static_cast<std::ptrdiff_t>(m_endOfChanged);
    auto page = m_changed.begin() + static_cast<std::ptrdiff_t>(m_firstChanged);
    while ((page = std::find(page, end, true)) != end) {
        const auto behind = std::find(page, end, false);
        const auto from = static_cast<DWORD>(page - m_changed.begin()) * entriesOfPage;
        const DWORD to = std::min(count, static_cast<DWORD>(behind - m_changed.begin()) * entriesOfPage);
        m_image.Write(header.indexOffset + entryBytes(from), m_index.GetData() + from, entryBytes(to - from));
        page = behind;
    }
    std::fill(m_changed.begin() + static_cast<std::ptrdiff_t>(m_firstChanged), end, false);
    m_firstChanged = m_endOfChanged = 0;
    header.indexEntries = count;
}

// The old area is free first and so may add an entry or lose one; growing the file may add one too many, and
// then the map moves again.
void RecordFileSpace::MoveMapWhereItFits()
{
    RecordFileHeader& header = m_image.Header();
    while (entryBytes(MapCount()) > std::uint64_t{header.mapSectors} * header.sectorSize) {
        const VLRExtent old{header.mapOffset, header.mapSectors * header.sectorSize};
        if (old.nSize) Free(old);
        const DWORD bytes = m_image.WholeSectors(entryBytes(MapCount()));
        try {
            header.mapOffset = Take(bytes);
        } catch (...) {
            if (old.nSize) Index().TakeOut(old);
            throw;
        }
        header.mapSectors = m_image.SectorCount(bytes);
        m_wholeMap |= header.mapOffset != old.nOffset;
    }
}

void RecordFileSpace::WriteMap()
{
    RecordFileHeader& header = m_image.Header();
    if (MapCount() == 0) Find(growSectors * header.sectorSize);
    MoveMapWhereItFits();
    const DWORD count = MapCount();
    if (m_free) {
        const auto changed = m_wholeMap ? FreeSpaceIndex::Ranks{0, count} : m_free->Changed();
        // A map of another length has moved behind its first change.
        const std::size_t end = count == header.mapEntries ? changed.end : count;
        if (changed.first < end) {
            const std::vector<VLRExtent> entries = m_free->Entries(changed.first, end);
            const auto first = static_cast<DWORD>(changed.first);
            m_image.Write(header.mapOffset + entryBytes(first), entries.data(),
                          entryBytes(static_cast<DWORD>(entries.size())));
        }
        m_free->ForgetChanges();
    } else if (m_wholeMap) {
        m_image.Write(header.mapOffset, m_list.GetData(), entryBytes(count));
    }
    m_wholeMap = false;
    header.mapEntries = count;
}

} // namespace corekit::detail
