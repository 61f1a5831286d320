#include "corekit/foundation/StringW.h"
#include "corekit/foundation/WildCards.h"
#include "corekit/framework/Exception.h"
#include "corekit/stores/WordListFile.h"
#include "tests/support/CaseRows.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace {

using Text = std::u16string;
using Ids = std::vector<DWORD>;

Text Number(int n)
{
    Text text;
    for (int digit = 100000; digit; digit /= 10) text += static_cast<WCHAR>(u'0' + n / digit % 10);
    return text;
}

Text RandomWord(std::mt19937& random)
{
    Text word;
    for (std::size_t length = 1 + random() % 9; length; --length) word += u"ABCDE\u05D0\u00C9"[random() % 7];
    return word;
}

Ids Found(CWordListFile& list, const Text& pattern)
{
    CDWordArray ids;
    ids.Add(77);
    const int any = list.FindPattern(pattern.c_str(), ids);
    EXPECT_EQ(any, ids.GetSize() > 0);
    return {ids.GetData(), ids.GetData() + ids.GetSize()};
}

// The file as its format has it: the leaves, read without the class.
struct Entry {
    DWORD id;
    Text word;
};
using Leaves = std::vector<std::vector<Entry>>;

DWORD NumberAt(const std::string& bytes, std::size_t at)
{
    DWORD value;
    std::memcpy(&value, bytes.data() + at, 4);
    return value;
}

Leaves ReadLeaves(const std::string& bytes)
{
    Leaves leaves(NumberAt(bytes, 4096 + 8));
    const std::size_t master = 4096 + std::size_t{NumberAt(bytes, 4096)} * 4096;
    for (std::size_t i = 0; i < leaves.size(); ++i) {
        const std::size_t leaf = 4096 + std::size_t{NumberAt(bytes, master + i * 4)} * 4096;
        for (std::size_t entry = leaf; entry < leaf + 4096 && NumberAt(bytes, entry); entry += 64) {
            WCHAR word[30];
            std::memcpy(word, bytes.data() + entry + 4, sizeof word);
            leaves[i].push_back({NumberAt(bytes, entry), word});
        }
    }
    return leaves;
}

// What the walk over whole leaves finds for a pattern that begins with a letter.
Ids Walked(const Leaves& leaves, const Text& pattern)
{
    const Text prefix = pattern.substr(0, std::min(pattern.find_first_of(u"*?"), pattern.size() - 1));
    std::size_t low = 0, high = leaves.size() - 1;
    while (low < high) {
        const std::size_t middle = (low + high) / 2;
        if (prefix == leaves[middle][0].word) {
            low = middle;
            break;
        }
        if (prefix < leaves[middle][0].word)
            high = middle;
        else
            low = middle + 1;
    }
    Ids ids;
    for (std::size_t leaf = low; leaf < leaves.size(); ++leaf) {
        if (leaf != low && !leaves[leaf][0].word.starts_with(prefix)) break;
        for (const Entry& entry : leaves[leaf])
            if (MatchWildCardString(entry.word.c_str(), pattern.c_str(), 1) >= 0) ids.push_back(entry.id);
    }
    return ids;
}

class WordListTest : public testing::Test {
protected:
    // A closed list of words with an identifier each, from 1 on.
    void Make(const std::vector<Text>& words)
    {
        CWordListFile made;
        ASSERT_TRUE(made.Create(name.c_str()));
        for (std::size_t i = 0; i < words.size(); ++i)
            made.AddWord(words[i].c_str(), static_cast<DWORD>(i + 1));
    }

    TempFolder folder;
    const std::string name = folder / "words.wl";
    CWordListFile list;
};

} // namespace

TEST_F(WordListTest, ASmallListHasItsLayoutByteForByte)
{
    Make({u"beta", u" Alpha\t", u"\u00e9"});
    std::string expected(4096 + 64 * 4096, '\0');
    const auto put = [&](std::size_t at, const std::string& bytes) {
        expected.replace(at, bytes.size(), bytes);
    };
    using namespace std::string_literals;
    put(0, "\x40\xFC\x58\x07\x3F\x9C\xD1\x11\xBD\x7B\xFF\xFF\xFF\xFF\xFF\xFF"s
           "\0\1\0\0"s
           "\0\x10\0\0"s
           "\x0C\0\0\0"s
           "\x40\0\0\0"s);
    put(48, "\3\0\0\0"s
            "\0\4\0\0"s
            "\0\x08\0\0"s
            "\0\x0C\0\0"s);
    put(1024, "\x7F"s);
    put(4096, "\1\0\0\0"s
              "\4\0\0\0"s
              "\1\0\0\0"s
              "\5\0\0\0"s
              "\1\0\0\0"s);
    put(4096 + 4096, "\6\0\0\0"s);
    const std::size_t leaf = 4096 + 6 * 4096;
    put(leaf, "\2\0\0\0A\0L\0P\0H\0A\0\0\0"s);
    put(leaf + 64, "\1\0\0\0B\0E\0T\0A\0\0\0"s);
    put(leaf + 128, "\3\0\0\0\xC9\0\0\0"s);
    EXPECT_TRUE(ReadWhole(name) == expected);
    EXPECT_FALSE(list.Create(name.c_str())) << "overwritten";
    ASSERT_TRUE(list.Open(name.c_str()));
    EXPECT_EQ(list.FindWord(u"\u00c9"), 3u);
}

TEST_F(WordListTest, WordsAreKeptTrimmedInUpperCaseUpTo29Characters)
{
    ASSERT_TRUE(list.Create(name.c_str()));
    const Text longest(29, u'x'), tooLong(30, u'x');
    EXPECT_EQ(list.AddWord(longest.c_str(), 5), 5u);
    EXPECT_EQ(list.AddWord((u"  " + longest + u" \u00a0").c_str(), 6), 5u);
    EXPECT_EQ(list.AddWord(tooLong.c_str(), 7), 0u);
    EXPECT_EQ(list.FindWord(tooLong.c_str()), 0u);
    EXPECT_EQ(list.AddWord(u"nothing", 0), 0u);
    EXPECT_EQ(list.FindWord(u"nothing"), 0u);
    EXPECT_EQ(list.AddWord(u"\u0436uk", 8), 8u);
    EXPECT_EQ(list.AddWord(u"\u0416UK", 9), 8u);
    EXPECT_EQ(list.FindWord(u"\t\u0436UK"), 8u);
    EXPECT_EQ(list.FindWord(u"\u0436U"), 0u);
    EXPECT_EQ(list.FindWord(longest.substr(1).c_str()), 0u);
    EXPECT_EQ(list.FindWord(nullptr), 0u);
    list.Close();
    EXPECT_EQ(list.FindWord(u"\u0436uk"), 0u);
    EXPECT_EQ(list.AddWord(u"more", 1), 0u);
    ASSERT_TRUE(list.Open(name.c_str()));
    EXPECT_EQ(list.FindWord(longest.c_str()), 5u);
}

TEST_F(WordListTest, AFullLeafIsSplitInHalves)
{
    for (const auto& [extra, lower, upper] :
         {std::tuple(129, 32, 33), std::tuple(65, 32, 33), std::tuple(63, 33, 32), std::tuple(0, 33, 32)}) {
        std::filesystem::remove(name);
        std::vector<Text> words;
        for (int i = 1; i <= 64; ++i) words.push_back(Number(i * 2));
        words.push_back(Number(extra));
        Make(words);
        const Leaves leaves = ReadLeaves(ReadWhole(name));
        ASSERT_EQ(leaves.size(), 2u);
        EXPECT_EQ(leaves[0].size(), static_cast<std::size_t>(lower)) << extra;
        EXPECT_EQ(leaves[1].size(), static_cast<std::size_t>(upper)) << extra;
    }
}

TEST_F(WordListTest, EveryWordIsFoundAmongMany)
{
    std::mt19937 random(7);
    std::map<Text, DWORD> model;
    ASSERT_TRUE(list.Create(name.c_str()));
    const auto check = [&](const Text& word) {
        const auto known = model.find(word);
        ASSERT_EQ(list.FindWord(word.c_str()), known == model.end() ? 0 : known->second);
    };
    for (DWORD i = 1; i <= 20000; ++i) {
        const Text word = RandomWord(random);
        const DWORD kept = model.emplace(word, i).first->second;
        ASSERT_EQ(list.AddWord(word.c_str(), i), kept);
        if (i == 12000) { // from here on both kinds of search
            list.Close();
            ASSERT_TRUE(list.Open(name.c_str()));
        }
        if (i > 12000)
            for (int k = 0; k < 3; ++k) check(RandomWord(random));
    }
    for (const auto& [word, id] : model) check(word);
    list.Close();
    std::vector<Text> inOrder;
    for (const auto& leaf : ReadLeaves(ReadWhole(name)))
        for (const Entry& entry : leaf) inOrder.push_back(entry.word);
    EXPECT_EQ(inOrder.size(), model.size());
    EXPECT_TRUE(std::is_sorted(inOrder.begin(), inOrder.end()));
}

TEST_F(WordListTest, AFullMasterIndexMovesAndKeepsItsLeaves)
{
    ASSERT_TRUE(list.Create(name.c_str()));
    const int count = 4096 * 32 + 65; // one split beyond leaf 4097
    for (int i = 1; i <= count; ++i)
        ASSERT_EQ(list.AddWord(Number(i).c_str(), static_cast<DWORD>(i)), static_cast<DWORD>(i));
    for (int i = 1; i <= count; ++i) ASSERT_EQ(list.FindWord(Number(i).c_str()), static_cast<DWORD>(i));
    EXPECT_EQ(list.FindWord(Number(count + 1).c_str()), 0u);
    list.Close();
    const std::string bytes = ReadWhole(name);
    EXPECT_EQ(NumberAt(bytes, 4096 + 4), 5u);
    EXPECT_GT(NumberAt(bytes, 4096 + 8), 4096u);
    EXPECT_EQ(bytes[1024] & 0x3, 0x3) << "the old index's blocks were not taken for leaves";
    EXPECT_EQ(ReadLeaves(bytes).back().back().word, Number(count));
    EXPECT_TRUE(list.Open(name.c_str()));
}

TEST_F(WordListTest, APatternFindsWhatAWalkOverTheLeavesFinds)
{
    std::mt19937 random(11);
    std::vector<Text> words;
    for (int i = 0; i < 6000; ++i) words.push_back(RandomWord(random));
    Make(words);
    const Leaves leaves = ReadLeaves(ReadWhole(name));
    ASSERT_TRUE(list.Open(name.c_str()));
    const Text pieces[] = {u"A", u"B", u"C", u"AB", u"\u05D0", u"\u00C9", u"*", u"*", u"?", u"\""};
    int notEmpty = 0;
    for (int round = 0; round < 1500; ++round) {
        Text pattern;
        for (std::size_t n = 1 + random() % 5; n; --n) pattern += pieces[random() % std::size(pieces)];
        Ids expected;
        if (pattern[0] != u'*' && pattern[0] != u'?') {
            expected = Walked(leaves, pattern);
        } else {
            for (const auto& leaf : leaves)
                for (const Entry& entry : leaf)
                    if (MatchWildCardString(entry.word.c_str(), pattern.c_str(), 1) >= 0)
                        expected.push_back(entry.id);
        }
        ASSERT_EQ(Found(list, pattern), expected)
            << StringW(pattern.c_str()).GetLength() << " round " << round;
        notEmpty += !expected.empty();
        if (round % 100 == 50) list.AddWord(words[0].c_str(), 1); // known: changes nothing
    }
    EXPECT_GT(notEmpty, 500);
    EXPECT_EQ(Found(list, u" a* "), Found(list, u"A*"));
    EXPECT_EQ(Found(list, u""), Ids());
    EXPECT_EQ(Found(list, u" \t"), Ids());
}

TEST_F(WordListTest, APatternFindsWordsThatWereAddedSince)
{
    ASSERT_TRUE(list.Create(name.c_str()));
    EXPECT_EQ(Found(list, u"*A*"), Ids());
    Ids expected;
    for (int i = 1; i <= 200; ++i) {
        list.AddWord((Number(i) + u"Q").c_str(), static_cast<DWORD>(i));
        expected.push_back(static_cast<DWORD>(i));
        ASSERT_EQ(Found(list, u"*q"), expected);
    }
}

TEST_F(WordListTest, ListsThatCannotBeTrueAreRefused)
{
    std::vector<Text> words;
    for (int i = 1; i <= 150; ++i) words.push_back(Number(i));
    Make(words);
    const std::string sound = ReadWhole(name);
    for (CaseRow row : CaseRows(TEST_DATA "/damaged_headers.tsv", "words")) {
        std::string bad = sound;
        const auto at = row.Number<std::size_t>();
        const auto value = row.Number<DWORD>();
        std::memcpy(bad.data() + at, &value, sizeof value);
        WriteWhole(name, bad);
        EXPECT_FALSE(list.Open(name.c_str())) << row.Line();
        EXPECT_TRUE(ReadWhole(name) == bad) << row.Line();
    }
    WriteWhole(name, sound);
    EXPECT_TRUE(list.Open(name.c_str()));
}

// Leaves are read entry by entry whatever they hold; nothing beyond them is.
TEST_F(WordListTest, DisorderInALeafNeitherHangsNorReadsBeyondIt)
{
    std::vector<Text> words;
    for (int i = 1; i <= 300; ++i) words.push_back(Number(i));
    Make(words);
    const std::string sound = ReadWhole(name);
    std::mt19937 random(3);
    for (int round = 0; round < 60; ++round) {
        std::string bad = sound;
        const std::size_t leaves = 4096 + 6 * 4096;
        for (int i = 0; i < 40; ++i)
            bad[leaves + random() % (9 * 4096)] = static_cast<char>(random() % 4 ? 0 : random());
        std::fill_n(bad.begin() + static_cast<std::ptrdiff_t>(leaves + 4), 60, 'Z'); // no terminator
        WriteWhole(name, bad);
        ASSERT_TRUE(list.Open(name.c_str()));
        for (int i = 0; i < 400; ++i) list.FindWord(Number(i).c_str());
        for (const WCHAR* pattern : {u"*1", u"0*", u"00?2*", u"0001"}) Found(list, pattern);
        for (int i = 0; i < 300; ++i) list.AddWord((Number(i) + u"X").c_str(), 9);
        list.Close();
    }
}

TEST_F(WordListTest, TextIsPartedIntoWordsOfLettersAndDigits)
{
    for (CaseRow row : CaseRows(TEST_DATA "/words.tsv")) {
        CArray<StringW, const WCHAR*> words;
        const Text text = row.Units();
        CWordListFile::ConvertStringToWords(text.c_str(), words, row.Number());
        for (int i = 0; i < words.GetSize(); ++i) EXPECT_TRUE(words[i] == row.Units().c_str()) << row.Line();
        EXPECT_EQ(row.Word(), "") << row.Line();
    }
}
