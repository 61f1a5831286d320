#include "corekit/stores/VariableLengthRecordFile.h"

#include "corekit/foundation/SafeAlloc.h"
#include "corekit/framework/Exception.h"
#include "corekit/platform/Errors.h"
#include "corekit/resources/Messages.h"
#include "corekit/stores/MemoryStream.h"
#include "corekit/stores/RecordFileChecker.h"

#include <algorithm>
#include <climits>

using namespace corekit::detail;

IMPLEMENT_DYNAMIC(CVariableLengthRecordFile, CObject)

namespace {

// At creation: the header's sector, then index and map of eight sectors each.
constexpr DWORD areaSectors = 8, firstFreeSector = 1 + 2 * areaSectors;

// No file takes a record while none is open, nor one that no block of memory could take when it is read
// again.
void checkCanStore(const RecordFileSpace& space, DWORD size)
{
    if (!space.IsLoaded()) throwRecordFileError(ERROR_INVALID_HANDLE, message::recordFileSeekFailed);
    if (size > INT_MAX) throwRecordFileError(ERROR_FILE_TOO_LARGE, message::recordFileWriteFailed);
}

} // namespace

CVariableLengthRecordFile::CVariableLengthRecordFile()
    : m_image(std::make_unique<RecordFileImage>()), m_space(std::make_unique<RecordFileSpace>(*m_image)),
      m_checker(std::make_unique<RecordFileChecker>(*m_image, *m_space))
{
}

CVariableLengthRecordFile::~CVariableLengthRecordFile()
{
    try {
        Close(1);
    } catch (CException* e) {
        if (e) e->Delete();
    }
}

// --- the file

int CVariableLengthRecordFile::IsOpen() const { return m_image->IsOpen(); }

int CVariableLengthRecordFile::CreateFileA(const char* name, DWORD sectorSize, DWORD initialSize)
{
    if (IsOpen()) return 0;
    m_image->Header() = {};
    m_image->Header().sectorSize = sectorSize;
    if (!m_image->Header().HasUsableSectors() || initialSize / sectorSize < firstFreeSector) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    if (!m_image->Create(name)) return 0;
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
    m_image->SetSize(initialSize);
    RecordFileHeader& header = m_image->Header();
    std::ranges::copy(recordFileMagic, header.magic);
    header.fileSize = initialSize;
    header.indexOffset = sectorSize;
    header.indexSectors = areaSectors;
    header.mapOffset = (1 + areaSectors) * sectorSize;
    header.mapSectors = areaSectors;
    m_space->Make({firstFreeSector * sectorSize, initialSize - firstFreeSector * sectorSize});
    WriteFreeSpaceMap();
    WriteHeader();
}

int CVariableLengthRecordFile::OpenFile(const char* name)
{
    if (IsOpen() || !m_image->OpenExisting(name)) return 0;
    try {
        m_image->ReadHeader();
        if (m_image->Header().HasMagic() && m_image->Header().IsPossible(m_image->BytesOnDisk())) {
            m_space->Load();
            return 1;
        }
    } catch (CException* e) {
        if (e) e->Delete();
    }
    Abandon();
    return 0;
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
    m_image->Close();
    m_space->Forget();
}

void CVariableLengthRecordFile::Flush()
{
    if (!m_space->IsLoaded()) return;
    WriteIndex();
    WriteFreeSpaceMap();
    WriteHeader();
    try {
        m_image->FlushToDevice();
    } catch (...) {
        m_space->NoteAll(); // nobody knows what the device has
        throw;
    }
}

// --- records

int CVariableLengthRecordFile::AddRecord(const void* data, DWORD size, int bFlush)
{
    checkCanStore(*m_space, size);
    const int record = FindFreeRecord();
    const DWORD offset = m_space->Take(size);
    m_space->SetEntry(record, {offset, size});
    WriteBlock(offset, data, size);
    if (bFlush) Flush();
    return record;
}

void CVariableLengthRecordFile::SetRecord(int record, const void* data, DWORD size, int bFlush)
{
    checkCanStore(*m_space, size);
    if (record < 0) throwRecordFileError(ERROR_INVALID_PARAMETER, message::recordFileWriteFailed);
    if (record >= m_space->Count()) m_space->ExtendTo(record);
    StoreRecord(record, data, size, bFlush);
}

void CVariableLengthRecordFile::ReplaceRecord(int record, const void* data, DWORD size, int bFlush)
{
    checkCanStore(*m_space, size);
    if (record < 0 || record >= m_space->Count())
        throwRecordFileError(ERROR_INVALID_PARAMETER, message::recordFileWriteFailed);
    StoreRecord(record, data, size, bFlush);
}

void CVariableLengthRecordFile::StoreRecord(int record, const void* data, DWORD size, int bFlush)
{
    const VLRExtent old = m_space->Entry(record);
    const DWORD oldSectors = SectorCount(old.nSize), newSectors = SectorCount(size);
    if (newSectors > oldSectors) {
        const DWORD offset = m_space->Exchange({old.nOffset, WholeSectors(old.nSize)}, size);
        m_space->SetEntry(record, {offset, size});
        WriteBlock(offset, data, size);
    } else {
        WriteBlock(old.nOffset, data, size);
        m_space->SetEntry(record, {old.nOffset, size});
        const DWORD kept = WholeSectors(size);
        if (newSectors < oldSectors) m_space->Free({old.nOffset + kept, WholeSectors(old.nSize) - kept});
    }
    if (bFlush) Flush();
}

void CVariableLengthRecordFile::DeleteRecord(int record, int bFlush)
{
    const VLRExtent old = m_space->Entry(record);
    if (old.nSize == 0) return;
    m_space->SetEntry(record, {0, 0});
    m_space->Free({old.nOffset, WholeSectors(old.nSize)});
    if (bFlush) Flush();
}

void CVariableLengthRecordFile::GetRecord(int record, void*& data, DWORD& size)
{
    const VLRExtent entry = m_space->Entry(record);
    // A size that the file does not have is refused before there is memory for it.
    if (static_cast<std::uint64_t>(entry.nOffset) + entry.nSize > m_image->BytesOnDisk() && entry.nSize > 0)
        throwRecordFileError(ERROR_HANDLE_EOF, message::recordFileReadFailed);
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

DWORD CVariableLengthRecordFile::GetRecordSize(int record) const { return m_space->Entry(record).nSize; }
int CVariableLengthRecordFile::GetRecordCount() const { return m_space->Count(); }
int CVariableLengthRecordFile::GetInUseRecordCount() const { return m_space->InUse(); }

int CVariableLengthRecordFile::CheckFile(const char* name, int bPrint, int bVerbose, int bRepair)
{
    if (IsOpen()) return 0;
    return m_checker->Check(name, {.print = bPrint != 0, .verbose = bVerbose != 0, .repair = bRepair != 0});
}

// --- for those who derive

DWORD CVariableLengthRecordFile::WholeSectors(DWORD size) const { return m_image->WholeSectors(size); }
DWORD CVariableLengthRecordFile::SectorCount(DWORD size) const { return m_image->SectorCount(size); }

void CVariableLengthRecordFile::ReadBlock(DWORD offset, void* data, DWORD size)
{
    m_image->Read(offset, data, size);
}

void CVariableLengthRecordFile::WriteBlock(DWORD offset, const void* data, DWORD size)
{
    m_image->Write(offset, data, size);
    m_space->NoteOverwritten(offset, size);
}

void CVariableLengthRecordFile::SetNewFileSize(DWORD size) { m_image->SetSize(size); }
VLRExtent CVariableLengthRecordFile::FindFreeSpace(DWORD size) { return m_space->Find(size); }
int CVariableLengthRecordFile::FindFreeRecord() { return m_space->FindFreeRecord(); }
void CVariableLengthRecordFile::SortFSM() { m_space->SortList(); }
void CVariableLengthRecordFile::MergeContiguousFSMEntries() { m_space->MergeList(); }
void CVariableLengthRecordFile::WriteIndex() { m_space->WriteIndex(); }
void CVariableLengthRecordFile::WriteFreeSpaceMap() { m_space->WriteMap(); }
void CVariableLengthRecordFile::WriteHeader() { m_image->WriteHeader(); }

void CVariableLengthRecordFile::CheckPrint(int level, const char* text) const
{
    m_checker->Print(level, text);
}
void CVariableLengthRecordFile::CheckPrint(int level, const WCHAR* text) const
{
    m_checker->Print(level, text);
}
int CVariableLengthRecordFile::CheckSetInUse(int sector) { return m_checker->SetInUse(sector); }
int CVariableLengthRecordFile::CheckSetInUse(DWORD offset, DWORD size)
{
    return m_checker->SetInUse(offset, size);
}
void CVariableLengthRecordFile::CheckFreeInUse(int sector) { m_checker->FreeInUse(sector); }
void CVariableLengthRecordFile::CheckFreeInUse(DWORD offset, DWORD size)
{
    m_checker->FreeInUse(offset, size);
}
int CVariableLengthRecordFile::CheckSectorAlign(DWORD offset) const { return m_checker->IsAligned(offset); }
