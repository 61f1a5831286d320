#include "tests/logging/LogFolder.h"
#include "tests/support/Thrown.h"

#include "corekit/stores/RegistryKey.h"
#include "corekit/Version.h"

#include <sys/stat.h>

namespace {

class LogRollover : public LogFolder {
protected:
    void Open() { ASSERT_TRUE(log.CreateLogFile("Server", folder.Path().c_str(), 1)); }
    void NextDay() { clock.Advance(86400); }
    // What the lines say, without the time.
    std::vector<std::string> Said(const std::string& name) const
    {
        std::vector<std::string> said;
        for (const std::string& line : Lines(name))
            said.push_back(line.substr(std::min<std::size_t>(line.size(), 21)));
        return said;
    }

    CTestClock clock{2026, 12, 31, 23, 59, 59};
    CLogTarget log;
};

const std::string version = std::string("Information       ") + CoreKitVersionText();

TEST_F(LogRollover, MidnightClosesTheOldFileAndOpensTheNext)
{
    Open();
    log.LogInfoMsg("last");
    clock.Advance(1);
    EXPECT_EQ(Names().size(), 1u) << "only a message rolls over";
    log.LogWarningMsg("first");
    log.LogWarningMsg("second");
    NextDay();
    log.LogWarningMsg("third");
    log.CloseLogFile();

    const std::string opened = "Information       Log file opened after date rollover";
    const std::string closed = "Information       Date rollover detected, log file closed.";
    EXPECT_EQ(Said("Server.2026-12-31.log"), (std::vector<std::string>{"Information       Log file opened",
                                                                       "Information       last", closed}));
    EXPECT_EQ(Said("Server.2027-01-01.log"),
              (std::vector<std::string>{opened, version, "Warning           first",
                                        "Warning           second", closed}));
    EXPECT_EQ(Said("Server.2027-01-02.log"),
              (std::vector<std::string>{opened, version, "Information       Last start: 01/01/2027\t00:00:00",
                                        "Warning           third", "Information       Log file closed"}));
    EXPECT_EQ(Lines("Server.2026-12-31.log").back().substr(0, 19), "01:01:2027 00:00:00");

    CRegistryKey key;
    CString noted;
    ASSERT_TRUE(key.Open(HKEY_LOCAL_MACHINE, "Software\\Corvane\\Tavrix\\Network"));
    ASSERT_TRUE(key.GetValue("Last Start Time", noted));
    EXPECT_EQ(noted, "Last start: 02/01/2027\t00:00:00");
}

TEST_F(LogRollover, WhatTheMaskHidesRollsNothingOver)
{
    Open();
    log.SetLogMask(logWarning);
    NextDay();
    log.LogInfoMsg("hidden");
    EXPECT_EQ(Names(), std::vector<std::string>{"Server.2026-12-31.log"});
    log.LogWarningMsg("shown");
    EXPECT_EQ(Said("Server.2027-01-01.log"),
              (std::vector<std::string>{"Information       Log file opened after date rollover",
                                        "Warning           shown"}));
}

TEST_F(LogRollover, ALogThatIsNotDailyStays)
{
    ASSERT_TRUE(log.CreateLogFile("Server", folder.Path().c_str(), 0));
    log.SetOldLogFileDays(0);
    MakeFile("Server.2026-12-01.log");
    NextDay();
    log.LogInfoMsg("on");
    EXPECT_EQ(Names(), (std::vector<std::string>{"Server.2026-12-01.log", "Server.log"}));
}

TEST_F(LogRollover, ANextFileThatCannotBeOpenedIsTriedAgain)
{
    Open();
    NextDay();
    std::filesystem::create_directory(folder / "Server.2027-01-01.log");
    log.LogInfoMsg("one");
    log.LogInfoMsg("two");
    std::filesystem::remove(folder / "Server.2027-01-01.log");
    log.LogInfoMsg("three");
    const std::vector<std::string> old = Said("Server.2026-12-31.log");
    ASSERT_EQ(old.size(), 8u); // the system's text has a line end
    EXPECT_EQ(old[1].rfind("MajorError        Open next day's log file failed, ", 0), 0u);
    EXPECT_EQ(old[3], "Information       one");
    EXPECT_EQ(old[6], "Information       two");
    EXPECT_EQ(Said("Server.2027-01-01.log").back(), "Information       three");
}

TEST_F(LogRollover, KeepsTheNumberOfOldFilesThatWasSet)
{
    const struct {
        int days;
        std::vector<std::string> left; // of the days 28 to 31, beside 1 January
    } cases[] = {{20, {"28", "29", "30", "31"}},
                 {4, {"28", "29", "30", "31"}},
                 {3, {"29", "30", "31"}},
                 {1, {"31"}},
                 {0, {}},
                 {-5, {}}};
    for (const auto& [days, left] : cases) {
        for (const char* day : {"28", "29", "30"}) MakeFile(std::string("Server.2026-12-") + day + ".log");
        Open();
        log.SetOldLogFileDays(days);
        log.LogInfoMsg("a day before nothing goes");
        EXPECT_EQ(Names().size(), 4u);
        NextDay();
        log.LogInfoMsg("new day");
        std::vector<std::string> expected;
        for (const std::string& day : left) expected.push_back("Server.2026-12-" + day + ".log");
        expected.push_back("Server.2027-01-01.log");
        EXPECT_EQ(Names(), expected) << days;
        log.CloseLogFile();
        clock.Advance(-86400);
        for (const std::string& name : Names()) std::filesystem::remove(folder / name);
    }
}

TEST_F(LogRollover, FilesGoByTheirDateKeyAndFoldersStay)
{
    for (const char* name : {"Server.old.log", "Server.2025-01-01.log", "Server.20260101.log",
                             "Server.99.log", "Server.log", "Server2.2020-01-01.log", "Other.2020-01-01.log"})
        MakeFile(name);
    std::filesystem::create_directory(folder / "Server.2000-01-01.log");
    Open();
    log.SetOldLogFileDays(2);
    NextDay();
    log.LogInfoMsg("new day");
    EXPECT_EQ(Names(),
              (std::vector<std::string>{"Other.2020-01-01.log", "Server.2000-01-01.log",
                                        "Server.2026-12-31.log", "Server.20260101.log",
                                        "Server.2027-01-01.log", "Server.log", "Server2.2020-01-01.log"}));
}

TEST_F(LogRollover, AFileThatCannotBeDeletedIsReportedAndPassedOver)
{
    MakeFile("Server.2026-12-29.log");
    MakeFile("Server.2026-12-30.log");
    chmod((folder / "Server.2026-12-29.log").c_str(), 0444);
    Open();
    log.SetOldLogFileDays(0);
    NextDay();
    log.LogInfoMsg("new day");
    log.LogInfoMsg("and on");
    EXPECT_EQ(Names(), (std::vector<std::string>{"Server.2026-12-29.log", "Server.2027-01-01.log"}));
    const std::string text = Text("Server.2027-01-01.log");
    const std::size_t place = text.find("MajorError        Delete old log file failed, ");
    ASSERT_NE(place, std::string::npos);
    EXPECT_NE(text.find("\\Server.2026-12-29.log\n", place), std::string::npos);
    EXPECT_EQ(text.find("Delete old", place + 20), std::string::npos);
}

TEST_F(LogRollover, ARegistryThatFailsThrowsAndFreesTheLock)
{
    WriteWhole(folder / "file", "");
    MakeFile("Server.2026-12-01.log");
    log.SetOldLogFileDays(1);
    setenv("COREKIT_HOME", (folder / "file").c_str(), 1); // no folder to keep a registry in
    Open();
    NextDay();
    EXPECT_EQ(Thrown([this] {
                  log.LogInfoMsg("not written");
              }).rfind("Failed attempting to create a registry key.", 0),
              0u);
    EXPECT_EQ(Names().size(), 3u) << "the old log has gone, though";
    log.LogInfoMsg("written");
    EXPECT_EQ(Said("Server.2027-01-01.log").back(), "Information       written");
}

} // namespace
