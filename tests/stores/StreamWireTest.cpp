#include "corekit/platform/Files.h"
#include "corekit/stores/MemoryStream.h"
#include "tests/support/CaseRows.h"
#include "tests/support/TempFolder.h"
#include "tests/support/Thrown.h"

#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

namespace {

constexpr const char* endMessage = "[Memory Stream] Read past end of buffer";

std::string Hex(const CMemoryStream& stream, DWORD size)
{
    const auto* bytes = static_cast<const BYTE*>(stream.GetMemoryBufferPointer());
    std::string hex;
    for (DWORD i = 0; i < size; ++i) {
        char two[3];
        std::snprintf(two, sizeof two, "%02x", bytes[i]);
        hex += two;
    }
    return hex;
}

template <class Writer>
std::string Wire(Writer writer)
{
    CMemoryStream stream(0, 16);
    writer(stream);
    return Hex(stream, stream.GetSize());
}

std::vector<BYTE> Bytes(std::initializer_list<int> values) { return {values.begin(), values.end()}; }

TEST(StreamWire, EveryTypeHasItsBytes)
{
    const std::map<std::string, void (*)(CStream&, CaseRow&)> write = {
        {"uint8", [](CStream& s, CaseRow& row) { s.write_uint8(row.Number<BYTE>()); }},
        {"int8", [](CStream& s, CaseRow& row) { s.write_int8(row.Number<signed char>()); }},
        {"bool", [](CStream& s, CaseRow& row) { s.write_bool(row.Number() != 0); }},
        {"WORD", [](CStream& s, CaseRow& row) { s.write_WORD(row.Number<WORD>()); }},
        {"uint16", [](CStream& s, CaseRow& row) { s.write_uint16(row.Number<WORD>()); }},
        {"int16", [](CStream& s, CaseRow& row) { s.write_int16(row.Number<SHORT>()); }},
        {"DWORD", [](CStream& s, CaseRow& row) { s.write_DWORD(row.Number<DWORD>()); }},
        {"uint32", [](CStream& s, CaseRow& row) { s.write_uint32(row.Number<DWORD>()); }},
        {"int32", [](CStream& s, CaseRow& row) { s.write_int32(row.Number()); }},
        {"uint64", [](CStream& s, CaseRow& row) { s.write_uint64(row.Number<DWORDLONG>()); }},
        {"int64", [](CStream& s, CaseRow& row) { s.write_int64(row.Number<LONGLONG>()); }},
        {"wide text", [](CStream& s, CaseRow& row) { s.Write(row.Units().c_str()); }},
        {"narrow text", [](CStream& s, CaseRow& row) { s.Write(row.Bytes().c_str()); }},
    };
    for (CaseRow row : CaseRows(TEST_DATA "/wire_forms.tsv")) {
        const auto one = write.at(row.Word());
        const std::string wire = Wire([&](CStream& s) { one(s, row); });
        EXPECT_EQ(wire, row.Word()) << row.Line();
    }
    const _GUID guid = {0x01020304, 0x0506, 0x0708, {9, 10, 11, 12, 13, 14, 15, 16}};
    CByteArray bytes;
    bytes.Add(7);
    CStringArray texts;
    texts.Add("a");
    texts.Add("");
    CArray<StringW, const WCHAR*> wides;
    wides.Add(u"\x0628");
    const struct {
        std::string got;
        const char* want;
    } cases[] = {
        {Wire([](CStream& s) { s.Write(static_cast<const char*>(nullptr)); }), "0000"},
        {Wire([](CStream& s) { s.WriteStringRaw("abc", -1), s.WriteStringRaw("abc", 2); }), "6162636162"},
        {Wire([](CStream& s) { s.WriteStringRaw(u"ab", -1), s.WriteStringRaw(u"ab", 1); }), "610062006100"},
        {Wire([&](CStream& s) { s.Write(guid); }), "0403020106050807090a0b0c0d0e0f10"},
        {Wire([](CStream& s) { s.Write(CPoint(1, -2)); }), "01000000feffffff"},
        {Wire([](CStream& s) { s.Write(CRect(1, 2, 3, -4)); }), "010000000200000003000000fcffffff"},
        {Wire([](CStream& s) { s.Write(CSize(-1, 0x12345)); }), "ffff4523"},
        {Wire([&](CStream& s) { s.Write(bytes); }), "0100000007"},
        {Wire([&](CStream& s) { s.Write(texts); }), "02000000010061000000"},
        {Wire([&](CStream& s) { s.Write(wides); }), "0100000001002806"},
    };
    for (const auto& c : cases) EXPECT_EQ(c.got, c.want);
}

TEST(StreamWire, WhatIsWrittenReadsBack)
{
    CMemoryStream stream(4, 3);
    const _GUID guid = {1, 2, 3, {4, 5, 6, 7, 8, 9, 10, 11}};
    CArray<StringA, const char*> narrows;
    narrows.Add("x");
    narrows.Add("yz");
    stream.write_int16(-5);
    stream.Write(guid);
    stream.Write(CPoint(-7, 8));
    stream.Write(CRect(-1, 2, -3, 4));
    stream.Write(CSize(-1, 5));
    stream.Write(u"wide \x0641");
    stream.Write("narrow");
    stream.Write("framework");
    stream.Write(narrows);
    stream.write_uint8(9);

    stream.SeekToPos(0);
    _GUID readGuid;
    CPoint point;
    CRect rect;
    CSize size;
    StringW wide;
    StringA narrow;
    CString text;
    CArray<StringA, const char*> read;
    read.Add("old");
    EXPECT_EQ(stream.read_int16(), -5);
    stream.Read(readGuid);
    stream.Read(point);
    stream.Read(rect);
    stream.Read(size);
    stream.Read(wide);
    stream.Read(narrow);
    stream.Read(text);
    stream.Read(read);
    EXPECT_TRUE(readGuid == guid && point == CPoint(-7, 8) && rect == CRect(-1, 2, -3, 4));
    EXPECT_TRUE(size == CSize(65535, 5));
    EXPECT_TRUE(wide == u"wide \x0641");
    EXPECT_EQ(wide.GetAllocLength(), 7);
    EXPECT_STREQ(narrow, "narrow");
    EXPECT_STREQ(text, "framework");
    ASSERT_EQ(read.GetSize(), 2);
    EXPECT_STREQ(read[1], "yz");
    EXPECT_TRUE(stream.read_bool());
    EXPECT_TRUE(stream.IsEOF());
}

TEST(StreamWire, LongTextKeepsTheStreamInStep)
{
    const std::u16string text(70000, u'x');
    CMemoryStream stream(0, 4096);
    stream.Write(text.c_str());
    stream.write_uint8(42);
    stream.SeekToPos(0);
    StringW read;
    stream.Read(read);
    EXPECT_EQ(read.GetLength(), 4464);
    EXPECT_EQ(stream.read_uint8(), 42);
}

TEST(StreamWire, TextThatEndsEarlyLeavesTheStringEmpty)
{
    const auto data = Bytes({5, 0, 'a', 0, 'b', 0});
    for (const char* old : {"", "old text, longer than what is promised"}) {
        CMemoryStream stream(data.data(), int(data.size()));
        StringW text(old);
        EXPECT_EQ(Thrown([&] { stream.Read(text); }), endMessage);
        EXPECT_TRUE(text.IsEmpty());
        EXPECT_EQ(stream.GetCurrentPos(), 2u);
    }
}

// Promises of four thousand million elements cost no more than what is there.
TEST(StreamWire, CountsBeyondTheStreamAreNotBelieved)
{
    const auto data = Bytes({0xFF, 0xFF, 0xFF, 0xFF, 1, 0, 'a', 0, 0, 0, 9});
    CMemoryStream stream(data.data(), int(data.size()));
    const auto refused = [&](auto&& array) {
        stream.SeekToPos(0);
        EXPECT_EQ(Thrown([&] { stream.Read(array); }), endMessage);
        return array.GetSize();
    };
    CByteArray bytes;
    CStringArray texts;
    CArray<StringA, const char*> narrows;
    CArray<StringW, const WCHAR*> wides;
    EXPECT_EQ(refused(bytes), 7);
    EXPECT_EQ(refused(texts), 2);
    EXPECT_EQ(refused(narrows), 2);
    EXPECT_EQ(refused(wides), 2);
    EXPECT_EQ(bytes[2], 'a');
    EXPECT_STREQ(texts[0], "a");
}

// A stream that does not know how much is left: arrays then grow as their elements come.
class CEndless : public CMemoryStream {
public:
    using CMemoryStream::CMemoryStream;
    DWORD GetSize() override { return 0; }
};

TEST(StreamWire, ArraysAreReadFromAStreamOfUnknownSize)
{
    CByteArray bytes, readBytes;
    CStringArray texts, readTexts;
    for (int i = 0; i < 10000; ++i) bytes.Add(BYTE(i));
    for (int i = 0; i < 100; ++i) texts.Add(std::to_string(i).c_str());
    CEndless stream(0, 4096);
    stream.Write(bytes);
    stream.Write(texts);
    stream.SeekToPos(0);
    stream.Read(readBytes);
    stream.Read(readTexts);
    ASSERT_EQ(readBytes.GetSize(), 10000);
    ASSERT_EQ(readTexts.GetSize(), 100);
    EXPECT_EQ(readBytes[9999], BYTE(9999));
    EXPECT_STREQ(readTexts[99], "99");
}

TEST(StreamWire, CopyBetweenStreamsMovesExactlyTheCount)
{
    std::vector<BYTE> data(10000);
    for (std::size_t i = 0; i < data.size(); ++i) data[i] = BYTE(i * 7);
    CMemoryStream source(data.data(), int(data.size())), target(0, 1000);
    target.CopyFromStream(source, 0);
    EXPECT_EQ(target.GetSize(), 0u);
    source.SeekToPos(10);
    target.CopyFromStream(source, 9000);
    EXPECT_EQ(target.GetSize(), 9000u);
    EXPECT_EQ(source.GetCurrentPos(), 9010u);
    EXPECT_EQ(std::memcmp(target.GetMemoryBufferPointer(), data.data() + 10, 9000), 0);
    EXPECT_EQ(Thrown([&] { target.CopyFromStream(source, 991); }), endMessage);
}

TEST(StreamWire, CopyOfAFileRefusesWhatIsNotThere)
{
    const TempFolder folder;
    const std::string path = folder / "copied";
    const HANDLE file =
        CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    const std::string data(40000, 'd');
    DWORD moved = 0;
    WriteFile(file, data.data(), DWORD(data.size()), &moved, nullptr);
    CMemoryStream stream(0, 4096);
    stream.CopyEntireFile(file);
    EXPECT_EQ(stream.GetSize(), 40000u);
    SetFilePointer(file, 39990, nullptr, FILE_BEGIN);
    constexpr const char* failed = "[Stream] I/O error reading data from Win32 file handle\n";
    EXPECT_TRUE(Thrown([&] { stream.CopyFromFile(file, 11); }).starts_with(failed));
    EXPECT_TRUE(Thrown([&] { stream.CopyEntireFile(INVALID_HANDLE_VALUE); }).starts_with(failed));
    LONG high = 1;
    SetFilePointer(file, 16, &high, FILE_BEGIN);
    SetEndOfFile(file); // beyond what a stream takes
    EXPECT_TRUE(Thrown([&] { stream.CopyEntireFile(file); }).starts_with(failed));
    CloseHandle(file);
}

} // namespace
