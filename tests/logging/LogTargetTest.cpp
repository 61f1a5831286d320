#include "tests/logging/LogFolder.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/Files.h"
#include "corekit/platform/Handles.h"
#include "tests/support/Forked.h"
#include "tests/support/FullDisk.h"

#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

class LogTarget : public LogFolder {
protected:
    int Open() { return log.CreateLogFile("Server", folder.Path().c_str(), 0); }

    CTestClock clock{2026, 11, 14, 18, 30, 5};
    CLogTarget log;
};

std::string Line(const std::string& level, const std::string& text, const std::string& time = "18:30:05")
{
    return "14:11:2026 " + time + "  " + level + std::string(16 - level.size(), ' ') + "  " + text + "\n";
}

TEST_F(LogTarget, WritesEveryLevelInItsColumns)
{
    ASSERT_TRUE(Open());
    log.LogDebugMsg("one");
    log.LogTraceMsg(u"two");
    log.LogInfoMsg("");
    clock.Advance(60);
    log.LogWarningMsg("a\nb");
    log.LogMinorErrorMsg(4113u);
    log.LogMajorErrorMsg(static_cast<const char*>(nullptr));
    log.LogCriticalErrorMsg(u"caf\u00E9");
    log.LogMessage(0x80, "other");
    log.LogMessage(3, "two bits");
    log.CloseLogFile();
    const std::string later = "18:31:05";
    EXPECT_EQ(Text("Server.log"),
              Line("Information", "Log file opened") + Line("Debug", "one") + Line("Trace", "two") +
                  Line("Information", "") + Line("Warning", "a\nb", later) +
                  Line("MinorError", "[Memory Stream] Read past end of buffer", later) +
                  Line("MajorError", "", later) + Line("CriticalError", "caf\xE9", later) +
                  Line("*Unknown*", "other", later) + Line("*Unknown*", "two bits", later) +
                  Line("Information", "Log file closed", later));
}

TEST_F(LogTarget, MaskDecidesAndOpeningAndClosingAreAlwaysWritten)
{
    log.SetLogMask(0);
    ASSERT_TRUE(Open());
    log.LogCriticalErrorMsg("no");
    log.SetLogMask(logWarning | logDebug);
    log.LogInfoMsg("no");
    log.LogMessage(0, "no");
    log.LogMessage(logInformation | logDebug, "yes");
    log.CloseLogFile();
    log.LogWarningMsg("too late");
    EXPECT_EQ(Text("Server.log"), Line("Information", "Log file opened") + Line("*Unknown*", "yes") +
                                      Line("Information", "Log file closed"));
}

TEST_F(LogTarget, LongTextsAreCutIntoLinesOf1024Bytes)
{
    const struct {
        std::size_t length;
        std::vector<std::size_t> pieces;
    } cases[] = {
        {1023, {1023}}, {1024, {1024}}, {1025, {1024, 1}}, {2048, {1024, 1024}}, {2049, {1024, 1024, 1}}};
    for (const auto& [length, pieces] : cases) {
        std::filesystem::remove(folder / "Server.log");
        std::string text, expected = Line("Information", "Log file opened");
        while (text.size() < length) text += static_cast<char>('a' + text.size() % 23);
        std::size_t at = 0;
        for (const std::size_t piece : pieces)
            expected += Line("Trace", text.substr(std::exchange(at, at + piece), piece));
        ASSERT_TRUE(Open());
        log.LogTraceMsg(text.c_str());
        EXPECT_EQ(Text("Server.log"), expected) << length;
        log.CloseLogFile();
    }
}

TEST_F(LogTarget, GoesOnWhereAnEarlierRunEnded)
{
    WriteWhole(folder / "Server.log", "before\n");
    ASSERT_TRUE(log.CreateLogFile("Server", (folder.Path() + "\\").c_str(), 0));
    log.CloseLogFile();
    EXPECT_EQ(Text("Server.log"),
              "before\n" + Line("Information", "Log file opened") + Line("Information", "Log file closed"));
}

TEST_F(LogTarget, OpeningTwiceKeepsTheFirstFile)
{
    ASSERT_TRUE(Open());
    EXPECT_FALSE(log.CreateLogFile("Other", folder.Path().c_str(), 1));
    log.LogInfoMsg("here");
    EXPECT_EQ(Names(), std::vector<std::string>{"Server.log"});
    EXPECT_EQ(Lines("Server.log").size(), 2u);
    CLogTarget nowhere;
    EXPECT_FALSE(nowhere.CreateLogFile("Server", (folder / "missing").c_str(), 0));
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
}

TEST_F(LogTarget, OneWriterAtATime)
{
    ASSERT_TRUE(Open());
    CLogTarget second;
    EXPECT_FALSE(second.CreateLogFile("Server", folder.Path().c_str(), 0));
    EXPECT_EQ(GetLastError(), ERROR_SHARING_VIOLATION);
    const auto mayOpen = [this](DWORD access) {
        const HANDLE file =
            CreateFileA((folder / "Server.log").c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                        OPEN_EXISTING, 0, nullptr);
        if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
        return file != INVALID_HANDLE_VALUE;
    };
    EXPECT_TRUE(mayOpen(GENERIC_READ));
    EXPECT_FALSE(mayOpen(GENERIC_WRITE));
    log.CloseLogFile();
    EXPECT_TRUE(second.CreateLogFile("Server", folder.Path().c_str(), 0));
}

// Opens the log in another process; its answer and, on failure, its last error.
int OpenElsewhere(const std::string& folder)
{
    const pid_t child = fork();
    if (child == 0) {
        execl("/proc/self/exe", "test", "--open-log", folder.c_str(), nullptr);
        _exit(99);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(LogTarget, AnotherProcessIsKeptOut)
{
    ASSERT_TRUE(Open());
    EXPECT_EQ(OpenElsewhere(folder.Path()), static_cast<int>(ERROR_SHARING_VIOLATION));
    log.CloseLogFile();
    EXPECT_EQ(OpenElsewhere(folder.Path()), 0);
    EXPECT_EQ(Lines("Server.log").size(), 4u);
}

TEST_F(LogTarget, AClosedLogIsFreeThoughAForkedChildLives)
{
    ASSERT_TRUE(Open());
    const Bystander child;
    log.CloseLogFile();
    EXPECT_EQ(OpenElsewhere(folder.Path()), 0);
}

TEST_F(LogTarget, TenThreadsLoseAndTearNoLine)
{
    constexpr int threads = 10, messages = 300;
    ASSERT_TRUE(Open());
    std::vector<std::thread> running;
    for (int t = 0; t < threads; ++t)
        running.emplace_back([this, t] {
            for (int i = 0; i < messages; ++i)
                log.LogInfoMsg((std::to_string(t) + ":" + std::to_string(i) + std::string(900, 'x')).c_str());
        });
    log.SetLogMask(0xFF);
    log.SetOldLogFileDays(3);
    for (std::thread& thread : running) thread.join();
    std::vector<int> next(threads);
    const std::vector<std::string> lines = Lines("Server.log");
    ASSERT_EQ(lines.size(), 1u + threads * messages);
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const int thread = lines[i].at(39) - '0';
        const std::string text =
            std::to_string(thread) + ":" + std::to_string(next.at(thread)++) + std::string(900, 'x');
        ASSERT_EQ(lines[i] + "\n", Line("Information", text));
    }
}

TEST_F(LogTarget, WhatAFullDiskRefusedIsCountedInTheNextLine)
{
    ASSERT_TRUE(Open());
    {
        const FullDisk full(80);
        log.LogInfoMsg("does not fit whole");
        log.LogInfoMsg("nor this");
        EXPECT_EQ(Text("Server.log"), Line("Information", "Log file opened"));
    }
    log.LogInfoMsg("fits");
    log.LogInfoMsg("again");
    const std::vector<std::string> lines = Lines("Server.log");
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[1] + "\n",
              Line("MajorError", "Write log entries failed, The file is larger than allowed., 2 lost"));
    EXPECT_EQ(lines[2] + "\n", Line("Information", "fits"));
}

TEST(LogLevels, HaveTheirNames)
{
    EXPECT_EQ(CLogTarget::GetLevelName(1), "Debug");
    EXPECT_EQ(CLogTarget::GetLevelName(64), "CriticalError");
    for (const unsigned long other : {0ul, 3ul, 128ul, 0x80000000ul})
        EXPECT_EQ(CLogTarget::GetLevelName(other), "*Unknown*");
    EXPECT_EQ(corekit::LogLevelOfName("minorerror"), 16u);
    EXPECT_EQ(corekit::LogLevelOfName("minor"), 0u);
}

} // namespace
