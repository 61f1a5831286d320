// CheckFile: every sector of the file must belong to exactly one of header, index, map, record or free space.
#include "corekit/foundation/ChainedException.h"
#include "corekit/foundation/StringA.h"
#include "corekit/platform/Files.h"
#include "corekit/stores/FreeSpaceIndex.h"
#include "corekit/stores/VariableLengthRecordFile.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>

using namespace corekit::detail;

// What the passes have found so far.
struct CVariableLengthRecordFile::Findings {
    int result = 1;
    bool fault = false;   // in the map
    bool rebuild = false; // the map has to move
    bool indexChanged = false;
    DWORD mapSectors = 0; // that the map's area has marked for itself
};

void CVariableLengthRecordFile::CheckPrint(int level, const char* text) const
{
    if (m_bPrint && (level == 0 || m_bVerbose)) std::puts(text);
}

void CVariableLengthRecordFile::CheckPrint(int level, const WCHAR* text) const
{
    CheckPrint(level, StringA(text));
}

void CVariableLengthRecordFile::CheckPrintFormat(int level, const char* format, ...) const
{
    if (!m_bPrint || (level != 0 && !m_bVerbose)) return;
    char line[160];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(line, sizeof line, format, arguments);
    va_end(arguments);
    CheckPrint(level, line);
}

void CVariableLengthRecordFile::CheckSorry() const
{
    if (m_bRepair) CheckPrint(0, "Sorry... cannot repair this error");
}

int CVariableLengthRecordFile::CheckSetInUse(int sector)
{
    if (sector < 0 || sector >= m_inUse.GetSize()) {
        CheckPrintFormat(0, "ERROR: CheckSetInUse - sector %d is outside the file", sector);
        return 0;
    }
    if (m_inUse[sector]) return 0;
    m_inUse[sector] = 1;
    return 1;
}

int CVariableLengthRecordFile::CheckSetInUse(DWORD offset, DWORD size)
{
    const DWORD first = SectorCount(offset), count = SectorCount(size);
    for (DWORD i = 0; i < count; ++i)
        if (!CheckSetInUse(static_cast<int>(first + i))) return 0;
    return 1;
}

void CVariableLengthRecordFile::CheckFreeInUse(int sector)
{
    if (sector < 0 || sector >= m_inUse.GetSize())
        CheckPrintFormat(0, "ERROR: CheckFreeInUse - sector %d is outside the file", sector);
    else
        m_inUse[sector] = 0;
}

void CVariableLengthRecordFile::CheckFreeInUse(DWORD offset, DWORD size)
{
    const DWORD first = SectorCount(offset), count = SectorCount(size);
    for (DWORD i = 0; i < count; ++i) CheckFreeInUse(static_cast<int>(first + i));
}

// An area's bytes; one too large for any file stays so.
DWORD CVariableLengthRecordFile::AreaBytes(DWORD sectors) const
{
    return static_cast<DWORD>(
        std::min<std::uint64_t>(std::uint64_t{sectors} * m_header.sectorSize, 0xFFFFFFFF));
}

// How many of the sectors from there on a claim would mark before it fails.
DWORD CVariableLengthRecordFile::CountUnmarked(DWORD offset, DWORD sectors) const
{
    const auto first = static_cast<int>(SectorCount(offset));
    int sector = first;
    while (sector < m_inUse.GetSize() && !m_inUse[sector] && static_cast<DWORD>(sector - first) < sectors)
        ++sector;
    return static_cast<DWORD>(sector - first);
}

int CVariableLengthRecordFile::CheckFile(const char* name, int bPrint, int bVerbose, int bRepair)
{
    if (IsOpen()) return 0;
    m_bPrint = bPrint;
    m_bVerbose = bVerbose;
    m_bRepair = bRepair;

    Findings found;
    if (!CheckOpen(name) || !CheckHeader() || !CheckAreas(found) || !CheckRecords(found)) return 0;
    CheckMap(found);
    if (found.fault) found.result = 0;
    if (m_bRepair && (found.fault || found.rebuild)) CheckRebuildMap(found);
    if (m_bRepair) CheckWriteBack(found);
    CheckPrint(0, "Checks completed.");
    Close(0);
    if (!found.result) CheckPrint(0, "This V.L.R. File is busted.");
    return found.result;
}

bool CVariableLengthRecordFile::CheckOpen(const char* name)
{
    if (!OpenExisting(name)) {
        CheckPrint(0, "Cannot open file; " + GetLastErrorString());
        return false;
    }
    ReadHeader();
    if (m_header.HasMagic()) return true;
    CheckPrint(0, "File is not a V.L.R. file");
    Close(0);
    return false;
}

void CVariableLengthRecordFile::CheckPrintHeader() const
{
    CheckPrint(0, "Checking header information");
    CheckPrintFormat(1, "Sector size: %d bytes", static_cast<int>(m_header.sectorSize));
    CheckPrintFormat(1, "File size from header: %d bytes", static_cast<int>(m_header.fileSize));
    CheckPrintFormat(1, "Index offset: 0x%08X", m_header.indexOffset);
    CheckPrintFormat(1, "Index sector count: %d", static_cast<int>(m_header.indexSectors));
    CheckPrintFormat(1, "Index entry count: %d", static_cast<int>(m_header.indexEntries));
    CheckPrintFormat(1, "FSM Offset: 0x%08X", m_header.mapOffset);
    CheckPrintFormat(1, "FSM Sector Count: %d", static_cast<int>(m_header.mapSectors));
    CheckPrintFormat(1, "FSM Entry Count: %d", static_cast<int>(m_header.mapEntries));
}

// Without these nothing else in the header can be followed, nor counted against the file.
bool CVariableLengthRecordFile::CheckHeaderPossible()
{
    const std::uint64_t entries = std::uint64_t{m_header.indexEntries} + m_header.mapEntries;
    const char* fault = nullptr;
    if (!m_header.HasUsableSectors())
        fault = "FATAL: Sector size is not a power of two, or below the header's size";
    else if (!m_header.HasPossibleSize(m_bytesOnDisk))
        fault = "FATAL: File size from header is not that of the file";
    else if (entries * sizeof(VLRExtent) > m_header.fileSize)
        fault = "FATAL: Index and FSM have more entries than the file has room for";
    if (!fault) return true;
    CheckPrint(0, fault);
    Close(0);
    return false;
}

bool CVariableLengthRecordFile::CheckAreaSize(const char* area, DWORD entries, DWORD sectors) const
{
    const DWORD needed = SectorCount(entries * static_cast<DWORD>(sizeof(VLRExtent)));
    if (needed <= sectors) return true;
    CheckPrintFormat(0, "ERROR: %s sector count is %d, should be at least %d", area,
                     static_cast<int>(sectors), static_cast<int>(needed));
    CheckSorry();
    return false;
}

bool CVariableLengthRecordFile::CheckHeader()
{
    CheckPrintHeader();
    if (!CheckHeaderPossible()) return false;
    if (!CheckSectorAlign(m_header.indexOffset)) {
        CheckPrint(0, "FATAL: Index is not sector-aligned");
        return false;
    }
    if (!CheckSectorAlign(m_header.mapOffset)) {
        CheckPrint(0, "FATAL: Free-space map is not sector aligned");
        return false;
    }
    return CheckAreaSize("Index", m_header.indexEntries, m_header.indexSectors) &&
           CheckAreaSize("FSM", m_header.mapEntries, m_header.mapSectors);
}

bool CVariableLengthRecordFile::CheckAreas(Findings& found)
{
    const int sectors = static_cast<int>(m_header.fileSize / m_header.sectorSize);
    CheckPrintFormat(1, "Total sectors in file: %d\n", sectors);
    m_inUse.RemoveAll();
    m_inUse.SetSize(sectors);
    CheckSetInUse(0);
    ReadIndexAndMap();

    if (!CheckSetInUse(m_header.indexOffset, AreaBytes(m_header.indexSectors))) {
        CheckPrint(0, "ERROR: Index is set on in-use data");
        CheckSorry();
        return false;
    }
    found.mapSectors = CountUnmarked(m_header.mapOffset, m_header.mapSectors);
    if (!CheckSetInUse(m_header.mapOffset, AreaBytes(m_header.mapSectors))) {
        CheckPrint(0, "ERROR: FSM is set on in-use data");
        found.result = 0;
        found.rebuild = true;
        return m_bRepair != 0;
    }
    return true;
}

bool CVariableLengthRecordFile::CheckRecords(Findings& found)
{
    CheckPrint(0, "Beginning index processing");
    for (int i = 0; i < m_index.GetSize(); ++i)
        if (!CheckRecord(i, found)) return false;
    return true;
}

bool CVariableLengthRecordFile::CheckRecord(int record, Findings& found)
{
    const VLRExtent entry = m_index[record];
    const int level = record % 256 == 0 ? 0 : 1; // a sign of life now and then
    if (entry.nSize == 0)
        CheckPrintFormat(level, "Record [%8d] is empty", record);
    else
        CheckPrintFormat(level, "Record [%8d] offset=0x%08X, size=0x%08X", record, entry.nOffset,
                         entry.nSize);
    if (!CheckSectorAlign(entry.nOffset)) {
        found.result = 0;
        CheckPrintFormat(0, "Record [%8d] is not sector aligned", record);
        CheckSorry();
        if (m_bRepair) return false;
    }
    if (CheckSetInUse(entry.nOffset, entry.nSize)) return true;
    found.result = 0;
    CheckPrintFormat(0, "Record [%8d] is using allocated data", record);
    if (m_bRepair) {
        CheckPrint(0, "Deleting record");
        m_index[record] = {0, 0};
        found.indexChanged = true;
    }
    return true;
}

void CVariableLengthRecordFile::CheckMap(Findings& found)
{
    CheckPrint(0, "Checking free-space map");
    if (m_FSM.GetSize() == 0) CheckPrint(0, "Free-space map is empty");
    for (int i = 0; i < m_FSM.GetSize(); ++i) {
        const VLRExtent entry = m_FSM[i];
        CheckPrintFormat(1, "FSM record [%3d] offset=0x%08X, size=0x%08X", i, entry.nOffset, entry.nSize);
        if (CheckSetInUse(entry.nOffset, entry.nSize)) continue;
        found.fault = true;
        CheckPrintFormat(0, "ERROR: FSM record %d is using allocated data", i);
    }
    if (!found.fault) CheckLostSectors(found);
}

void CVariableLengthRecordFile::CheckLostSectors(Findings& found)
{
    CheckPrint(0, "Checking for lost sectors");
    for (int i = 0; i < m_inUse.GetSize(); ++i) {
        if (m_inUse[i]) continue;
        found.fault = true;
        CheckPrintFormat(0, "ERROR: Found lost cluster at offset=0x%08X",
                         static_cast<DWORD>(i) * m_header.sectorSize);
    }
    CheckPrint(0, "Lost cluster checks completed");
}

// The marks of the old entries stand, so what was free before is not free afterwards: it is lost, for the
// next repair to find. Of the old map's area only what it has marked itself is given up: where it lies on
// others, the sectors are theirs.
void CVariableLengthRecordFile::CheckRebuildMap(const Findings& found)
{
    CheckPrint(0, "FSM requires rebuild.");
    CheckPrint(0, "Beginning FSM rebuild process...");
    const DWORD entryBytes = m_header.mapEntries * static_cast<DWORD>(sizeof(VLRExtent));
    CheckFreeInUse(m_header.mapOffset, std::min(entryBytes, AreaBytes(found.mapSectors)));
    m_header.mapEntries = m_header.mapOffset = m_header.mapSectors = 0;
    m_FSM.RemoveAll();
    for (int i = 0; i < m_inUse.GetSize(); ++i)
        if (!m_inUse[i]) m_FSM.Add({static_cast<DWORD>(i) * m_header.sectorSize, m_header.sectorSize});
    CheckPrint(1, "Merging FSM entries");
    MergeContiguousFSMEntries();
    WriteFreeSpaceMap();
}

void CVariableLengthRecordFile::CheckWriteBack(const Findings& found)
{
    if (found.indexChanged) {
        CheckPrint(0, "Rewriting index");
        WriteIndex();
        WriteFreeSpaceMap();
        WriteHeader();
    }
    Flush();
}
