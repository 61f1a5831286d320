#include "corekit/foundation/StringA.h"
#include "corekit/foundation/StringW.h"
#include "corekit/foundation/SystemHelpers.h"

#include <gtest/gtest.h>
#include <string>

namespace {

template <class... Args>
StringA Narrow(const char* format, const Args&... args)
{
    StringA text;
    text.Format(format, args...);
    return text;
}

template <class... Args>
StringW Wide(const WCHAR* format, const Args&... args)
{
    StringW text;
    text.Format(format, args...);
    return text;
}

void ExpectText(const StringA& got, const char* want, int room = -1)
{
    EXPECT_STREQ(got, want);
    EXPECT_EQ(got.GetLength(), int(std::strlen(want)));
    if (room >= 0) {
        EXPECT_EQ(got.GetAllocLength(), room) << want;
    }
}

void ExpectText(const StringW& got, const WCHAR* want, int room = -1)
{
    const std::u16string_view text(got.operator const WCHAR*(), std::size_t(got.GetLength()));
    EXPECT_TRUE(text == want) << std::string(text.begin(), text.end());
    if (room >= 0) {
        EXPECT_EQ(got.GetAllocLength(), room);
    }
}

// The room follows from the format alone, also where that is generous.
TEST(StringFormat, RoomFollowsTheTable)
{
    ExpectText(Narrow("abc"), "abc", 3 + 2 + 1);
    ExpectText(Narrow("%%x"), "%x", 2 + 1);
    ExpectText(Narrow("%d", -5), "-5", 32);
    ExpectText(Narrow("%40d", 7), "                                       7", 40);
    ExpectText(Narrow("%#x%#o", 255, 8), "0xff010", 2 + 32 + 2 + 32);
    ExpectText(Narrow("%.20d", 7), "00000000000000000007", 32);
    ExpectText(Narrow("%*d|", 3, 5), "  5|", 32 + 1);
    ExpectText(Narrow("%.2f", 1.005), "1.00", 128);
    ExpectText(Narrow("%c%c", 'a', 'b'), "ab", 4);
    ExpectText(Narrow("%s", "hello"), "hello", 5);
    ExpectText(Narrow("%8s", "abc"), "     abc", 8);
    ExpectText(Narrow("%-5s|", "abc"), "abc  |", 5 + 1);
    ExpectText(Narrow("%.2s", "abc"), "ab", 2);
    ExpectText(Narrow("%hd", 65537), "1", 32);
    ExpectText(Narrow("%ld", 1L << 40), "1099511627776", 32);
    ExpectText(Narrow("%.*d", -20, 7), "7", 32);
    ExpectText(Narrow("%*.*d%d", 34, -1, 7, 8), "                                 78", 33 + 32);
    ExpectText(Narrow("%.*s%d", -2, "abc", 5), "abc5", -2 + 32);
    ExpectText(Wide(u"%s", u"\x0628x"), u"\x0628x", 2);
    ExpectText(Wide(u"%hs/%d", "ab", 1), u"ab/1", 2 + 3 + 32);
}

// The runtime writes five characters where the rule reserves two.
TEST(StringFormat, ThatNeedsMoreThanItsRoomGrows)
{
    ExpectText(Narrow("%5.2s", "abc"), "   ab");
    ExpectText(Narrow("%s", static_cast<const char*>(nullptr)), "(null)");
    ExpectText(Narrow("%hs", static_cast<const char*>(nullptr)), "(null)");
    ExpectText(Wide(u"%s", static_cast<const WCHAR*>(nullptr)), u"(null)");
    ExpectText(Narrow("%E", 1.5), "1.500000E+00");
    ExpectText(Narrow("%*s", -5, "ab"), "ab   ");
    ExpectText(Narrow("%.0f", 1e300), std::to_string(1e300).substr(0, 301).c_str());
    EXPECT_EQ(Narrow("%f", 1e300).GetLength(), 308);
    ExpectText(Narrow("%lld %I64d %zu", 1LL << 40, -(1LL << 40), std::size_t(3)),
               "1099511627776 -1099511627776 3");
    ExpectText(Narrow("%hhd %hhu", 255, 257), "-1 1");
    ExpectText(Narrow("%.3Lf", 2.5L), "2.500");
}

TEST(StringFormat, TextOfTheOtherWidthIsConverted)
{
    ExpectText(Narrow("%S %ls %hs %s", u"wide", u"wider", "n", "m"), "wide wider n m");
    ExpectText(Narrow("%C%lc%hc%c", u'a', u'b', 'c', 'd'), "abcd");
    ExpectText(Narrow("%.2S|%6.3ls", u"abcdef", u"xyzw"), "ab|   xyz");
    ExpectText(Wide(u"%s %S %ls %hs", u"a", u"b", u"c", "d"), u"a b c d");
    ExpectText(Wide(u"%c%C%lc%hc", u'\x0628', u'\x0629', u'c', 'd'), u"\x0628\x0629"
                                                                     u"cd");
    ExpectText(Wide(u"%-4s|%4hs|%+d|% d|%05d|%x", u"ab", "cd", 1, 2, 3, 255), u"ab  |  cd|+1| 2|00003|ff");
}

TEST(StringFormat, StringObjectsStandForTheirText)
{
    const StringA a("narrow");
    const StringW w(u"wide");
    const CString c("framework");
    ExpectText(Narrow("%s|%s|%8.2s|%hs", a, c, a, c), "narrow|framework|      na|framework");
    ExpectText(Narrow("%s|%ls|%S", w, w, w), "wide|wide|wide");
    ExpectText(Wide(u"%s|%s|%hs|%s", w, a, a, c), u"wide|narrow|narrow|framework");
    EXPECT_STREQ(scFormatString("%s %s %s", a, w, c), "narrow wide framework");
    ExpectText(scFormatStringA("%s", c), "framework");
    ExpectText(scFormatStringW(u"%s", a), u"narrow");
    StringA own("text");
    own.Format("%s-%s", own, own);
    ExpectText(own, "text-text");
    CString message("one");
    message.FormatMessage("%2 %1 %3!d!", message, w, 7L);
    EXPECT_STREQ(message, "wide one 7");
    static_assert(!corekit::detail::Formattable<std::string> && !corekit::detail::Formattable<POINT>);
}

template <class... Args>
void ExpectInAllClasses(const char* text, const char* format, const Args&... args)
{
    const std::string wide(format), expected(text);
    EXPECT_STREQ(scFormatString(format, args...), text) << format;
    ExpectText(Narrow(format, args...), text);
    ExpectText(Wide(std::u16string(wide.begin(), wide.end()).c_str(), args...),
               std::u16string(expected.begin(), expected.end()).c_str());
}

TEST(StringFormat, EveryArgumentCountsByItsOwnType)
{
    enum class Named : BYTE { value = 200 };
    const auto all = [](const char* text, const char* format, const auto&... args) {
        ExpectInAllClasses(text, format, args...);
    };
    all("-1 4294967295", "%ld %lu", LONG{-1}, DWORD{0xFFFFFFFF});
    all("1099511627776 -1099511627776 18446744073709551615", "%ld %d %u", 1L << 40, -(1L << 40), ~0UL);
    all("4294967295 fffffffe 4294967293", "%lu %lx %u", LONG{-1}, -2, -3);
    all("-1 -2147483648", "%d %i", 0xFFFFFFFFu, 0x80000000u);
    all("-5 4294967295 ffffffffffffffff", "%I64d %lld %llx", -5, 0xFFFFFFFFu, -1);
    all("200 4294967295 ffffffff", "%d %u %x", BYTE{200}, static_cast<signed char>(-1), SHORT{-1});
    all("1 200 x", "%d %d %c", true, Named::value, u'x');
    all("-32768 65535 -128 255", "%hd %hu %hhd %hhu", 0x18000, -1, 0x180, -1L);
    all("1.5 3 2.5 2 1.00e+03", "%.1f %g %Lg %d %.2e", 1.5f, 3, 2.5, 2.9, 1000L);
    all("42 -1 0 (null)", "%s %s %d %s", 42u, -1, nullptr, nullptr);
    all("   1|2  |3  |04", "%*d|%-*d|%*d|%.*d", 4L, 1, BYTE{3}, 2, -3, 3, 2ULL, 4);
    all("0 (null) 0.000000", "%d %s %f");
}

// Integers are written as the C library writes them.
TEST(StringFormat, IntegersAreWrittenAsTheRuntimeWritesThem)
{
    for (const char* flags : {"", "-", "+", " ", "0", "#", "-0", "+0", "#0", "-#", "+-#0"})
        for (const char* size : {"", "1", "7", ".0", ".1", ".5", "9.3", "3.9", "09.3"})
            for (const char letter : std::string("diuoxX"))
                for (const int value : {0, 1, -1, 8, 255, -70000, INT_MIN}) {
                    const std::string format = std::string("<%") + flags + size + letter + ">";
                    char expected[64];
                    std::snprintf(expected, sizeof expected, format.c_str(), value);
                    ASSERT_STREQ(Narrow(format.c_str(), value), expected) << format;
                }
}

TEST(StringFormat, ArgumentsStayInStepBehindEveryConversion)
{
    int untouched = 77;
    ExpectText(Narrow("%E %s %Lg %s %I64u %s %n%s", 1.0, "a", 2.0L, "b", 3ULL, "c", &untouched, "d"),
               "1.000000E+00 a 2 b 3 c d");
    EXPECT_EQ(untouched, 77);
    ExpectText(Narrow("%*.*d|%s", 6, 3, 5, "end"), "   005|end");
    ExpectText(Narrow("%p", static_cast<void*>(nullptr)).Left(1),
               Narrow("%p", static_cast<void*>(nullptr)).Left(1));
    ExpectText(Narrow("%Fs%Nd", "far", 4), "far4");
}

TEST(StringFormat, WhatIsNoConversionIsWrittenAsItStands)
{
    ExpectText(Narrow("100%"), "100%");
    ExpectText(Narrow("%y %s", "x"), "%y x");
    ExpectText(Narrow("50% 7", 1), "50% 7");
    ExpectText(Wide(u"%\x0628", 1), u"%\x0628");
}

TEST(StringFormat, UnterminatedTextIsReadNoFartherThanItsPrecision)
{
    const auto exact = std::make_unique<char[]>(3);
    std::memcpy(exact.get(), "abc", 3);
    ExpectText(Narrow("%.3s", exact.get()), "abc", 3);
    ExpectText(Wide(u"%.*hs", 2, exact.get()), u"ab");
}

TEST(StringFormat, OwnTextAsArgumentOrFormat)
{
    StringA text("ab");
    text.Format("%s-%s", text.operator const char*(), text.operator const char*());
    ExpectText(text, "ab-ab");
    text = "%d";
    text.Format(text.operator const char*(), 12);
    ExpectText(text, "12");
    StringW wide(u"x");
    wide.GetBuffer(100);
    wide.Format(u"%s%s%s", wide.operator const WCHAR*(), u"y", wide.operator const WCHAR*());
    ExpectText(wide, u"xyx");
}

TEST(StringFormat, EmptyFormatEmptiesInPlace)
{
    StringW text(u"abc");
    text.Format(u"");
    ExpectText(text, u"", 3);
    StringW empty;
    empty.Format(u"");
    EXPECT_EQ(empty.GetData(), StringW().GetData());
}

TEST(StringFormat, ZeroCharacterEndsTheText) { ExpectText(Narrow("a%cb", 0), "a", 4 - 1 + 1 + 2 + 1); }

// The square of the length would be five thousand million characters.
TEST(StringFormat, LongFormatTakesMemoryInProportion)
{
    const std::string format = std::string(100'000, 'x') + "%d";
    const StringA text = Narrow(format.c_str(), 5);
    EXPECT_EQ(text.GetLength(), 100'001);
    EXPECT_LE(text.GetAllocLength(), 1'100'000);
    const std::string longer(3'000'000, 'y');
    EXPECT_EQ(Narrow(longer.c_str()).GetLength(), 3'000'000);
}

TEST(StringFormat, WidthBeyondAllMemoryIsRefused)
{
    StringA text("kept");
    EXPECT_THROW(text.Format("%2000000000d%2000000000d", 1, 2), std::bad_alloc);
    EXPECT_STREQ(text, "kept");
}

} // namespace
