#include "corekit/platform/CodePages.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Locale.h"

#include <atomic>
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
    std::string_view bytes;
    std::u16string_view units;
};

TEST(CodePages, BothWaysGiveTheWrittenText)
{
    const PageCase cases[] = {
        {1252, "caf\xE9 \x80 \x81", u"café € \u0081"},
        {1256, "\xD3\xE1\xC7\xE3 12", u"سلام 12"},
        {1251, "\xCF\xF0\xE8\xE2\xE5\xF2", u"Привет"},
        {1255, "\xF9\xEC\xE5\xED", u"שלום"},
        {932, "\x93\xFA\x96{ \xB1\\~", u"日本 ｱ\\~"},
        {936, "\xD6\xD0", u"中"},
        {949, "\xC7\xD1", u"한"},
        {950, "\xA4\xA4", u"中"},
        {874, "\xCA\xC7", u"สว"},
        {437, "\x1A\x1C\x7F\x80", u"\u001A\u001C\u007FÇ"},
        {28591, "\xE9\xFF", u"éÿ"},
        {54936, "\x81\x30\x81\x30", u"\u0080"},
        {CP_UTF8, "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", u"aé€😀"},
        {CP_UTF7, "A+4jw-", u"A\uE23C"},
    };
    for (const PageCase& c : cases) {
        SCOPED_TRACE(c.page);
        EXPECT_EQ(widen(c.page, c.bytes), c.units);
        EXPECT_EQ(narrow(c.page, c.units), c.bytes);
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

TEST(CodePages, TextThatStandsForNothingIsReplacedOrRefused)
{
    const PageCase cases[] = {
        {932, "\x93", u"\uFFFD"},                 // cut short
        {932, "\x93!a", u"\uFFFD!a"},             // ASCII behind a lead byte survives
        {1255, "\xFFz", u"\uFFFDz"},              // a hole
        {CP_UTF8, "\xC0\x80z", u"\uFFFD\uFFFDz"}, // overlong
        {CP_UTF8, "\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
        {CP_UTF8, "\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {CP_UTF8, "\xE2\x82z", u"\uFFFDz"},
        {CP_UTF8, "\xE2", u"\uFFFD"},
        {54936, "\x81", u"\uFFFD"},
    };
    for (const PageCase& c : cases) {
        EXPECT_EQ(widen(c.page, c.bytes), c.units) << c.page;
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
