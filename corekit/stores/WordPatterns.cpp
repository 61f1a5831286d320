// The searches by pattern of CWordListFile, and its way of taking a text apart.
#include "corekit/foundation/StringW.h"
#include "corekit/foundation/WildCards.h"
#include "corekit/stores/LeafOrder.h"
#include "corekit/stores/WordListFile.h"
#include "corekit/stores/WordSignatures.h"
#include "corekit/unicode/tables/UnicodeCharTypes.h"

#include <algorithm>
#include <span>

using namespace corekit::detail;

namespace {

std::u16string_view view(const StringW& text) { return {text, static_cast<std::size_t>(text.GetLength())}; }

// Whether the pattern says no more than how a word begins.
bool isPrefixWithStar(std::u16string_view pattern)
{
    return pattern.size() > 1 && pattern.find_first_of(u"*?\"") == pattern.size() - 1 &&
           pattern.back() == u'*';
}

void append(CDWordArray& ids, std::span<const DWORD> more)
{
    const int size = ids.GetSize();
    ids.SetSize(size + static_cast<int>(more.size()));
    std::ranges::copy(more, ids.GetData() + size);
}

} // namespace

int CWordListFile::FindPattern(const WCHAR* text, CDWordArray& ids)
{
    StringW pattern(text); // before ids may go
    ids.RemoveAll();
    pattern.MakeUpper();
    pattern.TrimLeft();
    pattern.TrimRight();
    if (!IsOpen() || pattern.IsEmpty()) return 0;
    if (IsWildCardString(pattern.Left(1))) return LinearSearchEntireList(pattern, ids);

    const std::size_t wildcard = view(pattern).find_first_of(u"*?");
    const std::size_t allButLast = view(pattern).size() - 1;
    FindPatternNormalList(pattern.Left(static_cast<int>(std::min(wildcard, allButLast))), pattern, ids);
    CDWordArray longIds;
    FindPatternLongList(pattern, longIds);
    CombineResults(ids, longIds);
    return !ids.IsEmpty();
}

// Not the search for a word: the scan for the last entry runs over entries in use instead of those that are
// not, so that a prefix inside a leaf leads behind that leaf. Callers know the results of this one.
DWORD CWordListFile::FirstLeafOf(const WCHAR* prefix) const
{
    // Where words stand in order, that scan finds no entry that is not in use in front of one that is.
    if (m_order->IsReady()) return std::min(m_order->FirstFrom(prefix), m_header->masterCount - 1);
    DWORD low = 0, high = m_header->masterCount - 1;
    while (low < high) {
        const DWORD middle = (low + high) / 2;
        const Leaf& leaf = LeafAt(middle);
        const int order = compareWords(prefix, leaf[0]);
        if (order == 0) return middle;
        if (order < 0) {
            high = middle;
            continue;
        }
        DWORD last = wordsOfLeaf - 1;
        while (last > 0 && leaf[last].id) --last;
        if (last > 0 && compareWords(prefix, leaf[last]) <= 0) return middle;
        low = middle + 1;
    }
    return low;
}

void CWordListFile::FindPatternNormalList(const StringW& prefix, const StringW& pattern, CDWordArray& ids)
{
    if (m_header->masterCount == 0) return;
    if (!m_order->IsReady()) Learn(false);
    const DWORD first = FirstLeafOf(prefix);
    const WordSignature wanted = signatureOfPattern(view(pattern));
    DWORD end = first + 1;
    while (end < m_header->masterCount && LeafAt(end)[0].Text().starts_with(view(prefix))) ++end;
    const bool isPrefix = m_order->IsReady() && isPrefixWithStar(view(pattern));
    for (DWORD leaf = first; leaf < end; ++leaf) {
        if (isPrefix && leaf > first && leaf + 1 < end)
            AppendLeaf(leaf, ids);
        else if (isPrefix)
            MatchLeafByPrefix(leaf, view(prefix), pattern, wanted, ids);
        else
            MatchLeaf(leaf, 0, wordsOfLeaf, pattern, wanted, ids);
    }
}

bool CWordListFile::LinearSearchEntireList(const StringW& pattern, CDWordArray& ids)
{
    LinearSearchNormalList(pattern, ids);
    CDWordArray longIds;
    LinearSearchLongList(pattern, longIds);
    CombineResults(ids, longIds);
    return !ids.IsEmpty();
}

void CWordListFile::LinearSearchNormalList(const StringW& pattern, CDWordArray& ids)
{
    ids.RemoveAll();
    const WordSignature wanted = signatureOfPattern(view(pattern));
    for (DWORD leaf = 0; leaf < m_header->masterCount; ++leaf)
        MatchLeaf(leaf, 0, wordsOfLeaf, pattern, wanted, ids);
}

// Between two leaves whose first words begin with the prefix all words do.
void CWordListFile::AppendLeaf(DWORD number, CDWordArray& ids)
{
    const auto known = m_signatures->Of(MasterIndex()[number], LeafAt(number));
    append(ids, {known.ids, known.used});
}

// Words that begin with the prefix stand together; any other may still have it behind a separator.
void CWordListFile::MatchLeafByPrefix(DWORD number, std::u16string_view prefix, const WCHAR* pattern,
                                      WordSignature wanted, CDWordArray& ids)
{
    const Leaf& leaf = LeafAt(number);
    const auto known = m_signatures->Of(MasterIndex()[number], leaf);
    const std::span words(leaf.entries, known.used);
    const auto head = [&](const WordEntry& entry) { return entry.Text().substr(0, prefix.size()); };
    const auto begin = std::ranges::lower_bound(words, prefix, {}, head) - words.begin();
    const auto end = std::ranges::upper_bound(words, prefix, {}, head) - words.begin();
    MatchLeaf(number, 0, static_cast<DWORD>(begin), pattern, wanted, ids);
    append(ids, {known.ids + begin, known.ids + end});
    MatchLeaf(number, static_cast<DWORD>(end), known.used, pattern, wanted, ids);
}

void CWordListFile::MatchLeaf(DWORD number, DWORD begin, DWORD end, const WCHAR* pattern,
                              WordSignature wanted, CDWordArray& ids)
{
    const Leaf& leaf = LeafAt(number);
    const auto known = m_signatures->Of(MasterIndex()[number], leaf);
    for (DWORD at = begin; at < std::min(end, known.used); ++at) {
        if ((known.words[at] & wanted) != wanted) continue;
        WCHAR word[wordUnits + 1] = {};
        leaf[at].Text().copy(word, wordUnits);
        if (MatchWildCardString(word, pattern, 1) >= 0) ids.Add(leaf[at].id);
    }
}

void CWordListFile::CombineResults(CDWordArray& target, const CDWordArray& source)
{
    for (int i = 0; i < source.GetSize(); ++i) {
        int known = target.GetUpperBound();
        while (known >= 0 && target[known] != source[i]) --known;
        if (known < 0) target.Add(source[i]);
    }
}

void CWordListFile::ConvertStringToWords(const WCHAR* text, CArray<StringW, const WCHAR*>& words,
                                         int bWildcards)
{
    const auto belongs = [bWildcards](WCHAR c) {
        return CUnicodeCharTypes::IsAlphanumeric(c) || c == u'/' || (bWildcards && (c == u'*' || c == u'?'));
    };
    words.RemoveAll();
    if (!text) return;
    while (*text) {
        const WCHAR* end = text;
        while (*end && belongs(*end)) ++end;
        if (end != text) {
            words.SetSize(words.GetSize() + 1);
            words[words.GetUpperBound()] = StringW(text, static_cast<int>(end - text));
        }
        text = *end ? end + 1 : end;
    }
}
