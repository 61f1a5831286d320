#include "corekit/stores/BlockMappedFile.h"

#include "corekit/framework/Exception.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>

IMPLEMENT_DYNAMIC(CBlockMappedFile, CObject)

using namespace corekit::detail;

namespace {

constexpr DWORD growth = 64;
constexpr std::uint64_t largestFile = std::numeric_limits<DWORD>::max();

std::uint64_t FileBytes(std::uint64_t blocks, DWORD blockSize)
{
    return blockFileHeaderPage + blocks * blockSize;
}

bool IsShapeTrue(const BlockFileHeader& header, DWORD fileSize)
{
    return header.blockShift < 32 && header.blockSize == DWORD{1} << header.blockShift &&
           FileBytes(header.blockCount, header.blockSize) <= fileSize && header.mapPages >= firstMapPages &&
           header.mapPages <= mostMapPages && header.blockCount <= header.mapPages * blocksOfMapPage;
}

} // namespace

int CBlockMappedFile::CreateFileA(const char* name, int blockSize, int blockShift, int blockCount)
{
    EnsureClosed();
    if (blockCount < 0 || blockShift < 0 || blockShift > 30 || blockSize != 1 << blockShift) return 0;
    const auto size = static_cast<DWORD>(blockSize), count = static_cast<DWORD>(blockCount);
    if (FileBytes(count, size) > largestFile) return 0;
    if (!m_file.CreateFileA(name, static_cast<DWORD>(FileBytes(count, size)))) return 0;
    m_writable = true;
    m_firstFree = 0;
    m_header = {{},
                blockFileVersion,
                size,
                static_cast<DWORD>(blockShift),
                count,
                {},
                firstMapPages,
                {mapPageBytes, 2 * mapPageBytes, 3 * mapPageBytes}};
    std::copy_n(blockFileMagic, sizeof blockFileMagic, m_header.magic);
    try {
        AllocateMapTables(count);
    } catch (...) {
        Close();
        DeleteFileA(name);
        throw;
    }
    StoreHeader();
    m_name = name;
    return 1;
}

int CBlockMappedFile::OpenFile(const char* name, int bWrite)
{
    EnsureClosed();
    if (!m_file.OpenFile(name, bWrite)) return 0;
    m_writable = bWrite != 0;
    m_firstFree = 0;
    if (!LoadHeader()) {
        Close();
        return 0;
    }
    m_name = name;
    return 1;
}

void CBlockMappedFile::Close()
{
    m_file.Close();
    m_name.Empty();
    m_header = {};
    m_writable = false;
}

int CBlockMappedFile::LoadHeader()
{
    if (m_file.GetSize() < blockFileHeaderPage) return 0;
    std::memcpy(&m_header, Bytes(), sizeof m_header);
    return std::ranges::equal(m_header.magic, blockFileMagic) && m_header.version == blockFileVersion &&
           IsShapeTrue(m_header, m_file.GetSize()) && IsMapSound();
}

// Pages lie in the header page or in blocks that are in use, and none on another.
bool CBlockMappedFile::IsMapSound() const
{
    DWORD pages[mostMapPages];
    const auto end = std::copy_n(m_header.mapOffsets, m_header.mapPages, pages);
    const std::uint64_t dataEnd = FileBytes(m_header.blockCount, m_header.blockSize);
    for (auto page = pages; page != end; ++page)
        if (*page < mapPageBytes ||
            *page + std::uint64_t{mapPageBytes} > std::max<std::uint64_t>(dataEnd, blockFileHeaderPage))
            return false;
    for (auto page = pages; page != end; ++page) {
        if (*page + mapPageBytes <= blockFileHeaderPage) continue;
        if (*page < blockFileHeaderPage) return false;
        const DWORD first = (*page - blockFileHeaderPage) >> m_header.blockShift;
        const DWORD last = (*page - blockFileHeaderPage + mapPageBytes - 1) >> m_header.blockShift;
        if (!IsRangeAllocated(first, last - first + 1)) return false;
    }
    std::sort(pages, end);
    return std::adjacent_find(pages, end, [](DWORD a, DWORD b) { return b - a < mapPageBytes; }) == end;
}

void CBlockMappedFile::StoreHeader() { std::memcpy(Bytes(), &m_header, sizeof m_header); }

DWORD CBlockMappedFile::GetRequiredBlockCount(DWORD bytes) const
{
    if (!IsOpen()) return 1;
    const std::uint64_t blocks = (std::uint64_t{bytes} + m_header.blockSize - 1) >> m_header.blockShift;
    return std::max(DWORD{1}, static_cast<DWORD>(blocks));
}

bool CBlockMappedFile::IsByteRangeLegal(DWORD first, DWORD bytes) const
{
    return std::uint64_t{first} + GetRequiredBlockCount(bytes) <= m_header.blockCount;
}

void CBlockMappedFile::SetClassID(const GUID& classId)
{
    if (!MayWrite()) return;
    m_header.classId = classId;
    StoreHeader();
}

// --- the map

// The first block of that state in [from, end), or `end`. What no page covers counts as allocated.
DWORD CBlockMappedFile::NextBlock(DWORD from, DWORD end, bool allocated) const
{
    constexpr DWORD wordBits = 64;
    while (from < end) {
        const DWORD page = from / blocksOfMapPage;
        if (page >= m_header.mapPages) return allocated ? from : end;
        std::uint64_t bits;
        const DWORD word = from % blocksOfMapPage / wordBits;
        std::memcpy(&bits, Bytes() + m_header.mapOffsets[page] + word * sizeof bits, sizeof bits);
        if (!allocated) bits = ~bits;
        bits &= ~std::uint64_t{0} << from % wordBits;
        from -= from % wordBits;
        if (bits) return std::min(end, from + static_cast<DWORD>(std::countr_zero(bits)));
        from += wordBits;
    }
    return end;
}

bool CBlockMappedFile::IsRangeAllocated(DWORD first, DWORD count) const
{
    if (!IsOpen() || std::uint64_t{first} + count > m_header.blockCount) return false;
    return NextBlock(first, first + count, false) == first + count;
}

void CBlockMappedFile::MarkBlocks(DWORD first, DWORD count, bool allocated)
{
    for (DWORD block = first; block - first < count; ++block) {
        BYTE& bits = Bytes()[m_header.mapOffsets[block / blocksOfMapPage] + block / 8 % mapPageBytes];
        const auto bit = static_cast<BYTE>(1 << block % 8);
        bits = static_cast<BYTE>(allocated ? bits | bit : bits & ~bit);
    }
}

// --- taking and freeing

DWORD CBlockMappedFile::TakeBlocks(DWORD first, DWORD count)
{
    MarkBlocks(first, count, true);
    std::memset(BlockAt(first), 0, std::size_t{count} << m_header.blockShift);
    return first;
}

DWORD CBlockMappedFile::AllocateSingleBlock(bool bExpand)
{
    if (!MayWrite()) return NoBlock;
    for (;;) {
        m_firstFree = NextBlock(m_firstFree, m_header.blockCount, false);
        if (m_firstFree < m_header.blockCount) return TakeBlocks(m_firstFree, 1);
        if (!bExpand) return NoBlock;
        ExpandFile();
    }
}

DWORD CBlockMappedFile::FindFreeRun(DWORD count) const
{
    const DWORD blocks = m_header.blockCount;
    if (std::uint64_t{count} + 4 >= blocks) return NoBlock;
    for (DWORD first = NextBlock(m_firstFree, blocks, false); first < blocks && count <= blocks - first;) {
        const DWORD end = NextBlock(first, first + count, true);
        if (end == first + count) return first;
        first = NextBlock(end, blocks, false);
    }
    return NoBlock;
}

DWORD CBlockMappedFile::AllocateContiguousBlocks(DWORD count, bool bExpand)
{
    if (!MayWrite()) return NoBlock;
    for (;;) {
        const DWORD first = FindFreeRun(count);
        if (first != NoBlock) return TakeBlocks(first, count);
        if (!bExpand) return NoBlock;
        // What can never fit does not first fill the disk.
        if (FileBytes(std::uint64_t{count} + 5, m_header.blockSize) > largestFile)
            AfxThrowNotSupportedException();
        ExpandFile();
    }
}

// Whether a page of the map lies in these blocks.
bool CBlockMappedFile::HoldsMap(DWORD first, DWORD count) const
{
    const std::uint64_t begin = FileBytes(first, m_header.blockSize);
    const std::uint64_t end = FileBytes(std::uint64_t{first} + count, m_header.blockSize);
    return std::any_of(m_header.mapOffsets, m_header.mapOffsets + m_header.mapPages,
                       [=](DWORD page) { return page < end && page + std::uint64_t{mapPageBytes} > begin; });
}

void CBlockMappedFile::FreeContiguousBlocks(DWORD first, DWORD count)
{
    if (!MayWrite() || !IsBlockLegal(first)) return;
    count = std::min(count, m_header.blockCount - first);
    if (HoldsMap(first, count)) return;
    MarkBlocks(first, count, false);
    m_firstFree = std::min(m_firstFree, first);
}

void CBlockMappedFile::FreeAllData()
{
    if (!MayWrite()) return;
    for (DWORD page = 0; page < firstMapPages; ++page)
        std::memset(Bytes() + m_header.mapOffsets[page], 0, mapPageBytes);
    m_header.mapPages = firstMapPages;
    m_firstFree = 0;
    AllocateMapTables(m_header.blockCount);
    StoreHeader();
}

// --- growth

// `count` is above the header's block count while the file grows, and equal to it otherwise.
void CBlockMappedFile::AllocateMapTables(DWORD count)
{
    const DWORD covered = m_header.mapPages * blocksOfMapPage;
    if (count <= covered) return;
    const DWORD missing = (count - covered + blocksOfMapPage - 1) / blocksOfMapPage;
    if (missing > mostMapPages - m_header.mapPages) AfxThrowMemoryException();
    const DWORD blocks = GetRequiredBlockCount(missing * mapPageBytes);
    const auto pages = std::uint64_t{blocks} * m_header.blockSize / mapPageBytes;
    DWORD first = FindFreeRun(blocks);
    const bool inOldBlocks = first != NoBlock;
    if (!inOldBlocks) {
        first = m_header.blockCount;
        if (count == first || count - first < blocks) AfxThrowMemoryException();
    }
    const auto last = static_cast<DWORD>(std::min<std::uint64_t>(mostMapPages, m_header.mapPages + pages));
    if (inOldBlocks) TakeBlocks(first, blocks);
    for (DWORD offset = AbsoluteDataBlockOffset(first); m_header.mapPages < last; offset += mapPageBytes)
        m_header.mapOffsets[m_header.mapPages++] = offset;
    if (!inOldBlocks) {
        std::memset(BlockAt(first), 0, std::size_t{blocks} << m_header.blockShift);
        MarkBlocks(first, blocks, true);
    }
}

void CBlockMappedFile::ExpandFile()
{
    const std::uint64_t count = std::uint64_t{m_header.blockCount} + growth;
    const std::uint64_t bytes = FileBytes(count, m_header.blockSize);
    if (bytes > largestFile) AfxThrowNotSupportedException();
    if (!m_file.ExtendFile(static_cast<DWORD>(bytes))) {
        m_file.RestoreView();
        AfxThrowNotSupportedException();
    }
    AllocateMapTables(static_cast<DWORD>(count));
    m_header.blockCount = static_cast<DWORD>(count);
    StoreHeader();
}
