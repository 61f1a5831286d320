#include "corekit/foundation/ByteText.h"
#include "corekit/foundation/Blocks.h"
#include "corekit/foundation/DelimitedText.h"

#include <gtest/gtest.h>

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
    CByteArray bytes;
    CString text;
    ConvertByteArrayToUserString(Fill(bytes, "a~\x7F\n\x80"), text);
    EXPECT_STREQ(text, "a~<7F><0A><FFFFFF80>");
    ConvertByteArrayToHexString(Fill(bytes, "\x01\xFE"), text);
    EXPECT_STREQ(text, "01 FFFFFFFE ");
    ConvertByteArrayToDecString(Fill(bytes, std::string("\0\0\1\0\xFF\xFF\xFF\xFE\x7F", 9)), text);
    EXPECT_STREQ(text, "(256,-2,2130706432)");
    ConvertByteArrayToDecString(Fill(bytes, ""), text);
    EXPECT_STREQ(text, ")");
}

TEST(ByteText, MalformedTextIsToldAndTheRestIsKept)
{
    const struct {
        int (*read)(CString&, CByteArray&);
        const char* text;
        int malformed;
        std::string bytes;
    } cases[] = {
        {ConvertUserStringToByteArray, "a<0A>b<<>c", 0, "a\nb<>c"},
        {ConvertUserStringToByteArray, "<0><00>", 0, std::string(2, '\0')},
        {ConvertUserStringToByteArray, "x<FFFFFF80>y", 1, "xy"},
        {ConvertUserStringToByteArray, "<zz>1<>2<1<3", 1, "123"},
        {ConvertUserStringToByteArray, "end<4", 0, "end"},
        {ConvertHexStringToByteArray, "41 4 ", 0, "A\x04"},
        {ConvertHexStringToByteArray, "41 42", 0, "A"},
        {ConvertHexStringToByteArray, "41  123 42 ", 1, "AB"},
        {ConvertDecStringToByteArray, "(256,-2)", 0, std::string("\0\0\1\0\xFF\xFF\xFF\xFE", 8)},
        {ConvertDecStringToByteArray, "(99999999999)x", 0, "\x7F\xFF\xFF\xFF"},
    };
    for (const auto& c : cases) {
        CString text(c.text);
        CByteArray bytes;
        EXPECT_EQ(c.read(text, bytes), c.malformed) << c.text;
        EXPECT_EQ(Held(bytes), c.bytes) << c.text;
    }
}

TEST(ByteText, EscapesGoBothWays)
{
    const WCHAR raw[] = u"a\tb\n\r\\\x01\x7Fא";
    EXPECT_EQ(ExpandBackslashSequences(raw), u"a\\tb\\n\\r\\\\\\x01\\x7Fא");
    EXPECT_EQ(CompactBackslashSequences(ExpandBackslashSequences(raw)), raw);
    EXPECT_EQ(CompactBackslashSequences(u"\\q\\x4\\"), u"q\x04");
    EXPECT_EQ(CompactBackslashSequences(u"\\x"), u"x");
    EXPECT_EQ(CompactBackslashSequences(u"end\\"), u"end\\");
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
    CArray<StringW, const WCHAR*> wide;
    ConvertDelimitedStringToArray(u"a|b,c", wide, u',', u'|');
    EXPECT_EQ(wide[0], u"a,b");
}

TEST(DelimitedText, LineEndsOfEveryKind)
{
    CStringArray lines;
    ConvertBufferIntoLines("one\r\ntwo\r\rthree\n\nend\r\n", lines, 0);
    EXPECT_EQ(Listed(lines), (Items{"one", "two", "", "three", "", "end"}));
    ConvertBufferIntoLines("\n\none\r\n\r\ntwo", lines, 1);
    EXPECT_EQ(Listed(lines), (Items{"one", "two"}));
}

TEST(Blocks, ChecksumsAndBlobs)
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
