#include "corekit/platform/CodePages.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Locale.h"
#include "tests/support/TabbedCases.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <thread>
#include <vector>

namespace {

std::u16string widen(UINT page, std::string_view text, DWORD flags = 0)
{
    const int length = static_cast<int>(text.size());
    const int needed = MultiByteToWideChar(page, flags, text.data(), length, nullptr, 0);
    std::u16string result(static_cast<std::size_t>(needed), u'\0');
    EXPECT_EQ(MultiByteToWideChar(page, flags, text.data(), length, result.data(), needed), needed);
    return result;
}

std::string narrow(UINT page, std::u16string_view text)
{
    const int length = static_cast<int>(text.size());
    const int needed = WideCharToMultiByte(page, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(needed), '\0');
    EXPECT_EQ(WideCharToMultiByte(page, 0, text.data(), length, result.data(), needed, nullptr, nullptr),
              needed);
    return result;
}

struct PageCase {
    UINT page;
    bool isFaulty;
    std::string bytes;
    std::u16string units;
};

std::vector<PageCase> pageCases()
{
    std::vector<PageCase> cases;
    for (const auto& fields : TabbedCases(TEST_DATA "/code_pages.tsv")) {
        const std::u16string bytes = FromHex(fields.at(2));
        cases.push_back({static_cast<UINT>(std::stoul(fields.at(0))), fields.at(1) == "faulty",
                         std::string(bytes.begin(), bytes.end()), FromHex(fields.at(3))});
    }
    EXPECT_GT(cases.size(), 40u);
    return cases;
}

TEST(CodePages, BothWaysGiveTheWrittenText)
{
    for (const PageCase& c : pageCases()) {
        SCOPED_TRACE(c.page);
        EXPECT_EQ(widen(c.page, c.bytes), c.units);
        if (!c.isFaulty) {
            EXPECT_EQ(narrow(c.page, c.units), c.bytes);
        }
    }
    // Two codes for one character: the converter's choice is the way back.
    EXPECT_EQ(widen(932, "\x87\x90\x81\xE0"), u"≒≒");
    EXPECT_EQ(narrow(932, u"≒"), "\x81\xE0");
}

TEST(CodePages, EverySingleByteThatHasACharacterComesBack)
{
    for (const UINT page :
         {1250u, 1251u, 1252u, 1253u, 1254u, 1255u, 1256u, 1257u, 1258u, 437u, 850u, 862u, 866u}) {
        for (unsigned byte = 0; byte < 256; ++byte) {
            const std::string text(1, static_cast<char>(byte));
            const std::u16string unit = widen(page, text);
            EXPECT_TRUE(unit == u"\uFFFD" || narrow(page, unit) == text) << page << ": " << byte;
        }
    }
}

std::vector<UINT> listed;

BOOL enlist(char* page)
{
    listed.push_back(static_cast<UINT>(std::atoi(page)));
    return listed.size() < 1000;
}

BOOL stopAtOnce(char*) { return listed.push_back(0), FALSE; }

TEST(CodePages, EveryPageListedConvertsAndNoOther)
{
    listed.clear();
    EXPECT_TRUE(EnumSystemCodePagesA(enlist, CP_INSTALLED));
    EXPECT_TRUE(std::ranges::is_sorted(listed));
    for (const UINT page : listed) EXPECT_EQ(widen(page, narrow(page, u"47")), u"47") << page;
    WCHAR unit;
    for (int page = 4; page < 70000; ++page) {
        const bool isListed = std::ranges::binary_search(listed, static_cast<UINT>(page));
        const bool converts = MultiByteToWideChar(static_cast<UINT>(page), 0, "\xC1", 1, &unit, 1) == 1;
        if (isListed != converts) ADD_FAILURE() << page;
    }
    EXPECT_TRUE(
        std::ranges::includes(listed, std::vector<UINT>{37, 437, 874, 932, 1256, 10004, 20269, 65001}));
    EXPECT_FALSE(std::ranges::binary_search(listed, 710u)); // no converter anywhere

    listed.clear();
    EXPECT_TRUE(EnumSystemCodePagesA(stopAtOnce, CP_SUPPORTED));
    EXPECT_EQ(listed.size(), 1u);
    EXPECT_FALSE(EnumSystemCodePagesA(enlist, 0));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_FLAGS);
    EXPECT_FALSE(EnumSystemCodePagesA(nullptr, CP_INSTALLED));
}

TEST(CodePages, LeadBytesAreListedAsRanges)
{
    CPINFO info;
    ASSERT_TRUE(GetCPInfo(932, &info));
    EXPECT_EQ(info.MaxCharSize, 2u);
    EXPECT_EQ(std::vector<BYTE>(info.LeadByte, info.LeadByte + 6),
              (std::vector<BYTE>{0x81, 0x9F, 0xE0, 0xFC, 0, 0}));
    ASSERT_TRUE(GetCPInfo(1256, &info));
    EXPECT_TRUE(info.MaxCharSize == 1 && info.LeadByte[0] == 0);
    EXPECT_FALSE(GetCPInfo(710, &info));
}

TEST(CodePages, TextThatStandsForNothingIsReplacedOrRefused)
{
    for (const PageCase& c : pageCases()) {
        if (!c.isFaulty) continue;
        const int length = static_cast<int>(c.bytes.size());
        EXPECT_EQ(MultiByteToWideChar(c.page, MB_ERR_INVALID_CHARS, c.bytes.data(), length, nullptr, 0), 0);
        EXPECT_EQ(GetLastError(), ERROR_NO_UNICODE_TRANSLATION);
    }
    EXPECT_EQ(narrow(1252, u"aشb"), "a?b");
    EXPECT_EQ(narrow(932, u"aشb"), "a?b");
    EXPECT_EQ(narrow(54936, u"a\xD800"), "a?");
    EXPECT_EQ(narrow(CP_UTF8, u"\xDC00z"), "\xEF\xBF\xBDz");
    char result[4];
    BOOL used = FALSE;
    EXPECT_EQ(WideCharToMultiByte(1252, 0, u"aش", 2, result, 4, "#", &used), 2);
    EXPECT_TRUE(used && result[1] == '#');
    EXPECT_EQ(WideCharToMultiByte(1252, 0, u"ae", 2, result, 4, nullptr, &used), 2);
    EXPECT_FALSE(used);
}

// Runs of every length before, between and after what is not plain, against one character at a time.
TEST(CodePages, Utf8OfAnyLengthIsThatOfItsCharacters)
{
    const std::u16string_view kinds[] = {u"a", u"é", u"ش", u"क", u"😀", u"\xD800", u"\xDC00", u"\uFFFF"};
    std::mt19937 random(3);
    for (int turn = 0; turn < 2000; ++turn) {
        std::u16string text, back;
        std::string bytes;
        for (unsigned runs = random() % 6; runs-- > 0;) {
            const std::u16string_view kind = kinds[random() % std::size(kinds)];
            const std::string one = narrow(CP_UTF8, kind);
            if (kind == u"\xDC00" && text.ends_with(u'\xD800')) text += u'-', back += u'-', bytes += '-';
            for (unsigned n = random() % 20; n-- > 0;) {
                text += kind;
                bytes += one;
                back += kind[0] >= 0xD800 && kind.size() == 1 && kind[0] < 0xE000 ? u"\uFFFD" : kind;
            }
        }
        if (text.empty()) continue;
        ASSERT_EQ(narrow(CP_UTF8, text), bytes);
        ASSERT_EQ(widen(CP_UTF8, bytes), back);
    }
}

// Much room is written to in whole windows, little goes in steps and single characters.
TEST(CodePages, MalformedUtf8IsTheSameWithMuchRoomAndWithLittle)
{
    const std::string_view pieces[] = {"a",        "\x7F",     "\x80",     "\xBF", "\xC1\x80",    "\xC2\x80",
                                       "\xDF\xBF", "\xE0\x9F", "\xE0\xA0", "\xBF", "\xED\x9F",    "\xED\xA0",
                                       "\xE2",     "\xF0\x90", "\xF4\x8F", "\xFF", "\xE4\xB8\xAD"};
    std::mt19937 random(5);
    for (int turn = 0; turn < 20000; ++turn) {
        std::string bytes;
        for (unsigned n = random() % 12 + 1; n-- > 0;)
            bytes += random() % 4 == 0 ? "\xD7\x90" : pieces[random() % std::size(pieces)];
        const int length = static_cast<int>(bytes.size());
        WCHAR much[200], little[200];
        const int units = MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, much, 200);
        ASSERT_EQ(MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, nullptr, 0), units);
        ASSERT_EQ(MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, little, units), units);
        ASSERT_EQ(std::u16string_view(much, static_cast<std::size_t>(units)),
                  std::u16string_view(little, static_cast<std::size_t>(units)));
    }
}

TEST(CodePages, ShortBufferFailsButKeepsWhatFits)
{
    WCHAR wide[4] = {u'x', u'x', u'x', u'x'};
    EXPECT_EQ(MultiByteToWideChar(1252, 0, "abc", -1, nullptr, 0), 4);
    EXPECT_EQ(MultiByteToWideChar(1252, 0, "abc", -1, wide, 2), 0);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(std::u16string_view(wide, 4), u"abxx");
    char bytes[4] = {'x', 'x', 'x', 'x'};
    EXPECT_EQ(WideCharToMultiByte(932, 0, u"a日本", 3, bytes, 4, nullptr, nullptr), 0);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(std::string_view(bytes, 4), "a\x93\xFAx"); // no half characters
    std::memset(bytes, 'x', 4);
    EXPECT_EQ(WideCharToMultiByte(1252, 0, u"abc", 3, bytes, 2, nullptr, nullptr), 0);
    EXPECT_EQ(std::string_view(bytes, 4), "abxx");
}

TEST(CodePages, WrongCallsAreRefused)
{
    WCHAR wide[4];
    BOOL used;
    EXPECT_EQ(MultiByteToWideChar(4711, 0, "a", 1, wide, 4), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(MultiByteToWideChar(1200, 0, "a", 1, wide, 4), 0);
    EXPECT_EQ(MultiByteToWideChar(1252, 0, "a", 0, wide, 4), 0);
    EXPECT_EQ(MultiByteToWideChar(1252, 0, nullptr, 1, wide, 4), 0);
    EXPECT_EQ(MultiByteToWideChar(1252, 0, "a", 1, wide, -1), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, MB_PRECOMPOSED, "a", 1, wide, 4), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_FLAGS);
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, u"a", 1, nullptr, 0, nullptr, &used), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

TEST(CodePages, RandomBytesNeverLeaveTheBuffer)
{
    std::mt19937 random(7);
    for (const UINT page : {1252u, 932u, 936u, 54936u, 50220u, 65000u, 65001u}) {
        for (int turn = 0; turn < 400; ++turn) {
            std::string text(random() % 40 + 1, '\0');
            for (char& c : text) c = static_cast<char>(random());
            const int length = static_cast<int>(text.size());
            const int needed = MultiByteToWideChar(page, 0, text.data(), length, nullptr, 0);
            std::vector<WCHAR> wide(static_cast<std::size_t>(needed));
            if (needed > 0) {
                ASSERT_EQ(MultiByteToWideChar(page, 0, text.data(), length, wide.data(), needed), needed);
                if (needed > 1) MultiByteToWideChar(page, 0, text.data(), length, wide.data(), needed - 1);
                WideCharToMultiByte(page, 0, wide.data(), needed, text.data(), length, nullptr, nullptr);
            }
        }
    }
}

TEST(CodePages, FirstUseFromManyThreadsMakesOnePage)
{
    std::atomic<int> right{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i)
        threads.emplace_back([&right, i] {
            WCHAR unit = 0;
            const bool isFirst = i % 2 == 0;
            MultiByteToWideChar(isFirst ? 1250 : 54936, 0, isFirst ? "\x8A" : "\xD6\xD0", isFirst ? 1 : 2,
                                &unit, 1);
            right += unit == (isFirst ? u'Š' : u'中');
        });
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(right, 8);
}

TEST(Locale, FactsFollowTheLanguage)
{
    char text[64];
    const std::pair<LCID, std::string> pages[] = {{0x0409, "1252"}, {0x0420, "1256"}, {0x0411, "932"},
                                                  {0x0801, "1256"}, {0x3C0A, "1252"}, {0x0404, "950"}};
    for (const auto& [locale, page] : pages) {
        EXPECT_EQ(GetLocaleInfoA(locale, LOCALE_IDEFAULTANSICODEPAGE, text, sizeof text),
                  static_cast<int>(page.size()) + 1);
        EXPECT_EQ(text, page);
    }
    LOCALESIGNATURE signature;
    char* const bytes = reinterpret_cast<char*>(&signature);
    EXPECT_EQ(GetLocaleInfoA(0x0401, LOCALE_FONTSIGNATURE, bytes, sizeof signature), 32);
    EXPECT_EQ(signature.lsUsb[0], 1u << 13 | 3u);
    EXPECT_EQ(signature.lsUsb[1], 1u << 31);
    EXPECT_EQ(signature.lsUsb[2], 1u << 3);
    EXPECT_EQ(signature.lsCsbDefault[0], 1u << 6);
    EXPECT_EQ(GetLocaleInfoA(0x0401, LOCALE_FONTSIGNATURE, bytes, 31), 0);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(GetLocaleInfoA(0x03FE, LOCALE_FONTSIGNATURE, bytes, 32), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

} // namespace
