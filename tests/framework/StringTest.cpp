#include "corekit/framework/String.h"

#include "corekit/framework/Exception.h"
#include "tests/support/Thrown.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>

TEST(CStringText, IndicesOutsideAreClamped)
{
    CString text("ab");
    EXPECT_EQ(text.Delete(1, INT_MAX), 1);
    EXPECT_EQ(text.Insert(99, "z"), 2);
    EXPECT_EQ(text, "az");
}

TEST(CStringText, NullsAreEmptyText)
{
    const char* none = nullptr;
    CString text(none);
    text += none;
    text = none;
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(text.Compare(none), 0);
    EXPECT_EQ(text.Replace(none, "x"), 0);
    EXPECT_TRUE(text == none);
    text.TrimLeft(none);
    EXPECT_EQ(CString(none, 5), "");
}

TEST(CStringText, SearchingReplacingAndTrimmingGoByBytes)
{
    CString text(" \tone two one\r\n");
    text.TrimLeft();
    text.TrimRight();
    EXPECT_EQ(text, "one two one");
    EXPECT_EQ(text.Find("one", 1), 8);
    EXPECT_EQ(text.ReverseFind('o'), 8);
    EXPECT_EQ(text.FindOneOf("xtw"), 4);
    EXPECT_EQ(text.Replace("one", "eleven"), 2);
    EXPECT_EQ(text, "eleven two eleven");
    EXPECT_EQ(text.Replace('e', 'E'), 6);
    EXPECT_EQ(text.Remove('E'), 6);
    EXPECT_EQ(text, "lvn two lvn");
    text.MakeUpper();
    EXPECT_EQ(text.CompareNoCase("LVN two lvn"), 0);
    text.MakeReverse();
    EXPECT_EQ(text, "NVL OWT NVL");
}

TEST(CStringText, OrderIsUnsignedBytesAndSeesZeros)
{
    EXPECT_LT(CString("a"), CString("\xE9"));
    EXPECT_LT(CString("a"), "b");
    EXPECT_GT("b", CString("a"));
    EXPECT_NE(CString("a\0b", 3), CString("a\0c", 3));
    EXPECT_EQ((CString("a\0b", 3) + 'c').GetLength(), 4);
}

TEST(CStringBuffer, LengthComesFromTheTerminatorWithinTheBlock)
{
    CString text("ab");
    char* buffer = text.GetBuffer(64);
    EXPECT_STREQ(buffer, "ab");
    std::strcpy(buffer, "longer than before");
    text.ReleaseBuffer();
    EXPECT_EQ(text.GetLength(), 18);
    std::memset(text.GetBufferSetLength(5), 'x', 5);
    text.ReleaseBuffer(INT_MAX);
    EXPECT_GE(text.GetLength(), 5);
    text.ReleaseBuffer(2);
    text.FreeExtra();
    EXPECT_EQ(text, "xx");
}

TEST(CStringBuffer, ImpossibleSizesThrowAndKeepTheText)
{
    CString text("kept");
    EXPECT_EQ(ThrownClass([&] { text.GetBuffer(INT_MAX); }), RUNTIME_CLASS(CMemoryException));
    EXPECT_EQ(text, "kept");
}

TEST(CStringFormat, GrowsPastEveryFixedSize)
{
    CString text;
    text.Format("%5000d|%.3f|%s", 7, 1.5, "end");
    EXPECT_EQ(text.GetLength(), 5000 + 1 + 5 + 1 + 3);
    EXPECT_EQ(text.Right(11), "7|1.500|end");
    text.Format("%s", "");
    EXPECT_TRUE(text.IsEmpty());
}

TEST(CStringText, WideTextPassesThroughTheCodePage)
{
    EXPECT_EQ(CString(u"plain"), "plain");
    EXPECT_EQ(CString(u"cut here", 3), "cut");
    EXPECT_EQ(CString(u"a\0b", 3).GetLength(), 3);
    const WCHAR* none = nullptr;
    EXPECT_EQ(CString(none), "");
    CString text("before");
    text = u"\u0001\u4E00"; // no western page has the second
    EXPECT_EQ(text.GetAt(0), 1);
    EXPECT_GT(text.GetLength(), 1);
}
