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
    bool IsReady() const { return !m_tags.empty(); }

    Answer Find(const NormalWord& word, const WordLeaf* blocks, DWORD& id) const;
    // The place of a word that was Moved.
    void Learn(const NormalWord& word, DWORD block, DWORD at, const WordLeaf* blocks);
    // Of a word that is new. When the table has become too small it forgets everything.
    void Add(const NormalWord& word, DWORD block, DWORD at);

private:
    using Tag = WORD; // of a hash; 0: a free slot

    static Tag TagOf(std::uint64_t hash) { return static_cast<Tag>(hash >> 24 | 1); }
    bool Insert(std::uint64_t hash, DWORD place);

    // Slot by slot; apart, so that the tags stay in the processor's cache. A chain may run on into the tail
    // behind the table proper.
    std::vector<Tag> m_tags;
    std::vector<DWORD> m_places; // block * 64 + entry
    std::size_t m_count = 0;
    std::size_t m_mostWords = 0;
    int m_shift = 0;
};

} // namespace corekit::detail
