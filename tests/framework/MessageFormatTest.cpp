#include "corekit/framework/String.h"
#include "tests/support/CaseRows.h"

#include <gtest/gtest.h>

TEST(MessageFormat, InsertsByNumberInAnyOrder)
{
    CString text;
    text.FormatMessage("%2 before %1%n", "one", "two");
    EXPECT_EQ(text, "two before one\r\n");
    text.FormatMessage("%1!d!: %2!08X! %3!-6.2s!| %4!lld! %5!c!", 42, 0xBEEFu, "abcdef", -5000000000LL, 'q');
    EXPECT_EQ(text, "42: 0000BEEF ab    | -5000000000 q");
    text.FormatMessage("%1!*.*s! %4 %5!*s!", 4, 2, "Bill", "Bob", 6, "Bill");
    EXPECT_EQ(text, "  Bi Bob   Bill");
    text.FormatMessage("%1!S!|%2!-4ls!|%3!C!%4!hd!", u"wide", u"ab", u'c', 65537);
    EXPECT_EQ(text, "wide|ab  |c1");
    text.FormatMessage("%2!u! times", "unused", 3u);
    EXPECT_EQ(text, "3 times");
}

TEST(MessageFormat, EscapesAndBadFormsStandAsWritten)
{
    for (CaseRow row : CaseRows(TEST_DATA "/message_formats.tsv")) {
        CString text("before");
        text.FormatMessage(row.Bytes().c_str(), "A", "B", "C", "D", "E", "F", "G", "H", "I", "J", "A");
        EXPECT_EQ(text, row.Bytes().c_str()) << row.Line();
    }
    CString text("before");
    text.FormatMessage("", "A");
    EXPECT_EQ(text, "");
}
