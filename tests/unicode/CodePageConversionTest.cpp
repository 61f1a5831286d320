#include "corekit/unicode/codepages/CodePageConversion.h"

#include "corekit/framework/Exception.h"
#include "corekit/platform/CodePages.h"
#include "corekit/unicode/codepages/CodePageNames.h"
#include "tests/support/CaseRows.h"
#include "tests/support/Thrown.h"

#include <gtest/gtest.h>
#include <string>

namespace {

std::u16string Read(int page, std::string_view bytes)
{
    StringW text(u"before");
    AnsiToUnicode(page, text, bytes.data(), static_cast<int>(bytes.size()));
    return {text, static_cast<std::size_t>(text.GetLength())};
}

std::string Write(int page, std::u16string_view units)
{
    StringA text("before");
    UnicodeToAnsi(page, text, units.data(), static_cast<int>(units.size()));
    return {text, static_cast<std::size_t>(text.GetLength())};
}

TEST(CodePageConversion, PagesOfTheMachineConvertBothWays)
{
    EXPECT_EQ(Read(1252, "caf\xE9"), u"café");
    EXPECT_EQ(Write(932, u"日本"), "\x93\xFA\x96{");
    EXPECT_EQ(Write(CP_UTF8, u"😀"), "\xF0\x9F\x98\x80");
    EXPECT_EQ(Read(1256, std::string(5000, '\xC7')), std::u16string(5000, u'ا'));
    EXPECT_EQ(Write(1256, std::u16string(5000, u'ا')), std::string(5000, '\xC7'));
    EXPECT_EQ(Write(1252, std::u16string_view(u"a\0b", 3)), std::string("a\0b", 3));
    // Nothing is lost where a character takes more bytes than is common.
    EXPECT_EQ(Write(50220, u"日"), "\x1B$BF|\x1B(B");
    EXPECT_EQ(Write(CP_UTF7, std::u16string(200, u'é')).size(), 536u);
    for (const int page : {0xFFFF, 710, -5, 1200}) {
        EXPECT_EQ(Read(page, "x"), u"") << page;
        EXPECT_EQ(Write(page, u"x"), "") << page;
    }
    EXPECT_EQ(Read(1252, ""), u"");
}

TEST(CodePageConversion, NegativeLengthEndsAtTheTerminator)
{
    StringW wide;
    StringA narrow;
    AnsiToUnicode(1252, wide, "ab\0c", -1);
    UnicodeToAnsi(1252, narrow, u"ab\0c", -7);
    EXPECT_EQ(wide.GetLength() * 10 + narrow.GetLength(), 22);
    AnsiToUnicode(CP_ISCII89, wide, "\x92\0c", -1);
    UnicodeToUTF8(u"é\0c", -1, narrow);
    EXPECT_EQ(wide.GetLength() * 10 + narrow.GetLength(), 12);
    EXPECT_TRUE(UTF8toUnicode("abc\0\xFF", -1, wide));
    EXPECT_EQ(wide.GetLength(), 3);
    EXPECT_TRUE(UTF8toUnicode("", 0, wide));
    EXPECT_TRUE(wide.IsEmpty());
}

TEST(CodePageConversion, DevanagariBytesAreReadAndNeverWritten)
{
    EXPECT_EQ(Read(CP_ISCII89, "A\x7F\x92\x89\xB0\xB1\xEF\xFB\xFF"),
              u"A\u007F\u0915\u0089\u092C\u00B1\u090B\u0964\u00FF");
    EXPECT_EQ(Write(CP_ISCII89, u"क"), "before");
}

TEST(CodePageConversion, OtherNumbersThrow)
{
    for (const int page : {0x10000, 0x10003, 0x7FFFFFFF}) {
        for (const bool reads : {true, false}) {
            EXPECT_EQ(ThrownClass([&] { reads ? void(Read(page, "x")) : void(Write(page, u"x")); }),
                      RUNTIME_CLASS(CNotSupportedException))
                << page;
        }
    }
}

TEST(CodePageConversion, OwnUtf8ReadsUpToTheFirstFault)
{
    struct Utf8Case {
        std::string bytes;
        bool isWhole;
        std::u16string units;
    };
    std::vector<Utf8Case> cases;
    for (CaseRow row : CaseRows(TEST_DATA "/own_utf8.tsv"))
        cases.push_back({row.Bytes(), row.Number() != 0, row.Units()});
    // At the end of the text, and before and behind runs as long as the fast steps take.
    for (const std::size_t before : {0, 7, 8, 15, 300})
        for (const std::size_t after : {0, 1, 15, 16, 300})
            for (const Utf8Case& c : cases) {
                const bool isCut = !c.isWhole && after > 0;
                const std::string bytes = std::string(before, 'b') + c.bytes + std::string(after, 'a');
                const std::u16string units = std::u16string(before, u'b') + c.units +
                                             (isCut || !c.isWhole ? u"" : std::u16string(after, u'a'));
                StringW text;
                EXPECT_EQ(UTF8toUnicode(bytes.data(), static_cast<int>(bytes.size()), text), c.isWhole);
                EXPECT_EQ(std::u16string(text, static_cast<std::size_t>(text.GetLength())), units)
                    << before << " " << after << " " << &c - cases.data();
            }
}

TEST(CodePageConversion, OwnUtf8WritesAndReadsEveryUnit)
{
    EXPECT_EQ(Write(CP_OWN_UTF8, u"Aé€\xD800"), "A\xC3\xA9\xE2\x82\xAC\xED\xA0\x80");
    std::u16string all;
    for (unsigned unit = 0; unit < 0x10000; ++unit) all += static_cast<WCHAR>(unit);
    for (const std::size_t from : {0x0, 0x79, 0x7F, 0x7F9, 0xD7F0, 0xFFF0})
        for (const std::size_t count : {1, 5, 8, 17, 256, 257, 0x10000}) {
            const std::u16string units = all.substr(from, count);
            EXPECT_EQ(Read(CP_OWN_UTF8, Write(CP_OWN_UTF8, units)), units) << from << " " << count;
        }
}

TEST(CodePageNames, EveryPageHasItsName)
{
    for (CaseRow row : CaseRows(TEST_DATA "/code_page_names.tsv", "name")) {
        const UINT page = row.Number<UINT>();
        EXPECT_STREQ(GetCodePageName(page), row.Word().c_str()) << row.Line();
    }
    EXPECT_EQ(cconvGetCPCount(), 2);
    EXPECT_EQ(cconvGetCodePage(0), 0x10001);
    EXPECT_EQ(cconvGetCodePage(1), 0x10002);
    EXPECT_STREQ(cconvGetCPName(0), "ISCII-89 (Indian Scripts)");
    EXPECT_STREQ(cconvGetCPName(1), "UTF-8 (UCS Translation Format - 8)");
    EXPECT_STREQ(cconvGetCPName(2), "");
    EXPECT_EQ(cconvGetCodePage(-1), 0);
}

TEST(CodePageNames, CharacterSetsHaveTheirPages)
{
    for (CaseRow row : CaseRows(TEST_DATA "/code_page_names.tsv", "charset")) {
        const UINT charSet = row.Number<UINT>();
        EXPECT_EQ(ConvertCharSetToCodePage(charSet), row.Number<UINT>()) << row.Line();
    }
    EXPECT_EQ(ConvertCharSetToCodePage(1), GetACP());
    EXPECT_EQ(ConvertCharSetToCodePage(131), GetACP());
}

} // namespace
