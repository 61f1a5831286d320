#include "corekit/stores/IniFile.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/SystemNames.h"
#include "tests/support/CaseRows.h"
#include "tests/support/TempFolder.h"
#include "tests/support/Thrown.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>

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
    const std::map<std::string, std::function<void(CaseRow&)>> set = {
        {"truth", [&](CaseRow& row) { m_ini.SetBoolean("s", "k", row.Number()); }},
        {"number", [&](CaseRow& row) { m_ini.SetInteger("s", "k", row.Number()); }},
        {"hexadecimal", [&](CaseRow& row) { m_ini.SetHex("s", "k", row.Number<DWORD>()); }},
        {"colour", [&](CaseRow& row) { m_ini.SetRGB("s", "k", row.Number<DWORD>()); }},
        {"block",
         [&](CaseRow& row) {
             const std::string bytes = row.Bytes();
             m_ini.SetDataBlock("s", "k", bytes.data(), static_cast<DWORD>(bytes.size()));
         }},
        {"unicode", [&](CaseRow& row) { m_ini.SetUnicodeString("s", "k", row.Units().c_str()); }},
    };
    for (CaseRow row : CaseRows(TEST_DATA "/ini_values.tsv", "written")) {
        set.at(row.Word())(row);
        EXPECT_EQ(Stored(), Line(row.Word())) << row.Line();
    }
    const _GUID guid = {0x01234567, 0x89AB, 0xCDEF, {1, 2, 3, 4, 5, 6, 7, 0xFF}};
    m_ini.SetClassID("s", "k", guid);
    EXPECT_EQ(Stored(), Line("{01234567-89AB-CDEF-0102-0304050607FF}"));
    _GUID back{};
    EXPECT_EQ(m_ini.GetClassID("s", "k", &back), 1);
    EXPECT_EQ(back, guid);
}

TEST_F(IniFile, NumbersAndWordsAreReadInTheirOtherSpellings)
{
    for (CaseRow row : CaseRows(TEST_DATA "/ini_values.tsv", "spelling")) {
        Put(row.Bytes());
        EXPECT_EQ(m_ini.GetBoolean("s", "k", 9), row.Number()) << row.Line();
        EXPECT_EQ(m_ini.GetInteger("s", "k", 9), row.Number()) << row.Line();
        EXPECT_EQ(m_ini.GetHex("s", "k", 9), row.Number<DWORD>()) << row.Line();
        EXPECT_EQ(m_ini.GetRGB("s", "k", 9), row.Number<DWORD>()) << row.Line();
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
    for (CaseRow row : CaseRows(TEST_DATA "/ini_values.tsv", "no unicode")) {
        Put(row.Bytes());
        EXPECT_EQ(m_ini.GetUnicodeString("s", "k", text), 0) << row.Line();
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

TEST_F(IniFile, AttachingARequiredFileThatIsMissingThrows)
{
    CIniFile ini;
    ini.Attach((m_folder / "none.ini").c_str());
    EXPECT_EQ(Thrown([&] { ini.Attach((m_folder / "none.ini").c_str(), 1); }),
              "Cannot open .INI file - it does not exist.");
    Put("1");
    ini.Attach(m_ini.GetPath(), 1);
    ini.DeleteEntry("s", "k");
    EXPECT_EQ(Stored(), "[s]\n");
    ini.DeleteSection("s");
    EXPECT_EQ(Stored(), "");
}
