#include "corekit/stores/WordIndex.h"

#include <algorithm>
#include <bit>

namespace corekit::detail {

namespace {

constexpr std::size_t leastSlots = 1024;
constexpr std::size_t mostSlots = std::size_t{1} << 21; // 12 MiB
constexpr std::size_t longestChain = 4096;              // also of what a hostile file may put in one

DWORD PlaceOf(DWORD block, DWORD at) { return block * wordsOfLeaf + at; }

// The words of the leaves if they stand as they should: together, terminated, each above the one before.
std::size_t CountSoundWords(std::span<const DWORD> leaves, const WordLeaf* blocks)
{
    std::size_t count = 0;
    const WordEntry* before = nullptr;
    for (const DWORD block : leaves) {
        const WordLeaf& leaf = blocks[block];
        const DWORD last = leaf.LastUsed();
        for (DWORD at = 0; at <= last; ++at) {
            const WordEntry& entry = leaf[at];
            if (entry.id == 0 || !entry.IsTerminated()) return 0;
            if (before && CompareWords(before->word, entry) >= 0) return 0;
            before = &entry;
        }
        count += last + 1;
    }
    return count;
}

} // namespace

bool WordIndex::Build(std::span<const DWORD> leaves, const WordLeaf* blocks)
{
    Forget();
    const std::size_t count = CountSoundWords(leaves, blocks);
    const std::size_t slots = std::max(leastSlots, std::bit_ceil(count + count / 2));
    if (count == 0 || slots > mostSlots) return false;
    m_tags.resize(slots + longestChain);
    m_places.resize(slots + longestChain);
    m_mostWords = slots / 20 * 17;
    m_shift = 64 - std::countr_zero(slots);
    for (const DWORD block : leaves) {
        const DWORD last = blocks[block].LastUsed();
        for (DWORD at = 0; at <= last; ++at)
            if (!Insert(NormalWord::HashOf(blocks[block][at]), PlaceOf(block, at))) {
                Forget();
                return false;
            }
    }
    return true;
}

bool WordIndex::Insert(std::uint64_t hash, DWORD place)
{
    std::size_t slot = hash >> m_shift;
    const std::size_t end = slot + longestChain;
    while (slot != end && m_tags[slot]) ++slot;
    if (slot == end) return false;
    m_tags[slot] = TagOf(hash);
    m_places[slot] = place;
    ++m_count;
    return true;
}

WordIndex::Answer WordIndex::Find(const NormalWord& word, const WordLeaf* blocks, DWORD& id) const
{
    const Tag tag = TagOf(word.Hash());
    bool moved = false;
    std::size_t slot = word.Hash() >> m_shift;
    for (const std::size_t end = slot + longestChain; slot != end && m_tags[slot]; ++slot) {
        if (m_tags[slot] != tag) continue;
        const DWORD place = m_places[slot];
        const WordEntry& entry = blocks[place / wordsOfLeaf][place % wordsOfLeaf];
        if (entry.id && word.Is(entry)) {
            id = entry.id;
            return Answer::Found;
        }
        moved = true; // or another word with this tag
    }
    return moved ? Answer::Moved : Answer::Absent;
}

void WordIndex::Learn(const NormalWord& word, DWORD block, DWORD at, const WordLeaf* blocks)
{
    const Tag tag = TagOf(word.Hash());
    for (std::size_t slot = word.Hash() >> m_shift; m_tags[slot]; ++slot) {
        if (m_tags[slot] != tag) continue;
        // A slot that still leads to a word with this tag is that word's.
        const WordEntry& entry = blocks[m_places[slot] / wordsOfLeaf][m_places[slot] % wordsOfLeaf];
        if (entry.id && TagOf(NormalWord::HashOf(entry)) == tag) continue;
        m_places[slot] = PlaceOf(block, at);
        return;
    }
}

void WordIndex::Add(const NormalWord& word, DWORD block, DWORD at)
{
    if (m_count >= m_mostWords || !Insert(word.Hash(), PlaceOf(block, at))) Forget();
}

} // namespace corekit::detail
