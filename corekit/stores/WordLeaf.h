// The bytes of a word list, and words in the form in which they are kept there: upper case, trimmed, in order
// of their units.
#pragma once

#include "corekit/platform/Runtime.h"
#include "corekit/platform/Types.h"

#include <cstring>
#include <string_view>

namespace corekit::detail {

inline constexpr DWORD wordUnits = 30; // with the terminator
inline constexpr DWORD wordsOfLeaf = 64;

struct WordEntry {
    DWORD id; // 0: not in use
    WCHAR word[wordUnits];

    // As far as the terminator, of which a damaged file has perhaps none.
    std::u16string_view Text() const
    {
        DWORD length = 0;
        while (length < wordUnits && word[length]) ++length;
        return {word, length};
    }
    bool IsTerminated() const { return word[wordUnits - 1] == 0 || Text().size() < wordUnits; }
};

// The entries in use come first.
struct WordLeaf {
    WordEntry entries[wordsOfLeaf];

    const WordEntry& operator[](DWORD at) const { return entries[at]; }
    WordEntry& operator[](DWORD at) { return entries[at]; }
    // 0 also for a leaf without a word.
    DWORD LastUsed() const
    {
        DWORD at = wordsOfLeaf - 1;
        while (at > 0 && entries[at].id == 0) --at;
        return at;
    }
    bool IsFull() const { return entries[wordsOfLeaf - 1].id != 0; }
};
static_assert(sizeof(WordEntry) == 64 && sizeof(WordLeaf) == 4096);

struct WordListHeader {
    DWORD masterBlock; // the first of the run
    DWORD masterBlocks;
    DWORD masterCount;
    DWORD longBlock;
    DWORD longBlocks;
};
static_assert(sizeof(WordListHeader) == 20);

// Below 0, 0, above 0: the order of a zero-terminated text and a word of the file.
inline int CompareWords(const WCHAR* text, const WordEntry& entry)
{
    for (DWORD i = 0; i < wordUnits; ++i) {
        if (text[i] != entry.word[i]) return text[i] < entry.word[i] ? -1 : 1;
        if (text[i] == 0) return 0;
    }
    return text[wordUnits] ? 1 : 0;
}

// A text made into a word. It takes no memory.
class NormalWord {
public:
    explicit NormalWord(const WCHAR* text)
    {
        if (!text) text = u"";
        while (IsSpace(*text)) ++text;
        std::size_t length = crt16::wcslen(text);
        while (length && IsSpace(text[length - 1])) --length;
        m_length = length;
        if (IsLong()) return;
        std::memcpy(m_units, text, length * sizeof(WCHAR));
        MakeUpper();
    }

    bool IsLong() const { return m_length >= wordUnits; }
    const WCHAR* Text() const { return m_units; }

    bool Is(const WordEntry& entry) const
    {
        return std::memcmp(m_units, entry.word, (m_length + 1) * sizeof(WCHAR)) == 0;
    }
    std::uint64_t Hash() const { return Hash({m_units, m_length}); }
    static std::uint64_t HashOf(const WordEntry& entry) { return Hash(entry.Text()); }
    void PutInto(WordEntry& entry) const { std::memcpy(entry.word, m_units, sizeof entry.word); }

private:
    static std::uint64_t Hash(std::u16string_view word)
    {
        constexpr std::uint64_t odd = 0x9E3779B97F4A7C15;
        std::uint64_t hash = word.size();
        const auto mix = [&hash](std::uint64_t four) {
            hash = (hash ^ four) * odd;
            hash ^= hash >> 29;
        };
        std::uint64_t four = 0;
        for (; word.size() >= 4; word.remove_prefix(4)) {
            std::memcpy(&four, word.data(), sizeof four);
            mix(four);
        }
        four = 0;
        for (const WCHAR c : word) four = four << 16 | c;
        mix(four);
        return hash * odd;
    }
    static bool IsSpace(WCHAR c) { return (c <= 0x20 || c >= 0x7F) && crt16::iswspace(c); }

    void MakeUpper()
    {
        unsigned all = 0;
        for (WCHAR& c : m_units) {
            all |= c;
            if (c >= u'a' && c <= u'z') c = static_cast<WCHAR>(c - 0x20);
        }
        if (all > 0x7F) crt16::_wcsupr(m_units);
    }

    WCHAR m_units[wordUnits + 2] = {}; // zeros behind the word
    std::size_t m_length;
};

} // namespace corekit::detail
