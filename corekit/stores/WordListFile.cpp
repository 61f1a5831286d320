#include "corekit/stores/WordListFile.h"

#include "corekit/framework/Exception.h"
#include "corekit/stores/LeafOrder.h"
#include "corekit/stores/WordIndex.h"
#include "corekit/stores/WordSignatures.h"

#include <algorithm>
#include <cstring>
#include <vector>

IMPLEMENT_DYNAMIC(CWordListFile, CObject)

using namespace corekit::detail;

namespace {

constexpr DWORD blockSize = sizeof(WordLeaf);
constexpr int blockShift = 12;
constexpr int firstBlocks = 64;
constexpr DWORD headerBlock = 0;
constexpr DWORD leavesOfBlock = blockSize / sizeof(DWORD);

} // namespace

CWordListFile::CWordListFile()
    : m_header(std::make_unique<Header>()), m_order(std::make_unique<LeafOrder>()),
      m_index(std::make_unique<WordIndex>()), m_signatures(std::make_unique<WordSignatures>())
{
}

CWordListFile::~CWordListFile() { Close(); }

int CWordListFile::Create(const char* name)
{
    Close();
    if (!m_blocks.CreateFileA(name, blockSize, blockShift, firstBlocks)) return 0;
    m_blocks.AllocateSingleBlock(true);
    m_header->masterBlocks = 4;
    m_header->masterBlock = m_blocks.AllocateContiguousBlocks(m_header->masterBlocks, true);
    m_header->masterCount = 0;
    m_header->longBlocks = 1;
    m_header->longBlock = m_blocks.AllocateSingleBlock(true);
    StoreHeader();
    m_order->Make({}, Blocks());
    return 1;
}

int CWordListFile::Open(const char* name)
{
    Close();
    if (!m_blocks.OpenFile(name, 1)) return 0;
    if (m_blocks.GetBlockSize() == blockSize && m_blocks.IsBlockAllocated(headerBlock)) {
        std::memcpy(m_header.get(), m_blocks.DataBlockPtr(headerBlock), sizeof *m_header);
        if (IsIndexSound()) return 1;
    }
    Close();
    return 0;
}

void CWordListFile::Close()
{
    m_blocks.EnsureClosed();
    *m_header = {};
    m_order->Forget();
    m_index->Forget();
    m_signatures->Forget();
    m_searches = 0;
    m_mayLearn = true;
}

// Header, master index and leaves are blocks in use, and no block is two of them.
bool CWordListFile::IsIndexSound() const
{
    const Header& header = *m_header;
    const DWORD blocks = m_blocks.GetBlockCount();
    if (header.masterBlocks == 0 || header.masterBlock > blocks ||
        header.masterBlocks > blocks - header.masterBlock ||
        header.masterCount > std::uint64_t{header.masterBlocks} * leavesOfBlock)
        return false;
    std::vector<bool> seen(blocks);
    const auto isNewBlock = [&](DWORD block) {
        if (block >= blocks || seen[block] || !m_blocks.IsBlockAllocated(block)) return false;
        seen[block] = true;
        return true;
    };
    if (!isNewBlock(headerBlock)) return false;
    for (DWORD i = 0; i < header.masterBlocks; ++i)
        if (!isNewBlock(header.masterBlock + i)) return false;
    const DWORD* const leaves = MasterIndex();
    return std::all_of(leaves, leaves + header.masterCount, isNewBlock);
}

void CWordListFile::StoreHeader()
{
    std::memcpy(m_blocks.DataBlockPtr(headerBlock), m_header.get(), sizeof *m_header);
}

DWORD* CWordListFile::MasterIndex() const
{
    return static_cast<DWORD*>(m_blocks.DataBlockPtr(m_header->masterBlock));
}

const WordLeaf* CWordListFile::Blocks() const
{
    return static_cast<const Leaf*>(m_blocks.DataBlockPtr(headerBlock));
}

// Checked again although Open did: the view shows what others write.
WordLeaf& CWordListFile::LeafAt(DWORD leaf) const
{
    void* const block = m_blocks.DataBlockPtr(MasterIndex()[leaf]);
    if (!block) AfxThrowNotSupportedException();
    return *static_cast<Leaf*>(block);
}

// --- finding

CWordListFile::Place CWordListFile::FindPlace(const Word& word) const
{
    if (!m_order->IsReady()) return FindPlaceBySteps(word);
    const DWORD number = m_order->LeafOf(word);
    const Leaf& leaf = LeafAt(number);
    const DWORD used = m_order->Used(MasterIndex()[number]);
    const DWORD at = countInFront({leaf.entries, used},
                                  [&word](const WordEntry& entry) { return compareWords(word, entry) > 0; });
    if (at < used) return {number, at, compareWords(word, leaf[at]) == 0};
    // What comes between two leaves goes to the second.
    if (number + 1 < m_header->masterCount) return {number + 1, 0, false};
    return {number, at, false};
}

// The search for lists of which it is not known whether they are in order.
CWordListFile::Place CWordListFile::FindPlaceBySteps(const Word& word) const
{
    DWORD low = 0, high = m_header->masterCount - 1;
    while (low < high) {
        const DWORD middle = (low + high) / 2;
        const Leaf& leaf = LeafAt(middle);
        const int order = compareWords(word.Text(), leaf[0]);
        if (order == 0) return {middle, 0, true};
        if (order < 0) {
            high = middle;
            continue;
        }
        const DWORD last = leaf.LastUsed();
        const int orderOfLast = last == 0 ? 1 : compareWords(word.Text(), leaf[last]);
        if (orderOfLast == 0) return {middle, last, true};
        low = orderOfLast < 0 ? middle : middle + 1;
        if (orderOfLast < 0) break;
    }
    const Leaf& leaf = LeafAt(low);
    int first = 0, last = static_cast<int>(leaf.LastUsed());
    while (first < last) {
        const int middle = (first + last) / 2;
        const int order = compareWords(word.Text(), leaf[static_cast<DWORD>(middle)]);
        if (order == 0) return {low, static_cast<DWORD>(middle), true};
        if (order < 0)
            last = middle - 1;
        else
            first = middle + 1;
    }
    const auto at = static_cast<DWORD>(first);
    const int order = compareWords(word.Text(), leaf[at]);
    return {low, order > 0 ? at + 1 : at, order == 0};
}

DWORD CWordListFile::FindWord(const WCHAR* text)
{
    if (!IsOpen() || m_header->masterCount == 0) return 0;
    const Word word(text);
    if (word.IsLong()) return FindLongWord(word);
    if (!m_index->IsReady()) Learn(true);
    if (!m_index->IsReady()) return FindInOrder(word, false);
    DWORD id = 0;
    const auto answer = m_index->Find(word, Blocks(), id);
    return answer == WordIndex::Answer::moved ? FindInOrder(word, true) : id;
}

DWORD CWordListFile::FindInOrder(const Word& word, bool moved)
{
    const Place place = FindPlace(word);
    if (!place.found) return 0;
    if (moved) m_index->Learn(word, MasterIndex()[place.leaf], place.at, Blocks());
    return LeafAt(place.leaf)[place.at].id;
}

// Order and index are made when as many searches have been made as there are leaves: from then on they pay.
void CWordListFile::Learn(bool words)
{
    if (!m_mayLearn || m_searches++ < m_header->masterCount) return;
    m_searches = 0;
    const std::span leaves(MasterIndex(), m_header->masterCount);
    const auto isLegal = [this](DWORD block) { return m_blocks.IsBlockLegal(block); };
    if (!m_order->IsReady())
        m_mayLearn = std::ranges::all_of(leaves, isLegal) && m_order->Make(leaves, Blocks());
    if (words && m_mayLearn) m_mayLearn = m_index->Build(leaves, Blocks(), *m_order);
}

// --- adding

DWORD CWordListFile::AddWord(const WCHAR* text, DWORD id)
{
    if (!IsOpen()) return 0;
    const Word word(text);
    if (word.IsLong()) return AddLongWord(word, id);
    if (m_header->masterCount == 0) {
        if (id) AddFirstWord(word, id);
        return id;
    }
    if (!m_order->IsReady()) Learn(false);
    m_index->FetchFor(word);
    const Place place = FindPlace(word);
    if (place.found) return LeafAt(place.leaf)[place.at].id;
    if (id) AddAt(place, word, id);
    return id;
}

DWORD CWordListFile::TakeBlock()
{
    const DWORD block = m_blocks.AllocateSingleBlock(true);
    if (block == CBlockMappedFile::NoBlock) AfxThrowNotSupportedException();
    return block;
}

void CWordListFile::AddFirstWord(const Word& word, DWORD id)
{
    const DWORD block = TakeBlock();
    MasterIndex()[0] = block;
    if (m_order->IsReady()) m_order->Insert(0, LeafAt(0)[0]);
    m_header->masterCount = 1;
    StoreHeader();
    PutWord({0, 0, false}, word, id, 0);
}

void CWordListFile::AddAt(Place place, const Word& word, DWORD id)
{
    const DWORD block = MasterIndex()[place.leaf];
    DWORD used = m_order->IsReady() ? m_order->Used(block) : LeafAt(place.leaf).LastUsed() + 1;
    if (used == wordsOfLeaf) {
        SplitLeaf(place);
        used = wordsOfLeaf / 2;
    }
    PutWord(place, word, id, used);
    if (m_index->IsReady()) m_index->Add(word, MasterIndex()[place.leaf], place.at);
}

void CWordListFile::PutWord(Place place, const Word& word, DWORD id, DWORD used)
{
    Leaf& leaf = LeafAt(place.leaf);
    if (place.at < used) std::copy_backward(&leaf[place.at], &leaf[0] + used, &leaf[0] + used + 1);
    leaf[place.at].id = id;
    word.PutInto(leaf[place.at]);
    const DWORD block = MasterIndex()[place.leaf];
    m_signatures->ForgetLeaf(block);
    if (!m_order->IsReady()) return;
    m_order->SetUsed(block, used + 1);
    if (place.at == 0) m_order->SetFirst(place.leaf, leaf[0]);
}

// The upper half of the leaf goes to a new one behind it; the place moves with it.
void CWordListFile::SplitLeaf(Place& place)
{
    constexpr DWORD half = wordsOfLeaf / 2;
    CheckMasterIndexSpace();
    const DWORD block = TakeBlock();
    Leaf& lower = LeafAt(place.leaf);
    Leaf& upper = *static_cast<Leaf*>(m_blocks.DataBlockPtr(block));
    if (m_order->IsReady()) { // first, because it may find no memory
        m_order->SetUsed(block, half);
        m_order->Insert(place.leaf + 1, lower[half]);
        m_order->SetUsed(MasterIndex()[place.leaf], half);
    }
    std::copy_n(&lower[half], half, &upper[0]);
    std::fill_n(&lower[half], half, WordEntry{});

    DWORD* const leaves = MasterIndex();
    std::copy_backward(leaves + place.leaf + 1, leaves + m_header->masterCount,
                       leaves + m_header->masterCount + 1);
    leaves[place.leaf + 1] = block;
    ++m_header->masterCount;
    StoreHeader();
    m_signatures->ForgetLeaf(leaves[place.leaf]);
    m_signatures->ForgetLeaf(block);
    if (place.at < half) return;
    ++place.leaf;
    place.at -= half;
}

// A full master index moves to a run of one block more, with the block behind the old run, which the
// stored layout has in the tail of the new one.
void CWordListFile::CheckMasterIndexSpace()
{
    const DWORD oldBlock = m_header->masterBlock, oldBlocks = m_header->masterBlocks;
    if (m_header->masterCount < std::uint64_t{oldBlocks} * leavesOfBlock) return;
    const DWORD block = m_blocks.AllocateContiguousBlocks(oldBlocks + 1, true);
    if (block == CBlockMappedFile::NoBlock) AfxThrowNotSupportedException();
    const DWORD copied = std::min(oldBlocks + 1, m_blocks.GetBlockCount() - oldBlock);
    std::memmove(m_blocks.DataBlockPtr(block), m_blocks.DataBlockPtr(oldBlock),
                 std::size_t{copied} * blockSize);
    m_blocks.FreeContiguousBlocks(oldBlock, oldBlocks);
    m_header->masterBlock = block;
    m_header->masterBlocks = oldBlocks + 1;
    StoreHeader();
}
