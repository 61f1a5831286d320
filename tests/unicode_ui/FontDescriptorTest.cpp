#include "corekit/unicode/ui/FontDescriptor.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/stores/MemoryStream.h"
#include "corekit/stores/RegistryKey.h"
#include "corekit/stores/RegistryText.h"
#include "corekit/unicode/ui/XPCConfigNode.h"
#include "tests/support/CaseRows.h"
#include "tests/support/RegistryHome.h"
#include "tests/support/Thrown.h"

#include <cstring>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

namespace {

std::string textOf(const CFontDescriptor& font) { return font.GetCombinedString().GetString(); }

TEST(FontDescriptor, TextFollowsEveryChangeButEmpty)
{
    CFontDescriptor font;
    EXPECT_EQ(textOf(font), "");
    font.SetSize(12);
    font.AddFont("Arial");
    font.AddFont("Times");
    EXPECT_EQ(textOf(font), "12\n2\nArial\nTimes\n");
    EXPECT_TRUE(font.GetEmbeddingString() == StringW(u"12\n2\nArial\nTimes\n"));
    font.ReplaceFont(1, "Courier");
    font.ReplaceFont(2, "nowhere");
    font.ReplaceFont(-1, "nowhere");
    EXPECT_EQ(textOf(font), "12\n2\nArial\nCourier\n");

    CFontDescriptor same(font), other;
    other.SetSize(12);
    other.AddFont("ARIAL");
    other.AddFont("courier");
    EXPECT_TRUE(font == other);
    font.Empty();
    EXPECT_EQ(font.GetCount(), 0);
    EXPECT_EQ(font.GetSize(), 0);
    EXPECT_TRUE(font == same); // equality looks at the old text
    font.SetSize(1);
    EXPECT_TRUE(font != same);
    EXPECT_TRUE(font.GetFont(0).IsEmpty());
}

TEST(FontDescriptor, TextsAreReadAsFarAsTheirLinesGo)
{
    const auto strictly = [](const WCHAR* text) {
        CFontDescriptor strict;
        strict.AddFont("former");
        strict = text;
        return textOf(strict);
    };
    for (CaseRow row : CaseRows(TEST_DATA "/font_texts.tsv", "text")) {
        const std::u16string text = row.Units();
        EXPECT_EQ(textOf(CFontDescriptor(text.c_str())), row.Bytes()) << row.Line();
        EXPECT_EQ(strictly(text.c_str()), row.Bytes()) << row.Line();
    }
    EXPECT_EQ(textOf(CFontDescriptor(static_cast<const WCHAR*>(nullptr))), "12\n1\nArial\n");
    EXPECT_EQ(strictly(nullptr), "0\n0\n");
}

TEST(FontDescriptor, StreamHoldsCountThenSizeThenFaces)
{
    CFontDescriptor font, read;
    font.SetSize(-9);
    font.AddFont("Ab");
    font.AddFont("");
    CMemoryStream stream(16, 16);
    font.WriteStream(stream);
    const unsigned char bytes[] = {2, 0, 0, 0, 0xF7, 0xFF, 0xFF, 0xFF, 2, 0, 'A', 0, 'b', 0, 0, 0};
    ASSERT_EQ(stream.GetSize(), sizeof bytes);
    EXPECT_EQ(std::memcmp(stream.GetMemoryBufferPointer(), bytes, sizeof bytes), 0);
    stream.SeekToPos(0);
    read.AddFont("former");
    read.ReadStream(stream);
    EXPECT_EQ(textOf(read), "-9\n2\nAb\n\n");
}

TEST(FontDescriptor, DamagedStreamsAreReportedAndLeaveNoFaces)
{
    const std::vector<std::vector<unsigned char>> damaged = {
        {},                                                 // nothing
        {1, 0},                                             // half a count
        {0, 0, 0, 0, 12, 0, 0, 0},                          // no faces
        {0xFF, 0xFF, 0xFF, 0xFF, 12, 0, 0, 0},              // count -1
        {0xFF, 0xFF, 0xFF, 0x7F, 12, 0, 0, 0, 1, 0, 65, 0}, // more faces than bytes
        {1, 0, 0, 0, 12, 0, 0, 0, 0xFF, 0xFF, 65, 0},       // a face longer than the stream
    };
    for (const auto& bytes : damaged) {
        CFontDescriptor font;
        font.AddFont("former");
        CMemoryStream stream(bytes.data(), static_cast<int>(bytes.size()));
        const std::string message = Thrown([&] { font.ReadStream(stream); });
        EXPECT_EQ(message.find("Read from stream of object \"CFontDescriptor\" failed\n"), 0u) << message;
        EXPECT_EQ(font.GetCount(), 0);
        EXPECT_EQ(textOf(font).find("former"), std::string::npos);
        if (bytes.size() == 8) { // a count below 1
            EXPECT_NE(message.find("Data is corrupt."), message.npos) << message;
        }
    }
    unsigned char small[4];
    CMemoryStream full(small, sizeof small); // cannot grow
    EXPECT_EQ(ThrownLine([&] { CFontDescriptor(u"1\n1\nA\n").WriteStream(full); }),
              "Write to stream of object \"CFontDescriptor\" failed");
}

class FakeNode : public IXPCConfigNode {
public:
    std::map<std::string, std::string> texts;
    std::map<std::string, std::int64_t> numbers;

    bool ReadInteger(const char* key, int& value) override { return Take(key, value); }
    bool ReadInteger(const char* key, unsigned& value) override { return Take(key, value); }
    bool ReadString(const char* key, CString& value) override
    {
        const auto at = texts.find(key);
        if (at == texts.end()) return false;
        value = at->second.c_str();
        return true;
    }
    void WriteString(const char* key, const char* value) override { texts[key] = value; }
    void WriteInteger(const char* key, DWORD low, DWORD high) override
    {
        numbers[key] = static_cast<std::int64_t>(DWORDLONG{high} << 32 | low);
    }

private:
    template <class T>
    bool Take(const char* key, T& value) const
    {
        const auto at = numbers.find(key);
        if (at == numbers.end()) return false;
        value = static_cast<T>(at->second);
        return true;
    }
};

class FontDescriptorRegistry : public RegistryHome {
protected:
    FontDescriptorRegistry() { parent.Create(HKEY_LOCAL_MACHINE, "Software\\Test"); }

    CRegistryKey parent;
};

TEST_F(FontDescriptorRegistry, KeepsFacesInTheirOrderAndFewerOfThem)
{
    for (const char16_t* text : {u"12\n3\nArial\nTimes New Roman\n\n", u"-9\n1\nAmiri\n"}) {
        const CFontDescriptor font(text);
        font.SaveToRegistry(parent, "Controls Font");
        CFontDescriptor read(u"7\n1\nformer\n");
        EXPECT_EQ(read.LoadFromRegistry(parent, "Controls Font"), 1);
        EXPECT_EQ(textOf(read), textOf(font));
    }
    CFontDescriptor().SaveToRegistry(parent, "Controls Font"); // no faces: nothing to load
    EXPECT_EQ(CFontDescriptor().LoadFromRegistry(parent, "Controls Font"), 0);
    CRegistryKey closed;
    CFontDescriptor(u"9\n1\nAmiri\n").SaveToRegistry(closed, "Controls Font");
    EXPECT_EQ(CFontDescriptor().LoadFromRegistry(closed, "Controls Font"), 0);
}

TEST_F(FontDescriptorRegistry, IncompleteOrForeignValuesAreRefused)
{
    const std::string whole = "\"Size\" = number 15\n\"Count\" = number 2\n\"Font 1\" = text \"One\"\n";
    for (CaseRow row : CaseRows(TEST_DATA "/font_texts.tsv", "registry")) {
        const int size = row.Number();
        ImportRegistry("[HKLM\\Software\\Test\\Font]\n" + whole + row.Bytes());
        CFontDescriptor font(u"9\n1\nformer\n");
        EXPECT_EQ(font.LoadFromRegistry(parent, "Font"), 0) << row.Line();
        EXPECT_EQ(font.GetCount(), 0) << row.Line();
        EXPECT_EQ(font.GetSize(), size) << row.Line();
    }
    ImportRegistry("[HKLM\\Software\\Test\\Font]\n" + whole + "\"Font 2\" = text \"Two\"");
    EXPECT_EQ(CFontDescriptor().LoadFromRegistry(parent, "Font"), 1);
}

TEST(FontDescriptor, ConfigurationNodeKeepsKeysAndSign)
{
    const CFontDescriptor font(u"-15\n2\nOne\nTwo\n");
    for (const char* prefix : {static_cast<const char*>(nullptr), "", "title"}) {
        FakeNode node;
        font.Save(&node, prefix);
        const std::string before = prefix && *prefix ? "title-" : "";
        EXPECT_EQ(node.numbers,
                  (std::map<std::string, std::int64_t>{{before + "size", -15}, {before + "count", 2}}));
        EXPECT_EQ(node.texts, (std::map<std::string, std::string>{{before + "font-1", "One"},
                                                                  {before + "font-2", "Two"}}));
        CFontDescriptor read;
        EXPECT_TRUE(read.Load(&node, prefix));
        EXPECT_TRUE(read == font);
    }
}

TEST(FontDescriptor, IncompleteConfigurationIsRefused)
{
    FakeNode whole;
    CFontDescriptor(u"15\n2\nOne\nTwo\n").Save(&whole, nullptr);
    for (const char* key : {"size", "count", "font-1", "font-2"}) {
        FakeNode node = whole;
        const bool text = node.texts.erase(key) != 0;
        if (!text) node.numbers.erase(key);
        CFontDescriptor font(u"9\n1\nformer\n");
        EXPECT_FALSE(font.Load(&node, nullptr)) << key;
        EXPECT_EQ(font.GetCount(), std::string(key) == "font-2" ? 1 : 0) << key;
        if (text) continue;
        node.numbers[key] = 0;
        EXPECT_FALSE(font.Load(&node, nullptr)) << key;
    }
    whole.numbers["count"] = 0xFFFFFFFF;
    EXPECT_FALSE(CFontDescriptor().Load(&whole, nullptr));
}

} // namespace
