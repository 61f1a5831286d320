// CWordListFile: a sorted dictionary in a file, from words to 32-bit identifiers.
//
// Words are kept in upper case without white space around them, and have at most 29 units; longer ones are
// neither stored nor found. An identifier is the caller's own number and not 0. The bytes are described in
// docs/formats/word-list.md.
//
// An object belongs to one thread at a time, and an open file to one object: nobody else can open it
// meanwhile. Kept in memory are the first word of each leaf (1 to 4 bytes a word) and, after the first
// searches, a table that finds a word with one look (10 to 19 bytes a word), and what patterns need (12 bytes
// an entry, for leaves that patterns have looked at). Words are in the file at once and reach the device with
// Flush or Close. A full disk throws CNotSupportedException and leaves the list as it was.
#pragma once

#include "corekit/framework/Array.h"
#include "corekit/stores/BlockMappedFile.h"

#include <memory>
#include <string_view>

class StringW;

namespace corekit::detail {
class LeafOrder;
class NormalWord;
class WordIndex;
class WordSignatures;
struct WordEntry;
struct WordLeaf;
struct WordListHeader;
} // namespace corekit::detail

class COREKIT_API CWordListFile : public CObject {
    DECLARE_DYNAMIC(CWordListFile)

public:
    CWordListFile();
    ~CWordListFile() override; // flushes and closes

    // Makes an empty list and opens it; what was open is closed first. 0 if the file exists or cannot be
    // made.
    int Create(const char* name);
    // What was open is closed first. 0 if it cannot be opened for writing, is no word list or is damaged.
    // Reads the index of leaves, not the words.
    int Open(const char* name);

    void Close(); // with a Flush; forgets all that was kept in memory
    bool IsOpen() const { return m_blocks.IsOpen(); }
    int Flush() { return m_blocks.Flush(); } // not 0 when all is on the device

    // The identifier under which the word is kept: the one given, or an older one, which stays. 0 for a
    // word that is too long, for an identifier of 0, which stores nothing, and when no list is open. The
    // word is zero-terminated; case and white space around it do not count.
    DWORD AddWord(const WCHAR* word, DWORD id);
    // The word's identifier; 0 if it is not there or no list is open.
    DWORD FindWord(const WCHAR* word);

    // The identifiers of words that match by MatchWildCardString, in order of the words, replacing what
    // `ids` held; 1 if there are any. A pattern that begins with "*" or "?" looks at all words. Any other
    // starts at the part in front of its first wildcard, at a leaf boundary: it looks at some words that
    // begin otherwise, and may begin behind words that would have matched.
    int FindPattern(const WCHAR* pattern, CDWordArray& ids);

    // The runs of letters, digits and "/" in a text, with bWildcards of "*" and "?" as well, as they stand.
    // The order is that of the text, and a word that comes twice is there twice.
    static void ConvertStringToWords(const WCHAR* text, CArray<StringW, const WCHAR*>& words, int bWildcards);

private:
    using Leaf = corekit::detail::WordLeaf;
    using Header = corekit::detail::WordListHeader;
    using Word = corekit::detail::NormalWord;

    // Where a word is in the list, or where it belongs.
    struct Place {
        DWORD leaf; // by its number in the master index
        DWORD at;   // the entry that has the word, or the one in front of which it belongs
        bool found;
    };

    bool IsIndexSound() const;      // no block is used twice or lies outside
    void StoreHeader();             // to block 0
    DWORD* MasterIndex() const;     // the leaves' blocks in order of their words
    Leaf& LeafAt(DWORD leaf) const; // by its number in the master index
    const Leaf* Blocks() const;
    DWORD TakeBlock(); // a new one; throws when there is none

    // By the order of the leaves in memory once that is known, before that by steps through the file.
    Place FindPlace(const Word& word) const;
    Place FindPlaceBySteps(const Word& word) const;
    DWORD FindInOrder(const Word& word, bool moved);
    void AddFirstWord(const Word& word, DWORD id);
    void AddAt(Place place, const Word& word, DWORD id);
    void SplitLeaf(Place& place); // a full one, in halves
    void CheckMasterIndexSpace(); // makes room for one leaf more
    void PutWord(Place place, const Word& word, DWORD id, DWORD used);
    // Makes the order, and with `words` the table of all words, once as many searches have been made as pay
    // for it.
    void Learn(bool words);

    DWORD FirstLeafOf(const WCHAR* prefix) const;
    // By prefix, and by all words; the leaf functions match the entries of one leaf.
    void FindPatternNormalList(const StringW& prefix, const StringW& pattern, CDWordArray& ids);
    void LinearSearchNormalList(const StringW& pattern, CDWordArray& ids);
    bool LinearSearchEntireList(const StringW& pattern, CDWordArray& ids);
    void AppendLeaf(DWORD leaf, CDWordArray& ids);
    void MatchLeafByPrefix(DWORD leaf, std::u16string_view prefix, const WCHAR* pattern, std::uint64_t wanted,
                           CDWordArray& ids);
    void MatchLeaf(DWORD leaf, DWORD begin, DWORD end, const WCHAR* pattern, std::uint64_t wanted,
                   CDWordArray& ids);
    static void CombineResults(CDWordArray& target, const CDWordArray& source);

    // The block that is set aside for long words is not used.
    DWORD AddLongWord(const Word&, DWORD) { return 0; }
    DWORD FindLongWord(const Word&) { return 0; }
    void FindPatternLongList(const StringW&, CDWordArray&) {}
    void LinearSearchLongList(const StringW&, CDWordArray&) {}

    CBlockMappedFile m_blocks;
    std::unique_ptr<Header> m_header; // as in block 0, but out of reach of what is written there
    std::unique_ptr<corekit::detail::LeafOrder> m_order;
    std::unique_ptr<corekit::detail::WordIndex> m_index;
    std::unique_ptr<corekit::detail::WordSignatures> m_signatures;
    DWORD m_searches = 0; // made without order or index
    bool m_mayLearn = true;
};
