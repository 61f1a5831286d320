// The leaves of a word list in their order, by copies of their first words, so that the leaf of a word is
// found without a look into the file. It takes 64 to 128 bytes a leaf. One thread at a time.
#pragma once

#include "corekit/stores/WordLeaf.h"

#include <array>
#include <memory>
#include <span>
#include <vector>

namespace corekit::detail {

class LeafOrder {
public:
    // From the blocks of the leaves, in their order. False if the words do not stand as they should:
    // together, terminated, each above the one before; then there is no order to be known.
    bool Make(std::span<const DWORD> leaves, const WordLeaf* blocks);
    void Forget() { *this = LeafOrder(); }
    bool IsReady() const { return m_ready; }

    // The last leaf whose first word is not above the word; 0 if all are. Leaves are numbered in their order.
    DWORD LeafOf(const NormalWord& word) const;
    // The first leaf whose first word is not below the text; the number of leaves if all are.
    DWORD FirstFrom(const WCHAR* text) const;
    // How many words the leaf in that block has.
    DWORD Used(DWORD block) const { return m_used[block]; }

    void SetUsed(DWORD block, DWORD used);
    void SetFirst(DWORD leaf, const WordEntry& first) { Add(leaf, first, false); }
    void Insert(DWORD leaf, const WordEntry& first) { Add(leaf, first, true); }

private:
    static constexpr DWORD groupRoom = 128;
    struct Group {
        DWORD count = 0;
        std::array<WordEntry, groupRoom> first; // zeros behind each word
    };

    template <class Text, class IsInFront>
    DWORD LeavesInFront(const Text& text, IsInFront isInFront) const;
    void Add(DWORD leaf, const WordEntry& first, bool isNew);
    void Split(std::size_t group);

    std::vector<std::unique_ptr<Group>> m_groups; // none is empty
    std::vector<BYTE> m_used;                     // by block
    bool m_ready = false;
};

} // namespace corekit::detail
