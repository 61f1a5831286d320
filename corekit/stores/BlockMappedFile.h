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

class COREKIT_API CBlockMappedFile : public CObject {
    DECLARE_DYNAMIC(CBlockMappedFile)

public:
    static constexpr DWORD NoBlock = 0xFFFFFFFF;

    CBlockMappedFile();
    ~CBlockMappedFile() override;

    // A new file of so many free blocks. The size is a power of two, the shift its logarithm. 0 if the file
    // exists, cannot be made, or an argument is not allowed.
    int CreateFileA(const char* name, int blockSize, int blockShift, int blockCount);
    // 0 if the file cannot be opened, is of another kind or is damaged.
    int OpenFile(const char* name, int bWrite);
    void Close();
    void EnsureClosed()
    {
        if (m_file.IsOpen()) Close();
    }
    bool IsOpen() const { return m_file.GetViewBase() != nullptr; }
    int Flush() { return m_file.Flush(); }
    const CString& GetFileName() const { return m_name; } // empty when closed

    DWORD GetBlockSize() const { return m_header.blockSize; }
    DWORD GetBlockCount() const { return m_header.blockCount; }
    DWORD DataBlockOffset(DWORD block) const { return block << m_header.blockShift; } // from block 0
    DWORD AbsoluteDataBlockOffset(DWORD block) const
    {
        return DataBlockOffset(block) + corekit::detail::blockFileHeaderPage;
    }
    // Good until the file grows or closes. Null for a block that the file has not.
    void* DataBlockPtr(DWORD block) const { return IsBlockLegal(block) ? BlockAt(block) : nullptr; }
    DWORD GetRequiredBlockCount(DWORD bytes) const; // at least 1

    // The lowest free block, or the first of the lowest free run, zeroed. NoBlock where the file may not
    // grow. The search for a run needs more than 4 blocks beside it in the file.
    DWORD AllocateSingleBlock(bool bExpand);
    DWORD AllocateContiguousBlocks(DWORD count, bool bExpand);
    DWORD AllocateContiguousBytes(DWORD bytes, bool bExpand)
    {
        return AllocateContiguousBlocks(GetRequiredBlockCount(bytes), bExpand);
    }
    // Blocks that are free already stay so.
    void FreeSingleBlock(DWORD block) { FreeContiguousBlocks(block, 1); }
    void FreeContiguousBlocks(DWORD first, DWORD count);
    void FreeContiguousBytes(DWORD first, DWORD bytes)
    {
        FreeContiguousBlocks(first, GetRequiredBlockCount(bytes));
    }
    // All blocks become free; then those of the map are taken again.
    void FreeAllData();

    bool IsBlockLegal(DWORD block) const { return block < m_header.blockCount; }
    bool IsBlockAllocated(DWORD block) const { return IsRangeAllocated(block, 1); }
    // `first` is a block, from whose start on the bytes are counted.
    bool IsByteRangeLegal(DWORD first, DWORD bytes) const;
    bool IsByteRangeAllocated(DWORD first, DWORD bytes) const
    {
        return IsRangeAllocated(first, GetRequiredBlockCount(bytes));
    }

    // For the user of the file; all zeros when nobody set it.
    void SetClassID(const GUID& classId);
    const GUID& GetClassID() const { return m_header.classId; }

private:
    using Header = corekit::detail::BlockFileHeader;

    int LoadHeader();
    bool IsMapSound() const;
    void StoreHeader();
    BYTE* BlockAt(DWORD block) const { return Bytes() + AbsoluteDataBlockOffset(block); }
    BYTE* Bytes() const { return static_cast<BYTE*>(m_file.GetViewBase()); }

    std::uint64_t MapWord(DWORD block) const;
    DWORD NextBlock(DWORD from, DWORD end, bool allocated) const;
    bool HoldsMap(DWORD first, DWORD count) const;
    bool IsRangeAllocated(DWORD first, DWORD count) const;
    void MarkBlocks(DWORD first, DWORD count, bool allocated);
    DWORD TakeBlocks(DWORD first, DWORD count);
    void SummariseMap(DWORD first, DWORD end);
    DWORD FindFreeRun(DWORD count);
    DWORD FindFreeRunBesideOthers(DWORD count);
    void AllocateMapTables(DWORD count);
    void ExpandFile();
    bool MayWrite() const { return IsOpen() && m_writable; }

    CMappedFile m_file;
    CString m_name;
    bool m_writable = false;
    Header m_header{}; // as in the file, but out of reach of what is written to blocks
    std::unique_ptr<corekit::detail::FreeRuns> m_freeRuns; // made by the first search
};
