// CBlockMappedFile: a file of equal blocks, each in use or free, seen as memory.
//
// Blocks are numbered from 0 and given out lowest first; a file without a free block grows by 64. Every
// operation that may grow it (bExpand) moves the view: take pointers into blocks again afterwards. A file
// that is damaged so that its header cannot be true is not opened. The bytes are described in
// docs/formats/block-file.md.
//
// A file has less than 4 GiB, is opened by one object alone, and belongs to one thread at a time. When it
// cannot grow, because the disk is full or the limit is reached, CNotSupportedException is thrown; when its
// map cannot, CMemoryException. The file stays open and whole.
#pragma once

#include "corekit/framework/String.h"
#include "corekit/stores/BlockFileFormat.h"
#include "corekit/stores/MappedFile.h"

#include <memory>

namespace corekit::detail {
class FreeRuns;
}

// Pointers into the file belong to the view: nobody frees them. A search for a free run costs next to
// nothing, since a summary of the map is kept in memory.
class COREKIT_API CBlockMappedFile : public CObject {
    DECLARE_DYNAMIC(CBlockMappedFile)

public:
    static constexpr DWORD NoBlock = 0xFFFFFFFF; // what an operation gives that found no block

    CBlockMappedFile();
    ~CBlockMappedFile() override;

    // A new file of so many free blocks, all zeros, open for writing. `blockSize` is in bytes and a power
    // of two up to 2^30, the shift its logarithm. 0 if the file exists, cannot be made, or an argument is
    // not allowed. What was open is closed first, also when this fails.
    int CreateFileA(const char* name, int blockSize, int blockShift, int blockCount);
    // Opens a file, for reading only with bWrite 0. What was open is closed first. 0 if the file cannot be
    // opened, is of another kind or is damaged.
    int OpenFile(const char* name, int bWrite);
    // With a Flush. All pointers into blocks are void afterwards; nothing happens if no file is open.
    void Close();
    void EnsureClosed()
    {
        if (m_file.IsOpen()) Close();
    }
    bool IsOpen() const { return m_file.GetViewBase() != nullptr; }
    // Returns when all that was written to blocks is on the device; 0 if that failed or no file is open.
    int Flush() { return m_file.Flush(); }

    const CString& GetFileName() const { return m_name; } // empty when closed

    DWORD GetBlockSize() const { return m_header.blockSize; }   // bytes; 0 when closed
    DWORD GetBlockCount() const { return m_header.blockCount; } // free ones included; 0 when closed
    // Where a block begins, in bytes from block 0, or from the start of the file. Not checked.
    DWORD DataBlockOffset(DWORD block) const { return block << m_header.blockShift; }
    DWORD AbsoluteDataBlockOffset(DWORD block) const
    {
        return DataBlockOffset(block) + corekit::detail::blockFileHeaderPage;
    }
    // Good until the file grows or closes. Null for a block that the file has not.
    void* DataBlockPtr(DWORD block) const { return IsBlockLegal(block) ? BlockAt(block) : nullptr; }
    // How many blocks so many bytes take, at least 1; always 1 when no file is open.
    DWORD GetRequiredBlockCount(DWORD bytes) const;

    // Take the lowest free block, or the first of the lowest free run of `count` blocks, and zero them.
    // Give the first block's number, or NoBlock: where the file may not grow, and always when it is closed
    // or open for reading. The search for a run needs more than 4 blocks beside it in the file.
    DWORD AllocateSingleBlock(bool bExpand);
    DWORD AllocateContiguousBlocks(DWORD count, bool bExpand);
    // A run with room for so many bytes.
    DWORD AllocateContiguousBytes(DWORD bytes, bool bExpand)
    {
        return AllocateContiguousBlocks(GetRequiredBlockCount(bytes), bExpand);
    }
    // Give blocks back; their bytes stay until they are taken again. Blocks that are free already stay so,
    // and those behind the file's last one are left out. A run that holds a page of the map is not freed at
    // all.
    void FreeSingleBlock(DWORD block) { FreeContiguousBlocks(block, 1); }
    void FreeContiguousBlocks(DWORD first, DWORD count);
    void FreeContiguousBytes(DWORD first, DWORD bytes)
    {
        FreeContiguousBlocks(first, GetRequiredBlockCount(bytes));
    }
    // All blocks become free; then those of the map are taken again. The file keeps its length.
    void FreeAllData();

    // Whether the file has the block, and whether it is in use.
    bool IsBlockLegal(DWORD block) const { return block < m_header.blockCount; }
    bool IsBlockAllocated(DWORD block) const { return IsRangeAllocated(block, 1); }
    // The same for all blocks that so many bytes from the start of block `first` on take.
    bool IsByteRangeLegal(DWORD first, DWORD bytes) const;
    bool IsByteRangeAllocated(DWORD first, DWORD bytes) const
    {
        return IsRangeAllocated(first, GetRequiredBlockCount(bytes));
    }

    // A mark for the user of the file; all zeros when nobody set it. Not set in a file opened for reading.
    void SetClassID(const GUID& classId);
    const GUID& GetClassID() const { return m_header.classId; }

private:
    using Header = corekit::detail::BlockFileHeader;

    // 0 if the header or the map cannot be true.
    int LoadHeader();
    bool IsMapSound() const;
    void StoreHeader();
    BYTE* BlockAt(DWORD block) const { return Bytes() + AbsoluteDataBlockOffset(block); }
    BYTE* Bytes() const { return static_cast<BYTE*>(m_file.GetViewBase()); }

    std::uint64_t MapWord(DWORD block) const; // the map's bits of the 64 blocks around
    DWORD NextBlock(DWORD from, DWORD end, bool allocated) const;
    bool HoldsMap(DWORD first, DWORD count) const;
    bool IsRangeAllocated(DWORD first, DWORD count) const;
    void MarkBlocks(DWORD first, DWORD count, bool allocated);
    DWORD TakeBlocks(DWORD first, DWORD count);
    void SummariseMap(DWORD first, DWORD end);
    DWORD FindFreeRun(DWORD count); // NoBlock if there is none
    DWORD FindFreeRunBesideOthers(DWORD count);
    void AllocateMapTables(DWORD count);
    void ExpandFile(); // by 64 blocks
    bool MayWrite() const { return IsOpen() && m_writable; }

    CMappedFile m_file;
    CString m_name;
    bool m_writable = false;
    Header m_header{}; // as in the file, but out of reach of what is written to blocks
    std::unique_ptr<corekit::detail::FreeRuns> m_freeRuns; // made by the first search
};
