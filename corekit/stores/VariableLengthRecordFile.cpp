// Opening, records, and the blocks beneath them. Space and the areas written by Flush are in
// RecordFileSpace.cpp, the check in RecordFileCheck.cpp.
#include "corekit/stores/VariableLengthRecordFile.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/foundation/SafeAlloc.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Files.h"
#include "corekit/resources/Messages.h"
#include "corekit/stores/FreeSlots.h"
#include "corekit/stores/FreeSpaceIndex.h"
#include "corekit/stores/MemoryStream.h"

#include <algorithm>
#include <climits>
#include <cstring>

using namespace corekit::detail;

IMPLEMENT_DYNAMIC(CVariableLengthRecordFile, CObject)

namespace {

// At creation: the header's sector, then index and map of eight sectors each.
constexpr DWORD areaSectors = 8, firstFreeSector = 1 + 2 * areaSectors;

// The index of a file of 4 GiB cannot hold more.
constexpr int maxRecords = 0x1FFFFFFF;

[[noreturn]] void ThrowWithError(DWORD error, UINT message)
{
    ThrowChainedException(GetLastErrorException(error), message);
}

// What no block of memory could take when it is read again.
void CheckRecordSize(DWORD size)
{
    if (size > INT_MAX) ThrowWithError(ERROR_FILE_TOO_LARGE, message::recordFileWriteFailed);
}

} // namespace

CVariableLengthRecordFile::CVariableLengthRecordFile() = default;

CVariableLengthRecordFile::~CVariableLengthRecordFile()
{
    try {
        Close(1);
    } catch (CException* e) {
        if (e) e->Delete();
        Abandon();
    }
}

int CVariableLengthRecordFile::CreateFileA(const char* name, DWORD sectorSize, DWORD initialSize)
{
    if (IsOpen()) return 0;
    m_header = {};
    m_header.sectorSize = sectorSize;
    if (!m_header.HasUsableSectors() || initialSize / sectorSize < firstFreeSector) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    m_file = ::CreateFileA(name, GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                           FILE_ATTRIBUTE_NORMAL | FILE_FLAG_RANDOM_ACCESS, nullptr);
    if (!IsOpen()) return 0;
    try {
        MakeFile(sectorSize, initialSize);
        return 1;
    } catch (CException* e) {
        if (e) e->Delete();
        Abandon();
        DeleteFileA(name);
        return 0;
    }
}

void CVariableLengthRecordFile::MakeFile(DWORD sectorSize, DWORD initialSize)
{
    SetNewFileSize(initialSize);
    std::ranges::copy(recordFileMagic, m_header.magic);
    m_header.fileSize = initialSize;
    m_header.indexOffset = sectorSize;
    m_header.indexSectors = areaSectors;
    m_header.mapOffset = (1 + areaSectors) * sectorSize;
    m_header.mapSectors = areaSectors;
    m_FSM.Add({firstFreeSector * sectorSize, initialSize - firstFreeSector * sectorSize});
    m_loaded = true;
    WriteFreeSpaceMap();
    WriteHeader();
}

int CVariableLengthRecordFile::OpenFile(const char* name)
{
    if (IsOpen() || !OpenExisting(name)) return 0;
    try {
        ReadHeader();
        if (m_header.HasMagic() && m_header.IsPossible(m_bytesOnDisk)) {
            ReadIndexAndMap();
            return 1;
        }
    } catch (CException* e) {
        if (e) e->Delete();
    }
    Abandon();
    return 0;
}

bool CVariableLengthRecordFile::OpenExisting(const char* name)
{
    m_file = ::CreateFileA(name, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                           FILE_ATTRIBUTE_NORMAL, nullptr);
    if (!IsOpen()) return false;
    DWORD high = 0;
    const DWORD low = GetFileSize(m_file, &high);
    const bool hasSize = low != INVALID_FILE_SIZE || GetLastError() == ERROR_SUCCESS;
    m_bytesOnDisk = hasSize ? static_cast<std::uint64_t>(high) << 32 | low : 0;
    return true;
}

void CVariableLengthRecordFile::Close(int bFlush)
{
    if (!IsOpen()) return;
    if (bFlush) Flush();
    Abandon();
}

// Closes the file as it lies and forgets what was held of it.
void CVariableLengthRecordFile::Abandon() noexcept
{
    m_view.Release();
    if (IsOpen()) CloseHandle(m_file);
    m_file = INVALID_HANDLE_VALUE;
    m_FSM.RemoveAll();
    m_index.RemoveAll();
    m_freeSpace.reset();
    m_freeSlots.reset();
    m_bytesOnDisk = 0;
    m_loaded = false;
}

int CVariableLengthRecordFile::AddRecord(const void* data, DWORD size, int bFlush)
{
    CheckRecordSize(size);
    const int record = FindFreeRecord();
    const DWORD offset = AllocateSpace(size);
    SetEntry(record, {offset, size});
    WriteBlock(offset, data, size);
    if (bFlush) Flush();
    return record;
}

void CVariableLengthRecordFile::SetRecord(int record, const void* data, DWORD size, int bFlush)
{
    CheckRecordSize(size);
    if (record < 0) ThrowWithError(ERROR_INVALID_PARAMETER, message::recordFileWriteFailed);
    if (record >= m_index.GetSize()) {
        if (record >= maxRecords) ThrowWithError(ERROR_FILE_TOO_LARGE, message::recordFileSetLengthFailed);
        ExtendIndex(record + 1);
    }
    StoreRecord(record, data, size, bFlush);
}

void CVariableLengthRecordFile::ReplaceRecord(int record, const void* data, DWORD size, int bFlush)
{
    CheckRecordSize(size);
    if (record < 0 || record >= m_index.GetSize())
        ThrowWithError(ERROR_INVALID_PARAMETER, message::recordFileWriteFailed);
    StoreRecord(record, data, size, bFlush);
}

void CVariableLengthRecordFile::StoreRecord(int record, const void* data, DWORD size, int bFlush)
{
    const VLRExtent old = m_index[record];
    const DWORD oldSectors = SectorCount(old.nSize), newSectors = SectorCount(size);
    VLRExtent entry{old.nOffset, size};
    if (newSectors > oldSectors) {
        entry.nOffset = Relocate({old.nOffset, WholeSectors(old.nSize)}, [size] { return size; });
        SetEntry(record, entry);
        WriteBlock(entry.nOffset, data, size);
    } else {
        WriteBlock(entry.nOffset, data, size);
        SetEntry(record, entry);
        const DWORD kept = WholeSectors(size);
        if (newSectors < oldSectors) FreeSpace().Add({entry.nOffset + kept, WholeSectors(old.nSize) - kept});
    }
    if (bFlush) Flush();
}

void CVariableLengthRecordFile::DeleteRecord(int record, int bFlush)
{
    const VLRExtent old = m_index[record];
    if (old.nSize == 0) return;
    SetEntry(record, {0, 0});
    FreeSpace().Add({old.nOffset, WholeSectors(old.nSize)});
    if (bFlush) Flush();
}

void CVariableLengthRecordFile::GetRecord(int record, void*& data, DWORD& size)
{
    const VLRExtent entry = m_index[record];
    // A size that the file does not have is refused before there is memory for it.
    if (static_cast<std::uint64_t>(entry.nOffset) + entry.nSize > m_bytesOnDisk && entry.nSize > 0)
        ThrowWithError(ERROR_HANDLE_EOF, message::recordFileReadFailed);
    void* const block = __safe_malloc(static_cast<int>(entry.nSize), __FILE__, __LINE__);
    try {
        ReadBlock(entry.nOffset, block, entry.nSize);
    } catch (...) {
        safe_free(block);
        throw;
    }
    data = block;
    size = entry.nSize;
}

void CVariableLengthRecordFile::GetRecord(int record, CMemoryStream& stream)
{
    void* data = nullptr;
    DWORD size = 0;
    GetRecord(record, data, size);
    stream.Attach(data, static_cast<int>(size));
    stream.SetAutoDelete(1);
}

DWORD CVariableLengthRecordFile::GetRecordSize(int record) const { return m_index[record].nSize; }

int CVariableLengthRecordFile::GetInUseRecordCount() const
{
    const VLRExtent* const entries = m_index.GetData();
    return static_cast<int>(std::count_if(entries, entries + m_index.GetSize(),
                                          [](const VLRExtent& entry) { return entry.nSize != 0; }));
}

int CVariableLengthRecordFile::FindFreeRecord()
{
    if (!m_freeSlots) {
        m_freeSlots = std::make_unique<FreeSlots>();
        for (int i = 0; i < m_index.GetSize(); ++i)
            if (m_index[i].nSize == 0) m_freeSlots->Add(static_cast<std::size_t>(i));
    }
    if (const auto lowest = m_freeSlots->Lowest(); lowest >= 0) return static_cast<int>(lowest);
    const int record = m_index.GetSize();
    if (record >= maxRecords) ThrowWithError(ERROR_FILE_TOO_LARGE, message::recordFileSetLengthFailed);
    ExtendIndex(record + 1);
    return record;
}

void CVariableLengthRecordFile::ExtendIndex(int count)
{
    const int from = m_index.GetSize();
    m_index.SetSize(count);
    if (!m_freeSlots) return;
    for (int i = from; i < count; ++i) m_freeSlots->Add(static_cast<std::size_t>(i));
}

void CVariableLengthRecordFile::SetEntry(int record, VLRExtent entry)
{
    m_index[record] = entry;
    if (!m_freeSlots) return;
    if (entry.nSize == 0)
        m_freeSlots->Add(static_cast<std::size_t>(record));
    else
        m_freeSlots->Remove(static_cast<std::size_t>(record));
}

void CVariableLengthRecordFile::ReadHeader()
{
    m_header = {};
    ReadBlock(0, &m_header, sizeof m_header);
}

void CVariableLengthRecordFile::ReadIndexAndMap()
{
    ReadEntries(m_FSM, m_header.mapOffset, m_header.mapEntries);
    ReadEntries(m_index, m_header.indexOffset, m_header.indexEntries);
    m_loaded = true;
}

void CVariableLengthRecordFile::ReadEntries(CArray<VLRExtent>& to, DWORD offset, DWORD count)
{
    if (count == 0) return to.RemoveAll(); // wherever they would lie
    const std::uint64_t bytes = std::uint64_t{count} * sizeof(VLRExtent);
    if (offset + bytes > m_bytesOnDisk) ThrowWithError(ERROR_HANDLE_EOF, message::recordFileReadFailed);
    to.SetSize(static_cast<int>(count));
    ReadBytes(offset, to.GetData(), static_cast<DWORD>(bytes)); // a view would hold them a second time
}

void CVariableLengthRecordFile::ReadBlock(DWORD offset, void* data, DWORD size)
{
    if (size == 0) return;
    if (static_cast<std::uint64_t>(offset) + size > m_bytesOnDisk)
        ThrowWithError(ERROR_HANDLE_EOF, message::recordFileReadFailed);
    if (const BYTE* const from = m_view.Find(m_file, m_bytesOnDisk, offset, size)) {
        std::memcpy(data, from, size);
        return;
    }
    ReadBytes(offset, data, size);
}

void CVariableLengthRecordFile::ReadBytes(DWORD offset, void* data, DWORD size)
{
    if (size == 0) return;
    OVERLAPPED place;
    place.Offset = offset;
    DWORD moved = 0;
    if (!ReadFile(m_file, data, size, &moved, &place) || moved != size)
        ThrowChainedException(GetLastErrorException(), message::recordFileReadFailed);
}

void CVariableLengthRecordFile::WriteBlock(DWORD offset, const void* data, DWORD size)
{
    if (size == 0) return;
    // Nothing lies outside of the file; an entry that says so is damaged.
    if (static_cast<std::uint64_t>(offset) + size > m_header.fileSize)
        ThrowWithError(ERROR_HANDLE_EOF, message::recordFileWriteFailed);
    OVERLAPPED place;
    place.Offset = offset;
    DWORD moved = 0;
    if (!WriteFile(m_file, data, size, &moved, &place) || moved != size)
        ThrowChainedException(GetLastErrorException(), message::recordFileWriteFailed);
    m_bytesOnDisk = std::max(m_bytesOnDisk, static_cast<std::uint64_t>(offset) + size);
}

void CVariableLengthRecordFile::SetNewFileSize(DWORD size)
{
    m_view.ReleaseBeyond(size);
    if (SetFilePointer(m_file, static_cast<LONG>(size), nullptr, FILE_BEGIN) != size)
        ThrowChainedException(GetLastErrorException(), message::recordFileSeekFailed);
    if (!SetEndOfFile(m_file))
        ThrowChainedException(GetLastErrorException(), message::recordFileSetLengthFailed);
    m_bytesOnDisk = size;
}
