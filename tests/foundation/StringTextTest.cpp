#include "corekit/foundation/StringA.h"
#include "corekit/foundation/StringW.h"
#include "corekit/foundation/TextConversion.h"
#include "corekit/platform/Variant.h"

#include <gtest/gtest.h>
#include <string>

namespace {

std::u16string Units(const StringW& text)
{
    return {text.operator const WCHAR*(), std::size_t(text.GetLength())};
}
std::string Bytes(const StringA& text)
{
    return {text.operator const char*(), std::size_t(text.GetLength())};
}

// Of length n, with a unit that differs, or ends the text, at every place in turn.
TEST(StringText, WideComparisonStopsAtTheFirstDifferenceOrZeroWhereverItIs)
{
    for (int n = 1; n < 40; ++n) {
        const std::u16string base(std::size_t(n), u'm');
        const StringW a(base.data(), n);
        EXPECT_TRUE(a == StringW(base.data(), n));
        EXPECT_TRUE(a == base.c_str());
        EXPECT_TRUE(a > StringW(base.data(), n - 1));
        for (int at = 0; at < n; ++at) {
            std::u16string other = base;
            other[std::size_t(at)] = u'\x8000';
            const StringW b(other.data(), n);
            EXPECT_EQ(a.Compare(b), -1);
            EXPECT_EQ(b.Compare(a), 1);
            EXPECT_TRUE(a < b && b > a && a != b && a <= b && !(a >= b) && a.operator const WCHAR*() < b);

            // What lies behind a zero does not count, neither do the lengths.
            std::u16string left = base, right = base + u"tail";
            left[std::size_t(at)] = right[std::size_t(at)] = 0;
            right.back() = u'?';
            const StringW c(left.data(), n), d(right.data(), n + 4);
            EXPECT_TRUE(c == d);
            EXPECT_EQ(c.Compare(d), 0);
            EXPECT_EQ(c == a, false);
        }
    }
}

TEST(StringText, NarrowComparisonIsUnsignedAndStopsAtZero)
{
    EXPECT_EQ(StringA("a").Compare("\xE9"), -1);
    EXPECT_EQ(StringA("\xE9").Compare("a"), 1);
    EXPECT_TRUE(StringA("a\0b", 3) == StringA("a\0cde", 5));
    EXPECT_TRUE("a" < StringA("b") && StringA("b") >= "b" && "x" != StringA("y"));
    EXPECT_EQ(StringA("Grid").CompareNoCase("gRID"), 0);
    EXPECT_LT(StringW(u"GRID").CompareNoCase(u"gris"), 0);
    EXPECT_GT(StringW(u"b").Collate(u"a"), 0);
}

TEST(StringText, WideFindAgreesWithAPlainSearchAtEveryPlace)
{
    std::u16string text;
    for (int i = 0; i < 90; ++i) text += u"abcab"[i * i % 5];
    const StringW wide(text.data(), int(text.size()));
    for (std::size_t m = 1; m < 20; ++m) {
        for (std::size_t at = 0; at + m <= text.size(); at += 3) {
            const std::u16string what = text.substr(at, m);
            for (const std::size_t start : {std::size_t(0), std::size_t(1), at, text.size()}) {
                const auto found = text.find(what, start);
                EXPECT_EQ(wide.Find(what.c_str(), int(start)), found == text.npos ? -1 : int(found));
                const auto unit = text.find(what[0], start);
                EXPECT_EQ(wide.Find(what[0], int(start)), unit == text.npos ? -1 : int(unit));
            }
        }
    }
    EXPECT_EQ(wide.Find(u"abcx"), -1);
    EXPECT_EQ(wide.Find(u"", 5), 5);
    EXPECT_EQ(wide.Find(static_cast<const WCHAR*>(nullptr)), -1);
}

TEST(StringText, SearchesEndAtTheFirstZero)
{
    const StringW wide(u"ab\0cdefghijklmnopqrstuvw", 24);
    EXPECT_EQ(wide.Find(u'p'), -1);
    EXPECT_EQ(wide.Find(u"op"), -1);
    EXPECT_EQ(wide.Find(u"op", 3), 15);
    EXPECT_EQ(wide.Find(u'\0'), 2);
    EXPECT_EQ(wide.ReverseFind(u'w'), -1);
    const StringA narrow("ab\0cd", 5);
    EXPECT_EQ(narrow.Find('c'), -1);
    EXPECT_EQ(narrow.Find("cd"), -1);
    EXPECT_EQ(narrow.ReverseFind('\0'), 2);
}

TEST(StringText, ReverseFindLooksForTheLowByteOnly)
{
    const StringW text(u"xaya\x0641z");
    EXPECT_EQ(text.ReverseFind(u'\x0161'), 3);
    EXPECT_EQ(StringW(u"\x0641").ReverseFind(u'\x0641'), -1);
    EXPECT_EQ(StringW(u"A\x0641").ReverseFind(u'\x0641'), 0);
    EXPECT_EQ(StringA("\xE9x\xE9").ReverseFind('\xE9'), 2);
    EXPECT_EQ(text.Find(u'\x0641'), 4);
}

TEST(StringText, NoSetIsASetOfNothing)
{
    EXPECT_EQ(Bytes(StringA("abc").SpanIncluding(nullptr)), "");
    EXPECT_EQ(Units(StringW(u"  ab").SpanExcluding(nullptr)), u"  ab");
}

TEST(StringText, TrimsKeepTheBuffer)
{
    StringW wide(u" \t\r\nab c \n");
    wide.TrimRight();
    wide.TrimLeft();
    EXPECT_EQ(Units(wide), u"ab c");
    EXPECT_EQ(wide.GetAllocLength(), 10);
    StringA narrow(" \xE9 ");
    narrow.TrimLeft();
    narrow.TrimRight();
    EXPECT_EQ(Bytes(narrow), "\xE9");
    StringA blank("   ");
    const StringA sharer(blank);
    blank.TrimRight();
    EXPECT_TRUE(blank.IsEmpty());
    EXPECT_EQ(Bytes(sharer), "   ");
    blank.TrimLeft();
    EXPECT_TRUE(blank.IsEmpty());
}

TEST(StringText, ReplacingOfUnitsCountsThemAndLeavesSharersAlone)
{
    const StringW source(u"Ab1");
    StringW replaced(source);
    EXPECT_EQ(replaced.Replace(u'A', u'A'), 0);
    EXPECT_EQ(replaced.GetData(), source.GetData());
    EXPECT_EQ(replaced.Replace(u'b', u'1'), 1);
    EXPECT_EQ(replaced.Replace(u'1', u'\x0628'), 2);
    EXPECT_EQ(Units(replaced), u"A\x0628\x0628");
    EXPECT_EQ(Units(source), u"Ab1");
}

TEST(StringText, StringsJoinWithStringsTextsAndCharacters)
{
    const StringA a("ab"), b("cd");
    EXPECT_EQ(Bytes(a + b), "abcd");
    EXPECT_EQ(Bytes(a + "x" + 'y'), "abxy");
    EXPECT_EQ(Bytes("x" + a), "xab");
    EXPECT_EQ(Bytes('y' + a), "yab");
    EXPECT_EQ(Bytes(a + u'z'), "abz");
    EXPECT_EQ(Bytes(u'z' + a), "zab");
    EXPECT_EQ(Bytes(a + static_cast<const char*>(nullptr)), "ab");
    StringA sum;
    sum += a;
    sum += "x";
    sum += 'y';
    sum += u'z';
    EXPECT_EQ(Bytes(sum), "abxyz");
    EXPECT_EQ((a + b).GetAllocLength(), 4);
    sum = 'q';
    EXPECT_EQ(Bytes(sum), "q");
}

// A narrow character goes into a wide string without a code page.
TEST(StringText, NarrowCharacterIsSignExtended)
{
    StringW text;
    text = '\xE9';
    text += '\x80';
    text += 'a';
    EXPECT_EQ(Units('\xFF' + text + '\xE9'), u"\xFFFF\xFFE9\xFF80"
                                             u"a\xFFE9");
}

struct OpenA : StringA {
    using StringA::ConcatCopy;
    using StringA::StringA;
};

TEST(StringText, WideTextBecomesNarrowWithRoomForFour)
{
    const StringA made(u"abc");
    EXPECT_EQ(Bytes(made), "abc");
    EXPECT_EQ(made.GetAllocLength(), 12);
    StringA assigned("x");
    assigned = u"de";
    EXPECT_EQ(Bytes(assigned), "de");
    EXPECT_EQ(assigned.GetAllocLength(), 8);
    assigned.AssignCopy(3, u"fgh"); // the limit leaves no room for the last
    EXPECT_EQ(Bytes(assigned), "fg");
    assigned = static_cast<const WCHAR*>(nullptr);
    EXPECT_TRUE(assigned.IsEmpty());
    EXPECT_EQ(StringA(u"").GetData(), StringA().GetData());

    OpenA left, right;
    left.ConcatCopy(2, "ab", 3, u"cde");
    right.ConcatCopy(3, u"cde", 2, "ab");
    EXPECT_EQ(Bytes(left) + Bytes(right), "abcdcdab");
    EXPECT_EQ(left.GetAllocLength(), 14);
}

TEST(StringText, NarrowTextBecomesWideInAnExactBuffer)
{
    StringW text("abc");
    EXPECT_EQ(Units(text), u"abc");
    EXPECT_EQ(text.GetAllocLength(), 3);
    text = reinterpret_cast<const unsigned char*>("de");
    EXPECT_EQ(Units(text), u"de");
    text = static_cast<const char*>(nullptr);
    EXPECT_TRUE(text.IsEmpty());
}

TEST(StringText, ConversionNeverPassesItsLimit)
{
    for (std::size_t count = 0; count < 6; ++count) {
        char narrow[8] = "#######";
        WCHAR wide[8] = u"#######";
        EXPECT_EQ(_wcstombsz(narrow, u"abc", count), int(std::min<std::size_t>(count, 4)));
        EXPECT_EQ(_mbstowcsz(wide, "abc", count), int(std::min<std::size_t>(count, 4)));
        for (std::size_t i = 0; i < 7; ++i) {
            const char want = i >= std::min<std::size_t>(count, 4)      ? '#'
                              : i + 1 < std::min<std::size_t>(count, 4) ? "abc"[i]
                                                                        : '\0';
            EXPECT_EQ(narrow[i], want);
            EXPECT_EQ(wide[i], WCHAR(want));
        }
    }
}

TEST(StringText, VariantHoldsACopyUpToTheFirstZero)
{
    VARIANT value = StringW(u"ab\0cd", 5);
    EXPECT_EQ(value.vt, VT_BSTR);
    EXPECT_EQ(Units(StringW(value)), u"ab");
    StringW(u"other").StoreToVariant(value);
    EXPECT_EQ(Units(StringW(value)), u"other");
    VariantClear(&value);
}

TEST(StringText, UnknownTextNumberGivesTheEmptyString)
{
    StringW text(u"old");
    EXPECT_EQ(text.LoadStringA(3), 1);
    EXPECT_TRUE(text.IsEmpty());
}

} // namespace
