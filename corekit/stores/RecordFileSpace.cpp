// The record file's space: where records and areas are put, and the writing of index, map and header.
#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Files.h"
#include "corekit/resources/Messages.h"
#include "corekit/stores/FreeSlots.h"
#include "corekit/stores/FreeSpaceIndex.h"
#include "corekit/stores/VariableLengthRecordFile.h"

#include <algorithm>
#include <cstdlib>

using namespace corekit::detail;

namespace {

constexpr DWORD growSectors = 64; // the least by which a file grows

[[noreturn]] void ThrowTooLarge()
{
    ThrowChainedException(GetLastErrorException(ERROR_FILE_TOO_LARGE), message::recordFileSetLengthFailed);
}

DWORD EntryBytes(DWORD count) { return count * static_cast<DWORD>(sizeof(VLRExtent)); }

} // namespace

DWORD CVariableLengthRecordFile::WholeSectors(DWORD size) const
{
    const DWORD mask = m_header.sectorSize - 1;
    return (size + mask) & ~mask;
}

DWORD CVariableLengthRecordFile::SectorCount(DWORD size) const
{
    return size / m_header.sectorSize + (size % m_header.sectorSize != 0);
}

int CVariableLengthRecordFile::sortHelper(const void* first, const void* second)
{
    const DWORD one = static_cast<const VLRExtent*>(first)->nOffset;
    const DWORD other = static_cast<const VLRExtent*>(second)->nOffset;
    return (one > other) - (one < other);
}

void CVariableLengthRecordFile::SortFSM()
{
    if (m_FSM.GetSize() < 2) return;
    std::qsort(m_FSM.GetData(), static_cast<std::size_t>(m_FSM.GetSize()), sizeof(VLRExtent), sortHelper);
}

void CVariableLengthRecordFile::MergeContiguousFSMEntries()
{
    int last = 0;
    for (int i = 1; i < m_FSM.GetSize(); ++i) {
        const VLRExtent entry = m_FSM[i];
        if (m_FSM[last].nOffset + m_FSM[last].nSize == entry.nOffset)
            m_FSM[last].nSize += entry.nSize;
        else
            m_FSM[++last] = entry;
    }
    if (last + 1 < m_FSM.GetSize()) m_FSM.SetSize(last + 1);
}

// The map as an index, made from the list at the first need.
FreeSpaceIndex& CVariableLengthRecordFile::FreeSpace()
{
    if (!m_freeSpace) {
        SortFSM();
        MergeContiguousFSMEntries();
        m_freeSpace = std::make_unique<FreeSpaceIndex>(
            std::span(m_FSM.GetData(), static_cast<std::size_t>(m_FSM.GetSize())));
        m_FSM.RemoveAll();
    }
    return *m_freeSpace;
}

DWORD CVariableLengthRecordFile::MapCount() const
{
    return static_cast<DWORD>(m_freeSpace ? m_freeSpace->Count() : static_cast<std::size_t>(m_FSM.GetSize()));
}

VLRExtent CVariableLengthRecordFile::FindFreeSpace(DWORD size)
{
    const DWORD whole = WholeSectors(size);
    if (whole < size) ThrowTooLarge();
    for (;;) {
        if (const auto entry = FreeSpace().Find(whole)) return *entry;
        Grow(whole);
    }
}

void CVariableLengthRecordFile::Grow(DWORD wholeSize)
{
    const std::uint64_t chunk =
        std::max(std::uint64_t{wholeSize}, std::uint64_t{growSectors} * m_header.sectorSize);
    if (m_header.fileSize + chunk > 0xFFFFFFFF) ThrowTooLarge();
    const VLRExtent added{m_header.fileSize, static_cast<DWORD>(chunk)};
    SetNewFileSize(added.nOffset + added.nSize);
    m_header.fileSize += added.nSize;
    FreeSpace().Add(added);
}

DWORD CVariableLengthRecordFile::AllocateSpace(DWORD size)
{
    const VLRExtent entry = FindFreeSpace(size);
    FreeSpace().TakeFront(entry, WholeSectors(size));
    return entry.nOffset;
}

// Space of another size in exchange for what is held: that is free first, so the new may overlap the old. If
// there is none, all is as it was. The size may depend on the map as it is then.
DWORD CVariableLengthRecordFile::Relocate(VLRExtent from, const std::function<DWORD()>& size)
{
    if (from.nSize == 0) return AllocateSpace(size());
    FreeSpace().Add(from);
    try {
        return AllocateSpace(size());
    } catch (...) {
        FreeSpace().TakeOut(from);
        throw;
    }
}

void CVariableLengthRecordFile::WriteIndex()
{
    const auto count = static_cast<DWORD>(m_index.GetSize());
    const DWORD bytes = EntryBytes(count);
    const std::uint64_t room = std::uint64_t{m_header.indexSectors} * m_header.sectorSize;
    if (bytes > room) {
        m_header.indexOffset =
            Relocate({m_header.indexOffset, static_cast<DWORD>(room)}, [bytes] { return bytes; });
        m_header.indexSectors = SectorCount(bytes);
    }
    if (count > 0) WriteBlock(m_header.indexOffset, m_index.GetData(), bytes);
    m_header.indexEntries = count;
}

void CVariableLengthRecordFile::WriteFreeSpaceMap()
{
    if (MapCount() == 0) FindFreeSpace(growSectors * m_header.sectorSize);
    // Growing the file for the map can add one entry too many for it: then it moves again.
    while (EntryBytes(MapCount()) > std::uint64_t{m_header.mapSectors} * m_header.sectorSize) {
        DWORD bytes = 0;
        m_header.mapOffset =
            Relocate({m_header.mapOffset, m_header.mapSectors * m_header.sectorSize},
                     [this, &bytes] { return bytes = WholeSectors(EntryBytes(MapCount())); });
        m_header.mapSectors = SectorCount(bytes);
    }
    if (m_freeSpace) {
        const std::vector<VLRExtent> entries = m_freeSpace->Entries();
        WriteBlock(m_header.mapOffset, entries.data(), EntryBytes(MapCount()));
    } else {
        WriteBlock(m_header.mapOffset, m_FSM.GetData(), EntryBytes(MapCount()));
    }
    m_header.mapEntries = MapCount();
}

void CVariableLengthRecordFile::WriteHeader() { WriteBlock(0, &m_header, sizeof m_header); }

void CVariableLengthRecordFile::Flush()
{
    if (!m_loaded) return;
    WriteIndex();
    WriteFreeSpaceMap();
    WriteHeader();
    if (!FlushFileBuffers(m_file))
        ThrowChainedException(GetLastErrorException(), message::recordFileWriteFailed);
}
