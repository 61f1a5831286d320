#include "corekit/unicode/ui/FontSignature.h"

#include <gtest/gtest.h>

namespace {

std::u16string converted(const CFontSignature& signature, WCHAR c)
{
    StringW wide(u"<");
    std::u16string plain(u"<");
    signature.Convert(c, wide);
    signature.Convert(c, plain);
    EXPECT_EQ(std::u16string(static_cast<const WCHAR*>(wide), static_cast<std::size_t>(wide.GetLength())),
              plain);
    return plain.substr(1);
}

TEST(FontSignature, EachRangeNumberTestsItsOwnBit)
{
    for (int range = 128; range < 260; ++range) {
        DWORD usb[4] = {};
        if (range < 256) usb[(range - 128) / 32] = DWORD{1} << range % 32;
        CFontSignature signature;
        signature.SetFromUsb(usb);
        if (range >= 256) signature.SetCustomSignature(DWORD{1} << (range - 256));
        for (int other = 0; other < 400; ++other)
            EXPECT_EQ(signature.CoversRange(other), other == range) << range << " " << other;
    }
    EXPECT_FALSE(CFontSignature().CoversRange(-1));
}

TEST(FontSignature, ContainsNeedsEveryBitOfEveryWord)
{
    constexpr DWORD more[4] = {7, 1, 0x80000000, 4}, fewer[4] = {3, 0, 0x80000000, 4};
    CFontSignature big, small;
    big.SetFromUsb(more);
    small.SetFromUsb(fewer);
    small.AddMapping(1, 2); // rules play no part
    EXPECT_TRUE(big.Contains(small));
    EXPECT_FALSE(small.Contains(big));
    small.SetCustomSignature(2);
    EXPECT_FALSE(big.Contains(small));
    big.SetCustomSignature(3);
    EXPECT_TRUE(big.Contains(small));
}

TEST(FontSignature, StringBeforeMappingBeforeLastZone)
{
    CFontSignature signature;
    signature.AddZone(0x100, 0x1FF, 0x100);
    signature.AddZone(0x150, 0x15F, 0x10);
    EXPECT_EQ(converted(signature, 0x100), std::u16string(1, 0));
    EXPECT_EQ(converted(signature, 0x1FF), u"\u00FF");
    EXPECT_EQ(converted(signature, 0x150), u"\u0140"); // the later zone
    EXPECT_EQ(converted(signature, 0x160), u"\u0060");
    EXPECT_EQ(converted(signature, 0x200), u"\u0200");
    signature.AddMapping(0x150, u'm');
    EXPECT_EQ(converted(signature, 0x150), u"m");
    signature.AddMultimap(0x150, StringW(u"str"));
    EXPECT_EQ(converted(signature, 0x150), u"str");
    signature.AddMultimap(0x150, StringW(u"new")); // replaces
    EXPECT_EQ(converted(signature, 0x150), u"new");
    signature.AddZone(0, 0, 1); // offset beyond the code wraps
    EXPECT_EQ(converted(signature, 0), u"\uFFFF");
}

TEST(FontSignature, CopyOwnsItsRules)
{
    constexpr DWORD usb[4] = {1, 2, 3, 4};
    CFontSignature copy;
    copy.AddMultimap(u'o', StringW(u"old"));
    copy.AddZone(u'a', u'z', 1);
    {
        CFontSignature original;
        original.SetFromUsb(usb);
        original.SetCustomSignature(5);
        original.AddMultimap(u's', StringW(u"string"));
        original.AddMapping(u'm', u'M');
        original.AddZone(u'x', u'x', 3);
        copy = original;
        original.AddMultimap(u's', StringW(u"changed"));
        original.AddMapping(u'm', u'?');
    }
    const CFontSignature second(copy);
    const CFontSignature& itself = copy;
    copy = itself;
    for (const CFontSignature* s : {&second, &itself}) {
        EXPECT_EQ(converted(*s, u's'), u"string");
        EXPECT_EQ(converted(*s, u'm'), u"M");
        EXPECT_EQ(converted(*s, u'x'), u"u");
        EXPECT_EQ(converted(*s, u'o'), u"o"); // what the target held before is gone
        DWORD got[4];
        s->GetUsb(got);
        EXPECT_TRUE(std::equal(got, got + 4, usb));
        EXPECT_EQ(s->GetCustomSignature(), 5u);
    }
}

TEST(FontSignature, NewUsbWordsDropZonesAndMappingsButNoStrings)
{
    constexpr DWORD none[4] = {};
    CFontSignature signature;
    signature.SetCustomSignature(8);
    signature.AddZone(u'a', u'z', 1);
    signature.AddMapping(u'A', u'B');
    signature.AddMultimap(u'!', StringW(u"bang"));
    signature.SetFromUsb(none);
    EXPECT_EQ(signature.GetCustomSignature(), 0u);
    EXPECT_EQ(converted(signature, u'b') + converted(signature, u'A') + converted(signature, u'!'),
              u"bAbang");
}

} // namespace
