// The bytes of a word list, and words in the form in which they are kept there: upper case, trimmed, in order
// of their units.
#pragma once

#include "corekit/platform/Runtime.h"
#include "corekit/platform/Types.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <span>
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
inline int compareWords(const WCHAR* text, const WordEntry& entry)
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
        if (!TakeAscii(text)) TakeAny(text);
    }

    bool IsLong() const { return m_length >= wordUnits; }
    const WCHAR* Text() const { return m_units; }
    std::uint64_t Hash() const { return m_hash; }
    // Four units from there on; what lies behind the word is 0.
    std::uint64_t FourAt(DWORD unit) const
    {
        std::uint64_t four;
        std::memcpy(&four, m_units + unit, sizeof four);
        return four;
    }

    bool Is(const WordEntry& entry) const
    {
        return std::memcmp(m_units, entry.word, (m_length + 1) * sizeof(WCHAR)) == 0;
    }
    void PutInto(WordEntry& entry) const { std::memcpy(entry.word, m_units, sizeof entry.word); }

    static std::uint64_t HashOf(const WordEntry& entry)
    {
        std::uint64_t hash = 0, four = 0;
        DWORD length = 0;
        for (const WCHAR c : entry.Text()) {
            four |= std::uint64_t{c} << length % 4 * 16;
            if (++length % 4) continue;
            Mix(hash, four);
            four = 0;
        }
        return Finish(hash, four);
    }

private:
    static bool IsSpace(WCHAR c) { return (c <= 0x20 || c >= 0x7F) && crt16::iswspace(c); }

    static void Mix(std::uint64_t& hash, std::uint64_t four)
    {
        hash = (hash ^ four) * 0x9E3779B97F4A7C15;
        hash ^= hash >> 29;
    }
    static std::uint64_t Finish(std::uint64_t hash, std::uint64_t four)
    {
        Mix(hash, four);
        return hash * 0x9E3779B97F4A7C15;
    }

    // The common case in one pass, four units a step; false for any other.
    bool TakeAscii(const WCHAR* text)
    {
        std::uint64_t hash = 0, four = 0;
        unsigned all = 0;
        DWORD length = 0;
        for (; WCHAR c = text[length];) {
            if (length == wordUnits) return false;
            all |= c;
            if (static_cast<unsigned>(c - u'a') < 26) c = static_cast<WCHAR>(c - 0x20);
            four |= std::uint64_t{c} << length % 4 * 16;
            if (++length % 4) continue;
            std::memcpy(m_units + length - 4, &four, sizeof four);
            Mix(hash, four);
            four = 0;
        }
        if (all > 0x7F || (length && IsSpace(text[length - 1]))) return false;
        std::memcpy(m_units + length / 4 * 4, &four, sizeof four);
        m_length = length;
        m_hash = Finish(hash, four);
        return true;
    }

    void TakeAny(const WCHAR* text)
    {
        m_length = crt16::wcslen(text);
        while (m_length && IsSpace(text[m_length - 1])) --m_length;
        if (IsLong()) return;
        WordEntry entry{};
        std::memcpy(entry.word, text, m_length * sizeof(WCHAR));
        crt16::_wcsupr(entry.word);
        std::memcpy(m_units, entry.word, sizeof entry.word);
        m_hash = HashOf(entry);
    }

    WCHAR m_units[wordUnits + 2] = {}; // zeros behind the word
    std::size_t m_length;
    std::uint64_t m_hash = 0;
};

// The same order for a word, four units a step.
inline int compareWords(const NormalWord& word, const WordEntry& entry)
{
    constexpr std::uint64_t ones = 0x0001000100010001, tops = 0x8000800080008000;
    for (DWORD unit = 0; unit < wordUnits; unit += 4) {
        const std::uint64_t ours = word.FourAt(unit);
        std::uint64_t theirs = 0;
        std::memcpy(&theirs, entry.word + unit, std::min<std::size_t>(8, (wordUnits - unit) * sizeof(WCHAR)));
        const std::uint64_t different = ours ^ theirs, end = (ours - ones) & ~ours & tops;
        if (different == 0 && end == 0) continue;
        const int at = std::countr_zero(different) & ~15;
        if (end && std::countr_zero(end) < at) return 0; // what stands behind the end does not count
        return static_cast<WCHAR>(ours >> at) < static_cast<WCHAR>(theirs >> at) ? -1 : 1;
    }
    return 0;
}

// How many of the entries, which ascend, are in front of what is looked for. The entries of three comparisons
// are fetched at once, since fetching takes longer than comparing.
template <class IsInFront>
DWORD countInFront(std::span<const WordEntry> entries, IsInFront isInFront)
{
    DWORD first = 0;
    for (auto end = static_cast<DWORD>(entries.size()); first < end;) {
        const DWORD step = (end - first + 7) / 8;
        for (DWORD at = first; at < end; at += step) __builtin_prefetch(&entries[at]);
        DWORD low = 0, high = (end - first + step - 1) / step;
        while (low < high) {
            const DWORD middle = (low + high) / 2;
            if (isInFront(entries[first + middle * step]))
                low = middle + 1;
            else
                high = middle;
        }
        if (low == 0) break;
        end = std::min(end, first + low * step);
        first += (low - 1) * step + 1;
    }
    return first;
}

} // namespace corekit::detail
