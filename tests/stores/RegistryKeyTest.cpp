#include "corekit/stores/RegistryKey.h"

#include "corekit/foundation/ChainedException.h"
#include "tests/support/RegistryHome.h"
#include "tests/support/Thrown.h"

namespace {
class RegistryKeyTest : public RegistryHome {
protected:
    RegistryKeyTest() { m_key.Create(HKEY_LOCAL_MACHINE, "Software\\Test"); }

    CByteArray& Bytes(const char* name)
    {
        EXPECT_EQ(m_key.GetValue(name, m_bytes), 1) << name;
        return m_bytes;
    }

    CRegistryKey m_key;
    CByteArray m_bytes;
};

} // namespace

TEST_F(RegistryKeyTest, EachFormComesBackAsItsOwnTypeOnly)
{
    const _GUID guid = {0x01234567, 0x89AB, 0xCDEF, {1, 2, 3, 4, 5, 6, 7, 0xFF}};
    m_key.SetValue("text", "some text");
    m_key.SetValue("int", -5);
    m_key.SetValue("long", -6L);
    m_key.SetValue("wide", 0x123456789ABCDEFull);
    m_key.SetValue("rect", CRect(1, -2, 3, 4));
    m_key.SetValue("guid", guid);
    m_key.SetValue("bytes", "abc", 3);

    CString text;
    ASSERT_EQ(m_key.GetValue("guid", text), 1);
    EXPECT_STREQ(text, "{01234567-89AB-CDEF-0102-0304050607FF}");
    ASSERT_EQ(m_key.GetValue("text", text), 1);
    EXPECT_STREQ(text, "some text");
    int number = 77;
    EXPECT_EQ(m_key.GetValue("text", number), 0);
    EXPECT_EQ(m_key.GetValue("bytes", number), 0);
    EXPECT_EQ(m_key.GetValue("missing", number), 0);
    EXPECT_EQ(number, 77);
    EXPECT_EQ(m_key.GetValue("int", number), 1);
    EXPECT_EQ(number, -5);
    long signedLong = 0;
    unsigned long unsignedLong = 0;
    EXPECT_EQ(m_key.GetValue("long", signedLong), 1);
    EXPECT_EQ(m_key.GetValue("long", unsignedLong), 1);
    EXPECT_EQ(signedLong, -6);
    EXPECT_EQ(unsignedLong, 0xFFFFFFFAul);
    EXPECT_EQ(m_key.GetValue("int", text), 0);
    unsigned long long wide = 0;
    EXPECT_EQ(m_key.GetValue("rect", wide), 0);
    EXPECT_EQ(m_key.GetValue("wide", wide), 1);
    EXPECT_EQ(wide, 0x123456789ABCDEFull);
    CRect rect;
    EXPECT_EQ(m_key.GetValue("rect", rect), 1);
    EXPECT_EQ(rect, CRect(1, -2, 3, 4));
    _GUID back{};
    EXPECT_EQ(m_key.GetValue("text", back), 0);
    EXPECT_EQ(m_key.GetValue("guid", back), 1);
    EXPECT_EQ(back, guid);
    char buffer[16] = "untouched";
    EXPECT_EQ(m_key.GetValue("bytes", buffer, sizeof buffer), 0);
    EXPECT_STREQ(buffer, "untouched");
    EXPECT_EQ(m_key.GetValue("bytes", buffer, 3), 1);
    EXPECT_EQ(Bytes("bytes").GetSize(), 3);
}

TEST_F(RegistryKeyTest, ArraysTakeWholeFoursOnly)
{
    const int numbers[] = {0x00020001, -1};
    m_key.SetValue("eight", numbers, sizeof numbers);
    m_key.SetValue("seven", numbers, 7);
    CArray<int, int> ints;
    EXPECT_EQ(m_key.GetValue("seven", ints), 0);
    ASSERT_EQ(m_key.GetValue("eight", ints), 1);
    ASSERT_EQ(ints.GetSize(), 2);
    EXPECT_EQ(ints[1], -1);
    CWordArray words;
    EXPECT_EQ(m_key.GetValue("seven", words), 0);
    ASSERT_EQ(m_key.GetValue("eight", words), 1);
    ASSERT_EQ(words.GetSize(), 2);
    EXPECT_EQ(words[0], 1);
    EXPECT_EQ(words[1], 2);
}

TEST_F(RegistryKeyTest, HexStringDropsAHalfPairAndTakesAnySeparator)
{
    m_key.SetHexString("v", "0A-ff 3C");
    ASSERT_EQ(Bytes("v").GetSize(), 3);
    EXPECT_EQ(Bytes("v")[1], 0xFF);
    EXPECT_EQ(Bytes("v")[2], 0x3C);
    m_key.SetHexString("v", "0A-f");
    EXPECT_EQ(Bytes("v").GetSize(), 1);
    m_key.SetHexString("v", "");
    EXPECT_EQ(Bytes("v").GetSize(), 0);
}

TEST_F(RegistryKeyTest, AFailedOpenKeepsTheKeyAndFailuresAreReported)
{
    m_key.SetValue("v", 1);
    EXPECT_EQ(m_key.Open(HKEY_LOCAL_MACHINE, "Missing"), 0);
    int number = 0;
    EXPECT_EQ(m_key.GetValue("v", number), 1);
    EXPECT_EQ(m_key.OpenRemoteKey("\\\\no-such-host", HKEY_LOCAL_MACHINE), 0);
    EXPECT_TRUE(m_key.IsOpen());

    CRegistryKey second{HKEY(m_key)};
    ASSERT_TRUE(second.IsOpen());
    EXPECT_NE(HKEY(second), HKEY(m_key));
    second.Close();
    EXPECT_TRUE(Thrown([&] { second.Close(); }).find("Failed attempting to close a registry key.") !=
                std::string::npos);
    EXPECT_TRUE(Thrown([&] { second.SetValue("v", 1); }).find("Failed attempting to set a registry value.") !=
                std::string::npos);
    EXPECT_TRUE(Thrown([&] {
                    second.Create(HKEY_LOCAL_MACHINE, "\\bad");
                }).find("Failed attempting to create a registry key.") != std::string::npos);
    second.Attach(m_key);
    RegCloseKey(second.Detach());
    EXPECT_FALSE(second.IsOpen());
}

TEST_F(RegistryKeyTest, DeletingWhatIsBelowMissesNothingAndSparesTheRest)
{
    CRegistryKey deep;
    for (const char* path : {"a\\b\\c", "a\\d", "e"}) {
        deep.Create(m_key, path);
        for (const char* name : {"1", "2", "3"}) deep.SetValue(name, path);
    }
    m_key.SetValue("own", 1);
    EXPECT_EQ(m_key.GetSubkeyCount(), 2);
    CString name, className;
    _FILETIME time{};
    ASSERT_EQ(m_key.EnumKey(1, name, className, &time), 1);
    EXPECT_STREQ(name, "e");
    EXPECT_GT(time.dwHighDateTime, 0x01D00000u);
    m_key.DeleteKey("a");
    EXPECT_EQ(m_key.GetSubkeyCount(), 2) << "a key with keys below it stays";

    m_key.DeleteSubKeys();
    EXPECT_EQ(m_key.GetSubkeyCount(), 0);
    DWORD type = 0;
    ASSERT_EQ(m_key.EnumValue(0, name, type), 1);
    EXPECT_STREQ(name, "own");
    EXPECT_EQ(type, REG_DWORD);
    m_key.DeleteContents();
    EXPECT_EQ(m_key.EnumValue(0, name, type), 0);
}
