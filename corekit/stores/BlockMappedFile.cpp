#include "corekit/stores/BlockMappedFile.h"

#include "corekit/framework/Exception.h"
#include "corekit/stores/FreeRuns.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <utility>

IMPLEMENT_DYNAMIC(CBlockMappedFile, CObject)

using namespace corekit::detail;

namespace {

constexpr DWORD growth = 64;
constexpr DWORD wordBlocks = 64; // of the map that are looked at together
constexpr std::uint64_t largestFile = std::numeric_limits<DWORD>::max();

std::uint64_t fileBytes(std::uint64_t blocks, DWORD blockSize)
{
    return blockFileHeaderPage + blocks * blockSize;
}

bool isShapeTrue(const BlockFileHeader& header, DWORD fileSize)
{
    return header.blockShift < 32 && header.blockSize == DWORD{1} << header.blockShift &&
           fileBytes(header.blockCount, header.blockSize) <= fileSize && header.mapPages >= firstMapPages &&
           header.mapPages <= mostMapPages && header.blockCount <= header.mapPages * blocksOfMapPage;
}

} // namespace

CBlockMappedFile::CBlockMappedFile() : m_freeRuns(std::make_unique<FreeRuns>()) {}

CBlockMappedFile::~CBlockMappedFile() = default;

int CBlockMappedFile::CreateFileA(const char* given, int blockSize, int blockShift, int blockCount)
{
    const CString name(given); // which may be this object's own
    EnsureClosed();
    if (blockCount < 0 || blockShift < 0 || blockShift > 30 || blockSize != 1 << blockShift) return 0;
    const auto size = static_cast<DWORD>(blockSize), count = static_cast<DWORD>(blockCount);
    if (fileBytes(count, size) > largestFile) return 0;
    if (!m_file.CreateFileA(name, static_cast<DWORD>(fileBytes(count, size)))) return 0;
    m_writable = true;
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

int CBlockMappedFile::OpenFile(const char* given, int bWrite)
{
    const CString name(given); // which may be this object's own
    EnsureClosed();
    if (!m_file.OpenFile(name, bWrite)) return 0;
    m_writable = bWrite != 0;
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
    m_freeRuns->Forget();
    m_writable = false;
}

int CBlockMappedFile::LoadHeader()
{
    if (m_file.GetSize() < blockFileHeaderPage) return 0;
    std::memcpy(&m_header, Bytes(), sizeof m_header);
    return std::ranges::equal(m_header.magic, blockFileMagic) && m_header.version == blockFileVersion &&
           isShapeTrue(m_header, m_file.GetSize()) && IsMapSound();
}

// Pages lie in the header page or in blocks that are in use, and none on another.
bool CBlockMappedFile::IsMapSound() const
{
    DWORD pages[mostMapPages];
    const auto end = std::copy_n(m_header.mapOffsets, m_header.mapPages, pages);
    const std::uint64_t dataEnd = fileBytes(m_header.blockCount, m_header.blockSize);
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

// The bits of the 64 blocks that the block is one of. What no page covers counts as allocated.
std::uint64_t CBlockMappedFile::MapWord(DWORD block) const
{
    const DWORD page = block / blocksOfMapPage;
    if (page >= m_header.mapPages) return ~std::uint64_t{0};
    std::uint64_t bits;
    std::memcpy(&bits,
                Bytes() + m_header.mapOffsets[page] + block % blocksOfMapPage / wordBlocks * sizeof bits,
                sizeof bits);
    return bits;
}

// The first block of that state in [from, end), or `end`.
DWORD CBlockMappedFile::NextBlock(DWORD from, DWORD end, bool allocated) const
{
    while (from < end) {
        std::uint64_t bits = MapWord(from);
        if (!allocated) bits = ~bits;
        bits &= ~std::uint64_t{0} << from % wordBlocks;
        from -= from % wordBlocks;
        if (bits) return std::min(end, from + static_cast<DWORD>(std::countr_zero(bits)));
        from += wordBlocks;
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
    SummariseMap(first, first + count);
}

// Takes over what the map says of these blocks, as far as there is a summary. Those behind the file's end are
// not free.
void CBlockMappedFile::SummariseMap(DWORD first, DWORD end)
{
    constexpr DWORD stretch = FreeRuns::stretchBlocks;
    end = std::min(end, m_freeRuns->Stretches() * stretch);
    for (DWORD begin = first - first % stretch; begin < end; begin += stretch) {
        std::uint64_t bits[FreeRuns::stretchWords];
        for (DWORD block = begin; std::uint64_t & word : bits) {
            const DWORD there = m_header.blockCount - std::min(m_header.blockCount, block);
            word = there == 0 ? ~std::uint64_t{0} : MapWord(block);
            if (there < wordBlocks) word |= ~std::uint64_t{0} << there;
            block += wordBlocks;
        }
        m_freeRuns->Set(begin / stretch, bits);
    }
}

// --- taking and freeing

DWORD CBlockMappedFile::TakeBlocks(DWORD first, DWORD count)
{
    MarkBlocks(first, count, true);
    std::memset(BlockAt(first), 0, std::size_t{count} << m_header.blockShift);
    return first;
}

// The first of the lowest free blocks that are so many in a run.
DWORD CBlockMappedFile::FindFreeRun(DWORD count)
{
    const DWORD blocks = m_header.blockCount;
    constexpr DWORD stretch = FreeRuns::stretchBlocks;
    if (const DWORD stretches = (blocks + stretch - 1) / stretch; m_freeRuns->Stretches() < stretches) {
        m_freeRuns->Make(stretches);
        SummariseMap(0, blocks);
    }
    DWORD first = m_freeRuns->First(std::max(count, DWORD{1}));
    if (first == NoBlock) return NoBlock;
    for (first = NextBlock(first, blocks, false); first < blocks && count <= blocks - first;) {
        const DWORD end = NextBlock(first, first + count, true);
        if (end == first + count) return first;
        first = NextBlock(end, blocks, false);
    }
    return NoBlock;
}

DWORD CBlockMappedFile::FindFreeRunBesideOthers(DWORD count)
{
    return std::uint64_t{count} + 4 >= m_header.blockCount ? NoBlock : FindFreeRun(count);
}

DWORD CBlockMappedFile::AllocateSingleBlock(bool bExpand)
{
    if (!MayWrite()) return NoBlock;
    for (;;) {
        const DWORD block = FindFreeRun(1);
        if (block != NoBlock) return TakeBlocks(block, 1);
        if (!bExpand) return NoBlock;
        ExpandFile();
    }
}

DWORD CBlockMappedFile::AllocateContiguousBlocks(DWORD count, bool bExpand)
{
    if (!MayWrite()) return NoBlock;
    for (;;) {
        const DWORD first = FindFreeRunBesideOthers(count);
        if (first != NoBlock) return TakeBlocks(first, count);
        if (!bExpand) return NoBlock;
        // What can never fit does not first fill the disk.
        if (fileBytes(std::uint64_t{count} + 5, m_header.blockSize) > largestFile)
            AfxThrowNotSupportedException();
        ExpandFile();
    }
}

// Whether a page of the map lies in these blocks.
bool CBlockMappedFile::HoldsMap(DWORD first, DWORD count) const
{
    const std::uint64_t begin = fileBytes(first, m_header.blockSize);
    const std::uint64_t end = fileBytes(std::uint64_t{first} + count, m_header.blockSize);
    return std::any_of(m_header.mapOffsets, m_header.mapOffsets + m_header.mapPages,
                       [=](DWORD page) { return page < end && page + std::uint64_t{mapPageBytes} > begin; });
}

void CBlockMappedFile::FreeContiguousBlocks(DWORD first, DWORD count)
{
    if (!MayWrite() || !IsBlockLegal(first)) return;
    count = std::min(count, m_header.blockCount - first);
    if (HoldsMap(first, count)) return;
    MarkBlocks(first, count, false);
}

void CBlockMappedFile::FreeAllData()
{
    if (!MayWrite()) return;
    for (DWORD page = 0; page < firstMapPages; ++page)
        std::memset(Bytes() + m_header.mapOffsets[page], 0, mapPageBytes);
    m_header.mapPages = firstMapPages;
    m_freeRuns->Forget();
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
    DWORD first = FindFreeRunBesideOthers(blocks);
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
    m_freeRuns->Forget(); // blocks that no page covered may be free now
}

void CBlockMappedFile::ExpandFile()
{
    const std::uint64_t count = std::uint64_t{m_header.blockCount} + growth;
    const std::uint64_t bytes = fileBytes(count, m_header.blockSize);
    if (bytes > largestFile) AfxThrowNotSupportedException();
    if (!m_file.ExtendFile(static_cast<DWORD>(bytes))) {
        m_file.RestoreView();
        AfxThrowNotSupportedException();
    }
    AllocateMapTables(static_cast<DWORD>(count));
    const DWORD oldCount = std::exchange(m_header.blockCount, static_cast<DWORD>(count));
    StoreHeader();
    SummariseMap(oldCount, m_header.blockCount);
}
