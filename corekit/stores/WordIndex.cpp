#include "corekit/stores/WordIndex.h"

#include <bit>
#include <new>
#include <utility>

namespace corekit::detail {

namespace {

constexpr std::size_t leastSlots = 1024;
constexpr std::size_t longestChain = 4096; // also of what a hostile file may put in one

constexpr std::size_t mostWords(std::size_t slots) { return slots / 20 * 17; }
DWORD placeOf(DWORD block, DWORD at) { return block * wordsOfLeaf + at; }

} // namespace

const WordEntry& WordIndex::EntryOf(Slot slot, const WordLeaf* blocks)
{
    const auto place = static_cast<DWORD>(slot & ((Slot{1} << placeBits) - 1));
    return blocks[place / wordsOfLeaf][place % wordsOfLeaf];
}

bool WordIndex::Build(std::span<const DWORD> leaves, const WordLeaf* blocks, const LeafOrder& order)
{
    Forget();
    std::size_t count = 0, slots = leastSlots;
    for (const DWORD block : leaves) count += order.Used(block);
    while (mostWords(slots) <= count) slots *= 2;
    Resize(slots);
    for (const DWORD block : leaves)
        for (DWORD at = 0; at < order.Used(block); ++at)
            if (!Insert(SlotOf(NormalWord::HashOf(blocks[block][at]), placeOf(block, at))))
                return Forget(), false;
    return true;
}

// What was there goes into the new slots nearly in their order. False if a chain becomes too long.
bool WordIndex::Resize(std::size_t slots)
{
    const std::vector<Slot> old = std::exchange(m_slots, std::vector<Slot>(slots + longestChain));
    m_count = 0;
    m_mostWords = mostWords(slots);
    m_shift = 64 - std::countr_zero(slots);
    for (const Slot slot : old)
        if (slot && !Insert(slot)) return false;
    return true;
}

bool WordIndex::Insert(Slot slot)
{
    std::size_t at = slot >> m_shift;
    const std::size_t end = at + longestChain;
    while (at != end && m_slots[at]) ++at;
    if (at == end) return false;
    m_slots[at] = slot;
    ++m_count;
    return true;
}

WordIndex::Answer WordIndex::Find(const NormalWord& word, const WordLeaf* blocks, DWORD& id) const
{
    bool moved = false;
    std::size_t at = word.Hash() >> m_shift;
    for (const std::size_t end = at + longestChain; at != end && m_slots[at]; ++at) {
        if (!IsAlike(m_slots[at], word.Hash())) continue;
        const WordEntry& entry = EntryOf(m_slots[at], blocks);
        if (entry.id && word.Is(entry)) {
            id = entry.id;
            return Answer::found;
        }
        moved = true; // or another word with this hash
    }
    return moved ? Answer::moved : Answer::absent;
}

void WordIndex::Learn(const NormalWord& word, DWORD block, DWORD at, const WordLeaf* blocks)
{
    std::size_t slot = word.Hash() >> m_shift;
    for (const std::size_t end = slot + longestChain; slot != end && m_slots[slot]; ++slot) {
        if (!IsAlike(m_slots[slot], word.Hash())) continue;
        // A slot that still leads to a word with this hash is that word's.
        const WordEntry& entry = EntryOf(m_slots[slot], blocks);
        if (entry.id && IsAlike(m_slots[slot], NormalWord::HashOf(entry))) continue;
        m_slots[slot] = SlotOf(word.Hash(), placeOf(block, at));
        return;
    }
}

// Where there is no memory for a larger table there is none; searches go without.
void WordIndex::Add(const NormalWord& word, DWORD block, DWORD at)
{
    try {
        const bool hasRoom = m_count < m_mostWords || Resize((m_slots.size() - longestChain) * 2);
        if (!hasRoom || !Insert(SlotOf(word.Hash(), placeOf(block, at)))) Forget();
    } catch (const std::bad_alloc&) {
        Forget();
    }
}

} // namespace corekit::detail
