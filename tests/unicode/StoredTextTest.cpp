#include "corekit/unicode/storage/StoredText.h"
#include "corekit/platform/Normalization.h"

#include "tests/support/CaseRows.h"
#include "tests/support/TabbedCases.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace {

constexpr LANGID persian = 0x0429, urdu = 0x0420, arabic = 0x0401;

std::u16string Stored(const std::u16string& text)
{
    const StoredText stored = ToStoredText(text.data(), static_cast<int>(text.size()));
    return {static_cast<const WCHAR*>(stored), static_cast<std::size_t>(stored.GetLength())};
}

std::u16string Plain(const std::u16string& text, LANGID language)
{
    const StringW plain = ToPlainText(text.data(), static_cast<int>(text.size()), language);
    return {static_cast<const WCHAR*>(plain), static_cast<std::size_t>(plain.GetLength())};
}

std::u16string Composed(const std::u16string& text)
{
    std::u16string out(text.size() * 3 + 1, u'\0');
    out.resize(
        static_cast<std::size_t>(NormalizeString(NormalizationC, text.data(), static_cast<int>(text.size()),
                                                 out.data(), static_cast<int>(out.size()))));
    return out;
}

std::string Hex(const std::u16string& text)
{
    std::ostringstream out;
    for (const char16_t c : text) out << std::hex << std::uppercase << static_cast<unsigned>(c) << ' ';
    return out.str();
}

TEST(StoredText, EachSpellingIsStoredAndReadBackOnce)
{
    const std::map<std::string, LANGID> languages = {
        {"fa", persian}, {"ur", urdu},   {"ar", arabic}, {"he", 0x040D}, {"hi", 0x0439},
        {"bn", 0x0445},  {"as", 0x044D}, {"mr", 0x044E}, {"ta", 0x0449}, {"-", 0}};
    const auto cases = TabbedCases(TEST_DATA "/stored_text.tsv");
    ASSERT_GT(cases.size(), 30u);
    for (const auto& fields : cases) {
        const std::u16string plain = FromHex(fields.at(1)), stored = FromHex(fields.at(2));
        EXPECT_EQ(Hex(Stored(plain)), Hex(stored)) << fields[1];
        EXPECT_EQ(Hex(Stored(stored)), Hex(stored)) << fields[1];
        EXPECT_EQ(Hex(Plain(stored, languages.at(fields[0]))), Hex(plain)) << fields[1];
    }
}

TEST(StoredText, TheLanguageIsSeenFromTheLettersWhereNobodySaysIt)
{
    for (CaseRow row : CaseRows(TEST_DATA "/typed_text.tsv", "guessed")) {
        const std::u16string plain = row.Units();
        EXPECT_EQ(Hex(Plain(Stored(plain), 0)), Hex(row.Units())) << row.Line();
    }
}

// What keyboards type goes out as others spell it.
TEST(StoredText, TypedCodesBecomePlainSpellings)
{
    for (CaseRow row : CaseRows(TEST_DATA "/typed_text.tsv", "typed")) {
        const std::u16string typed = row.Units();
        EXPECT_EQ(Hex(Plain(typed, 0)), Hex(row.Units())) << row.Line();
    }
}

// Codes that stand for something else here, and so cannot come back.
bool IsTaken(char16_t c)
{
    static const std::u16string taken =
        u"\u06C0\u097C\u097D\u097E\u097F\u09A9\u0980\u0984\u098D\u098E\u09B1\u09D1\u09D2"
        u"\u09D3\u09D4\u09D5\u09F4\u09F7\u09FA\u09FC\u09FD\u09FE\u09FF\u05BE\u2010";
    return taken.find(c) != taken.npos;
}

std::u16string RandomText(std::mt19937& random, char16_t first, char16_t last, std::u16string_view often)
{
    constexpr char16_t extra[] = {u' ', u'-', u'1', u'A', u'\u200C', u'\n'};
    std::u16string text;
    for (int length = static_cast<int>(random() % 24); length > 0; --length) {
        const char16_t c = random() % 6 == 0 ? extra[random() % std::size(extra)]
                                             : static_cast<char16_t>(first + random() % (last - first + 1u));
        if (!often.empty() && random() % 3 != 0)
            text += often[random() % often.size()];
        else if (!IsTaken(c))
            text += c;
    }
    return text;
}

TEST(StoredText, AnyTextOfAnyScriptComesBackComposed)
{
    const struct {
        char16_t first, last;
        LANGID language;
        const char16_t* absent;      // letters that texts of the language do not have
        const char16_t* often = u""; // what clusters are made of
    } blocks[] = {
        {0x0000, 0x02FF, 0, u""},
        {0x0590, 0x05FF, 0x040D, u""},
        {0x0600, 0x06FF, arabic, u"\u06CC\u06C2\u06C3"},
        {0x0600, 0x06FF, persian, u"\u064A\u0649\u06C2\u06C3"},
        {0x0600, 0x06FF, urdu, u"\u064A\u0649\u0629"},
        {0x0900, 0x097F, 0x0439, u"", u"\u094D\u094D\u0930\u0926\u0938\u092F\u0924\u200D\u093F\u0902"},
        {0x0980, 0x09FF, 0x0445, u"", u"\u09CD\u09CD\u09B0\u09A4\u09AF\u09B8\u09F0\u200D\u09C7\u0981"},
        {0x0B80, 0x0BFF, 0x0449, u""},
        {0x2000, 0x206F, 0, u"\u200D"},
        {0xD7F0, 0xE010, 0, u""},
    };
    std::mt19937 random(20261122);
    for (const auto& block : blocks) {
        for (int i = 0; i < 4000; ++i) {
            std::u16string text = RandomText(random, block.first, block.last, block.often);
            std::erase_if(text, [&](char16_t c) {
                return std::u16string_view(block.absent).find(c) != std::u16string_view::npos;
            });
            const std::u16string composed = Composed(text), stored = Stored(text);
            // Spellings of one letter that are no canonical forms of each other; see the page of rules.
            if (composed.find(u"\u0647\u0654") != composed.npos || composed.find(u"\u06C0") != composed.npos)
                continue;
            if (composed.find_first_of(block.absent) != composed.npos) continue;
            if (composed.find(u"\u06CC") != composed.npos && composed.find(u"\u0654") != composed.npos)
                continue;
            ASSERT_EQ(Hex(Plain(stored, block.language)), Hex(composed))
                << Hex(text) << "stored " << Hex(stored);
            ASSERT_EQ(Hex(Stored(stored)), Hex(stored)) << Hex(text);
        }
    }
}

TEST(StoredText, LongTextsTakeTimeInProportion)
{
    const std::u16string marks(1000000, u'\u064E'), lams(1000000, u'\u0644'), signs(1000000, u'\u09C7');
    EXPECT_EQ(Stored(lams).size(), lams.size());
    EXPECT_EQ(Plain(signs, 0).size(), signs.size());
    EXPECT_EQ(Stored(u"\u0644" + marks + u"\u06CC").size(), marks.size() + 2);
    EXPECT_EQ(Stored(std::u16string(1000000, u'\u0654')).size(), 1000000u);
}

} // namespace
