#include "corekit/platform/Registry.h"

#include "tests/support/RegistryHome.h"

#include <chrono>
#include <csignal>
#include <functional>
#include <sqlite3.h>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {
constexpr DWORD readWrite = 0x2001F;

HKEY Create(const char* path)
{
    HKEY key = nullptr;
    return RegCreateKeyExA(HKEY_LOCAL_MACHINE, path, 0, nullptr, 0, readWrite, nullptr, &key, nullptr) == 0
               ? key
               : nullptr;
}

bool Set(HKEY key, const char* name, DWORD number)
{
    return RegSetValueExA(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number), sizeof number) ==
           0;
}

DWORD Get(HKEY key, const char* name)
{
    DWORD number = 0, size = sizeof number;
    RegQueryValueExA(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(&number), &size);
    return number;
}

pid_t Start(const std::function<int()>& work)
{
    const pid_t child = fork();
    if (child == 0) _exit(work());
    return child;
}

int ResultOf(pid_t child)
{
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string Named(const char* prefix, DWORD number)
{
    std::string name = prefix;
    name += std::to_string(number);
    return name;
}

class RegistryProcesses : public RegistryHome {};
} // namespace

// The reader's cache is warm before every write.
TEST_F(RegistryProcesses, FinishedWriteIsSeenByTheNextReadElsewhere)
{
    constexpr DWORD rounds = 500;
    const HKEY key = Create("Software\\Test");
    ASSERT_TRUE(key);
    int toChild[2], toParent[2];
    ASSERT_EQ(pipe(toChild), 0);
    ASSERT_EQ(pipe(toParent), 0);
    const pid_t child = Start([&] {
        DWORD received = 0;
        for (DWORD round = 1; round <= rounds; ++round) {
            if (read(toChild[0], &received, sizeof received) != sizeof received) return 3;
            for (int repeat = 0; repeat < 3; ++repeat)
                if (Get(key, "Count") != received) return 1;
            if (write(toParent[1], &received, sizeof received) != sizeof received) return 4;
        }
        return Set(key, "From child", 1) ? 0 : 2;
    });
    for (DWORD round = 1, answer = 0; round <= rounds; ++round) {
        ASSERT_TRUE(Set(key, "Count", round));
        ASSERT_EQ(write(toChild[1], &round, sizeof round), ssize_t(sizeof round));
        if (read(toParent[0], &answer, sizeof answer) != sizeof answer || answer != round) break;
    }
    EXPECT_EQ(ResultOf(child), 0);
    EXPECT_EQ(Get(key, "From child"), 1u);
    RegCloseKey(key);
    for (const int end : {toChild[0], toChild[1], toParent[0], toParent[1]}) close(end);
}

TEST_F(RegistryProcesses, ManyMayBeTheFirstAtOnce)
{
    std::vector<pid_t> children;
    for (DWORD i = 0; i < 6; ++i)
        children.push_back(Start([i] {
            const HKEY key = Create(Named("Software\\By\\", i).c_str());
            for (DWORD n = 1; n <= 50; ++n)
                if (!key || !Set(key, "n", n)) return 1;
            return 0;
        }));
    for (const pid_t child : children) EXPECT_EQ(ResultOf(child), 0);
    for (DWORD i = 0; i < 6; ++i) {
        const HKEY key = Create(Named("Software\\By\\", i).c_str());
        EXPECT_EQ(Get(key, "n"), 50u);
        RegCloseKey(key);
    }
}

// Each value counts as finished once the pipe says so.
TEST_F(RegistryProcesses, KilledWriterLosesNothingThatItHadFinished)
{
    const HKEY key = Create("Software\\Test");
    for (int round = 0; round < 10; ++round) {
        int received[2];
        ASSERT_EQ(pipe(received), 0);
        const pid_t child = Start([&] {
            for (DWORD n = 1;; ++n)
                if (!Set(key, "a", n) || !Set(key, Named("n", n % 50).c_str(), n) ||
                    write(received[1], &n, sizeof n) != sizeof n)
                    return 1;
        });
        close(received[1]);
        DWORD finished = 0;
        for (int i = 0; i < 20 + 7 * round; ++i)
            if (read(received[0], &finished, sizeof finished) != sizeof finished) break;
        kill(child, SIGKILL);
        ResultOf(child);
        for (DWORD more; read(received[0], &more, sizeof more) == sizeof more;) finished = more;
        close(received[0]);
        const DWORD a = Get(key, "a");
        EXPECT_TRUE(a == finished || a == finished + 1) << a << " after " << finished;
        EXPECT_EQ(Get(key, Named("n", finished % 50).c_str()), finished);
        EXPECT_TRUE(Set(key, "a", 0));
    }
    RegCloseKey(key);
}

TEST_F(RegistryProcesses, UserWhoMayOnlyReadIsRefusedWritingAndStillReads)
{
    const HKEY key = Create("Software\\Test");
    ASSERT_TRUE(Set(key, "v", 7));
    // Root is above permissions and becomes someone else first.
    const auto asReader = [](const std::function<int()>& work) {
        return ResultOf(Start([&] { return geteuid() != 0 || setuid(65534) == 0 ? work() : 9; }));
    };
    for (const auto& file : std::filesystem::directory_iterator(m_home.Path()))
        chmod(file.path().c_str(), 0444);
    chmod(m_home.Path().c_str(), 0555);
    const auto look = [] {
        HKEY opened = nullptr;
        if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, "Software\\Test", 0, readWrite, &opened) !=
            LONG(ERROR_ACCESS_DENIED))
            return 1;
        if (RegCreateKeyExA(HKEY_LOCAL_MACHINE, "New", 0, nullptr, 0, readWrite, nullptr, &opened, nullptr) !=
            LONG(ERROR_ACCESS_DENIED))
            return 2;
        if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, "Software\\Test", 0, KEY_READ, &opened) != 0) return 3;
        if (RegSetValueExA(opened, "v", 0, REG_DWORD, nullptr, 0) != LONG(ERROR_ACCESS_DENIED)) return 4;
        return Get(opened, "v") == 7 ? 0 : 5;
    };
    EXPECT_EQ(asReader(look), 0) << "beside a writer";
    RegCloseKey(key);
    const pid_t other = Start([&] { return asReader(look); });
    EXPECT_EQ(ResultOf(other), 0) << "with no writer about";
    chmod(m_home.Path().c_str(), 0755);
}

TEST_F(RegistryProcesses, VolatileKeysGoWithTheMachinesRestart)
{
    const HKEY top = Create("Software");
    HKEY key = nullptr;
    ASSERT_EQ(
        RegCreateKeyExA(top, "Passing", 0, nullptr, REG_OPTION_VOLATILE, readWrite, nullptr, &key, nullptr),
        0);
    RegCloseKey(Create("Software\\Passing\\Below"));
    ASSERT_TRUE(Set(key, "v", 1));
    const auto look = [&] {
        HKEY opened = nullptr;
        return RegOpenKeyExA(HKEY_LOCAL_MACHINE, "Software\\Passing\\Below", 0, KEY_READ, &opened) == 0 ? 1
                                                                                                        : 2;
    };
    EXPECT_EQ(ResultOf(Start(look)), 1);

    sqlite3* file = nullptr;
    ASSERT_EQ(sqlite3_open((m_home / "registry.db").c_str(), &file), SQLITE_OK);
    EXPECT_EQ(Get(key, "v"), 1u);
    const auto run = [&](const char* sql) { return sqlite3_exec(file, sql, nullptr, nullptr, nullptr); };
    EXPECT_EQ(run("UPDATE items SET data = x'02000000'"), SQLITE_OK);
    EXPECT_EQ(Get(key, "v"), 2u) << "a change by another program is seen too";
    EXPECT_EQ(run("UPDATE keys SET boot = 'earlier' WHERE boot IS NOT NULL"), SQLITE_OK);
    sqlite3_close(file);
    EXPECT_EQ(ResultOf(Start(look)), 2);
    RegCloseKey(key);
    RegCloseKey(top);
}

// Five writes that are refused one after the other take less time than two that wait for themselves.
TEST_F(RegistryProcesses, WhoWaitedInVainDoesNotWaitAsLongAgain)
{
    ASSERT_TRUE(Create("Software\\Test"));
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open((m_home / "registry.db").c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(Create("Software\\New"));
    const auto first = std::chrono::steady_clock::now() - start;
    for (int again = 0; again < 4; ++again) EXPECT_FALSE(Create("Software\\New"));
    EXPECT_LT(std::chrono::steady_clock::now() - start, 2 * first);
    sqlite3_close(other);
    EXPECT_TRUE(Create("Software\\New"));
}
