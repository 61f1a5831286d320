// CVariableLengthRecordFile: numbered records of any length in one file of whole sectors.
//
// A record keeps its number for life, and its place until it grows past its sectors. Index and free-space map
// are held in memory: records are written at once, but index and map reach the file only with Flush, which
// writes what has changed of them. Free space is taken from the lowest entry that fits exactly, else from the
// front of the lowest that is long enough, else the file grows by 64 sectors or more.
//
// Failures of the file throw CChainedException (message::recordFileSeekFailed,
// message::recordFileWriteFailed, message::recordFileReadFailed, message::recordFileSetLengthFailed) and
// leave the object as it was where they can; only opening and creating answer 0 instead. An object belongs to
// one thread at a time, and an open file to one object: nobody else can open it meanwhile. Reads go through a
// view of the file in memory, so the file must not be cut short by others while it is open.
#pragma once

#include "corekit/framework/Object.h"
#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"
#include "corekit/stores/RecordFileFormat.h"

#include <memory>

class CMemoryStream;

namespace corekit::detail {
class RecordFileChecker;
class RecordFileImage;
class RecordFileSpace;
} // namespace corekit::detail

class COREKIT_API CVariableLengthRecordFile : public CObject {
    DECLARE_DYNAMIC(CVariableLengthRecordFile)

public:
    CVariableLengthRecordFile();
    // Flushes and closes an open file. A failure is dropped: Close(1) first to hear of it.
    ~CVariableLengthRecordFile() override;

    // Makes a file. The sector size is a power of two from 64 up, the initial size at least 17 sectors, in
    // bytes. 0 if the file exists, cannot be made, or an argument is not allowed; then nothing is left
    // behind.
    int CreateFileA(const char* name, DWORD sectorSize, DWORD initialSize);
    // 0 if the file cannot be opened, is of another kind, or its header cannot be true of it.
    int OpenFile(const char* name);
    int IsOpen() const;
    void Close(int bFlush);
    // Index, map, header, in this order; returns when all is on the device.
    void Flush();

    // The new record's number: the lowest free one. A record of size 0 is the same as a free number.
    int AddRecord(const void* data, DWORD size, int bFlush);
    // Makes or replaces the record of that number; numbers up to it become free ones.
    void SetRecord(int record, const void* data, DWORD size, int bFlush);
    // The same for a number inside the index; any other throws message::recordFileWriteFailed.
    void ReplaceRecord(int record, const void* data, DWORD size, int bFlush);
    // Does nothing for a free number.
    void DeleteRecord(int record, int bFlush);

    // A copy of the record in a new block, which the caller frees with safe_free. For a free number and one
    // outside of the index the block has 0 bytes.
    void GetRecord(int record, void*& data, DWORD& size);
    // The same, and the block is the stream's.
    void GetRecord(int record, CMemoryStream& stream);
    // 0 for a free number and one outside of the index.
    DWORD GetRecordSize(int record) const;
    // Free numbers included.
    int GetRecordCount() const;
    int GetInUseRecordCount() const;
    int IsFileEmpty() const { return GetInUseRecordCount() == 0; }

    // Checks that every sector of a file has exactly one owner and tells its findings on standard output,
    // each record and header field only if verbose. Opens the file itself, so none may be open (else 0). With
    // bRepair, overlapping records are deleted and a faulty map is rebuilt. 1 if the file was sound, 0 if it
    // was faulty, repaired or not. Some faults end the check early and leave the file open in the object.
    int CheckFile(const char* name, int bPrint, int bVerbose, int bRepair);

protected:
    DWORD WholeSectors(DWORD size) const; // size, rounded up to whole sectors
    DWORD SectorCount(DWORD size) const;  // the same as a number of sectors

    void ReadBlock(DWORD offset, void* data, DWORD size);
    void WriteBlock(DWORD offset, const void* data, DWORD size);
    void SetNewFileSize(DWORD size);

    // The entry of the map that has room for `size` bytes, after the file has grown if it must. The entry is
    // still in the map.
    VLRExtent FindFreeSpace(DWORD size);
    // The lowest free number, a new one if need be.
    int FindFreeRecord();
    // Both work on the map as a list, in which it is until the first change after opening.
    void SortFSM();
    void MergeContiguousFSMEntries();

    void WriteIndex();
    void WriteFreeSpaceMap();
    void WriteHeader();

    // Lines of level 0 appear with printing on, all others if it is verbose too.
    void CheckPrint(int level, const char* text) const;
    void CheckPrint(int level, const WCHAR* text) const;
    // 0 for a sector that is marked already or lies outside of the file; a range stops at the first of those.
    int CheckSetInUse(int sector);
    int CheckSetInUse(DWORD offset, DWORD size);
    void CheckFreeInUse(int sector);
    void CheckFreeInUse(DWORD offset, DWORD size);
    int CheckSectorAlign(DWORD offset) const;

private:
    void Abandon() noexcept;
    void MakeFile(DWORD sectorSize, DWORD initialSize);
    void StoreRecord(int record, const void* data, DWORD size, int bFlush);

    std::unique_ptr<corekit::detail::RecordFileImage> m_image;     // the file's bytes
    std::unique_ptr<corekit::detail::RecordFileSpace> m_space;     // what lies where in it
    std::unique_ptr<corekit::detail::RecordFileChecker> m_checker; // of both
};
