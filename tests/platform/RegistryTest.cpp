#include "corekit/platform/Registry.h"

#include "tests/support/RegistryHome.h"

#include <string>
#include <thread>
#include <vector>

namespace {
constexpr DWORD readWrite = 0x2001F;

std::string EnumName(HKEY key, DWORD index, bool values)
{
    char name[300];
    DWORD size = sizeof name;
    const LONG code = values ? RegEnumValueA(key, index, name, &size, nullptr, nullptr, nullptr, nullptr)
                             : RegEnumKeyExA(key, index, name, &size, nullptr, nullptr, nullptr, nullptr);
    return code == 0 ? std::string(name, size) : "(" + std::to_string(code) + ")";
}

class RegistryTest : public RegistryHome {
protected:
    ~RegistryTest() override { RegCloseKey(m_key); }

    HKEY Create(const char* path, DWORD access = readWrite)
    {
        HKEY key = nullptr;
        EXPECT_EQ(RegCreateKeyExA(HKEY_LOCAL_MACHINE, path, 0, nullptr, 0, access, nullptr, &key, nullptr),
                  0);
        return key;
    }
    LONG Set(HKEY key, const char* name, const std::string& bytes, DWORD type = REG_SZ)
    {
        return RegSetValueExA(key, name, 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                              static_cast<DWORD>(bytes.size()));
    }
    std::string Get(HKEY key, const char* name, LONG* code = nullptr)
    {
        std::string bytes(100'000, '\0');
        auto size = static_cast<DWORD>(bytes.size());
        const LONG result =
            RegQueryValueExA(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(bytes.data()), &size);
        if (code) *code = result;
        bytes.resize(result == 0 ? size : 0);
        return bytes;
    }

    HKEY m_key = Create("Software\\Test");
};
} // namespace

TEST_F(RegistryTest, EveryTypeComesBackWithItsBytes)
{
    std::string allBytes;
    for (int i = 255; i >= 0; --i) allBytes += static_cast<char>(i);
    const struct {
        DWORD type;
        std::string bytes;
    } rows[] = {{REG_SZ, std::string("text\0", 5)},
                {REG_SZ, ""},
                {REG_SZ, "caf\xE9 unterminated"},
                {REG_MULTI_SZ, std::string("a\0b\0\0", 5)},
                {REG_BINARY, allBytes},
                {REG_DWORD, "1234"},
                {REG_SZ, allBytes},
                {0xDEADBEEF, "odd type"},
                {REG_BINARY, std::string(90'000, 'x')}};
    for (const auto& row : rows) {
        ASSERT_EQ(Set(m_key, "Name", row.bytes, row.type), 0);
        DWORD type = 77, size = 0;
        ASSERT_EQ(RegQueryValueExA(m_key, "nAME", nullptr, &type, nullptr, &size), 0);
        EXPECT_EQ(type, row.type);
        EXPECT_EQ(size, row.bytes.size());
        EXPECT_EQ(Get(m_key, "Name"), row.bytes);
    }
}

TEST_F(RegistryTest, AShortBufferGetsTheSizeAndIsLeftAlone)
{
    ASSERT_EQ(Set(m_key, "", "0123456789"), 0);
    BYTE buffer[4] = {9, 9, 9, 9};
    DWORD size = sizeof buffer;
    EXPECT_EQ(RegQueryValueExA(m_key, nullptr, nullptr, nullptr, buffer, &size), LONG(ERROR_MORE_DATA));
    EXPECT_EQ(size, 10u);
    EXPECT_EQ(buffer[0], 9);
    char name[2];
    size = sizeof name;
    ASSERT_EQ(Set(m_key, "ab", ""), 0);
    EXPECT_EQ(RegEnumValueA(m_key, 1, name, &size, nullptr, nullptr, nullptr, nullptr),
              LONG(ERROR_MORE_DATA));
}

TEST_F(RegistryTest, NamesIgnoreCaseAndKeepTheirFirstSpelling)
{
    ASSERT_EQ(Set(m_key, "B", "1"), 0);
    ASSERT_EQ(Set(m_key, "a", "2"), 0);
    ASSERT_EQ(Set(m_key, "b", "3"), 0);
    EXPECT_EQ(EnumName(m_key, 0, true), "B");
    EXPECT_EQ(EnumName(m_key, 1, true), "a");
    EXPECT_EQ(EnumName(m_key, 2, true), "(259)");
    EXPECT_EQ(Get(m_key, "B"), "3");

    RegCloseKey(Create("Software\\Test\\zeta"));
    RegCloseKey(Create("SOFTWARE\\test\\Alpha\\"));
    RegCloseKey(Create("Software\\Test\\ALPHA"));
    EXPECT_EQ(EnumName(m_key, 0, false), "Alpha");
    EXPECT_EQ(EnumName(m_key, 1, false), "zeta");
    EXPECT_EQ(EnumName(m_key, 2, false), "(259)");
    EXPECT_EQ(RegDeleteKeyA(m_key, "alpha"), 0);
    EXPECT_EQ(EnumName(m_key, 0, false), "zeta");
}

TEST_F(RegistryTest, WrongCallsHaveTheirDocumentedCodes)
{
    HKEY key = nullptr;
    const auto open = [&](const char* path) { return RegOpenKeyExA(m_key, path, 0, readWrite, &key); };
    EXPECT_EQ(open("Missing"), LONG(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(open("\\Leading"), LONG(ERROR_BAD_PATHNAME));
    EXPECT_EQ(open(std::string(256, 'k').c_str()), LONG(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(key, nullptr);
    EXPECT_EQ(RegCloseKey(nullptr), LONG(ERROR_INVALID_HANDLE));
    EXPECT_EQ(Set(nullptr, "x", "y"), LONG(ERROR_INVALID_HANDLE));
    EXPECT_EQ(RegDeleteValueA(m_key, "Missing"), LONG(ERROR_FILE_NOT_FOUND));
    RegCloseKey(Create("Software\\Test\\Parent\\Child"));
    EXPECT_EQ(RegDeleteKeyA(m_key, "Parent"), LONG(ERROR_ACCESS_DENIED));

    const HKEY child = Create("Software\\Test\\Parent\\Child");
    ASSERT_EQ(RegDeleteKeyA(m_key, "Parent\\Child"), 0);
    EXPECT_EQ(Set(child, "x", "y"), LONG(ERROR_KEY_DELETED));
    LONG code = 0;
    Get(child, "x", &code);
    EXPECT_EQ(code, LONG(ERROR_KEY_DELETED));
    EXPECT_EQ(RegCloseKey(child), 0);
    EXPECT_EQ(RegCloseKey(child), LONG(ERROR_INVALID_HANDLE));
}

TEST_F(RegistryTest, HandleMayDoOnlyWhatItWasOpenedFor)
{
    const HKEY reader = Create("Software\\Test", KEY_READ), writer = Create("Software\\Test", KEY_SET_VALUE);
    EXPECT_EQ(Set(reader, "v", "1"), LONG(ERROR_ACCESS_DENIED));
    EXPECT_EQ(Set(writer, "v", "1"), 0);
    LONG code = 0;
    Get(writer, "v", &code);
    EXPECT_EQ(code, LONG(ERROR_ACCESS_DENIED));
    EXPECT_EQ(Get(reader, "v"), "1");
    RegCloseKey(reader);
    RegCloseKey(writer);
}

TEST_F(RegistryTest, OpeningMakesNoFileAndRemoteMachinesAreOutOfReach)
{
    const TempFolder other;
    setenv("COREKIT_HOME", (other / "deep/er").c_str(), 1);
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExA(HKEY_LOCAL_MACHINE, "Software", 0, readWrite, &key), LONG(ERROR_FILE_NOT_FOUND));
    EXPECT_FALSE(std::filesystem::exists(other / "deep"));
    RegCloseKey(Create("Software"));
    EXPECT_TRUE(std::filesystem::exists(other / "deep/er/registry.db"));

    EXPECT_EQ(RegConnectRegistryA("\\\\no-such-host", HKEY_LOCAL_MACHINE, &key), LONG(ERROR_BAD_NETPATH));
    ASSERT_EQ(RegConnectRegistryA("\\localhost", HKEY_LOCAL_MACHINE, &key), 0);
    EXPECT_EQ(EnumName(key, 0, false), "Software");
    RegCloseKey(key);
}

TEST_F(RegistryTest, DamagedFileIsReportedAndLeftAsItIs)
{
    const TempFolder other;
    const std::string garbage(10'000, 'g');
    WriteWhole(other / "registry.db", garbage);
    setenv("COREKIT_HOME", other.Path().c_str(), 1);
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExA(HKEY_LOCAL_MACHINE, "Software", 0, readWrite, &key),
              LONG(ERROR_REGISTRY_CORRUPT));
    EXPECT_EQ(
        RegCreateKeyExA(HKEY_LOCAL_MACHINE, "Software", 0, nullptr, 0, readWrite, nullptr, &key, nullptr),
        LONG(ERROR_REGISTRY_CORRUPT));
    EXPECT_EQ(ReadWhole(other / "registry.db"), garbage);
}

TEST_F(RegistryTest, ThreadsSeeWholeValuesWhileOthersWrite)
{
    std::vector<std::thread> threads;
    ASSERT_EQ(Set(m_key, "shared", std::string(64, '0')), 0);
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&, t] {
            for (int i = 0; i < 100; ++i) {
                const std::string mine(64, static_cast<char>('0' + t));
                EXPECT_EQ(t < 2 ? Set(m_key, "shared", mine) : 0, 0);
                const std::string seen = Get(m_key, "shared");
                EXPECT_EQ(seen, std::string(64, seen.empty() ? '?' : seen[0]));
            }
        });
    for (std::thread& thread : threads) thread.join();
}

// In a process of its own, as a process has one code page.
TEST_F(RegistryTest, TheSecondByteOfACharacterIsNoSeparator)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    setenv("COREKIT_CODEPAGE", "932", 1);
    const auto check = [&] {
        RegCloseKey(Create("Software\\Test\\\x95\x5C\\\x83\x5C\\"));
        HKEY key = nullptr;
        return RegOpenKeyExA(m_key, "\x95\x5C", 0, readWrite, &key) == 0 &&
               EnumName(m_key, 0, false) == "\x95\x5C" && EnumName(key, 0, false) == "\x83\x5C";
    };
    EXPECT_EXIT(_exit(check() ? 0 : 1), testing::ExitedWithCode(0), "");
    unsetenv("COREKIT_CODEPAGE");
}
