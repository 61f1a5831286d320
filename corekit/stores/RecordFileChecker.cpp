#include "corekit/stores/RecordFileChecker.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/foundation/StringA.h"
#include "corekit/platform/Errors.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>

namespace corekit::detail {

RecordFileChecker::RecordFileChecker(RecordFileImage& image, RecordFileSpace& space)
    : m_image(image), m_space(space)
{
}

void RecordFileChecker::Print(int level, const char* text) const
{
    if (m_manner.print && (level == 0 || m_manner.verbose)) std::puts(text);
}

void RecordFileChecker::Print(int level, const WCHAR* text) const { Print(level, StringA(text)); }

void RecordFileChecker::PrintFormat(int level, const char* format, ...) const
{
    if (!m_manner.print || (level != 0 && !m_manner.verbose)) return;
    char line[160];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(line, sizeof line, format, arguments);
    va_end(arguments);
    Print(level, line);
}

void RecordFileChecker::Sorry() const
{
    if (m_manner.repair) Print(0, "Sorry... cannot repair this error");
}

int RecordFileChecker::SetInUse(int sector)
{
    if (sector < 0 || sector >= m_inUse.GetSize()) {
        PrintFormat(0, "ERROR: CheckSetInUse - sector %d is outside the file", sector);
        return 0;
    }
    if (m_inUse[sector]) return 0;
    m_inUse[sector] = 1;
    return 1;
}

int RecordFileChecker::SetInUse(DWORD offset, DWORD size)
{
    const DWORD first = m_image.SectorCount(offset), count = m_image.SectorCount(size);
    for (DWORD i = 0; i < count; ++i)
        if (!SetInUse(static_cast<int>(first + i))) return 0;
    return 1;
}

void RecordFileChecker::FreeInUse(int sector)
{
    if (sector < 0 || sector >= m_inUse.GetSize())
        PrintFormat(0, "ERROR: CheckFreeInUse - sector %d is outside the file", sector);
    else
        m_inUse[sector] = 0;
}

void RecordFileChecker::FreeInUse(DWORD offset, DWORD size)
{
    const DWORD first = m_image.SectorCount(offset), count = m_image.SectorCount(size);
    for (DWORD i = 0; i < count; ++i) FreeInUse(static_cast<int>(first + i));
}

// An area's bytes; one too large for any file stays so.
DWORD RecordFileChecker::AreaBytes(DWORD sectors) const
{
    return static_cast<DWORD>(
        std::min<std::uint64_t>(std::uint64_t{sectors} * Header().sectorSize, 0xFFFFFFFF));
}

// How many of the sectors from there on a claim would mark before it fails.
DWORD RecordFileChecker::CountUnmarked(DWORD offset, DWORD sectors) const
{
    const auto first = static_cast<int>(m_image.SectorCount(offset));
    int sector = first;
    while (sector < m_inUse.GetSize() && !m_inUse[sector] && static_cast<DWORD>(sector - first) < sectors)
        ++sector;
    return static_cast<DWORD>(sector - first);
}

int RecordFileChecker::Check(const char* name, const Manner& manner)
{
    m_manner = manner;

    Findings found;
    if (!Open(name) || !CheckHeader() || !CheckAreas(found) || !CheckRecords(found)) return 0;
    CheckMap(found);
    if (found.fault) found.result = 0;
    if (m_manner.repair && (found.fault || found.rebuild)) RebuildMap(found);
    if (m_manner.repair) WriteBack(found);
    Print(0, "Checks completed.");
    Close();
    if (!found.result) Print(0, "This V.L.R. File is busted.");
    return found.result;
}

bool RecordFileChecker::Open(const char* name)
{
    if (!m_image.OpenExisting(name)) {
        Print(0, "Cannot open file; " + GetLastErrorString());
        return false;
    }
    m_image.ReadHeader();
    if (Header().HasMagic()) return true;
    Print(0, "File is not a V.L.R. file");
    Close();
    return false;
}

void RecordFileChecker::PrintHeader() const
{
    Print(0, "Checking header information");
    PrintFormat(1, "Sector size: %d bytes", static_cast<int>(Header().sectorSize));
    PrintFormat(1, "File size from header: %d bytes", static_cast<int>(Header().fileSize));
    PrintFormat(1, "Index offset: 0x%08X", Header().indexOffset);
    PrintFormat(1, "Index sector count: %d", static_cast<int>(Header().indexSectors));
    PrintFormat(1, "Index entry count: %d", static_cast<int>(Header().indexEntries));
    PrintFormat(1, "FSM Offset: 0x%08X", Header().mapOffset);
    PrintFormat(1, "FSM Sector Count: %d", static_cast<int>(Header().mapSectors));
    PrintFormat(1, "FSM Entry Count: %d", static_cast<int>(Header().mapEntries));
}

// Without these nothing else in the header can be followed, nor counted against the file.
bool RecordFileChecker::CheckHeaderPossible()
{
    const std::uint64_t entries = std::uint64_t{Header().indexEntries} + Header().mapEntries;
    const char* fault = nullptr;
    if (!Header().HasUsableSectors())
        fault = "FATAL: Sector size is not a power of two, or below the header's size";
    else if (!Header().HasPossibleSize(m_image.BytesOnDisk()))
        fault = "FATAL: File size from header is not that of the file";
    else if (entries * sizeof(VLRExtent) > Header().fileSize)
        fault = "FATAL: Index and FSM have more entries than the file has room for";
    if (!fault) return true;
    Print(0, fault);
    Close();
    return false;
}

bool RecordFileChecker::CheckAreaSize(const char* area, DWORD entries, DWORD sectors) const
{
    const DWORD needed = m_image.SectorCount(entries * static_cast<DWORD>(sizeof(VLRExtent)));
    if (needed <= sectors) return true;
    PrintFormat(0, "ERROR: %s sector count is %d, should be at least %d", area, static_cast<int>(sectors),
                static_cast<int>(needed));
    Sorry();
    return false;
}

bool RecordFileChecker::CheckHeader()
{
    PrintHeader();
    if (!CheckHeaderPossible()) return false;
    if (!IsAligned(Header().indexOffset)) {
        Print(0, "FATAL: Index is not sector-aligned");
        return false;
    }
    if (!IsAligned(Header().mapOffset)) {
        Print(0, "FATAL: Free-space map is not sector aligned");
        return false;
    }
    return CheckAreaSize("Index", Header().indexEntries, Header().indexSectors) &&
           CheckAreaSize("FSM", Header().mapEntries, Header().mapSectors);
}

bool RecordFileChecker::CheckAreas(Findings& found)
{
    const int sectors = static_cast<int>(Header().fileSize / Header().sectorSize);
    PrintFormat(1, "Total sectors in file: %d\n", sectors);
    m_inUse.RemoveAll();
    m_inUse.SetSize(sectors);
    SetInUse(0);
    m_space.Load();

    if (!SetInUse(Header().indexOffset, AreaBytes(Header().indexSectors))) {
        Print(0, "ERROR: Index is set on in-use data");
        Sorry();
        return false;
    }
    found.mapSectors = CountUnmarked(Header().mapOffset, Header().mapSectors);
    if (!SetInUse(Header().mapOffset, AreaBytes(Header().mapSectors))) {
        Print(0, "ERROR: FSM is set on in-use data");
        found.result = 0;
        found.rebuild = true;
        return m_manner.repair;
    }
    return true;
}

bool RecordFileChecker::CheckRecords(Findings& found)
{
    Print(0, "Beginning index processing");
    for (int i = 0; i < m_space.Count(); ++i)
        if (!CheckRecord(i, found)) return false;
    return true;
}

bool RecordFileChecker::CheckRecord(int record, Findings& found)
{
    const VLRExtent entry = m_space.Entry(record);
    const int level = record % 256 == 0 ? 0 : 1; // a sign of life now and then
    if (entry.nSize == 0)
        PrintFormat(level, "Record [%8d] is empty", record);
    else
        PrintFormat(level, "Record [%8d] offset=0x%08X, size=0x%08X", record, entry.nOffset, entry.nSize);
    if (!IsAligned(entry.nOffset)) {
        found.result = 0;
        PrintFormat(0, "Record [%8d] is not sector aligned", record);
        Sorry();
        if (m_manner.repair) return false;
    }
    if (SetInUse(entry.nOffset, entry.nSize)) return true;
    found.result = 0;
    PrintFormat(0, "Record [%8d] is using allocated data", record);
    if (m_manner.repair) {
        Print(0, "Deleting record");
        m_space.SetEntry(record, {0, 0});
        found.indexChanged = true;
    }
    return true;
}

void RecordFileChecker::CheckMap(Findings& found)
{
    Print(0, "Checking free-space map");
    if (List().GetSize() == 0) Print(0, "Free-space map is empty");
    for (int i = 0; i < List().GetSize(); ++i) {
        const VLRExtent entry = List()[i];
        PrintFormat(1, "FSM record [%3d] offset=0x%08X, size=0x%08X", i, entry.nOffset, entry.nSize);
        if (SetInUse(entry.nOffset, entry.nSize)) continue;
        found.fault = true;
        PrintFormat(0, "ERROR: FSM record %d is using allocated data", i);
    }
    if (!found.fault) CheckLostSectors(found);
}

void RecordFileChecker::CheckLostSectors(Findings& found)
{
    Print(0, "Checking for lost sectors");
    for (int i = 0; i < m_inUse.GetSize(); ++i) {
        if (m_inUse[i]) continue;
        found.fault = true;
        PrintFormat(0, "ERROR: Found lost cluster at offset=0x%08X",
                    static_cast<DWORD>(i) * Header().sectorSize);
    }
    Print(0, "Lost cluster checks completed");
}

// The marks of the old entries stand, so what was free before is not free afterwards: it is lost, for the
// next repair to find. Of the old map's area only what it has marked itself is given up: where it lies on
// others, the sectors are theirs.
void RecordFileChecker::RebuildMap(const Findings& found)
{
    Print(0, "FSM requires rebuild.");
    Print(0, "Beginning FSM rebuild process...");
    const DWORD entryBytes = Header().mapEntries * static_cast<DWORD>(sizeof(VLRExtent));
    FreeInUse(Header().mapOffset, std::min(entryBytes, AreaBytes(found.mapSectors)));
    Header().mapEntries = Header().mapOffset = Header().mapSectors = 0;
    List().RemoveAll();
    for (int i = 0; i < m_inUse.GetSize(); ++i)
        if (!m_inUse[i]) List().Add({static_cast<DWORD>(i) * Header().sectorSize, Header().sectorSize});
    Print(1, "Merging FSM entries");
    m_space.MergeList();
    m_space.WriteMap();
}

void RecordFileChecker::WriteBack(const Findings& found)
{
    if (found.indexChanged) Print(0, "Rewriting index");
    m_space.WriteIndex();
    m_space.WriteMap();
    m_image.WriteHeader();
    m_image.FlushToDevice();
}

void RecordFileChecker::Close()
{
    m_image.Close();
    m_space.Forget();
}

} // namespace corekit::detail
