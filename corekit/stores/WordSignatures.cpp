#include "corekit/stores/WordSignatures.h"

#include <string>

namespace corekit::detail {

namespace {

constexpr WordSignature unitBit(WCHAR c) { return WordSignature{1} << (c & 31); }
constexpr WordSignature pairBit(WCHAR a, WCHAR b)
{
    return WordSignature{1} << (32 + ((a * 0x9E3779B1u + b * 0x85EBCA77u) >> 27));
}

constexpr WordSignature signatureOf(std::u16string_view word)
{
    WordSignature signature = 0;
    for (std::size_t i = 0; i < word.size(); ++i) {
        signature |= unitBit(word[i]);
        if (i > 0) signature |= pairBit(word[i - 1], word[i]);
    }
    return signature;
}

} // namespace

// The parts between the stars are looked for one by one. A question mark puts units together that are not
// neighbours in the word, so that a part with one says nothing of pairs.
WordSignature signatureOfPattern(std::u16string_view pattern)
{
    constexpr WordSignature units = 0xFFFFFFFF;
    std::u16string part;
    WordSignature wanted = 0;
    for (std::size_t i = 0; i <= pattern.size(); ++i) {
        if (i < pattern.size() && pattern[i] != u'*') {
            if (pattern[i] != u'"') part += pattern[i];
            continue;
        }
        const bool hasQuestion = part.find(u'?') != part.npos;
        std::erase(part, u'?');
        wanted |= signatureOf(part) & (hasQuestion ? units : ~WordSignature{0});
        part.clear();
    }
    return wanted;
}

WordSignatures::OfLeaf WordSignatures::Of(DWORD block, const WordLeaf& leaf)
{
    const std::size_t first = std::size_t{block} * wordsOfLeaf;
    if (block >= m_used.size()) {
        m_used.resize(block + 1, unknown);
        m_words.resize(first + wordsOfLeaf);
        m_ids.resize(first + wordsOfLeaf);
    }
    if (m_used[block] == unknown) {
        DWORD used = 0;
        for (; used < wordsOfLeaf && leaf[used].id; ++used) {
            m_words[first + used] = signatureOf(leaf[used].Text());
            m_ids[first + used] = leaf[used].id;
        }
        m_used[block] = static_cast<BYTE>(used);
    }
    return {m_used[block], m_words.data() + first, m_ids.data() + first};
}

} // namespace corekit::detail
