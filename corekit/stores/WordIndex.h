// A table beside a word list that finds a word without a search: for each word, part of its hash and the
// place where it was last seen.
//
// The table knows of every word that is there. Places are hints: the words that an insertion moves are not
// followed, and what is no longer at its place is to be searched for and learnt anew.
#pragma once

#include "corekit/stores/WordLeaf.h"

#include <span>
#include <vector>

namespace corekit::detail {

class WordIndex {
public:
    enum class Answer { Found, Absent, Moved };

    // From the blocks of the leaves, in their order. False if the list is out of order or too long; then it
    // is to be searched, and the index stays away.
    bool Build(std::span<const DWORD> leaves, const WordLeaf* blocks);
    void Forget() { *this = WordIndex(); }
    bool IsReady() const { return !m_slots.empty(); }

    Answer Find(const NormalWord& word, const WordLeaf* blocks, DWORD& id) const;
    // The place of a word that was Moved.
    void Learn(const NormalWord& word, DWORD block, DWORD at);
    // Of a word that is new. When the table has become too small it forgets everything.
    void Add(const NormalWord& word, DWORD block, DWORD at);

private:
    struct Slot {
        DWORD tag;
        DWORD place; // block * 64 + entry; 0: free, as no leaf is in block 0
    };

    Slot* Chain(std::uint64_t hash) { return m_slots.data() + (hash >> m_shift); }
    bool Insert(std::uint64_t hash, DWORD place);

    std::vector<Slot> m_slots; // a chain may run on into the tail behind the table proper
    std::size_t m_count = 0;
    std::size_t m_mostWords = 0;
    int m_shift = 0;
};

} // namespace corekit::detail
