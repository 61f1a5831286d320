#include "tests/logging/LogFolder.h"

#include "corekit/logging/LogFollower.h"

namespace {

class LogFollower : public LogFolder {
protected:
    // The texts of the lines that are there to be read.
    std::vector<std::string> Read()
    {
        std::vector<std::string> texts;
        for (std::string line; follower.Next(line);) texts.emplace_back(ParseLogLine(line).text);
        return texts;
    }

    CTestClock clock{2026, 11, 14, 23, 59, 59};
    CLogTarget log;
    CLogFollower follower{"Server", folder.Path().c_str()};
};

TEST_F(LogFollower, GoesThroughTheDays)
{
    EXPECT_TRUE(Read().empty());
    MakeFile("Server.old.log"); // no day file
    MakeFile("Server.2026-11-13.log");
    ASSERT_TRUE(log.CreateLogFile("Server", folder.Path().c_str(), 1));
    log.SetLogMask(logWarning);
    log.LogWarningMsg("one\nmore");
    EXPECT_EQ(Read(), (std::vector<std::string>{"Log file opened", "one", "more"}));
    EXPECT_TRUE(Read().empty());
    log.LogWarningMsg("two");
    clock.Advance(86400);
    log.LogWarningMsg("three");
    clock.Advance(86400);
    log.LogWarningMsg("four");
    const std::string closed = "Date rollover detected, log file closed.",
                      opened = "Log file opened after date rollover";
    EXPECT_EQ(Read(), (std::vector<std::string>{"two", closed, opened, "three", closed, opened, "four"}));
    EXPECT_TRUE(follower.CurrentFile().ends_with("Server.2026-11-16.log"));
}

TEST_F(LogFollower, WaitsForTheEndOfALine)
{
    WriteWhole(folder / "Server.log", "half");
    EXPECT_TRUE(Read().empty());
    std::ofstream(folder / "Server.log", std::ios::app) << " a line\nnext";
    EXPECT_EQ(Read(), std::vector<std::string>{"half a line"});
}

TEST(LogLines, FallIntoTheirParts)
{
    const struct {
        const char *line, *time;
        DWORD level;
        const char* text;
    } cases[] = {
        {"14:11:2026 18:30:05  Warning           two  words", "14:11:2026 18:30:05", logWarning,
         "two  words"},
        {"14:11:2026 18:30:05  CriticalError     ", "14:11:2026 18:30:05", logCriticalError, ""},
        {"14:11:2026 18:30:05  *Unknown*         x", "14:11:2026 18:30:05", 0x80000000, "x"},
        {"14:11:2026 18:30:05  Warning          ", "", 0, "14:11:2026 18:30:05  Warning          "},
        {"a line of more than thirty-nine characters", "", 0, "a line of more than thirty-nine characters"},
        {"", "", 0, ""}};
    for (const auto& [line, time, level, text] : cases) {
        const LogLine parts = ParseLogLine(line);
        EXPECT_EQ(parts.time, time) << line;
        EXPECT_EQ(parts.level, level) << line;
        EXPECT_EQ(parts.text, text) << line;
    }
}

} // namespace
