// A table beside a word list that finds a word without a search: for each word, part of its hash and the
// place where it was last seen.
//
// The table knows of every word that is there. Places are hints: the words that an insertion moves are not
// followed, and what is no longer at its place is to be searched for and learnt anew. It takes 8 bytes a
// slot, of which 43 to 85 in a hundred are in use: 10 to 19 bytes a word.
#pragma once

#include "corekit/stores/LeafOrder.h"

#include <span>
#include <vector>

namespace corekit::detail {

class WordIndex {
public:
    enum class Answer { found, absent, moved };

    // From the blocks of the leaves and the number of words in each. False if the words' hashes are too much
    // alike; then they are to be searched for.
    bool Build(std::span<const DWORD> leaves, const WordLeaf* blocks, const LeafOrder& order);
    void Forget() { *this = WordIndex(); }
    bool IsReady() const { return !m_slots.empty(); }

    Answer Find(const NormalWord& word, const WordLeaf* blocks, DWORD& id) const;
    // The place of a word that was Moved.
    void Learn(const NormalWord& word, DWORD block, DWORD at, const WordLeaf* blocks);
    // Has what Add will look at fetched meanwhile.
    void FetchFor(const NormalWord& word) const
    {
        if (IsReady()) __builtin_prefetch(&m_slots[word.Hash() >> m_shift], 1);
    }
    // Of a word that is new.
    void Add(const NormalWord& word, DWORD block, DWORD at);

private:
    // The upper bits of the hash, which lead to the slot, above the place, which is block * 64 + entry and
    // never 0.
    using Slot = std::uint64_t;
    static constexpr int placeBits = 26; // a file has less than 4 GiB

    static Slot SlotOf(std::uint64_t hash, DWORD place) { return hash >> placeBits << placeBits | place; }
    static bool IsAlike(Slot slot, std::uint64_t hash) { return (slot ^ hash) >> placeBits == 0; }
    static const WordEntry& EntryOf(Slot slot, const WordLeaf* blocks);
    bool Insert(Slot slot);
    bool Resize(std::size_t slots);

    std::vector<Slot> m_slots; // a chain may run on into the tail behind the table proper
    std::size_t m_count = 0;
    std::size_t m_mostWords = 0;
    int m_shift = 0;
};

} // namespace corekit::detail
