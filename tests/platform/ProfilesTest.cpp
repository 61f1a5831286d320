#include "corekit/platform/Profiles.h"

#include "corekit/platform/Errors.h"
#include "tests/support/CaseRows.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>
#define SI_NO_CONVERSION
#include <SimpleIni.h>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <vector>

namespace {
constexpr const char* personsFile = "\xEF\xBB\xBF; studio A\r\n"
                                    "\r\n"
                                    "[ Display ]   \r\n"
                                    "  Width =  1920   ; not a remark\r\n"
                                    "this line says nothing\r\n"
                                    "Title=\" quoted \"\r\n"
                                    "Empty=\r\n"
                                    "width=7\r\n"
                                    "\r\n"
                                    "; about sound\r\n"
                                    "[Sound]\r\n"
                                    "Level=3";

class Profiles : public testing::Test {
protected:
    std::string Get(const char* section, const char* key, DWORD size = 100)
    {
        std::string buffer(size, 'x');
        const DWORD length =
            GetPrivateProfileStringA(section, key, "none  ", buffer.data(), size, m_file.c_str());
        return buffer.substr(0, length);
    }
    std::string After(const char* section, const char* key, const char* value)
    {
        WriteWhole(m_file, personsFile);
        EXPECT_TRUE(WritePrivateProfileStringA(section, key, value, m_file.c_str()));
        return ReadWhole(m_file);
    }
    static std::string Changed(std::string text, const std::string& from, const std::string& to)
    {
        return text.replace(text.find(from), from.size(), to);
    }

    TempFolder m_folder;
    std::string m_file = m_folder / "studio.ini";
};
} // namespace

TEST_F(Profiles, ValuesAreFoundWithoutBlanksCaseAndQuotationMarks)
{
    WriteWhole(m_file, personsFile);
    for (CaseRow row : CaseRows(TEST_DATA "/profiles.tsv", "value")) {
        const std::string section = row.Word(), key = row.Word();
        EXPECT_EQ(Get(section.c_str(), key.c_str()), row.Word()) << row.Line();
    }
    EXPECT_EQ(Get("Sound", nullptr), std::string("Level\0", 6));
    EXPECT_EQ(Get(nullptr, nullptr), std::string("Display\0Sound\0", 14));
    EXPECT_EQ(Get(nullptr, nullptr, 15), std::string("Display\0Sound\0", 14));
    EXPECT_EQ(Get(nullptr, nullptr, 14), std::string("Display\0Soun", 12));
    EXPECT_EQ(Get("Display", "Title", 4), " qu");
    m_file = m_folder / "missing.ini";
    EXPECT_EQ(Get("Display", "Width"), "none");
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
}

TEST_F(Profiles, ChangeTouchesItsLineAndNoOtherByte)
{
    const std::string persons = personsFile;
    EXPECT_EQ(After("DISPLAY", "width", "80"), Changed(persons, "1920   ; not a remark", "80"));
    EXPECT_EQ(After("Display", "Title", "1920   ; x"), Changed(persons, "\" quoted \"", "1920   ; x"));
    EXPECT_EQ(After("Display", "Empty", "no more"), Changed(persons, "Empty=", "Empty=no more"));
    EXPECT_EQ(After("Display", "New", "1"), Changed(persons, "width=7\r\n", "width=7\r\nNew=1\r\n"));
    EXPECT_EQ(After("Sound", "New", "1"), persons + "\r\nNew=1\r\n");
    EXPECT_EQ(After("Third", "New", "1"), persons + "\r\n\r\n[Third]\r\nNew=1\r\n");
    EXPECT_EQ(After("Display", "Title", nullptr), Changed(persons, "Title=\" quoted \"\r\n", ""));
    EXPECT_EQ(After("Sound", nullptr, nullptr), persons.substr(0, persons.find("[Sound]")));
    const std::size_t begin = persons.find("[ Display"), end = persons.find("; about");
    EXPECT_EQ(After("display", nullptr, nullptr), persons.substr(0, begin) + persons.substr(end))
        << "the remark above the next section stays";
    EXPECT_EQ(After("Fourth", "x", nullptr), persons);
}

TEST_F(Profiles, NamesThatWouldNotBeReadBackAreRefused)
{
    const auto expectRefused = [&](const char* section, const std::string& key, const std::string& value) {
        EXPECT_FALSE(WritePrivateProfileStringA(section, key.c_str(), value.c_str(), m_file.c_str()));
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    };
    for (CaseRow row : CaseRows(TEST_DATA "/profiles.tsv", "refused")) {
        SCOPED_TRACE(row.Line());
        const std::string section = row.Bytes(), key = row.Bytes();
        expectRefused(section.c_str(), key, row.Bytes());
    }
    expectRefused(nullptr, "k", "v");
    EXPECT_FALSE(std::filesystem::exists(m_file));
    const std::string wide("\xFF\xFE[\0s\0]\0", 8);
    WriteWhole(m_file, wide);
    EXPECT_FALSE(WritePrivateProfileStringA("s", "k", "v", m_file.c_str()));
    EXPECT_EQ(ReadWhole(m_file), wide);
}

TEST_F(Profiles, ReplacedFileKeepsItsRightsAndItsLink)
{
    WriteWhole(m_folder / "real.ini", personsFile);
    chmod((m_folder / "real.ini").c_str(), 0604);
    std::filesystem::create_symlink("real.ini", m_file);
    ASSERT_TRUE(WritePrivateProfileStringA("Sound", "Level", "4", m_file.c_str()));
    struct stat status;
    ASSERT_EQ(stat((m_folder / "real.ini").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0604u);
    EXPECT_TRUE(std::filesystem::is_symlink(m_file));
    EXPECT_EQ(Get("Sound", "Level"), "4");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(m_folder.Path()), {}), 2)
        << "nothing is left lying";
}

TEST_F(Profiles, WritersAtOnceLoseNoneOfTheirChanges)
{
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&, t] {
            const std::string section(1, static_cast<char>('a' + t));
            for (int i = 0; i < 10; ++i)
                WritePrivateProfileStringA(section.c_str(), std::to_string(i).c_str(), "v", m_file.c_str());
        });
    for (std::thread& thread : threads) thread.join();
    for (const char* section : {"a", "b", "c", "d"}) EXPECT_EQ(Get(section, nullptr).size(), 20u) << section;
}

TEST_F(Profiles, AnotherLibraryReadsOursAndWeReadItsFiles)
{
    ASSERT_TRUE(WritePrivateProfileStringA("One", "Key", "value with blanks", m_file.c_str()));
    ASSERT_TRUE(WritePrivateProfileStringA("Two", "Key", "2", m_file.c_str()));
    ASSERT_TRUE(WritePrivateProfileStringA("One", "Other", "1", m_file.c_str()));
    CSimpleIniA other;
    ASSERT_EQ(other.LoadFile(m_file.c_str()), SI_OK);
    EXPECT_STREQ(other.GetValue("one", "key"), "value with blanks");
    EXPECT_STREQ(other.GetValue("two", "KEY"), "2");
    other.SetValue("Three", "Theirs", "x y", "; a remark");
    ASSERT_EQ(other.SaveFile(m_file.c_str()), SI_OK);
    EXPECT_EQ(Get("three", "theirs"), "x y");
    EXPECT_EQ(Get("One", "Other"), "1");
}

// In a process of its own, as a process has one code page.
TEST_F(Profiles, TheSecondByteOfACharacterIsNoSign)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    setenv("COREKIT_CODEPAGE", "932", 1);
    const auto write = [this](const char* section, const char* key, const char* value) {
        return WritePrivateProfileStringA(section, key, value, m_file.c_str()) != 0;
    };
    const auto check = [&] {
        // Two sections, one of which has a bracket in its name; two keys that differ in a letter's case.
        return write("\x83\x5D", "\x83\x41", "1") && write("\x83\x5D", "\x83\x61", "2") &&
               !write("a]", "k", "3") && Get("\x83\x5D", "\x83\x41") == "1" &&
               Get("\x83\x5D", "\x83\x61") == "2" && Get("\x83", "\x83\x41") == "none";
    };
    EXPECT_EXIT(_exit(check() ? 0 : 1), testing::ExitedWithCode(0), "");
    unsetenv("COREKIT_CODEPAGE");
}
