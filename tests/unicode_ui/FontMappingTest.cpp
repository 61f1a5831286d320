#include "corekit/stores/RegistryText.h"
#include "corekit/unicode/ui/FontMapInfo.h"
#include "tests/support/CaseRows.h"
#include "tests/support/RegistryHome.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

const std::string usb = "\"USB Signature\" = binary 01 00 00 00 02 00 00 00 03 00 00 00 04 00 00 80\n";

// Faces with a mapping in the registry; the values are lines as `corekit registry export` writes them.
class FontMapping : public RegistryHome {
protected:
    void Map(const std::string& values)
    {
        ImportRegistry("[HKLM\\Software\\Corvane\\Unicode Support\\Font Mapping\\" + std::string(face) +
                       "]\n" + values);
    }
    CFontSignature Loaded()
    {
        CFontMapInfo info(face);
        info.Load(nullptr); // no device context: the face itself would claim nothing
        EXPECT_TRUE(info.IsLoaded());
        return info.GetSignature();
    }

    const char* face = "Test Face";
};

std::u16string converted(const CFontSignature& signature, WCHAR c)
{
    std::u16string out;
    signature.Convert(c, out);
    return out;
}

bool isMapped(const CFontSignature& signature)
{
    DWORD words[4];
    signature.GetUsb(words);
    return words[0] == 1 && words[1] == 2 && words[2] == 3 && words[3] == 0x80000004;
}

TEST_F(FontMapping, UsualRulesFollowTheCustomSignature)
{
    for (CaseRow row : CaseRows(TEST_DATA "/font_mapping.tsv", "usual")) {
        const auto custom = row.Number<DWORD>();
        Map(usb + "\"Custom Signature\" = number " + std::to_string(custom));
        const CFontSignature signature = Loaded();
        EXPECT_TRUE(isMapped(signature));
        EXPECT_EQ(signature.GetCustomSignature(), custom);
        const WCHAR from = row.Number<WCHAR>();
        EXPECT_EQ(converted(signature, from), std::u16string(1, row.Number<WCHAR>())) << row.Line();
    }
}

TEST_F(FontMapping, DetailedRulesReplaceTheUsualOnes)
{
    Map(usb + R"("Custom Signature" = number 1
"Advanced Mapping" = number 2
"Zone Count" = number 4
"Zone 1 First" = number 0x100
"Zone 1 Last" = number 0x1FF
"Zone 1 Offset" = number 0x100
"Zone 2 First" = number 0x300
"Zone 2 Last" = number 0x300
"ZONE 3 FIRST" = number 0x150
"Zone 3 Last" = number 0x15F
"Zone 3 Offset" = number 0xFFFF0010
"Zone 5 First" = number 0
"Zone 5 Last" = number 0xFFFF
"Zone 5 Offset" = number 1
"Mapping Count" = number 12
"Mapping 2" = number 0x01600041
"Mapping 12" = number 0x01600042
"Mapping 13" = number 0x01600043
"Mapping 03" = number 0x01700043
"Multimap Count" = number 3
"Multimap 1 From" = number 0x161
"Multimap 1 Ch 1" = number 0x61
"Multimap 1 Ch 2" = number 0x62
"Multimap 1 Ch 4" = number 0x63
"Multimap 2 Ch 1" = number 0x61
"Multimap 3 From" = number 0x162
)");
    const CFontSignature signature = Loaded();
    for (CaseRow row : CaseRows(TEST_DATA "/font_mapping.tsv", "detailed")) {
        const WCHAR from = row.Number<WCHAR>();
        EXPECT_EQ(converted(signature, from), row.Units()) << row.Line();
    }
}

TEST_F(FontMapping, WithoutBothSignaturesTheFaceSpeaksForItself)
{
    const std::string custom = "\"Custom Signature\" = number 1\n";
    const std::string incomplete[] = {
        "",
        usb,
        custom,
        custom + "\"USB Signature\" = binary 01 00 00 00 02 00 00 00 03 00 00 00",
        custom + "\"USB Signature\" = binary 01 00 00 00 02 00 00 00 03 00 00 00 04 00 00 00 05",
        custom + "\"USB Signature\" = text \"0123456789ABCDEF\"",
        usb + "\"Custom Signature\" = text \"1\"",
        usb + "\"Custom Signature\" = binary 01",
    };
    for (const std::string& values : incomplete) {
        const TempFolder fresh;
        setenv("COREKIT_HOME", fresh.Path().c_str(), 1);
        Map(values);
        const CFontSignature signature = Loaded();
        EXPECT_FALSE(isMapped(signature)) << values;
        EXPECT_EQ(signature.GetCustomSignature(), 0u) << values;
        EXPECT_EQ(converted(signature, 0xE041), u"\uE041") << values;
    }
}

// The counts are promises of two thousand million values; what is there takes effect, and at once.
TEST_F(FontMapping, CountsBeyondAllValuesTakeNoTime)
{
    Map(usb + R"("Custom Signature" = number 1
"Advanced Mapping" = number 0xFFFFFFFF
"Zone Count" = number 0x7FFFFFFF
"Zone 2147483647 First" = number 0x100
"Zone 2147483647 Last" = number 0x1FF
"Zone 2147483647 Offset" = number 0x100
"Zone 2147483648 First" = number 0x200
"Zone -1 First" = number 0x200
"Zone  First" = number 0x200
"Zone 99999999999999999999 First" = number 0x200
"Mapping Count" = number 0x7FFFFFFF
"Mapping 2000000000" = number 0x00410042
"Mapping 7" = text "0x00430044"
"Mapping 8" = binary 01
"Multimap Count" = number 0xFFFFFFFF
"Multimap 1 From" = number 0x44
"Multimap 1 Ch 1" = number 0x45
)");
    const CFontSignature signature = Loaded();
    EXPECT_EQ(converted(signature, 0x0101), u"\u0001");
    EXPECT_EQ(converted(signature, 0x0201), u"\u0201");
    EXPECT_EQ(converted(signature, u'A'), u"B");
    EXPECT_EQ(converted(signature, u'C'), u"C");
    EXPECT_EQ(converted(signature, u'D'), u"D"); // -1 multimaps
}

} // namespace
