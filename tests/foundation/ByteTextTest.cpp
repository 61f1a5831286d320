#include "corekit/foundation/ByteText.h"
#include "corekit/foundation/Blocks.h"
#include "corekit/foundation/DelimitedText.h"
#include "tests/support/CaseRows.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace {

CByteArray& Fill(CByteArray& bytes, const std::string& from)
{
    bytes.RemoveAll();
    AppendDataToBuffer(bytes, from.data(), from.size());
    return bytes;
}

std::string Held(const CByteArray& bytes)
{
    std::string held;
    for (int i = 0; i < bytes.GetSize(); ++i) held += static_cast<char>(bytes.GetAt(i));
    return held;
}

template <class Items>
std::vector<std::string> Listed(const Items& items)
{
    std::vector<std::string> listed;
    for (int i = 0; i < items.GetSize(); ++i) {
        const auto item = items.GetAt(i);
        listed.emplace_back(static_cast<const char*>(item), static_cast<std::size_t>(item.GetLength()));
    }
    return listed;
}

using Items = std::vector<std::string>;

} // namespace

TEST(ByteText, EveryFormHasItsOwnText)
{
    const std::map<std::string, void (*)(CByteArray&, CString&)> write = {
        {"user", ConvertByteArrayToUserString},
        {"hexadecimal", ConvertByteArrayToHexString},
        {"decimal", ConvertByteArrayToDecString},
    };
    for (CaseRow row : CaseRows(TEST_DATA "/byte_text.tsv", "written")) {
        const auto form = write.at(row.Word());
        CByteArray bytes;
        CString text;
        form(Fill(bytes, row.Bytes()), text);
        EXPECT_EQ(text, row.Bytes().c_str()) << row.Line();
    }
}

TEST(ByteText, MalformedTextIsReportedAndTheRestIsKept)
{
    const std::map<std::string, int (*)(CString&, CByteArray&)> read = {
        {"user", ConvertUserStringToByteArray},
        {"hexadecimal", ConvertHexStringToByteArray},
        {"decimal", ConvertDecStringToByteArray},
    };
    for (CaseRow row : CaseRows(TEST_DATA "/byte_text.tsv", "read")) {
        const auto form = read.at(row.Word());
        CString text(row.Bytes().c_str());
        CByteArray bytes;
        EXPECT_EQ(form(text, bytes), row.Number()) << row.Line();
        EXPECT_EQ(Held(bytes), row.Bytes()) << row.Line();
    }
}

TEST(ByteText, EscapesGoBothWays)
{
    const WCHAR raw[] = u"a\tb\n\r\\\x01\x7Fא";
    EXPECT_EQ(ExpandBackslashSequences(raw), u"a\\tb\\n\\r\\\\\\x01\\x7Fא");
    EXPECT_EQ(CompactBackslashSequences(ExpandBackslashSequences(raw)), raw);
    for (CaseRow row : CaseRows(TEST_DATA "/byte_text.tsv", "compact")) {
        const std::u16string text = row.Units();
        EXPECT_TRUE(CompactBackslashSequences(text.c_str()) == row.Units().c_str()) << row.Line();
    }
}

TEST(DelimitedText, TheEndOfTheTextIsTreatedByTheKindOfArray)
{
    CStringArray strings;
    CArray<StringA, const char*> texts;
    const struct {
        const char* text;
        Items strings, texts;
    } cases[] = {
        {"", {""}, {}},
        {"a,,b", {"a", "", "b"}, {"a", "", "b"}},
        {"a,", {"a", ""}, {"a"}},
    };
    for (const auto& c : cases) {
        ConvertDelimitedStringToArray(c.text, strings, ',');
        ConvertDelimitedStringToArray(c.text, texts, ',');
        EXPECT_EQ(Listed(strings), c.strings) << c.text;
        EXPECT_EQ(Listed(texts), c.texts) << c.text;
    }
    ConvertDelimitedStringToArray(u"\u0141b;c", strings, u';');
    EXPECT_EQ(Listed(strings), (Items{"Ab", "c"}));
    ConvertDelimitedStringToArray("a;b,c;d", strings, ';');
    ConvertDelimitedStringToArray(strings[1], strings, ','); // an item of the array itself
    EXPECT_EQ(Listed(strings), (Items{"b", "c"}));
    CArray<StringW, const WCHAR*> wide;
    ConvertDelimitedStringToArray(u"a|b,c", wide, u',', u'|');
    EXPECT_EQ(wide[0], u"a,b");
}

TEST(DelimitedText, EveryKindOfLineEndEndsALine)
{
    CStringArray lines;
    ConvertBufferIntoLines("one\r\ntwo\r\rthree\n\nend\r\n", lines, 0);
    EXPECT_EQ(Listed(lines), (Items{"one", "two", "", "three", "", "end"}));
    ConvertBufferIntoLines("\n\none\r\n\r\ntwo", lines, 1);
    EXPECT_EQ(Listed(lines), (Items{"one", "two"}));
}

TEST(Blocks, BlocksAreSummedAndNumbersStoredLowByteFirst)
{
    unsigned char text[] = "Wikipedia";
    EXPECT_EQ(Adler32Checksum(text, 9), 0x11E60398u);
    EXPECT_EQ(Adler32Checksum(nullptr, 9), 1u);
    CByteArray blob;
    AddToBLOB(blob, 0x01020304);
    blob.Add(9);
    EXPECT_EQ(Held(blob), "\x04\x03\x02\x01\x09");
    CDWordArray values;
    ConvertFromBLOB(blob, values);
    EXPECT_EQ(values.GetSize(), 1);
    EXPECT_EQ(values[0], 0x01020304u);
    StringW swapped(u"\u4100"), shared = swapped;
    SwapByteOrderInString(swapped);
    EXPECT_EQ(swapped, u"A");
    EXPECT_EQ(shared, u"\u4100");
}
