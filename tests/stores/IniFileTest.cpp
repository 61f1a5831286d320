#include "corekit/stores/IniFile.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/SystemNames.h"
#include "tests/TempFolder.h"

#include <gtest/gtest.h>

namespace {
std::u16string Text(const StringW& text) { return static_cast<const WCHAR*>(text); }

class IniFile : public testing::Test {
protected:
    void Put(const std::string& value) { m_ini.SetString("s", "k", value.c_str()); }
    std::string Stored() { return ReadWhole(m_folder / "x.ini"); }
    std::string Line(const std::string& value) { return "[s]\nk=" + value + "\n"; }

    TempFolder m_folder;
    CIniFile m_ini{(m_folder / "x.ini").c_str()};
};
} // namespace

TEST_F(IniFile, EveryTypeHasItsWrittenForm)
{
    const _GUID guid = {0x01234567, 0x89AB, 0xCDEF, {1, 2, 3, 4, 5, 6, 7, 0xFF}};
    m_ini.SetBoolean("s", "k", 5);
    EXPECT_EQ(Stored(), Line("True"));
    m_ini.SetBoolean("s", "k", 0);
    EXPECT_EQ(Stored(), Line("False"));
    m_ini.SetInteger("s", "k", -12);
    EXPECT_EQ(Stored(), Line("-12"));
    m_ini.SetHex("s", "k", 0xABC);
    EXPECT_EQ(Stored(), Line("00000ABC"));
    m_ini.SetRGB("s", "k", 0x00030201);
    EXPECT_EQ(Stored(), Line("1, 2, 3"));
    m_ini.SetDataBlock("s", "k", "\x0A\xFF", 2);
    EXPECT_EQ(Stored(), Line("0AFF"));
    m_ini.SetUnicodeString("s", "k", u"A\u05D0");
    EXPECT_EQ(Stored(), Line("2!14000D50"));
    m_ini.SetUnicodeString("s", "k", u"");
    EXPECT_EQ(Stored(), Line("0!"));
    m_ini.SetClassID("s", "k", guid);
    EXPECT_EQ(Stored(), Line("{01234567-89AB-CDEF-0102-0304050607FF}"));
    _GUID back{};
    EXPECT_EQ(m_ini.GetClassID("s", "k", &back), 1);
    EXPECT_EQ(back, guid);
}

TEST_F(IniFile, NumbersAndWordsAreReadInTheirOtherSpellings)
{
    const struct {
        const char* text;
        int boolean, integer;
        DWORD hex, rgb;
    } rows[] = {{"yes", 1, 0, 0, 9},
                {"oN", 1, 0, 0, 9},
                {"NO", 0, 0, 0, 9},
                {"off", 0, 0, 0, 9},
                {"maybe", 9, 0, 0, 9},
                {"0x1F", 9, 31, 31, 9},
                {"017", 9, 15, 23, 9},
                {"-5", 9, -5, DWORD(-5), 9},
                {"99999999999", 9, 2147483647, 0xFFFFFFFF, 9},
                {"1, 2, 3", 9, 1, 1, 0x030201},
                {"1,2;3", 9, 1, 1, 0x030201},
                {"1  2", 9, 1, 1, 9},
                {"1, 2, 256", 9, 1, 1, 9},
                {"255 255 255", 9, 255, 0x255, 0xFFFFFF},
                {"0000000001, 002, 0000000000255", 9, 1, 1, 0xFF0201},
                {"1, 2, 0000000256", 9, 1, 1, 9},
                {"1, 2", 9, 1, 1, 9}};
    for (const auto& row : rows) {
        Put(row.text);
        EXPECT_EQ(m_ini.GetBoolean("s", "k", 9), row.boolean) << row.text;
        EXPECT_EQ(m_ini.GetInteger("s", "k", 9), row.integer) << row.text;
        EXPECT_EQ(m_ini.GetHex("s", "k", 9), row.hex) << row.text;
        EXPECT_EQ(m_ini.GetRGB("s", "k", 9), row.rgb) << row.text;
    }
    Put("");
    CString kept = "kept";
    EXPECT_EQ(m_ini.GetString("s", "k", kept), 0);
    EXPECT_STREQ(kept, "kept");
    EXPECT_EQ(m_ini.GetInteger("s", "k", 9), 9);
    Put(std::string(300, 'a'));
    EXPECT_EQ(m_ini.GetString("s", "k", kept), 1);
    EXPECT_EQ(kept.GetLength(), 255);
}

TEST_F(IniFile, BlocksNeedTheirExactLengthAndReadSmallDigitsAsZero)
{
    BYTE bytes[3] = {9, 9, 9};
    Put("0Aff4G");
    EXPECT_EQ(m_ini.GetDataBlock("s", "k", bytes, 2), 0);
    EXPECT_EQ(bytes[0], 9);
    EXPECT_EQ(m_ini.GetDataBlock("s", "k", bytes, 3), 1);
    EXPECT_EQ(bytes[0], 0x0A);
    EXPECT_EQ(bytes[1], 0);
    EXPECT_EQ(bytes[2], 0x40);
    EXPECT_EQ(m_ini.GetDataBlock("s", "missing", bytes, 0), 1);
    const std::string large(1000, 'q');
    std::string back(1000, ' ');
    m_ini.SetDataBlock("s", "k", large.data(), 1000);
    EXPECT_EQ(m_ini.GetDataBlock("s", "k", back.data(), 1000), 1);
    EXPECT_EQ(back, large);
}

TEST_F(IniFile, UnicodeTextIsReadHighestDigitFirstAndCounted)
{
    StringW text = u"old";
    for (const char* bad : {"2!0041", "!0041", "1!004", "0041", "-1!", "9999999999!0041"}) {
        Put(bad);
        EXPECT_EQ(m_ini.GetUnicodeString("s", "k", text), 0) << bad;
    }
    EXPECT_EQ(Text(text), u"old");
    Put("2!004105D0");
    EXPECT_EQ(m_ini.GetUnicodeString("s", "k", text), 1);
    EXPECT_EQ(Text(text), u"A\u05D0");
    m_ini.SetUnicodeString("s", "k", u"A");
    EXPECT_EQ(m_ini.GetUnicodeString("s", "k", text), 1);
    EXPECT_EQ(Text(text), u"\u1400");
    Put("0!");
    EXPECT_EQ(m_ini.GetUnicodeString("s", "k", text), 1);
    EXPECT_EQ(Text(text), u"");
}

TEST_F(IniFile, MacrosAreExpandedAndCut)
{
    char user[256];
    DWORD size = sizeof user;
    ASSERT_TRUE(GetUserNameA(user, &size));
    const std::string name = user;
    setenv("COREKIT_TEST_MACRO", "abcdef", 1);
    const struct {
        std::string text;
        int result;
        std::string value;
    } rows[] = {{"%username%", 1, name},
                {"<%UserName!T3%>", 1, "<" + name.substr(0, 3) + ">"},
                {"%COREKIT_TEST_MACRO!t2%-%COREKIT_TEST_MACRO", 1, "ab-abcdef"},
                {"x%COREKIT_TEST_MACRO!T99%", 1, "xabcdef"},
                {"x%COREKIT_TEST_MACRO!2%y", 0, "x"},
                {"x%NO_SUCH_VARIABLE%y", 0, "x"},
                {"plain", 1, "plain"},
                {"%!T1%", 0, ""}};
    CString value;
    for (const auto& row : rows) {
        Put(row.text);
        EXPECT_EQ(m_ini.GetMacroString("s", "k", value), row.result) << row.text;
        EXPECT_STREQ(value, row.value.c_str()) << row.text;
    }
    EXPECT_EQ(m_ini.GetMacroString("s", "missing", value), 0);
}

TEST_F(IniFile, AttachToldThatTheFileMustExistSaysIfItDoesNot)
{
    CIniFile ini;
    ini.Attach((m_folder / "none.ini").c_str());
    try {
        ini.Attach((m_folder / "none.ini").c_str(), 1);
        FAIL();
    } catch (CChainedException* e) {
        EXPECT_STREQ(e->BuildMessageString(), "Cannot open .INI file - it does not exist.");
        e->Delete();
    }
    Put("1");
    ini.Attach(m_ini.GetPath(), 1);
    ini.DeleteEntry("s", "k");
    EXPECT_EQ(Stored(), "[s]\n");
    ini.DeleteSection("s");
    EXPECT_EQ(Stored(), "");
}
