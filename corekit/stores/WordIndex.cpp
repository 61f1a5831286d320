#include "corekit/stores/WordIndex.h"

#include <algorithm>
#include <bit>

namespace corekit::detail {

namespace {

constexpr std::size_t leastSlots = 1024;
constexpr std::size_t mostSlots = std::size_t{1} << 21; // 16 MiB
constexpr std::size_t longestChain = 512;

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
    const std::size_t slots = std::max(leastSlots, std::bit_ceil(count * 2));
    if (count == 0 || slots > mostSlots) return false;
    m_slots.resize(slots + longestChain);
    m_mostWords = slots / 10 * 7;
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
    Slot* slot = Chain(hash);
    const Slot* const end = slot + longestChain;
    while (slot != end && slot->place) ++slot;
    if (slot == end) return false;
    *slot = {static_cast<DWORD>(hash), place};
    ++m_count;
    return true;
}

WordIndex::Answer WordIndex::Find(const NormalWord& word, const WordLeaf* blocks, DWORD& id) const
{
    const std::uint64_t hash = word.Hash();
    const Slot* slot = m_slots.data() + (hash >> m_shift);
    for (const Slot* const end = slot + longestChain; slot != end && slot->place; ++slot) {
        if (slot->tag != static_cast<DWORD>(hash)) continue;
        const WordEntry& entry = blocks[slot->place / wordsOfLeaf][slot->place % wordsOfLeaf];
        if (entry.id == 0 || !word.Is(entry)) return Answer::Moved;
        id = entry.id;
        return Answer::Found;
    }
    return Answer::Absent;
}

void WordIndex::Learn(const NormalWord& word, DWORD block, DWORD at)
{
    const std::uint64_t hash = word.Hash();
    for (Slot* slot = Chain(hash); slot->place; ++slot) {
        if (slot->tag != static_cast<DWORD>(hash)) continue;
        slot->place = PlaceOf(block, at);
        return;
    }
}

void WordIndex::Add(const NormalWord& word, DWORD block, DWORD at)
{
    if (m_count >= m_mostWords || !Insert(word.Hash(), PlaceOf(block, at))) Forget();
}

} // namespace corekit::detail
