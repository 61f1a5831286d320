#include "corekit/framework/DialogBytes.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string_view>
#include <vector>

using corekit::detail::DialogBytes;

namespace {

// Bytes as a resource compiler lays them out.
class Bytes {
public:
    Bytes& Words(std::initializer_list<unsigned> words)
    {
        for (const unsigned word : words) {
            m_bytes.push_back(static_cast<std::byte>(word & 0xFF));
            m_bytes.push_back(static_cast<std::byte>(word >> 8 & 0xFF));
        }
        return *this;
    }
    Bytes& Text(std::u16string_view text)
    {
        for (const char16_t unit : text) Words({unit});
        return Words({0});
    }
    Bytes& Align()
    {
        while (m_bytes.size() % 4) m_bytes.push_back({});
        return *this;
    }
    const std::vector<std::byte>& All() const { return m_bytes; }

private:
    std::vector<std::byte> m_bytes;
};

// A plain template with a font and two controls: a static and a button of a named class.
std::vector<std::byte> PlainTemplate()
{
    Bytes b;
    b.Words({0x0040, 0x80C8, 0, 0, 2, 10, 20, 200, 100}); // style with a font, two items, place and size
    b.Words({0}).Words({0}).Text(u"Caption");             // no menu, the usual class
    b.Words({8}).Text(u"Some Font");
    b.Align().Words({0, 0x5000, 0, 0, 5, 6, 70, 8, 0xFFFF, 0xFFFF, 0x0082}).Text(u"Label").Words({0});
    b.Align().Words({1, 0x5001, 0, 0, 50, 60, 40, 14, 100}).Text(u"BUTTON").Text(u"&Go").Words({0});
    return b.All();
}

TEST(DialogBytes, APlainTemplateIsReadWhole)
{
    const auto read = DialogBytes::read(PlainTemplate(), 77);
    ASSERT_TRUE(read);
    const DialogTemplate& dialog = read->dialog();
    EXPECT_EQ(dialog.id, 77u);
    EXPECT_STREQ(dialog.caption, "Caption");
    EXPECT_EQ(dialog.width, 200);
    EXPECT_EQ(dialog.height, 100);
    ASSERT_EQ(dialog.items.size(), 2u);
    EXPECT_STRCASEEQ(dialog.items[0].windowClass, "STATIC");
    EXPECT_STREQ(dialog.items[0].text, "Label");
    EXPECT_STREQ(dialog.items[1].windowClass, "BUTTON");
    EXPECT_STREQ(dialog.items[1].text, "&Go");
    EXPECT_EQ(dialog.items[1].id, 100);
    EXPECT_EQ(dialog.items[1].x, 50);
}

TEST(DialogBytes, NoCutOrChangedByteIsReadBeyondTheEnd)
{
    const std::vector<std::byte> whole = PlainTemplate();
    int refused = 0;
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const std::vector<std::byte> cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        refused += !DialogBytes::read(cut, 1);
    }
    EXPECT_GT(refused, static_cast<int>(whole.size()) * 9 / 10);
    for (std::size_t at = 0; at < whole.size(); ++at)
        for (const int bits : {0x01, 0x80, 0xFF}) {
            std::vector<std::byte> wild = whole;
            wild[at] ^= static_cast<std::byte>(bits);
            const auto read = DialogBytes::read(wild, 1);
            EXPECT_LE(read ? read->dialog().items.size() : 0, whole.size());
        }
}

} // namespace
