#include "corekit/unicode/ui/FontDescriptor.h"

#include "corekit/unicode/ui/XPCConfigNode.h"

#include <gtest/gtest.h>
#include <map>
#include <optional>
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

struct ParseCase {
    const char16_t* text;
    const char* tolerant;
    const char* strict;
};

TEST(FontDescriptor, TextsAreReadAsFarAsTheirLinesGo)
{
    const ParseCase cases[] = {
        {u"12\n2\nArial\nTimes\n", "12\n2\nArial\nTimes\n", "12\n2\nArial\nTimes\n"},
        {u"", "12\n1\nArial\n", "0\n0\n"},
        {nullptr, "12\n1\nArial\n", "0\n0\n"},
        {u"20", "12\n1\nArial\n", "0\n0\n"},
        {u"20\n1", "12\n1\nArial\n", "0\n0\n"},
        {u"20\n0\n", "20\n0\n", "20\n0\n"},
        {u"20\n-5\nDejaVu\n", "20\n0\n", "20\n0\n"},
        {u"20\n2\nDejaVu\nNoto", "12\n2\nDejaVu\nArial\n", "20\n1\nDejaVu\n"},
        {u"-20\n1\nDejaVu\nmore\n", "-20\n1\nDejaVu\n", "-20\n1\nDejaVu\n"},
        {u"20\n4294967295\nDejaVu\n", "12\n2\nDejaVu\nArial\n", "20\n1\nDejaVu\n"},
        {u" +7x\n 1 \n\n", "7\n1\n\n", "7\n1\n\n"},
        {u"99999999999999999999\n1\nA\n", "2147483647\n1\nA\n", "2147483647\n1\nA\n"},
        {u"-99999999999999999999\n1\nA\n", "-2147483648\n1\nA\n", "-2147483648\n1\nA\n"},
    };
    for (const ParseCase& c : cases) {
        EXPECT_EQ(textOf(CFontDescriptor(c.text)), c.tolerant);
        CFontDescriptor strict;
        strict.AddFont("former");
        strict = c.text;
        EXPECT_EQ(textOf(strict), c.strict);
    }
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
