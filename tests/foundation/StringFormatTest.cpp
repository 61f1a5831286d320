#include "corekit/foundation/StringA.h"
#include "corekit/foundation/StringW.h"

#include <gtest/gtest.h>
#include <string>

namespace {

template <class... Args>
StringA Narrow(const char* format, Args... args)
{
    StringA text;
    text.Format(format, args...);
    return text;
}

template <class... Args>
StringW Wide(const WCHAR* format, Args... args)
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

// The room is told by rule, also where it is generous.
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
