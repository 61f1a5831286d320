// What a word holds, in one number, so that most words need not be looked at to know that a pattern is not in
// them: half of its bits stand for units, half for pairs of neighbours.
#pragma once

#include "corekit/stores/WordLeaf.h"

#include <vector>

namespace corekit::detail {

using WordSignature = std::uint64_t;

// What every word that the pattern matches has in its signature.
WordSignature signatureOfPattern(std::u16string_view pattern);

// The signatures of a list's leaves, and its identifiers beside each other, made when they are first asked
// for.
class WordSignatures {
public:
    struct OfLeaf {
        DWORD used; // entries in front of the first that is not in use
        const WordSignature* words;
        const DWORD* ids;
    };
    OfLeaf Of(DWORD block, const WordLeaf& leaf);

    void ForgetLeaf(DWORD block)
    {
        if (block < m_used.size()) m_used[block] = unknown;
    }
    void Forget() { *this = WordSignatures(); }

private:
    static constexpr BYTE unknown = 0xFF;

    std::vector<BYTE> m_used;           // by block
    std::vector<WordSignature> m_words; // 64 for each block
    std::vector<DWORD> m_ids;           // 64 for each block
};

} // namespace corekit::detail
